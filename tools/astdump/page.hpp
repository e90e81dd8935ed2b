// A self-contained HTML page: numbers by category, and all blocks, records and items with the library's views.
#pragma once

#include <array>
#include <memory>
#include <string>

#include "output.hpp"
#include "sink.hpp"

namespace astdump {

// Is written as the blocks come; the table of numbers, which is known last, is put on top by its style. Sections of the
// page are packed until they are opened, so that a browser holds the pages of long recordings.
class Page : public Sink {
public:
    // Throws std::runtime_error when the file cannot be written, as do the others.
    explicit Page(const std::string &path);
    ~Page() override;
    Page(const Page &) = delete;
    Page &operator=(const Page &) = delete;

    std::unique_ptr<Renderer> renderer() const override;
    size_t chunk_octets() const override { return size_t{48} * 1024; }
    bool counts() const override { return true; }
    void file(const std::string &name) override;
    void take(std::string_view rendered) override { write(rendered); }
    void count(const Tally &tally) override;

    // Says on standard error how large the page has become.
    void finish(uint64_t octets_read) override;

private:
    void write(std::string_view html);
    void totals();
    void tell_size(uint64_t octets_read) const;
    [[noreturn]] void fail(int error) const;

    std::string path_;
    int descriptor_;
    Output out_;
    std::array<Counts, 256> counts_{}; // by category
};

} // namespace astdump
