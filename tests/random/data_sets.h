#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "random/random.h"

namespace halvern::random_user {

/// The files that a session finds and leaves: data sets of every kind, written when the user asks for one.
class DataSets {
  public:
    /// Given     folder   of the session's own; it exists and is empty
    ///           copies   a folder that takes a second copy of each file, as it was before the program; empty for none
    DataSets(Random& random, std::filesystem::path folder, std::filesystem::path copies);

    /// Writes another data set and returns the path of its list file.
    std::string NewList();

    /// A list file that was written before, or a new one.
    std::string SomeList();

    /// A scan of a data set, or something that is no scan.
    std::string SomeScan();

    /// A file that a person gives as the one to write to. What it is named after decides what becomes of it.
    std::string NewFile();

    const std::filesystem::path& Folder() const { return folder_; }

    /// What writing to this file meets: a full disk.
    static bool IsFullDisk(const std::string& path) { return path.find("/full.") != std::string::npos; }

  private:
    void Provide(const std::filesystem::path& folder) const;
    void Write(const std::string& name, const std::string& text) const;

    Random& random_;
    std::filesystem::path folder_, copies_;
    std::vector<std::string> lists_, scans_, outputs_;
    int sets_ = 0;
};

}  // namespace halvern::random_user
