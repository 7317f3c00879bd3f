#include "store/output_file.h"

#include <utility>

#include "store/failure.h"
#include "store/file_calls.h"
#include "store/system_failure.h"

namespace halvern {

namespace {

constexpr std::size_t kBufferSize = 1 << 16;
}  // namespace

OutputFile::OutputFile(std::string name) : name_(std::move(name)) {
    const OpenedFile file = OpenForWriting(name_);
    if (file.error)
        FailWithErrno(file.error.value(), name_);
    descriptor_ = file.descriptor;
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
    static_cast<void>(CloseFile(descriptor_));
}

void OutputFile::WriteLine(std::string_view line) {
    buffer_.append(line).append("\r\n");
    if (buffer_.size() >= kBufferSize)
        Flush();
}

// What a full disk did not take is given up. Kept for later it would end up in the new file when the user has made room
// and saved again under the same name.
void OutputFile::Flush() {
    if (!error_)
        error_ = WriteTo(descriptor_, buffer_).error;
    buffer_.clear();
    if (error_)
        FailWithErrno(error_.value(), name_);
}

void OutputFile::Finish() {
    Flush();
    if (const std::error_code error = CloseFile(std::exchange(descriptor_, -1)))
        FailWithErrno(error.value(), name_);
}

}  // namespace halvern
