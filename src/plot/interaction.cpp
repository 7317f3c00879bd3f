#include <cstdint>
#include <utility>

#include "plot/done.h"
#include "plot/plot_window.h"
#include "plot/show_plot.h"
#include "store/analysis_store.h"
#include "store/format.h"
#include "store/menu_gates.h"
#include "store/single.h"
#include "ui/desktop.h"

namespace halvern {

namespace {

constexpr Colour kRubberBand = 0xFF0000;
// Kept: the box that ends a drag has a colour of its own. What it leaves on the screen stays until the next repaint.
constexpr Colour kLastBand = 0x800000;

/// A page position as data: the quotient and the sum are singles.
float DataAt(float position, float scale, float axisMin) {
    const float quotient = Single(Quotient(static_cast<double>(position), static_cast<double>(scale)));
    return Single(static_cast<double>(quotient) + axisMin);
}

void TellOfLimitError() {
    MsgBox("Error Setting Data Limits! This would remove all data.", kOkOnly, "Invalid Operation");
}

/// Sorts two ends of a zoom box and holds them a little inside the axis.
void SortAndClamp(float& low, float& high, float axisMin, float axisMax) {
    if (low > high)
        std::swap(low, high);
    const double inset = 1E-5 * (static_cast<double>(axisMax) - axisMin);
    if (low < axisMin)
        low = Single(axisMin + inset);
    if (high > axisMax)
        high = Single(axisMax - inset);
}

/// Points of the request within a box, its edges included; it does not look beyond the second.
int PointsWithin(float X0, float Y0, float X1, float Y1) {
    const auto& S = Store();
    int found = 0;
    for (std::int32_t i = 1; i <= S.PlotCount && found < 2; ++i)
        if (X0 <= S.PlotX(i) && S.PlotX(i) <= X1 && Y0 <= S.PlotY(i) && S.PlotY(i) <= Y1)
            ++found;
    return found;
}

}  // namespace

float PlotWindow::DataX(float X) const { return DataAt(X, XScale, XAxisMin); }

float PlotWindow::DataY(float Y) const { return DataAt(Y, YScale, YAxisMin); }

void PlotWindow::Form_MouseDown(int Button, int Shift, float X, float Y) {
    if (Button != kLeftButton || Shift != kNoModifier || !Store().PlotReady)
        return;
    ZoomDragging_ = true;
    ZoomFirstMove_ = true;
    Surface().SetDrawMode(DrawMode::kExclusiveOr);
    ZoomX0_ = ZoomX1_ = X;
    ZoomY0_ = ZoomY1_ = Y;
}

void PlotWindow::Form_MouseMove(int /*Button*/, int /*Shift*/, float X, float Y) {
    if (ShowXY_ && Store().PlotReady)
        XYLabel.SetCaption(Concat({" X= ", Format(DataX(X), "0.0000E+00"), ", Y= ", Format(DataY(Y), "0.000E+00")}));
    if (!ZoomDragging_)
        return;
    if (ZoomFirstMove_)
        ZoomFirstMove_ = false;
    else
        DrawZoomBox(kRubberBand);  // drawn over itself, the last box goes away
    ZoomX1_ = X;
    ZoomY1_ = Y;
    DrawZoomBox(kRubberBand);
}

void PlotWindow::Form_MouseUp(int Button, int Shift, float X, float Y) {
    auto& S = Store();
    const bool plainLeft = Button == kLeftButton && Shift == kNoModifier;
    const bool ctrlLeft = Button == kLeftButton && Shift == kCtrl;
    const bool altLeft = Button == kLeftButton && Shift == kAlt;
    const bool ctrlRight = Button == kRightButton && Shift == kCtrl;
    if (plainLeft && S.PlotReady) {
        EndZoomDrag();
    } else if (ctrlLeft && S.PickDataLimits) {
        MoveLowerLimit(DataX(X));
    } else if (altLeft && S.PickDataLimits) {
        MoveUpperLimit(DataX(X));
    } else if (ctrlLeft && S.PickMeniscus) {
        S.Meniscus = DataX(X);
        OfferCorrections();
        Form_Paint();
    } else if (ctrlLeft && S.PickZeroLevel) {
        S.Meniscus = DataY(Y);
        Form_Paint();
    } else if (ctrlRight && S.PickDataLimits) {
        MoveUpperLimit(DataX(X));
    }
}

void PlotWindow::MoveLowerLimit(float V) {
    if (!(V < Store().DataLimitMax))
        return TellOfLimitError();
    Store().DataLimitMin = V;
    Form_Paint();
}

void PlotWindow::MoveUpperLimit(float V) {
    if (!(V > Store().DataLimitMin))
        return TellOfLimitError();
    Store().DataLimitMax = V;
    Form_Paint();
}

void PlotWindow::DrawZoomBox(Colour colour) { Surface().Box(ZoomX0_, ZoomY0_, ZoomX1_, ZoomY1_, colour); }

void PlotWindow::EndZoomDrag() {
    DrawZoomBox(kLastBand);
    Surface().SetDrawMode(DrawMode::kCopy);
    ZoomFirstMove_ = true;
    ZoomDragging_ = false;
    if (ZoomX0_ != ZoomX1_ && ZoomY0_ != ZoomY1_)
        ZoomIn();
}

void PlotWindow::ZoomIn() {
    auto& S = Store();
    float X0 = DataX(ZoomX0_), Y0 = DataY(ZoomY0_), X1 = DataX(ZoomX1_), Y1 = DataY(ZoomY1_);
    if (X0 == X1 || Y0 == Y1)
        return;
    SortAndClamp(X0, X1, XAxisMin, XAxisMax);
    SortAndClamp(Y0, Y1, YAxisMin, YAxisMax);
    const int points = PointsWithin(X0, Y0, X1, Y1);
    if (points == 0)
        MsgBox("There Were No Data Within the Zoom-In Box!", kExclamation, "Error in Zooming");
    else if (points == 1)
        MsgBox("You CANNOT Zoom Around a Single Point!", kExclamation, "Error in Zooming");
    ZoomX0_ = ZoomY0_ = ZoomX1_ = ZoomY1_ = 0.0F;
    if (points > 1) {
        S.PlotXMin = X0;
        S.PlotXMax = X1;
        S.PlotYMin = Y0;
        S.PlotYMax = Y1;
        Menu.Zoomout.Enable();
    }
    Form_Paint();
}

void PlotWindow::Zoomout_Click() {
    auto& S = Store();
    FindDataLimits(S.PlotX, S.PlotY, S.PlotCount);
    Menu.Zoomout.Disable();
    Form_Paint();
}

void PlotWindow::Command1_Click() {
    auto& S = Store();
    Command1.Hide();
    Hide();
    S.PlotHelp1 = " ";
    S.PlotHelp2 = " ";
    GoOnAfterPick();
}

}  // namespace halvern
