#include "page.hpp"

#include <cerrno>
#include <cinttypes>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <stdexcept>
#include <unistd.h>

#include "markup.hpp"
#include "page_chunk.hpp"
#include "page_parts.hpp"
#include "terminal.hpp"

namespace astdump {

namespace {

constexpr mode_t kMode = 0666; // less what the user's mask takes away

std::string category_text(uint32_t category) {
    char text[8];
    std::snprintf(text, sizeof text, "%03u", category);
    return text;
}

std::string totals_row(const std::string &title, const Counts &counts) {
    std::string row = "<tr><th scope=\"row\">" + title + "</th>";
    for (const uint64_t number : {counts.blocks, counts.records, counts.items, counts.octets, counts.invalid})
        row += "<td>" + std::to_string(number) + "</td>";
    return row + "</tr>\n";
}

} // namespace

Page::Page(const std::string &path)
    : path_(path),
      descriptor_(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kMode)),
      out_(descriptor_) {
    if (descriptor_ < 0) fail(errno);
    write(page_head());
}

Page::~Page() { ::close(descriptor_); }

std::unique_ptr<Renderer> Page::renderer() const { return std::make_unique<PageChunk>(); }

void Page::file(const std::string &name) { write("<h2>" + escape(name) + "</h2>\n"); }

void Page::count(const Tally &tally) {
    for (const auto &[category, counts] : tally.categories) counts_[category] += counts;
}

void Page::finish(uint64_t octets_read) {
    totals();
    tell_size(octets_read);
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

void Page::tell_size(uint64_t octets_read) const {
    clear_line();
    std::fprintf(stderr, "astdump: %s: a page of %" PRIu64 " octets", path_.c_str(), out_.written());
    if (octets_read != 0)
        std::fprintf(stderr, ", %.1f times the recording",
                     static_cast<double>(out_.written()) / static_cast<double>(octets_read));
    std::fputc('\n', stderr);
}

void Page::write(std::string_view html) {
    out_.write(html);
    if (out_.error() != 0) fail(out_.error());
}

void Page::fail(int error) const { throw std::runtime_error(path_ + ": " + std::strerror(error)); }

} // namespace astdump
