#include "store/file_calls.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <optional>

namespace halvern {

namespace {

constexpr mode_t kReadableAndWritable = 0666;
constexpr mode_t kPermissions = 0777;
constexpr int kMostAttempts = 1000;

std::error_code Error(int number) { return {number, std::generic_category()}; }

template <class Call>
auto UntilNotInterrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

/// A text that holds a zero byte is the name of no file; the calls would take what stands before it.
bool IsName(const std::string& path) { return path.find('\0') == std::string::npos; }

OpenedFile Open(const std::string& path, int flags) {
    if (!IsName(path))
        return {.descriptor = -1, .error = Error(ENOENT)};
    const int descriptor =
        UntilNotInterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC, kReadableAndWritable); });
    return {.descriptor = descriptor, .error = descriptor < 0 ? Error(errno) : std::error_code{}};
}

/// Once it is open, a pipe's writer waits for its reader as usual.
void WaitForReaders(int descriptor) {
    constexpr int kNoFlags = 0;
    static_cast<void>(::fcntl(descriptor, F_SETFL, kNoFlags));
}

}  // namespace

OpenedFile OpenForReading(const std::string& path) { return Open(path, O_RDONLY | O_NONBLOCK); }

OpenedFile OpenForWriting(const std::string& path) {
    const OpenedFile file = Open(path, O_WRONLY | O_CREAT | O_TRUNC | O_NONBLOCK);
    if (!file.error)
        WaitForReaders(file.descriptor);
    return file;
}

Transfer ReadFrom(int descriptor, std::span<char> room) {
    const ssize_t count = UntilNotInterrupted([&] { return ::read(descriptor, room.data(), room.size()); });
    if (count < 0)
        return {.bytes = 0, .error = Error(errno)};
    return {.bytes = static_cast<std::size_t>(count), .error = {}};
}

Transfer WriteTo(int descriptor, std::string_view bytes) {
    std::size_t written = 0;
    while (written < bytes.size()) {
        const std::string_view rest = bytes.substr(written);
        const ssize_t count = UntilNotInterrupted([&] { return ::write(descriptor, rest.data(), rest.size()); });
        // A device that takes nothing and gives no reason would be asked for ever.
        if (count <= 0)
            return {.bytes = written, .error = Error(count < 0 ? errno : EIO)};
        written += static_cast<std::size_t>(count);
    }
    return {.bytes = written, .error = {}};
}

// The descriptor is free after an interrupted close too: a second one could hit a file that another has opened since.
std::error_code CloseFile(int descriptor) {
    if (::close(descriptor) == 0 || errno == EINTR)
        return {};
    return Error(errno);
}

namespace {

/// Not every file system keeps what it is asked to keep; whoever has chosen such a one knows.
std::error_code BringToDisk(int descriptor) {
    if (UntilNotInterrupted([&] { return ::fsync(descriptor); }) == 0)
        return {};
    const int error = errno;
    if (error == EINVAL || error == ENOSYS || error == EOPNOTSUPP)
        return {};
    return Error(error);
}

std::error_code WriteAndClose(int descriptor, std::string_view content, bool onDisk) {
    std::error_code error = WriteTo(descriptor, content).error;
    if (!error && onDisk)
        error = BringToDisk(descriptor);
    const std::error_code atClose = CloseFile(descriptor);
    return error ? error : atClose;
}

std::error_code WriteDirectly(const std::string& path, std::string_view content) {
    const OpenedFile file = OpenForWriting(path);
    return file.error ? file.error : WriteAndClose(file.descriptor, content, false);
}

/// Makes a file of a name that none has, in a folder.
OpenedFile OpenBeside(const std::filesystem::path& folder, std::string& path) {
    for (int attempt = 0;; ++attempt) {
        path = (folder / (".halvern-" + std::to_string(::getpid()) + "-" + std::to_string(attempt) + ".part")).string();
        const OpenedFile file = Open(path, O_WRONLY | O_CREAT | O_EXCL);
        if (file.error != std::errc::file_exists || attempt == kMostAttempts)
            return file;
    }
}

bool FolderTakesNoFile(const std::error_code& error) {
    return error == std::errc::permission_denied || error == std::errc::operation_not_permitted ||
           error == std::errc::read_only_file_system;
}

/// The file that a path stands for, links followed; nothing if there is none.
std::optional<struct stat> StatusOf(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0)
        return std::nullopt;
    return status;
}

bool IsLink(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_symlink(path, error);
}

std::error_code MoveOver(const std::string& from, const std::string& to) {
    return ::rename(from.c_str(), to.c_str()) == 0 ? std::error_code{} : Error(errno);
}

/// Fills the file made under `grown` and puts it in the place of `target`. Whatever fails, nothing of it is left.
std::error_code GrowAndMove(int descriptor, const std::string& grown, const std::string& target,
                            const std::optional<struct stat>& old, std::string_view content) {
    if (old.has_value())
        static_cast<void>(::fchmod(descriptor, old->st_mode & kPermissions));
    std::error_code error = WriteAndClose(descriptor, content, true);
    if (!error)
        error = MoveOver(grown, target);
    if (error)
        ::unlink(grown.c_str());
    return error;
}

}  // namespace

std::error_code ReplaceFile(const std::string& path, std::string_view content) {
    if (!IsName(path))
        return Error(ENOENT);
    const auto old = StatusOf(path);
    // A link that leads nowhere is followed by the opening alone, which makes the file that it names.
    if (old.has_value() ? !S_ISREG(old->st_mode) : IsLink(path))
        return WriteDirectly(path, content);
    if (old.has_value() && ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0)
        return Error(errno);
    std::error_code error;
    std::filesystem::path target = path;
    if (IsLink(path))
        target = std::filesystem::canonical(path, error);
    if (error)
        return error;
    std::string grown;
    const OpenedFile file = OpenBeside(target.parent_path(), grown);
    if (file.error) {
        if (old.has_value() && FolderTakesNoFile(file.error))
            return WriteDirectly(path, content);
        return file.error;
    }
    return GrowAndMove(file.descriptor, grown, target.string(), old, content);
}

void TakeSignalsOfWritingAsErrors() {
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);
}

}  // namespace halvern
