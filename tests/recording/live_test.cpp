// What comes as it is sent, and waiting that is ended.

#include <arpa/inet.h>
#include <atomic>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

#include "recording/recorded.hpp"

namespace ast_test {

namespace {

constexpr uint32_t kMoment_ms = 50;
constexpr uint32_t kLong_ms = 20'000;

// A socket on a port of the loopback interface that the system chooses.
class Socket {
public:
    explicit Socket(int type) : descriptor_(socket(AF_INET, type, 0)) {
        address_.sin_family = AF_INET;
        address_.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address_;
        EXPECT_EQ(bind(descriptor_, reinterpret_cast<sockaddr *>(&address_), size), 0);
        EXPECT_EQ(getsockname(descriptor_, reinterpret_cast<sockaddr *>(&address_), &size), 0);
    }
    ~Socket() { close(); }
    Socket(const Socket &) = delete;
    Socket &operator=(const Socket &) = delete;

    int descriptor() const { return descriptor_; }
    std::string address() const { return "127.0.0.1:" + std::to_string(ntohs(address_.sin_port)); }
    void close() {
        if (descriptor_ >= 0) ::close(descriptor_);
        descriptor_ = -1;
    }
    void send_to(const Socket &other, const std::vector<uint8_t> &octets) const {
        EXPECT_EQ(sendto(descriptor_, octets.data(), octets.size(), 0,
                         reinterpret_cast<const sockaddr *>(&other.address_), sizeof other.address_),
                  static_cast<ssize_t>(octets.size()));
    }

private:
    int descriptor_;
    sockaddr_in address_{};
};

TEST(Live, DatagramsComeWithTimeAndRouteOrNothingComesInTime) {
    Socket receiver(SOCK_DGRAM);
    const Socket sender(SOCK_DGRAM);
    receiver.close(); // its port is free now
    Reports reports;
    const auto recording = open({"udp://" + receiver.address()}, reports.with());
    ASSERT_EQ(reports.told.size(), 1U);
    EXPECT_EQ(reports.told[0].text, "listening on " + receiver.address());

    ast_recording_block_t block;
    EXPECT_FALSE(ast_recording_next_within(recording.get(), &block, kMoment_ms));
    EXPECT_EQ(state_of(recording.get()).phase, AST_RECORDING_QUIET);
    std::vector<uint8_t> two = north_marker(0x54);
    const std::vector<uint8_t> second = north_marker(0x55);
    two.insert(two.end(), second.begin(), second.end());
    sender.send_to(receiver, two);
    for (uint64_t number = 1; number <= 2; ++number) {
        ASSERT_TRUE(ast_recording_next_within(recording.get(), &block, kLong_ms));
        const ReadBlock read = copy_of(block);
        EXPECT_EQ(read.octets, number == 1 ? north_marker(0x54) : second);
        EXPECT_EQ(read.number, number);
        EXPECT_EQ(read.packet, 1U);
        EXPECT_EQ(read.route, sender.address() + " > " + receiver.address());
        EXPECT_EQ(read.time.substr(0, 2), "20");
        EXPECT_EQ(state_of(recording.get()).phase, AST_RECORDING_READING);
    }
    EXPECT_FALSE(ast_recording_next_within(recording.get(), &block, 0));
}

TEST(Live, WhatIsNotAskedForDoesNotProlongTheWait) {
    Socket receiver(SOCK_DGRAM);
    const Socket sender(SOCK_DGRAM);
    receiver.close();
    const auto recording = open({"udp://" + receiver.address()}, {.categories = "48"});
    std::atomic<bool> is_over = false;
    std::thread other([&] {
        for (int i = 0; i < 2000 && !is_over; ++i) {
            sender.send_to(receiver, north_marker());
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
    });
    ast_recording_block_t block;
    EXPECT_FALSE(ast_recording_next_within(recording.get(), &block, kMoment_ms));
    EXPECT_EQ(state_of(recording.get()).phase, AST_RECORDING_QUIET);
    is_over = true;
    other.join();
    EXPECT_GT(state_of(recording.get()).octets_read, 0U);
}

TEST(Live, AConnectionEndsWhenTheOtherSideClosesIt) {
    Socket server(SOCK_STREAM);
    ASSERT_EQ(listen(server.descriptor(), 1), 0);
    Reports reports;
    const auto recording = open({"tcp://" + server.address()}, reports.with());
    const int peer = accept(server.descriptor(), nullptr, nullptr);
    const std::vector<uint8_t> octets = north_marker();
    ASSERT_EQ(write(peer, octets.data(), octets.size()), static_cast<ssize_t>(octets.size()));
    ast_recording_block_t block;
    ASSERT_TRUE(ast_recording_next_within(recording.get(), &block, kLong_ms));
    EXPECT_EQ(copy_of(block).octets, octets);
    close(peer);
    EXPECT_FALSE(ast_recording_next(recording.get(), &block));
    EXPECT_EQ(state_of(recording.get()).phase, AST_RECORDING_ENDED);
    ASSERT_EQ(reports.told.size(), 2U);
    EXPECT_EQ(reports.told[0].text, "connected to " + server.address());
    EXPECT_EQ(reports.told[1].text, "the other side has closed the connection");
}

TEST(Live, AFileThatGrowsIsFollowed) {
    const TemporaryFile file(north_marker(0x54));
    const auto recording = open({file.path()}, {.follow = true});
    ast_recording_block_t block;
    ASSERT_TRUE(ast_recording_next_within(recording.get(), &block, kLong_ms));
    EXPECT_FALSE(ast_recording_next_within(recording.get(), &block, kMoment_ms));
    file.append(north_marker(0x55));
    ASSERT_TRUE(ast_recording_next_within(recording.get(), &block, kLong_ms));
    EXPECT_EQ(block.offset, 11U);
}

void make_pipe_of(const TemporaryFile &file) {
    EXPECT_EQ(unlink(file.path().c_str()), 0);
    EXPECT_EQ(mkfifo(file.path().c_str(), 0600), 0);
}

TEST(Live, APipeIsReadWhenSomebodyWritesToIt) {
    const TemporaryFile file;
    make_pipe_of(file);
    const auto recording = open({file.path()});
    ast_recording_block_t block;
    EXPECT_FALSE(ast_recording_next_within(recording.get(), &block, kMoment_ms));
    const std::vector<uint8_t> octets = north_marker();
    const int writer = ::open(file.path().c_str(), O_WRONLY | O_CLOEXEC);
    ASSERT_GE(writer, 0);
    ASSERT_EQ(write(writer, octets.data(), octets.size()), static_cast<ssize_t>(octets.size()));
    ASSERT_TRUE(ast_recording_next_within(recording.get(), &block, kLong_ms));
    EXPECT_EQ(copy_of(block).octets, octets);
    close(writer);
    EXPECT_FALSE(ast_recording_next(recording.get(), &block));
    EXPECT_EQ(state_of(recording.get()).phase, AST_RECORDING_ENDED);
}

// ---- Interruption ----

std::thread interrupt_in_a_moment(ast_recording_t *recording) {
    return std::thread([=] {
        std::this_thread::sleep_for(std::chrono::milliseconds(kMoment_ms));
        ast_recording_interrupt(recording);
    });
}

TEST(Interruption, EndsAWaitFromAnotherThread) {
    Socket receiver(SOCK_DGRAM);
    receiver.close();
    const auto recording = open({"udp://" + receiver.address()});
    std::thread other = interrupt_in_a_moment(recording.get());
    ast_recording_block_t block;
    EXPECT_FALSE(ast_recording_next(recording.get(), &block));
    other.join();
    EXPECT_EQ(state_of(recording.get()).phase, AST_RECORDING_INTERRUPTED);
    EXPECT_FALSE(ast_recording_next(recording.get(), &block));
}

ast_recording_t *to_be_interrupted = nullptr;

TEST(Interruption, EndsAWaitFromASignalHandler) {
    const TemporaryFile file(north_marker());
    const auto recording = open({file.path()}, {.follow = true});
    to_be_interrupted = recording.get();
    std::signal(SIGALRM, [](int) { ast_recording_interrupt(to_be_interrupted); });
    ast_recording_block_t block;
    EXPECT_TRUE(ast_recording_next(recording.get(), &block));
    ualarm(1000 * kMoment_ms, 0);
    EXPECT_FALSE(ast_recording_next(recording.get(), &block));
    EXPECT_EQ(state_of(recording.get()).phase, AST_RECORDING_INTERRUPTED);
    std::signal(SIGALRM, SIG_DFL);
}

TEST(Interruption, EndsAWaitForAPipeThatNobodyWritesTo) {
    const TemporaryFile file;
    make_pipe_of(file);
    const auto recording = open({file.path()});
    ast_recording_block_t block;
    EXPECT_FALSE(ast_recording_next_within(recording.get(), &block, kMoment_ms));
    EXPECT_EQ(state_of(recording.get()).phase, AST_RECORDING_QUIET);
    ast_recording_interrupt(recording.get());
    EXPECT_FALSE(ast_recording_next(recording.get(), &block));
    EXPECT_EQ(state_of(recording.get()).phase, AST_RECORDING_INTERRUPTED);
}

// To an address that never answers, a connection takes minutes to fail.
TEST(Interruption, EndsAnAttemptToConnect) {
    Socket server(SOCK_STREAM); // whose queue is filled, so that the next attempt gets no answer
    ASSERT_EQ(listen(server.descriptor(), 0), 0);
    std::vector<Recording> queue;
    for (int i = 0; i < 2; ++i) queue.push_back(open({"tcp://" + server.address()}));
    const auto recording = open({"tcp://" + server.address()});
    ast_recording_block_t block;
    EXPECT_FALSE(ast_recording_next_within(recording.get(), &block, kMoment_ms));
    ast_recording_interrupt(recording.get());
    EXPECT_FALSE(ast_recording_next(recording.get(), &block));
    EXPECT_EQ(state_of(recording.get()).phase, AST_RECORDING_INTERRUPTED);
}

TEST(Interruption, EndsReadingWhereverItIs) {
    for (const uint32_t threads : {0U, 2U}) {
        const auto recording = open({sample("radar.pcap")}, {.threads = threads});
        ast_recording_block_t block;
        ASSERT_TRUE(ast_recording_next(recording.get(), &block));
        ast_recording_interrupt(recording.get());
        EXPECT_FALSE(ast_recording_next(recording.get(), &block));
        EXPECT_EQ(block.octets, nullptr);
        EXPECT_EQ(state_of(recording.get()).phase, AST_RECORDING_INTERRUPTED);
    }
}

TEST(Interruption, MayComeFromAReport) {
    std::vector<uint8_t> octets = north_marker();
    octets.insert(octets.begin(), {0x22, 0x00, 0x02});
    const std::vector<uint8_t> more = north_marker();
    octets.insert(octets.end(), more.begin(), more.end());
    ast_recording_t *opened = nullptr;
    ast_recording_options_t options{};
    options.context = &opened;
    options.report = [](void *context, const ast_recording_report_t *) {
        ast_recording_interrupt(*static_cast<ast_recording_t **>(context));
    };
    const auto recording = open(octets, options);
    opened = recording.get();
    ast_recording_block_t block;
    EXPECT_FALSE(ast_recording_next(opened, &block));
    EXPECT_EQ(state_of(opened).phase, AST_RECORDING_INTERRUPTED);
    EXPECT_EQ(state_of(opened).blocks, 0U);
}

// At each of these octets, a block of most of those at hand might begin.
TEST(Interruption, EndsASearchForBlocks) {
    const std::vector<uint8_t> octets(2'000'000, 0xF7);
    for (const char *const framing : {"raw", "gps"}) {
        const auto recording = open(octets, {.framing = framing});
        std::thread other = interrupt_in_a_moment(recording.get());
        const auto begin = std::chrono::steady_clock::now();
        ast_recording_block_t block;
        while (ast_recording_next(recording.get(), &block)) continue;
        EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(kLong_ms / 4)) << framing;
        other.join();
    }
}

TEST(Interruption, IsNotNeededToClose) {
    Socket receiver(SOCK_DGRAM);
    receiver.close();
    open({"udp://" + receiver.address()});
    const auto recording = open({sample("radar.pcap")}, {.threads = 3});
    ast_recording_block_t block;
    ASSERT_TRUE(ast_recording_next(recording.get(), &block));
}

} // namespace

} // namespace ast_test
