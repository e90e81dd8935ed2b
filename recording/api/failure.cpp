#include "api/failure.hpp"

#include <algorithm>
#include <asio/error.hpp>
#include <iterator>

namespace ast::recording {

namespace {

struct Meaning {
    std::errc error;
    uint32_t code;
};

constexpr Meaning kMeanings[] = {
    {std::errc::no_such_file_or_directory, AST_RECORDING_NOT_FOUND},
    {std::errc::not_a_directory, AST_RECORDING_NOT_FOUND},
    {std::errc::no_such_device, AST_RECORDING_NOT_FOUND},
    {std::errc::permission_denied, AST_RECORDING_NO_ACCESS},
    {std::errc::operation_not_permitted, AST_RECORDING_NO_ACCESS},
    {std::errc::address_in_use, AST_RECORDING_NO_ACCESS},
    {std::errc::address_not_available, AST_RECORDING_NOT_FOUND},
    {std::errc::connection_refused, AST_RECORDING_NO_CONNECTION},
    {std::errc::connection_reset, AST_RECORDING_NO_CONNECTION},
    {std::errc::timed_out, AST_RECORDING_NO_CONNECTION},
    {std::errc::host_unreachable, AST_RECORDING_NO_CONNECTION},
    {std::errc::network_unreachable, AST_RECORDING_NO_CONNECTION},
    {std::errc::not_enough_memory, AST_RECORDING_NO_MEMORY},
};

} // namespace

uint32_t code_of(const std::error_code &error) {
    if (error.category() == asio::error::get_netdb_category() || error.category() == asio::error::get_addrinfo_category())
        return AST_RECORDING_NOT_FOUND;
    const auto found = std::ranges::find_if(kMeanings, [&](const Meaning &meaning) { return error == meaning.error; });
    return found == std::end(kMeanings) ? AST_RECORDING_UNREADABLE : found->code;
}

void set_error(ast_recording_error_t &error, uint32_t code, std::string_view text) {
    error.code = code;
    give_text(error.text, sizeof error.text, text);
}

uint64_t give_text(char *text, uint64_t capacity, std::string_view what) {
    if (text && capacity != 0) text[what.copy(text, capacity - 1)] = '\0';
    return what.size();
}

} // namespace ast::recording
