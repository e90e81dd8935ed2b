// Sending, to a socket of the test's own.

#include <ast_recording.h>
#include <cmath>
#include <cstring>
#include <memory>
#include <optional>
#include <thread>

#include <gtest/gtest.h>

#include "support/client.hpp"
#include "support/receiver.hpp"

namespace ast_test {

namespace {

using std::chrono::milliseconds;

constexpr int64_t kMillisecond_ns = 1'000'000;
const std::string kBlock("\x22\x00\x08\xD0\x19\x0C\x01\x00", 8);
constexpr int64_t kNoon_ns = 1'700'000'000'000'000'000;

struct Closer {
    void operator()(ast_sender_t *sender) const { ast_sender_close(sender); }
};
using Sender = std::unique_ptr<ast_sender_t, Closer>;

Sender open_sender(const std::string &url, const ast_sender_options_t &options = {}) {
    ast_recording_error_t error;
    Sender sender(ast_sender_open(url.c_str(), &options, &error));
    EXPECT_NE(sender, nullptr) << error.text;
    return sender;
}

bool send(const Sender &sender, const std::string &octets, int64_t time_ns = AST_TIME_UNKNOWN) {
    return ast_sender_send_at(sender.get(), reinterpret_cast<const uint8_t *>(octets.data()), octets.size(), time_ns);
}

ast_sender_statistics_t statistics_of(const Sender &sender) {
    ast_sender_statistics_t statistics;
    ast_sender_get_statistics(sender.get(), &statistics);
    return statistics;
}

// Half a second of recording in which the third datagram goes back in time, ten times as fast; then once more.
TEST(Sender, KeepsOctetsOrderAndTimes) {
    Receiver receiver;
    const Sender sender = open_sender(receiver.url(), {.speed = 10});
    const std::vector<std::string> sent = {"one", std::string(65507, '2'), "three", ""};
    const int64_t times_ms[] = {0, 300, 200, 500};
    for (int pass = 0; pass < 2; ++pass) {
        if (pass == 1) ast_sender_restart(sender.get());
        const auto begin = Receiver::Clock::now();
        for (size_t i = 0; i < sent.size(); ++i)
            EXPECT_TRUE(send(sender, sent[i], kNoon_ns - pass + times_ms[i] * kMillisecond_ns));
        const std::vector<Receiver::Arrival> arrivals = receiver.receive(sent.size());
        EXPECT_EQ(octets_of(arrivals), sent);
        const auto took = [&](size_t i) { return arrivals.at(i).time - begin; };
        EXPECT_GE(took(1), milliseconds(30));
        EXPECT_GE(took(3), milliseconds(50));
        EXPECT_LT(took(3), milliseconds(450)) << "ten times as fast";
    }
    const ast_sender_statistics_t statistics = statistics_of(sender);
    EXPECT_EQ(statistics.sent, 8U);
    EXPECT_EQ(statistics.octets, 2U * (3 + 65507 + 5));
    EXPECT_EQ(statistics.failed, 0U);
    EXPECT_GT(statistics.late_median_ns, 0);
    EXPECT_GE(statistics.late_greatest_ns, statistics.late_median_ns);
    EXPECT_EQ(statistics.failure.code, AST_RECORDING_ERROR_NONE);
}

// 40 datagrams of 1000 octets are 320 kbit.
// Waiting by halves sends nothing, and does not put off what is sent.
TEST(Sender, WaitsForWhatIsDueAndNoLonger) {
    Receiver receiver;
    const Sender sender = open_sender(receiver.url());
    const int64_t second_ns = kNoon_ns + 300 * kMillisecond_ns;
    EXPECT_TRUE(ast_sender_wait_within(sender.get(), 3, kNoon_ns, 0));
    const auto begin = Receiver::Clock::now();
    EXPECT_TRUE(send(sender, "one", kNoon_ns));
    EXPECT_TRUE(ast_sender_wait_within(sender.get(), 3, AST_TIME_UNKNOWN, 0));
    EXPECT_FALSE(ast_sender_wait_within(sender.get(), 3, second_ns, 0));
    EXPECT_FALSE(ast_sender_wait_within(sender.get(), 3, second_ns, 20));
    EXPECT_TRUE(ast_sender_wait_within(sender.get(), 3, second_ns, 60'000));
    EXPECT_GE(Receiver::Clock::now() - begin, milliseconds(300));
    EXPECT_TRUE(send(sender, "two", second_ns));
    EXPECT_EQ(octets_of(receiver.receive(2)), (std::vector<std::string>{"one", "two"}));
    ast_sender_interrupt(sender.get());
    EXPECT_FALSE(ast_sender_wait_within(sender.get(), 3, AST_TIME_UNKNOWN, 0));
    EXPECT_FALSE(ast_sender_wait_within(nullptr, 3, kNoon_ns, 0));
}

TEST(Sender, GoesAsFastAsItCanOrMay) {
    Receiver receiver;
    for (const bool is_bounded : {false, true}) {
        const Sender sender =
            open_sender(receiver.url(), {.speed = HUGE_VAL, .most_bits_per_s = is_bounded ? 3'200'000U : 0U});
        const auto begin = Receiver::Clock::now();
        for (int i = 0; i < 40; ++i)
            EXPECT_TRUE(send(sender, std::string(1000, 'x'), kNoon_ns + i * 1000 * kMillisecond_ns));
        const auto took = Receiver::Clock::now() - begin;
        EXPECT_EQ(receiver.receive(40).size(), 40U);
        EXPECT_LT(took, milliseconds(10'000));
        EXPECT_GE(took, milliseconds(is_bounded ? 80 : 0));
        EXPECT_EQ(statistics_of(sender).late_greatest_ns, 0);
    }
}

TEST(Sender, KeepsGroupsOnTheNetworkUnlessTold) {
    const struct {
        uint32_t given;
        int taken;
    } cases[] = {{0, 1}, {5, 5}};
    for (const auto &test : cases) {
        Receiver receiver("239.17.3.5");
        const Sender sender = open_sender(receiver.url(), {.ttl = test.given, .network_interface = "lo"});
        EXPECT_TRUE(send(sender, "group"));
        EXPECT_EQ(octets_of(receiver.receive(1)), std::vector<std::string>{"group"});
        EXPECT_EQ(receiver.ttl(), test.taken);
    }
}

TEST(Sender, RefusesWhatIsNoDestination) {
    const struct {
        const char *url;
        ast_sender_options_t options;
        uint32_t code;
    } cases[] = {
        {nullptr, {}, AST_RECORDING_ERROR_OPTION},
        {"127.0.0.1:8600", {}, AST_RECORDING_ERROR_OPTION},
        {"udp://127.0.0.1:0", {}, AST_RECORDING_ERROR_OPTION},
        {"udp://127.0.0.1:70000", {}, AST_RECORDING_ERROR_OPTION},
        {"udp://127.0.0.1:1 udp://127.0.0.1:2", {}, AST_RECORDING_ERROR_OPTION},
        {"udp://0.0.0.0:8600", {}, AST_RECORDING_ERROR_OPTION},
        {"udp://255.255.255.255:8600", {}, AST_RECORDING_ERROR_OPTION},
        {"udp://127.255.255.255:8600", {}, AST_RECORDING_ERROR_OPTION},
        {"udp://127.0.0.1:8600", {.speed = -1}, AST_RECORDING_ERROR_OPTION},
        {"udp://127.0.0.1:8600", {.speed = NAN}, AST_RECORDING_ERROR_OPTION},
        {"udp://127.0.0.1:8600", {.ttl = 256}, AST_RECORDING_ERROR_OPTION},
        {"udp://127.0.0.1:8600", {.reserved = {"x"}}, AST_RECORDING_ERROR_OPTION},
        {"udp://239.1.1.1:8600", {.network_interface = "none0"}, AST_RECORDING_ERROR_NOT_FOUND},
    };
    for (const auto &test : cases) {
        ast_recording_error_t error;
        EXPECT_EQ(ast_sender_open(test.url, &test.options, &error), nullptr);
        EXPECT_EQ(error.code, test.code) << (test.url ? test.url : "null");
        EXPECT_NE(error.text[0], '\0');
    }
    ast_recording_error_t error;
    EXPECT_EQ(ast_sender_listen("udp://127.0.0.1:8600", nullptr, &error), nullptr);
    EXPECT_EQ(error.code, AST_RECORDING_ERROR_OPTION);
    EXPECT_EQ(ast_sender_listen("tcp://198.51.100.1:8600", nullptr, &error), nullptr);
    EXPECT_EQ(error.code, AST_RECORDING_ERROR_NOT_FOUND) << error.text;
    EXPECT_FALSE(ast_sender_send_at(nullptr, nullptr, 0, 0));
    ast_sender_restart(nullptr);
    ast_sender_interrupt(nullptr);
    ast_sender_close(nullptr);
}

// The first to a closed port is refused, which shows at the next; and no datagram holds so many octets.
TEST(Sender, CountsWhatFailsAndGoesOn) {
    Receiver receiver;
    const Sender sender = open_sender(receiver.url());
    EXPECT_FALSE(send(sender, std::string(65508, 'x')));
    EXPECT_EQ(statistics_of(sender).failed, 1U);
    EXPECT_STREQ(statistics_of(sender).failure.text, std::strerror(EMSGSIZE));
    EXPECT_TRUE(send(sender, "received"));
    receiver.close();
    for (int i = 0; i < 4; ++i) send(sender, "refused");
    const ast_sender_statistics_t statistics = statistics_of(sender);
    EXPECT_EQ(statistics.failed, 1U + 3);
    EXPECT_EQ(statistics.sent, 1U + 1);
    EXPECT_EQ(statistics.octets, 8U + 7);
}

// Takes one connection at a time.
class Server {
public:
    Server() : listener_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_in own{};
        own.sin_family = AF_INET;
        own.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof own;
        EXPECT_EQ(bind(listener_, reinterpret_cast<const sockaddr *>(&own), size), 0);
        EXPECT_EQ(listen(listener_, 1), 0);
        getsockname(listener_, reinterpret_cast<sockaddr *>(&own), &size);
        url_ = "tcp://127.0.0.1:" + std::to_string(ntohs(own.sin_port));
    }
    ~Server() {
        close();
        ::close(listener_);
    }
    Server(const Server &) = delete;
    Server &operator=(const Server &) = delete;

    const std::string &url() const { return url_; }
    uint16_t port() const { return static_cast<uint16_t>(std::stoi(url_.substr(url_.rfind(':') + 1))); }
    void take() { connection_ = accept(listener_, nullptr, nullptr); }
    std::string read(size_t count) const {
        std::string octets(count, '\0');
        octets.resize(static_cast<size_t>(recv(connection_, octets.data(), count, MSG_WAITALL)));
        return octets;
    }
    void close() {
        if (connection_ >= 0) ::close(connection_);
        connection_ = -1;
    }

private:
    int listener_;
    int connection_ = -1;
    std::string url_;
};

// The events of a sender up to one of a kind, the last of which it is.
ast_sender_event_t wait_for(const Sender &sender, uint32_t kind) {
    ast_sender_event_t event{};
    for (int i = 0; i < 2000; ++i) {
        while (ast_sender_next_event(sender.get(), &event))
            if (event.kind == kind) return event;
        std::this_thread::sleep_for(milliseconds(10));
    }
    ADD_FAILURE() << "no event " << kind;
    return event;
}

TEST(Sender, MakesAConnectionAgain) {
    Server server;
    const Sender sender = open_sender(server.url());
    server.take();
    EXPECT_TRUE(send(sender, "one"));
    EXPECT_TRUE(send(sender, std::string(100'000, '2')));
    EXPECT_EQ(server.read(100'003), "one" + std::string(100'000, '2'));
    ast_sender_event_t none;
    EXPECT_FALSE(ast_sender_next_event(sender.get(), &none)) << "the first connection is no news";
    server.close();
    const ast_sender_event_t gone = wait_for(sender, AST_SENDER_GONE);
    EXPECT_EQ(gone.endpoint.port, server.port());
    EXPECT_EQ(gone.failure.code, AST_RECORDING_ERROR_CONNECTION);
    EXPECT_FALSE(send(sender, kBlock + kBlock, kNoon_ns)) << "before the first pause is over";
    const ast_sender_event_t again = wait_for(sender, AST_SENDER_CONNECTED);
    EXPECT_EQ(again.lost_blocks, 2U);
    EXPECT_EQ(again.lost_octets, 2 * kBlock.size());
    server.take();
    EXPECT_TRUE(send(sender, "again"));
    EXPECT_EQ(server.read(5), "again");
    EXPECT_EQ(statistics_of(sender).failed, 1U);
    EXPECT_EQ(statistics_of(sender).failure.code, AST_RECORDING_ERROR_CONNECTION);
}

// 48 MB, far more than is kept for one that reads nothing; each that it gets is whole.
TEST(Sender, ServesClientsEachAtItsPace) {
    const Sender sender(ast_sender_listen("tcp://127.0.0.1:0", nullptr, nullptr));
    ASSERT_NE(sender, nullptr);
    const uint16_t port = wait_for(sender, AST_SENDER_LISTENING).endpoint.port;
    std::optional<Client> reading(port), stuck(std::in_place, port, true);
    wait_for(sender, AST_SENDER_CONNECTED);
    wait_for(sender, AST_SENDER_CONNECTED);
    constexpr size_t kDatagrams = 800;
    const std::string datagram = "\x30\xEA\x60" + std::string(59'997, 'x');
    for (size_t i = 0; i < kDatagrams; ++i) {
        send(sender, datagram);
        EXPECT_TRUE(reading->read(datagram.size()) == datagram) << i;
    }
    EXPECT_EQ(wait_for(sender, AST_SENDER_SLOW).endpoint.port, stuck->port());
    EXPECT_GT(statistics_of(sender).failed, kDatagrams / 2);
    stuck.reset();
    send(sender, datagram);
    const ast_sender_event_t gone = wait_for(sender, AST_SENDER_GONE);
    EXPECT_GT(gone.lost_blocks, kDatagrams / 2);
    EXPECT_EQ(gone.lost_octets, gone.lost_blocks * datagram.size());
    ast_sender_event_t none;
    EXPECT_FALSE(ast_sender_next_event(sender.get(), &none));
    EXPECT_EQ(none.kind, 0U);
}

// What waits for a server is sent before the end.
TEST(Sender, ClosesBehindWhatWaits) {
    Server server;
    std::optional<Sender> sender(open_sender(server.url()));
    server.take();
    const std::string datagram(4'000'000, 'x');
    EXPECT_TRUE(send(*sender, datagram, kNoon_ns));
    std::thread other([&] { EXPECT_TRUE(server.read(datagram.size()) == datagram); });
    sender.reset();
    other.join();
}

TEST(Sender, IsInterruptedWhileAServerDoesNotRead) {
    const Server server;
    const Sender sender = open_sender(server.url());
    std::thread other([&] {
        std::this_thread::sleep_for(milliseconds(50));
        ast_sender_interrupt(sender.get());
    });
    while (send(sender, std::string(1'000'000, 'x'))) continue;
    other.join();
    EXPECT_FALSE(send(sender, "at once"));
}

TEST(Sender, IsInterruptedWhileItWaits) {
    Receiver receiver;
    const Sender sender = open_sender(receiver.url());
    EXPECT_TRUE(send(sender, "first", 0));
    std::thread other([&] {
        std::this_thread::sleep_for(milliseconds(50));
        ast_sender_interrupt(sender.get());
    });
    EXPECT_FALSE(send(sender, "in an hour", 3600 * 1000 * kMillisecond_ns));
    other.join();
    EXPECT_FALSE(send(sender, "at once"));
    EXPECT_EQ(statistics_of(sender).sent, 1U);
    EXPECT_EQ(statistics_of(sender).failed, 0U);
}

} // namespace

} // namespace ast_test
