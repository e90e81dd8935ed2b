// Sends datagrams over loopback.
#pragma once

#include <cstdint>
#include <string>
#include <sys/socket.h>

// Whether this host has an IPv6 loopback address.
bool has_ipv6();

class Sender {
public:
    // To an IPv4 or IPv6 address, which may be a multicast group.
    Sender(const std::string &address, uint16_t port);
    ~Sender();
    Sender(const Sender &) = delete;
    Sender &operator=(const Sender &) = delete;

    void send(const std::string &octets) const;

private:
    sockaddr_storage destination_{};
    socklen_t length_ = 0;
    int socket_ = -1;
};
