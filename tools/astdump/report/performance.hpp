// How well data sources work: figures of each, as a report.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "report/source_figures.hpp"
#include "show/sink.hpp"
#include "show/terminal.hpp"
#include "write/output.hpp"
#include "write/output_file.hpp"

namespace ast::recording::astdump {

// Shown when all has been read.
class Performance : public Sink {
public:
    struct Form {
        bool json = false; // a line for each source
        bool color = false;
        size_t columns = 120;
        std::string page{};                // to write instead; empty for none
        std::vector<std::string> inputs{}; // which it must not be one of
    };

    // Throws std::runtime_error where the page cannot be written.
    Performance(Output &out, const Form &form);

    std::unique_ptr<Renderer> renderer() const override;
    size_t chunk_octets() const override { return size_t{256} * 1024; }
    void file(const std::string &name) override;
    void take(std::string_view rendered) override;
    void finish(uint64_t octets_read) override;
    void give_up() override;
    void break_off() override;

private:
    void put(TextBuffer &text);

    Output &out_;
    Form form_;
    std::optional<OutputFile> page_;
    std::vector<std::string> files_;
    std::map<FamilySource, SourceFigures> sources_;
};

} // namespace ast::recording::astdump
