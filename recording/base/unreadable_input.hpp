// What nobody can read.
#pragma once

#include <stdexcept>

namespace ast::recording {

// An input of a kind that cannot be read; what() says why.
class UnreadableInput : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace ast::recording
