#include "ask/field_path.hpp"

#include <algorithm>
#include <array>
#include <numeric>
#include <stdexcept>

#include "ask/published_fields.hpp"
#include "base/letters.hpp"
#include "base/numbers.hpp"
#include "block/profile_names.hpp"

namespace ast::recording {

namespace {

constexpr uint32_t kCategories = 256;
constexpr uint32_t kItems = 1000;     // numbers of a category
constexpr uint32_t kFirstOther = 900; // from here on they are no numbers of items: other layouts of some, REF, SPF
constexpr uint32_t kAdsB = 21;        // the category whose editions differ under one number
constexpr size_t kCategoryDigits = 5; // "I048/" in front of an item
constexpr size_t kItemDigits = 3;

constexpr std::string_view kFields[] = {"REF", "SPF", "RFS"};

bool is_number(std::string_view text) { return text.size() == kItemDigits && std::ranges::all_of(text, is_digit); }

bool is_special(std::string_view item) { return std::ranges::find(kFields, item) != std::end(kFields); }

// "I048/070/MODE3A", as the library itself writes a path. No field of an item is called by a number.
bool names_category(std::string_view text) {
    if (text.size() <= kCategoryDigits || to_capital(text[0]) != 'I' || text[kCategoryDigits - 1] != '/') return false;
    std::string item(text.substr(kCategoryDigits, kItemDigits));
    std::ranges::transform(item, item.begin(), to_capital);
    const bool ends = text.size() == kCategoryDigits + kItemDigits ||
                      std::string_view("/[").find(text[kCategoryDigits + kItemDigits]) != std::string_view::npos;
    return is_number(text.substr(1, kItemDigits)) && ends && (is_number(item) || is_special(item));
}

// "070" of "I070", and of "070" behind a category, and "REF", as the library writes them; empty for anything else.
std::string_view item_of(std::string_view path, bool has_category) {
    std::string_view item = path.substr(0, path.find_first_of("/["));
    if (is_special(item)) return item;
    if (item.starts_with('I'))
        item.remove_prefix(1);
    else if (!has_category)
        return {};
    return is_number(item) ? item : std::string_view();
}

} // namespace

struct FieldPath::Parts {
    std::optional<uint8_t> category;
    std::string path;
    std::string item;
};

std::optional<FieldPath::Parts> FieldPath::split(std::string_view text) {
    Parts parts;
    if (names_category(text)) text.remove_prefix(1);
    if (!text.empty() && is_digit(text[0])) {
        const size_t slash = std::min(text.find('/'), text.size());
        parts.category = read_number<uint8_t>(text.substr(0, slash));
        if (!parts.category || slash == text.size()) return std::nullopt;
        text.remove_prefix(slash + 1);
    }
    parts.path = text;
    std::ranges::transform(parts.path, parts.path.begin(), to_capital);
    parts.item = item_of(parts.path, parts.category.has_value());
    if (parts.item.empty()) return std::nullopt;
    if (is_digit(parts.item[0]) && parts.path[0] == 'I') parts.path.erase(0, 1);
    return parts;
}

bool FieldPath::has_form(std::string_view text) { return split(text).has_value(); }

std::optional<FieldPath> FieldPath::read(std::string_view text) {
    const auto parts = split(text);
    if (!parts) return std::nullopt;
    const std::optional<uint8_t> category = parts->category;
    FieldPath result;
    result.path_ = parts->path;
    result.category_ = category;
    result.names_item_ = parts->path == parts->item;
    result.chooses_ = parts->path.find('[') != std::string::npos;
    for (uint32_t each = 0; each < kCategories; ++each) {
        if (category && each != *category) continue;
        result.resolve(each, AST_UAP_PUBLISHED);
        if (each != kAdsB) continue;
        for (const ast_uap_info_t &profile : profiles()) result.resolve(each, *profile.uap);
    }
    std::ranges::sort(result.types_);
    const auto repeated = std::unique(result.types_.begin(), result.types_.end());
    result.types_.erase(repeated, result.types_.end());
    for (const ast_dataitem_type_t type : result.types_) ++result.ends_[type / kItems % kCategories];
    std::partial_sum(result.ends_.begin(), result.ends_.end(), result.ends_.begin());
    result.find_places();
    if (!result.types_.empty()) return result;
    throw std::invalid_argument("'" + std::string(text) + "' is a field of no " +
                                (category ? "edition of that category" : "category"));
}

void FieldPath::take(const ast_field_t &field, std::string_view name, uint32_t category, bool &any) {
    const Match found = match(name);
    if (found == Match::none || field.kind == AST_FIELD_SPARE) return;
    any = true;
    if (found != Match::exact || !has_value(field)) return;
    fields_.push_back(field);
    fields_.back().path = ""; // which is good for this call alone
    categories_of_fields_.push_back(static_cast<uint8_t>(category));
    if (std::ranges::find(names_, name) == names_.end()) names_.emplace_back(name);
}

void FieldPath::resolve(uint32_t category, const ast_uap_t &uap) {
    if (AST_UAP_PUBLISHED.max_frn(category) == 0) return;
    const std::optional<uint32_t> own = read_number<uint32_t>(std::string_view(path_).substr(0, kItemDigits));
    for (uint32_t number = 0; number < kItems; ++number) {
        if (number < kFirstOther && number != own) continue;
        const ast_dataitem_type_t type = AST_DATAITEM_TYPE(category, number);
        bool any = false;
        describe_fields(type, uap,
                        [&](const ast_field_t &field, std::string_view name) { take(field, name, category, any); });
        if (!any) continue;
        types_.push_back(type);
        categories_.set(category);
    }
}

double FieldPath::number_of(const ast_field_t &field, uint64_t raw) {
    const bool is_negative = field.kind == AST_FIELD_SIGNED && (raw >> (field.bits - 1) & 1) != 0;
    const auto size = static_cast<double>(is_negative ? (uint64_t{1} << field.bits) - raw : raw);
    const double number = is_negative ? -size : size;
    if (field.numerator == 0) return number;
    return number * static_cast<double>(field.numerator) / static_cast<double>(field.denominator) + field.offset;
}

FieldPath::Known FieldPath::find_known(ast_dataitem_type_t type, const ast_uap_t &uap) const {
    constexpr uint32_t kRoom = 8; // several registers have fields of one name, and codes several readings
    Known known{.profile = uap.get_dataitem, .places = {}, .is_plain = false, .field = {}};
    for (const std::string &name : names_) {
        ast_field_place_t room[kRoom];
        const uint32_t count = ast_dataitem_find_field(type, uap, name.c_str(), room, kRoom);
        known.places.insert(known.places.end(), room, room + std::min(count, kRoom));
    }
    if (known.places.size() != 1 || known.places[0].bit == AST_FIELD_VARIES) return known;
    struct Search {
        const std::vector<std::string> &names;
        Known &known;
    } search{names_, known};
    const auto visit = [](void *context, const ast_field_t *field) {
        const auto &[names, found] = *static_cast<Search *>(context);
        if (std::ranges::find(names, field->path) == names.end()) return;
        found.field = *field;
        found.field.path = "";
        found.is_plain = field->kind == AST_FIELD_CODE || field->kind == AST_FIELD_UNSIGNED ||
                         field->kind == AST_FIELD_SIGNED || (field->kind == AST_FIELD_RAW && field->bits < kOctetsBits);
    };
    ast_dataitem_describe(type, uap, visit, &search);
    return known;
}

void FieldPath::find_places() {
    for (const ast_dataitem_type_t type : types_) {
        Places places{.is_same_for_all = type / kItems != kAdsB, .by_profile = {}};
        if (places.is_same_for_all)
            places.by_profile.push_back(find_known(type, AST_UAP_PUBLISHED));
        else
            for (const ast_uap_info_t &profile : profiles())
                places.by_profile.insert(places.by_profile.begin(), find_known(type, *profile.uap));
        places_.push_back(std::move(places));
    }
}

// Most are found to be another one by the first characters behind the item, which is the one asked for.
bool FieldPath::is_exactly(const char *path) const {
    const char *at = path + kCategoryDigits + kItemDigits;
    for (const char wanted : std::string_view(path_).substr(kItemDigits)) {
        const char found = *at++;
        if (found != wanted && to_capital(found) != wanted)
            return (found == '[' || chooses_) && match(path) == Match::exact;
    }
    return *at == '\0' || (*at == '[' && match(path) == Match::exact);
}

// An element of a list that the path does not choose is any of them, "[]" stands for all.
FieldPath::Match FieldPath::match(std::string_view path) const {
    path.remove_prefix(std::min(kCategoryDigits, path.size()));
    size_t at = 0;
    for (size_t wanted = 0; wanted < path_.size(); ++wanted, ++at) {
        if (at < path.size() && path[at] == '[') {
            const size_t end = std::min(path.find(']', at), path.size() - 1);
            if (path_[wanted] != '[') {
                at = end + 1;
            } else if (end == at + 1) {
                wanted = path_.find(']', wanted);
                if (wanted == std::string::npos) return Match::none;
                at = end;
                continue;
            }
        }
        if (at >= path.size() || to_capital(path[at]) != path_[wanted]) return Match::none;
    }
    if (at < path.size() && path[at] == '[') at = std::min(path.find(']', at), path.size() - 1) + 1;
    if (at == path.size()) return Match::exact;
    return path[at] == '/' ? Match::within : Match::none;
}

bool FieldPath::names_lists() const {
    const auto lists = [](std::string_view path) { return std::ranges::count(path, '['); };
    const bool has_all = path_.find("[]") != std::string::npos;
    return std::ranges::any_of(names_, [&](const std::string &name) { return has_all || lists(name) > lists(path_); });
}

bool FieldPath::is_in(const ast_datarecord_t &record) const {
    if (names_item_)
        return std::ranges::any_of(record.items, record.items + record.item_count, [&](const ast_dataitem_t &item) {
            return std::ranges::binary_search(types_, item.type);
        });
    struct Found {
        const FieldPath &path;
        bool any;
    } found{*this, false};
    const auto visit = [](void *context, const ast_field_value_t *value) {
        auto &[path, any] = *static_cast<Found *>(context);
        any = any || path.match(value->field->path) != Match::none;
    };
    each_item(record, [&](const ast_dataitem_t &item, size_t) {
        ast_dataitem_walk(&item, record.uap, message_type_of(record), visit, &found);
    });
    return found.any;
}

} // namespace ast::recording
