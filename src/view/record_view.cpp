// Records as HTML.

#include <algorithm>
#include <iterator>

#include "view/html.hpp"

using namespace ast;

void ast_datarecord_get_hex_html(char *text, uint64_t capacity, const ast_datarecord_t *record) {
    HtmlWriter html(text, capacity);
    if (record && record->valid) html.hex_table(record->data, record->size);
}

// A record that broke off shows the items before the fault.
void ast_datarecord_get_detail_html(char *text, uint64_t capacity, const ast_datarecord_t *record) {
    HtmlView view(text, capacity);
    if (!record) return;
    DetailTable table(view, "Dataitem", "Name", "Size", "Summary");
    const uint64_t count = std::min<uint64_t>(record->item_count, std::size(record->items));
    for (uint64_t i = 0; i < count; ++i) {
        const ast_dataitem_t &item = record->items[i];
        char summary[256];
        ast_dataitem_get_summary(summary, sizeof summary, &item);
        const auto row = [&](const auto &shown) {
            // A size of three digits shows its first two.
            table.row(ast_dataitem_type_to_str(item.type), ast_dataitem_get_name(item.type),
                      Cell<3>("%.2zu", static_cast<size_t>(item.size)), shown);
        };
        // Only a summary that quotes a received text has these characters of markup.
        const std::string_view line(summary);
        if (line.find_first_of("<&") == line.npos) [[likely]]
            row(line);
        else
            row(ReceivedText<sizeof summary>(line));
    }
}
