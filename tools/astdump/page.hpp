// A self-contained HTML page: numbers by category, and all blocks, records and items with the library's views.
#pragma once

#include <array>
#include <cstdio>
#include <memory>
#include <string>

#include "counts.hpp"
#include "page_block.hpp"
#include "sink.hpp"

namespace astdump {

// Is written as the blocks come; the table of numbers, which is known last, is put on top by its style. What is inside
// a block is packed until it is opened, so that a browser holds the pages of long recordings.
class Page : public Sink {
public:
    // Throws std::runtime_error when the file cannot be written, as do the others.
    explicit Page(const std::string &path);

    void file(const std::string &name) override;
    void block(const DecodedBlock &decoded) override;
    void finish() override;

private:
    struct Close {
        void operator()(std::FILE *file) const { std::fclose(file); }
    };

    void write(const std::string &html);
    void totals();
    [[noreturn]] void fail() const;

    std::string path_;
    std::unique_ptr<std::FILE, Close> file_;
    std::array<Counts, 256> counts_{}; // by category
    PageBlock inside_;
};

} // namespace astdump
