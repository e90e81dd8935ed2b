// Octets as characters that may stand in an element of script, five for four octets.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ast::recording::astdump {

// The digits of 85 are the characters from '#' to 'x', without '<'. Four octets are a number of five digits, the most
// significant first; fewer at the end are filled up with 0, of which as many digits are left out.
class Base85 {
public:
    // Appends the digits of octets that follow those before, as far as they fill groups of four.
    void put(std::string &text, std::string_view octets);

    // Appends those of what is left.
    void end(std::string &text);

private:
    std::string left_; // fewer than four octets
};

} // namespace ast::recording::astdump
