#include "store/files.h"

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <optional>
#include <system_error>
#include <variant>

#include "store/failure.h"
#include "store/fixed_text.h"
#include "store/input_file.h"
#include "store/output_file.h"
#include "store/system_failure.h"

namespace halvern {

namespace {

using OpenTextFile = std::variant<std::monostate, std::unique_ptr<InputFile>, std::unique_ptr<OutputFile>>;

/// By number; element 0 stays empty.
constinit std::array<OpenTextFile, kMostOpenFiles + 1> openFiles;

/// The place of a number in the table. Fails 52 with a number out of range.
OpenTextFile& PlaceOf(std::int16_t number) {
    if (number < 1 || number > kMostOpenFiles)
        Fail(FailureCode::kBadFileNumber);
    return openFiles[static_cast<std::size_t>(number)];
}

bool IsTaken(std::int16_t number) { return !std::holds_alternative<std::monostate>(PlaceOf(number)); }

/// The file of a number. Fails 52 with a number that is not open this way.
template <class File>
File& OpenedAs(std::int16_t number) {
    auto* file = std::get_if<std::unique_ptr<File>>(&PlaceOf(number));
    if (file == nullptr)
        Fail(FailureCode::kBadFileNumber);
    return **file;
}

// Every scan file of a data set may be left open by its failure, next to the files in use.
void AllowManyOpenFiles() {
    constexpr rlim_t kNeeded = 1024;
    rlimit limit{RLIM_INFINITY, RLIM_INFINITY};
    static_cast<void>(::getrlimit(RLIMIT_NOFILE, &limit));
    if (limit.rlim_cur >= kNeeded)
        return;
    limit.rlim_cur = std::min(kNeeded, limit.rlim_max);
    static_cast<void>(::setrlimit(RLIMIT_NOFILE, &limit));
}

template <class File>
void OpenAs(std::int16_t number, std::string_view name) {
    static const bool limitRaised = (AllowManyOpenFiles(), true);
    static_cast<void>(limitRaised);
    if (IsTaken(number))
        Fail(FailureCode::kFileAlreadyOpen);
    PlaceOf(number) = std::make_unique<File>(std::string(name));
}

}  // namespace

std::int16_t FreeFile() {
    for (std::int16_t number = 1; number <= kMostOpenFiles; ++number)
        if (!IsTaken(number))
            return number;
    Fail(FailureCode::kTooManyFiles);
}

void OpenForInput(std::int16_t number, std::string_view name) { OpenAs<InputFile>(number, name); }

void OpenForOutput(std::int16_t number, std::string_view name) { OpenAs<OutputFile>(number, name); }

InputFile& OpenedForInput(std::int16_t number) { return OpenedAs<InputFile>(number); }

bool AtEnd(std::int16_t number) { return OpenedAs<InputFile>(number).AtEnd(); }

std::string_view ReadLine(std::int16_t number) { return OpenedAs<InputFile>(number).ReadLine(); }

void WriteLine(std::int16_t number, std::string_view line) { OpenedAs<OutputFile>(number).WriteLine(line); }

void Close(std::int16_t number) {
    if (!IsTaken(number))
        Fail(FailureCode::kBadFileNumber);
    if (std::holds_alternative<std::unique_ptr<OutputFile>>(PlaceOf(number)))
        OpenedAs<OutputFile>(number).Finish();
    PlaceOf(number) = std::monostate{};
}

void FlushOpenFiles() {
    for (auto& place : openFiles)
        if (auto* file = std::get_if<std::unique_ptr<OutputFile>>(&place)) {
            try {
                (*file)->Flush();
            } catch (const RuntimeFailure&) {
                // It is the failure that this follows, or one more of its kind; the file keeps what it took.
            }
        }
}

bool FileExists(std::string_view name) {
    if (name.empty() || name.find('\0') != std::string_view::npos)
        return false;
    std::error_code error;
    return std::filesystem::is_regular_file(std::filesystem::path(name), error);
}

namespace {

/// The path chosen; the current directory moves to its folder, if there is one.
std::string Chosen(const std::optional<std::string>& path) {
    if (!path.has_value())
        Fail(FailureCode::kCancelled);
    std::error_code error;
    std::filesystem::current_path(std::filesystem::path(*path).parent_path(), error);
    return *path;
}

}  // namespace

std::string ChooseExistingFile(const FileDialog& dialog) { return Chosen(TheDesktop().AskForExistingFile(dialog)); }

std::string ChooseNewFile(const FileDialog& dialog) { return Chosen(TheDesktop().AskForNewFile(dialog)); }

std::string CurrentFolder() {
    std::error_code error;
    std::string folder = std::filesystem::current_path(error).string();
    if (!folder.ends_with('/'))
        folder += '/';
    return folder;
}

void ChangeFolder(const std::string& folder) {
    if (::chdir(folder.c_str()) != 0)
        FailWithErrno(errno == ENOENT ? ENOTDIR : errno, folder);
}

void RemoveFile(const std::string& name) {
    if (::unlink(name.c_str()) != 0)
        FailWithErrno(errno, name);
}

}  // namespace halvern
