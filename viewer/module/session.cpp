#include "module/session.hpp"

#include <algorithm>
#include <stdexcept>

#include "api/failure.hpp"
#include "api/open_options.hpp"
#include "base/json_value.hpp"
#include "base/printable.hpp"
#include "datagram/report_words.hpp"
#include "datagram/walk_chunk.hpp"
#include "source/given_sites.hpp"
#include "system/files.hpp"

namespace ast::viewer {

namespace {

constexpr size_t kChunkOctets = size_t{64} * 1024;

template <typename Take>
void each_part(std::string_view text, char separator, Take take) {
    while (!text.empty()) {
        const size_t size = std::min(text.find(separator), text.size());
        if (size != 0) take(text.substr(0, size));
        text.remove_prefix(std::min(size + 1, text.size()));
    }
}

uint8_t state_of(const DecodedBlock &decoded) {
    if (!decoded.fault) return AST_BLOCK_WHOLE;
    if (decoded.fault->kind == FaultKind::not_asterix) return AST_BLOCK_OTHER_TRAFFIC;
    return is_unsupported(decoded.fault->kind) ? AST_BLOCK_UNSUPPORTED : AST_BLOCK_DAMAGED;
}

std::string last_part(const std::string &path) { return path.substr(path.rfind('/') + 1); }

void check_access(const Origin &origin) {
    const std::error_code failure = system::check_readable(origin.path);
    if (failure) throw CannotOpen(code_of(failure), origin.name + ": " + failure.message());
}

} // namespace

// What the page asks for, as text, as long as it is read.
struct Session::Options {
    Options(std::string_view paths, std::string_view text) : given(read_json(text.empty() ? "{}" : text)) {
        if (given.kind != JsonValue::Kind::object) throw std::invalid_argument("options are no object");
        each_part(paths, '\n', [&](std::string_view path) { this->paths.emplace_back(path); });
        for (const std::string &path : this->paths) inputs.push_back(path.c_str());
        const ast_recording_options_t chosen{.framing = text_of("framing"),
                                             .profile = text_of("profile"),
                                             .categories = text_of("categories"),
                                             .ports = text_of("ports"),
                                             .hosts = text_of("hosts"),
                                             .from = text_of("from"),
                                             .to = text_of("to"),
                                             .merge = is_set("merge"),
                                             .reserved = {}};
        read = read_open_options(chosen);
        read.locates = true;
        if (const char *const sites = text_of("sites"))
            each_part(sites, ';', [&](std::string_view site) { read.sites.push_back(read_site(site)); });
        origins = origins_of(inputs, read);
        read.merge = read.merge && origins.size() > 1;
        for (size_t i = 0; i < origins.size(); ++i) names.push_back(origins[i].name = last_part(this->paths[i]));
        std::ranges::for_each(origins, check_access);
    }

    const char *text_of(const char *name) const {
        const JsonValue *const value = given.find(name);
        if (!value || value->kind == JsonValue::Kind::null) return nullptr;
        if (value->kind != JsonValue::Kind::text) throw std::invalid_argument(std::string(name) + " is no text");
        return value->text.c_str();
    }
    bool is_set(const char *name) const {
        const JsonValue *const value = given.find(name);
        return value && value->boolean;
    }

    JsonValue given;
    std::vector<std::string> paths;
    std::vector<std::string> names;
    std::vector<const char *> inputs;
    ReadOptions read;
    std::vector<Origin> origins;
};

struct Session::Walk {
    Session &session;

    static bool has_enough() { return false; }
    static Blocks skip(Octets) { return {0, 0}; }
    void report(const Report &report) { session.tell(report, session.inputs_.name(), false); }
    void no_block(const Datagram &datagram, uint64_t offset, const Frame &frame) {
        if (!datagram.is_told) report(framing_report(datagram, offset, frame));
    }
    void block(const Datagram &datagram, uint64_t number, uint64_t offset, Octets octets) {
        if (session.read_options_.categories.test(octets[0]))
            session.block(datagram, number, offset, octets);
        else
            session.decoder_.pass(octets);
    }
};

Session::Session(std::string_view paths, std::string_view options) : Session(Options(paths, options)) {}

Session::Session(const Options &options)
    : names_(options.names),
      read_options_(options.read),
      inputs_(options.origins, options.read, nullptr, *this),
      job_(kChunkOctets),
      json_lines_(recording::astdump::make_json_renderer(
          {.texts = false, .name_files = options.names.size() > 1, .remainders = true}, json_file_)) {}

// ---- Reading ----

void Session::opened(const std::string &, const Input &input) {
    framing_ = input.framing();
    file_octets_ = input.size().value_or(0);
}

void Session::failed(const InputFailure &failure) {
    Report report(AST_REPORT_UNREADABLE, AST_REASON_UNREADABLE);
    report.detail = failure.reason;
    const std::string name = last_part(failure.path);
    tell(report, name, false);
    if (!error_.empty()) return;
    error_code_ = code_of(failure.code);
    error_ = name + ": " + failure.reason;
}

void Session::announced(const std::string &) {}

uint32_t Session::read(uint32_t most_octets) {
    const uint32_t before = store_.size();
    columns_.clear();
    reports_.clear();
    octets_new_ = 0;
    while (!has_ended_ && (octets_new_ == 0 || octets_new_ < most_octets)) has_ended_ = !read_piece();
    for (const auto &[category, counts] : counter_.take().categories) counts_[category] += counts;
    return store_.size() - before;
}

// False when nothing is left.
bool Session::read_piece() {
    if (!is_open_) is_open_ = inputs_.open_next();
    if (!is_open_) return false;
    bool is_filled = false;
    inputs_.attempt([&] { is_filled = inputs_.fill(job_); });
    is_open_ = is_filled;
    if (!is_filled) {
        inputs_.close();
        return true;
    }
    octets_read_ = job_.chunk.consumed;
    decoder_.set_known(job_.known, job_.later);
    store_.begin_stretch(inputs_.place(), job_.known);
    Walk walk{*this};
    walk_chunk(job_.chunk, walk);
    return true;
}

uint16_t Session::file_of(const Datagram &datagram) const {
    return static_cast<uint16_t>(datagram.file ? inputs_.place_of(*datagram.file) : inputs_.place());
}

void Session::block(const Datagram &datagram, uint64_t number, uint64_t offset, Octets octets) {
    DecodedBlock &decoded = decoder_.decode(datagram, number, offset, octets);
    decoded.shown.set_all(decoded.block->record_count);
    const uint8_t state = state_of(decoded);
    const uint16_t file = file_of(datagram);
    columns_.block(decoded, store_.size(), state, file);
    store_.add(decoded, file, state, columns_.rows() - static_cast<uint32_t>(decoded.block->record_count));
    counter_.add(decoded);
    sites_ = *decoded.sites;
    octets_new_ += octets.size();
    if (decoded.fault) tell(fault_report(*decoded.fault, *decoded.block, datagram, offset), inputs_.name(), true);
}

void Session::tell(const Report &report, const std::string &file, bool has_block) {
    const ast_recording_report_t facts = report.facts();
    ReportWords words = words_of(facts);
    losses_.add(report);
    Cause &cause = causes_[{kind_word(facts.kind), words.cause}];
    cause.count += facts.count;
    cause.octets += facts.octets;
    reports_.push_back({.kind = kind_word(facts.kind),
                        .file = report.file ? *report.file : file,
                        .place = place_text(facts),
                        .text = std::move(words.text),
                        .cause = std::move(words.cause),
                        .facts = facts,
                        .block = has_block ? store_.size() - 1 : 0,
                        .has_block = has_block});
}

// ---- What is known ----

void Session::put_state(JsonWriter &out) const {
    out.object([&] {
        out.member("phase", !has_ended_ ? "reading" : error_.empty() ? "ended" : "failed");
        out.member("file", readable(inputs_.name()));
        out.member("framing", framing_);
        out.member("octets_read", octets_read_);
        out.member("file_octets", file_octets_);
        out.member("blocks", store_.size());
        out.member("rows", columns_.rows());
        out.member("memory", __builtin_wasm_memory_size(0) * size_t{65536});
        if (error_.empty()) return;
        out.key("error").object([&] {
            out.member("code", error_code_);
            out.member("text", readable(error_));
        });
    });
}

void Session::put_sources(JsonWriter &out) const {
    out.list([&] {
        for (const RowColumns::Source &source : columns_.sources())
            out.object([&] {
                out.member("category", source.category);
                if (!source.is_known) return;
                out.member("sac", source.sac);
                out.member("sic", source.sic);
            });
    });
}

void Session::put_reports(JsonWriter &out) const {
    out.list([&] {
        for (const Told &told : reports_)
            out.object([&] {
                out.member("kind", told.kind);
                out.member("reason", told.facts.reason);
                out.member("file", readable(told.file));
                out.optional_member("place", told.place);
                out.member("text", told.text);
                out.member("cause", told.cause);
                out.member("count", told.facts.count);
                out.member("octets", told.facts.octets);
                if (told.facts.packet != 0) out.member("packet", told.facts.packet);
                if (told.facts.offset != AST_OFFSET_NONE) out.member("offset", told.facts.offset);
                if (told.facts.line != 0) out.member("line", told.facts.line);
                if (told.has_block) out.member("block", told.block);
            });
    });
}

void Session::put_totals(JsonWriter &out) {
    const auto put = [&](const recording::astdump::Counts &counts) {
        out.member("blocks", counts.blocks);
        out.member("records", counts.records);
        out.member("items", counts.items);
        out.member("octets", counts.octets);
        out.member("damaged", counts.damaged);
        out.member("unsupported", counts.unsupported);
    };
    recording::astdump::Counts all;
    for (const auto &counts : counts_) all += counts;
    out.object([&] {
        put(all);
        out.key("categories").list([&] {
            for (size_t category = 0; category < counts_.size(); ++category) {
                if (counts_[category].blocks == 0) continue;
                out.object([&] {
                    out.member("category", category);
                    put(counts_[category]);
                });
            }
        });
        out.member("losses", losses_.text());
        out.member("other_traffic", losses_.foreign_text());
        out.key("causes").list([&] {
            for (const auto &[named, cause] : causes_)
                out.object([&] {
                    out.member("kind", named.first);
                    out.member("text", named.second);
                    out.member("count", cause.count);
                    out.member("octets", cause.octets);
                });
        });
    });
}

// ---- Sites ----

const ast_site_t *Session::site_of(uint32_t sac, uint32_t sic) const {
    const auto given =
        std::ranges::find_if(given_, [&](const ast_site_t &site) { return site.sac == sac && site.sic == sic; });
    return given != given_.end() ? &*given : sites_.find(sac, sic);
}

// Of each source once, whatever the categories it sends.
void Session::put_sites(JsonWriter &out) const {
    constexpr const char *kKnown[] = {"", "worked out", "learnt", "given"};
    std::vector<std::pair<uint32_t, uint32_t>> seen;
    out.list([&] {
        for (const RowColumns::Source &source : columns_.sources()) {
            const std::pair<uint32_t, uint32_t> key{source.sac, source.sic};
            const ast_site_t *const site = source.is_known ? site_of(source.sac, source.sic) : nullptr;
            if (!site || std::ranges::find(seen, key) != seen.end()) continue;
            seen.push_back(key);
            out.object([&] {
                out.member("sac", source.sac);
                out.member("sic", source.sic);
                out.member("known", kKnown[site->known]);
                out.member("latitude", site->place.latitude_deg);
                out.member("longitude", site->place.longitude_deg);
                out.member("height_m", site->place.height_m);
                if (site->known == AST_SITE_WORKED_OUT) out.member("standard_error_m", site->standard_error_m);
            });
        }
    });
}

bool Session::set_site(uint32_t sac, uint32_t sic, const ast_place_t &place) {
    const ast_site_t site{.sac = sac, .sic = sic, .known = AST_SITE_GIVEN, .place = place, .standard_error_m = 0};
    ast_site_t room;
    ast_sites_t table{.sites = &room, .room = 1, .count = 0};
    if (!ast_sites_add(&table, &site)) return false;
    forget_site(sac, sic);
    given_.push_back(site);
    return true;
}

bool Session::forget_site(uint32_t sac, uint32_t sic) {
    stored_.forget();
    filtered_.forget();
    return std::erase_if(given_, [&](const ast_site_t &site) { return site.sac == sac && site.sic == sic; }) != 0;
}

// ---- Filters ----

void Session::set_filter(std::string_view expression) {
    Filter filter;
    if (!expression.empty()) filter.add(expression);
    filter_ = std::move(filter);
    next_filtered_ = 0;
}

const std::vector<uint8_t> &Session::read_marks(uint32_t most_rows) {
    marks_.clear();
    for (; next_filtered_ < store_.size() && marks_.size() < most_rows; ++next_filtered_) {
        DecodedBlock &decoded = filtered_.decode(next_filtered_, given_);
        select_records(decoded, filter_);
        for (uint64_t i = 0; i < decoded.block->record_count; ++i) marks_.push_back(decoded.shown[i] ? 1 : 0);
    }
    return marks_;
}

} // namespace ast::viewer
