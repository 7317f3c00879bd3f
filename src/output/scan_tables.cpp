#include "output/scan_tables.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "store/analysis_store.h"
#include "store/file_command.h"
#include "store/fixed_text.h"
#include "store/format.h"
#include "store/point_field.h"
#include "store/single.h"
#include "store/table_file.h"
#include "ui/desktop.h"

namespace halvern {

namespace {

struct ScanTable {
    const char* dialogTitle;
    const char* title;
    float (*offset)(std::int32_t K);  ///< what scan K's signals are less in the table
    std::size_t longestLine;          ///< characters
    const char* failure;
};

/// Raw lines are built in a text of this length; what a line has beyond it is lost.
constexpr std::size_t kRawLine = 10240;

/// Lines are made side by side, a few points at a time: the scans of one point lie far apart in memory, its neighbours of
/// the same scan close by.
constexpr std::int32_t kPointsAtATime = 16;

float NoOffset(std::int32_t /*K*/) { return 0.0F; }

float OffsetOfJitter(std::int32_t K) { return Store().JitterOffset(K); }

constexpr ScanTable kRawTable{"Output Raw Data", "Original (uncorrected) Data", NoOffset, kRawLine,
                              "Error in Saving Raw Data To Output File!"};
constexpr ScanTable kCorrectedTable{"Output Jitter + I.F.S. Corrected Data",
                                    "Jitter & Integral-Fringe-Shift Corrected Data", OffsetOfJitter, std::string::npos,
                                    "Error in Saving Corrected Data To Output File!"};

void WriteLineOf(const ScanTable& table, std::string_view line) { WriteTableLine(line.substr(0, table.longestLine)); }

void WriteHead(const ScanTable& table) {
    const auto& S = Store();
    WriteTableOrigin();
    WriteTableLine(Concat({"number of scans used = ", Format(S.NumFiles, "##0")}));
    WriteTableLine(table.title);
    std::string numbers = "    Dataset #001";
    std::string headings = "  R (cm)     Conc.";
    for (std::int32_t K = 2; K <= S.NumFiles; ++K) {
        numbers += Concat({"        Dataset #", Format(K, "000")});
        headings += "    R (cm)     Conc.";
    }
    WriteLineOf(table, numbers);
    WriteLineOf(table, headings);
}

std::int32_t MostPointsOfAScan() {
    const auto& S = Store();
    std::int32_t MaxPoints = S.ScanPoints(1);
    for (std::int32_t K = 2; K <= S.NumFiles; ++K)
        MaxPoints = std::max<std::int32_t>(MaxPoints, S.ScanPoints(K));
    return MaxPoints;
}

/// The line of one point of all scans in the making. Its fields are written where they stay.
class PointLine {
  public:
    void Clear() { size_ = 0; }
    std::string_view Text() const { return {text_.data(), size_}; }

    void Append(const ScanTable& table, float radius, float signal) {
        if (text_.size() < size_ + 2 * kPointFieldRoom)
            text_.resize(2 * text_.size() + 2 * kPointFieldRoom);
        AppendRadius(radius);
        Cut(table);
        size_ = static_cast<std::size_t>(SignalField(End(), signal) - text_.data());
        Cut(table);
    }

  private:
    char* End() { return text_.data() + size_; }

    /// The scans of an interferometer have their points at the same radii: mostly the text stands already.
    void AppendRadius(float radius) {
        if (radius != radius_ || radiusSize_ == 0) {
            radius_ = radius;
            radiusSize_ = static_cast<std::size_t>(RadiusField(radiusText_.data(), radius) - radiusText_.data());
        }
        std::copy_n(radiusText_.data(), radiusSize_, End());
        size_ += radiusSize_;
    }

    /// A line that has grown too long is cut, and loses the blanks at its end before the next field follows.
    void Cut(const ScanTable& table) {
        if (size_ > table.longestLine)
            size_ = RightTrimmed(Text().substr(0, table.longestLine)).size();
    }

    std::vector<char> text_;
    std::size_t size_ = 0;
    float radius_ = 0.0F;
    std::array<char, kPointFieldRoom> radiusText_;
    std::size_t radiusSize_ = 0;
};

using PointLines = std::array<PointLine, kPointsAtATime>;

/// Lines of the points `first` to `last`; `lines` are used again and again.
void WritePoints(const ScanTable& table, std::int32_t first, std::int32_t last, PointLines& lines) {
    const auto& S = Store();
    for (PointLine& line : lines)
        line.Clear();
    const auto count = static_cast<std::size_t>(last - first + 1);
    for (std::int32_t K = 1; K <= S.NumFiles; ++K) {
        const std::span radii(&S.ScanData(first, 1, K), count), signals(&S.ScanData(first, 2, K), count);
        const double offset = table.offset(K);
        for (std::size_t i = 0; i < count; ++i)
            lines[i].Append(table, radii[i], Single(signals[i] - offset));
    }
    for (std::size_t i = 0; i < count; ++i)
        WriteLineOf(table, lines[i].Text());
}

void WriteTable(const ScanTable& table) {
    const std::string chosen = AskForTableFile(table.dialogTitle);
    DoEvents();
    DoEvents();
    MousePointer(kPointerHourglass);
    OpenTableFile(chosen);
    WriteHead(table);
    PointLines lines;
    const std::int32_t MaxPoints = MostPointsOfAScan();
    for (std::int32_t first = 1; first <= MaxPoints; first += kPointsAtATime)
        WritePoints(table, first, std::min(first + kPointsAtATime - 1, MaxPoints), lines);
    CloseTableFile();
    MousePointer(kPointerNormal);
}

}  // namespace

void RawDataOut_Click() {
    RunFileCommand([] { WriteTable(kRawTable); }, kRawTable.failure);
}

void CorrectedDataOut_Click() {
    RunFileCommand([] { WriteTable(kCorrectedTable); }, kCorrectedTable.failure);
}

}  // namespace halvern
