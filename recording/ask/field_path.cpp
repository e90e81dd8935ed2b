#include "ask/field_path.hpp"

#include <algorithm>
#include <array>
#include <numeric>
#include <stdexcept>

#include "base/numbers.hpp"
#include "block/profile_names.hpp"

namespace ast::recording {

namespace {

constexpr uint32_t kCategories = 256;
constexpr uint32_t kItems = 1000;     // numbers of a category
constexpr uint32_t kFirstOther = 900; // from here on they are no numbers of items: other layouts of some, REF, SPF
constexpr uint32_t kAdsB = 21;        // the category whose editions differ under one number
constexpr uint32_t kRegisters = 256;  // numbers of Mode S registers
constexpr size_t kCategoryDigits = 5; // "I048/" in front of an item
constexpr size_t kItemDigits = 3;

constexpr std::string_view kFields[] = {"REF", "SPF", "RFS"};

char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

bool is_digit(char c) { return c >= '0' && c <= '9'; }

// "I070" and "REF" as the library writes them behind the category; empty for anything else.
std::string_view item_of(std::string_view path) {
    const std::string_view item = path.substr(0, path.find_first_of("/["));
    if (std::ranges::find(kFields, item) != std::end(kFields)) return item;
    const bool is_number =
        item.size() == 1 + kItemDigits && item[0] == 'I' && std::ranges::all_of(item.substr(1), is_digit);
    return is_number ? item.substr(1) : std::string_view();
}

bool has_value(const ast_field_t &field) { return field.kind < AST_FIELD_REGISTER || field.kind == AST_FIELD_EXPLICIT; }

} // namespace

struct FieldPath::Parts {
    std::optional<uint8_t> category;
    std::string path;
    std::string item;
};

std::optional<FieldPath::Parts> FieldPath::split(std::string_view text) {
    Parts parts;
    if (!text.empty() && is_digit(text[0])) {
        const size_t slash = std::min(text.find('/'), text.size());
        parts.category = read_number<uint8_t>(text.substr(0, slash));
        if (!parts.category || slash == text.size()) return std::nullopt;
        text.remove_prefix(slash + 1);
    }
    parts.path = text;
    std::ranges::transform(parts.path, parts.path.begin(), upper);
    parts.item = item_of(parts.path);
    if (parts.item.empty()) return std::nullopt;
    if (is_digit(parts.item[0])) parts.path.erase(0, 1);
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

// Takes the fields of an item, those of Mode S registers behind the path of the field that holds one.
struct FieldPath::Resolver {
    FieldPath &path;
    std::string prefix;
    bool any = false;

    static void field(void *context, const ast_field_t *field) {
        auto &resolver = *static_cast<Resolver *>(context);
        resolver.take(*field, field->path);
        if (field->kind != AST_FIELD_REGISTER) return;
        resolver.prefix = field->path;
        for (uint32_t bds = 0; bds < kRegisters; ++bds) ast_bds_describe(bds, field_of_register, context);
    }

    static void field_of_register(void *context, const ast_field_t *field) {
        auto &resolver = *static_cast<Resolver *>(context);
        const std::string_view name = field->path;
        const size_t slash = name.find('/'); // behind the number of the register
        if (slash != std::string_view::npos) resolver.take(*field, resolver.prefix + std::string(name.substr(slash)));
    }

    void take(const ast_field_t &field, std::string_view name) {
        const Match match = path.match(name);
        if (match == Match::none || field.kind == AST_FIELD_SPARE) return;
        any = true;
        if (match != Match::exact || !has_value(field)) return;
        path.fields_.push_back(field);
        path.fields_.back().path = ""; // which is good for this call alone
        if (std::ranges::find(path.names_, name) == path.names_.end()) path.names_.emplace_back(name);
    }
};

void FieldPath::resolve(uint32_t category, const ast_uap_t &uap) {
    if (AST_UAP_PUBLISHED.max_frn(category) == 0) return;
    const std::optional<uint32_t> own = read_number<uint32_t>(std::string_view(path_).substr(0, kItemDigits));
    for (uint32_t number = 0; number < kItems; ++number) {
        if (number < kFirstOther && number != own) continue;
        const ast_dataitem_type_t type = AST_DATAITEM_TYPE(category, number);
        Resolver resolver{*this, {}};
        ast_dataitem_describe(type, uap, Resolver::field, &resolver);
        if (!resolver.any) continue;
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
        if (found != wanted && upper(found) != wanted) return (found == '[' || chooses_) && match(path) == Match::exact;
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
        if (at >= path.size() || upper(path[at]) != path_[wanted]) return Match::none;
    }
    if (at < path.size() && path[at] == '[') at = std::min(path.find(']', at), path.size() - 1) + 1;
    if (at == path.size()) return Match::exact;
    return path[at] == '/' ? Match::within : Match::none;
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
