// Expressions that choose records: what is read has a meaning for every record, what is not has its place named. Files
// are left alone.

#include <ast_recording.h>
#include <string>

#include "harness.hpp"

namespace ast_fuzz {

namespace {

// A track of category 048: source, time, descriptor, position, code, level, address and callsign.
const ast_datarecord_t &track() {
    static constexpr uint8_t kOctets[] = {0xFD, 0xC0, 0x19, 0x0C, 0x54, 0x60, 0xC0, 0xA0, 0x2D, 0x80, 0x55, 0x55, 0x04,
                                          0xE5, 0x05, 0x78, 0x3C, 0x4A, 0x12, 0x10, 0xC2, 0x34, 0x05, 0x48, 0x20};
    static const ast_datarecord_t record = ast_datarecord_decode(kOctets, sizeof kOctets, 48, AST_UAP_STANDARD);
    return record;
}

} // namespace

void run(Input input) {
    const Octets octets = input.rest();
    const std::string expression(octets.begin(), octets.end());
    if (expression.find("inside") != std::string::npos) return;
    ast_filter_error_t error;
    ast_filter_t *const filter = ast_filter_open(expression.c_str(), &error);
    const std::string text = error.text;
    require(text.empty() == (filter != nullptr), "what is wrong is said, and nothing else");
    require(error.position + error.length <= expression.size(), "a mistake is in the expression");
    if (!filter) return;
    const ast_answers_t nothing{};
    ast_filter_matches(filter, &track(), nullptr);
    ast_filter_matches(filter, &track(), &nothing);
    ast_filter_close(filter);

    // Whatever it is, no record meets it and its contrary.
    ast_filter_t *const none = ast_filter_open(("(" + expression + ") and not (" + expression + ")").c_str(), nullptr);
    require(!none || !ast_filter_matches(none, &track(), nullptr), "a record meets a contradiction");
    ast_filter_close(none);
}

} // namespace ast_fuzz
