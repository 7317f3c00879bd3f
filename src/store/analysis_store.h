#pragma once

#include <cstdint>
#include <string>

#include "store/boolean.h"
#include "store/bounded_array.h"
#include "store/fixed_text.h"

namespace halvern {

/// Limits of a data set.
inline constexpr std::int32_t kMostScans = 500;
inline constexpr std::int32_t kMostPoints = 2048;
inline constexpr std::int32_t kMostPairs = 250;
inline constexpr std::int32_t kMostPlotPoints = 2050000;

/// Defaults that a new data set brings back.
inline constexpr float kDefaultMeniscus = 6.0F;  // cm
inline constexpr std::int16_t kDefaultSmoothWindow = 3;

using Scans = Bounds<1, kMostScans>;
using Points = Bounds<1, kMostPoints>;
using Pairs = Bounds<1, kMostPairs>;
using PlotPoints = Bounds<1, kMostPlotPoints>;

/// The program's identity and its files.
struct ProgramAndFiles {
    FixedText<16> ProgramName;       ///< first line of the report and of the output files
    FixedText<10> RevisionText;      ///< version numbers, second line of those
    std::string ProgramDir;          ///< folder that the program started in, with a slash at its end
    std::string DefaultPrinterName;  ///< the current printer
    std::string ListFileName;        ///< path of the list file in use
    std::string OutFileName;         ///< path chosen in the last output dialog
    std::int16_t FileNum = 0;        ///< number of the text file being read or written
    FixedText<127> LineBuf;          ///< the line just read from a scan file
};

/// The scans as they were read.
struct DataSet {
    BoundedArray<FileName, Bounds<0, kMostScans>> FileNames;    ///< scan I is element I - 1
    std::int32_t NumFiles = 0;                                  ///< scans of the data set
    std::int32_t FoundFiles = 0;                                ///< files that the list file generator found
    BoundedArray<float, Points, Bounds<1, 2>, Scans> ScanData;  ///< row 1 radius, cm; row 2 signal
    BoundedArray<std::int16_t, Scans> ScanPoints;               ///< points of each scan
    BoundedArray<std::int32_t, Scans> ScanSpeed;                ///< revolutions per minute
    BoundedArray<float, Scans> ScanW2t;                         ///< omega squared t, radians squared per second
    BoundedArray<float, Scans> ScanTime;                        ///< seconds
    Boolean IsInterference;                                     ///< the data come from the interference optics
    std::int16_t NumSpeeds = 0;                                 ///< speed runs; 0 means that no data set stands
    Boolean MultipleSpeeds;                                     ///< NumSpeeds is above 1
    BoundedArray<std::int16_t, Scans> SpeedFirstScan;           ///< first scan of each speed run
    BoundedArray<std::int16_t, Scans> ScanSpeedIndex;           ///< speed run of each scan
};

/// Meniscus and corrections of the signal.
struct Conditioning {
    float Meniscus = 0.0F;                          ///< cm; a pick borrows it for other positions
    float SavedMeniscus = 0.0F;                     ///< Meniscus while borrowed
    BoundedArray<float, Scans> ScanMeniscus;        ///< cm
    std::int16_t SpeedIndex = 0;                    ///< speed run whose meniscus is being set
    float JitterRefRadius = 0.0F;                   ///< cm
    BoundedArray<std::int16_t, Scans> JitterPoint;  ///< first point at or beyond the reference radius
    BoundedArray<float, Scans> JitterOffset;        ///< subtracted from the signal of each scan
    Boolean JitterCorrected;
    float FringeRefRadius = 0.0F;  ///< cm
    Boolean FringeCorrected;
    float MaxFirstRadius = 0.0F;                    ///< largest first radius over all scans, cm
    float MinLastRadius = 0.0F;                     ///< smallest last radius over all scans, cm
    BoundedArray<float, Points> GridRadius;         ///< the common radial grid, cm
    BoundedArray<float, Points, Scans> GridSignal;  ///< conditioned signal of each scan on that grid
    std::int16_t GridPoints = 0;                    ///< valid points of the grid
    std::int16_t FirstGridPoint = 0;                ///< first grid point at or beyond the meniscus
};

/// dc/dt on the s* grid and g(s*). Distributions are per second of s*: per Svedberg, times 1E-13.
struct TimeDerivative {
    std::int16_t ScanSkip = 0;                     ///< scans between the two of a pair, and the number of pairs
    float SedTime = 0.0F;                          ///< harmonic mean time, seconds
    float DeltaS = 0.0F;                           ///< spacing of the s* grid, Svedbergs
    BoundedArray<float, Points> SStar;             ///< s*, seconds
    std::int16_t SPoints = 0;                      ///< valid points of the s* grid
    std::int16_t SGridPoints = 0;                  ///< the same of the pair in work
    BoundedArray<float, Points, Pairs> RatePairs;  ///< dc/dt of each pair, signal per second
    BoundedArray<float, Points> RateWork;          ///< dc/dt of the pair in work, later a copy of AveRate
    BoundedArray<float, Points> AveRateRaw;        ///< average dc/dt as calculated
    BoundedArray<float, Points> AveRate;           ///< the same less the zero level
    BoundedArray<float, Points> RateSem;           ///< standard error of the mean of dc/dt
    float ZeroLevel = 0.0F;                        ///< picked level of average dc/dt
    Boolean ZeroLevelSet;
    std::int16_t SRangeFirst = 0;  ///< the points in use lie strictly between these two
    std::int16_t SRangeLast = 0;
    Boolean SLimitsSet;                       ///< the s* limits have been turned into indices
    BoundedArray<float, Points> PlateauRate;  ///< running integral, then dc/dt less the plateau part
    BoundedArray<float, Points> GStar;        ///< g(s*)
    BoundedArray<float, Points> GHat;         ///< g^(s*)
    BoundedArray<float, Points> GStarSem;     ///< standard error of g(s*), per Svedberg
};

/// The wide distribution: point J by radius number K. Points run against the scans; point 1 is a placeholder.
struct WideDistribution {
    BoundedArray<float, Bounds<1, 50>> WDRadius;                         ///< cm; 11 are used
    BoundedArray<Boolean, Bounds<1, 50>> WDRadiusValid;                  ///< this radius was calculated
    BoundedArray<float, Scans, Bounds<1, 23>> WDGofS;                    ///< g(s*) per Svedberg
    BoundedArray<float, Scans, Bounds<1, 23>> WDSValue;                  ///< s*, Svedbergs
    BoundedArray<float, Scans, Bounds<1, 50>, Bounds<1, 2>> WDIntegral;  ///< plane 1 integral, plane 2 its Ln(s*)
    Boolean UseSmoothing;
    std::int16_t SmoothWindow = 0;  ///< points
    Boolean SmoothDialogShown;      ///< shown since the last reset
};

/// The one plot request: what the plot window draws, and what a click on it means.
struct PlotRequest {
    BoundedArray<float, PlotPoints> PlotX;           ///< in the units of PlotXTitle
    BoundedArray<float, PlotPoints> PlotY;           ///< in the units of PlotYTitle
    BoundedArray<std::int16_t, PlotPoints> PlotSym;  ///< what to draw at the point, and in which colour
    std::int32_t PlotCount = 0;                      ///< valid points
    std::string PlotHelp1, PlotHelp2;                ///< the lines above the box
    std::string PlotXTitle, PlotYTitle;
    float PlotXMin = 0.0F, PlotXMax = 0.0F, PlotYMin = 0.0F, PlotYMax = 0.0F;  ///< range on view
    Boolean PlotReady;                                                         ///< at least two points, may be drawn
    Boolean PlotLnAxis;                                                        ///< the x axis is Ln(s*)
    Boolean PickDataLimits, PickSLimits, PickMeniscus, PickJitterPoint, PickFringePoint, PickZeroLevel;
    float DataLimitMin = 0.0F, DataLimitMax = 0.0F;  ///< Svedbergs
    Boolean OmitLines, OmitSymbols, LargeSymbols, FilledSymbols, CycleSymbolsFirst, ShowXYDefault;
    BoundedArray<std::int32_t, Bounds<0, 20>> PlotColor;  ///< 0xRRGGBB
    float PlotPixelHeight = 0.0F, PlotPixelWidth = 0.0F;
    float LegendPixelHeight = 0.0F, LegendPixelWidth = 0.0F;
    std::int16_t PlotEveryNth = 0;  ///< every how many-th scan is plotted
    Boolean PlotDialogOK, PlotDialogCancelled;
    Boolean PlotitLoaded, PlotLegendLoaded;
    std::int32_t SavePlotFiles = 0;  ///< 0 or -1
};

/// Everything that the program knows of the data set at hand: one instance for the whole life of the process.
///
/// A value is single, double, 16 or 32 bits wide because results depend on it. All is zero at start, texts are blank;
/// the program's start fills in the defaults.
struct AnalysisStore : ProgramAndFiles, DataSet, Conditioning, TimeDerivative, WideDistribution, PlotRequest {
    AnalysisStore();
};

AnalysisStore& Store();

}  // namespace halvern
