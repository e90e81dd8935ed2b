#include "api/failure.hpp"

#include <algorithm>
#include <asio/error.hpp>
#include <cerrno>
#include <iterator>

#include "system/failure.hpp"

namespace ast::recording {

namespace {

struct Meaning {
    int error; // as errno numbers it
    uint32_t code;
};

constexpr Meaning kMeanings[] = {
    {ENOENT, AST_RECORDING_ERROR_NOT_FOUND},        {ENOTDIR, AST_RECORDING_ERROR_NOT_FOUND},
    {ENODEV, AST_RECORDING_ERROR_NOT_FOUND},        {EACCES, AST_RECORDING_ERROR_NO_ACCESS},
    {EPERM, AST_RECORDING_ERROR_NO_ACCESS},         {EADDRINUSE, AST_RECORDING_ERROR_IN_USE},
    {EADDRNOTAVAIL, AST_RECORDING_ERROR_NOT_FOUND}, {ECONNREFUSED, AST_RECORDING_ERROR_CONNECTION},
    {ECONNRESET, AST_RECORDING_ERROR_CONNECTION},   {ETIMEDOUT, AST_RECORDING_ERROR_CONNECTION},
    {EHOSTUNREACH, AST_RECORDING_ERROR_CONNECTION}, {ENETUNREACH, AST_RECORDING_ERROR_CONNECTION},
    {EPIPE, AST_RECORDING_ERROR_CONNECTION},        {ENOBUFS, AST_RECORDING_ERROR_CONNECTION},
    {ENOMEM, AST_RECORDING_ERROR_MEMORY},
};

} // namespace

uint32_t code_of(const std::error_code &error) {
    if (error.category() == asio::error::get_netdb_category() ||
        error.category() == asio::error::get_addrinfo_category())
        return AST_RECORDING_ERROR_NOT_FOUND;
    const auto found = std::ranges::find(kMeanings, system::errno_of(error), &Meaning::error);
    return found == std::end(kMeanings) ? AST_RECORDING_ERROR_INPUT : found->code;
}

void set_error(ast_recording_error_t &error, uint32_t code, std::string_view text) {
    error.code = code;
    give_text(error.text, sizeof error.text, text);
}

uint64_t give_text(char *text, uint64_t capacity, std::string_view what) {
    if (text && capacity != 0) text[what.copy(text, static_cast<size_t>(capacity - 1))] = '\0';
    return what.size();
}

} // namespace ast::recording
