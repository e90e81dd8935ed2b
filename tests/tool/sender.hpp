// Sends datagrams, and streams, over loopback.
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

// Waits for one connection to a port of its own.
class Server {
public:
    explicit Server(bool ipv6 = false);
    ~Server();
    Server(const Server &) = delete;
    Server &operator=(const Server &) = delete;

    uint16_t port() const;
    void accept();
    void send(const std::string &octets) const;
    std::string read(size_t count) const;
    void close();
    void reset(); // closes without a word

private:
    int listener_ = -1;
    int connection_ = -1;
};
