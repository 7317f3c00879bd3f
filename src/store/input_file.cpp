#include "store/input_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "store/failure.h"
#include "store/system_failure.h"

namespace halvern {

// Without O_NONBLOCK the opening of a pipe would wait for its writer for ever.
InputFile::InputFile(std::string name)
    : descriptor_(::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)), name_(std::move(name)) {
    if (descriptor_ < 0)
        FailWithErrno(errno, name_);
    struct stat status {};
    if (::fstat(descriptor_, &status) != 0 || !S_ISREG(status.st_mode)) {
        ::close(descriptor_);
        Fail(FailureCode::kPathOrFileAccess, name_);
    }
    capacity_ = std::min(static_cast<std::size_t>(status.st_size), kBufferSize - 1) + 1;
    buffer_ = std::make_unique_for_overwrite<char[]>(capacity_);
}

InputFile::~InputFile() { ::close(descriptor_); }

/// A line of which the buffer does not hold the end.
std::string_view InputFile::ReadOn() {
    if (AtEnd())
        Fail(FailureCode::kInputPastEnd, name_);
    std::size_t searched = 0;
    for (;;) {
        const char* start = buffer_.get() + next_;
        const void* newline = std::memchr(start + searched, '\n', end_ - next_ - searched);
        if (newline != nullptr)
            return Take(static_cast<std::size_t>(static_cast<const char*>(newline) - start), 1);
        searched = end_ - next_;
        if (searched == kBufferSize || !Fill())
            break;
    }
    if (searched < kBufferSize)
        return Take(searched, 0);
    return TakeCut();
}

/// Reads on behind what the buffer still holds. False at the end of the file.
bool InputFile::Fill() {
    MakeRoom();
    ssize_t count;
    do {
        count = ::read(descriptor_, buffer_.get() + end_, capacity_ - end_);
    } while (count < 0 && errno == EINTR);
    if (count < 0)
        FailWithErrno(errno, name_);
    end_ += static_cast<std::size_t>(count);
    return count > 0;
}

void InputFile::MakeRoom() {
    const std::size_t held = end_ - next_;
    if (next_ > 0)
        std::memmove(buffer_.get(), buffer_.get() + next_, held);
    next_ = 0;
    end_ = held;
    if (held < capacity_)
        return;
    // The file has grown since it was opened.
    capacity_ = std::min(capacity_ * 2, kBufferSize);
    auto larger = std::make_unique_for_overwrite<char[]>(capacity_);
    std::memcpy(larger.get(), buffer_.get(), held);
    buffer_ = std::move(larger);
}

/// The buffer is full and holds no line end: keeps its first part, and passes over the rest of the line.
std::string_view InputFile::TakeCut() {
    const std::string kept(buffer_.get() + next_, kLongestLine);
    const char* newline = nullptr;
    do {
        next_ = end_;
        if (!Fill())
            break;
        newline = static_cast<const char*>(std::memchr(buffer_.get(), '\n', end_));
    } while (newline == nullptr);
    if (newline != nullptr)
        next_ = static_cast<std::size_t>(newline - buffer_.get()) + 1;
    cutLine_ = kept;
    return cutLine_;
}

}  // namespace halvern
