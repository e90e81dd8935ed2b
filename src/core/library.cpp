// Identity, options and the log.

#include <atomic>
#include <cstdio>
#include <iterator>
#include <utility>

#include "core/text.hpp"

namespace {

using namespace ast;

constexpr uint32_t kVersionMajor = 1;
constexpr uint32_t kVersionMinor = 23;
constexpr uint32_t kVersionPatch = 0;
constexpr uint32_t kRevision = 260990229;

constexpr uint64_t kLogLineCapacity = 512;

std::atomic<uint32_t> options{0};
std::atomic<ast_log_handler_t *> sink{ast_log_stdout};
thread_local bool is_silent = false;

} // namespace

uint32_t ast_library_version_major() { return kVersionMajor; }
uint32_t ast_library_version_minor() { return kVersionMinor; }
uint32_t ast_library_version_patch() { return kVersionPatch; }

const char *ast_library_version() {
    thread_local char text[10];
    TextWriter(text, sizeof text).print("%u.%u.%u", kVersionMajor, kVersionMinor, kVersionPatch);
    return text;
}

const char *ast_library_revision() {
    thread_local char text[16];
    TextWriter(text, sizeof text).print("%x", kRevision);
    return text;
}

const char *ast_library_build() { return "Aug 20 2026"; }
const char *ast_library_about() { return "ast: decodes and encodes ASTERIX surveillance data"; }
const char *ast_library_contact() { return "https://www.eurocontrol.int/asterix"; }

bool ast_library_init() {
    ast_library_reset_option();
    return true;
}

void ast_library_set_option(uint32_t bits) { options.fetch_or(bits, std::memory_order_relaxed); }
void ast_library_unset_option(uint32_t bits) { options.fetch_and(~bits, std::memory_order_relaxed); }
void ast_library_reset_option() { options.store(0, std::memory_order_relaxed); }

bool ast_library_test_option(uint32_t bits) {
    const uint32_t set = options.load(std::memory_order_relaxed);
    return bits ? (set & bits) != 0 : set == 0;
}

void ast_log_handler_reg(ast_log_handler_t *handler) { sink.store(handler, std::memory_order_relaxed); }

bool ast_log_silence(bool silent) { return std::exchange(is_silent, silent); }

void ast_log(uint32_t level, const char *format, ...) {
    ast_log_handler_t *const handler = sink.load(std::memory_order_relaxed);
    if (!handler || !format || is_silent) return;
    char line[kLogLineCapacity];
    va_list arguments;
    va_start(arguments, format);
    TextWriter(line, sizeof line).print_foreign(format, arguments);
    va_end(arguments);
    handler(level, line);
}

int32_t ast_log_stdout(uint32_t level, const char *message) {
    static constexpr const char *kLabels[] = {"[DEBUG   ]", "[INFO    ]", "[WARNING ]", "[CRITICAL]", "[PANIC   ]"};
    std::fputs(level < std::size(kLabels) ? kLabels[level] : "[UNKNOWN ]", stdout);
    return std::printf(" %s\n", message ? message : "");
}

// The first line takes one octet more than the others: a line ends after each index that is a multiple of 16 but not 0.
void ast_log_binary_data(uint32_t level, const uint8_t *data, uint64_t count) {
    constexpr uint64_t kOctetsPerLine = 16;
    constexpr uint64_t kOctetChars = 6; // "0xAB, "

    ast_log_handler_t *const handler = sink.load(std::memory_order_relaxed);
    if (!handler) return;
    ast_log(level, "Binary data size: %d", static_cast<int>(count));
    if (!data) return;

    for (uint64_t next = 0; next < count;) {
        char line[(kOctetsPerLine + 1) * kOctetChars + 1];
        TextWriter out(line, sizeof line);
        bool line_ends = false;
        while (!line_ends) {
            line_ends = next + 1 == count || (next != 0 && next % kOctetsPerLine == 0);
            out.print(line_ends ? "0x%.2X" : "0x%.2X, ", data[next]);
            ++next;
        }
        handler(level, line);
    }
}
