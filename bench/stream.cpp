#include "stream.hpp"

#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <random>
#include <span>

#include "records.hpp"

namespace bench {

namespace {

using Block = std::span<const uint8_t>;

std::vector<uint8_t> octets_of(const std::string &file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

// The blocks of each category of a recording.
void add_blocks(std::map<uint8_t, std::vector<Block>> &blocks, const std::vector<uint8_t> &recording) {
    const auto decoded = std::make_unique<ast_datablock_t>(); // large
    for (size_t offset = 0; offset + kHeaderOctets <= recording.size();) {
        const Block rest = Block(recording).subspan(offset);
        const size_t length = block_length(rest.data());
        if (length < kHeaderOctets || length > rest.size()) return;
        ast_datablock_decode_into(decoded.get(), rest.data(), length, AST_UAP_STANDARD);
        if (decoded->valid) blocks[rest[0]].push_back(rest.first(length));
        offset += length;
    }
}

} // namespace

std::vector<uint8_t> shuffled_stream(const std::vector<std::string> &files, size_t octets) {
    std::vector<std::vector<uint8_t>> recordings;
    for (const std::string &file : files) recordings.push_back(octets_of(file));
    std::map<uint8_t, std::vector<Block>> blocks;
    for (const auto &recording : recordings) add_blocks(blocks, recording);

    std::vector<uint8_t> stream;
    std::mt19937 random;
    while (!blocks.empty() && stream.size() < octets) {
        const auto &of_category = std::next(blocks.begin(), static_cast<ptrdiff_t>(random() % blocks.size()))->second;
        const Block block = of_category[random() % of_category.size()];
        stream.insert(stream.end(), block.begin(), block.end());
    }
    return stream;
}

} // namespace bench
