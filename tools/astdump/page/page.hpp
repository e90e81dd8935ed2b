// A self-contained HTML page: numbers by category, and all blocks, records and items with the library's views.
#pragma once

#include <array>
#include <memory>
#include <string>

#include "show/sink.hpp"
#include "write/output_file.hpp"

namespace ast::recording::astdump {

// Is written as the blocks come; the table of numbers, which is known last, is put on top by its style. Sections of the
// page are packed until they are opened, so that a browser holds the pages of long recordings.
class Page : public Sink {
public:
    // Throws std::runtime_error when the file cannot be written, as do the others, or is one of the inputs.
    Page(const std::string &path, std::span<const std::string> inputs);

    std::unique_ptr<Renderer> renderer() const override;
    size_t chunk_octets() const override { return size_t{48} * 1024; }
    bool counts() const override { return true; }
    void file(const std::string &name) override;
    void take(std::string_view rendered) override { file_.write(rendered); }
    void count(const Tally &tally) override;

    // Puts the page in place, and says on standard error how large it has become.
    void finish(uint64_t octets_read) override;

    // Leaves what was there before, and says so.
    void give_up() override;
    void break_off() override;

private:
    void totals();
    void tell_size(uint64_t octets_read) const;

    std::string path_;
    OutputFile file_;
    std::array<Counts, 256> counts_{}; // by category
    Losses losses_;
};

} // namespace ast::recording::astdump
