#include "filter.hpp"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <strings.h>

#include "keywords.hpp"
#include "numbers.hpp"

namespace astdump {

namespace {

constexpr unsigned kSacStep = 1000; // a data source is matched as SAC × 1000 + SIC

// The keywords that the library matches by value, and how their values are written. It reads what is no number as 0,
// which is not what is wanted by a slip of the pen.
struct Notation {
    uint32_t keyword;
    const char *characters; // null: any
    const char *description;
};

constexpr Notation kNotations[] = {
    {AST_KEYWORD_SACSIC, "0123456789", "SAC/SIC, such as 25/12, or as one number, 25012"},
    {AST_KEYWORD_TRACKNUM, "0123456789", "a decimal number"},
    {AST_KEYWORD_SQUAWK, "01234567", "octal digits"},
    {AST_KEYWORD_FLIGHTLEVEL, "0123456789.-", "hundreds of feet"},
    {AST_KEYWORD_CALLSIGN, nullptr, "a word"},
    {AST_KEYWORD_ICAOADDR, "0123456789abcdefABCDEF", "hexadecimal digits"},
};

// Null for a keyword whose text is compared.
const Notation *find_notation(uint32_t keyword) {
    const auto found = std::ranges::find(kNotations, keyword, &Notation::keyword);
    return found == std::end(kNotations) ? nullptr : found;
}

// "25/12" as "25012"; any other text as it is.
std::string one_number(const std::string &text) {
    const size_t slash = text.find('/');
    if (slash == std::string::npos) return text;
    const auto sac = read_number<uint8_t>(std::string_view(text).substr(0, slash));
    const auto sic = read_number<uint8_t>(std::string_view(text).substr(slash + 1));
    return sac && sic ? std::to_string(*sac * kSacStep + *sic) : text;
}

std::string read_value(const std::string &name, uint32_t keyword, const std::string &text) {
    const Notation *const notation = find_notation(keyword);
    const std::string value = keyword == AST_KEYWORD_SACSIC ? one_number(text) : text;
    const bool foreign =
        notation && notation->characters && value.find_first_not_of(notation->characters) != std::string::npos;
    if (!value.empty() && !foreign) return value;
    throw std::invalid_argument("--where: '" + text + "' is no value of " + name +
                                (notation ? std::string(", which is ") + notation->description : ""));
}

bool is_present(const ast_datarecord_t &record, uint32_t keyword) {
    return ast_datarecord_contain_keyword(&record, keyword) || !keyword_text(record, keyword).empty();
}

bool meets(const ast_datarecord_t &record, const Condition &condition) {
    if (!condition.value) return is_present(record, condition.keyword);
    const char *const value = condition.value->c_str();
    if (find_notation(condition.keyword)) return ast_datarecord_match_keyword(&record, condition.keyword, value, false);
    return strcasecmp(keyword_text(record, condition.keyword).c_str(), value) == 0;
}

} // namespace

Condition read_condition(const std::string &text) {
    const size_t equals = text.find('=');
    const std::string name = text.substr(0, equals);
    const auto keyword = find_keyword(name);
    if (!keyword) throw std::invalid_argument("--where: '" + name + "' is none of " + keyword_names());
    if (equals == std::string::npos) return {*keyword, std::nullopt};
    return {*keyword, read_value(name, *keyword, text.substr(equals + 1))};
}

RecordSet select_records(const ast_datablock_t &block, const std::vector<Condition> &conditions) {
    if (conditions.empty()) return RecordSet().set() >> (AST_DATABLOCK_MAX_RECORDS - block.record_count);
    RecordSet selected;
    for (uint64_t i = 0; i < block.record_count; ++i)
        selected[i] = std::ranges::all_of(
            conditions, [&](const Condition &condition) { return meets(block.records[i], condition); });
    return selected;
}

} // namespace astdump
