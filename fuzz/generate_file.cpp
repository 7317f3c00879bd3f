// The dialog that makes a list file. Input, in parts: the first file's name, the number of files and the increment as they
// are typed, what of the series exists (an 'x' for a file that does not), and the answers to the boxes.
#include "intake/generate_file.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "store/analysis_store.h"
#include "store/failure.h"
#include "store/report.h"
#include "store/val.h"
#include "support/check.h"
#include "support/fresh_program.h"
#include "support/quiet_desktop.h"
#include "support/scratch.h"

namespace {

using namespace halvern;
using namespace halvern::fuzz;

std::string WithoutBlanks(const std::string& text) {
    const std::size_t first = text.find_first_not_of(' '), last = text.find_last_not_of(' ');
    return first == std::string::npos ? "" : text.substr(first, last - first + 1);
}

/// A name by its parts; nothing for a name that has none.
struct Parts {
    std::string base, extension;
    int number = 0;
};

std::optional<Parts> PartsOf(const std::string& name) {
    const std::size_t dot = name.find('.');
    if (dot == std::string::npos || dot < 5)
        return {};
    const double number = std::nearbyint(Val(name.substr(dot - 5, 5)));
    if (!(number >= -32768 && number <= 32767))
        return {};
    return Parts{WithoutBlanks(name.substr(0, dot - 5)), WithoutBlanks(name.substr(dot)), static_cast<int>(number)};
}

std::string NameOf(const Parts& parts, int number) {
    char digits[16];
    std::snprintf(digits, sizeof digits, "%s%05d", number < 0 ? "-" : "", std::abs(number));
    return WithoutBlanks(parts.base + digits + parts.extension);
}

/// What a box of the dialog makes of a typed text.
int Typed(const std::string& text, double above, double below, int least, int most, int start) {
    const double value = Val(text);
    if (!IsNumeric(text) || !(value > above && value < below))
        return start;
    return std::clamp(static_cast<int>(std::nearbyint(value)), least, most);
}

std::string Content(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

struct Job {
    std::string name, count, increment, missing, answers;
};

/// A name of plain characters that fits: of others only that they do no harm is looked at.
bool IsPlain(const std::string& name) {
    return name.size() <= 100 && std::all_of(name.begin(), name.end(), [](char c) { return c >= ' ' && c <= '~'; }) &&
           name.find('/') == std::string::npos && name == WithoutBlanks(name);
}

void MakeSeries(const Scratch& scratch, const Job& job, int increment) {
    const auto parts = PartsOf(job.name);
    scratch.Write(job.name, "first");
    for (int I = 1; parts && I <= static_cast<int>(job.missing.size()) && I <= 8; ++I)
        if (job.missing[static_cast<std::size_t>(I) - 1] != 'x')
            scratch.Write(NameOf(*parts, parts->number + I * increment), "scan");
}

/// The names of the files of the series, the first one's foremost.
std::vector<std::string> SeriesByHand(const Job& job, const Parts& parts, int count, int increment) {
    std::vector<std::string> names{job.name};
    for (int I = 1; I < count; ++I) {
        const std::string name = NameOf(parts, parts.number + I * increment);
        if (std::filesystem::is_regular_file(name))
            names.push_back(name);
    }
    return names;
}

void UseDialog(Form& form, const Job& job) {
    auto& dialog = static_cast<GenerateFile&>(form);
    dialog.Text3.Click();
    dialog.Text2.Type(job.count);
    dialog.Text2.Leave();
    dialog.Text1.Type(job.increment);
    dialog.Text1.Leave();
    if (!dialog.OKMakeFile.IsEnabled())
        return;
    dialog.OKMakeFile.Click();
    // The list exists now: the second time the dialog asks, and closes itself if the list is replaced.
    if (dialog.IsLoaded())
        dialog.OKMakeFile.Click();
    if (dialog.IsLoaded())
        dialog.Command1.Click();
}

std::string NewListOf(const std::string& reportLine) {
    constexpr std::string_view kSaved = "New ListFile saved as ";
    return reportLine.starts_with(kSaved) ? reportLine.substr(kSaved.size()) : "";
}

void CheckList(const Job& job, int count, int increment) {
    std::string listName;
    for (std::size_t i = 0; i < OutFileBox().ListCount(); ++i)
        if (const std::string name = NewListOf(OutFileBox().Line(i)); !name.empty())
            listName = name;
    const auto parts = PartsOf(job.name);
    if (listName.empty() || !parts)
        return;
    Check(listName.starts_with("C") && listName.ends_with(".LST"), "a list is named after its series");
    std::string byHand;
    for (const auto& name : SeriesByHand(job, *parts, count, increment)) {
        if (name == listName)
            return;  // a list that is a file of its own series, of which there was one less when it was written
        byHand += name + "\r\n";
    }
    if (const std::string list = Content(listName); list != byHand)
        Broken("the list holds the files of the series", Visible(list) + ", by hand " + Visible(byHand));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Scratch scratch;
    std::string_view input = TextOf(data, size);
    Job job;
    for (std::string* part : {&job.name, &job.count, &job.increment, &job.missing, &job.answers})
        *part = TakePart(input);
    // Nothing outside of the folder is to be written, whatever the name.
    if (!StaysInside(job.name) || job.name.find('\0') != std::string::npos)
        return 0;
    FreshProgram();
    scratch.Clear();
    const int count = Typed(job.count, 3, 501, 4, 500, 200);
    const int increment = Typed(job.increment, 0, 250, 1, 249, 1);
    const bool plain = IsPlain(job.name);
    if (plain)
        MakeSeries(scratch, job, increment);

    QuietDesktop desktop(job.answers);
    desktop.choice = job.name;
    desktop.dialog = [&](Form& form) { UseDialog(form, job); };
    try {
        MakeListNow_Click();
    } catch (const RuntimeFailure& failure) {
        // The number of the last file is looked at too, for the name of the list.
        if (const auto parts = PartsOf(job.name); plain && parts && failure.Code() != FailureCode::kPathNotFound)
            Check(!PartsOf(SeriesByHand(job, *parts, count, increment).back()),
                  "only a name that can't be taken apart fails");
        return 0;
    }
    if (plain) {
        Check(PartsOf(job.name).has_value(), "a name that can't be taken apart fails");
        CheckList(job, count, increment);
    }
    return 0;
}
