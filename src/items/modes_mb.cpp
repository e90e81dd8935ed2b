// Mode S MB data: a list of registers, each with its number.

#include <algorithm>
#include <iterator>

#include "items/register.hpp"
#include "items/value.hpp"

using namespace ast;

namespace {

// Each element is the seven octets of a register and one octet with its number.
constexpr uint64_t kElementOctets = kRegisterOctets + 1;

uint64_t held(const ast_modes_mb_t &data) { return std::min<uint64_t>(data.count, std::size(data.registers)); }

} // namespace

ast_modes_mb_t ast_dataitem_modes_mb_decode(const ast_dataitem_t *item) {
    ast_modes_mb_t data{};
    if (!is_readable(item) || item->size < 1 + kElementOctets) return data;
    if (item->size != 1 + kElementOctets * item->data[0]) return data;
    data.count = item->data[0];
    for (uint64_t i = 0; i < held(data); ++i) {
        const uint8_t *const element = item->data + 1 + i * kElementOctets;
        data.registers[i] = ast_bds_decode(element, kRegisterOctets, element[kRegisterOctets]);
    }
    data.valid = true;
    return data;
}

void ast_dataitem_modes_mb_get_summary(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    TextWriter out(text, capacity);
    const auto data = ast_dataitem_modes_mb_decode(item);
    if (!data.valid) return;
    out.append("BDS:");
    for (uint64_t i = 0; i < held(data); ++i)
        out.print(i == 0 ? "%s" : " %s", ast_bds_type_to_str_simple(data.registers[i].bds));
}

void ast_dataitem_modes_mb_get_detail_html(char *text, uint64_t capacity, const ast_dataitem_t *item) {
    HtmlWriter html(text, capacity);
    const auto data = ast_dataitem_modes_mb_decode(item);
    if (!data.valid) return;
    html.title("BDS List");
    {
        DetailTable table(html, "BDS", "Name");
        for (uint64_t i = 0; i < held(data); ++i)
            table.row(ast_bds_type_to_str(data.registers[i].bds), ast_bds_get_name(data.registers[i].bds));
    }
    for (uint64_t i = 0; i < held(data); ++i) write_register(html, data.registers[i]);
}
