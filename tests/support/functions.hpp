// Comparing functions of the library by address.
#pragma once

namespace ast_test {

// On Windows a table of the test holds the address of a stub in the test for each function of the DLL, and the library
// its own; there it has to be enough that both are set.
template <typename Function>
bool same_function(Function *one, Function *other) {
#ifdef _WIN32
    return one && other;
#else
    return one == other;
#endif
}

} // namespace ast_test
