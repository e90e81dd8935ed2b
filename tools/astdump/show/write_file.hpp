// What is chosen, as a file of its own: a capture, raw blocks or JSON.
#pragma once

#include <string>
#include <vector>

#include "show/json_lines.hpp"
#include "write/file_kind.hpp"
#include "write/output_file.hpp"

namespace ast::recording::astdump {

// By the extension of its name. Throws std::invalid_argument for one that it does not know.
FileKind file_kind(const std::string &path);

// For each thread; `input` is the name of the file at hand.
std::unique_ptr<Renderer> make_file_renderer(FileKind kind, const JsonForm &form, const std::string &input);

// What a file begins with.
std::string file_header(FileKind kind);

// Says on standard error what there is of a file that the user has broken off, and keeps that beside it.
void tell_part(OutputFile &file);

class WriteFile : public Sink {
public:
    // Throws std::runtime_error when the file cannot be written, or is one of the inputs; as do the others.
    WriteFile(const std::string &path, const std::vector<std::string> &inputs, const JsonForm &form);

    std::unique_ptr<Renderer> renderer() const override;
    size_t chunk_octets() const override { return size_t{64} * 1024; }
    uint64_t shows(const DecodedBlock &decoded) const override {
        return kind_ == FileKind::json ? json_lines_of(decoded, form_) : 1;
    }
    void file(const std::string &name) override { input_ = name; }
    void take(std::string_view rendered) override { file_.write(rendered); }
    void finish(uint64_t) override { file_.replace(); }
    void give_up() override {}
    void break_off() override { tell_part(file_); }

private:
    FileKind kind_;
    JsonForm form_;
    OutputFile file_;
    std::string input_;
};

} // namespace ast::recording::astdump
