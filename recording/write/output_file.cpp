#include "write/output_file.hpp"

#include <stdexcept>
#include <utility>

#include "system/files.hpp"

namespace ast::recording {

namespace {

bool is_same(const system::FileFacts &one, const std::string &input) {
    const auto other = system::look_at_input(input);
    return other && one.identity == other->identity;
}

} // namespace

OutputFile::OutputFile(const std::string &path, std::span<const std::string> inputs) try : path_(path), out_(-1) {
    const auto old = system::look_at(path);
    const bool is_regular = !old || old->is_regular;
    if (old && is_regular)
        for (const std::string &input : inputs)
            if (is_same(*old, input)) throw std::runtime_error(path + ": is an input, and not overwritten");
    file_ = is_regular ? open_beside() : system::open_to_write(path);
    if (is_regular) system::set_mode(file_, old ? std::optional(old->mode) : std::nullopt);
    out_ = Output(file_);
} catch (const std::system_error &error) {
    throw std::runtime_error(path + ": " + error.code().message());
}

int OutputFile::open_beside() {
    target_ = system::behind_links(path_);
    const std::error_code failure = system::check_writable(target_);
    if (failure && failure != std::errc::no_such_file_or_directory) throw std::system_error(failure);
    system::NewFile made = system::create(target_);
    temporary_ = std::move(made.path);
    return made.file;
}

OutputFile::~OutputFile() {
    close();
    if (!temporary_.empty()) system::remove(temporary_);
}

void OutputFile::close() {
    if (file_ >= 0) system::close(system::file_descriptor(std::exchange(file_, -1)));
}

void OutputFile::write(std::string_view octets) {
    out_.write(octets);
    if (out_.error() != 0) fail({out_.error(), std::generic_category()});
}

void OutputFile::replace() {
    if (temporary_.empty()) return;
    std::error_code failure = system::flush(file_);
    close();
    if (!failure) failure = system::replace(temporary_, target_);
    if (failure) fail(failure);
    temporary_.clear();
}

// Where a file has the name of the part already, it keeps that.
std::string OutputFile::keep_part() {
    if (temporary_.empty()) return {};
    close();
    std::string part = target_ + ".part";
    if (system::rename(temporary_, part)) part = temporary_;
    temporary_.clear();
    return part;
}

void OutputFile::fail(const std::error_code &why) const { throw std::runtime_error(path_ + ": " + why.message()); }

} // namespace ast::recording
