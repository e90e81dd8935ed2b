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
    // Called by name, as a compiler may leave out what `new` and `delete` ask for.
    EXPECT_EQ(allocations_of([] { operator delete(operator new(100)); }), 1U);
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

TEST(Allocation, NoneForQueriesFlatRecordsAndEncoders) {
    static char text[4096];
    const auto data = octets("FD 97 02 19 0C 35 2A 80 A0 2D 80 60 00 0A 53 05 78 4B A9 D1 00 64 07 A5 5B 06 40 20 FD");
    EXPECT_EQ(allocations_of([&] {
                  const ast_datarecord_t record = ast_datarecord_decode(data.data(), data.size(), 48, AST_UAP_STANDARD);
                  for (uint32_t keyword = 0; keyword <= AST_KEYWORDS; ++keyword) {
                      ast_keyword_name(text, sizeof text, keyword);
                      ast_keyword_description(text, sizeof text, keyword);
                      ast_datarecord_get_keyword(text, sizeof text, &record, keyword, AST_POSITION_DEGREES);
                      ast_datarecord_contain_keyword(&record, keyword);
                      ast_datarecord_match_keyword(&record, keyword, "7700", true);
                  }
                  ast_datarecord_get_detail_html(text, sizeof text, &record);
                  ast_datarecord_get_hex_html(text, sizeof text, &record);
                  uint8_t buffer[64];
                  ast_datarecord_048_t plot = ast_datarecord_048_disassemble(&record);
                  ast_datarecord_048_assemble(buffer, sizeof buffer, &plot, AST_UAP_STANDARD);
                  ast_datarecord_034_t message = ast_datarecord_034_disassemble(&record);
                  ast_datarecord_034_assemble(buffer, sizeof buffer, &message, AST_UAP_STANDARD);
                  ast_datarecord_copy(buffer, sizeof buffer, &record);
              }),
              0U);
}

TEST(Allocation, NoneForTextsAndRegisters) {
    static char text[4096];
    const auto mb = octets("80 1F 1D 37 40 04 B4");
    EXPECT_EQ(allocations_of([&] {
                  for (uint32_t number = 0; number < 256; ++number) {
                      const ast_bds_t bds = ast_bds_decode(mb.data(), mb.size(), number);
                      ast_bds_get_detail_html(text, sizeof text, &bds);
                      ast_category_to_str(number);
                      ast_bds_type_to_str(number);
                  }
                  for (uint32_t service = 0; service < 6; ++service)
                      ast_html_gen_location_map_link(text, sizeof text, service, 48.5, -2.25);
                  ast_latlong_to_str_very_high(48.5, -2.25);
                  ast_library_version();
              }),
              0U);
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
