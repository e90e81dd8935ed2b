// The common quantities of records, under the names that the command line knows them by.
#pragma once

#include <ast.h>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "ask/shared_items.hpp"
#include "base/text_buffer.hpp"

namespace ast::recording {

// One of AST_KEYWORD_...; nothing for an unknown name.
std::optional<uint32_t> find_keyword(std::string_view name);

// All names, "sacsic, time, ...".
std::string keyword_names();

// Those that records of a category can have, each as a bit.
uint32_t keywords_of(uint32_t category);

// A record's value as text without blanks around it; empty when it has none. Good until the next call of the thread.
std::string_view keyword_text(const ast_datarecord_t &record, uint32_t keyword);

// The same written where it is wanted, which takes so many characters; returns how many it is.
constexpr size_t kKeywordRoom = 128; // more than any value takes

// Without blanks around it, and printable: a callsign is what an aircraft has sent.
size_t tidy_keyword(char *text, size_t size);

// By the items that categories share, for those without accessors.
size_t write_shared_keyword(char *text, const ast_datarecord_t &record, uint32_t keyword);

inline size_t write_keyword(char *text, const ast_datarecord_t &record, uint32_t keyword) {
    const size_t size = ast_datarecord_write_keyword(text, kKeywordRoom, &record, keyword, AST_POSITION_DEGREES);
    if (keyword == AST_KEYWORD_CALLSIGN) return tidy_keyword(text, size);
    return size == 0 && is_shared(keyword) ? write_shared_keyword(text, record, keyword) : size;
}

// Puts it, and returns whether there is one.
bool put_keyword(TextBuffer &out, const ast_datarecord_t &record, uint32_t keyword);

} // namespace ast::recording
