#include "columns/item_fields.hpp"

#include <algorithm>
#include <map>
#include <span>
#include <string_view>
#include <utility>

#include "ask/field_values.hpp"
#include "ask/published_fields.hpp"
#include "ask/published_reading.hpp"
#include "base/json_string.hpp"
#include "base/letters.hpp"
#include "block/profile_names.hpp"

namespace ast::recording {

namespace {

constexpr size_t kItemReference = std::string_view("I048/040").size();
constexpr uint32_t kItems = 1000;     // numbers of a category
constexpr uint32_t kFirstField = 998; // from here on items have a length of their own: REF and SPF
constexpr uint32_t kAdsB = 21;        // the category whose editions differ under one number
constexpr uint32_t kNumberedRegisterBits = 64;
constexpr uint32_t kResolutionAdvisory = 0x30; // the register that stands without its number
constexpr uint32_t kRegisters = 256;
constexpr unsigned kDecimalsBeyond = 2; // those that tell steps apart

// As many as the JSON of a record has.
unsigned decimals_of(uint64_t numerator, uint64_t denominator) {
    uint64_t one = 1;
    unsigned decimals = 0;
    const auto is_exact = [&] { return numerator * one % denominator == 0; };
    const auto more = [&] { one *= 10, ++decimals; };
    while (numerator * one < denominator) more();
    for (unsigned left = kDecimalsBeyond; left != 0 && !is_exact(); --left) more();
    return decimals;
}

// Whether a field has values of its own, if only where none of its readings fits.
bool may_have_value(const ast_field_t &field) { return has_value(field) || field.kind == AST_FIELD_EITHER; }

bool is_text(const ast_field_t &field) {
    const bool is_raw = field.kind == AST_FIELD_RAW || field.kind == AST_FIELD_EITHER;
    const bool is_octets = is_raw && field.bits >= kOctetsBits;
    return is_octets || (field.kind >= AST_FIELD_OCTAL && field.kind <= AST_FIELD_EXPLICIT);
}

ColumnType type_of(const ast_field_t &field) {
    constexpr uint32_t kInt32Bits = 31;
    if (is_text(field)) return ColumnType::text;
    if (field.denominator > 1) return ColumnType::float64;
    const uint32_t bits = field.bits - (field.kind == AST_FIELD_SIGNED ? 1 : 0); // of the size
    const uint64_t step = std::max<uint64_t>(field.numerator, 1);
    const bool fits = bits <= kInt32Bits && step << bits <= uint64_t{1} << kInt32Bits;
    return fits ? ColumnType::int32 : ColumnType::int64;
}

std::string codes_of(const ast_field_t &field) {
    TextBuffer codes;
    each_code_text(field, [&](uint64_t code, std::string_view text) {
        codes.put(codes.size() == 0 ? "{\"" : ",\"");
        codes.number(code);
        codes.put("\":");
        put_json_string(codes, text);
    });
    if (codes.size() != 0) codes.put('}');
    return std::string(codes.text());
}

constexpr ast_field_t octets_field(const char *title) {
    return {.path = "", .title = title, .kind = AST_FIELD_RAW, .bits = kOctetsBits, .unit = "", .texts = ""};
}

// A value by its path behind the item, in all editions and readings.
struct Described {
    std::string path;
    ColumnHead head;
};

class Description {
public:
    explicit Description(std::span<const ast_dataitem_type_t> types) {
        for (const ast_dataitem_type_t type : types) {
            type_ = type;
            add(AST_UAP_PUBLISHED);
            if (type / kItems != kAdsB) continue;
            for (const ast_uap_info_t &profile : profiles()) add(*profile.uap);
        }
    }

    const std::vector<Described> &all() const { return all_; }

    // Where the column of a value is: what holds others and is a value in some readings has a child for that.
    std::string place_of(const Described &value) const {
        const bool holds_others = std::ranges::any_of(all_, [&](const Described &other) {
            return other.path.size() > value.path.size() && other.path.starts_with(value.path) &&
                   std::string_view("/[").find(other.path[value.path.size()]) != std::string_view::npos;
        });
        if (!holds_others) return value.path;
        return value.path + (value.head.type == ColumnType::text ? "/octets" : "/value");
    }

private:
    void add(const ast_uap_t &uap) {
        const auto take = [](void *context, const ast_field_t *field) {
            static_cast<Description *>(context)->take(*field);
        };
        ast_dataitem_describe(type_, uap, take, this);
    }

    // What has a length of its own may hold other octets than those that are described.
    void take(const ast_field_t &field) {
        const std::string_view path = field.path;
        const std::string inside(path.substr(std::min(path.size(), kItemReference)));
        if (type_ % kItems >= kFirstField && inside.empty())
            add(inside, octets_field(field.title));
        else if (field.kind == AST_FIELD_REGISTER)
            add_register(field, inside);
        else if (may_have_value(field))
            add(inside, field);
    }

    void add_register(const ast_field_t &field, const std::string &path) {
        register_ = path;
        add(path + "/bds", octets_field("Number of the register"));
        const bool is_any = field.bits == kNumberedRegisterBits;
        const auto take = [](void *context, const ast_field_t *each) {
            auto &description = *static_cast<Description *>(context);
            const std::string_view name = each->path;
            const size_t slash = name.find('/'); // behind the number of the register
            if (slash != std::string_view::npos && may_have_value(*each))
                description.add(description.register_ + std::string(name.substr(slash)), *each);
        };
        for (uint32_t bds = 0; bds < kRegisters; ++bds)
            if (is_any || bds == kResolutionAdvisory) ast_bds_describe(bds, take, this);
        if (is_any) add(path + "/octets", octets_field("Octets of a register whose fields are not known"));
    }

    void add(const std::string &path, const ast_field_t &field) {
        const auto known = std::ranges::find(all_, path, &Described::path);
        if (known == all_.end())
            all_.push_back({path, head_of(field)});
        else
            widen(known->head, head_of(field));
    }

    ast_dataitem_type_t type_ = 0;
    std::string register_; // the path of the one at hand
    std::vector<Described> all_;
};

// "I040" of "I048/040", and "REF".
std::string item_name(ast_dataitem_type_t type) {
    const std::string reference = ast_dataitem_type_to_str(type);
    const std::string name = reference.substr(reference.find('/') + 1);
    return is_digit(name[0]) ? 'I' + name : name;
}

// The place of the child of a step of a path, "/NAME" or "[]", which is taken off.
uint16_t descend(ColumnHead *&head, std::string_view &path) {
    std::string name = "element";
    head->type = path[0] == '[' ? ColumnType::list : ColumnType::structure;
    const size_t end = path[0] == '[' ? 2 : std::min(path.find_first_of("/[", 1), path.size());
    if (path[0] == '/') name = path.substr(1, end - 1);
    path.remove_prefix(end);
    auto child = std::ranges::find(head->children, name, &ColumnHead::name);
    if (child == head->children.end())
        child = head->children.insert(child, ColumnHead{.name = name, .type = ColumnType::structure});
    const auto place = static_cast<uint16_t>(child - head->children.begin());
    head = &*child;
    return place;
}

// Whether a path of a value is that of a leaf, and which elements of lists it means.
bool matches(std::string_view leaf, std::string_view path, uint64_t *elements) {
    size_t at = 0;
    for (size_t i = 0; i < leaf.size(); ++i, ++at) {
        if (at == path.size() || leaf[i] != path[at]) return false;
        if (leaf[i] != '[') continue;
        uint64_t element = 0;
        while (path[++at] != ']') element = element * 10 + static_cast<uint64_t>(path[at] - '0');
        *elements++ = element;
        ++i;
    }
    return at == path.size();
}

} // namespace

ColumnHead head_of(const ast_field_t &field) {
    ColumnHead head{
        .name = "", .type = type_of(field), .unit = field.unit, .title = field.title, .codes = codes_of(field)};
    if (head.type != ColumnType::float64) return head;
    head.form = CellForm::published;
    head.decimals = decimals_of(field.numerator, field.denominator);
    return head;
}

void widen(ColumnHead &head, const ColumnHead &other) {
    if (head.type != other.type)
        head.type = head.type == ColumnType::text || other.type == ColumnType::text         ? ColumnType::text
                    : head.type == ColumnType::float64 || other.type == ColumnType::float64 ? ColumnType::float64
                                                                                            : ColumnType::int64;
    if (head.type == ColumnType::float64) head.form = CellForm::published;
    head.decimals = std::max(head.decimals, other.decimals);
    if (head.unit != other.unit) head.unit.clear();
    if (head.codes != other.codes) head.codes.clear();
}

void set_value(Column &column, uint64_t row, const ast_field_value_t &value) {
    const double number = value.has_number ? value.number : static_cast<double>(value.raw);
    switch (column.head().type) {
    case ColumnType::int32:
        return column.set(row, static_cast<int32_t>(number));
    case ColumnType::int64:
        return column.set(row, static_cast<int64_t>(number));
    case ColumnType::float64:
        return column.set(row, number);
    case ColumnType::text: {
        const std::string_view text = value.text;
        if (is_text(*value.field)) return column.set_text(row, text.substr(0, text.find_last_not_of(' ') + 1));
        TextBuffer digits;
        digits.number(value.raw);
        return column.set_text(row, digits.text());
    }
    default:
        return;
    }
}

ItemFields::ItemFields(std::vector<ast_dataitem_type_t> types)
    : types_(std::move(types)), head_{.name = item_name(types_.front()), .type = ColumnType::structure} {
    const Description description(types_);
    for (const Described &each : description.all()) {
        Leaf leaf{.path = each.path, .way = {}};
        ColumnHead *head = &head_;
        const std::string place = description.place_of(each);
        for (std::string_view rest = place; !rest.empty();) leaf.way.push_back(descend(head, rest));
        std::string name = std::move(head->name);
        *head = each.head;
        head->name = std::move(name);
        leaves_.push_back(std::move(leaf));
    }
}

// Takes the values of an item, which come in the order of its leaves, but for lists, which begin anew.
class ItemFields::Filling {
public:
    Filling(const std::vector<Leaf> &leaves, Column &column, uint64_t row)
        : leaves_(leaves), column_(column), row_(row) {}

    void take(const ast_field_value_t &value) {
        const std::string_view path = std::string_view(value.field->path).substr(kItemReference);
        for (size_t tries = 0; tries < leaves_.size(); ++tries) {
            const Leaf &leaf = leaves_[next_];
            next_ = next_ + 1 < leaves_.size() ? next_ + 1 : 0;
            if (matches(leaf.path, path, elements_)) return put(leaf, value);
        }
    }

private:
    static constexpr size_t kLevels = 16; // more than any item has

    void put(const Leaf &leaf, const ast_field_value_t &value) {
        Column *column = &column_;
        uint64_t row = row_;
        const uint64_t *element = elements_;
        for (const uint16_t place : leaf.way) {
            if (column->head().type == ColumnType::list)
                row = column->place_of(row, *element++);
            else
                column->set_structure(row);
            column = &column->child(place);
        }
        set_value(*column, row, value);
    }

    const std::vector<Leaf> &leaves_;
    Column &column_;
    uint64_t row_;
    size_t next_ = 0;
    uint64_t elements_[kLevels];
};

void ItemFields::set(Column &column, uint64_t row, const ast_dataitem_t &item, const ast_datarecord_t &record) const {
    Filling filling(leaves_, column, row);
    const auto take = [](void *context, const ast_field_value_t *value) {
        static_cast<Filling *>(context)->take(*value);
    };
    ast_dataitem_walk(&item, record.uap, message_type_of(record), take, &filling);
}

std::vector<ItemFields> items_of(uint32_t category) {
    std::map<std::string, std::vector<ast_dataitem_type_t>> types; // by the name of the item
    for (uint32_t number = 0; number < kItems; ++number) {
        const ast_dataitem_type_t type = AST_DATAITEM_TYPE(category, number);
        types[item_name(type)].push_back(type);
    }
    std::vector<ItemFields> items;
    for (const auto &[name, of_item] : types) {
        ItemFields fields(of_item);
        if (fields.holds_any()) items.push_back(std::move(fields));
    }
    return items;
}

} // namespace ast::recording
