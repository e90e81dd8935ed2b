// Takes datagrams from the loopback interface, with the time at which they came.
#pragma once

#include <arpa/inet.h>
#include <chrono>
#include <netinet/in.h>
#include <string>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>
#include <vector>

namespace ast_test {

class Receiver {
public:
    using Clock = std::chrono::steady_clock;
    struct Arrival {
        std::string octets;
        Clock::time_point time;
    };

    // At a port that the system chooses; of a group, where one is given, instead of the host's own.
    explicit Receiver(const char *group = nullptr) : descriptor_(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
        constexpr int kBufferOctets = 4 * 1024 * 1024;
        setsockopt(descriptor_, SOL_SOCKET, SO_RCVBUF, &kBufferOctets, sizeof kBufferOctets);
        sockaddr_in own{};
        own.sin_family = AF_INET;
        own.sin_addr.s_addr = group ? inet_addr(group) : htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof own;
        bind(descriptor_, reinterpret_cast<const sockaddr *>(&own), size);
        getsockname(descriptor_, reinterpret_cast<sockaddr *>(&own), &size);
        url_ = std::string("udp://") + inet_ntoa(own.sin_addr) + ':' + std::to_string(ntohs(own.sin_port));
        if (!group) return;
        ip_mreq request{own.sin_addr, {htonl(INADDR_LOOPBACK)}};
        setsockopt(descriptor_, IPPROTO_IP, IP_ADD_MEMBERSHIP, &request, sizeof request);
        constexpr int kOn = 1;
        setsockopt(descriptor_, IPPROTO_IP, IP_RECVTTL, &kOn, sizeof kOn);
    }
    ~Receiver() { close(); }
    Receiver(const Receiver &) = delete;
    Receiver &operator=(const Receiver &) = delete;

    const std::string &url() const { return url_; }

    void close() {
        if (descriptor_ >= 0) ::close(descriptor_);
        descriptor_ = -1;
    }

    // Up to so many, fewer when nothing comes any more.
    std::vector<Arrival> receive(size_t count, std::chrono::milliseconds patience = std::chrono::seconds(20)) {
        std::vector<Arrival> arrivals;
        std::string buffer(65536, '\0');
        timeval limit{};
        limit.tv_sec = static_cast<time_t>(patience.count() / 1000);
        limit.tv_usec = static_cast<suseconds_t>(patience.count() % 1000 * 1000);
        setsockopt(descriptor_, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
        while (arrivals.size() < count) {
            char control[64];
            iovec octets{buffer.data(), buffer.size()};
            msghdr message{};
            message.msg_iov = &octets;
            message.msg_iovlen = 1;
            message.msg_control = control;
            message.msg_controllen = sizeof control;
            const ssize_t length = recvmsg(descriptor_, &message, 0);
            if (length < 0) break;
            if (const cmsghdr *const header = CMSG_FIRSTHDR(&message)) ttl_ = CMSG_DATA(header)[0];
            arrivals.push_back({buffer.substr(0, static_cast<size_t>(length)), Clock::now()});
        }
        return arrivals;
    }

    // Of the last datagram to a group.
    int ttl() const { return ttl_; }

private:
    int descriptor_;
    std::string url_;
    int ttl_ = 0;
};

// Their octets alone.
inline std::vector<std::string> octets_of(const std::vector<Receiver::Arrival> &arrivals) {
    std::vector<std::string> octets;
    for (const Receiver::Arrival &arrival : arrivals) octets.push_back(arrival.octets);
    return octets;
}

} // namespace ast_test
