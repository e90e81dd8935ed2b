#include "command.hpp"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <sys/wait.h>

std::string hex(const std::string &digits) {
    std::string octets;
    std::istringstream in(digits);
    for (char high, low; in >> high >> low;)
        octets += static_cast<char>(std::stoi(std::string{high, low}, nullptr, 16));
    return octets;
}

std::string read_file(const std::string &path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw std::runtime_error("cannot read " + path);
    std::ostringstream octets;
    if (in.peek() != EOF) octets << in.rdbuf();
    return octets.str();
}

Command::Command() {
    std::string pattern = std::filesystem::temp_directory_path() / "astdump-XXXXXX";
    if (!mkdtemp(pattern.data())) throw std::runtime_error("no temporary directory");
    directory_ = pattern;
#ifdef VIEWER
    setenv("AST_VIEWER", VIEWER, 1); // pages are made of that, whether the viewer has been built or not
#endif
}

Command::~Command() {
    std::error_code ignored;
    std::filesystem::remove_all(directory_, ignored);
}

void Command::write(const std::string &file, const std::string &octets) const {
    std::ofstream(directory_ + '/' + file, std::ios::binary) << octets;
}

void Command::append(const std::string &file, const std::string &octets) const {
    std::ofstream(directory_ + '/' + file, std::ios::binary | std::ios::app) << octets;
}

Result Command::run(const std::string &arguments) const {
    const std::string shell = "cd " + directory_ + " && { " ASTDUMP " " + arguments + "; } >.out 2>.err";
    const int status = std::system(shell.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, read_file(directory_ + "/.out"),
            read_file(directory_ + "/.err")};
}
