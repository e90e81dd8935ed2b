// What the published reading of an item depends on beside its octets.
#pragma once

#include <ast.h>
#include <vector>

namespace ast::recording {

struct Reading {
    ast_uap_t uap{};           // of the record, which tells the edition
    uint32_t message_type = 0; // of the record, which fields of category 004 depend on
    uint32_t number = 0;       // of this reading among all that were met, below 2^24
};

// What a message of category 004 is, 0 to 255; 0 for records of others.
uint32_t message_type_of(const ast_datarecord_t &record);

class Readings {
public:
    Reading of(const ast_datarecord_t &record);

private:
    std::vector<decltype(ast_uap_t::get_dataitem)> profiles_; // in the order in which they were met
};

} // namespace ast::recording
