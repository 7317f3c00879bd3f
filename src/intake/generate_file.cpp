#include "intake/generate_file.h"

#include <cstddef>
#include <string_view>

#include "store/analysis_store.h"
#include "store/failure.h"
#include "store/files.h"
#include "store/fixed_text.h"
#include "store/format.h"
#include "store/report.h"
#include "store/single.h"
#include "store/typed_number.h"
#include "store/val.h"
#include "ui/desktop.h"

namespace halvern {

namespace {

/// Digits of a scan file's number, in front of the first dot of its path.
constexpr std::size_t kDigits = 5;

/// A longer path is shown by its last characters.
constexpr std::size_t kLongestShown = 23, kShownEnd = 20;

constexpr Pattern kFilesFound{"A Total of ### files were found."};
constexpr Pattern kNumberInScan{"00000"};
constexpr Pattern kNumberInList{"#####"};
constexpr Pattern kIncrementInList{"_I###.LST"};

constexpr TypedLimits kIncrementLimits{0.0, 250.0, "The value for the file increment is invalid or out of range!"};
constexpr TypedLimits kCountLimits{3.0, 501.0, "The value for the number of files is invalid or out of range!"};

FileDialog FirstDataFileDialog() {
    return {.title = "Get Data File",
            .filter = " Data (*.IP*;*.RA*;*.*)| *.IP*;*.RA*;*.*",
            .flags = kPathMustExist + kFileMustExist,
            .defaultExtension = {},
            .fileName = {}};
}

std::size_t CharactersIn(std::string_view text) {
    std::size_t characters = 0;
    for (; !text.empty(); text.remove_prefix(CharacterLength(text)))
        ++characters;
    return characters;
}

/// The last characters of a text, whole ones.
std::string_view LastCharacters(std::string_view text, std::size_t count) {
    for (std::size_t characters = CharactersIn(text); characters > count; --characters)
        text.remove_prefix(CharacterLength(text));
    return text;
}

std::string ShortPath(std::string_view path) {
    if (CharactersIn(path) <= kLongestShown)
        return std::string(path);
    return Concat({"...", LastCharacters(path, kShownEnd)});
}

/// The path of a scan file, taken apart around its first dot, whatever that belongs to.
struct ScanFileName {
    std::string base;       ///< folder and prefix, trimmed
    std::int16_t number;    ///< of the scan
    std::string extension;  ///< with its dot, trimmed
};

/// Fails     5 where no five characters stand before a dot, 6 where they hold a number above 32767
ScanFileName TakeApart(std::string_view path) {
    const std::size_t dot = path.find('.');
    if (dot == std::string_view::npos || CharactersIn(path.substr(0, dot)) < kDigits)
        Fail(FailureCode::kInvalidProcedureCall, std::string(path));
    const std::string_view digits = LastCharacters(path.substr(0, dot), kDigits);
    return {.base = std::string(Trimmed(path.substr(0, dot - digits.size()))),
            .number = ToInteger16(Val(digits)),
            .extension = std::string(Trimmed(path.substr(dot)))};
}

/// Gathers the files of a series that exist behind the first one. A gap in the numbers does not end it.
void FindFiles(const ScanFileName& first, std::int32_t NumWanted, std::int32_t Increment) {
    auto& S = Store();
    S.FoundFiles = 1;
    for (std::int32_t I = 1; I <= NumWanted - 1; ++I) {
        const auto number = Format(first.number + Increment * I, kNumberInScan);
        const std::string candidate = Concat({first.base, number, first.extension});
        if (FileExists(candidate))
            S.FileNames(S.FoundFiles++) = Trimmed(candidate);
    }
}

/// "C1_23-222_I1.LST": the cell, the numbers of the first and the last file, the increment.
std::string ListName(const ScanFileName& first, std::int32_t Increment) {
    const auto& S = Store();
    const std::string start =
        Concat({"C", LastCharacters(first.extension, 1), "_", Format(first.number, kNumberInList), "-"});
    const ScanFileName last = TakeApart(S.FileNames(S.FoundFiles - 1).Name());
    return Concat({Trimmed(start), Format(last.number, kNumberInList), Format(Increment, kIncrementInList)});
}

void WriteList(const std::string& name) {
    auto& S = Store();
    S.FileNum = FreeFile();
    OpenForOutput(S.FileNum, name);
    for (std::int32_t I = 1; I <= S.FoundFiles; ++I)
        WriteLine(S.FileNum, S.FileNames(I - 1).Shown());
    Close(S.FileNum);
}

/// Writes the list, or asks whether to replace the one of its name.
///
/// Result    whether an old list has been replaced
bool SaveList(const std::string& name) {
    if (!FileExists(name)) {
        WriteList(name);
        AddLine(Concat({"New ListFile saved as ", name}));
        return false;
    }
    if (MsgBox(Concat({name, " already exists! Replace File?"}), kYesNo + kCritical + kDefaultSecond,
               "Replace File?") == Answer::kNo) {
        AddLine(Concat({"Old file exists!  ", name, " NOT Replaced!"}));
        return false;
    }
    RemoveFile(name);
    WriteList(name);
    AddLine("Old ListFile deleted!");
    AddLine(Concat({"New ListFile saved :: ", name}));
    return true;
}

}  // namespace

GenerateFile::GenerateFile() : Form("GenerateFile", "Generate List File", {3000, 3000, 6300, 3450}) {
    Add("", Label1, {300, 300, 1950, 300});
    Add("Text3", Text3, {2400, 240, 3600, 375});
    Add("", Label2, {300, 1020, 2100, 300});
    Add("Text2", Text2, {2400, 960, 750, 375});
    Add("UpDown2", UpDown2, {3150, 960, 255, 375});
    Add("", Label3, {3600, 1020, 2400, 300});
    Add("", Label4, {300, 1740, 2100, 300});
    Add("Text1", Text1, {2400, 1680, 750, 375});
    Add("UpDown1", UpDown1, {3150, 1680, 255, 375});
    Add("", Label5, {3600, 1740, 2400, 300});
    Add("OKMakeFile", OKMakeFile, {1200, 2625, 1650, 420});
    Add("Command1", Command1, {3600, 2625, 1350, 420});
    SetCancelButton(Command1);
    OKMakeFile.Disable();
    Text3.Click = [this] { Text3_Click(); };
    Text1.LostFocus = [this] { Text1_LostFocus(); };
    Text2.LostFocus = [this] { Text2_LostFocus(); };
    OKMakeFile.Click = [this] { OKMakeFile_Click(); };
    Command1.Click = [this] { Command1_Click(); };
}

void GenerateFile::Text3_Click() {
    try {
        auto& first = Store().FileNames(0);
        first = Trimmed(ChooseExistingFile(FirstDataFileDialog()));
        Text3.SetText(ShortPath(first.Shown()));
        OKMakeFile.Enable();
    } catch (const RuntimeFailure&) {
        // Cancelled: the file chosen before stands.
    }
}

void GenerateFile::Text1_LostFocus() { TakeTypedNumber(Text1, UpDown1, kIncrementLimits, " "); }

void GenerateFile::Text2_LostFocus() { TakeTypedNumber(Text2, UpDown2, kCountLimits, " "); }

void GenerateFile::OKMakeFile_Click() {
    const ScanFileName first = TakeApart(Store().FileNames(0).Name());
    const std::int16_t NumWanted = ToInteger16(UpDown2.Value());
    const std::int32_t Increment = UpDown1.Value();
    FindFiles(first, NumWanted, Increment);
    AddLine(Format(Store().FoundFiles, kFilesFound));
    if (SaveList(ListName(first, Increment)))
        Unload();
    ScrollReportAtOnce();
}

void GenerateFile::Command1_Click() { Unload(); }

void MakeListNow_Click() {
    GenerateFile dialog;
    dialog.ShowModal();
}

}  // namespace halvern
