// The published values of an item as texts, for what the library has no view of.
#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "ask/published_reading.hpp"
#include "base/text_buffer.hpp"
#include "show/detail_sink.hpp"

namespace ast::recording::astdump {

using RegisterOctets = std::array<uint8_t, 7>;

// Both views are of the values below a path such as "I048/130/SRL", which is that of the item or begins with it, and
// empty where no document describes any.
class ItemValues {
public:
    // One line, "SPD:450 HDG:290". Flags that are clear are left out, and what would make the line too long.
    std::string summary(const ast_dataitem_t &item, const Reading &reading, std::string_view below);

    static void put_table(DetailSink &sink, const ast_dataitem_t &item, const Reading &reading, std::string_view below);

    // The value of a path, with its unit or the text of its code, where it is wanted; else empty.
    static std::string find(const ast_dataitem_t &item, const Reading &reading, std::string_view path,
                            const std::function<bool(const ast_field_value_t &value)> &wanted);

    // Puts the Mode S registers of an item, or of a subfield that holds nothing else: a list of them, where it is one,
    // then each with its octets and its fields. False, and nothing put, where there are none.
    bool put_registers(DetailSink &sink, const ast_dataitem_t &item, const Reading &reading, std::string_view below);

private:
    std::string word(const ast_field_value_t &value, std::string_view name);
    std::string brief_text(const ast_field_value_t &value, size_t most);

    TextBuffer scratch_;

    // The registers of the item at hand, and the rows of their fields: three cells each, by where they end.
    struct Register {
        uint32_t number;
        RegisterOctets octets;
        size_t first_row;
    };
    std::vector<Register> registers_;
    std::vector<std::array<size_t, 3>> row_ends_;
    TextBuffer rows_;
};

// The name of an item type: where the library knows none, the title that a document gives it.
std::string item_name(ast_dataitem_type_t type, const ast_uap_t &uap);

} // namespace ast::recording::astdump
