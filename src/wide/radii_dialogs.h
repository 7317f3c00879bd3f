#pragma once

#include <array>
#include <cstdint>

#include "plot/plot_request.h"
#include "ui/check_box.h"
#include "ui/form.h"
#include "wide/wide_distribution.h"

namespace halvern {

/// One of the three plots of the wide distribution, and the form that chooses its radii.
struct WidePlot {
    const char* form;
    PlotPoint (*pointAt)(std::int32_t J, std::int32_t K);
    void (*prepare)();  ///< runs when the choice is accepted; null for nothing
    const char* help1;
    const char* help2;
    const char* xTitle;
    const char* yTitle;
};

extern const WidePlot kPlotRadii;     ///< g(s*) over s*
extern const WidePlot kPlotLogWD;     ///< s* g(s*) over Ln(s*)
extern const WidePlot kPlotIntegral;  ///< the integral of that

/// The dialog that chooses radii and, when it is accepted, fills the plot request: "PlotRadii", "PlotLogWD" or
/// "PlotIntegral".
class RadiiDialog : public Form {
  public:
    explicit RadiiDialog(const WidePlot& plot);

    Label Label1{"Select the Radii for which you wish to plot the Wide Distribution"};
    Frame Frame1{"Radii To Use"};
    std::array<CheckBox, kWideRadii> UseRadii;  ///< element K - 1 is radius K
    Button PlotEmUp{"OK"};
    Button NeverMind2{"Cancel"};

  private:
    void Form_Load() override;
    void PlotEmUp_Click();
    void NeverMind2_Click();
    bool IsChosen(std::int32_t K) const;

    const WidePlot& plot_;
};

/// Loads the dialog and shows it modally.
void ShowRadiiDialog(const WidePlot& plot);

/// What follows the dialog of the plot over Ln(s*): after a cancel the plot window is hidden.
void FinishLnPlot();

/// "s* vs g(s*)": per Svedberg over Svedbergs.
void PlotSvsG_Click();

/// "Ln(s*) vs [s* x g(s*)]". Fails 5 with an s* that is not positive.
void PlotLnS_Click();

/// "Integral of {[s*xg(s*)] vs Ln(s*)}". Fails 5 as PlotLnS_Click.
void PlotIntegralWD_Click();

}  // namespace halvern
