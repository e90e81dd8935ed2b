#include "show/item_views.hpp"

#include <algorithm>
#include <vector>

#include "show/published_beside.hpp"

namespace ast::recording::astdump {

namespace {

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
    std::vector<std::string> paths(1 + static_cast<size_t>(ast_dataitem_subfields_get_number(type)));
    auto next = members.paths.begin();
    for (uint32_t number = 1; number < paths.size() && next != members.paths.end(); ++number)
        if (ast_subfield_get_id(AST_SUBFIELD_TYPE(type, number)) != kSpare) paths[number] = std::move(*next++);
    return paths;
}

} // namespace

const ItemViews::Published &ItemViews::published(const ast_dataitem_t &item, const Reading &reading) {
    Published &known = published_[uint64_t{item.type} << 32 | reading.number];
    if (known.is_known) return known;
    known = {true, subfield_paths(item.type, reading.uap), {}};
    const auto take = [](void *registers, const ast_field_t *field) {
        if (field->kind != AST_FIELD_REGISTER) return;
        const std::string_view path = field->path;
        static_cast<std::vector<std::string> *>(registers)->emplace_back(path.substr(0, path.find('[')));
    };
    ast_dataitem_describe(item.type, reading.uap, take, &known.registers);
    return known;
}

const std::string &ItemViews::subfield_path(const ast_dataitem_t &item, const Reading &reading, uint32_t number) {
    static const std::string kNone;
    const auto &paths = published(item, reading).subfields;
    return number < paths.size() ? paths[number] : kNone;
}

bool ItemViews::put_registers(DetailSink &sink, const ast_dataitem_t &item, const Reading &reading,
                              std::string_view path) {
    const auto &registers = published(item, reading).registers;
    return std::ranges::find(registers, path) != registers.end() && values_.put_registers(sink, item, reading, path);
}

// Views cut their text at the capacity, so one that fills it is asked again with more.
std::string_view ItemViews::summary(const ast_dataitem_t &item, const Reading &reading) {
    std::string_view text;
    for (;; line_.resize(2 * line_.size())) {
        ast_dataitem_get_summary(line_.data(), line_.size(), &item);
        text = line_.c_str();
        if (text.size() + 1 < line_.size()) break;
    }
    text = text.substr(0, text.find_last_not_of(' ') + 1);
    if (!text.empty() && text != kNoSummary) return text;
    own_line_ = values_.summary(item, reading, ast_dataitem_type_to_str(item.type));
    return own_line_;
}

void ItemViews::detail(DetailSink &sink, const ast_dataitem_t &item, const Reading &reading) {
    if (is_compound(item.type) && compound(sink, item, reading)) return;
    const std::string path = ast_dataitem_type_to_str(item.type);
    if (put_registers(sink, item, reading, path)) return;
    PublishedBeside beside(sink, item, reading);
    DetailSink &taker = PublishedBeside::concerns(item.type) ? beside : sink;
    if (taker.take_item(item)) return;
    ItemValues::put_table(sink, item, reading, path);
}

std::string ItemViews::subfield_summary(const ast_dataitem_t &item, const Reading &reading, uint32_t number) {
    char text[kSummaryOctets];
    ast_subfield_get_summary(text, sizeof text, &item, AST_SUBFIELD_TYPE(item.type, number));
    const std::string summary = text;
    if (!summary.empty() && summary != kNoSummary) {
        const char *const id = ast_subfield_get_id(AST_SUBFIELD_TYPE(item.type, number));
        const std::string both = PublishedBeside::both(item, reading, texts(id, summary));
        return both.empty() ? summary : both;
    }
    const std::string &path = subfield_path(item, reading, number);
    const std::string own = path.empty() ? std::string() : values_.summary(item, reading, path);
    return own.empty() ? summary : own;
}

void ItemViews::subfield_detail(DetailSink &sink, const ast_dataitem_t &item, const Reading &reading, uint32_t number) {
    const std::string &path = subfield_path(item, reading, number);
    if (put_registers(sink, item, reading, path)) return;
    PublishedBeside beside(sink, item, reading);
    DetailSink &taker = PublishedBeside::concerns(item.type) ? beside : sink;
    if (taker.take_subfield(item, number) || path.empty()) return;
    ItemValues::put_table(sink, item, reading, path);
}

// As the library shows it, with summaries and tables of published values where it has none.
bool ItemViews::compound(DetailSink &sink, const ast_dataitem_t &item, const Reading &reading) {
    const ast_subfields_t split = ast_dataitem_subfields_decode(&item);
    if (!split.valid) return false;
    sink.title(texts("Primary Subfield"));
    sink.table_begin(texts("Subfield", "ID", "Name", "Size", "Existing", "Summary"));
    for (uint32_t number = 1; number <= split.subfield_count; ++number) {
        const ast_subfield_t &subfield = split.subfields[number - 1];
        const std::string summary = subfield.present ? subfield_summary(item, reading, number) : std::string();
        sink.row(texts(std::to_string(number).substr(0, kSubfieldNumberChars), ast_subfield_get_id(subfield.type),
                       ast_subfield_get_name(subfield.type),
                       std::to_string(subfield.size).substr(0, kSubfieldSizeChars), subfield.present ? "1" : "0",
                       summary));
    }
    sink.table_end();
    for (uint32_t number = 1; number <= split.subfield_count; ++number) {
        const ast_subfield_t &subfield = split.subfields[number - 1];
        if (!subfield.present) continue;
        sink.title(texts("Subfield #", std::to_string(number), " - ", ast_subfield_get_name(subfield.type)));
        if (subfield.data && subfield.size != 0) sink.bits(Octets(subfield.data, subfield.size));
        sink.paragraph(texts(""));
        subfield_detail(sink, item, reading, number);
    }
    return true;
}

} // namespace ast::recording::astdump
