#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QProcess>

#include <cstdio>
#include <filesystem>

#include "desktop/plot_session.h"
#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "store/menus.h"
#include "support/data_files.h"

namespace halvern {
namespace {

constexpr int kScansOfSample = 16;

/// The analysis of the sample from its list to its two files.
struct Analysis : test::PlotSession {
    /// The scans of the sample, made as a user has them made. Returns the path of their list.
    std::string MakeSample() const {
        const auto made = test::RunCommand("'" HALVERN_SAMPLES "/make' '" HALVERN_SIMULATE "' '" +
                                           folder.Path().string() + "' two-species");
        EXPECT_EQ(made.status, 0) << made.output;
        return (folder.Path() / "two-species" / "middle.LST").string();
    }
    void Save(test::User& user, const MenuItem& item, const char* title, const char* name) {
        ChooseItems(user, 'o', {&Menus().KeldOut, &item});
        user.AwaitWindow(title);
        TypePath(user, (folder.Path() / name).string());
        user.Press("Return");
        user.Await("the question whether to create it", [] {
            return dynamic_cast<QMessageBox*>(QApplication::activeWindow()) != nullptr &&
                   QApplication::activeWindow() == QApplication::activeModalWidget();
        });
        EXPECT_TRUE(TextOfBox(user).endsWith("does not exist.\nDo you want to create it?"));
        user.Press("y");
        user.AwaitNoWindow(title);
        user.AwaitWindow("Halvern V0.99");
    }
};

TEST_F(Analysis, OfTheSampleComesOutAsInItsReplay) {
    const std::string list = MakeSample();
    PlotPlace zero, lower, upper;
    float zeroLevel = 0.0F, lowerLimit = 0.0F, upperLimit = 0.0F;

    const int status = test::WithUser([&](test::User& user) {
        Start(user);
        Load(user, list);
        ChooseItems(user, 'd', {&Menus().dummy_men, &Menus().Set_MenManually});
        user.AwaitWindow("Set Meniscus Position");
        user.Type("5.0");
        user.Photograph("a1-meniscus");
        user.Press("Return");
        user.AwaitWindow("Value for Radius");
        user.Photograph("a2-meniscus-refused");
        user.Press("Return");
        user.AwaitNoWindow("Value for Radius");
        user.AwaitWindow("Set Meniscus Position");
        user.Press("ctrl+a");
        user.Type("5.95");
        user.Press("Return");
        user.AwaitNoWindow("Set Meniscus Position");
        EXPECT_EQ(user.Look([] { return Store().ScanMeniscus(kScansOfSample); }), 5.95F);

        ChooseItems(user, 'd', {&Menus().KeldIt});
        user.AwaitWindow(test::kPlotWindow);
        user.Photograph("a3-raw-rate");
        EXPECT_TRUE(user.Look([] { return PlotShows("Raw <dc/dt> vs S"); }));

        // While the plot stands the main window can be used, and its commands bring the plot to the front again.
        TurnToMainWindow(user);
        user.Photograph("a4-main-window-in-front");
        ChooseItems(user, 'p', {&Menus().PlotDummy1, &Menus().PlotAvekeld});
        user.AwaitWindow(test::kPlotWindow);
        user.Photograph("a5-average-rate");

        TurnToMainWindow(user);
        ChooseItems(user, 'd', {&Menus().SetKeldZero});
        user.AwaitWindow(test::kPlotWindow);
        user.Await("the pick", [] { return PlotShows("for correcting dc/dt") && PlotitForm().Command1.IsShown(); });
        zero = PlaceAt(user, 90.0, 4.0);
        ClickWith(user, "ctrl", 1, zero.onScreen);
        user.Await("the level", [] { return Store().Meniscus != 0.0F; });
        user.Photograph("a6-zero-level");
        zeroLevel = user.Look([] { return Store().Meniscus; });
        PressDone(user);
        user.Await("the corrected plot", [] { return PlotShows("Average <dc/dt> vs S"); });
        user.AwaitWindow(test::kPlotWindow);
        EXPECT_EQ(user.Look([] { return Store().ZeroLevel; }), zeroLevel);

        TurnToMainWindow(user);
        ChooseItems(user, 'd', {&Menus().DoGofS});
        user.AwaitWindow(test::kPlotWindow);
        user.Await("the pick", [] { return PlotShows("for calculating g(s*)") && PlotitForm().Command1.IsShown(); });
        const float before = user.Look([] { return Store().DataLimitMax; });
        lower = PlaceAtData(user, 1.0);
        upper = PlaceAtData(user, 10.0);
        ClickWith(user, "ctrl", 1, lower.onScreen);
        user.Await("the lower limit", [] { return Store().DataLimitMin > 0.5F; });
        ClickWith(user, "ctrl", 3, upper.onScreen);
        user.Await("the upper limit", [before] { return Store().DataLimitMax < before; });
        user.Photograph("a7-limits");
        lowerLimit = user.Look([] { return Store().DataLimitMin; });
        upperLimit = user.Look([] { return Store().DataLimitMax; });
        EXPECT_NEAR(lowerLimit, 1.0F, 0.03F);  // a pixel is about 0.02 Svedbergs
        EXPECT_NEAR(upperLimit, 10.0F, 0.03F);
        PressDone(user);
        user.Await("the distribution", [] { return PlotShows("(un-normalized uncorrected distribution)"); });
        user.AwaitWindow(test::kPlotWindow);
        user.Photograph("a8-g-hat");

        TurnToMainWindow(user);
        ChooseItems(user, 'd', {&Menus().ShowSAve});
        user.AwaitWindow("Distribution Averages");
        user.Photograph("a9-averages");
        user.Press("Return");
        user.AwaitNoWindow("Distribution Averages");

        Save(user, Menus().KeldOutCorrected, "Keld (corrected) Output", "dcdt-by-hand.txt");
        Save(user, Menus().KeldOutGofS, "Keld G-of-S Output", "gofs-by-hand.txt");
        Exit(user);
    });
    EXPECT_EQ(status, 0);

    folder.Write("replay.session",
                 "click GetListNow\nchoose two-species/middle.LST\ncd ..\nclick Set_MenManually\n"
                 "type Text1 5.95\nclick IsOK\nclick KeldIt\nclick SetKeldZero\n"
                 "mouse left+ctrl " +
                     zero.x + " " + zero.y +
                     "\nclick Plotit.Command1\nclick DoGofS\n"
                     "mouse left+ctrl " +
                     lower.x + " " + lower.y + "\nmouse right+ctrl " + upper.x + " " + upper.y +
                     "\nprint plot\nclick Plotit.Command1\nclick ShowSAve\nclick Command1\n"
                     "click KeldOutCorrected\nchoose dcdt-by-replay.txt\n"
                     "click KeldOutGofS\nchoose gofs-by-replay.txt\n");
    QProcess replay;
    replay.start(HALVERN_REPLAY, QStringList{"replay.session"});
    ASSERT_TRUE(replay.waitForFinished(60000));
    EXPECT_EQ(replay.exitCode(), 0) << replay.readAllStandardError().toStdString();
    for (const std::string name : {"dcdt", "gofs"}) {
        const std::string byHand = test::ContentOf(folder.Path() / (name + "-by-hand.txt"));
        EXPECT_GT(byHand.size(), 1000U);
        EXPECT_EQ(byHand, test::ContentOf(folder.Path() / (name + "-by-replay.txt")));
    }
    const std::string told = replay.readAllStandardOutput().toStdString();
    EXPECT_NE(told.find("plot: DataLimitMin " + NineDigits(lowerLimit) + "\n"), std::string::npos) << told;
    EXPECT_NE(told.find("plot: DataLimitMax " + NineDigits(upperLimit) + "\n"), std::string::npos) << told;
}

}  // namespace
}  // namespace halvern
