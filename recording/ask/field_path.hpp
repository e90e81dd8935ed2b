// Published fields by their paths, "I070/MODE3A".
#pragma once

#include <algorithm>
#include <array>
#include <ast.h>
#include <bitset>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ask/published_reading.hpp"

namespace ast::recording {

constexpr uint32_t kOctetsBits = 24; // from so many bits on, what is raw is octets

class FieldPath {
public:
    // "I070/MODE3A", of every category that has it, "I048/070/MODE3A" or "048/I070/MODE3A" of that one,
    // "I250[1]/MCP_ALT" of the second element of a list, "I240" the item itself. Nothing for a text of another form.
    // Throws std::invalid_argument for a path that no edition of a category has.
    static std::optional<FieldPath> read(std::string_view text);

    // Whether a text has the form of a path, be it known or not.
    static bool has_form(std::string_view text);

    // What carries a value under this path, of all categories; none for what only holds others.
    const std::vector<ast_field_t> &fields() const { return fields_; }

    // The category of each of these.
    const std::vector<uint8_t> &categories_of_fields() const { return categories_of_fields_; }

    // Whether a record may have several values under it, the elements of a list.
    bool names_lists() const;

    // The one category that the path names, if it does.
    std::optional<uint8_t> category() const { return category_; }

    bool is_in(const ast_datarecord_t &record) const;

    // Calls take(value) for each value of the record that the path names; codes may come without their texts.
    template <typename Take>
    void each_value(const ast_datarecord_t &record, Take take) const {
        Visit<Take> visit{*this, take};
        const auto take_any = [](void *context, const ast_field_value_t *value) {
            static_cast<Visit<Take> *>(context)->take(*value);
        };
        each_item(record, [&](const ast_dataitem_t &item, size_t type) {
            const Known *const known = known_of(type, record.uap);
            if (known && known->is_plain) {
                ast_field_value_t value{.field = &known->field, .raw = 0, .has_number = true, .number = 0, .text = ""};
                if (!ast_dataitem_get_bits(&item, known->places.data(), &value.raw)) return;
                value.number = number_of(known->field, value.raw);
                return take(value);
            }
            const uint32_t message_type = message_type_of(record);
            if (known)
                ast_dataitem_read_field(&item, record.uap, message_type, known->places.data(),
                                        static_cast<uint32_t>(known->places.size()), take_any, &visit);
            else
                ast_dataitem_walk(&item, record.uap, message_type, visit_value<Take>, &visit);
        });
    }

    // Shows the same values to change(value, raw), which may take other bits for raw and returns whether these are to
    // be written, into the record's own octets or a copy. Returns how many have been written.
    template <typename Change>
    uint64_t change_values(const ast_datarecord_t &record, uint8_t *octets, Change change) const {
        Visit<Change> visit{*this, change};
        const auto show = [](void *context, const ast_field_value_t *value, uint64_t *raw) {
            const auto &[path, decide] = *static_cast<Visit<Change> *>(context);
            return path.is_exactly(value->field->path) && decide(*value, *raw);
        };
        uint64_t written = 0;
        each_item(record, [&](const ast_dataitem_t &item, size_t) {
            written += ast_dataitem_change_values(octets + (item.data - record.data), &item, record.uap,
                                                  message_type_of(record), show, &visit);
        });
        return written;
    }

    // Whether records of a category can have the field.
    bool is_of(uint32_t category) const { return categories_.test(category % categories_.size()); }

private:
    template <typename Take>
    struct Visit {
        const FieldPath &path;
        Take &take;
    };

    // What a path is made of: "48", "I070/MODE3A", "070".
    struct Parts;
    static std::optional<Parts> split(std::string_view text);

    enum class Match { none, within, exact };

    template <typename Take>
    static void visit_value(void *context, const ast_field_value_t *value) {
        const auto &visit = *static_cast<Visit<Take> *>(context);
        if (visit.path.is_exactly(value->field->path)) visit.take(*value);
    }

    // Where the field stands in items of a type as a profile has them.
    struct Known {
        decltype(ast_uap_t::get_dataitem) profile;
        std::vector<ast_field_place_t> places;
        bool is_plain;     // one number whose place does not vary,
        ast_field_t field; // which is this field
    };
    // By profile, the newest first, but where all profiles agree.
    struct Places {
        bool is_same_for_all = false;
        std::vector<Known> by_profile;
    };

    void take(const ast_field_t &field, std::string_view name, uint32_t category, bool &any);
    void resolve(uint32_t category, const ast_uap_t &uap);
    void find_places();
    static double number_of(const ast_field_t &field, uint64_t raw); // in its unit
    Known find_known(ast_dataitem_type_t type, const ast_uap_t &uap) const;
    const Known *known_of(size_t type, const ast_uap_t &uap) const {
        if (chooses_) return nullptr;
        const Places &places = places_[type];
        for (const Known &known : places.by_profile)
            if (places.is_same_for_all || known.profile == uap.get_dataitem) return &known;
        return nullptr;
    }
    Match match(std::string_view path) const;
    bool is_exactly(const char *path) const;

    // Of one category.
    auto types_of(uint32_t category) const {
        const size_t first = category % ends_.size() == 0 ? 0 : ends_[category % ends_.size() - 1];
        const ast_dataitem_type_t *const types = types_.data();
        return std::pair(types + first, types + ends_[category % ends_.size()]);
    }

    // Calls visit(item, type) for the items that may have the field; `type` counts those of types_.
    template <typename Visitor>
    void each_item(const ast_datarecord_t &record, Visitor visit) const {
        if (!categories_.test(record.category % categories_.size())) return;
        const auto [first, last] = types_of(record.category);
        const bool is_one_type = last - first == 1; // as a rule, and no record has an item twice
        for (uint64_t i = 0; i < record.item_count; ++i) {
            const ast_dataitem_t &item = record.items[i];
            if (item.type != *first && is_one_type) continue;
            const ast_dataitem_type_t *const type = is_one_type ? first : std::find(first, last, item.type);
            if (type == last) continue;
            visit(item, static_cast<size_t>(type - types_.data()));
            if (is_one_type) return;
        }
    }

    std::string path_; // as the library writes it, without the category: "070/MODE3A"
    bool names_item_ = false;
    bool chooses_ = false; // an element of a list, or all
    std::optional<uint8_t> category_;
    std::vector<ast_dataitem_type_t> types_; // items that have the field, sorted
    std::bitset<256> categories_;            // of these
    std::array<uint16_t, 256> ends_{};       // of those of a category, and of all before it
    std::vector<Places> places_;             // of each type
    std::vector<std::string> names_;         // of the fields that the path means, as the library describes them
    std::vector<ast_field_t> fields_;
    std::vector<uint8_t> categories_of_fields_;
};

} // namespace ast::recording
