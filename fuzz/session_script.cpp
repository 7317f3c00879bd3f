// A session script: taking its text apart, and the session that it describes, with the program as it starts and three data
// sets in the current directory. Lines that would leave that directory are passed over.
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "replay/player.h"
#include "replay/print.h"
#include "replay/script.h"
#include "small_data_sets.h"
#include "support/check.h"
#include "support/fresh_program.h"
#include "support/scratch.h"

namespace {

using namespace halvern;
using namespace halvern::fuzz;
using halvern::replay::Script;
using halvern::replay::ScriptLine;

/// By the table of well-formed byte sequences: a lead byte, the bounds of the byte behind it, how many follow.
bool IsUtf8ByTable(std::string_view text) {
    struct Row {
        unsigned char first, last, low, high;
        std::size_t more;
    };
    constexpr Row kRows[] = {{0x00, 0x7F, 0, 0, 0},       {0xC2, 0xDF, 0x80, 0xBF, 1}, {0xE0, 0xE0, 0xA0, 0xBF, 2},
                             {0xE1, 0xEC, 0x80, 0xBF, 2}, {0xED, 0xED, 0x80, 0x9F, 2}, {0xEE, 0xEF, 0x80, 0xBF, 2},
                             {0xF0, 0xF0, 0x90, 0xBF, 3}, {0xF1, 0xF3, 0x80, 0xBF, 3}, {0xF4, 0xF4, 0x80, 0x8F, 3}};
    const auto byteAt = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    for (std::size_t at = 0; at < text.size();) {
        const Row* found = nullptr;
        for (const auto& row : kRows)
            if (byteAt(at) >= row.first && byteAt(at) <= row.last)
                found = &row;
        if (found == nullptr || at + found->more >= text.size())
            return false;
        for (std::size_t i = 1; i <= found->more; ++i) {
            const unsigned char low = i == 1 ? found->low : 0x80, high = i == 1 ? found->high : 0xBF;
            if (byteAt(at + i) < low || byteAt(at + i) > high)
                return false;
        }
        at += 1 + found->more;
    }
    return true;
}

std::vector<ScriptLine> LinesOf(std::string_view text) {
    std::vector<ScriptLine> lines;
    for (Script script(text); !script.AtEnd();) {
        lines.push_back(script.Next());
        Check(script.LineNumber() == lines.back().number, "a script knows the line taken last");
    }
    return lines;
}

/// A word as it can stand in any script.
std::string QuotedWord(const std::string& word) {
    std::string quoted = "\"";
    for (const char c : word) {
        if (c == '"' || c == '\\')
            quoted += '\\';
        quoted += c;
    }
    return quoted + '"';
}

std::string TextOfLine(const ScriptLine& line) {
    std::string text;
    for (const auto& word : line.words)
        text += QuotedWord(word) + ' ';
    return text + '\n';
}

void CheckLines(const std::vector<ScriptLine>& lines) {
    std::size_t before = 0;
    for (const auto& line : lines) {
        Check(line.number > before, "the lines are numbered in order");
        before = line.number;
        Check(!line.words.empty() || !line.error.empty(), "an event has words, or a reason why not");
        if (!line.error.empty())
            continue;
        const auto again = LinesOf(TextOfLine(line));
        if (again.size() != 1 || again[0].words != line.words)
            Broken("words in quotes are the same words", Visible(TextOfLine(line)));
    }
}

void CheckReading(std::string_view text) {
    static const MemoryFile file;
    file.Hold(text);
    const bool isUtf8 = IsUtf8ByTable(text);
    Check(replay::IsUtf8(text) == isUtf8, "UTF-8 is known by its bytes");
    try {
        Check(replay::ReadScript(file.Path()) == text, "a script is read as it stands");
        Check(isUtf8, "what is no UTF-8 is no script");
    } catch (const replay::ScriptUnreadable&) {
        Check(!isUtf8, "UTF-8 is a script");
    }
}

/// Whether what the line does stays in the folder.
bool IsHarmless(const ScriptLine& line) {
    const auto& words = line.words;
    if (words.size() < 2 || (words[0] != "choose" && words[0] != "cd" && words[0] != "render"))
        return true;
    return StaysInside(words[1]);
}

std::string HarmlessScript(const std::vector<ScriptLine>& lines) {
    constexpr std::size_t kMostEvents = 100;
    std::string text;
    std::size_t count = 0;
    for (const auto& line : lines) {
        if (++count > kMostEvents)
            break;
        if (line.error.empty() && IsHarmless(line))
            text += TextOfLine(line);
    }
    return text;
}

void PlaySession(const std::string& text) {
    static const Scratch scratch;
    FreshProgram();
    scratch.Clear();
    WriteSmallDataSets(scratch);
    std::ostringstream out, err;
    const int status = replay::Player(Script(text), "session", out, err).Play();
    const std::string complaint = err.str();
    const std::size_t reason = complaint.find(": ");
    if (status == replay::kProgramFailed && !complaint.substr(reason).starts_with(": Run-time error '"))
        Broken("what ends the program is a run-time failure", complaint);
    Check((status == replay::kRanToItsEnd) == complaint.empty(), "a complaint is what tells that a session failed");
    Check(status == replay::kRanToItsEnd || complaint.starts_with("session:"), "a complaint names the script");
    // Closes what is open, so that what goes wrong there belongs to this input.
    CloseFiles();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = TextOf(data, size);
    CheckReading(text);
    const auto lines = LinesOf(text);
    CheckLines(lines);
    PlaySession(HarmlessScript(lines));
    return 0;
}
