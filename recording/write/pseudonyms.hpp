// Other addresses, codes and callsigns for those of aircraft, the same ones for the same seed. They keep readers from
// seeing who flew, and are no secrecy: who knows a flight finds it by where and when it was.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace ast::recording {

class Pseudonyms {
public:
    explicit Pseudonyms(std::string_view seed);

    // Each address has its own; 000000 and FFFFFF, which are nobody's, stay.
    uint32_t address(uint32_t address) const;

    // Each code of four octal digits has its own; 7500, 7600, 7700, 2000 and 7000 stay and nothing else becomes one.
    uint32_t code(uint32_t code) const;

    // Each of those of so few bits that are none of four digits has its own.
    uint32_t short_code(uint32_t code, unsigned bits) const;

    // Letters for letters and digits for digits, all else as it is, by all of the text.
    std::string callsign(std::string_view callsign) const;

private:
    enum class Domain : uint64_t { address, code, short_code, callsign };

    uint64_t mixed(Domain domain, uint64_t first, uint64_t second) const;
    uint32_t permuted(Domain domain, uint32_t value, unsigned bits) const;

    std::array<uint64_t, 2> key_;
};

} // namespace ast::recording
