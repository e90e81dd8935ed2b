// Connects to a port of the loopback interface, and reads what comes, or leaves it.
#pragma once

#include <arpa/inet.h>
#include <chrono>
#include <cstdint>
#include <netinet/in.h>
#include <string>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

namespace ast_test {

class Client {
public:
    // One that keeps little itself is stuck soon, unless it reads.
    explicit Client(uint16_t port, bool keeps_little = false)
        : descriptor_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        constexpr int kLittle = 4096;
        if (keeps_little) setsockopt(descriptor_, SOL_SOCKET, SO_RCVBUF, &kLittle, sizeof kLittle);
        constexpr timeval kPatience{.tv_sec = 20, .tv_usec = 0};
        setsockopt(descriptor_, SOL_SOCKET, SO_RCVTIMEO, &kPatience, sizeof kPatience);
        sockaddr_in other{};
        other.sin_family = AF_INET;
        other.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        other.sin_port = htons(port);
        is_connected_ = connect(descriptor_, reinterpret_cast<const sockaddr *>(&other), sizeof other) == 0;
    }
    ~Client() { close(descriptor_); }
    Client(const Client &) = delete;
    Client &operator=(const Client &) = delete;

    bool is_connected() const { return is_connected_; }

    uint16_t port() const {
        sockaddr_in own{};
        socklen_t size = sizeof own;
        getsockname(descriptor_, reinterpret_cast<sockaddr *>(&own), &size);
        return ntohs(own.sin_port);
    }

    // Fewer octets where the other side ends, or nothing comes any more.
    std::string read(size_t count) const {
        std::string octets(count, '\0');
        size_t size = 0;
        while (size < count) {
            const ssize_t more = recv(descriptor_, octets.data() + size, count - size, 0);
            if (more <= 0) break;
            size += static_cast<size_t>(more);
        }
        octets.resize(size);
        return octets;
    }

private:
    int descriptor_;
    bool is_connected_ = false;
};

} // namespace ast_test
