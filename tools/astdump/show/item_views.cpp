#include "show/item_views.hpp"

#include <algorithm>

#include "base/numbers.hpp"

namespace ast::recording::astdump {

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

std::string_view Views::summary(const ast_dataitem_t &item) {
    const std::string_view text = show(ast_dataitem_get_summary, item);
    if (text == kNoSummary) return {};
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

struct ItemViews::Subject {
    const ast_dataitem_t &item;
    const Reading &reading;
    std::vector<std::string> paths{}; // of subfields, as soon as one of them is asked for

    // Empty for a subfield that no document describes.
    std::string_view path(uint32_t number) {
        if (paths.empty()) paths = subfield_paths(item.type, reading.uap);
        return number < paths.size() ? paths[number] : std::string_view();
    }
};

std::string_view ItemViews::value_summary(const ast_dataitem_t &item, const Reading &reading) {
    line_ = values_.summary(item, reading, ast_dataitem_type_to_str(item.type));
    return line_;
}

std::string_view ItemViews::detail(const ast_dataitem_t &item, const Reading &reading) {
    std::string_view html = views_.show(ast_dataitem_get_detail_html, item);
    if (!html.empty() && !html.starts_with(kCompound)) return html;
    text_.clear();
    if (html.empty()) {
        ItemValues::put_table(text_, item, reading, ast_dataitem_type_to_str(item.type));
    } else {
        Subject subject{item, reading};
        const size_t table = std::min(html.find(kTableEnd), html.size());
        complete_table(html.substr(0, table), subject);
        complete_subfields(html.substr(table), subject);
    }
    return text_.text();
}

std::string ItemViews::subfield_summary(const ast_dataitem_t &item, const Reading &reading, uint32_t number) {
    char text[kSummaryOctets];
    ast_subfield_get_summary(text, sizeof text, &item, AST_SUBFIELD_TYPE(item.type, number));
    const std::string summary = text;
    if (!summary.empty() && summary != kNoSummary) return summary;
    Subject subject{item, reading};
    const std::string own = own_summary(subject, number);
    return own.empty() ? summary : own;
}

std::string_view ItemViews::subfield_detail(const ast_dataitem_t &item, const Reading &reading, uint32_t number) {
    const auto view = [&](char *to, uint64_t capacity, const ast_dataitem_t *of) {
        ast_subfield_get_detail_html(to, capacity, of, AST_SUBFIELD_TYPE(of->type, number));
    };
    const std::string_view html = views_.show(view, item);
    if (!html.empty()) return html;
    text_.clear();
    Subject subject{item, reading};
    put_own_table(subject, number);
    return text_.text();
}

std::string_view ItemViews::subfield_section(const ast_dataitem_t &item, const Reading &reading, uint32_t number) {
    const std::string_view html = subfield_detail(item, reading, number);
    if (!html.ends_with(kNoView)) return html;
    text_.clear();
    text_.put(html);
    Subject subject{item, reading};
    put_own_table(subject, number);
    return text_.text();
}

std::string ItemViews::own_summary(Subject &subject, uint32_t number) {
    const std::string_view path = subject.path(number);
    return path.empty() ? std::string() : values_.summary(subject.item, subject.reading, path);
}

void ItemViews::put_own_table(Subject &subject, uint32_t number) {
    const std::string_view path = subject.path(number);
    if (!path.empty()) ItemValues::put_table(text_, subject.item, subject.reading, path);
}

// Takes the table of subfields, with summaries where those that are there have none. A row stands for each number.
void ItemViews::complete_table(std::string_view table, Subject &subject) {
    for (uint32_t number = 1;; ++number) {
        const size_t end = table.find(kRowEnd);
        if (end == std::string_view::npos) break;
        const std::string_view cells = table.substr(0, table.rfind(kCell, end));
        const std::string_view summary = table.substr(cells.size(), end - cells.size()).substr(kCell.size());
        const bool is_missing = cells.ends_with(kIsThere) && (summary.empty() || summary == kNoSummary);
        const std::string own = is_missing ? own_summary(subject, number) : std::string();
        for (const std::string_view piece : {cells, kCell, own.empty() ? summary : std::string_view(own), kRowEnd})
            text_.put(piece);
        table.remove_prefix(end + kRowEnd.size());
    }
    text_.put(table);
}

// Takes the views of the subfields that are there, with tables behind those that are empty.
void ItemViews::complete_subfields(std::string_view html, Subject &subject) {
    while (!html.empty()) {
        const std::string_view section = html.substr(0, html.find(kSubfield, 1));
        text_.put(section);
        html.remove_prefix(section.size());
        if (!section.starts_with(kSubfield) || !section.ends_with(kNoView)) continue;
        const std::string_view title = section.substr(kSubfield.size());
        const auto number = read_number<uint32_t>(title.substr(0, title.find(' ')));
        put_own_table(subject, number.value_or(0));
    }
}

} // namespace ast::recording::astdump
