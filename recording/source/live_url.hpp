// Where live data come from, as users write it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace ast::recording {

// "udp://HOST:PORT" or "tcp://HOST:PORT". A host is a name, an IPv4 address, or an IPv6 address in brackets.
struct LiveUrl {
    bool is_tcp;
    std::string host; // without brackets
    uint16_t port;
    std::string text; // as it was written
};

// Is told what a user waits for: "listening on 0.0.0.0:8600".
using Announce = std::function<void(const std::string &what)>;

bool is_live(const std::string &text);

// Several are set apart by blanks. Throws std::invalid_argument for what is_live, but none.
std::vector<LiveUrl> read_live_urls(const std::string &text);

// Makes one of addresses to listen to, which are read at once, as if they were one file. Whether there are any. Throws
// std::invalid_argument for what cannot be read together.
bool join_live(std::vector<std::string> &inputs);

} // namespace ast::recording
