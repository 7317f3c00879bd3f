#include <gtest/gtest.h>

#include <QApplication>
#include <QProcess>
#include <QToolButton>

#include <cmath>
#include <cstdio>
#include <vector>

#include "desktop/plot_session.h"
#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "store/menus.h"
#include "support/data_files.h"

namespace halvern {
namespace {

constexpr int kScans = 12;
constexpr double kMeniscus = 5.98;

double boundary = 0.0, offset = 0.0, jumpsFrom = 0.0;

/// A step of three fringes on an offset of the scan's own, with a fringe lost beyond some radius.
double FringesAt(int J) {
    const double radius = 5.9 + 0.001 * (J - 1);
    const double plateau = 3.0 * (kMeniscus / boundary) * (kMeniscus / boundary);
    const double step = radius < kMeniscus ? 0.0 : plateau * 0.5 * (1.0 + std::erf((radius - boundary) / 0.04));
    return step + offset - (radius >= jumpsFrom ? 1.0 : 0.0);
}

std::string WriteInterferenceScans(const test::DataFolder& folder) {
    std::vector<std::string> names;
    for (int scan = 1; scan <= kScans; ++scan) {
        const double omega2t = 1.6E11 + 0.06E11 * scan;
        boundary = kMeniscus * std::exp(4.2E-13 * omega2t);
        offset = 0.3 + 0.07 * (scan % 5) + (scan % 3);
        jumpsFrom = 6.1 + 0.05 * scan;
        char text[32];
        std::snprintf(text, sizeof text, "%.4E", omega2t);
        const test::ScanFile file{.type = 'P', .omega2t = text, .points = 1300, .signal = FringesAt};
        std::snprintf(text, sizeof text, "%05d.IP1", scan);
        names.emplace_back(text);
        folder.Write(names.back(), file.Text());
    }
    return folder.Write("fringes.LST", test::ListText(names));
}

struct Interference : test::PlotSession {
    std::string Content(const char* name) const { return test::ContentOf(folder.Path() / name); }
    PlotPlace PickRadius(test::User& user, double radius) {
        const PlotPlace place = PlaceAtData(user, radius);
        ClickWith(user, "ctrl", 1, place.onScreen);
        user.Await("the radius", [=] { return std::fabs(Store().Meniscus - radius) < 0.005; });
        return place;
    }
};

TEST_F(Interference, IsConditionedAsInItsReplay) {
    const std::string list = WriteInterferenceScans(folder);
    PlotPlace jitter, fringe, lower, upper;
    const int status = test::WithUser([&](test::User& user) {
        Start(user);
        Load(user, list);
        ChooseItems(user, 'd', {&Menus().DoReAddNow});
        user.Await("the tick", [] { return Menus().DoReAddNow.IsTicked(); });
        ChooseItems(user, 'd', {&Menus().dummy_men, &Menus().Set_MenManually});
        user.AwaitWindow("Set Meniscus Position");
        user.Type("5.98");
        user.Press("Return");
        user.AwaitNoWindow("Set Meniscus Position");

        ChooseItems(user, 'd', {&Menus().SetJitterLimits});
        user.AwaitWindow(test::kPlotWindow);
        user.Await("the pick", [] { return PlotShows("for Interference Jitter") && PlotitForm().TestIt.IsShown(); });
        jitter = PickRadius(user, 5.95);
        user.Photograph("i1-jitter-pick");
        PressButton(user, "Test");
        user.Await("the preview", [] { return Store().JitterOffset(1) != 0.0F; });
        user.Photograph("i2-jitter-preview");
        EXPECT_FALSE(user.Look([] { return static_cast<bool>(Store().JitterCorrected); }));
        PressDone(user);
        user.Await("the correction", [] { return Store().JitterCorrected && !PlotitForm().IsShown(); });

        TurnToMainWindow(user);
        ChooseItems(user, 'd', {&Menus().DoIntShift});
        user.AwaitWindow(test::kPlotWindow);
        user.Await("the pick", [] { return PlotShows("Integer Fringe Shifts"); });
        fringe = PickRadius(user, 7.0);
        user.Photograph("i3-fringe-pick");
        PressDone(user);
        user.AwaitWindow("Choose Plots");
        // Two steps up by the arrow: every third scan.
        const QPoint up = user.Look([] {
            auto* arrow = QApplication::activeWindow()->findChildren<QToolButton*>().front();
            return arrow->mapToGlobal(arrow->rect().center());
        });
        user.Click(up);
        user.Click(up);
        user.Photograph("i4-choose-plots");
        PressButton(user, "OK");
        user.Await("the corrected scans",
                   [] { return PlotShows("Data Corrected for IF Jitter and Integer Fringe Shift"); });
        EXPECT_EQ(user.Look([] { return Store().PlotEveryNth; }), 3);
        user.AwaitWindow(test::kPlotWindow);
        user.Photograph("i5-corrected");

        TurnToMainWindow(user);
        ChooseItems(user, 'd', {&Menus().KeldIt});
        user.AwaitWindow(test::kPlotWindow);
        TurnToMainWindow(user);
        ChooseItems(user, 'd', {&Menus().SetKeldZero});
        user.AwaitWindow(test::kPlotWindow);
        user.Await("the pick", [] { return PlotShows("for correcting dc/dt") && PlotitForm().Command1.IsShown(); });
        PressDone(user);
        user.Await("the corrected plot", [] { return PlotShows("Average <dc/dt> vs S"); });
        TurnToMainWindow(user);
        ChooseItems(user, 'd', {&Menus().DoGofS});
        user.AwaitWindow(test::kPlotWindow);
        user.Await("the pick", [] { return PlotShows("for calculating g(s*)") && PlotitForm().Command1.IsShown(); });
        const float before = user.Look([] { return Store().DataLimitMax; });
        lower = PlaceAtData(user, 2.0);
        upper = PlaceAtData(user, 7.0);
        ClickWith(user, "ctrl", 1, lower.onScreen);
        user.Await("the lower limit", [] { return Store().DataLimitMin > 1.0F; });
        ClickWith(user, "ctrl", 3, upper.onScreen);
        user.Await("the upper limit", [before] { return Store().DataLimitMax < before; });
        PressDone(user);
        user.Await("the distribution", [] { return PlotShows("(un-normalized uncorrected distribution)"); });
        user.AwaitWindow(test::kPlotWindow);
        user.Photograph("i6-g-hat");

        SaveAs(user, {&Menus().KeldOut, &Menus().KeldOutGofS}, "Keld G-of-S Output",
               (folder.Path() / "gofs-by-hand.txt").string());
        SaveAs(user, {&Menus().AllDataOut, &Menus().CorrectedDataOut}, "Output Jitter + I.F.S. Corrected Data",
               (folder.Path() / "scans-by-hand.txt").string());
        TurnToMainWindow(user);
        Exit(user);
    });
    EXPECT_EQ(status, 0);

    const auto pick = [](const PlotPlace& at) { return "mouse left+ctrl " + at.x + " " + at.y + "\n"; };
    folder.Write("replay.session",
                 "click GetListNow\nchoose fringes.LST\nclick DoReAddNow\nclick Set_MenManually\ntype Text1 5.98\n"
                 "click IsOK\nclick Keld.SetJitterLimits\n" +
                     pick(jitter) + "click TestIt\nclick Plotit.Command1\nclick DoIntShift\n" + pick(fringe) +
                     "click Plotit.Command1\nspin UpDown1 3\nclick PlotEmUpScottie\nclick KeldIt\nclick SetKeldZero\n"
                     "click Plotit.Command1\nclick DoGofS\n" +
                     pick(lower) + "mouse right+ctrl " + upper.x + " " + upper.y +
                     "\nclick Plotit.Command1\nclick KeldOutGofS\nchoose gofs-by-replay.txt\n"
                     "click CorrectedDataOut\nchoose scans-by-replay.txt\n");
    QProcess replay;
    replay.start(HALVERN_REPLAY, QStringList{"replay.session"});
    ASSERT_TRUE(replay.waitForFinished(60000));
    EXPECT_EQ(replay.exitCode(), 0) << replay.readAllStandardError().toStdString();
    EXPECT_GT(Content("gofs-by-hand.txt").size(), 1000U);
    EXPECT_EQ(Content("gofs-by-hand.txt"), Content("gofs-by-replay.txt"));
    EXPECT_GT(Content("scans-by-hand.txt").size(), 1000U);
    EXPECT_EQ(Content("scans-by-hand.txt"), Content("scans-by-replay.txt"));
}

}  // namespace
}  // namespace halvern
