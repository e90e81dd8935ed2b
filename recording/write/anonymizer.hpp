// Records that do not tell who flew.
#pragma once

#include "ask/field_path.hpp"
#include "write/pseudonyms.hpp"

namespace ast::recording {

// What a published field tells of an aircraft.
enum class Identity { none, address, code, short_code, code_in_characters, callsign };
Identity identity_of(const ast_field_t &field, std::string_view path);

// Good for several threads at once.
class Anonymizer {
public:
    explicit Anonymizer(std::string_view seed) : pseudonyms_(seed) {}

    // Writes pseudonyms for addresses, callsigns and codes of Mode 1, 2 and 3/A into the octets of a record or a copy.
    // Returns how many.
    uint64_t write(const ast_datarecord_t &record, uint8_t *octets) const;

    // The same for an item of a record of that message type.
    uint64_t write(const ast_dataitem_t &item, const ast_uap_t &uap, uint32_t message_type, uint8_t *octets) const;

private:
    static bool change(void *context, const ast_field_value_t *value, uint64_t *raw);

    Pseudonyms pseudonyms_;
};

} // namespace ast::recording
