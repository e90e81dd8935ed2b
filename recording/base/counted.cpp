#include "base/counted.hpp"

namespace ast::recording {

std::string counted(uint64_t count, std::string_view noun) {
    return std::to_string(count).append(" ").append(noun).append(count == 1 ? "" : "s");
}

void put_counted(TextBuffer &out, uint64_t count, std::string_view noun) {
    out.number(count);
    out.put(' ');
    out.put(noun);
    if (count != 1) out.put('s');
}

} // namespace ast::recording
