// Numbers in the order of whoever wrote them.
#pragma once

#include "datagram/datagram.hpp"

namespace ast::recording {

struct ByteOrder {
    bool is_little_endian = false;

    uint32_t u32(const uint8_t *octets) const {
        return is_little_endian ? join(octets[3], octets[2], octets[1], octets[0])
                                : join(octets[0], octets[1], octets[2], octets[3]);
    }

    uint16_t u16(const uint8_t *octets) const {
        return static_cast<uint16_t>(is_little_endian ? join(0, 0, octets[1], octets[0])
                                                      : join(0, 0, octets[0], octets[1]));
    }

private:
    static uint32_t join(uint32_t first, uint32_t second, uint32_t third, uint32_t fourth) {
        return first << 24 | second << 16 | third << 8 | fourth;
    }
};

} // namespace ast::recording
