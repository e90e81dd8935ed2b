// Several threads: the same output as one, in order, and a clean end when it is cut short.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <random>
#include <sys/stat.h>
#include <unistd.h>

#include "background.hpp"
#include "captures.hpp"
#include "command.hpp"

namespace {

// A sector crossing message of category 034.
const std::string kSector = hex("22 000B F0 190C 02 546080 40");

// Blocks in any order, long enough for many chunks: one that every profile reads; a plot and a track of category 001;
// reports of category 021 that fit several editions, only an early one, and only a late one, so that it matters what
// came before; radar video, whose cells mean what the items before them say; and blocks that are damaged.
std::vector<std::string> mixed_blocks(size_t count) {
    const std::string kinds[] = {
        kSector,
        hex("30 000B C8 190C 546080 0A40"),
        hex("01 000C F0 190C 00 40000000 05"),
        hex("01 000D F0 190C 80 0123 40000000"),
        hex("15 0007 C0 190C 00"),
        hex("15 0008 C0 190C 0000"),
        hex("F0 0024 E7C0 1914 02 00000001 0000 0100 0000000A 00001000 0004 0004 000004 01 01020304"),
        hex("F0 0024 E7C0 1914 02 00000001 0000 0100 00000014 00001000 0004 0004 000004 01 01020304"),
        hex("F0 000D C140 1914 02 01 01020304"),
        hex("15 000E 8101010118 1914 1234 1200"),
        hex("30 0007 C0 190C 54"),
        hex("3E 0007 C0 190C 00"),
    };
    std::mt19937 random(7);
    std::vector<std::string> blocks;
    for (size_t i = 0; i < count; ++i) {
        // Damage is rare, as it is in life.
        const size_t kind = random() % 64 == 0 ? random() % std::size(kinds) : random() % 9;
        blocks.push_back(kinds[kind]);
        blocks.back().back() = static_cast<char>(random() % 256 & ~1U);
    }
    return blocks;
}

std::string joined(const std::vector<std::string> &pieces) {
    std::string whole;
    for (const std::string &piece : pieces) whole += piece;
    return whole;
}

// Every so many lines of JSON one that takes several, one that breaks off, and one that is longer than what is read at
// a time.
std::string marred(const std::string &lines) {
    std::string all;
    uint64_t count = 0;
    for (size_t begin = 0, end = 0; begin < lines.size(); begin = end, ++count) {
        end = lines.find('\n', begin) + 1;
        std::string line = lines.substr(begin, end - begin);
        if (count % 101 == 7) line.insert(line.find(',') + 1, "\n  ");
        if (count % 103 == 9) line.erase(line.size() / 2, line.size() / 4);
        if (count == 500) line.insert(1, 400'000, ' ');
        all += line;
    }
    return all;
}

TEST(Jobs, ChangeNothing) {
    const std::vector<std::string> blocks = mixed_blocks(12000);
    std::vector<std::string> frames;
    for (size_t i = 0; i < blocks.size(); i += 2)
        frames.push_back(ethernet(ipv4(udp(blocks[i] + blocks[i + 1]), 0, i % 1000 == 0, i)));
    const std::string capture = pcap(1, frames);
    Command command;
    command.write("raw", joined(blocks));
    command.write("broken", joined(blocks) + hex("22 0002") + kSector);
    command.write("capture", capture);
    command.write("cut", capture.substr(0, capture.size() - 5));
    command.write("lines", marred(command.run("--json raw").out));
    for (const char *const mode : {"", "--list --color always", "--stats", "--detail --category 1-33"})
        for (const char *const files : {"broken", "cut", "raw capture", "lines"}) {
            SCOPED_TRACE(std::string(mode) + ' ' + files);
            const Result one = command.run(std::string("--jobs 1 ") + mode + ' ' + files);
            const Result three = command.run(std::string("--jobs 3 ") + mode + ' ' + files);
            EXPECT_EQ(one.status, 1);
            EXPECT_EQ(one.status, three.status);
            EXPECT_TRUE(one.out == three.out);
            EXPECT_TRUE(one.err == three.err);
        }
    command.run("--jobs 1 --html one raw");
    command.run("--jobs 3 --html three raw");
    EXPECT_TRUE(read_file(command.directory() + "/one") == read_file(command.directory() + "/three"));
}

// Blocks are counted without taking them apart, unless there is a limit that may cut one.
TEST(Jobs, CountTheSameByTheBlockAndByTheItem) {
    Command command;
    command.write("a", joined(mixed_blocks(3000)) + hex("22 0002") + kSector);
    const Result counted = command.run("--stats a");
    const Result split = command.run("--stats --count 1000000 a");
    EXPECT_NE(counted.out.find("I001/020"), std::string::npos) << counted.out;
    EXPECT_EQ(counted.out, split.out);
    EXPECT_EQ(counted.err, split.err);
    EXPECT_EQ(counted.status, split.status);
}

// On a terminal of 72 columns a position leaves room for a track number alone; a callsign, a height and a code, which
// come in the next chunk before that, would leave none.
TEST(Jobs, LoseNoValueOfAListOnATerminal) {
    constexpr size_t kChunkOctets = size_t{64} * 1024;
    const auto sectors_up_to = [](std::string &file, size_t octets) {
        while (file.size() < octets) file += kSector;
    };
    std::string file;
    sectors_up_to(file, kChunkOctets + kChunkOctets / 2);
    file += hex("30 000D D0 190C 546080 40001000");
    sectors_up_to(file, 2 * kChunkOctets + kChunkOctets / 8);
    file += hex("30 0010 C140 190C 546080 10C234042820  30 000B C4 190C 546080 0578");
    file += hex("30 000B C8 190C 546080 0A40  30 000C C110 190C 546080 01A4");
    Command command;
    command.write("a", file);
    const auto shown = [&](const std::string &jobs) {
        const std::string list = "stty cols 72; " ASTDUMP " --list --color never --jobs " + jobs + " a";
        return command.run("--quiet /dev/null; script -qec '" + list + "' /dev/null").out;
    };
    const std::string one = shown("1");
    EXPECT_NE(one.find("Track     420"), std::string::npos)
        << one.substr(one.size() - std::min<size_t>(one.size(), 400));
    EXPECT_TRUE(one == shown("3"));
}

TEST(Jobs, EndWhenNobodyReads) {
    Command command;
    command.write("raw", joined(mixed_blocks(12000)));
    for (const char *const mode : {"", "--list"}) {
        const Result gone = command.run("--jobs 3 --category 34 " + std::string(mode) + " raw | head -n 1");
        EXPECT_EQ(gone.out.find('\n'), gone.out.size() - 1);
        EXPECT_EQ(gone.err, "");
        const Result full = command.run("--jobs 3 --category 34 " + std::string(mode) + " raw > /dev/full");
        EXPECT_EQ(full.status, 2);
        EXPECT_EQ(full.err, "astdump: standard output cannot be written\n");
    }
}

// What is written to a file does not end with whoever reads the rest.
TEST(Jobs, WriteFilesWhereNobodyReads) {
    Command command;
    command.write("raw", joined(mixed_blocks(12000)));
    command.run("--html whole --write whole.ast raw");
    command.run("--list --html page --write blocks.ast raw | head -n 1");
    EXPECT_TRUE(read_file(command.directory() + "/page") == read_file(command.directory() + "/whole"));
    EXPECT_TRUE(read_file(command.directory() + "/blocks.ast") == read_file(command.directory() + "/whole.ast"));
}

// What has come is shown, and the page is closed, before the signal takes its course.
TEST(Jobs, EndOnASignal) {
    for (const char *const jobs : {"1", "3"}) {
        SCOPED_TRACE(jobs);
        Command command;
        const std::string fifo = command.directory() + "/fifo";
        ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
        const int pipe = open(fifo.c_str(), O_RDWR | O_CLOEXEC);
        Background tool(command, std::string("--jobs ") + jobs + " --list --html page - < fifo");
        for (int i = 0; i < 2; ++i) EXPECT_EQ(write(pipe, kSector.data(), kSector.size()), std::ssize(kSector));
        EXPECT_NE(tool.wait_for_output("034").find("034"), std::string::npos);
        const Result result = tool.end();
        close(pipe);
        EXPECT_EQ(result.status, -1); // by the signal
        EXPECT_EQ(result.err.find("astdump: page: a page of "), 0U) << result.err;
        EXPECT_NE(read_file(command.directory() + "/page").find("</html>"), std::string::npos);
    }
}

// Counts and reports are not lost with the rest of the input.
TEST(Jobs, TellWhatWasReadUpToASignal) {
    for (const int signal : {SIGINT, SIGTERM}) {
        Command command;
        const std::string fifo = command.directory() + "/fifo";
        ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
        const int pipe = open(fifo.c_str(), O_RDWR | O_CLOEXEC);
        Background tool(command, "--stats --write new.ast - < fifo");
        const std::string blocks = hex("30 0007 C0 190C 54") + kSector + hex("30 0007 C0 190C 54") + kSector;
        EXPECT_EQ(write(pipe, blocks.data(), blocks.size()), std::ssize(blocks));
        tool.wait_for_report("damaged in record 1");
        const Result result = tool.end(signal);
        close(pipe);
        EXPECT_EQ(result.status, -1);
        EXPECT_NE(result.out.find("\nall "), std::string::npos) << result.out;
        EXPECT_NE(result.err.find("astdump: lost: "), std::string::npos) << result.err;
        EXPECT_EQ(blocks.find(read_file(command.directory() + "/new.ast")), 0U);
    }
}

TEST(Jobs, RefuseNone) { EXPECT_EQ(Command().run("--jobs 0 x").status, 2); }

} // namespace
