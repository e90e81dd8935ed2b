#include "system/files.hpp"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <io.h>
#include <random>
#include <share.h>
#include <sys/stat.h>
#include <windows.h>

#include "system/windows/last_failure.hpp"

namespace ast::recording::system {

namespace {

constexpr int kNoFile = -1;
constexpr int kToRead = 4, kToWrite = 2; // to _access

std::error_code failure_of(int result) {
    return result == 0 ? std::error_code() : std::error_code(errno, std::generic_category());
}
std::error_code failure_unless(BOOL done) { return done ? std::error_code() : last_failure(); }

int opened(int file) {
    if (file == kNoFile) throw std::system_error(errno, std::generic_category());
    return file;
}

// A file that was handed over with the right to be read, and no other, tells no more than its size.
std::optional<FileFacts> facts_of(HANDLE handle) {
    BY_HANDLE_FILE_INFORMATION facts{};
    LARGE_INTEGER size{};
    const bool is_on_disk = GetFileType(handle) == FILE_TYPE_DISK && GetFileSizeEx(handle, &size);
    GetFileInformationByHandle(handle, &facts);
    return FileFacts{
        .is_regular = is_on_disk && (facts.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0,
        .octets = static_cast<uint64_t>(size.QuadPart),
        .mode = 0,
        .identity = {facts.dwVolumeSerialNumber, uint64_t{facts.nFileIndexHigh} << 32 | facts.nFileIndexLow}};
}

// A pipe fails once nobody reads it any more, for which the C library has several numbers.
int error_of_writing(int file) {
    const auto handle = reinterpret_cast<HANDLE>(::_get_osfhandle(file));
    return GetFileType(handle) == FILE_TYPE_PIPE ? EPIPE : errno;
}

} // namespace

std::optional<FileFacts> look_at(int file) {
    const auto handle = reinterpret_cast<HANDLE>(::_get_osfhandle(file));
    return handle == INVALID_HANDLE_VALUE ? std::nullopt : facts_of(handle);
}

// Pipes are not opened to be looked at: that would take the place of whoever is to read them.
std::optional<FileFacts> look_at(const std::string &path) {
    if (path.starts_with(R"(\\.\)")) return FileFacts();
    constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const HANDLE handle = CreateFileA(path.c_str(), FILE_READ_ATTRIBUTES, kShared, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return std::nullopt;
    const auto facts = facts_of(handle);
    CloseHandle(handle);
    return facts;
}

bool exists(const std::string &path) { return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

std::error_code check_readable(const std::string &path) { return failure_of(::_access(path.c_str(), kToRead)); }

std::error_code check_writable(const std::string &path) { return failure_of(::_access(path.c_str(), kToWrite)); }

int open_to_read(const std::string &path, bool) {
    return opened(::_open(path.c_str(), _O_RDONLY | _O_BINARY | _O_NOINHERIT));
}

int open_to_write(const std::string &path) {
    return opened(::_open(path.c_str(), _O_WRONLY | _O_BINARY | _O_NOINHERIT));
}

// Links are rare here: one that is written to gives its place to a file.
std::string behind_links(std::string path) { return path; }

NewFile create(const std::string &stem) {
    constexpr int kTries = 100;
    std::random_device random;
    NewFile made{.file = kNoFile, .path = {}};
    for (int i = 0; i < kTries && made.file == kNoFile && (i == 0 || errno == EEXIST); ++i) {
        made.path = stem + '.' + std::to_string(random());
        made.file =
            ::_open(made.path.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT, _S_IREAD | _S_IWRITE);
    }
    opened(made.file);
    return made;
}

// What stands in a folder is for those that the folder is for.
void set_mode(int, std::optional<uint32_t>) {}

Written write(int file, std::string_view text) {
    constexpr size_t kMostAtATime = size_t{1} << 30; // as the call counts
    Written written{};
    while (written.error == 0 && written.count < text.size()) {
        const std::string_view rest = text.substr(written.count, kMostAtATime);
        const int count = ::_write(file, rest.data(), static_cast<unsigned>(rest.size()));
        if (count >= 0)
            written.count += static_cast<size_t>(count);
        else
            written.error = error_of_writing(file);
    }
    return written;
}

std::error_code flush(int file) { return failure_of(::_commit(file)); }

std::error_code replace(const std::string &from, const std::string &to) {
    return failure_unless(MoveFileExA(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH));
}

std::error_code rename(const std::string &from, const std::string &to) {
    return failure_unless(MoveFileExA(from.c_str(), to.c_str(), MOVEFILE_WRITE_THROUGH));
}

void remove(const std::string &path) { DeleteFileA(path.c_str()); }

int64_t place_of(int file) { return ::_lseeki64(file, 0, SEEK_CUR); }

void set_place(int file, int64_t place) { ::_lseeki64(file, place, SEEK_SET); }

} // namespace ast::recording::system
