// Mode S MB data: a list of registers, each with its number.

#include "items/items.hpp"
#include "items/register.hpp"

using namespace ast;

namespace {

struct ModesMb : SharedLayout<ast_modes_mb_t, items::modes_mb.size> {
    static bool read(Value &data, const ast_dataitem_t &item) {
        if (!holds_registers(item)) return false;
        data.count = item.data[0];
        read_registers(data.registers, data.count, item.data + 1);
        return true;
    }

    static void summarize(TextWriter &out, const Value &data) {
        out.append("BDS:");
        for (uint64_t i = 0; i < held_registers(data.registers, data.count); ++i) {
            out.append(shown_if(i != 0, " "));
            out.append(ast_bds_type_to_str_simple(data.registers[i].bds));
        }
    }

    static void show(ViewWriter &view, const Value &data) {
        write_registers(view, data.registers, held_registers(data.registers, data.count));
    }
};

} // namespace

AST_DEFINE_ITEM(ModesMb, ast_dataitem_modes_mb)
