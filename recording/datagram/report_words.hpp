// What is said of reports.
#pragma once

#include <ast_recording.h>
#include <string>
#include <string_view>

#include "framing/block_header.hpp"

namespace ast::recording {

struct ReportWords {
    std::string text;      // the whole sentence
    std::string cause;     // what reports have in common that can be told together
    std::string example;   // where this one is, and what is its own; empty where there is no more to say
    std::string_view noun; // for what is counted; empty where a count says nothing
};

// The cause follows from kind, reason, category and detail alone.
ReportWords words_of(const ast_recording_report_t &report);

// How many of what its noun names a report is about.
uint64_t count_of(const ast_recording_report_t &report);

// Where it is: "packet 12, octet 40", "offset 1234", "line 3, character 1"; empty where it has no place.
std::string place_text(const ast_recording_report_t &report);

// Why octets do not start a whole block, of a report that says so.
std::string framing_text(const ast_recording_report_t &report);

// "damaged", "not supported", "not ASTERIX", "note", "not readable"; empty for any other number.
const char *kind_word(uint32_t kind);

} // namespace ast::recording
