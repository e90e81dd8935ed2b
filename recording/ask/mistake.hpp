// What is wrong in an expression, and where.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

namespace ast::recording {

// Octets of an expression.
struct Stretch {
    size_t at = 0;
    size_t size = 0;
};

class Mistake : public std::invalid_argument {
public:
    Mistake(const std::string &what, const Stretch &place) : std::invalid_argument(what), place_(place) {}
    const Stretch &place() const { return place_; }

private:
    Stretch place_;
};

} // namespace ast::recording
