#include "columns/report_rows.hpp"

#include "datagram/report_words.hpp"

namespace ast::recording {

namespace {

struct ReportColumn {
    const char *name;
    const char *title;
    ColumnType type;
    void (*put)(Column &column, uint64_t row, const ast_recording_report_t &report, const ReportWords &words);
};

void put_number(Column &column, uint64_t row, uint64_t number) { column.set(row, static_cast<int64_t>(number)); }

constexpr ReportColumn kColumns[] = {
    {"file", "Name of the input", ColumnType::text,
     [](Column &column, uint64_t row, const auto &report, const auto &) { column.set_text(row, report.file); }},
    {"packet", "Number of the packet in the capture", ColumnType::int64,
     [](Column &column, uint64_t row, const auto &report, const auto &) {
         if (report.packet != 0) put_number(column, row, report.packet);
     }},
    {"offset", "Of the first octet, in the file or in the datagram", ColumnType::int64,
     [](Column &column, uint64_t row, const auto &report, const auto &) {
         if (report.offset != AST_OFFSET_NONE) put_number(column, row, report.offset);
     }},
    {"line", "Number of the line", ColumnType::int64,
     [](Column &column, uint64_t row, const auto &report, const auto &) {
         if (report.line != 0) put_number(column, row, report.line);
     }},
    {"category", "Category of the block", ColumnType::int32,
     [](Column &column, uint64_t row, const auto &report, const auto &) {
         if (report.category != 0) column.set(row, static_cast<int32_t>(report.category));
     }},
    {"kind", "What the report means", ColumnType::text,
     [](Column &column, uint64_t row, const auto &report, const auto &) {
         column.set_text(row, kind_word(report.kind));
     }},
    {"damaged", "Whether something is lost", ColumnType::boolean,
     [](Column &column, uint64_t row, const auto &report, const auto &) {
         column.complete(row);
         column.add_flags(1, 1, report.kind == AST_REPORT_DAMAGED);
     }},
    {"count", "What is reported at once", ColumnType::int64,
     [](Column &column, uint64_t row, const auto &report, const auto &) { put_number(column, row, report.count); }},
    {"octets", "Octets that are known to be lost", ColumnType::int64,
     [](Column &column, uint64_t row, const auto &report, const auto &) { put_number(column, row, report.octets); }},
    {"reason", "What reports of the same cause have in common", ColumnType::text,
     [](Column &column, uint64_t row, const auto &, const auto &words) { column.set_text(row, words.cause); }},
    {"text", "The whole report", ColumnType::text,
     [](Column &column, uint64_t row, const auto &, const auto &words) { column.set_text(row, words.text); }},
};

} // namespace

std::vector<ColumnHead> report_heads() {
    std::vector<ColumnHead> heads;
    for (const ReportColumn &each : kColumns)
        heads.push_back({.name = each.name, .type = each.type, .title = each.title});
    return heads;
}

void add_report(Batch &batch, const Report &report, const std::string &file) {
    ast_recording_report_t facts = report.facts();
    if (!facts.file) facts.file = file.c_str();
    const ReportWords words = words_of(facts);
    for (size_t i = 0; i < batch.columns.size(); ++i) kColumns[i].put(batch.columns[i], batch.rows, facts, words);
    ++batch.rows;
}

} // namespace ast::recording
