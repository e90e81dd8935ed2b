// Runs a fuzz target without a fuzzing engine: over the files and directories given, or over each file of the corpus,
// each of its beginnings, and each of its octets with one bit flipped at a time; in a long file, with one of its bits.

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "entry.hpp"

namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<uint8_t>;

std::vector<fs::path> files_in(const fs::path &path) {
    if (!fs::is_directory(path)) return {path};
    std::vector<fs::path> files;
    for (const auto &entry : fs::directory_iterator(path))
        if (entry.is_regular_file()) files.push_back(entry.path());
    return files;
}

Bytes read(const fs::path &path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        std::fprintf(stderr, "cannot read %s\n", path.string().c_str());
        std::exit(2);
    }
    return {std::istreambuf_iterator<char>(file), {}};
}

// A copy, so that the storage ends where the input does.
void run(Bytes input) {
    input.shrink_to_fit();
    LLVMFuzzerTestOneInput(input.data(), input.size());
}

void run_damaged(const Bytes &input) {
    for (size_t length = 0; length < input.size(); ++length)
        run(Bytes(input.begin(), input.begin() + static_cast<std::ptrdiff_t>(length)));
    constexpr size_t kLong = 64;
    const size_t step = input.size() <= kLong ? 1 : 9; // of bits
    Bytes flipped = input;
    for (size_t bit = 0; bit < 8 * input.size(); bit += step) {
        uint8_t &octet = flipped[bit / 8];
        octet = static_cast<uint8_t>(octet ^ 1U << bit % 8);
        run(flipped);
        octet = static_cast<uint8_t>(octet ^ 1U << bit % 8);
    }
}

} // namespace

int main(int argc, char **argv) {
    LLVMFuzzerInitialize(&argc, &argv);
    const bool is_sweep = argc == 1;
    std::vector<fs::path> paths(argv + 1, argv + argc);
    if (is_sweep) paths = {AST_FUZZ_CORPUS};
    size_t count = 0;
    for (const fs::path &path : paths) {
        for (const fs::path &file : files_in(path)) {
            const Bytes input = read(file);
            run(input);
            if (is_sweep) run_damaged(input);
            ++count;
        }
    }
    std::printf("%zu inputs\n", count);
    return count > 0 ? 0 : 1;
}
