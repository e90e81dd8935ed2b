// The inside of a block on the HTML page.
#pragma once

#include <string>

#include "decode.hpp"
#include "views.hpp"

namespace astdump {

class PageBlock {
public:
    // Its records, and where it is damaged, what comes before the fault. Good until the next call.
    const std::string &html(const DecodedBlock &decoded);

private:
    void heading(uint64_t number, const std::string &note);
    void contents(const ast_datarecord_t &record);
    void item(const ast_dataitem_t &item);
    void fault(const DecodedBlock &decoded);

    template <typename Thing>
    void view(void (*function)(char *text, uint64_t capacity, const Thing *thing), const Thing &thing);

    std::string html_;
    Views views_;
};

} // namespace astdump
