#include "support/data_files.h"

#include <stdlib.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace halvern::test {

namespace {

std::string Printed(const char* format, auto... values) {
    char text[128];
    const int size = std::snprintf(text, sizeof text, format, values...);
    return std::string(text, static_cast<std::size_t>(size));
}

}  // namespace

DataFolder::DataFolder() : before_(std::filesystem::current_path()) {
    std::string pattern = (std::filesystem::temp_directory_path() / "halvern-test-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr)
        throw std::runtime_error("no folder for the test's files");
    path_ = std::filesystem::canonical(pattern);
    std::filesystem::current_path(path_);
}

DataFolder::~DataFolder() {
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
    std::filesystem::remove_all(path_, ignored);
}

std::string DataFolder::Write(std::string_view name, std::string_view content) const {
    const std::filesystem::path file = path_ / std::filesystem::path(name);
    std::filesystem::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary);
    out << content;
    out.close();
    if (!out)
        throw std::runtime_error("cannot write " + file.string());
    return file.string();
}

std::string ScanFile::Text() const {
    std::string text = "simulated" + lineEnd;
    // Columns 9 to 14 hold the speed, 23 to 32 omega squared t.
    text += Printed("%c 1 20.0%6d 0000600%10s 280 5", type, speed, omega2t.c_str()) + lineEnd;
    for (int J = 1; J <= points; ++J) {
        const double value = signal == nullptr ? J / 1000.0 : signal(J);
        text += Printed("   %7.4f%15.6E", 5.9 + 0.001 * (J - 1), value) + lineEnd;
    }
    return text;
}

std::string ContentOf(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

std::string ListText(const std::vector<std::string>& names, std::string_view lineEnd) {
    std::string text;
    for (const auto& name : names)
        text.append(name).append(lineEnd);
    return text;
}

std::string WriteDataSet(const DataFolder& folder, int scans, ScanFile like) {
    std::vector<std::string> names;
    for (int I = 1; I <= scans; ++I) {
        like.omega2t = Printed("%.4E", 1E10 + 1E8 * (I - 1));
        names.push_back(Printed("%05d.RA1", I));
        folder.Write(names.back(), like.Text());
    }
    return folder.Write("all.LST", ListText(names));
}

}  // namespace halvern::test
