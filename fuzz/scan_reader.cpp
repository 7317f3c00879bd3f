// The reader of scan files. Input: up to two scan files, which become scans 1 and 2, and the answers to its question.
#include "intake/scan_reader.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <string>

#include "intake/plain_point.h"
#include "store/analysis_store.h"
#include "store/val.h"
#include "support/check.h"
#include "support/fresh_program.h"
#include "support/quiet_desktop.h"
#include "support/scan_model.h"
#include "support/scratch.h"

namespace {

using namespace halvern;
using namespace halvern::fuzz;

float FieldOf(std::string_view line, std::size_t column, std::size_t length) {
    return line.size() < column ? 0.0F : static_cast<float>(Val(line.substr(column - 1, length)));
}

/// The quick way either leaves a line alone, or gives the bits of the general one; it reads nothing beyond the line's end.
void CheckPlainPoint(std::string_view line) {
    const std::size_t size = line.size() + 1;
    const auto copy = std::make_unique<char[]>(size);
    *std::copy(line.begin(), line.end(), copy.get()) = '\n';
    ScanPoint point{};
    const std::size_t taken = ReadPlainPoint({copy.get(), size}, point);
    if (taken == 0)
        return;
    Check(taken == size, "a line is taken with its end and no more");
    if (!SameBits(point.radius, FieldOf(line, 4, 7)) || !SameBits(point.signal, FieldOf(line, 11, 15)))
        Broken("the quick way has the bits of the general one", Visible(line));
}

/// All lines that are read at most; a line like the one before is one too many.
void CheckPlainPoints(std::string_view text) {
    std::string_view before;
    for (int lines = 0; !text.empty() && lines < kMostPoints + 3; ++lines) {
        const std::size_t size = std::min(text.find('\n'), text.size());
        const std::string_view line = text.substr(0, std::min<std::size_t>(size, 127));
        if (lines == 0 || line != before)
            CheckPlainPoint(line);
        before = line;
        text.remove_prefix(std::min(size + 1, text.size()));
    }
}

void CheckScan(std::int16_t I, const ReadScanText& byHand, bool hasEnded, bool isEmpty) {
    const auto& S = Store();
    const bool complete = byHand.cameToTheEnd && !hasEnded;
    Check(S.ScanPoints(I) == (complete ? static_cast<int>(byHand.radii.size()) : 0),
          "a scan has the points of its file");
    Check(S.ScanSpeed(I) == byHand.speed, "a scan has the speed of its file");
    Check(SameBits(S.ScanW2t(I), byHand.omega2t), "a scan has the omega squared t of its file");
    if (hasEnded)
        return;
    Check(SameBits(S.ScanTime(I), byHand.seconds), "a scan has the time of its file");
    for (std::size_t i = 0; i < byHand.radii.size(); ++i)
        Check(SameBits(S.ScanData(static_cast<std::int32_t>(i) + 1, 1, I), byHand.radii[i]),
              "the radii are the file's");
    for (std::size_t i = 0; i < byHand.signals.size(); ++i)
        Check(SameBits(S.ScanData(static_cast<std::int32_t>(i) + 1, 2, I), byHand.signals[i]),
              "the signals are the file's");
    std::string last = byHand.lastLine;
    last.resize(127, ' ');
    Check(isEmpty || S.LineBuf.View() == last, "the last line read stands in the buffer");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const MemoryFile files[2];
    CloseFiles();
    FreshStore();
    auto& S = Store();
    std::string_view input = TextOf(data, size);
    const std::string texts[] = {Expanded(TakePart(input)), Expanded(TakePart(input))};
    const bool answersNo = input.starts_with('n');
    const QuietDesktop desktop(answersNo ? "n" : "y");

    bool interference = false;
    float before = -1.0F;
    for (std::int16_t I = 1; I <= 2; ++I) {
        const std::string& text = texts[I - 1];
        CheckPlainPoints(text);
        const auto& file = files[I - 1];
        file.Hold(text);
        S.FileNames(I - 1) = file.Path();
        // The first scan has no neighbour before it.
        const ReadScanText byHand = ReadScanByHand(text, I == 1 ? std::numeric_limits<float>::quiet_NaN() : before);
        bool hasEnded = false;
        try {
            ReadScanFile(I);
        } catch (const ProgramEnd&) {
            hasEnded = true;
        }
        Check(hasEnded == (answersNo && !byHand.askedNothing),
              "the program ends if two scans are alike and the user says no");
        interference = interference || byHand.isInterference;
        Check(S.IsInterference == interference, "a P makes the data interference data");
        CheckScan(I, byHand, hasEnded, text.empty());
        if (hasEnded)
            return 0;
        before = S.ScanW2t(I);
    }
    return 0;
}
