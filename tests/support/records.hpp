// Records made of items rather than of octets, so that a record can hold what a decoder would not let through.
#pragma once

#include <initializer_list>
#include <string_view>
#include <vector>

#include "support/octets.hpp"

namespace ast_test {

struct Content {
    ast_dataitem_type_t type;
    std::string_view hex;
};

// A valid record of the category that holds the items in this order, each over octets of its own.
class Record {
public:
    Record(uint32_t category, std::initializer_list<Content> items) : record_{} {
        record_.category = category;
        record_.valid = true;
        octets_.reserve(items.size());
        for (const Content &item : items) {
            octets_.push_back(octets(item.hex));
            record_.items[record_.item_count++] = {
                .data = octets_.back().data(), .size = octets_.back().size(), .type = item.type, .valid = true};
        }
    }
    Record(const Record &) = delete;
    Record &operator=(const Record &) = delete;

    operator const ast_datarecord_t *() const { return &record_; }
    ast_datarecord_t *operator->() { return &record_; }

private:
    std::vector<std::vector<uint8_t>> octets_;
    ast_datarecord_t record_;
};

} // namespace ast_test
