// One Mode S register inside a larger view.
#pragma once

#include "view/html.hpp"

namespace ast {

constexpr uint16_t kRegisterOctets = 7;
constexpr uint32_t kAcasRegister = 0x30;

// Its number and title, its bits, and its fields.
inline void write_register(HtmlWriter &html, const ast_bds_t &bds) {
    html.title("%s - %s", ast_bds_type_to_str(bds.bds), ast_bds_get_name(bds.bds));
    html.bit_table(bds.data, bds.size);
    html.paragraph("%s", "");
    html.append_with([&](char *text, uint64_t capacity) { ast_bds_get_detail_html(text, capacity, &bds); });
}

} // namespace ast
