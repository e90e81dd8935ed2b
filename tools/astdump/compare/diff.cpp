#include "compare/diff.hpp"

#include <algorithm>

#include "ask/answerer.hpp"
#include "ask/quantities.hpp"
#include "base/counted.hpp"
#include "base/json_string.hpp"
#include "compare/field_differences.hpp"
#include "show/field_text.hpp"

namespace ast::recording::astdump {

namespace {

class DiffRenderer : public Renderer {
public:
    void block(const DecodedBlock &decoded, TextBuffer &out) override {
        answerer_.each_shown(decoded, [&] { KeptRecords::pack(out, answerer_.record(), answerer_.answers()); });
    }

private:
    Answerer answerer_;
};

// ---- Which record it is ----

constexpr std::string_view kIdentity[] = {"time", "type", "track_number", "icao24"};

ast_answers_t answers_of(const KeptRecord &record) {
    ast_answers_t answers{};
    answers.present = record.present;
    answers.time_of_day_s = record.time_of_day_s;
    answers.type = record.type;
    answers.track_number = record.track_number;
    answers.icao24 = record.icao24;
    return answers;
}

void put_quantity(TextBuffer &out, const Quantity &quantity, const ast_answers_t &answers) {
    out.put_with(kQuantityRoom, [&](char *text) {
        CellWriter writer(text);
        quantity.write(writer, answers);
        return writer.size();
    });
}

// "048 025/012  12:00:01.500  track  track_number 420  icao24 3C4A12".
void put_identity(TextBuffer &out, const KeptRecord &record) {
    out.number(record.category, 3, '0');
    if (record.has(AST_ANSWER_SAC)) {
        out.put(' ');
        out.number(record.sac, 3, '0');
        out.put('/');
        out.number(record.sic, 3, '0');
    }
    const ast_answers_t answers = answers_of(record);
    for (const std::string_view name : kIdentity) {
        const Quantity &quantity = *find_quantity(name);
        if (!quantity.is_in(answers)) continue;
        out.put("  ");
        if (quantity.answer >= AST_ANSWER_TRACK_NUMBER) {
            out.put(name);
            out.put(' ');
        }
        put_quantity(out, quantity, answers);
    }
}

// ---- JSON ----

void put_name(TextBuffer &out, std::string_view name) {
    out.put(',');
    put_json_string(out, name);
    out.put(':');
}

void put_json_identity(TextBuffer &out, const KeptRecord &record) {
    put_name(out, "category");
    out.number(record.category);
    if (record.has(AST_ANSWER_SAC)) {
        put_name(out, "sac");
        out.number(record.sac);
        put_name(out, "sic");
        out.number(record.sic);
    }
    const ast_answers_t answers = answers_of(record);
    for (const std::string_view name : kIdentity) {
        const Quantity &quantity = *find_quantity(name);
        if (!quantity.is_in(answers)) continue;
        put_name(out, name);
        const bool is_text = quantity.form != QuantityForm::whole;
        if (is_text) out.put('"');
        put_quantity(out, quantity, answers);
        if (is_text) out.put('"');
    }
}

void put_json(TextBuffer &out, const FieldText &value) {
    if (value == FieldText())
        out.put("null");
    else if (value.is_number)
        out.put(value.text);
    else
        put_json_string(out, value.text);
}

void put_json(TextBuffer &out, const FieldDifference &difference) {
    out.put("{\"path\":\"");
    put_option_path(out, difference.path);
    out.put("\",\"first\":");
    put_json(out, difference.first);
    out.put(",\"second\":");
    put_json(out, difference.second);
    out.put('}');
}

// ---- Text ----

void put_value(TextBuffer &out, const FieldText &value, std::string_view unit) {
    if (value == FieldText()) return out.put('-');
    out.put(value.text);
    if (unit.empty()) return;
    out.put(' ');
    put_plain(out, unit);
}

void put_text(TextBuffer &out, const FieldDifference &difference) {
    constexpr size_t kPathWidth = 24;
    out.put("    ");
    const size_t begin = out.size();
    put_option_path(out, difference.path);
    const size_t width = out.size() - begin;
    out.pad(width < kPathWidth ? kPathWidth - width : 1);
    put_value(out, difference.first, difference.unit);
    out.put(" -> ");
    put_value(out, difference.second, difference.unit);
    out.put('\n');
}

} // namespace

std::unique_ptr<Renderer> Diff::renderer() const { return std::make_unique<DiffRenderer>(); }

void Diff::file(const std::string &name) {
    reading_ = std::min(files_++, names_.size() - 1);
    names_[reading_] = name;
}

void Diff::compare(const Match &match) {
    const size_t has_one = match.first ? 0 : 1;
    const KeptRecord &record = match.first ? records_[0][*match.first] : records_[1][*match.second];
    if (!match.first || !match.second) {
        ++only_[has_one];
        if (form_.json) {
            text_.put("{\"only_in\":");
            put_json_string(text_, names_[has_one]);
            put_json_identity(text_, record);
            text_.put("}\n");
            return;
        }
        text_.put(has_one == 0 ? "- " : "+ ");
        put_identity(text_, record);
        return text_.put('\n');
    }
    const auto differences = field_differences(records_[0], *match.first, records_[1], *match.second);
    if (differences.empty()) {
        ++same_;
        return;
    }
    ++different_;
    if (form_.json) {
        text_.put("{\"differences\":[");
        for (const FieldDifference &each : differences) {
            if (&each != &differences.front()) text_.put(',');
            put_json(text_, each);
        }
        text_.put(']');
        put_json_identity(text_, record);
        return text_.put("}\n");
    }
    text_.put("! ");
    put_identity(text_, record);
    text_.put('\n');
    for (const FieldDifference &each : differences) put_text(text_, each);
}

void Diff::summary() {
    if (form_.json) {
        text_.put("{\"same\":");
        text_.number(same_);
        text_.put(",\"different\":");
        text_.number(different_);
        text_.put(",\"only_in_first\":");
        text_.number(only_[0]);
        text_.put(",\"only_in_second\":");
        text_.number(only_[1]);
        return text_.put("}\n");
    }
    text_.put(counted(same_, "record") + " the same, " + std::to_string(different_) + " different");
    for (size_t i = 0; i < only_.size(); ++i) text_.put(", " + std::to_string(only_[i]) + " only in " + names_[i]);
    text_.put('\n');
}

void Diff::finish(uint64_t) {
    for (const Match &match : match_records(records_[0], records_[1], form_.within_s)) {
        compare(match);
        constexpr size_t kEnough = size_t{64} * 1024;
        if (text_.size() < kEnough) continue;
        out_.write(text_.text());
        text_.clear();
    }
    summary();
    out_.write(text_.text());
}

} // namespace ast::recording::astdump
