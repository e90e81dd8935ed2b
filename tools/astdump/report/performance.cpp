#include "report/performance.hpp"

#include "ask/answerer.hpp"
#include "report/sections.hpp"
#include "report/writers.hpp"
#include "show/as_is.hpp"
#include "show/write_file.hpp"

namespace ast::recording::astdump {

namespace {

// What a thread passes on: what a record says, or the numbers of a field in a chunk, whose texts follow.
enum class Piece : uint8_t { fact, numbers };

struct PackedNumbers {
    FamilySource source;
    NumberRange range;
    uint32_t path_size;
    uint32_t unit_size;
    uint32_t decimals;
};

std::string take_text(std::string_view &packed, size_t size) {
    const std::string text(packed.substr(0, size));
    packed.remove_prefix(size);
    return text;
}

class PerformanceRenderer : public Renderer {
public:
    void block(const DecodedBlock &decoded, TextBuffer &out) override {
        answerer_.each_shown(decoded, [&] {
            const Fact fact = reader_.read(answerer_, decoded);
            put_as_is(out, Piece::fact);
            put_as_is(out, fact);
            numbers_.add(fact.source, answerer_.record());
        });
    }

    void end(TextBuffer &out) override {
        numbers_.take_all([&](const FamilySource &source, const NumberField &field, const NumberRange &range) {
            put_as_is(out, Piece::numbers);
            put_as_is(out, PackedNumbers{.source = source,
                                         .range = range,
                                         .path_size = static_cast<uint32_t>(field.path.size()),
                                         .unit_size = static_cast<uint32_t>(field.unit.size()),
                                         .decimals = field.decimals});
            out.put(field.path);
            out.put(field.unit);
        });
    }

private:
    Answerer answerer_;
    FactReader reader_;
    FieldNumbers numbers_;
};

} // namespace

Performance::Performance(Output &out, const Form &form) : out_(out), form_(form) {
    if (!form_.page.empty()) page_.emplace(form_.page, form_.inputs);
}

std::unique_ptr<Renderer> Performance::renderer() const { return std::make_unique<PerformanceRenderer>(); }

void Performance::file(const std::string &name) {
    files_.push_back(name);
    for (auto &[key, figures] : sources_) figures.interrupt();
}

void Performance::take(std::string_view rendered) {
    while (!rendered.empty()) {
        if (take_as_is<Piece>(rendered) == Piece::fact) {
            const auto fact = take_as_is<Fact>(rendered);
            sources_[fact.source].take(fact);
            continue;
        }
        const auto numbers = take_as_is<PackedNumbers>(rendered);
        const std::string path = take_text(rendered, numbers.path_size);
        const std::string unit = take_text(rendered, numbers.unit_size);
        sources_[numbers.source].take({path, unit, numbers.decimals}, numbers.range);
    }
}

void Performance::put(TextBuffer &text) {
    std::vector<SourceReport> reports;
    for (auto &[key, figures] : sources_) {
        figures.finish();
        reports.push_back(report_of(key, figures));
    }
    if (page_) return put_page(text, reports, files_);
    for (const SourceReport &report : reports)
        if (form_.json)
            put_json(text, report);
        else
            put_text(text, report, Style(form_.color), form_.columns);
}

void Performance::finish(uint64_t) {
    TextBuffer text;
    put(text);
    if (!page_) return out_.write(text.text());
    page_->write(text.text());
    page_->replace();
}

void Performance::give_up() {
    if (!page_) return finish(0);
    tell(page_->path() + ": not written");
}

void Performance::break_off() {
    if (!page_) return finish(0);
    TextBuffer text;
    put(text);
    page_->write(text.text());
    tell_part(*page_);
}

} // namespace ast::recording::astdump
