// The texts of items on the HTML page: those of items that differ once, and of items of one kind only what differs.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>

#include "base/text_buffer.hpp"
#include "page/view_shapes.hpp"
#include "show/item_views.hpp"

namespace ast::recording::astdump {

// Writes lines that begin with their kind and hold fields behind tabs:
//
//     T  type  name  subfields                    a type of items; types, shapes, subfields and items are counted from
//                                                 0 each. Of a compound one the ids and names of its subfields in turn
//     S  pieces                                   a shape, as ViewShapes has it
//     P  octets  summary  shape  changes          a subfield: how many octets it has, and its view
//     D  type  octets  summary  shape  changes    an item
//     C  type  octets  summary  count  subfields  a compound item: how many subfields it has a bit for, and each that
//                                                 is there as place:number; a blank number is the next that is new
//
// Texts are escaped.
class ItemTexts {
public:
    void clear();

    // The number of an item that is known already. One that is not gets the next number, and its lines are put.
    std::optional<size_t> find_or_put(TextBuffer &out, const ast_dataitem_t &item, const Reading &reading);

private:
    // Of what has the same type and octets, and is read alike, each has the same number.
    class Numbers {
    public:
        void clear();

        struct Entry {
            size_t number;
            bool is_new;
        };
        Entry enter(uint32_t type, Octets octets, uint32_t reading);

        // One that nothing else has.
        size_t add() { return count_++; }

    private:
        std::unordered_map<std::string, size_t> known_;
        std::string key_;
        size_t count_ = 0;
    };
    struct Type {
        size_t number;
        bool is_compound;
    };

    const Type &find_or_put_type(TextBuffer &out, ast_dataitem_type_t type, const ast_uap_t &uap);
    bool put_compound(TextBuffer &out, const ast_dataitem_t &item, const Reading &reading);
    void put_subfield(TextBuffer &out, const ast_dataitem_t &item, const ast_subfield_t &subfield, uint32_t number,
                      const Reading &reading);

    Numbers items_;
    Numbers subfields_;
    std::unordered_map<ast_dataitem_type_t, Type> types_;
    ViewShapes shapes_;
    ItemViews views_;
    TextBuffer fields_;   // of the item at hand, before whose line those of what is in it stand
    TextBuffer subfield_; // the same of a subfield
};

} // namespace ast::recording::astdump
