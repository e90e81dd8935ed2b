#include "page/page.hpp"

#include <cstdio>

#include "base/counted.hpp"
#include "base/printable.hpp"
#include "datagram/report_words.hpp"
#include "page/viewer.hpp"
#include "show/places_text.hpp"
#include "show/terminal.hpp"
#include "show/write_file.hpp"

namespace ast::recording::astdump {

namespace {

// More of them nobody reads one by one; the numbers of what is lost count all.
constexpr uint64_t kMostReports = 10'000;

// A string of JSON that may stand in an element of script, of any octets.
void put_string(TextBuffer &out, std::string_view text) {
    out.put('"');
    for (const char c : readable(text))
        if (c == '<')
            out.put("\\u003c");
        else if (c == '"' || c == '\\')
            out.put('\\'), out.put(c);
        else
            out.put(c);
    out.put('"');
}

// ,"name":"text"
void put_member(TextBuffer &out, std::string_view name, std::string_view text) {
    for (const std::string_view piece : {std::string_view(",\""), name, std::string_view("\":")}) out.put(piece);
    put_string(out, text);
}

const char *known_word(uint32_t known) {
    if (known == AST_SITE_GIVEN) return "given";
    return known == AST_SITE_LEARNT ? "learnt" : "worked out";
}

void put_site(TextBuffer &out, const ast_site_t &site) {
    char text[200];
    std::snprintf(
        text, sizeof text,
        "{\"sac\":%u,\"sic\":%u,\"latitude\":%.9g,\"longitude\":%.9g,\"height_m\":%.6g,\"standard_error_m\":%.6g",
        site.sac, site.sic, site.place.latitude_deg, site.place.longitude_deg, site.place.height_m,
        site.standard_error_m);
    out.put(text);
    put_member(out, "known", known_word(site.known));
    out.put('}');
}

// A page is passed on; where its recording stood on somebody's disk is not.
std::string_view last_part(std::string_view path) { return path.substr(path.rfind('/') + 1); }

// [one,other]
template <typename List, typename Put>
void put_list(TextBuffer &out, const List &list, Put put) {
    out.put('[');
    bool is_first = true;
    for (const auto &one : list) {
        if (!std::exchange(is_first, false)) out.put(',');
        put(out, one);
    }
    out.put(']');
}

} // namespace

Page::Page(const std::string &path, std::span<const std::string> inputs, Form form)
    : path_(path), inputs_(inputs), form_(form), file_((viewer_pieces(), path), inputs) {
    file_.write(viewer_pieces().begin);
}

std::unique_ptr<Renderer> Page::renderer() const {
    return std::make_unique<CarriedDatagrams>(form_.remainders, inputs_, sites_);
}

void Page::file(const std::string &name) {
    files_.push_back(name);
    sites_.begin_file();
    take(carried_file());
}

void Page::take(std::string_view rendered) {
    digits_.clear();
    base85_.put(digits_, rendered);
    file_.write(digits_);
}

void Page::note(std::string_view kind, std::string_view text) {
    if (report_count_++ >= kMostReports) return;
    if (report_count_ != 1) reports_.put(',');
    reports_.put("{\"file\":");
    put_string(reports_, files_.empty() ? std::string_view() : last_part(files_.back()));
    put_member(reports_, "kind", kind);
    put_member(reports_, "text", text);
    reports_.put('}');
}

void Page::report(const Report &report) {
    const ast_recording_report_t facts = report.facts();
    note(kind_word(facts.kind), words_of(facts).text);
}

void Page::doubt(const JudgedSource &source, const Judgement &judgement) {
    note(kind_word(AST_REPORT_NOTE), judgement_text(source, judgement));
}

std::string Page::about() const {
    TextBuffer out;
    out.put("{\"title\":");
    put_string(out, files_.size() == 1 ? last_part(files_.front()) : counted(files_.size(), "recording"));
    const auto put_name = [](TextBuffer &to, std::string_view path) { put_string(to, last_part(path)); };
    out.put(",\"files\":");
    put_list(out, files_, put_name);
    out.put(",\"inputs\":");
    put_list(out, inputs_, put_name);
    put_member(out, "lost", losses_.text());
    put_member(out, "not_supported", losses_.unsupported == 0 ? "" : counted(losses_.unsupported, "block"));
    put_member(out, "not_asterix", losses_.foreign_text());
    out.put(",\"report_count\":");
    out.number(report_count_);
    out.put(",\"reports\":[");
    out.put(reports_.text());
    out.put("],\"sites\":");
    const SiteMemory sites = sites_.sites();
    put_list(out, sites.list(), put_site);
    out.put('}');
    return std::string(out.text());
}

void Page::end() {
    const ViewerPieces pieces = viewer_pieces();
    take(carried_end());
    digits_.clear();
    base85_.end(digits_);
    for (const std::string_view piece : {std::string_view(digits_), pieces.between}) file_.write(piece);
    file_.write(about());
    file_.write(pieces.end);
}

void Page::finish(uint64_t octets_read) {
    end();
    file_.replace();
    tell_size(octets_read);
}

void Page::give_up() { tell(path_ + ": not written"); }

void Page::break_off() {
    end();
    tell_part(file_);
}

void Page::tell_size(uint64_t octets_read) const {
    std::string text = path_ + ": a page of " + counted(file_.written(), "octet");
    if (octets_read != 0) {
        char times[40];
        std::snprintf(times, sizeof times, ", %.2g times the recording",
                      static_cast<double>(file_.written()) / static_cast<double>(octets_read));
        text += times;
    }
    tell(text);
}

void write_viewer(const std::string &path) {
    const std::string_view page = viewer();
    viewer_pieces();
    OutputFile file(path, {});
    file.write(page);
    file.replace();
    tell(path + ": the viewer, " + counted(file.written(), "octet"));
}

} // namespace ast::recording::astdump
