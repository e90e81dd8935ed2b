// The exported functions. None lets an exception out.

#include <cmath>
#include <exception>
#include <memory>
#include <optional>
#include <string>

#include "api/failure.hpp"
#include "api/open_options.hpp"
#include "ask/mistake.hpp"
#include "base/printable.hpp"
#include "base/silence.hpp"
#include "module/session.hpp"
#include "module/viewer.h"

namespace {

using namespace ast::viewer;

const Silence silence; // whatever is met is reported
std::optional<Session> session;
std::string room;
TextBuffer text;

// What `put(JsonWriter)` puts, or null where it puts nothing.
template <typename Put>
const char *texts_of(Put put) {
    text.clear();
    bool is_put = false;
    try {
        JsonWriter out(text);
        is_put = put(out);
    } catch (const std::exception &) {
        is_put = false;
    }
    if (!is_put) text.clear();
    text.put('\0');
    text.cut(text.size() - 1);
    return is_put ? text.text().data() : nullptr;
}

// The same of a session, of which there may be none.
template <typename Put>
const char *said(Put put) {
    return texts_of([&](JsonWriter &out) { return session && put(out); });
}

const char *failure(uint32_t code, const char *what) {
    return texts_of([&](JsonWriter &out) {
        out.object([&] {
            out.member("code", code);
            out.member("text", readable(what));
        });
        return true;
    });
}

std::string_view argument(const char *given) { return given ? given : ""; }

} // namespace

char *viewer_room(uint32_t octets) {
    room.resize(octets);
    return room.data();
}

uint32_t viewer_text_octets() { return static_cast<uint32_t>(text.size()); }

const char *viewer_open(const char *paths, const char *options) {
    session.reset();
    try {
        session.emplace(argument(paths), argument(options));
        text.clear();
        return nullptr;
    } catch (const CannotOpen &why) {
        return failure(why.code(), why.what());
    } catch (const std::invalid_argument &why) {
        return failure(AST_RECORDING_ERROR_OPTION, why.what());
    } catch (const std::exception &why) {
        return failure(AST_RECORDING_ERROR_INPUT, why.what());
    }
}

void viewer_close() { session.reset(); }

uint32_t viewer_read(uint32_t most_octets) {
    try {
        return session ? session->read(most_octets) : 0;
    } catch (const std::exception &) {
        return 0;
    }
}

const char *viewer_state() {
    return said([](JsonWriter &out) { return session->put_state(out), true; });
}

const void *viewer_column(uint32_t column) { return session ? session->columns().column(column).elements : nullptr; }

uint32_t viewer_column_elements(uint32_t column) {
    return session ? static_cast<uint32_t>(session->columns().column(column).count) : 0;
}

const char *viewer_texts() {
    return said([](JsonWriter &) { return text.put(session->columns().texts()), true; });
}

const char *viewer_sources() {
    return said([](JsonWriter &out) { return session->put_sources(out), true; });
}

const char *viewer_reports() {
    return said([](JsonWriter &out) { return session->put_reports(out), true; });
}

const char *viewer_block(uint32_t block) {
    return said([&](JsonWriter &out) { return session->put_block(out, block); });
}

const char *viewer_record(uint32_t row) {
    return said([&](JsonWriter &out) { return session->put_record(out, row); });
}

const char *viewer_item(uint32_t row, uint32_t item) {
    return said([&](JsonWriter &out) { return session->put_item(out, row, item); });
}

const char *viewer_fault_item(uint32_t block, uint32_t item) {
    return said([&](JsonWriter &out) { return session->put_fault_item(out, block, item); });
}

const char *viewer_json(uint32_t row) {
    return said([&](JsonWriter &) { return session->put_json(text, row); });
}

const char *viewer_block_json(uint32_t block) {
    return said([&](JsonWriter &) { return session->put_block_json(text, block); });
}

const char *viewer_answers(uint32_t row) {
    return said([&](JsonWriter &out) { return session->put_answers(out, row); });
}

const char *viewer_filter(const char *expression) {
    if (!session) return failure(AST_RECORDING_ERROR_OPTION, "nothing is open");
    try {
        session->set_filter(argument(expression));
        text.clear();
        return nullptr;
    } catch (const Mistake &mistake) {
        return texts_of([&](JsonWriter &out) {
            out.object([&] {
                out.member("position", mistake.place().at);
                out.member("length", mistake.place().size);
                out.member("text", readable(mistake.what()));
            });
            return true;
        });
    } catch (const std::exception &why) {
        return failure(AST_RECORDING_ERROR_OPTION, why.what());
    }
}

uint32_t viewer_filter_read(uint32_t most_rows) {
    try {
        return session ? static_cast<uint32_t>(session->read_marks(most_rows).size()) : 0;
    } catch (const std::exception &) {
        return 0;
    }
}

const uint8_t *viewer_marks() { return session ? session->marks().data() : nullptr; }

uint32_t viewer_filter_asks_position() { return session && session->filter_asks_position() ? 1 : 0; }

const char *viewer_totals() {
    return said([](JsonWriter &out) { return session->put_totals(out), true; });
}

const char *viewer_sites() {
    return said([](JsonWriter &out) { return session->put_sites(out), true; });
}

uint32_t viewer_set_site(uint32_t sac, uint32_t sic, double latitude, double longitude, double height_m) {
    if (!session) return 0;
    if (std::isnan(latitude)) return session->forget_site(sac, sic) ? 1 : 0;
    return session->set_site(sac, sic, {latitude, longitude, height_m}) ? 1 : 0;
}
