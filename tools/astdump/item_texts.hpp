// The texts of items on the HTML page: those of items that differ once, and of items of one kind only what differs.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "item_views.hpp"
#include "text_buffer.hpp"

namespace astdump {

// Writes lines that begin with their kind and hold fields behind tabs:
//
//     T  type  name                              a type of items; types, shapes and items are counted from 0 each
//     S  pieces                                  a shape: the detail view of the first item that had it, as markup and
//                                                text in turn
//     D  type  octets  summary  shape  changes   an item; of the texts of its shape those that are different, each
//     behind
//                                                its place
//
// Texts are escaped.
class ItemTexts {
public:
    void clear();

    // The number of an item that is known already. One that is not gets the next number, and its lines are put.
    std::optional<size_t> find_or_put(TextBuffer &out, const ast_dataitem_t &item, const Reading &reading);

private:
    struct Shape {
        size_t number;
        std::vector<std::string> texts;
    };

    size_t type(TextBuffer &out, ast_dataitem_type_t type, const ast_uap_t &uap);
    const Shape &shape(TextBuffer &out);
    void read_detail(const ast_dataitem_t &item, const Reading &reading);
    void put_changes(TextBuffer &out, const Shape &shape) const;

    std::unordered_map<std::string, size_t> items_; // by type, reading and octets
    std::unordered_map<ast_dataitem_type_t, size_t> types_;
    std::unordered_map<std::string, Shape> shapes_; // by their markup
    ItemViews views_;

    // The detail view at hand: its markup, with a mark in the place of each text.
    std::string markup_;
    std::vector<std::string> texts_;
};

} // namespace astdump
