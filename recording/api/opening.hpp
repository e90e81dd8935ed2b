// What is opened for a program, or why it cannot be.
#pragma once

#include <ast_recording.h>
#include <exception>
#include <new>
#include <system_error>

#include "api/failure.hpp"
#include "api/open_options.hpp"
#include "write/outlet.hpp"

namespace ast::recording {

// What `act()` returns; where it throws, what is false or null, with the reason.
template <typename Act>
auto or_error(ast_recording_error_t *error, Act act) -> decltype(act()) {
    ast_recording_error_t ignored;
    ast_recording_error_t &why = error ? *error : ignored;
    why = {};
    try {
        return act();
    } catch (const CannotOpen &failure) {
        set_error(why, failure.code(), failure.what());
    } catch (const NoDestination &failure) {
        set_error(why, AST_RECORDING_ERROR_OPTION, failure.what());
    } catch (const std::bad_alloc &) {
        set_error(why, AST_RECORDING_ERROR_MEMORY, "no memory");
    } catch (const std::system_error &failure) {
        set_error(why, code_of(failure.code()), failure.what());
    } catch (const std::exception &failure) {
        set_error(why, AST_RECORDING_ERROR_INPUT, failure.what());
    }
    return {};
}

// What `make(options)` makes, or null.
template <typename Options, typename Make>
auto opened(const Options *options, ast_recording_error_t *error, Make make) -> decltype(make(*options)) {
    static constexpr Options kDefaults{};
    return or_error(error, [&] { return make(options ? *options : kDefaults); });
}

} // namespace ast::recording
