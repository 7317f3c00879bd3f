#include "bits/store_bits.h"

#include <bit>
#include <concepts>
#include <cstdio>
#include <cstring>
#include <optional>
#include <span>
#include <string_view>
#include <type_traits>

#include "store/analysis_store.h"

namespace halvern::test {

void Checksum::Add(std::uint16_t bits) {
    Add(static_cast<std::uint8_t>(bits & 0xFFU));
    Add(static_cast<std::uint8_t>(bits >> 8U));
}

void Checksum::Add(std::uint32_t bits) {
    Add(static_cast<std::uint16_t>(bits & 0xFFFFU));
    Add(static_cast<std::uint16_t>(bits >> 16U));
}

void Checksum::Add(float value) { Add(std::bit_cast<std::uint32_t>(value)); }

std::string Checksum::Text() const {
    char text[17];
    std::snprintf(text, sizeof text, "%016llX", static_cast<unsigned long long>(hash_));
    return text;
}

namespace {

template <class Number>
concept StoredNumber = std::same_as<Number, float> || std::same_as<Number, std::int16_t> ||
    std::same_as<Number, std::int32_t> || std::same_as<Number, Boolean>;

std::string Shown(float value) {
    char text[40];
    std::snprintf(text, sizeof text, "%a", static_cast<double>(value));
    return text;
}
std::string Shown(std::int32_t value) { return std::to_string(value); }
std::string Shown(Boolean value) { return std::to_string(value.Number()); }

void AddTo(Checksum& sum, float value) { sum.Add(value); }
void AddTo(Checksum& sum, std::int16_t value) { sum.Add(static_cast<std::uint16_t>(value)); }
void AddTo(Checksum& sum, std::int32_t value) { sum.Add(static_cast<std::uint32_t>(value)); }
void AddTo(Checksum& sum, Boolean value) { AddTo(sum, value.Number()); }

/// How many bytes there are up to the last one that is not 0. Most of the store is never touched, so large pieces are
/// passed over at once.
std::size_t BytesInUse(const unsigned char* bytes, std::size_t count) {
    constexpr std::size_t kPiece = 4096;
    static constexpr unsigned char kNothing[kPiece] = {};
    while (count >= kPiece && std::memcmp(bytes + count - kPiece, kNothing, kPiece) == 0)
        count -= kPiece;
    while (count > 0 && bytes[count - 1] == 0)
        --count;
    return count;
}

template <StoredNumber Number>
std::optional<std::string> BitsOf(const Number& value) {
    return Shown(value);
}

template <StoredNumber Element, class... Dimensions>
std::optional<std::string> BitsOf(const BoundedArray<Element, Dimensions...>& array) {
    const std::span<const Element> elements = array.Elements();
    const auto* bytes = reinterpret_cast<const unsigned char*>(elements.data());
    const std::size_t used = (BytesInUse(bytes, elements.size_bytes()) + sizeof(Element) - 1) / sizeof(Element);
    Checksum sum;
    for (const Element& element : elements.first(used))
        AddTo(sum, element);
    return "[" + std::to_string(used) + "] " + sum.Text();
}

std::optional<std::string> BitsOf(std::string_view) { return std::nullopt; }

template <class... Dimensions>
std::optional<std::string> BitsOf(const BoundedArray<FileName, Dimensions...>&) {
    return std::nullopt;
}

struct Row {
    const char* name;
    std::optional<std::string> (*bits)(const AnalysisStore& S);
};

#define HALVERN_MEMBER(name)                                         \
    {                                                                \
#name, [](const AnalysisStore& S) { return BitsOf(S.name); } \
    }

constexpr Row kProgramAndFiles[] = {
    HALVERN_MEMBER(ProgramName),  HALVERN_MEMBER(RevisionText),
    HALVERN_MEMBER(ProgramDir),   HALVERN_MEMBER(DefaultPrinterName),
    HALVERN_MEMBER(ListFileName), HALVERN_MEMBER(OutFileName),
    HALVERN_MEMBER(FileNum),      HALVERN_MEMBER(LineBuf),
};
constexpr Row kDataSet[] = {
    HALVERN_MEMBER(FileNames),      HALVERN_MEMBER(NumFiles),       HALVERN_MEMBER(FoundFiles),
    HALVERN_MEMBER(ScanData),       HALVERN_MEMBER(ScanPoints),     HALVERN_MEMBER(ScanSpeed),
    HALVERN_MEMBER(ScanW2t),        HALVERN_MEMBER(ScanTime),       HALVERN_MEMBER(IsInterference),
    HALVERN_MEMBER(NumSpeeds),      HALVERN_MEMBER(MultipleSpeeds), HALVERN_MEMBER(SpeedFirstScan),
    HALVERN_MEMBER(ScanSpeedIndex),
};
constexpr Row kConditioning[] = {
    HALVERN_MEMBER(Meniscus),        HALVERN_MEMBER(SavedMeniscus),   HALVERN_MEMBER(ScanMeniscus),
    HALVERN_MEMBER(SpeedIndex),      HALVERN_MEMBER(JitterRefRadius), HALVERN_MEMBER(JitterPoint),
    HALVERN_MEMBER(JitterOffset),    HALVERN_MEMBER(JitterCorrected), HALVERN_MEMBER(FringeRefRadius),
    HALVERN_MEMBER(FringeCorrected), HALVERN_MEMBER(MaxFirstRadius),  HALVERN_MEMBER(MinLastRadius),
    HALVERN_MEMBER(GridRadius),      HALVERN_MEMBER(GridSignal),      HALVERN_MEMBER(GridPoints),
    HALVERN_MEMBER(FirstGridPoint),
};
constexpr Row kTimeDerivative[] = {
    HALVERN_MEMBER(ScanSkip),     HALVERN_MEMBER(SedTime),     HALVERN_MEMBER(DeltaS),     HALVERN_MEMBER(SStar),
    HALVERN_MEMBER(SPoints),      HALVERN_MEMBER(SGridPoints), HALVERN_MEMBER(RatePairs),  HALVERN_MEMBER(RateWork),
    HALVERN_MEMBER(AveRateRaw),   HALVERN_MEMBER(AveRate),     HALVERN_MEMBER(RateSem),    HALVERN_MEMBER(ZeroLevel),
    HALVERN_MEMBER(ZeroLevelSet), HALVERN_MEMBER(SRangeFirst), HALVERN_MEMBER(SRangeLast), HALVERN_MEMBER(SLimitsSet),
    HALVERN_MEMBER(PlateauRate),  HALVERN_MEMBER(GStar),       HALVERN_MEMBER(GHat),       HALVERN_MEMBER(GStarSem),
};
constexpr Row kWideDistribution[] = {
    HALVERN_MEMBER(WDRadius),     HALVERN_MEMBER(WDRadiusValid),     HALVERN_MEMBER(WDGofS),
    HALVERN_MEMBER(WDSValue),     HALVERN_MEMBER(WDIntegral),        HALVERN_MEMBER(UseSmoothing),
    HALVERN_MEMBER(SmoothWindow), HALVERN_MEMBER(SmoothDialogShown),
};
constexpr Row kPlotPoints[] = {HALVERN_MEMBER(PlotX), HALVERN_MEMBER(PlotY), HALVERN_MEMBER(PlotSym)};
constexpr Row kPlotRequest[] = {
    HALVERN_MEMBER(PlotCount),       HALVERN_MEMBER(PlotHelp1),         HALVERN_MEMBER(PlotHelp2),
    HALVERN_MEMBER(PlotXTitle),      HALVERN_MEMBER(PlotYTitle),        HALVERN_MEMBER(PlotXMin),
    HALVERN_MEMBER(PlotXMax),        HALVERN_MEMBER(PlotYMin),          HALVERN_MEMBER(PlotYMax),
    HALVERN_MEMBER(PlotReady),       HALVERN_MEMBER(PlotLnAxis),        HALVERN_MEMBER(PickDataLimits),
    HALVERN_MEMBER(PickSLimits),     HALVERN_MEMBER(PickMeniscus),      HALVERN_MEMBER(PickJitterPoint),
    HALVERN_MEMBER(PickFringePoint), HALVERN_MEMBER(PickZeroLevel),     HALVERN_MEMBER(DataLimitMin),
    HALVERN_MEMBER(DataLimitMax),    HALVERN_MEMBER(OmitLines),         HALVERN_MEMBER(OmitSymbols),
    HALVERN_MEMBER(LargeSymbols),    HALVERN_MEMBER(FilledSymbols),     HALVERN_MEMBER(CycleSymbolsFirst),
    HALVERN_MEMBER(ShowXYDefault),   HALVERN_MEMBER(PlotColor),         HALVERN_MEMBER(PlotPixelHeight),
    HALVERN_MEMBER(PlotPixelWidth),  HALVERN_MEMBER(LegendPixelHeight), HALVERN_MEMBER(LegendPixelWidth),
    HALVERN_MEMBER(PlotEveryNth),    HALVERN_MEMBER(PlotDialogOK),      HALVERN_MEMBER(PlotDialogCancelled),
    HALVERN_MEMBER(PlotitLoaded),    HALVERN_MEMBER(PlotLegendLoaded),  HALVERN_MEMBER(SavePlotFiles),
};

#undef HALVERN_MEMBER

/// Stands for a value of any type where only the count of values is asked for.
struct Anything {
    template <class Type>
    operator Type() const;
};

/// The members of a plain struct: as many as the values that it can be made of.
template <class Part, class... Values>
constexpr std::size_t MembersOf() {
    if constexpr (requires { Part{Values{}..., Anything{}}; })
        return MembersOf<Part, Values..., Anything>();
    else
        return sizeof...(Values);
}

// A member that the store gets has to be named here.
static_assert(std::size(kProgramAndFiles) == MembersOf<ProgramAndFiles>());
static_assert(std::size(kDataSet) == MembersOf<DataSet>());
static_assert(std::size(kConditioning) == MembersOf<Conditioning>());
static_assert(std::size(kTimeDerivative) == MembersOf<TimeDerivative>());
static_assert(std::size(kWideDistribution) == MembersOf<WideDistribution>());
static_assert(std::size(kPlotPoints) + std::size(kPlotRequest) == MembersOf<PlotRequest>());
struct AllParts : ProgramAndFiles, DataSet, Conditioning, TimeDerivative, WideDistribution, PlotRequest {};
static_assert(sizeof(AllParts) == sizeof(AnalysisStore));

void Take(std::span<const Row> rows, std::vector<MemberBits>& all) {
    for (const Row& row : rows)
        if (auto bits = row.bits(Store()))
            all.push_back({row.name, *bits});
}

template <class Show>
std::vector<std::string> Differences(const std::vector<MemberBits>& before, const std::vector<MemberBits>& after,
                                     Show show) {
    std::vector<std::string> differences;
    for (std::size_t i = 0; i < after.size(); ++i)
        if (i >= before.size() || after[i] != before[i])
            differences.push_back(show(after[i]));
    return differences;
}

}  // namespace

std::vector<MemberBits> StoreBitsBesidesPlot() {
    std::vector<MemberBits> all;
    for (const std::span<const Row> rows :
         {std::span<const Row>(kProgramAndFiles), std::span<const Row>(kDataSet), std::span<const Row>(kConditioning),
          std::span<const Row>(kTimeDerivative), std::span<const Row>(kWideDistribution),
          std::span<const Row>(kPlotRequest)})
        Take(rows, all);
    return all;
}

std::vector<MemberBits> StoreBits() {
    std::vector<MemberBits> all = StoreBitsBesidesPlot();
    Take(kPlotPoints, all);
    return all;
}

std::vector<std::string> Changed(const std::vector<MemberBits>& before, const std::vector<MemberBits>& after) {
    return Differences(before, after, [](const MemberBits& member) { return member.name + " " + member.bits; });
}

std::vector<std::string> NamesChanged(const std::vector<MemberBits>& before, const std::vector<MemberBits>& after) {
    return Differences(before, after, [](const MemberBits& member) { return member.name; });
}

}  // namespace halvern::test
