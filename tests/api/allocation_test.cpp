// Counts what is allocated while the library works. The C library's own allocations count: the functions here stand in
// front of it for the whole process.

#include <atomic>
#include <cstddef>
#include <string>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/registered_items.hpp"

extern "C" {
void *__libc_malloc(size_t size);
void *__libc_calloc(size_t count, size_t size);
void *__libc_realloc(void *memory, size_t size);
}

namespace {

std::atomic<uint64_t> allocations{0};

} // namespace

// operator new comes here too.
extern "C" {
void *malloc(size_t size) {
    ++allocations;
    return __libc_malloc(size);
}
void *calloc(size_t count, size_t size) {
    ++allocations;
    return __libc_calloc(count, size);
}
void *realloc(void *memory, size_t size) {
    ++allocations;
    return __libc_realloc(memory, size);
}
}

namespace {

using namespace ast_test;

int32_t silent(uint32_t, const char *) { return 0; }

// How often `work` allocates.
template <typename Work>
uint64_t allocations_of(Work work) {
    ast_log_handler_reg(silent);
    const uint64_t before = allocations;
    work();
    const uint64_t count = allocations - before;
    ast_log_handler_reg(ast_log_stdout);
    return count;
}

TEST(Allocation, IsCounted) {
    EXPECT_GE(allocations_of([] { std::string(100, 'x').shrink_to_fit(); }), 1U);
}

TEST(Allocation, NoneForBlocks) {
    static ast_datablock_t block;
    static ast_datablock_t modified;
    uint8_t buffer[64];
    const auto data = octets("30 00 11 E0 19 0C 00 00 80 A1 00 82 19 0C 80 12 00");
    const auto broken = octets("30 00 08 80 19 0C 01 01");
    EXPECT_EQ(allocations_of([&] {
                  block = ast_datablock_smart_decode(broken.data(), broken.size());
                  block = ast_datablock_smart_decode(data.data(), data.size());
                  block = ast_datablock_decode(data.data(), data.size(), AST_UAP_STANDARD);
                  modified = ast_datablock_modify(buffer, sizeof buffer, &block, nullptr);
              }),
              0U);
    EXPECT_EQ(block.record_count, 2U);
}

TEST(Allocation, NoneForAnyItem) {
    static char text[65536];
    for (const RegisteredItem &registered : registered_items()) {
        const auto &data = registered.sample;
        uint8_t buffer[1100];
        EXPECT_EQ(allocations_of([&] {
                      const ast_dataitem_t item = ast_dataitem_decode(data.data(), data.size(), registered.type);
                      for (const auto view :
                           {ast_dataitem_get_summary, ast_dataitem_get_detail_html, ast_dataitem_get_hex_str,
                            ast_dataitem_get_bin_str, ast_dataitem_get_hex_html, ast_dataitem_get_bin_html})
                          view(text, sizeof text, &item);
                      ast_dataitem_copy(buffer, sizeof buffer, &item);
                  }),
                  0U)
            << registered.type;
    }
}

TEST(Allocation, NoneForLogs) {
    const std::string message(600, 'x');
    const auto data = repeated("AB", 100);
    EXPECT_EQ(allocations_of([&] {
                  ast_log(0, "%s %f", message.c_str(), 1e300);
                  ast_log_binary_data(0, data.data(), data.size());
              }),
              0U);
}

} // namespace
