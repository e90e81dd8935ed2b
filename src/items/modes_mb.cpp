// Mode S MB data: a list of registers, each with its number.

#include <algorithm>
#include <iterator>

#include "items/items.hpp"
#include "items/register.hpp"

using namespace ast;

namespace {

// Each element is the seven octets of a register and one octet with its number.
constexpr uint64_t kElementOctets = kRegisterOctets + 1;

uint64_t held(const ast_modes_mb_t &data) { return std::min<uint64_t>(data.count, std::size(data.registers)); }

struct ModesMb : SharedLayout<ast_modes_mb_t, items::modes_mb.size> {
    static bool read(Value &data, const ast_dataitem_t &item) {
        if (item.size < 1 + kElementOctets || item.size != 1 + kElementOctets * item.data[0]) return false;
        data.count = item.data[0];
        for (uint64_t i = 0; i < held(data); ++i) {
            const uint8_t *const element = item.data + 1 + i * kElementOctets;
            data.registers[i] = ast_bds_decode(element, kRegisterOctets, element[kRegisterOctets]);
        }
        return true;
    }

    static void summarize(TextWriter &out, const Value &data) {
        out.append("BDS:");
        for (uint64_t i = 0; i < held(data); ++i) {
            out.append(shown_if(i != 0, " "));
            out.append(ast_bds_type_to_str_simple(data.registers[i].bds));
        }
    }

    static void show(HtmlWriter &html, const Value &data) {
        html.title("BDS List");
        {
            DetailTable table(html, "BDS", "Name");
            for (uint64_t i = 0; i < held(data); ++i)
                table.row(ast_bds_type_to_str(data.registers[i].bds), ast_bds_get_name(data.registers[i].bds));
        }
        for (uint64_t i = 0; i < held(data); ++i) write_register(html, data.registers[i]);
    }
};

} // namespace

AST_DEFINE_DECODE(ModesMb, ast_dataitem_modes_mb_decode)
AST_DEFINE_VIEWS(ModesMb, ast_dataitem_modes_mb_get_summary, ast_dataitem_modes_mb_get_detail_html)
