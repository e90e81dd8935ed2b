// Writing files, and reading them again.

#include <filesystem>

#include "recording/recorded.hpp"

namespace ast_test {

namespace {

constexpr int64_t kTime_ns = 1'700'000'000'123'456'789;
constexpr ast_endpoint_t kSender{.family = 4, .octets = {10, 0, 0, 1}, .port = 8600, .scope = 0};
constexpr ast_endpoint_t kReceiver{.family = 4, .octets = {239, 1, 1, 1}, .port = 8601, .scope = 0};

// A folder that is empty at first.
class Writer : public testing::Test {
protected:
    void SetUp() override { std::filesystem::create_directory(folder_); }
    void TearDown() override { std::filesystem::remove_all(folder_); }

    std::string path(const char *name) const { return folder_ + "/" + name; }
    ast_writer_t *begin(const std::string &path) {
        ast_writer_t *const writer = ast_writer_open(path.c_str(), &error_);
        EXPECT_NE(writer, nullptr) << error_.text;
        return writer;
    }
    bool write(ast_writer_t *writer, const std::vector<uint8_t> &octets, int64_t time_ns = kTime_ns,
               const ast_endpoint_t *receiver = &kReceiver) {
        return ast_writer_write(writer, octets.data(), octets.size(), time_ns, &kSender, receiver, &error_);
    }

    std::string folder_ =
        testing::TempDir() + "writer_test." + testing::UnitTest::GetInstance()->current_test_info()->name();
    ast_recording_error_t error_;
};

TEST_F(Writer, KeepsTimesAndAddresses) {
    ast_writer_t *const writer = begin(path("a.pcap"));
    EXPECT_TRUE(write(writer, north_marker()));
    EXPECT_TRUE(write(writer, north_marker(0x55), AST_TIME_UNKNOWN, nullptr));
    EXPECT_FALSE(std::filesystem::exists(path("a.pcap")));
    EXPECT_TRUE(ast_writer_finish(writer, &error_)) << error_.text;
    const std::vector<ReadBlock> blocks = read_all(open({path("a.pcap")}).get());
    ASSERT_EQ(blocks.size(), 2U);
    EXPECT_EQ(blocks[0].octets, north_marker());
    EXPECT_EQ(blocks[0].time, "2023-11-14 22:13:20.123456");
    EXPECT_EQ(blocks[0].route, "10.0.0.1:8600 > 239.1.1.1:8601");
    EXPECT_EQ(blocks[1].time, "1970-01-01 00:00:00.000000");
    EXPECT_EQ(blocks[1].route, "192.0.2.1:8600 > 233.252.0.1:8600");
}

TEST_F(Writer, PutsBlocksBackToBack) {
    for (const char *const name : {"a.ast", "a.bin", "a.raw"}) {
        ast_writer_t *const writer = begin(path(name));
        EXPECT_TRUE(write(writer, north_marker()));
        EXPECT_TRUE(write(writer, {}));
        EXPECT_TRUE(write(writer, north_marker(0x55)));
        EXPECT_TRUE(ast_writer_finish(writer, nullptr));
        std::vector<uint8_t> both = north_marker(), second = north_marker(0x55);
        both.insert(both.end(), second.begin(), second.end());
        EXPECT_EQ(contents(path(name)), both) << name;
    }
}

TEST_F(Writer, LeavesWhatWasThereUnlessItIsFinished) {
    for (int i = 0; i < 2; ++i) {
        ast_writer_t *const writer = begin(path("a.ast"));
        EXPECT_TRUE(write(writer, north_marker(i == 0 ? 0x54 : 0x55)));
        if (i == 0)
            EXPECT_TRUE(ast_writer_finish(writer, nullptr));
        else
            ast_writer_discard(writer);
    }
    EXPECT_EQ(contents(path("a.ast")), north_marker());
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_), {}), 1);
}

TEST_F(Writer, SaysWhatCannotBeWritten) {
    for (const char *const name : {"a.txt", "a.json", ""}) {
        EXPECT_EQ(ast_writer_open(path(name).c_str(), &error_), nullptr);
        EXPECT_EQ(error_.code, AST_RECORDING_ERROR_OPTION) << name;
    }
    EXPECT_EQ(ast_writer_open(nullptr, nullptr), nullptr);
    EXPECT_EQ(ast_writer_open(path("no/a.ast").c_str(), &error_), nullptr);
    EXPECT_NE(std::string(error_.text).find("no/a.ast"), std::string::npos);

    ast_writer_t *const writer = begin(path("a.pcap"));
    EXPECT_FALSE(write(writer, std::vector<uint8_t>(65508)));
    EXPECT_STREQ(error_.text, "a block of 65508 octets fits no datagram of UDP");
    EXPECT_FALSE(write(writer, north_marker(), -1));
    EXPECT_FALSE(ast_writer_write(writer, nullptr, 1, 0, nullptr, nullptr, &error_));
    EXPECT_TRUE(write(writer, std::vector<uint8_t>(65507)));
    EXPECT_TRUE(ast_writer_finish(writer, &error_)) << error_.text;
    EXPECT_EQ(std::filesystem::file_size(path("a.pcap")), 24U + 16U + 14U + 65535U);

    if (!std::filesystem::exists("/dev/full")) return;
    std::filesystem::create_symlink("/dev/full", path("full.ast"));
    ast_writer_t *const full = begin(path("full.ast"));
    EXPECT_FALSE(write(full, north_marker()));
    EXPECT_FALSE(ast_writer_finish(full, &error_));
    EXPECT_FALSE(ast_writer_finish(nullptr, nullptr));
    ast_writer_discard(nullptr);
}

} // namespace

} // namespace ast_test
