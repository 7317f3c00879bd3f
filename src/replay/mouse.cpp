#include "replay/mouse.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>
#include <system_error>

#include "plot/plot_window.h"
#include "replay/script.h"
#include "store/single.h"

namespace halvern::replay {

namespace {

struct Position {
    float x;
    float y;
};

double Number(std::string_view text) {
    std::string_view digits = text;
    if (digits.starts_with('+'))
        digits.remove_prefix(1);
    double value = 0.0;
    const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc{} || stop != digits.data() + digits.size() || !std::isfinite(value))
        throw ScriptError("not a position: " + std::string(text));
    return value;
}

/// A position along one axis, in page units.
float OnPage(std::string_view text, float axisMin, float scale) {
    const double position =
        text.starts_with('@') ? Number(text.substr(1)) : (Number(text) - axisMin) * static_cast<double>(scale);
    if (std::fabs(position) > std::numeric_limits<float>::max())
        throw ScriptError("not a position: " + std::string(text));
    return Single(position);
}

Position PositionOf(const PlotWindow& plot, const std::string& x, const std::string& y) {
    return {OnPage(x, plot.XAxisMin, plot.XScale), OnPage(y, plot.YAxisMin, plot.YScale)};
}

PlotWindow& ShownPlot(ReplayDesktop& desktop) {
    static_cast<void>(FindShownWindow(desktop.Windows(), "Plotit"));
    return PlotitForm();
}

struct Word {
    std::string_view word;
    int value;
};

constexpr Word kButtons[] = {{"left", kLeftButton}, {"right", kRightButton}};
constexpr Word kModifiers[] = {{"shift", kShift}, {"ctrl", kCtrl}, {"alt", kAlt}};

template <std::size_t N>
int ValueOf(const Word (&words)[N], std::string_view word, std::string_view whole) {
    for (const auto& row : words)
        if (row.word == word)
            return row.value;
    throw ScriptError("no such mouse button: " + std::string(whole));
}

struct Press {
    int button;
    int shift = kNoModifier;
};

/// "left", "right+ctrl", "left+alt+shift"
Press PressOf(std::string_view whole) {
    std::size_t end = whole.find('+');
    Press press{ValueOf(kButtons, whole.substr(0, end), whole)};
    while (end != std::string_view::npos) {
        const std::size_t start = end + 1;
        end = whole.find('+', start);
        press.shift |= ValueOf(kModifiers, whole.substr(start, end - start), whole);
    }
    return press;
}

}  // namespace

void MouseEvent(ReplayDesktop& desktop, Arguments arguments) {
    PlotWindow& plot = ShownPlot(desktop);
    const Press press = PressOf(arguments[0]);
    const Position at = PositionOf(plot, arguments[1], arguments[2]);
    plot.Form_MouseDown(press.button, press.shift, at.x, at.y);
    plot.Form_MouseUp(press.button, press.shift, at.x, at.y);
}

void DragEvent(ReplayDesktop& desktop, Arguments arguments) {
    PlotWindow& plot = ShownPlot(desktop);
    const Position from = PositionOf(plot, arguments[0], arguments[1]);
    const Position to = PositionOf(plot, arguments[2], arguments[3]);
    plot.Form_MouseDown(kLeftButton, kNoModifier, from.x, from.y);
    plot.Form_MouseMove(kLeftButton, kNoModifier, to.x, to.y);
    plot.Form_MouseUp(kLeftButton, kNoModifier, to.x, to.y);
}

void HoverEvent(ReplayDesktop& desktop, Arguments arguments) {
    PlotWindow& plot = ShownPlot(desktop);
    const Position at = PositionOf(plot, arguments[0], arguments[1]);
    plot.Form_MouseMove(0, kNoModifier, at.x, at.y);
}

}  // namespace halvern::replay
