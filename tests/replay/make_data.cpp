// The data sets of the session scripts, written into the current directory:
//
//   absorbance/     six scans, 00001.RA1 on. all.LST names them; three.LST the first three; gaps.LST also a file that is
//                   missing and one of nine points; none.LST is empty
//   interference/   five scans, all.LST
//   two-speeds/     two scans at 20000 rpm and three at 42000, all.LST
//   equal/          five scans of which the third has the omega squared t of the second, all.LST
//   latest          a link to the folder absorbance

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "support/data_files.h"

namespace {

using halvern::test::ListText;
using halvern::test::ScanFile;

void Write(const std::filesystem::path& file, const std::string& content) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary);
    out << content;
}

/// Names and writes one scan after the other: omega squared t rises from 1E10 in steps of 1E8.
class SetWriter {
  public:
    SetWriter(std::string folder, std::string extension)
        : folder_(std::move(folder)), extension_(std::move(extension)) {}

    void Add(ScanFile scan) {
        char text[32];
        std::snprintf(text, sizeof text, "%.4E", 1E10 + 1E8 * static_cast<double>(names_.size()));
        scan.omega2t = text;
        AddAsItIs(scan);
    }
    void AddAsItIs(const ScanFile& scan) {
        char name[32];
        std::snprintf(name, sizeof name, "%05zu%s", names_.size() + 1, extension_.c_str());
        names_.push_back(name);
        Write(folder_ + "/" + name, scan.Text());
    }
    void Add(int scans, const ScanFile& like) {
        for (int i = 0; i < scans; ++i)
            Add(like);
    }

    const std::vector<std::string>& Names() const { return names_; }
    void WriteList(const std::string& name, const std::vector<std::string>& names) const {
        Write(folder_ + "/" + name, ListText(names));
    }

  private:
    std::string folder_;
    std::string extension_;
    std::vector<std::string> names_;
};

void WriteAbsorbance() {
    SetWriter set("absorbance", ".RA1");
    set.Add(6, {});
    const auto& n = set.Names();
    set.WriteList("all.LST", n);
    set.WriteList("three.LST", {n[0], n[1], n[2]});
    set.WriteList("none.LST", {});
    Write("absorbance/sparse.RA1", ScanFile{.points = 9}.Text());
    set.WriteList("gaps.LST", {n[0], "missing.RA1", n[1], "sparse.RA1", n[2], n[3], n[4], n[5]});
    std::filesystem::create_directory_symlink("absorbance", "latest");
}

void WriteInterference() {
    SetWriter set("interference", ".IP1");
    set.Add(5, {.type = 'P'});
    set.WriteList("all.LST", set.Names());
}

void WriteTwoSpeeds() {
    SetWriter set("two-speeds", ".RA1");
    set.Add(2, {.speed = 20000});
    set.Add(3, {.speed = 42000});
    set.WriteList("all.LST", set.Names());
}

void WriteEqual() {
    SetWriter set("equal", ".RA1");
    set.Add(2, {});
    set.AddAsItIs({.omega2t = "1.0100E10"});
    set.Add(2, {});
    set.WriteList("all.LST", set.Names());
}

}  // namespace

int main() {
    WriteAbsorbance();
    WriteInterference();
    WriteTwoSpeeds();
    WriteEqual();
}
