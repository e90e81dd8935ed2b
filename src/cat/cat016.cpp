// Category 016: configuration reports of a multistatic surveillance system.

#include "codec/category.hpp"

namespace {

using namespace ast;

constexpr ItemRow kItems[] = {
    {0, "Message Type", {fixed<1>}},
    {10, "Data Source Identifier", {fixed<2>}},
    {15, "Service Identification", {fixed<1>}},
    {140, "Time of Day", {fixed<3>}},
    {200, "System Configuration Reporting Period", {fixed<1>}},
    {300, "Pair Identification", {repetitive<6>}},
    {400, "Position of System Reference Point", {fixed<8>}},
    {405, "Height of System Reference Point", {fixed<2>}},
    {410, "Transmitter Properties", {repetitive<21>}},
    {420, "Receiver Properties", {repetitive<12>}},
};

} // namespace

AST_DEFINE_CATEGORY(016, 16, kItems)
