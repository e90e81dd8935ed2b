#include "source/look_through.hpp"

#include <algorithm>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

#include "base/interruption.hpp"
#include "framing/block_header.hpp"
#include "source/input.hpp"

namespace ast::recording {

namespace {

// How much of a file is looked through: some blocks of each source, and not many more for those that send rarely.
constexpr uint64_t kBlocksOfSource = 10'000;
constexpr uint64_t kMostBlocks = 100'000;
constexpr size_t kChunkOctets = size_t{256} * 1024;

// A file on standard input is read again from where it stood.
class Place {
public:
    explicit Place(const std::string &path)
        : descriptor_(path == "-" ? STDIN_FILENO : -1), place_(::lseek(descriptor_, 0, SEEK_CUR)) {}
    ~Place() {
        if (descriptor_ >= 0) ::lseek(descriptor_, place_, SEEK_SET);
    }
    Place(const Place &) = delete;
    Place &operator=(const Place &) = delete;

private:
    int descriptor_;
    off_t place_;
};

bool can_be_read_twice(const Origin &origin) {
    if (origin.octets) return true;
    const std::string &path = origin.path;
    struct stat status {};
    const int result = path == "-" ? ::fstat(STDIN_FILENO, &status) : ::stat(path.c_str(), &status);
    return result == 0 && S_ISREG(status.st_mode);
}

void learn_from(Input &input, EditionMemory &editions, const Interruption *interruption) {
    Chunk chunk(kChunkOctets);
    uint64_t blocks = 0;
    const auto is_cut_off = [&] { return interruption && interruption->ended(); };
    while (blocks < kMostBlocks && !is_cut_off() && input.fill(chunk)) {
        for (const Datagram &datagram : chunk.datagrams())
            if (datagram.may_hold_blocks() && !is_cut_off())
                each_block(datagram.octets, [&](Octets block) { editions.learn(block); });
        blocks = chunk.end_number;
        if (blocks > kBlocksOfSource && editions.have_seen(kBlocksOfSource)) break;
    }
}

} // namespace

EditionMemory look_through(std::span<const Origin> origins, const ReadOptions &options, Interruption *interruption) {
    EditionMemory editions(options.profile);
    if (options.follow || !std::ranges::all_of(origins, can_be_read_twice)) return editions;
    for (const Origin &origin : origins) {
        const Place place(origin.path);
        try {
            Input input(origin, {.framing = options.framing}, interruption, {});
            learn_from(input, editions, interruption);
        } catch (const std::runtime_error &) {
            return editions; // which whoever reads it will find, too
        }
    }
    editions.freeze();
    return editions;
}

} // namespace ast::recording
