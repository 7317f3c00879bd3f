#include "wide/smooth.h"

#include <cstring>

#include "store/single.h"

namespace halvern {

namespace {

/// One pass, from Y to Values.
class Pass {
  public:
    Pass(ScanCurve& Values, const ScanCurve& Y, std::int32_t Count, std::int32_t Window)
        : Values_(Values), Y_(Y), Count_(Count), Window_(Window) {}

    void RisingEnd() {
        Sum_ = Y_(1);
        Values_(1) = Y_(1);
        for (std::int32_t I = 3; I <= Window_ - 1; I += 2) {
            RaiseBy(static_cast<double>(Y_(I - 1)), Y_(I));
            Values_((I + 1) / 2) = MeanOf(I);
        }
    }

    void FullWindows() {
        std::int32_t Mid = (Window_ + 1) / 2;
        Sum_ = 0.0F;
        for (std::int32_t I = 1; I <= Window_; ++I)
            RaiseBy(0.0, Y_(I));
        Values_(Mid) = MeanOf(Window_);
        for (std::int32_t I = 2; I <= Count_ - Window_ + 1; ++I) {
            ++Mid;
            RaiseBy(-static_cast<double>(Y_(I - 1)), Y_(I + Window_ - 1));
            Values_(Mid) = MeanOf(Window_);
        }
    }

    void FallingEnd() {
        Sum_ = Y_(Count_);
        Values_(Count_) = Y_(Count_);
        for (std::int32_t I = 3; I <= Window_ - 1; I += 2) {
            RaiseBy(static_cast<double>(Y_(Count_ - I + 2)), Y_(Count_ - I + 1));
            Values_(Count_ + 1 - (I + 1) / 2) = MeanOf(I);
        }
    }

  private:
    void RaiseBy(double first, double second) { Sum_ = Single(Sum_ + first + second); }
    float MeanOf(std::int32_t points) const { return Single(Sum_ / static_cast<double>(points)); }

    ScanCurve& Values_;
    const ScanCurve& Y_;
    std::int32_t Count_;
    std::int32_t Window_;
    float Sum_ = 0.0F;
};

}  // namespace

void SmoothData(ScanCurve& Values, std::int32_t Count, float Passes, std::int16_t& Window) {
    if (Window % 2 == 0)
        Window = ToInteger16(Window + 1.0);
    ScanCurve Y;
    Y.Fill(0.0F);
    for (int pass = 1; static_cast<float>(pass) <= Passes; ++pass) {
        for (std::int32_t I = 1; I <= Count; ++I) {
            Y(I) = Values(I);
            Values(I) = 0.0F;
        }
        Pass run(Values, Y, Count, Window);
        run.RisingEnd();
        run.FullWindows();
        run.FallingEnd();
    }
}

}  // namespace halvern
