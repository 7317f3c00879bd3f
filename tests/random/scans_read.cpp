#include "random/scans_read.h"

#include <algorithm>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace halvern::random_user {

namespace {

std::string Between(std::string_view line, std::string_view before, std::string_view after) {
    if (line.size() < before.size() + after.size() || !line.starts_with(before) || !line.ends_with(after))
        return {};
    return std::string(line.substr(before.size(), line.size() - before.size() - after.size()));
}

bool IsCount(const std::string& text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

std::vector<std::string> LinesOf(const std::string& path) {
    std::vector<std::string> lines;
    std::ifstream file(path, std::ios::binary);
    for (std::string line; std::getline(file, line);) {
        if (line.ends_with('\r'))
            line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

/// The names of a list that are files. A name takes 127 characters at most, and blanks behind it do not count.
std::vector<std::string> FilesOf(const std::string& list) {
    std::vector<std::string> names;
    for (std::string name : LinesOf(list)) {
        name.resize(std::min<std::size_t>(name.size(), 127));
        name.erase(name.find_last_not_of(' ') + 1);
        std::error_code error;
        if (std::filesystem::is_regular_file(name, error))
            names.push_back(name);
    }
    return names;
}

bool IsInterference(const std::string& scan) {
    std::ifstream file(scan, std::ios::binary);
    std::string first, second;
    std::getline(file, first);
    return std::getline(file, second) && second.starts_with('P');
}

/// Whether a scan that was read is of the interference optics. Kept: when the last scan but one is dropped as sparse, the
/// last one is never read.
bool ReadsInterference(std::vector<std::string> names, std::deque<std::string> sparse) {
    bool found = false;
    for (std::size_t J = 1; J <= names.size(); ++J) {
        for (;;) {
            found = found || IsInterference(names[J - 1]);
            if (sparse.empty() || sparse.front() != names[J - 1])
                break;
            sparse.pop_front();
            names.erase(names.begin() + static_cast<std::ptrdiff_t>(J) - 1);
            if (J >= names.size())
                return found;
        }
    }
    return found;
}

}  // namespace

Reading ReadingIn(const ListBox& report, std::size_t first) {
    Reading reading;
    std::string list;
    std::deque<std::string> sparse;
    for (std::size_t i = first; i < report.ListCount(); ++i) {
        const std::string line(report.Line(i));
        if (const auto path = Between(line, "ListFile :: ", " being used."); !path.empty())
            list = path;
        if (const auto name = Between(line, "* Sparse File Found: ", ""); !name.empty())
            sparse.push_back(name);
        if (const auto count = Between(line, "", " Data Files Found."); IsCount(count)) {
            reading.counted = true;
            reading.numFiles = std::atoi(count.c_str());
        }
        if (const auto count = Between(line, " ", " valid data files were found."); IsCount(count)) {
            reading.valid = true;
            reading.numFiles = std::atoi(count.c_str());
        }
        if (const auto count = Between(line, "Datasets from ", " different speeds were found."); IsCount(count))
            reading.speeds = std::atoi(count.c_str());
    }
    if (reading.counted && reading.numFiles >= (reading.valid ? 0 : 4))
        reading.interference = ReadsInterference(FilesOf(list), sparse);
    return reading;
}

}  // namespace halvern::random_user
