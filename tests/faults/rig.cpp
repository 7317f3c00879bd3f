#include "faults/rig.h"

#include <cmath>
#include <cstdio>
#include <stdexcept>
#include <vector>

#include "replay/events.h"
#include "shell/start.h"

namespace halvern::test {

Rig::Rig() : desktop_(*this, told_) {
    std::filesystem::create_directory(data);
    std::filesystem::create_directory(out);
    Main();
}

bool Rig::AnswerComesNext() const { return script_->NextIs("answer"); }

void Rig::CarryOutNextLine() {
    const replay::ScriptLine& line = script_->Next();
    try {
        replay::CarryOut(desktop_, line.words);
    } catch (const replay::ScriptError& error) {
        // A dialog that does not take the file stays open, and the user cancels it.
        if (line.words.front() != "choose" || desktop_.OpenQuestion() != replay::Question::kFileDialog)
            throw;
        told_ << error.what();
        desktop_.Cancel();
    }
}

std::string Rig::Do(const std::string& lines) {
    told_.str("");
    script_.emplace(lines);
    try {
        while (!script_->AtEnd())
            CarryOutNextLine();
    } catch (const replay::ScriptError& error) {
        told_ << error.what();
    }
    return told_.str();
}

std::string Rig::DoWith(const FaultPlan& plan, const std::filesystem::path& below, const std::string& lines) {
    BeginFaults(below.string(), plan);
    const std::string told = Do(lines);
    calls_ = EndFaults();
    return told;
}

namespace {

constexpr double kMeniscusCm = 5.98, kSvedbergs = 4.2E-13;
constexpr int kScans = 8;

double boundary = 0.0;  // of the scan that is being written, cm

double SignalAt(int J) {
    const double radius = 5.9 + 0.001 * (J - 1);
    return radius < kMeniscusCm ? 0.0 : 0.5 * (1.0 + std::erf((radius - boundary) / 0.04));
}

void WriteMovingBoundary(const DataFolder& folder) {
    std::vector<std::string> names;
    for (int scan = 1; scan <= kScans; ++scan) {
        const double omega2t = 1.6E11 + 0.15E11 * scan;
        boundary = kMeniscusCm * std::exp(kSvedbergs * omega2t);
        char text[32];
        std::snprintf(text, sizeof text, "%.4E", omega2t);
        const ScanFile file{.type = 'P', .omega2t = text, .points = 1300, .signal = SignalAt};
        names.push_back("0000" + std::to_string(scan) + ".IP1");
        folder.Write("data/" + names.back(), file.Text());
    }
    folder.Write("data/moving.LST", ListText(names));
}

// The plot ends up small: its picture is drawn a few hundred times.
constexpr const char* kAnalysis =
    "click GetListNow\nchoose moving.LST\nclick Set_MenManually\ntype Text1 5.98\nclick IsOK\n"
    "click Keld.SetJitterLimits\nmouse left+ctrl 5.95 0\nclick Command1\n"
    "click KeldIt\nclick SetKeldZero\nclick Command1\n"
    "click DoGofS\nmouse left+ctrl 2 0\nmouse right+ctrl 7 0\nclick Command1\n"
    "click DoWideStraight\nclick PlotEmUp\nclick PlotAvekeld\nresize Plotit 3000 2250\n";

}  // namespace

void Rig::Analyse() {
    std::filesystem::current_path(data);
    WriteMovingBoundary(folder);
    if (const std::string told = Do(kAnalysis); !told.empty())
        throw std::runtime_error("the data could not be analysed: " + told);
}

std::string Word(const std::string& text) {
    std::string word = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\')
            word += '\\';
        word += c;
    }
    return word + '"';
}

int OpenDescriptors() {
    int count = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator("/proc/self/fd"))
        ++count;
    return count - 1;  // the folder itself
}

}  // namespace halvern::test
