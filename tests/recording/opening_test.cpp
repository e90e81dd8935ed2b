// What cannot be opened, and why.

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

#include "recording/recorded.hpp"

namespace ast_test {

namespace {

struct Refusal {
    const char *what;
    std::vector<const char *> inputs;
    ast_recording_options_t options;
    uint32_t code;
    const char *text;
};

TEST(Opening, SaysWhatIsWrong) {
    const char *const fine = "/dev/null";
    const Refusal refusals[] = {
        {"no input", {}, {}, AST_RECORDING_ERROR_OPTION, "there is no input"},
        {"a null", {nullptr}, {}, AST_RECORDING_ERROR_OPTION, "an input is null"},
        {"no file",
         {"/nowhere/a.pcap"},
         {},
         AST_RECORDING_ERROR_NOT_FOUND,
         "/nowhere/a.pcap: No such file or directory"},
        {"the second one",
         {fine, "/nowhere/a.pcap"},
         {},
         AST_RECORDING_ERROR_NOT_FOUND,
         "/nowhere/a.pcap: No such file or directory"},
        {"a framing",
         {fine},
         {.framing = "tar"},
         AST_RECORDING_ERROR_OPTION,
         "framing: 'tar' is none of raw, final, gps, oradis, hdlc, mac-llc, hex, text, json"},
        {"a list",
         {fine},
         {.categories = "48,x"},
         AST_RECORDING_ERROR_OPTION,
         "categories: '48,x' is no list such as 34,48 or 1-21"},
        {"a port",
         {fine},
         {.ports = "x"},
         AST_RECORDING_ERROR_OPTION,
         "ports: 'x' is no port, such as 8600, nor a range, such as 8600-8620"},
        {"a host",
         {fine},
         {.hosts = "10.0.0"},
         AST_RECORDING_ERROR_OPTION,
         "hosts: '10.0.0' is no address, such as 10.1.2.3, nor a range, such as 10.1.0.0/16 or 10.1.2.3-10.1.2.9"},
        {"a time",
         {fine},
         {.from = "noon"},
         AST_RECORDING_ERROR_OPTION,
         "from: 'noon' is no time such as 12:00 or 2014-02-25T12:43:47Z"},
        {"two that have no end",
         {fine, fine},
         {.follow = true},
         AST_RECORDING_ERROR_OPTION,
         "what has no end is read by itself"},
        {"merged without end",
         {fine},
         {.merge = true, .follow = true},
         AST_RECORDING_ERROR_OPTION,
         "merge and follow exclude each other: what grows has no end"},
        {"an interface of a file",
         {fine},
         {.network_interface = "lo"},
         AST_RECORDING_ERROR_OPTION,
         "network_interface: is for udp:// alone"},
        {"an interface",
         {"udp://127.0.0.1:0"},
         {.network_interface = "none0"},
         AST_RECORDING_ERROR_NOT_FOUND,
         "udp://127.0.0.1:0: No such device"},
        {"no URL",
         {"udp://nowhere"},
         {},
         AST_RECORDING_ERROR_OPTION,
         "'udp://nowhere' is neither udp://HOST:PORT nor tcp://HOST:PORT, where a HOST is a name, an IPv4 address, or "
         "an IPv6 address in brackets"},
        {"another scheme",
         {"http://a/b"},
         {},
         AST_RECORDING_ERROR_OPTION,
         "'http://a/b' is neither a file nor udp://HOST:PORT nor tcp://HOST:PORT"},
        {"two addresses in one",
         {"udp://127.0.0.1:0 udp://127.0.0.1:0"},
         {},
         AST_RECORDING_ERROR_OPTION,
         "'udp://127.0.0.1:0 udp://127.0.0.1:0' is neither a file nor udp://HOST:PORT nor tcp://HOST:PORT"},
        {"standard input twice", {"-", "-"}, {}, AST_RECORDING_ERROR_OPTION, "standard input can be read once"},
        {"too many threads", {fine}, {.threads = 257}, AST_RECORDING_ERROR_OPTION, "threads: 257 is more than 256"},
        {"what later versions add",
         {fine},
         {.reserved = {fine}},
         AST_RECORDING_ERROR_OPTION,
         "reserved: is for later versions, and null"},
        {"no address of this host",
         {"udp://192.0.2.1:8600"},
         {},
         AST_RECORDING_ERROR_NOT_FOUND,
         "udp://192.0.2.1:8600: Cannot assign requested address"},
    };
    for (Refusal refusal : refusals) {
        ast_recording_error_t error{};
        Reports reports;
        refusal.options = reports.with(refusal.options);
        EXPECT_EQ(ast_recording_open(refusal.inputs.data(), refusal.inputs.size(), &refusal.options, &error), nullptr)
            << refusal.what;
        EXPECT_EQ(error.code, refusal.code) << refusal.what;
        EXPECT_STREQ(error.text, refusal.text) << refusal.what;
        EXPECT_EQ(ast_recording_open(refusal.inputs.data(), refusal.inputs.size(), &refusal.options, nullptr), nullptr);
        EXPECT_TRUE(reports.told.empty()) << refusal.what << " is said once";
    }
    ast_recording_error_t error{};
    EXPECT_EQ(ast_recording_open_octets(nullptr, 5, nullptr, nullptr, &error), nullptr);
    EXPECT_EQ(error.code, AST_RECORDING_ERROR_OPTION);
}

TEST(Opening, ClearsTheError) {
    ast_recording_error_t error{.code = 7, .text = "old"};
    const Recording recording(ast_recording_open_octets(nullptr, 0, nullptr, nullptr, &error));
    EXPECT_TRUE(recording);
    EXPECT_EQ(error.code, AST_RECORDING_ERROR_NONE);
    EXPECT_STREQ(error.text, "");
}

TEST(Opening, OfAConnectionThatIsRefusedFailsWithTheFirstBlock) {
    // A port that nobody listens on: one that was just given up.
    const int gone = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    ASSERT_EQ(bind(gone, reinterpret_cast<sockaddr *>(&address), size), 0);
    ASSERT_EQ(getsockname(gone, reinterpret_cast<sockaddr *>(&address), &size), 0);
    const std::string url = "tcp://127.0.0.1:" + std::to_string(ntohs(address.sin_port));
    close(gone);

    Reports reports;
    const auto recording = open({url}, reports.with());
    EXPECT_TRUE(read_all(recording.get()).empty());
    const ast_recording_state_t state = state_of(recording.get());
    EXPECT_EQ(state.phase, AST_RECORDING_FAILED);
    EXPECT_EQ(state.error.code, AST_RECORDING_ERROR_CONNECTION);
    EXPECT_EQ(state.error.text, url + ": Connection refused");
    ASSERT_EQ(reports.told.size(), 1U);
    EXPECT_EQ(reports.told[0].data.reason, AST_REASON_UNREADABLE);
    EXPECT_EQ(reports.told[0].data.kind, AST_REPORT_UNREADABLE);
    EXPECT_EQ(reports.told[0].file, url);
    EXPECT_EQ(reports.told[0].text, "Connection refused");
}

// The files in front of it and behind it are read all the same.
TEST(Opening, OfADirectoryFailsWhenItIsRead) {
    Reports reports;
    const auto recording = open({sample("radar.ast"), "/tmp", sample("radar.ast")}, reports.with());
    EXPECT_EQ(read_all(recording.get()).size(), 2 * read_all(open({sample("radar.ast")}).get()).size());
    const ast_recording_state_t state = state_of(recording.get());
    EXPECT_EQ(state.phase, AST_RECORDING_FAILED);
    EXPECT_EQ(state.error.code, AST_RECORDING_ERROR_INPUT);
    EXPECT_STREQ(state.error.text, "/tmp: Is a directory");
}

} // namespace

} // namespace ast_test
