#include "intake/scan_reader.h"

#include <algorithm>
#include <span>
#include <string_view>

#include "intake/plain_point.h"
#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "store/files.h"
#include "store/input_file.h"
#include "store/single.h"
#include "store/val.h"
#include "ui/desktop.h"

namespace halvern {

namespace {

/// A field of a line: its first column, counted from 1, and its length.
struct Field {
    std::size_t column;
    std::size_t length;
};

constexpr Field kSpeed{9, 6}, kOmega2t{23, 10}, kRadius{4, 7}, kSignal{11, 15};
constexpr std::size_t kLineBufCharacters = 127;

/// The part of a field that the line reaches; beyond its end there are only blanks.
std::string_view Part(std::string_view line, Field field) {
    return line.size() < field.column ? std::string_view{} : line.substr(field.column - 1, field.length);
}

/// A line as it stands in its file, or without its end already.
std::string_view WithoutEnd(std::string_view line) {
    if (!line.ends_with('\n'))
        return line;
    line.remove_suffix(1);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

/// Keeps the last line read, in LineBuf as well: a copy for each of a million lines would cost more than their numbers.
class LineReader {
  public:
    explicit LineReader(std::int16_t fileNumber) : file_(OpenedForInput(fileNumber)) {}
    ~LineReader() { Keep(); }
    LineReader(const LineReader&) = delete;
    LineReader& operator=(const LineReader&) = delete;

    bool AtEnd() {
        if (file_.Ahead().empty())
            Keep();
        return file_.AtEnd();
    }
    std::string_view Next() {
        if (file_.Ahead().find('\n') == std::string_view::npos)
            Keep();
        line_ = file_.ReadLine();
        return line_.substr(0, kLineBufCharacters);
    }
    /// Reads the next line's point, if it has one of the instruments' layouts; otherwise the line is still the next.
    bool NextIsPlain(ScanPoint& point) {
        const std::size_t bytes = ReadPlainPoint(file_.Ahead(), point);
        if (bytes == 0)
            return false;
        line_ = file_.TakeWithEnd(bytes);
        return true;
    }

  private:
    /// The line goes into LineBuf, and lies in the file's buffer no more: reading on may move that, and then fail.
    void Keep() {
        if (line_.data() != nullptr)
            Store().LineBuf = WithoutEnd(line_);
        line_ = {};
    }

    InputFile& file_;
    std::string_view line_;
};

void AskAboutEqualOmega2t(std::int16_t I) {
    auto& S = Store();
    const auto text = Concat({S.FileNames(I - 1).Shown(), " and\r\n", S.FileNames(I - 2).Shown(),
                              "\r\n have identical values of Omega^2*t.  Wide distribution calculations will fail!\r\n"
                              "Do You Want to Continue?"});
    if (MsgBox(text, kYesNo + kCritical, "Data Error!") == Answer::kNo) {
        UnloadPlotWindows();
        EndProgram();
    }
}

void ReadHeader(std::string_view line, std::int16_t I) {
    auto& S = Store();
    if (line.starts_with('P'))
        S.IsInterference = true;
    S.ScanSpeed(I) = ToInteger32(Val(Part(line, kSpeed)));
    S.ScanW2t(I) = Single(Val(Part(line, kOmega2t)));
    if (I > 1 && S.ScanW2t(I) == S.ScanW2t(I - 1))
        AskAboutEqualOmega2t(I);
    // Kept: rpm to rad/s is 0.1047196 here and 0.104719755 in dc/dt. One constant for both would move the last digits
    // of every s*.
    const double omega = static_cast<double>(S.ScanSpeed(I)) * 0.1047196;
    S.ScanTime(I) = Single(Quotient(static_cast<double>(S.ScanW2t(I)), omega * omega));
}

void ReadScan(std::int16_t I, std::int16_t fileNumber) {
    auto& S = Store();
    std::int16_t J = 1;
    OpenForInput(fileNumber, S.FileNames(I - 1).Name());
    {
        LineReader lines(fileNumber);
        lines.Next();
        ReadHeader(lines.Next(), I);
        const std::span<float, kMostPoints> radii(&S.ScanData(1, 1, I), kMostPoints);
        const std::span<float, kMostPoints> signals(&S.ScanData(1, 2, I), kMostPoints);
        for (; !lines.AtEnd(); ++J) {
            const auto place = static_cast<std::size_t>(J - 1);
            if (ScanPoint point; place < kMostPoints && lines.NextIsPlain(point)) [[likely]] {
                radii[place] = point.radius;
                signals[place] = point.signal;
            } else {
                const std::string_view line = lines.Next();
                S.ScanData(J, 1, I) = Single(Val(Part(line, kRadius)));
                S.ScanData(J, 2, I) = Single(Val(Part(line, kSignal)));
            }
        }
    }
    Close(fileNumber);
    S.ScanPoints(I) = static_cast<std::int16_t>(J - 1);
}

}  // namespace

void ReadScanFile(std::int16_t I) {
    const std::int16_t fileNumber = FreeFile();
    try {
        ReadScan(I, fileNumber);
    } catch (const RuntimeFailure&) {
        MousePointer(kPointerNormal);
    }
}

}  // namespace halvern
