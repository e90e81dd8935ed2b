// Several threads at work on one library while another changes its settings. The thread sanitizer sees what they share;
// without it, what each thread gets has to be what it would get alone.

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "ast.h"
#include "support/registered_items.hpp"

namespace {

using namespace ast_test;

constexpr int kRounds = 20;
constexpr unsigned kThreads = 4;

int32_t silent(uint32_t, const char *) { return 0; }
int32_t also_silent(uint32_t, const char *message) { return message[0]; }
void two_sources(ast_sac_info_list_t *list, uint32_t sac) {
    list->count = 2;
    list->entries[1] = {.valid = sac != 0, .region = "Region", .country = "Country"};
}

// Settings that do not touch the octets of this test, over and over.
void change_settings(const std::atomic<bool> &is_over) {
    for (uint32_t round = 0; !is_over; ++round) {
        ast_library_set_option(AST_OPTION_INVERT_062_LONGITUDE << 8);
        ast_library_unset_option(AST_OPTION_INVERT_062_LONGITUDE << 8);
        ast_log_handler_reg(round % 2 ? silent : also_silent);
        ast_reg_callback_sac_get_info(round % 2 ? two_sources : nullptr);
        ast_reg_callback_sacsic_get_sensor(nullptr);
        ast_reg_callback_icao_addr_get_country(nullptr);
        ast_html_set_flavor(round % 2);
        std::this_thread::yield();
    }
    ast_reg_callback_sac_get_info(nullptr);
    ast_html_set_flavor(0);
}

// A plot of eleven items; a track of category 021 that only the later editions decode.
const std::vector<uint8_t> kRadar = block_of(48, octets("FD 97 02 19 0C 35 2A 80 A0 2D 80 60 00 0A 53 05 78 4B A9 D1 "
                                                        "00 64 07 A5 5B 06 40 20 FD"));
const std::vector<uint8_t> kAdsb = block_of(21, octets("C1 01 01 01 80 19 0C 00 50 86 71 04 28 20"));

std::string item_texts(const ast_dataitem_t &item) {
    static thread_local char text[65536];
    std::string all = ast_dataitem_type_to_str(item.type);
    for (const auto view : {ast_dataitem_get_summary, ast_dataitem_get_hex_str, ast_dataitem_get_bin_str}) {
        view(text, sizeof text, &item);
        all += text;
    }
    ast_dataitem_get_detail_html(text, sizeof text, &item); // differs with the settings
    return all;
}

std::string record_texts(const ast_datarecord_t &record) {
    std::string all;
    for (uint32_t keyword = 0; keyword < AST_KEYWORDS; ++keyword) {
        char text[100];
        ast_datarecord_get_keyword(text, sizeof text, &record, keyword, AST_POSITION_DMS_HIGH);
        all += text;
    }
    for (uint64_t i = 0; i < record.item_count; ++i) all += item_texts(record.items[i]);
    ast_datarecord_048_t flat = ast_datarecord_048_disassemble(&record);
    uint8_t buffer[100];
    const ast_datarecord_t again = ast_datarecord_048_assemble(buffer, sizeof buffer, &flat, AST_UAP_STANDARD);
    return all + std::string(buffer, buffer + again.size);
}

std::string block_texts(const std::vector<uint8_t> &octets) {
    static thread_local ast_datablock_t block;
    block = ast_datablock_smart_decode(octets.data(), octets.size());
    std::string all = block.valid ? "valid" : "broken";
    for (uint64_t i = 0; i < block.record_count; ++i) all += record_texts(block.records[i]);
    return all;
}

// The items that hand values to each other in variables of the process, which threads may not share.
bool shares_video_variables(ast_dataitem_type_t type) {
    return (type >= 240041 && type <= 240048) || (type >= 240050 && type <= 240052);
}

std::string all_texts() {
    std::string all =
        block_texts(kRadar) + block_texts(kAdsb) + ast_library_version() + ast_latlong_to_str(48.5, -2.25);
    for (const RegisteredItem &registered : registered_items()) {
        if (shares_video_variables(registered.type)) continue;
        const auto &data = registered.sample;
        all += item_texts(ast_dataitem_decode(data.data(), data.size(), registered.type));
    }
    return all;
}

TEST(Threads, WorkSideBySideWhileSettingsChange) {
    ast_log_handler_reg(silent);
    const std::string alone = all_texts();
    EXPECT_NE(alone.find("valid"), std::string::npos);
    EXPECT_EQ(alone.find("broken"), std::string::npos);

    std::atomic<bool> is_over{false};
    std::atomic<int> differences{0};
    std::thread settings([&] { change_settings(is_over); });
    std::vector<std::thread> workers;
    for (unsigned i = 0; i < kThreads; ++i)
        workers.emplace_back([&] {
            for (int round = 0; round < kRounds; ++round) differences += all_texts() != alone;
        });
    for (std::thread &worker : workers) worker.join();
    is_over = true;
    settings.join();
    EXPECT_EQ(differences, 0);
    ast_log_handler_reg(ast_log_stdout);
}

} // namespace
