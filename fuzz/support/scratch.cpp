#include "support/scratch.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <system_error>

#include "support/check.h"

namespace halvern::fuzz {

namespace fs = std::filesystem;

namespace {

bool WriteAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t count = ::write(descriptor, text.data(), text.size());
        if (count <= 0)
            return false;
        text.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

}  // namespace

Scratch::Scratch() {
    std::string pattern = fs::temp_directory_path() / "halvern-fuzz-XXXXXX";
    Check(::mkdtemp(pattern.data()) != nullptr, "a folder for temporary files can be made");
    path_ = pattern;
    fs::current_path(path_);
}

Scratch::~Scratch() {
    std::error_code error;
    fs::current_path("/", error);
    fs::remove_all(path_, error);
}

void Scratch::Clear() const {
    fs::current_path(path_);
    for (const auto& entry : fs::directory_iterator(path_))
        fs::remove_all(entry.path());
}

bool Scratch::Write(std::string_view name, std::string_view text) const {
    if (name.empty() || name.find('\0') != std::string_view::npos || name.find('/') != std::string_view::npos)
        return false;
    const fs::path path = path_ / name;
    const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (descriptor < 0)
        return false;
    const bool written = WriteAll(descriptor, text);
    ::close(descriptor);
    return written;
}

bool StaysInside(std::string_view path) {
    const fs::path taken(path);
    if (taken.is_absolute())
        return false;
    for (const auto& part : taken)
        if (part == "..")
            return false;
    return true;
}

MemoryFile::MemoryFile() : descriptor_(::memfd_create("input", MFD_CLOEXEC)) {
    Check(descriptor_ >= 0, "a file in memory can be made");
    path_ = "/proc/self/fd/" + std::to_string(descriptor_);
}

MemoryFile::~MemoryFile() { ::close(descriptor_); }

void MemoryFile::Hold(std::string_view text) const {
    const bool held =
        ::ftruncate(descriptor_, 0) == 0 && ::lseek(descriptor_, 0, SEEK_SET) == 0 && WriteAll(descriptor_, text);
    Check(held, "a file in memory can be written");
}

std::string Expanded(std::string_view text) {
    constexpr char kRepeat = '\x1D';
    constexpr std::size_t kStep = 512, kLongest = 200'000;
    std::string expanded;
    for (std::size_t i = 0; i < text.size() && expanded.size() < kLongest; ++i) {
        if (text[i] == kRepeat && i + 2 < text.size()) {
            expanded.append(kStep * static_cast<unsigned char>(text[i + 2]), text[i + 1]);
            i += 2;
        } else {
            expanded += text[i];
        }
    }
    return expanded;
}

}  // namespace halvern::fuzz
