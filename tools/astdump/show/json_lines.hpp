// JSON lines: one for each record, and one for octets that are none.
#pragma once

#include <string>

#include "show/sink.hpp"
#include "write/output.hpp"

namespace ast::recording::astdump {

struct JsonForm {
    bool texts;      // with the texts of codes
    bool name_files; // when there are several
    bool remainders; // what cannot be decoded, too: nothing is chosen by what records hold
};

// The lines of a block: its records, and what is none.
uint64_t json_lines_of(const DecodedBlock &decoded, const JsonForm &form);

// `file` is the name of the file at hand, wherever it changes to.
std::unique_ptr<Renderer> make_json_renderer(const JsonForm &form, const std::string &file);

class JsonLines : public Sink {
public:
    JsonLines(Output &out, const JsonForm &form) : out_(out), form_(form) {}

    std::unique_ptr<Renderer> renderer() const override { return make_json_renderer(form_, file_); }
    size_t chunk_octets() const override { return size_t{64} * 1024; }
    uint64_t shows(const DecodedBlock &decoded) const override { return json_lines_of(decoded, form_); }
    void file(const std::string &name) override { file_ = name; }
    void take(std::string_view rendered) override { out_.write(rendered); }
    void finish(uint64_t) override {}

private:
    Output &out_;
    JsonForm form_;
    std::string file_;
};

} // namespace ast::recording::astdump
