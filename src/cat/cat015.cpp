// Category 015: target reports of independent non-cooperative surveillance sensors.

#include <iterator>

#include "items/items.hpp"

namespace {

using namespace ast;

constexpr SubfieldRow kHorizontalPosition[] = {
    {"P84", "Horizontal Position in WGS-84 Coordinates", octets(8)},
    {"HPR", "Horizontal Position Resolution", octets(5)},
    {"HPP", "Horizontal Position Precision", octets(5)},
};

constexpr SubfieldRow kGeometricHeight[] = {
    {"GH", "Geometric Height (WGS-84)", octets(3)},
    {"RS_GH", "Geometric Height Resolution", octets(3)},
    {"SD_GH", "Geometric Height Precision", octets(3)},
    {"CI6", "Confidence Interval for Geometric Height (67%)", octets(3)},
    {"CI9", "Confidence Interval for Geometric Height (95%)", octets(3)},
    {"CO_GHHP", "Correlation of Geometric Height and Horizontal Position", octets(2)},
    {"CO_GHHV", "Correlation of Geometric Height and Horizontal Velocity", octets(2)},
    {"CO_GHHA", "Correlation of Geometric Height and Horizontal Acceleration", octets(2)},
};

constexpr SubfieldRow kHorizontalVelocity[] = {
    {"HV", "Horizontal Velocity Vector", octets(5)},
    {"RS_HV", "Horizontal Velocity Resolution", octets(5)},
    {"SD_HV", "Horizontal Velocity Precision", octets(5)},
    {"CO_HVHP", "Correlation of Horizontal Velocity and Horizontal Position", octets(4)},
};

constexpr SubfieldRow kVerticalVelocity[] = {
    {"VV", "Vertical Velocity", octets(3)},
    {"RS_VV", "Vertical Velocity Resolution", octets(2)},
    {"SD_VV", "Vertical Velocity Precision", octets(3)},
    {"CO_VVHP", "Correlation of Vertical Velocity and Horizontal Position", octets(2)},
    {"CO_VVHV", "Correlation of Vertical Velocity and Horizontal Velocity", octets(2)},
    {"CO_VVHA", "Correlation of Vertical Velocity and Horizontal Acceleration", octets(2)},
};

constexpr SubfieldRow kRange[] = {
    {"R", "Range", octets(3)},
    {"RS_R", "Range Resolution", octets(3)},
    {"SD_R", "Range Precision", octets(3)},
    {"RR", "Range Rate", octets(3)},
    {"RS_RR", "Range Rate Resolution", octets(3)},
    {"SD_RR", "Range Rate Precision", octets(4)},
    {"RA", "Range Acceleration", octets(2)},
    {"SD_RA", "Range Acceleration Precision", octets(4)},
};

constexpr SubfieldRow kDoppler[] = {
    {"DV", "Doppler Velocity", octets(3)},
    {"SD_DV", "Doppler Velocity Precision", octets(2)},
    {"DA", "Doppler Acceleration", octets(2)},
    {"SD_DA", "Doppler Acceleration Precision", octets(3)},
    {"CO_DVR", "Correlation Doppler Velocity and Range", octets(1)},
    {"CO_DVRR", "Correlation Doppler Velocity and Range Rate", octets(1)},
    {"CO_DVRA", "Correlation Doppler Velocity and Range Acceleration", octets(1)},
    {"CO_DAR", "Correlation Doppler Acceleration and Range", octets(1)},
    {"CO_DARR", "Correlation Doppler Acceleration and Range Rate", octets(1)},
    {"CO_DARA", "Correlation Doppler Acceleration and Range Acceleration", octets(1)},
};

constexpr SubfieldRow kAzimuth[] = {
    {"AZ", "Azimuth", octets(2)},
    {"RS_AZ", "Azimuth Resolution", octets(2)},
    {"SD_AZ", "Azimuth Precision", octets(2)},
    {"AZR", "Azimuth Rate", octets(2)},
    {"SD_AZR", "Azimuth Rate Precision", octets(3)},
    {"AZEX", "Azimuth Extent", octets(4)},
};

} // namespace

AST_DEFINE_COMPOUND(kItem600, 015_600, kHorizontalPosition, nullptr, nullptr)
AST_DEFINE_COMPOUND(kItem601, 015_601, kGeometricHeight, nullptr, nullptr)
AST_DEFINE_COMPOUND(kItem602, 015_602, kHorizontalVelocity, nullptr, nullptr)
AST_DEFINE_COMPOUND(kItem604, 015_604, kVerticalVelocity, nullptr, nullptr)
AST_DEFINE_COMPOUND(kItem625, 015_625, kRange, nullptr, nullptr)
AST_DEFINE_COMPOUND(kItem626, 015_626, kDoppler, nullptr, nullptr)
AST_DEFINE_COMPOUND(kItem627, 015_627, kAzimuth, nullptr, nullptr)

namespace {

// Rows without a size are known by name only: a record that carries one does not decode.
constexpr ItemRow kItems[] = {
    {0, "Message Type", {fixed<1>}},
    {10, "Data Source Identifier", items::data_source_identifier},
    {15, "Service Identification"},
    {20, "Target Report Descriptor", {variable<1>}},
    {30, "Warning/Error Conditions"},
    {50, "Update Period"},
    {145, "Time of Applicability", items::time_of_day},
    {161, "Track/Plot Number", items::track_number},
    {170, "Track/Plot Status", {fixed<1>}},
    {270, "Target Size & Orientation"},
    {300, "Object Classification", {repetitive<2>}},
    {400, "Measurement Identifier", {fixed<5>}},
    {480, "Associations", {repetitive<5>}},
    {600, "Horizontal Position Information", items::compound(ast_dataitem_015_600_get_size), &kItem600},
    {601, "Geometric Height Information", items::compound(ast_dataitem_015_601_get_size), &kItem601},
    {602, "Horizontal Velocity Information", items::compound(ast_dataitem_015_602_get_size), &kItem602},
    {603, "Horizontal Acceleration Information"},
    {604, "Vertical Velocity Information", items::compound(ast_dataitem_015_604_get_size), &kItem604},
    {605, "Vertical Acceleration Information"},
    {625, "Range Information", items::compound(ast_dataitem_015_625_get_size), &kItem625},
    {626, "Doppler Information", items::compound(ast_dataitem_015_626_get_size), &kItem626},
    {627, "Azimuth Information", items::compound(ast_dataitem_015_627_get_size), &kItem627},
    {628, "Elevation Information"},
    {630, "Path Quality"},
    {631, "Contour (Azimuth, Elevation Angle, Range Extent)"},
};

} // namespace

AST_DEFINE_CATEGORY(015, 15, kItems)
