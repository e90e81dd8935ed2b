// What the sources of category 062 share: compound items with a source of their own, and kinds of subfields that
// several items have.
#pragma once

#include "core/bits.hpp"
#include "items/compound.hpp"
#include "items/items.hpp"
#include "items/units.hpp"
#include "items/vertical.hpp"
#include "view/fields.hpp"
#include "view/position.hpp"

namespace ast::cat062 {

extern const Compound kMeasuredInformation;   // I062/340
extern const Compound kAircraftDerivedData;   // I062/380
extern const Compound kFlightPlanRelatedData; // I062/390

// The columns of a subfield, whose fields count in octets or, where they share these, in bits. Both count from 0.
constexpr Columns kOctets = {"Octet", nullptr, "Name", "Value", Columns::Count::OctetsWhereWhole, 0};
constexpr Columns kBits = {"Octet/Bit", nullptr, "Name", "Value", Columns::Count::OctetsWhereWhole, 0};

struct OctetTable : FieldTable {
    explicit OctetTable(ViewWriter &view) : FieldTable(view, "Octet", "Name", "Value") {}
};
struct BitTable : FieldTable {
    explicit BitTable(ViewWriter &view) : FieldTable(view, "Octet/Bit", "Name", "Value") {}
};

constexpr char kOneOctet[] = "Octet[0]";
constexpr char kTwoOctets[] = "Octet[0-1]";

// A quantity of one or two octets: where views show it, its resolution and its names.
struct SubfieldScale {
    const char *octets;
    double lsb;
    Sign sign;
    const char *unit;
    const char *raw_name;
    const char *name;
    const char *other_name = nullptr; // in another unit as well
    double other_lsb = 0;
};

// A subfield that is such a quantity, by the members that hold it as sent and in its unit.
template <auto Raw, auto Physical, const SubfieldScale &kScale>
struct ScaledSubfield {
    using Value = typename OwnerOf<decltype(Raw)>::Type;

    static void read(Value &value, const ast_subfield_t &subfield) {
        using RawValue = std::remove_reference_t<decltype(value.*Raw)>;
        const unsigned width = subfield.size == 1 ? 8 : 16;
        const uint32_t raw = field(subfield.data, 1, width);
        value.*Raw =
            static_cast<RawValue>(kScale.sign == Sign::None ? static_cast<int32_t>(raw) : twos_complement(raw, width));
        value.*Physical = value.*Raw * kScale.lsb;
    }
    static void summarize(TextWriter &out, const Value &value) { out.print("%.2f %s", value.*Physical, kScale.unit); }
    static void show(ViewWriter &view, const Value &value) {
        OctetTable table(view);
        table.scaled(kScale.octets, kScale.raw_name, value.*Raw, kScale.name, value.*Physical);
        if constexpr (kScale.other_name != nullptr)
            table.quantity(kScale.octets, kScale.other_name, value.*Raw * kScale.other_lsb);
    }
};

// The system that sent or owns what the item carries.
struct Source {
    using Value = ast_062_source_t;
    static constexpr Row<Value> kRows[] = {{&Value::sac, 8}, {&Value::sic, 8}};
    static void summarize(TextWriter &out, const Value &source) {
        out.print("SAC:%03u SIC:%03u", source.sac, source.sic);
    }
    static void show(ViewWriter &view, const Value &source) { write_source(view, source.sac, source.sic); }
};

struct Position {
    using Value = ast_062_position_t;
    static constexpr Bits kAngle = {24, Sign::TwosComplement};
    static constexpr Row<Value> kRows[] = {
        quantity(&Value::latitude_raw, kAngle, {}, {&Value::latitude_deg, kLowPositionLsbDeg}),
        quantity(&Value::longitude_raw, kAngle, {}, {&Value::longitude_deg, kLowPositionLsbDeg}),
    };
    static void summarize(TextWriter &out, const Value &position) {
        out.append(ast_latlong_to_str(position.latitude_deg, position.longitude_deg));
    }
    static void show(ViewWriter &view, const Value &position) {
        OctetTable table(view);
        write_position_low(table, "Octet[0-5]",
                           {.valid = true,
                            .raw_1 = position.latitude_raw,
                            .raw_2 = position.longitude_raw,
                            .value_1 = position.latitude_deg,
                            .value_2 = position.longitude_deg});
    }
};

} // namespace ast::cat062
