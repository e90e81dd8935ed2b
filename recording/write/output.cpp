#include "write/output.hpp"

#include "system/files.hpp"

namespace ast::recording {

void Output::write(std::string_view text) {
    if (error_ != 0) return;
    const system::Written written = system::write(file_, text);
    written_ += written.count;
    error_ = written.error;
}

} // namespace ast::recording
