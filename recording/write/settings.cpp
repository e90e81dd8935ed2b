#include "write/settings.hpp"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "ask/field_values.hpp"
#include "ask/suggestion.hpp"
#include "base/counted.hpp"
#include "base/letters.hpp"

namespace ast::recording {

namespace {

using Outcome = FieldBits::Outcome;

// Where " if " stands outside of quotes, the last one; the end for none.
size_t find_condition(std::string_view text) {
    size_t found = text.size();
    char quote = '\0';
    for (size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (quote != '\0')
            quote = c == quote ? '\0' : quote;
        else if (c == '"' || c == '\'')
            quote = c;
        else if (found == text.size() && is_same_word(text.substr(at, 4), " if "))
            found = at;
    }
    return found;
}

FieldPath read_path(std::string_view name, const Stretch &place) try {
    auto path = FieldPath::read(name);
    if (!path) throw Mistake('\'' + std::string(name) + "' is no path such as I010/SIC" + suggestion(name), place);
    if (path->fields().empty())
        throw Mistake('\'' + std::string(name) + "' has no value of its own but holds fields that have", place);
    return *path;
} catch (const Mistake &) {
    throw;
} catch (const std::invalid_argument &error) {
    throw Mistake(error.what() + suggestion(name), place);
}

// "0 to 7 and has No detection, Single PSR detection, ..."
std::string range_text(const FieldPath &path) {
    std::optional<Range> widest;
    for (const ast_field_t &field : path.fields()) {
        const auto range = range_of(field);
        if (notation_of(field) == Notation::decimal && range && (!widest || range->most > widest->most)) widest = range;
    }
    constexpr std::string_view kBefore = ", which";
    const std::string texts = texts_of(path);
    const std::string has = texts.empty() ? texts : " and" + texts.substr(kBefore.size());
    return widest ? widest->text() + has : description_of(path);
}

// What is the same for all records has to fit some field of that name.
void check(const Formula &formula, const FieldPath &path, std::string_view name, const std::string &value,
           const Stretch &place) {
    static constexpr ast_datarecord_t kNone{};
    if (!formula.is_constant()) return;
    const bool fits = std::ranges::any_of(path.fields(), [&](const ast_field_t &field) {
        return formula.bits_for(field, kNone).outcome == Outcome::fits;
    });
    if (fits) return;
    const bool is_text = std::ranges::any_of(
        path.fields(), [](const ast_field_t &field) { return notation_of(field) == Notation::text; });
    if (formula.mistake() && !is_text && !std::ranges::any_of(path.fields(), takes_text))
        throw Mistake(formula.mistake()->what(),
                      {place.at + formula.mistake()->place().at, formula.mistake()->place().size});
    throw Mistake('\'' + value + "' is no value of " + std::string(name) + ", which is " + range_text(path), place);
}

} // namespace

SettingCounts SettingCounts::take() { return std::exchange(*this, {}); }

SettingCounts &SettingCounts::operator+=(const SettingCounts &other) {
    counts_.resize(std::max(counts_.size(), other.counts_.size()));
    for (size_t i = 0; i < other.counts_.size(); ++i) {
        counts_[i].absent += other.counts_[i].absent;
        counts_[i].unknown += other.counts_[i].unknown;
        counts_[i].unfit += other.counts_[i].unfit;
    }
    return *this;
}

void Settings::add(std::string_view text) try {
    const size_t equals = text.find('=');
    if (equals == std::string_view::npos) throw Mistake("expected PATH=VALUE, such as I010/SIC=99", {0, text.size()});
    const size_t condition = find_condition(text);
    const std::string_view name = trimmed(text.substr(0, equals));
    const std::string_view value = trimmed(text.substr(equals + 1, condition - std::min(condition, equals + 1)));
    const Stretch place{value.empty() ? equals : static_cast<size_t>(value.data() - text.data()), value.size()};
    FieldPath path = read_path(name, {static_cast<size_t>(name.data() - text.data()), name.size()});
    if (value.empty()) throw Mistake("expected a value", {equals, 1});
    Formula formula(value);
    check(formula, path, name, std::string(value), place);
    Setting setting{std::string(name), std::move(path), std::move(formula), {}};
    constexpr size_t kIf = 4;
    try {
        if (condition < text.size()) setting.condition.add(text.substr(condition + kIf));
    } catch (const Mistake &mistake) {
        throw Mistake(mistake.what(), {mistake.place().at + condition + kIf, mistake.place().size});
    }
    settings_.push_back(std::move(setting));
} catch (const Mistake &mistake) {
    throw std::invalid_argument(mistake_text(text, mistake));
}

void Settings::write(Answerer &answerer, uint8_t *octets, SettingCounts &counts) const {
    counts.counts_.resize(std::max(counts.counts_.size(), settings_.size()));
    const ast_datarecord_t &record = answerer.record();
    for (size_t i = 0; i < settings_.size(); ++i) {
        const Setting &setting = settings_[i];
        if (!setting.path.is_of(record.category) || !setting.condition.meets(answerer)) continue;
        bool is_there = false, is_unknown = false, is_unfit = false;
        setting.path.change_values(record, octets, [&](const ast_field_value_t &value, uint64_t &raw) {
            const FieldBits bits = setting.formula.bits_for(*value.field, record);
            is_there = true;
            is_unknown = is_unknown || bits.outcome == Outcome::unknown;
            is_unfit = is_unfit || bits.outcome == Outcome::unfit;
            raw = bits.raw;
            return bits.outcome == Outcome::fits;
        });
        SettingCounts::Count &count = counts.counts_[i];
        count.absent += is_there ? 0 : 1;
        count.unknown += is_unknown ? 1 : 0;
        count.unfit += is_unfit ? 1 : 0;
    }
}

std::vector<std::string> Settings::complaints(const SettingCounts &counts) const {
    std::vector<std::string> lines;
    const auto add = [&](uint64_t count, const char *one, const char *several, const std::string &what) {
        if (count != 0) lines.push_back("--set: " + counted(count, "record") + (count == 1 ? one : several) + what);
    };
    for (size_t i = 0; i < std::min(settings_.size(), counts.counts_.size()); ++i) {
        const Setting &setting = settings_[i];
        const auto &[absent, unknown, unfit] = counts.counts_[i];
        add(absent, " has no ", " have no ", setting.name);
        add(unknown, " lacks", " lack", " what the value of " + setting.name + " is worked out from");
        add(unfit, " would have", " would have",
            " a value that does not fit " + setting.name + ", which is " + range_text(setting.path));
    }
    return lines;
}

} // namespace ast::recording
