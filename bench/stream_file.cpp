// Writes the stream that is measured to standard output, so that other programs can read it, or decodes a file of
// blocks back to back, each into the same block: what a tool that decodes it cannot be faster than.

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>

#include "ast.h"
#include "records.hpp"
#include "stream.hpp"

namespace {

int shuffle(size_t octets, const std::vector<std::string> &files) {
    const std::vector<uint8_t> stream = bench::shuffled_stream(files, octets);
    return std::fwrite(stream.data(), 1, stream.size(), stdout) == stream.size() ? EXIT_SUCCESS : EXIT_FAILURE;
}

int decode(const std::string &file) {
    static ast_datablock_t block;
    const auto size = static_cast<size_t>(std::filesystem::file_size(file));
    const auto stream = std::make_unique_for_overwrite<uint8_t[]>(size);
    std::ifstream(file, std::ios::binary).read(reinterpret_cast<char *>(stream.get()), static_cast<ptrdiff_t>(size));
    uint64_t records = 0;
    for (size_t offset = 0; offset + bench::kHeaderOctets <= size;) {
        ast_datablock_decode_into(&block, &stream[offset], size - offset, AST_UAP_STANDARD);
        records += block.record_count;
        offset += bench::block_length(&stream[offset]);
    }
    std::printf("%llu records\n", static_cast<unsigned long long>(records));
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char **argv) {
    const std::string command = argc > 2 ? argv[1] : "";
    ast_log_handler_reg(nullptr);
    if (command == "decode") return decode(argv[2]);
    if (command == "shuffle") return shuffle(std::strtoull(argv[2], nullptr, 10), {argv + 3, argv + argc});
    std::fputs("Usage: ast_stream_file shuffle OCTETS FILE... | decode FILE\n", stderr);
    return EXIT_FAILURE;
}
