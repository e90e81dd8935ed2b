#include "system/descriptor.hpp"

#include <algorithm>
#include <io.h>
#include <system_error>
#include <winsock2.h>

#include "system/windows/last_failure.hpp"

namespace ast::recording::system {

namespace {

constexpr size_t kMostAtATime = size_t{1} << 30; // as the calls count

std::optional<size_t> receive(SOCKET socket, std::span<uint8_t> octets, DWORD count) {
    const int got = ::recv(socket, reinterpret_cast<char *>(octets.data()), static_cast<int>(count), 0);
    if (got >= 0) return static_cast<size_t>(got);
    if (WSAGetLastError() == WSAEWOULDBLOCK) return std::nullopt;
    throw std::system_error(socket_failure());
}

} // namespace

// The C library itself reads no further once a file has ended, which may grow. A pipe that nobody writes to any more is
// at its end; Ctrl-C breaks off what is read from a console.
std::optional<size_t> read(Descriptor descriptor, std::span<uint8_t> octets) {
    const auto count = static_cast<DWORD>(std::min(octets.size(), kMostAtATime));
    if (descriptor.kind == Descriptor::Kind::socket)
        return receive(static_cast<SOCKET>(descriptor.number), octets, count);
    const auto handle = reinterpret_cast<HANDLE>(::_get_osfhandle(static_cast<int>(descriptor.number)));
    DWORD got = 0;
    if (ReadFile(handle, octets.data(), count, &got, nullptr)) return got;
    const DWORD error = GetLastError();
    if (error == ERROR_BROKEN_PIPE || error == ERROR_HANDLE_EOF) return 0;
    if (error == ERROR_OPERATION_ABORTED) return std::nullopt;
    throw std::system_error(static_cast<int>(error), std::system_category());
}

void close(Descriptor descriptor) {
    if (descriptor.kind == Descriptor::Kind::socket)
        ::closesocket(static_cast<SOCKET>(descriptor.number));
    else if (descriptor.kind == Descriptor::Kind::file && descriptor.number != kStandardInput)
        ::_close(static_cast<int>(descriptor.number));
}

} // namespace ast::recording::system
