#include "page/page.hpp"

#include <cstdio>

#include "base/counted.hpp"
#include "page/page_chunk.hpp"
#include "page/page_parts.hpp"
#include "show/markup.hpp"
#include "show/terminal.hpp"
#include "show/write_file.hpp"

namespace ast::recording::astdump {

namespace {

std::string category_text(uint32_t category) {
    char text[8];
    std::snprintf(text, sizeof text, "%03u", category);
    return text;
}

std::string totals_row(const std::string &title, const Counts &counts) {
    std::string row = "<tr><th scope=\"row\">" + title + "</th>";
    for (const uint64_t number : {counts.blocks, counts.records, counts.items, counts.octets, counts.damaged})
        row += "<td>" + std::to_string(number) + "</td>";
    return row + "</tr>\n";
}

} // namespace

Page::Page(const std::string &path, std::span<const std::string> inputs) : path_(path), file_(path, inputs) {
    file_.write(page_head());
}

std::unique_ptr<Renderer> Page::renderer() const { return std::make_unique<PageChunk>(); }

void Page::file(const std::string &name) { file_.write("<h2>" + escape(name) + "</h2>\n"); }

void Page::count(const Tally &tally) {
    for (const auto &[category, counts] : tally.categories) counts_[category] += counts;
    losses_ += tally.losses;
}

void Page::finish(uint64_t octets_read) {
    totals();
    file_.replace();
    tell_size(octets_read);
}

void Page::give_up() { tell(path_ + ": not written"); }

void Page::break_off() {
    totals();
    tell_part(file_);
}

void Page::totals() {
    file_.write("</main>\n<section class=\"numbers\" aria-label=\"Numbers by category\">\n<table "
                "class=\"totals\">\n<tr><th scope=\"col\">Category</th>"
                "<th scope=\"col\">Blocks</th><th scope=\"col\">Records</th><th scope=\"col\">Items</th>"
                "<th scope=\"col\">Octets</th><th scope=\"col\">Damaged</th></tr>\n");
    Counts total;
    for (uint32_t category = 0; category < counts_.size(); ++category) {
        if (counts_[category].blocks == 0) continue;
        file_.write(totals_row(category_text(category), counts_[category]));
        total += counts_[category];
    }
    file_.write(totals_row("all", total) + "</table>\n");
    if (losses_.any_damage()) file_.write("<p class=\"fault\">Lost: " + losses_.text() + "</p>\n");
    if (losses_.unsupported != 0) file_.write("<p>Not supported: " + counted(losses_.unsupported, "block") + "</p>\n");
    if (const std::string foreign = losses_.foreign_text(); !foreign.empty())
        file_.write("<p>Not ASTERIX: " + foreign + "</p>\n");
    file_.write("</section>\n</body></html>\n");
}

void Page::tell_size(uint64_t octets_read) const {
    std::string text = path_ + ": a page of " + counted(file_.written(), "octet");
    if (octets_read != 0) {
        char times[40];
        std::snprintf(times, sizeof times, ", %.1f times the recording",
                      static_cast<double>(file_.written()) / static_cast<double>(octets_read));
        text += times;
    }
    tell(text);
}

} // namespace ast::recording::astdump
