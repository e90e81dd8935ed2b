// The summaries and the detail views of items.
#pragma once

#include <ast.h>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "show/detail_sink.hpp"
#include "show/item_values.hpp"

namespace ast::recording::astdump {

// What the library writes as the summary of an item or subfield that it has none for.
constexpr std::string_view kNoSummary = "NOT_IMPLEMENTED";

// In its table of subfields the library cuts sizes to so many characters, and numbers: of two digits the first is
// shown.
constexpr size_t kSubfieldNumberChars = 1;
constexpr size_t kSubfieldSizeChars = 3;

// The library's views of an item, and the published values where it has none; of Mode S registers always.
class ItemViews {
public:
    // Whether the library shows items of a type by their subfields: an overview of them, then each by itself.
    static bool is_compound(ast_dataitem_type_t type) {
        return ast_dataitem_get_func(type).get_detail_html == ast_dataitem_subfields_get_detail_html;
    }

    // Good until the next call, and not made printable yet.
    std::string_view summary(const ast_dataitem_t &item, const Reading &reading);

    void detail(DetailSink &sink, const ast_dataitem_t &item, const Reading &reading);

    // The same for a subfield of a compound item, its detail without its title and bits.
    std::string subfield_summary(const ast_dataitem_t &item, const Reading &reading, uint32_t number);
    void subfield_detail(DetailSink &sink, const ast_dataitem_t &item, const Reading &reading, uint32_t number);

private:
    bool compound(DetailSink &sink, const ast_dataitem_t &item, const Reading &reading);

    // What the documents say of a type of items.
    struct Published {
        bool is_known = false;
        std::vector<std::string> subfields; // their paths by their numbers, empty for one that no document describes
        std::vector<std::string> registers; // the paths of Mode S registers, without the "[]" of a list
    };
    const Published &published(const ast_dataitem_t &item, const Reading &reading);
    const std::string &subfield_path(const ast_dataitem_t &item, const Reading &reading, uint32_t number);
    bool put_registers(DetailSink &sink, const ast_dataitem_t &item, const Reading &reading, std::string_view path);

    ItemValues values_;
    std::unordered_map<uint64_t, Published> published_; // by type and reading
    std::string line_ = std::string(4096, '\0');        // the library's summary
    std::string own_line_;
};

} // namespace ast::recording::astdump
