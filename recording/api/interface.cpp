// The exported functions. None lets an exception out.

#include <algorithm>
#include <limits>
#include <new>

#include "api/failure.hpp"
#include "api/handles.hpp"
#include "api/opening.hpp"
#include "datagram/report_words.hpp"

namespace {

using namespace ast::recording;

// A text that `make()` makes, for a caller; "" without memory for it.
template <typename Make>
uint64_t write(char *text, uint64_t capacity, Make make) {
    try {
        return give_text(text, capacity, make());
    } catch (const std::exception &) {
        return give_text(text, capacity, "");
    }
}

ast_recording_t *new_recording(std::vector<Origin> origins, const ReadOptions &read,
                               const ast_recording_options_t &options) {
    return new ast_recording{std::make_shared<Recording>(std::move(origins), read, options)};
}

} // namespace

ast_recording_t *ast_recording_open(const char *const *inputs, uint64_t count, const ast_recording_options_t *options,
                                    ast_recording_error_t *error) {
    return opened(options, error, [&](const ast_recording_options_t &chosen) {
        ReadOptions read = read_open_options(chosen);
        std::vector<Origin> origins = origins_of({inputs, inputs ? static_cast<size_t>(count) : 0}, read);
        read.merge = read.merge && origins.size() > 1;
        return new_recording(std::move(origins), read, chosen);
    });
}

ast_recording_t *ast_recording_open_octets(const uint8_t *octets, uint64_t count, const char *name,
                                           const ast_recording_options_t *options, ast_recording_error_t *error) {
    return opened(options, error, [&](const ast_recording_options_t &chosen) {
        if (!octets && count != 0) throw CannotOpen(AST_RECORDING_ERROR_OPTION, "there are no octets");
        ReadOptions read = read_open_options(chosen);
        read.follow = read.merge = false;
        Origin origin{
            .path = name ? name : "memory", .name = name ? name : "memory", .octets = {{octets, octets ? count : 0}}};
        return new_recording({std::move(origin)}, read, chosen);
    });
}

void ast_recording_close(ast_recording_t *recording) { delete recording; }

bool ast_recording_next(ast_recording_t *recording, ast_recording_block_t *block) {
    constexpr int kNoLimit = -1;
    ast_recording_block_t ignored;
    return recording && recording->recording->next(block ? *block : ignored, kNoLimit);
}

bool ast_recording_next_within(ast_recording_t *recording, ast_recording_block_t *block, uint32_t timeout_ms) {
    ast_recording_block_t ignored;
    const auto limit_ms = static_cast<int>(std::min<uint32_t>(timeout_ms, std::numeric_limits<int>::max()));
    return recording && recording->recording->next(block ? *block : ignored, limit_ms);
}

bool ast_recording_get_record(ast_recording_t *recording, uint64_t index, ast_datarecord_t *record) {
    try {
        return recording && record && recording->recording->get_record(index, *record);
    } catch (const std::exception &) {
        return false;
    }
}

bool ast_recording_decode(ast_recording_t *recording, ast_datablock_t *block) {
    return recording && block && recording->recording->decode(*block);
}

uint32_t ast_recording_get_state(const ast_recording_t *recording, ast_recording_state_t *state) {
    ast_recording_state_t ignored;
    ast_recording_state_t &to = state ? *state : ignored;
    to = {};
    to.phase = AST_RECORDING_FAILED;
    return recording ? recording->recording->get_state(to) : to.phase;
}

void ast_recording_interrupt(ast_recording_t *recording) {
    if (recording) recording->recording->interrupt();
}

uint64_t ast_recording_report_to_text(char *text, uint64_t capacity, const ast_recording_report_t *report) {
    return write(text, capacity, [&] { return report ? words_of(*report).text : std::string(); });
}

uint64_t ast_recording_report_get_place(char *text, uint64_t capacity, const ast_recording_report_t *report) {
    return write(text, capacity, [&] { return report ? place_text(*report) : std::string(); });
}

uint64_t ast_recording_report_get_cause(char *text, uint64_t capacity, const ast_recording_report_t *report) {
    return write(text, capacity, [&] { return report ? words_of(*report).cause : std::string(); });
}

const char *ast_recording_report_kind_to_str(uint32_t kind) { return kind_word(kind); }

uint64_t ast_endpoint_to_text(char *text, uint64_t capacity, const ast_endpoint_t *endpoint) {
    return write(text, capacity, [&] {
        return endpoint && endpoint->family != 0 ? endpoint_text(to_internal(*endpoint)) : std::string();
    });
}

uint64_t ast_time_to_text(char *text, uint64_t capacity, int64_t time_ns) {
    return write(text, capacity, [&] {
        if (time_ns == AST_TIME_UNKNOWN) return std::string();
        TextBuffer out;
        put_time(out, from_nanoseconds(time_ns));
        return std::string(out.text());
    });
}
