#include "codec/fspec.hpp"

#include <cstring>

using namespace ast;

ast_fspec_t ast_fspec_decode(const uint8_t *data, uint64_t available) { return decode_fspec(data, available); }

bool ast_fspec_is_set(const ast_fspec_t *fspec, uint32_t frn) {
    return fspec && fspec->valid && frn != 0 && announces(*fspec, frn);
}

bool ast_fspec_set(uint8_t *octets, uint64_t available, uint32_t frn, bool on) {
    if (!octets || frn == 0 || frn_octet(frn) >= available) return false;
    uint8_t &octet = octets[frn_octet(frn)];
    octet = static_cast<uint8_t>(on ? octet | frn_mask(frn) : octet & ~frn_mask(frn));
    return true;
}

ast_fspec_t ast_fspec_copy(uint8_t *buffer, uint64_t length, const ast_fspec_t *source) {
    ast_fspec_t copy{};
    copy.data = buffer;
    if (!source) return copy;
    copy.frn_count = source->frn_count;
    copy.item_count = source->item_count;
    if (!source->valid || !buffer || source->length > length) return copy;
    if (source->length != 0)
        std::memcpy(buffer, source->data, static_cast<size_t>(source->length)); // an empty one may have no octets
    copy.length = source->length;
    copy.valid = true;
    return copy;
}
