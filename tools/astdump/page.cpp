#include "page.hpp"

#include <cerrno>
#include <cstring>
#include <stdexcept>

#include "markup.hpp"
#include "pack.hpp"
#include "page_parts.hpp"
#include "text.hpp"

namespace astdump {

namespace {

std::string category_text(uint32_t category) {
    char text[8];
    std::snprintf(text, sizeof text, "%03u", category);
    return text;
}

std::string span(const char *css_class, const std::string &html) {
    return std::string("<span class=\"") + css_class + "\">" + html + "</span>";
}

std::string route(const Endpoints &endpoints) {
    return escape(endpoint_text(endpoints.source) + " > " + endpoint_text(endpoints.destination));
}

// The line of a block that is always shown.
std::string block_line(const DecodedBlock &decoded) {
    const Datagram &datagram = *decoded.datagram;
    std::string line = span("number", '#' + std::to_string(decoded.number));
    line += span("category", category_text(decoded.block->category));
    if (datagram.time) line += span("time", time_text(*datagram.time));
    line +=
        span("counts", counted(decoded.block->record_count, "record") + ", " + counted(decoded.octets.size(), "octet"));
    line += span("profile", std::string(decoded.profile));
    if (datagram.endpoints) line += span("route", route(*datagram.endpoints));
    if (decoded.fault) line += span("fault", "damaged");
    return line;
}

std::string totals_row(const std::string &title, const Counts &counts) {
    std::string row = "<tr><th scope=\"row\">" + title + "</th>";
    for (const uint64_t number : {counts.blocks, counts.records, counts.items, counts.octets, counts.invalid})
        row += "<td>" + std::to_string(number) + "</td>";
    return row + "</tr>\n";
}

} // namespace

Page::Page(const std::string &path) : path_(path), file_(std::fopen(path.c_str(), "w")) {
    if (!file_) fail();
    write(page_head());
}

void Page::file(const std::string &name) { write("<h2>" + escape(name) + "</h2>\n"); }

void Page::block(const DecodedBlock &decoded) {
    counts_[decoded.block->category] += count(decoded);
    write("<details class=\"block\" data-records=\"" + pack(inside_.html(decoded)) + "\"><summary>" +
          block_line(decoded) + "</summary></details>\n");
}

void Page::finish() {
    totals();
    if (std::fclose(file_.release()) != 0) fail();
}

void Page::totals() {
    write("</main>\n<header><h1>ASTERIX recording</h1>\n<table class=\"totals\">\n<tr><th scope=\"col\">Category</th>"
          "<th scope=\"col\">Blocks</th><th scope=\"col\">Records</th><th scope=\"col\">Items</th>"
          "<th scope=\"col\">Octets</th><th scope=\"col\">Damaged</th></tr>\n");
    Counts total;
    for (uint32_t category = 0; category < counts_.size(); ++category) {
        if (counts_[category].blocks == 0) continue;
        write(totals_row(category_text(category), counts_[category]));
        total += counts_[category];
    }
    write(totals_row("all", total) + "</table></header>\n</body></html>\n");
}

void Page::write(const std::string &html) {
    if (std::fwrite(html.data(), 1, html.size(), file_.get()) != html.size()) fail();
}

void Page::fail() const { throw std::runtime_error(path_ + ": " + std::strerror(errno)); }

} // namespace astdump
