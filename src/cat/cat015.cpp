// Category 015: target reports of independent non-cooperative surveillance sensors.

#include "items/items.hpp"

namespace {

using namespace ast;

constexpr SubfieldRow kHorizontalPosition[] = {
    {"P84", "Horizontal Position in WGS-84 Coordinates", fixed<8>},
    {"HPR", "Horizontal Position Resolution", fixed<5>},
    {"HPP", "Horizontal Position Precision", fixed<5>},
};

constexpr SubfieldRow kGeometricHeight[] = {
    {"GH", "Geometric Height (WGS-84)", fixed<3>},
    {"RS_GH", "Geometric Height Resolution", fixed<3>},
    {"SD_GH", "Geometric Height Precision", fixed<3>},
    {"CI6", "Confidence Interval for Geometric Height (67%)", fixed<3>},
    {"CI9", "Confidence Interval for Geometric Height (95%)", fixed<3>},
    {"CO_GHHP", "Correlation of Geometric Height and Horizontal Position", fixed<2>},
    {"CO_GHHV", "Correlation of Geometric Height and Horizontal Velocity", fixed<2>},
    {"CO_GHHA", "Correlation of Geometric Height and Horizontal Acceleration", fixed<2>},
};

constexpr SubfieldRow kHorizontalVelocity[] = {
    {"HV", "Horizontal Velocity Vector", fixed<5>},
    {"RS_HV", "Horizontal Velocity Resolution", fixed<5>},
    {"SD_HV", "Horizontal Velocity Precision", fixed<5>},
    {"CO_HVHP", "Correlation of Horizontal Velocity and Horizontal Position", fixed<4>},
};

constexpr SubfieldRow kVerticalVelocity[] = {
    {"VV", "Vertical Velocity", fixed<3>},
    {"RS_VV", "Vertical Velocity Resolution", fixed<2>},
    {"SD_VV", "Vertical Velocity Precision", fixed<3>},
    {"CO_VVHP", "Correlation of Vertical Velocity and Horizontal Position", fixed<2>},
    {"CO_VVHV", "Correlation of Vertical Velocity and Horizontal Velocity", fixed<2>},
    {"CO_VVHA", "Correlation of Vertical Velocity and Horizontal Acceleration", fixed<2>},
};

constexpr SubfieldRow kRange[] = {
    {"R", "Range", fixed<3>},
    {"RS_R", "Range Resolution", fixed<3>},
    {"SD_R", "Range Precision", fixed<3>},
    {"RR", "Range Rate", fixed<3>},
    {"RS_RR", "Range Rate Resolution", fixed<3>},
    {"SD_RR", "Range Rate Precision", fixed<4>},
    {"RA", "Range Acceleration", fixed<2>},
    {"SD_RA", "Range Acceleration Precision", fixed<4>},
};

constexpr SubfieldRow kDoppler[] = {
    {"DV", "Doppler Velocity", fixed<3>},
    {"SD_DV", "Doppler Velocity Precision", fixed<2>},
    {"DA", "Doppler Acceleration", fixed<2>},
    {"SD_DA", "Doppler Acceleration Precision", fixed<3>},
    {"CO_DVR", "Correlation Doppler Velocity and Range", fixed<1>},
    {"CO_DVRR", "Correlation Doppler Velocity and Range Rate", fixed<1>},
    {"CO_DVRA", "Correlation Doppler Velocity and Range Acceleration", fixed<1>},
    {"CO_DAR", "Correlation Doppler Acceleration and Range", fixed<1>},
    {"CO_DARR", "Correlation Doppler Acceleration and Range Rate", fixed<1>},
    {"CO_DARA", "Correlation Doppler Acceleration and Range Acceleration", fixed<1>},
};

constexpr SubfieldRow kAzimuth[] = {
    {"AZ", "Azimuth", fixed<2>},
    {"RS_AZ", "Azimuth Resolution", fixed<2>},
    {"SD_AZ", "Azimuth Precision", fixed<2>},
    {"AZR", "Azimuth Rate", fixed<2>},
    {"SD_AZR", "Azimuth Rate Precision", fixed<3>},
    {"AZEX", "Azimuth Extent", fixed<4>},
};

} // namespace

AST_DEFINE_COMPOUND(kItem600, 15600, kHorizontalPosition, ast_dataitem_015_600_get_size, ast_subfield_015_600_get_size,
                    ast_subfield_015_600_get_id, ast_subfield_015_600_get_name, nullptr, nullptr)
AST_DEFINE_COMPOUND(kItem601, 15601, kGeometricHeight, ast_dataitem_015_601_get_size, ast_subfield_015_601_get_size,
                    ast_subfield_015_601_get_id, ast_subfield_015_601_get_name, nullptr, nullptr)
AST_DEFINE_COMPOUND(kItem602, 15602, kHorizontalVelocity, ast_dataitem_015_602_get_size, ast_subfield_015_602_get_size,
                    ast_subfield_015_602_get_id, ast_subfield_015_602_get_name, nullptr, nullptr)
AST_DEFINE_COMPOUND(kItem604, 15604, kVerticalVelocity, ast_dataitem_015_604_get_size, ast_subfield_015_604_get_size,
                    ast_subfield_015_604_get_id, ast_subfield_015_604_get_name, nullptr, nullptr)
AST_DEFINE_COMPOUND(kItem625, 15625, kRange, ast_dataitem_015_625_get_size, ast_subfield_015_625_get_size,
                    ast_subfield_015_625_get_id, ast_subfield_015_625_get_name, nullptr, nullptr)
AST_DEFINE_COMPOUND(kItem626, 15626, kDoppler, ast_dataitem_015_626_get_size, ast_subfield_015_626_get_size,
                    ast_subfield_015_626_get_id, ast_subfield_015_626_get_name, nullptr, nullptr)
AST_DEFINE_COMPOUND(kItem627, 15627, kAzimuth, ast_dataitem_015_627_get_size, ast_subfield_015_627_get_size,
                    ast_subfield_015_627_get_id, ast_subfield_015_627_get_name, nullptr, nullptr)

namespace {

// Rows without a size are known by name only: a record that carries one does not decode.
constexpr ItemRow kItems[] = {
    {0, "Message Type", {fixed<1>}},
    {10, "Data Source Identifier", items::data_source_identifier},
    {15, "Service Identification"},
    {20, "Target Report Descriptor", {extended<1>}},
    {30, "Warning/Error Conditions"},
    {50, "Update Period"},
    {145, "Time of Applicability", items::time_of_day},
    {161, "Track/Plot Number", items::track_number},
    {170, "Track/Plot Status", {fixed<1>}},
    {270, "Target Size & Orientation"},
    {300, "Object Classification", {repetitive<2>}},
    {400, "Measurement Identifier", {fixed<5>}},
    {480, "Associations", {repetitive<5>}},
    items::compound("Horizontal Position Information", kItem600),
    items::compound("Geometric Height Information", kItem601),
    items::compound("Horizontal Velocity Information", kItem602),
    {603, "Horizontal Acceleration Information"},
    items::compound("Vertical Velocity Information", kItem604),
    {605, "Vertical Acceleration Information"},
    items::compound("Range Information", kItem625),
    items::compound("Doppler Information", kItem626),
    items::compound("Azimuth Information", kItem627),
    {628, "Elevation Information"},
    {630, "Path Quality"},
    {631, "Contour (Azimuth, Elevation Angle, Range Extent)"},
};

} // namespace

AST_DEFINE_CATEGORY(kCategory015, 15, "Unknown CAT015 Dataitem", kItems, ast_dataitem_015_get_name)
