#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace halvern {

/// A text file that is read line by line through a buffer of its own.
///
/// A scan of the full 2048 points in the instrument's layout has some 54 kB and is read in one piece; a larger file
/// passes through in pieces of 64 kB.
class InputFile {
  public:
    /// Fails     53, 70, 75, 76 and the like, with what kept it from being opened; 75 for what is no regular file
    explicit InputFile(std::string name);
    ~InputFile();
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    /// Fails     57 when the file cannot be read
    bool AtEnd() { return next_ == end_ && !Fill(); }

    /// The next line without its end, LF or CR LF; valid until the next call. Of a line longer than kLongestLine bytes
    /// the rest is lost.
    ///
    /// Fails     62 at the end, 57 when the file cannot be read
    std::string_view ReadLine() {
        const char* const start = buffer_.get() + next_;
        const void* const newline = std::memchr(start, '\n', end_ - next_);
        if (newline == nullptr) [[unlikely]]
            return ReadOn();
        return Take(static_cast<std::size_t>(static_cast<const char*>(newline) - start), 1);
    }
    static constexpr std::size_t kLongestLine = 65535;

    /// What the buffer holds of the next lines, for whoever sees at a glance where the first one ends; valid until the next
    /// call. It is empty when the buffer has to be filled first.
    std::string_view Ahead() const { return {buffer_.get() + next_, end_ - next_}; }
    /// Takes the first line of Ahead(), of which so many bytes are known to be one with its end. Returns it with that.
    std::string_view TakeWithEnd(std::size_t bytes) {
        const std::string_view line = Ahead().substr(0, bytes);
        next_ += bytes;
        return line;
    }

  private:
    static constexpr std::size_t kBufferSize = kLongestLine + 1;

    std::string_view ReadOn();
    bool Fill();
    void MakeRoom();
    std::string_view Take(std::size_t size, std::size_t lineFeed) {
        std::string_view line(buffer_.get() + next_, size);
        next_ += size + lineFeed;
        if (lineFeed != 0 && line.ends_with('\r'))
            line.remove_suffix(1);
        return line;
    }
    std::string_view TakeCut();

    int descriptor_ = -1;
    std::string name_;
    std::size_t capacity_ = 0;
    std::unique_ptr<char[]> buffer_;
    std::size_t next_ = 0;
    std::size_t end_ = 0;
    std::string cutLine_;
};

}  // namespace halvern
