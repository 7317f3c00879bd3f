#pragma once

#include <cstdint>
#include <string>

#include "store/analysis_store.h"
#include "store/single.h"
#include "store/svedberg.h"

namespace halvern {

/// The four texts of a plot request.
struct RequestTexts {
    std::string help1, help2, xTitle, yTitle;
};

void SetRequestTexts(const RequestTexts& texts);

/// Takes down the flags of the picks of limits, a meniscus and a jitter point. An open pick of a level, a fringe point or
/// s* limits stays as it is.
void TakeNoPicks();

/// Begins a request without a pick: nothing is ready to be drawn, TakeNoPicks, the plot window is loaded.
void BeginPlainRequest();

/// What the y axis of scans is called: "Fringes" or "Conc".
const char* SignalTitle();

/// One point, in the units of the axis titles.
struct PlotPoint {
    float x;
    float y;
};

/// Codes of points. A marker has its curve's number, which is a colour modulo 10.
inline constexpr std::int16_t kPenUp = -58;
/// A line point in the colour of curve k, drawn from the point before it. Fails 6 beyond curve 511.
inline std::int16_t LineCode(std::int32_t k) { return ToInteger16(-57.0 - 64.0 * k); }
inline constexpr std::int32_t kBlack = 1, kRed = 2;

/// s* in seconds as it stands on an axis.
inline float Svedbergs(float seconds) { return Single(static_cast<double>(seconds) * kPerSvedberg); }

/// Fills the request from its first point on. What is entered later is drawn over what was entered earlier.
class RequestFiller {
  public:
    /// Given     PointAt   the point of index I
    ///           colour    number of the curve
    template <class PointAt>
    void Line(std::int32_t first, std::int32_t last, std::int32_t colour, PointAt pointAt) {
        for (std::int32_t I = first; I <= last; ++I)
            Put(pointAt(I), I == first ? kPenUp : LineCode(colour));
    }

    template <class PointAt>
    void Symbols(std::int32_t first, std::int32_t last, std::int32_t curve, PointAt pointAt) {
        const std::int16_t code = ToInteger16(curve);
        for (std::int32_t I = first; I <= last; ++I)
            Put(pointAt(I), code);
    }

    /// Sets `PlotCount`, and `PlotReady` if there are two points or more.
    void Finish() const;

  private:
    void Put(PlotPoint point, std::int16_t code) {
        auto& S = Store();
        ++count_;
        S.PlotX(count_) = point.x;
        S.PlotY(count_) = point.y;
        S.PlotSym(count_) = code;
    }

    std::int32_t count_ = 0;
};

}  // namespace halvern
