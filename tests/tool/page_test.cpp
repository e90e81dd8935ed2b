// The page as a file: the viewer, with a recording in it. What a browser makes of it is looked at in viewer/test.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <sstream>
#include <zlib.h>

#include "command.hpp"

namespace {

const std::string kSample = SAMPLES "/radar.ast";

std::string between(const std::string &text, const std::string &begin, const std::string &end) {
    const size_t from = text.find(begin);
    EXPECT_NE(from, std::string::npos) << begin;
    if (from == std::string::npos) return {};
    return text.substr(from + begin.size(), text.find(end, from + begin.size()) - from - begin.size());
}

// Four octets for five characters from '#' to 'x', without '<'.
std::string octets_of(std::string digits) {
    const size_t padding = (5 - digits.size() % 5) % 5;
    digits.append(padding, 'x');
    std::string octets;
    for (size_t i = 0; i < digits.size(); i += 5) {
        uint64_t group = 0;
        for (size_t k = i; k < i + 5; ++k)
            group = group * 85 + static_cast<uint64_t>(digits[k] - '#' - (digits[k] > '<'));
        for (const unsigned shift : {24U, 16U, 8U, 0U}) octets += static_cast<char>(group >> shift & 0xFF);
    }
    return octets.substr(0, octets.size() - padding);
}

// A stream of deflate, whole and with nothing behind it.
std::string inflated(const std::string &packed) {
    std::string octets(1 << 22, '\0');
    z_stream state{};
    inflateInit2(&state, -15);
    state.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(packed.data()));
    state.avail_in = static_cast<uInt>(packed.size());
    state.next_out = reinterpret_cast<Bytef *>(octets.data());
    state.avail_out = static_cast<uInt>(octets.size());
    EXPECT_EQ(inflate(&state, Z_FINISH), Z_STREAM_END);
    EXPECT_EQ(state.avail_in, 0U);
    octets.resize(octets.size() - state.avail_out);
    inflateEnd(&state);
    return octets;
}

template <typename Number>
Number take(const std::string &octets, size_t &at) {
    Number number{};
    std::memcpy(&number, octets.data() + at, sizeof number);
    at += sizeof number;
    return number;
}

// What a page carries, as text: "file" for each, and a line for each datagram.
std::string carried(const std::string &page) {
    const std::string octets = inflated(octets_of(between(page, "id=\"recording\">", "</script>")));
    std::string text;
    for (size_t at = 0; at < octets.size();) {
        const std::string name = octets.substr(at, 4);
        at += 4;
        const auto datagrams = take<uint32_t>(octets, at);
        const auto routes = take<uint32_t>(octets, at);
        EXPECT_EQ(take<uint32_t>(octets, at), 0U);
        if (name == "FILE") {
            text += "file\n";
            continue;
        }
        EXPECT_EQ(name, "PART");
        size_t route_at = at;
        size_t time_at = route_at + size_t{40} * routes;
        size_t place_at = time_at + size_t{8} * datagrams;
        size_t size_at = place_at + size_t{2} * datagrams;
        at = size_at + size_t{4} * datagrams;
        uint64_t time = 0;
        for (uint32_t i = 0; i < datagrams; ++i) {
            time += take<uint64_t>(octets, time_at);
            size_t route = route_at + size_t{40} * take<uint16_t>(octets, place_at);
            const auto version = take<uint8_t>(octets, route);
            const auto input = take<uint8_t>(octets, route);
            const auto from = take<uint16_t>(octets, route);
            const auto to = take<uint16_t>(octets, route);
            const auto size = take<uint32_t>(octets, size_at);
            text += std::to_string(static_cast<int64_t>(time)) + " IPv" + std::to_string(version) + ' ' +
                    std::to_string(from) + '>' + std::to_string(to) + " input " + std::to_string(input) + ' ' +
                    std::to_string(size) + " octets from " + std::to_string(static_cast<uint8_t>(octets[at])) + '\n';
            at += size;
        }
    }
    return text;
}

std::string carried_by(const Command &command, const std::string &arguments) {
    const Result result = command.run("--html page " + arguments);
    EXPECT_EQ(result.err.find("astdump: page: a page of "), 0U) << result.err;
    return carried(read_file(command.directory() + "/page"));
}

TEST(Page, CarriesTheDatagramsThatAreChosen) {
    Command command;
    command.run("--write a.pcap --count 2 --category 48 " SAMPLES "/radar.pcap");
    EXPECT_EQ(carried_by(command, "a.pcap"), "file\n"
                                             "1717243200387781000 IPv4 8600>8600 input 255 41 octets from 48\n"
                                             "1717243200632471000 IPv4 8600>8600 input 255 14 octets from 48\n");
    // Blocks of a file have neither times nor routes. Of two files, each begins with its name.
    command.write("b.ast", hex("220007C0190C01 220007C0190C02"));
    const std::string block = "-9223372036854775808 IPv0 0>0 input 255 7 octets from 34\n";
    EXPECT_EQ(carried_by(command, "b.ast b.ast"), "file\n" + block + block + "file\n" + block + block);
}

// Chunks are parts of their own.
TEST(Page, CarriesAllOfALongRecording) {
    Command command;
    std::string blocks;
    for (int i = 0; i < 60'000; ++i) blocks += hex("220007C0190C01");
    command.write("a.ast", blocks);
    std::istringstream lines(carried_by(command, "--jobs 3 a.ast"));
    size_t octets = 0;
    size_t parts = 0;
    for (std::string word; lines >> word;)
        if (word == "255" && lines >> word) {
            octets += std::stoul(word);
            ++parts;
        }
    EXPECT_EQ(octets, blocks.size());
    EXPECT_GT(parts, 1U);
}

TEST(Page, IsTheViewerWhereThereIsNothingToRead) {
    Command command;
    EXPECT_EQ(command.run("--html page").err, "astdump: page: the viewer, 196 octets\n");
    EXPECT_EQ(read_file(command.directory() + "/page"), read_file(VIEWER));
}

// Octets as characters, names of files: nothing of it may become markup, or end the element that it stands in.
TEST(Page, HoldsNoMarkupOfOthers) {
    Command command;
    const std::string name = "\"<script>&\\";
    command.write(name, read_file(kSample) + hex("FA 0006 800102  22 000B F0 190C 02 546080 40  0000"));
    EXPECT_EQ(command.run("--html page '" + name + "'").status, 1);
    const std::string about = between(read_file(command.directory() + "/page"), "id=\"about\">", "</script>");
    EXPECT_EQ(about.find('<'), std::string::npos);
    EXPECT_EQ(about.find(R"({"title":"\"\u003cscript>&\\","files":["\"\u003c)"), 0U) << about;
    EXPECT_NE(about.find(R"("lost":"2 octets skipped","not_supported":"1 block","not_asterix":"","report_count":2)"),
              std::string::npos)
        << about;
    EXPECT_NE(about.find(R"("kind":"damaged","text":"offset )"), std::string::npos) << about;
}

TEST(Page, KnowsWhereSourcesStand) {
    const Command command;
    command.run("--html page --site 25/12=43.57,16.41,780 " + kSample);
    EXPECT_NE(read_file(command.directory() + "/page")
                  .find(R"("sites":[{"sac":25,"sic":12,"latitude":43.57,"longitude":16.41,"height_m":780,)"
                        R"("standard_error_m":0,"known":"given"}]})"),
              std::string::npos);
}

TEST(Page, SaysWhenItCannotBeWritten) {
    for (const auto &[page, reason] :
         {std::pair("/nowhere/page", "No such file or directory"), std::pair("/dev/full", "No space left on device")}) {
        const Result result = Command().run("--html " + std::string(page) + " " + kSample);
        EXPECT_EQ(result.status, 2) << page;
        EXPECT_EQ(result.err, std::string("astdump: ") + page + ": " + reason + "\n");
    }
}

TEST(Page, IsNeverWrittenOverAnInput) {
    Command command;
    const std::string blocks = read_file(kSample);
    command.write("input", blocks);
    command.run("--quiet input; ln -s input soft; ln input hard");
    for (const std::string page : {"input", "soft", "hard"})
        for (const std::string file : {"input", "- < input"}) {
            const Result result = command.run("--html " + page + " " + file);
            EXPECT_EQ(result.status, 2);
            EXPECT_EQ(result.err, "astdump: " + page + ": is an input, and not overwritten\n");
            EXPECT_EQ(read_file(command.directory() + "/input"), blocks);
        }
}

TEST(Page, TakesThePlaceOfAnOldOneOnlyWhenItIsWhole) {
    Command command;
    command.write("old", "old");
    EXPECT_EQ(command.run("--quiet " + kSample + "; chmod 640 old; ln -s old page").status, 0);
    EXPECT_EQ(command.run("--html page " + kSample + " missing").status, 2);
    EXPECT_EQ(read_file(command.directory() + "/old"), "old");
    EXPECT_EQ(command.run("--html page " + kSample + " && stat -c '%A %F' old page && ls").out,
              "-rw-r----- regular file\nlrwxrwxrwx symbolic link\nold\npage\n");
    EXPECT_NE(read_file(command.directory() + "/old").find("</html>"), std::string::npos);
}

} // namespace
