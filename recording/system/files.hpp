// Files by their names, which are UTF-8 where the system has a say in that.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "system/descriptor.hpp"

namespace ast::recording::system {

struct FileFacts {
    bool is_regular = false;
    uint64_t octets = 0;
    uint32_t mode = 0;                  // who may do what, as set_mode() takes it
    std::array<uint64_t, 2> identity{}; // the same of two names of one file
};

// What stands there, links followed; nothing where there is nothing.
std::optional<FileFacts> look_at(int file);
std::optional<FileFacts> look_at(const std::string &path);

// The same of an input, which is standard input if it is "-".
inline std::optional<FileFacts> look_at_input(const std::string &path) {
    return path == "-" ? look_at(kStandardInput) : look_at(path);
}

bool exists(const std::string &path);

// Why a file cannot be read, or written to; none when it can.
std::error_code check_readable(const std::string &path);
std::error_code check_writable(const std::string &path);

// Both throw std::system_error. The first waits, if it shall, for somebody to write to a pipe.
int open_to_read(const std::string &path, bool waits);
int open_to_write(const std::string &path);

// What a link leads to, also where that is not there as yet; of all other names, the name itself.
std::string behind_links(std::string path);

// A new file whose name is `stem` and something more, readable to nobody else as yet. Throws std::system_error.
struct NewFile {
    int file;
    std::string path;
};
NewFile create(const std::string &stem);

// Whoever may do with a file what the mode says, or else what the user wants for new ones.
void set_mode(int file, std::optional<uint32_t> mode);

// Writes to a file or a pipe some of a text, which waits for room. Fewer characters than there are after a failure,
// with its reason.
struct Written {
    size_t count;
    int error; // as errno numbers it; 0 for none
};
Written write(int file, std::string_view text);

// What has been written to a file has arrived where it stays.
std::error_code flush(int file);

// Gives a closed file another name. The first takes that from the file that has it; the second fails then.
std::error_code replace(const std::string &from, const std::string &to);
std::error_code rename(const std::string &from, const std::string &to);

void remove(const std::string &path);

// Where a file is read next; negative for what is no file.
int64_t place_of(int file);
void set_place(int file, int64_t place);

} // namespace ast::recording::system
