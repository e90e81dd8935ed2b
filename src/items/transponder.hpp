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
    // An undefined flight status is sent as the one that was not extracted yet.
    static uint32_t status_code(uint32_t status) {
        constexpr uint32_t kNotExtracted = 7;
        return status == kUndefinedFlightStatus ? kNotExtracted : status;
    }

    static constexpr Columns kColumns = kBitColumnsWithIds;
    static constexpr Row<Value> kRows[] = {
        code(&Value::com, {3, ast_transponder_comm_cap_from_int}, {"COM", "COMMUNICATION_CAPABILITY"},
             ast_transponder_comm_cap_to_str),
        code(&Value::stat, {3, ast_radar_flight_status_from_int, status_code}, {"STAT", "FLIGHT_STATUS"},
             ast_radar_flight_status_to_str),
        spare(2, ""),
        {&Value::mssc, {"MSSC", "MODE-S_CAPABILITY"}},
        {&Value::arc, {"ARC", "ALTITUDE_REPORTING_CAPABILITY"}, {"100FT", "25FT"}},
        {&Value::aic, {"AIC", "ACID_CAPABILITY"}},
        {&Value::b1a, {"B1A", "BDS10_BIT16"}, kBinary},
        {&Value::b1b, 4, {"B1B", "BDS10_BIT37-40"}, kBinary},
    };

    static void read(Value &status, const uint8_t *octets) {
        read_rows<CommAndFlightStatus>(status, octets);
        if (status.com == kUndefinedCapability)
            ast_log(AST_LOG_WARNING, "%s: Communication Capability Undefined.", ast_dataitem_type_to_str(Type));
        if (status.stat == kUndefinedFlightStatus)
            ast_log(AST_LOG_WARNING, "%s: Flight Status Undefined.", ast_dataitem_type_to_str(Type));
    }

    static void summarize(TextWriter &out, const Value &status) {
        out.append("FS:");
        out.append(ast_radar_flight_status_to_str(status.stat));
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
