// What is read, and how.
#pragma once

#include <ast.h>
#include <string>
#include <vector>

#include "base/category_set.hpp"
#include "base/octet_range.hpp"
#include "block/profile_names.hpp"
#include "datagram/datagram_filter.hpp"
#include "framing/framing.hpp"

namespace ast::recording {

struct ReadOptions {
    const ast_uap_info_t *profile = nullptr; // null: chosen for each block
    const FramingKind *framing = nullptr;    // of files; null: found out
    CategorySet categories;                  // of blocks that are handed on, and learnt from
    DatagramChoice datagrams;                // that are read
    OctetRange range;                        // of the one file that is read
    bool merge = false;                      // files by the times of their datagrams
    bool follow = false;                     // wait for more at the end
    std::string interface;                   // to listen on; empty for the system's choice
    size_t threads = 1;                      // that may be at work
    bool locates = false;                    // learn where sources stand
    std::vector<ast_site_t> sites;           // that are known; later ones take the place of earlier ones
};

// Where an input comes from.
struct Origin {
    std::string path;                     // "-" for standard input, or URLs set apart by blanks
    std::string name;                     // under which it is shown
    std::optional<Octets> octets;         // that are its content, in place of a path
    const FramingKind *framing = nullptr; // of its own; null for that of all
};

} // namespace ast::recording
