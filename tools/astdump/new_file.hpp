// A file that takes the place of an older one when it is whole, and not before.
#pragma once

#include <string>
#include <vector>

#include "output.hpp"

namespace astdump {

class NewFile {
public:
    // Writes to a temporary file beside `path`, or beside what a link there points to. Throws std::runtime_error when
    // that is not possible, or when the file is one of the inputs, by whatever name; as do the others.
    NewFile(const std::string &path, const std::vector<std::string> &inputs);

    // Leaves the older file as it is, unless the new one has been kept.
    ~NewFile();
    NewFile(const NewFile &) = delete;
    NewFile &operator=(const NewFile &) = delete;

    void write(std::string_view octets);
    void keep();

private:
    [[noreturn]] void fail(int error) const;

    std::string path_;
    std::string target_;
    std::string temporary_;
    int descriptor_;
    Output out_;
};

} // namespace astdump
