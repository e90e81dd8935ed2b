// What a line of JSON says of its record beside the items.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "datagram/datagram.hpp"

namespace ast::recording {

struct JsonMembers {
    std::string_view file; // as it stands, in quotes
    std::optional<Time> time;
    std::optional<Endpoint> source;
    std::optional<Endpoint> destination;
    bool has_octets = false; // that stand for values

    // What has no meaning, if anything has none; constant.
    std::string_view wrong_path;
    const char *error = nullptr;
    uint64_t position = 0; // of it, in characters from the first
};

class JsonMemberReader {
public:
    // Of an object that is well formed.
    JsonMembers read(std::string_view object);

private:
    // Remembers what it has read last.
    class Recent {
    public:
        std::optional<Endpoint> read(std::string_view text);

    private:
        std::string text_;
        std::optional<Endpoint> endpoint_;
    };

    Recent source_;
    Recent destination_;
};

} // namespace ast::recording
