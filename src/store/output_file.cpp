#include "store/output_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "store/failure.h"
#include "store/system_failure.h"

namespace halvern {

namespace {

constexpr std::size_t kBufferSize = 1 << 16;
constexpr mode_t kReadableAndWritable = 0666;

}  // namespace

OutputFile::OutputFile(std::string name)
    : descriptor_(::open(name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kReadableAndWritable)),
      name_(std::move(name)) {
    if (descriptor_ < 0)
        FailWithErrno(errno, name_);
    buffer_.reserve(2 * kBufferSize);
}

OutputFile::~OutputFile() {
    if (descriptor_ < 0)
        return;
    try {
        Flush();
    } catch (const RuntimeFailure&) {
        // The failure that left the file open has been told; there is nobody left to tell of this one.
    }
    ::close(descriptor_);
}

void OutputFile::WriteLine(std::string_view line) {
    buffer_.append(line).append("\r\n");
    if (buffer_.size() >= kBufferSize)
        Flush();
}

void OutputFile::Flush() {
    std::size_t written = 0;
    while (written < buffer_.size()) {
        const ssize_t count = ::write(descriptor_, buffer_.data() + written, buffer_.size() - written);
        if (count >= 0) {
            written += static_cast<std::size_t>(count);
        } else if (errno != EINTR) {
            const int error = errno;
            buffer_.erase(0, written);
            FailWithErrno(error, name_);
        }
    }
    buffer_.clear();
}

void OutputFile::Finish() {
    Flush();
    const int descriptor = std::exchange(descriptor_, -1);
    if (::close(descriptor) != 0)
        FailWithErrno(errno, name_);
}

}  // namespace halvern
