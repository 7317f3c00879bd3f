#include "store/input_file.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstring>
#include <span>
#include <utility>

#include "store/failure.h"
#include "store/file_calls.h"
#include "store/system_failure.h"

namespace halvern {

InputFile::InputFile(std::string name) : name_(std::move(name)) {
    const OpenedFile file = OpenForReading(name_);
    if (file.error)
        FailWithErrno(file.error.value(), name_);
    descriptor_ = file.descriptor;
    struct stat status {};
    static_cast<void>(::fstat(descriptor_, &status));
    if (!S_ISREG(status.st_mode)) {
        static_cast<void>(CloseFile(descriptor_));
        Fail(FailureCode::kPathOrFileAccess, name_);
    }
    capacity_ = std::min(static_cast<std::size_t>(status.st_size), kBufferSize - 1) + 1;
    buffer_ = std::make_unique_for_overwrite<char[]>(capacity_);
}

InputFile::~InputFile() { static_cast<void>(CloseFile(descriptor_)); }

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
    const Transfer read = ReadFrom(descriptor_, std::span(buffer_.get() + end_, capacity_ - end_));
    if (read.error)
        FailWithErrno(read.error.value(), name_);
    end_ += read.bytes;
    return read.bytes > 0;
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
    const std::string kept(buffer_.get(), kLongestLine);
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
