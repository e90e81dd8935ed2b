// Recordings that begin anywhere, as rotated, split and rescued files do.

#include <algorithm>

#include "recording/recorded.hpp"

namespace ast_test {

namespace {

using Bytes = std::vector<uint8_t>;

void put(Bytes &to, const Bytes &octets) { to.insert(to.end(), octets.begin(), octets.end()); }

// The blocks of the weather sample, each wrapped.
template <typename Wrap>
Bytes wrapped(Wrap wrap) {
    const Bytes octets = contents(sample("weather.ast"));
    Bytes file;
    for (const ReadBlock &block : read_all(open(octets).get())) wrap(file, block.octets);
    return file;
}

Bytes raw() {
    return wrapped([](Bytes &file, const Bytes &block) { put(file, block); });
}

Bytes gps() {
    Bytes file(2200, 0xCD);
    put(file, wrapped([counter = uint8_t{0}](Bytes &frames, const Bytes &block) mutable {
            put(frames, block);
            put(frames, {0x38, 0x41, 0xB8, 0x01, 0x01, 0, 0, 0, ++counter, 0});
        }));
    return file;
}

Bytes final() {
    return wrapped([](Bytes &file, const Bytes &block) {
        const auto length = static_cast<uint16_t>(block.size() + 12);
        put(file, {static_cast<uint8_t>(length >> 8), static_cast<uint8_t>(length), 0, 1, 5, 0, 0, 100});
        put(file, block);
        put(file, {0xA5, 0xA5, 0xA5, 0xA5});
    });
}

std::vector<uint64_t> offsets_in(const Bytes &file, uint64_t added, std::string &framing) {
    const Recording recording = open(file);
    std::vector<uint64_t> offsets;
    for (const ReadBlock &block : read_all(recording.get())) offsets.push_back(block.offset + added);
    framing = state_of(recording.get()).framing;
    return offsets;
}

TEST(Cut, LosesAndInventsNothing) {
    constexpr size_t kStep = 41;
    const struct {
        Bytes file;
        uint64_t header; // octets of a frame before its block, without which there is none
    } cases[] = {{raw(), 0}, {gps(), 0}, {final(), 8}};
    for (const auto &[file, header] : cases) {
        std::string whole, cut;
        const std::vector<uint64_t> all = offsets_in(file, 0, whole);
        ASSERT_EQ(all.size(), 197U);
        for (size_t begin = 1; begin < file.size() * 9 / 10; begin += kStep) {
            const Bytes rest(file.begin() + static_cast<std::ptrdiff_t>(begin), file.end());
            const std::vector<uint64_t> found = offsets_in(rest, begin, cut);
            EXPECT_EQ(found, std::vector(std::ranges::lower_bound(all, begin + header), all.end()))
                << whole << " at " << begin;
            EXPECT_EQ(cut, whole) << begin;
        }
    }
}

TEST(Cut, IsOneReportOfWhatIsLeftOver) {
    const Bytes file = raw();
    const Bytes rest(file.begin() + 1, file.end());
    Reports reports;
    const std::vector<ReadBlock> blocks = read_all(open(rest, reports.with()).get());
    EXPECT_EQ(blocks.size(), 196U);
    ASSERT_EQ(reports.told.size(), 1U);
    EXPECT_EQ(reports.told[0].data.reason, AST_REASON_NO_BLOCKS);
    EXPECT_EQ(reports.told[0].data.offset, 0U);
    EXPECT_EQ(reports.told[0].data.octets, blocks[0].offset);
}

// The first frame breaks off: its block says that it is longer.
TEST(Cut, OfTheFirstFrameAlone) {
    Bytes file = gps();
    file.erase(file.begin() + 2205);
    std::string framing;
    EXPECT_EQ(offsets_in(file, 0, framing).size(), 196U);
    EXPECT_EQ(framing, "gps");
}

// The LEN of a category that nothing is known of counts in a row of blocks, not at the start of what may be none.
TEST(Cut, BelievesNoUnknownCategoryAtTheStart) {
    Bytes file = raw();
    file.insert(file.begin(), {0xFA, 0x00, 0x40, 0x80});
    std::string framing;
    EXPECT_EQ(offsets_in(file, 0, framing).front(), 4U);
    Bytes row = raw();
    const ReadBlock first = read_all(open(row).get())[0];
    row.insert(row.begin() + static_cast<std::ptrdiff_t>(first.octets.size()), {0xFA, 0x00, 0x05, 0x80, 0x00});
    EXPECT_EQ(offsets_in(row, 0, framing).size(), 198U);
}

// A damaged block in front of others of its category is one all the same.
TEST(Cut, KeepsADamagedFirstBlock) {
    Bytes file = raw();
    file[3] = 0x02; // FRN 7 alone, which category 008 has not in so few octets
    std::string framing;
    EXPECT_EQ(offsets_in(file, 0, framing).size(), 197U);
}

} // namespace

} // namespace ast_test
