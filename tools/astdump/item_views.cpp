#include "item_views.hpp"

#include <algorithm>

#include "numbers.hpp"

namespace astdump {

namespace {

// What a view of a compound item is made of: a table of its subfields, and for each that is there a title, a table of
// its bits, an empty paragraph, and a view of its own if it has one.
constexpr std::string_view kCompound = "<h4>Primary Subfield</h4>";
constexpr std::string_view kTableEnd = "</table>";
constexpr std::string_view kCell = "<td>";
constexpr std::string_view kRowEnd = "</td></tr>";
constexpr std::string_view kIsThere = "<td>1</td>"; // the cell in front of the summary
constexpr std::string_view kSubfield = "<h4>Subfield #";
constexpr std::string_view kNoView = "<p></p>";

constexpr size_t kSummaryOctets = 64; // of a subfield, as the library cuts it in its table of them

constexpr std::string_view kSpare = "---"; // the id of subfields that there are not

// The fields that a compound item holds, without those inside them.
struct Members {
    size_t level; // characters of the item's path
    std::vector<std::string> paths{};

    static void take(void *context, const ast_field_t *field) {
        auto &members = *static_cast<Members *>(context);
        const std::string_view path = field->path;
        if (field->kind == AST_FIELD_SPARE || path.size() <= members.level) return;
        if (path.find_first_of("/[", members.level + 1) == std::string_view::npos) members.paths.emplace_back(path);
    }
};

// The published paths of the subfields of an item by their numbers, from 1 on. Their names differ from those of the
// library, but their order does not; empty for a spare one, and where the document has fewer.
std::vector<std::string> subfield_paths(ast_dataitem_type_t type, const ast_uap_t &uap) {
    Members members{std::string_view(ast_dataitem_type_to_str(type)).size()};
    ast_dataitem_describe(type, uap, Members::take, &members);
    std::vector<std::string> paths(1 + ast_dataitem_subfields_get_number(type));
    auto next = members.paths.begin();
    for (uint32_t number = 1; number < paths.size() && next != members.paths.end(); ++number)
        if (ast_subfield_get_id(AST_SUBFIELD_TYPE(type, number)) != kSpare) paths[number] = std::move(*next++);
    return paths;
}

} // namespace

struct ItemViews::Subject {
    const ast_dataitem_t &item;
    const Reading &reading;
    ItemValues &values;
    std::vector<std::string> paths{}; // of subfields, as soon as one of them is asked for

    // Either view of a subfield; empty for one that no document describes.
    std::string subfield(uint32_t number, std::string (ItemValues::*view)(std::string_view) const) {
        if (paths.empty()) {
            paths = subfield_paths(item.type, reading.uap);
            values.read(item, reading);
        }
        return number >= paths.size() || paths[number].empty() ? std::string() : (values.*view)(paths[number]);
    }
};

std::string_view ItemViews::value_summary(const ast_dataitem_t &item, const Reading &reading) {
    values_.read(item, reading);
    text_ = values_.summary(ast_dataitem_type_to_str(item.type));
    return text_;
}

std::string_view ItemViews::detail(const ast_dataitem_t &item, const Reading &reading) {
    std::string_view html = views_.show(ast_dataitem_get_detail_html, item);
    if (html.empty()) {
        values_.read(item, reading);
        text_ = values_.table(ast_dataitem_type_to_str(item.type));
        return text_;
    }
    if (!html.starts_with(kCompound)) return html;
    Subject subject{item, reading, values_};
    text_.clear();
    const size_t table = std::min(html.find(kTableEnd), html.size());
    complete_table(html.substr(0, table), subject);
    complete_subfields(html.substr(table), subject);
    return text_;
}

std::string ItemViews::subfield_summary(const ast_dataitem_t &item, const Reading &reading, uint32_t number) {
    char text[kSummaryOctets];
    ast_subfield_get_summary(text, sizeof text, &item, AST_SUBFIELD_TYPE(item.type, number));
    const std::string summary = text;
    if (!summary.empty() && summary != kNoSummary) return summary;
    const std::string own = Subject{item, reading, values_}.subfield(number, &ItemValues::summary);
    return own.empty() ? summary : own;
}

std::string ItemViews::subfield_detail(const ast_dataitem_t &item, const Reading &reading, uint32_t number) {
    const auto view = [&](char *to, uint64_t capacity, const ast_dataitem_t *of) {
        ast_subfield_get_detail_html(to, capacity, of, AST_SUBFIELD_TYPE(of->type, number));
    };
    const std::string_view html = views_.show(view, item);
    return html.empty() ? Subject{item, reading, values_}.subfield(number, &ItemValues::table) : std::string(html);
}

// Takes the table of subfields, with summaries where those that are there have none. A row stands for each number.
void ItemViews::complete_table(std::string_view table, Subject &subject) {
    for (uint32_t number = 1;; ++number) {
        const size_t end = table.find(kRowEnd);
        if (end == std::string_view::npos) break;
        const std::string_view cells = table.substr(0, table.rfind(kCell, end));
        const std::string_view summary = table.substr(cells.size(), end - cells.size()).substr(kCell.size());
        const bool is_missing = cells.ends_with(kIsThere) && (summary.empty() || summary == kNoSummary);
        const std::string own = is_missing ? subject.subfield(number, &ItemValues::summary) : std::string();
        text_.append(cells).append(kCell).append(own.empty() ? summary : own).append(kRowEnd);
        table.remove_prefix(end + kRowEnd.size());
    }
    text_.append(table);
}

// Takes the views of the subfields that are there, with tables behind those that are empty.
void ItemViews::complete_subfields(std::string_view html, Subject &subject) {
    while (!html.empty()) {
        const std::string_view section = html.substr(0, html.find(kSubfield, 1));
        text_.append(section);
        html.remove_prefix(section.size());
        if (!section.starts_with(kSubfield) || !section.ends_with(kNoView)) continue;
        const std::string_view title = section.substr(kSubfield.size());
        const auto number = read_number<uint32_t>(title.substr(0, title.find(' ')));
        text_.append(subject.subfield(number.value_or(0), &ItemValues::table));
    }
}

} // namespace astdump
