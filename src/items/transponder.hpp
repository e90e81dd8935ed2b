// What Mode S transponders say of themselves and of their ACAS, in the layouts of category 048.
#pragma once

#include "core/bits.hpp"
#include "items/frame.hpp"
#include "items/register.hpp"

namespace ast {

constexpr uint32_t kUndefinedCapability = 7;
constexpr uint32_t kUndefinedFlightStatus = 8;

// Communications and ACAS capability and flight status. What is undefined is reported under the name of the item.
template <ast_dataitem_type_t Type>
struct CommAndFlightStatus : Item<Type, ast_dataitem_048_230_t, fixed<2>> {
    using Value = ast_dataitem_048_230_t;
    static constexpr Value kDefault = {.com = kUndefinedCapability, .stat = kUndefinedFlightStatus};

    static void read(Value &status, const uint8_t *octets) {
        status.com = ast_transponder_comm_cap_from_int(bits(octets[0], 8, 6));
        status.stat = ast_radar_flight_status_from_int(bits(octets[0], 5, 3));
        if (status.com == kUndefinedCapability)
            ast_log(AST_LOG_WARNING, "%s: Communication Capability Undefined.", ast_dataitem_type_to_str(Type));
        if (status.stat == kUndefinedFlightStatus)
            ast_log(AST_LOG_WARNING, "%s: Flight Status Undefined.", ast_dataitem_type_to_str(Type));
        status.mssc = bit(octets[1], 8);
        status.arc = bit(octets[1], 7);
        status.aic = bit(octets[1], 6);
        status.b1a = bit(octets[1], 5);
        status.b1b = static_cast<uint8_t>(bits(octets[1], 4, 1));
    }

    static void summarize(TextWriter &out, const Value &status) {
        out.append("FS:");
        out.append(ast_radar_flight_status_to_str(status.stat));
    }

    static void show(ViewWriter &view, const Value &status) {
        DetailTable table(view, "Bit", "ID", "Item", "Value");
        table.row("Bit[0-2]", "COM", "COMMUNICATION_CAPABILITY", ast_transponder_comm_cap_to_str(status.com));
        table.row("Bit[3-5]", "STAT", "FLIGHT_STATUS", ast_radar_flight_status_to_str(status.stat));
        table.row("Bit[6-7]", "---", "SPARE", "");
        table.row("Bit[8]", "MSSC", "MODE-S_CAPABILITY", Cell<8>("%d", status.mssc));
        table.row("Bit[9]", "ARC", "ALTITUDE_REPORTING_CAPABILITY", status.arc ? "25FT" : "100FT");
        table.row("Bit[10]", "AIC", "ACID_CAPABILITY", Cell<8>("%d", status.aic));
        table.row("Bit[11]", "B1A", "BDS10_BIT16", BinaryOctet(status.b1a));
        table.row("Bit[12-15]", "B1B", "BDS10_BIT37-40", BinaryOctet(status.b1b));
    }

    // An undefined flight status is written as the one that was not extracted yet.
    static bool write(uint8_t *octets, const Value &status) {
        constexpr uint32_t kNotExtracted = 7;
        const uint32_t stat = status.stat == kUndefinedFlightStatus ? kNotExtracted : status.stat;
        octets[0] = static_cast<uint8_t>(placed(status.com, 8, 6) | placed(stat, 5, 3));
        octets[1] = static_cast<uint8_t>(placed(status.mssc, 8) | placed(status.arc, 7) | placed(status.aic, 6) |
                                         placed(status.b1a, 5) | placed(status.b1b, 4, 1));
        return status.com <= kUndefinedCapability && stat <= kNotExtracted && status.b1b <= 0x0F;
    }
};

// An ACAS resolution advisory report: register 3,0.
template <ast_dataitem_type_t Type>
struct AcasAdvisory : Item<Type, ast_dataitem_048_260_t, fixed<kRegisterOctets>> {
    using Value = ast_dataitem_048_260_t;

    static void read(Value &advisory, const uint8_t *octets) {
        advisory.bds = ast_bds_decode(octets, kRegisterOctets, kAcasRegister);
    }
    static void summarize(TextWriter &out, const Value &advisory) {
        out.append("BDS:");
        out.append(ast_bds_type_to_str_simple(advisory.bds.bds));
    }
    static void show(ViewWriter &view, const Value &advisory) { write_register(view, advisory.bds); }
};

} // namespace ast
