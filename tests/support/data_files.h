#pragma once

#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace halvern::test {

/// A folder of the test's own, the current directory while it lives, gone with all that it holds at its end.
class DataFolder {
  public:
    DataFolder();
    ~DataFolder();
    DataFolder(const DataFolder&) = delete;
    DataFolder& operator=(const DataFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }

    /// The bytes as they are; returns the absolute path.
    std::string Write(std::string_view name, std::string_view content) const;

  private:
    std::filesystem::path path_;
    std::filesystem::path before_;
};

/// A scan file as the instrument writes it.
struct ScanFile {
    char type = 'R';
    int speed = 42000;
    std::string omega2t = "1.0000E10";
    int points = 12;
    std::string lineEnd = "\r\n";
    /// Signal of point J, by default J / 1000.
    double (*signal)(int J) = nullptr;

    /// The whole text: two head lines, and radii from 5.9000 cm on in steps of 0.0010 cm.
    std::string Text() const;
};

/// All bytes of a file, or "" if it can't be read.
std::string ContentOf(const std::filesystem::path& file);

/// Names joined to the text of a list file.
std::string ListText(const std::vector<std::string>& names, std::string_view lineEnd = "\r\n");

/// Writes scans 00001.RA1, 00002.RA1, ... of rising omega squared t, 1E10 on in steps of 1E8, and a list file "all.LST"
/// of them. Returns the list's path.
std::string WriteDataSet(const DataFolder& folder, int scans, ScanFile like = {});

}  // namespace halvern::test
