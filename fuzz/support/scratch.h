#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace halvern::fuzz {

/// A folder that the process makes under the system's folder for temporary files (TMPDIR), stands in, and takes away at
/// its end. What a run leaves there is gone before the next one.
class Scratch {
  public:
    Scratch();
    ~Scratch();
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    const std::filesystem::path& Path() const { return path_; }

    /// Goes back to the folder, and takes everything in it away.
    void Clear() const;
    /// A file in the folder. False for what can't be the name of one.
    bool Write(std::string_view name, std::string_view text) const;

  private:
    std::filesystem::path path_;
};

/// Whether a path counts from the current directory and stays below it.
bool StaysInside(std::string_view path);

/// A file without a place on a disk, with a path all the same.
class MemoryFile {
  public:
    MemoryFile();
    ~MemoryFile();
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    const std::string& Path() const { return path_; }
    void Hold(std::string_view text) const;

  private:
    int descriptor_;
    std::string path_;
};

/// A text in which '\x1D', a character and a byte N stand for 512 N of that character: long lines and long files of a few
/// bytes. It ends after 200 kB.
std::string Expanded(std::string_view text);

}  // namespace halvern::fuzz
