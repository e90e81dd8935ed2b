// The listing: a line per block, a line per record, and the items with their names, sizes, summaries
// and octets.
#pragma once

#include <string>

#include "show/sink.hpp"
#include "show/terminal.hpp"
#include "write/output.hpp"

namespace ast::recording::astdump {

class Listing : public Sink {
public:
    struct Form {
        unsigned columns; // that lines are laid out for, at least 60
        bool color;
        bool name_files; // when there are several, one after the other
        bool detail;     // the fields of each item below it
        bool folds;      // whether what is said of a block may take two lines, where one is too long
    };
    Listing(Output &out, const Form &form) : out_(out), form_(form) {}

    std::unique_ptr<Renderer> renderer() const override;
    size_t chunk_octets() const override { return size_t{16} * 1024; }
    void file(const std::string &name) override;
    void take(std::string_view rendered) override { out_.write(rendered); }
    void finish(uint64_t) override {}

private:
    Output &out_;
    Form form_;
};

} // namespace ast::recording::astdump
