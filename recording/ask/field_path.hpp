// Published fields by their paths, "I070/MODE3A".
#pragma once

#include <array>
#include <ast.h>
#include <bitset>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ast::recording {

class FieldPath {
public:
    // "I070/MODE3A", of every category that has it, "048/I070/MODE3A" of that one, "I250[1]/MCP_ALT" of the second
    // element of a list, "I240" the item itself. Nothing for a text of another form. Throws std::invalid_argument for a
    // path that no edition of a category has.
    static std::optional<FieldPath> read(std::string_view text);

    // Whether a text has the form of a path, be it known or not.
    static bool has_form(std::string_view text);

    // What carries a value under this path, of all categories; none for what only holds others.
    const std::vector<ast_field_t> &fields() const { return fields_; }

    // The one category that the path names, if it does.
    std::optional<uint8_t> category() const { return category_; }

    bool is_in(const ast_datarecord_t &record) const;

    // Calls take(value) for each value of the record that the path names.
    template <typename Take>
    void each_value(const ast_datarecord_t &record, Take take) const {
        Visit<Take> visit{*this, take};
        walk(record, visit_value<Take>, &visit);
    }

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

    struct Resolver;
    void resolve(uint32_t category, const ast_uap_t &uap);
    Match match(std::string_view path) const;
    bool is_exactly(const char *path) const;

    // Of one category.
    auto types_of(uint32_t category) const {
        const size_t first = category % ends_.size() == 0 ? 0 : ends_[category % ends_.size() - 1];
        const ast_dataitem_type_t *const types = types_.data();
        return std::pair(types + first, types + ends_[category % ends_.size()]);
    }
    void walk(const ast_datarecord_t &record, ast_field_value_visitor_t visit, void *context) const;

    std::string path_; // as the library writes it, without the category: "070/MODE3A"
    bool names_item_ = false;
    bool chooses_ = false; // an element of a list, or all
    std::optional<uint8_t> category_;
    std::vector<ast_dataitem_type_t> types_; // items that have the field, sorted
    std::bitset<256> categories_;            // of these
    std::array<uint16_t, 256> ends_{};       // of those of a category, and of all before it
    std::vector<ast_field_t> fields_;
};

} // namespace ast::recording
