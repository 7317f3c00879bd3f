#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>

#include <cmath>
#include <cstdio>
#include <vector>

#include "desktop/plot_session.h"
#include "plot/plot_window.h"
#include "shell/version.h"
#include "store/analysis_store.h"
#include "store/menus.h"
#include "support/data_files.h"

namespace halvern {
namespace {

constexpr int kScansOfSpeed = 17;

/// A speed, where its cell has the meniscus, and omega squared t from before its first scan to its last.
struct Run {
    int speed;
    double meniscus;
    double from, to;
};
constexpr Run kRuns[] = {{6000, 5.95, 1E9, 7E9}, {20000, 5.96, 7E9, 5.5E10}, {50000, 5.97, 5.5E10, 2.6E11}};

struct Species {
    double s, concentration;
};
constexpr Species kSpecies[] = {{5E-13, 0.5}, {30E-13, 0.3}, {200E-13, 0.2}};

double meniscus = 0.0, omega2t = 0.0;

double SignalAt(int J) {
    const double radius = 5.9 + 0.001 * (J - 1);
    double signal = 0.0;
    for (const auto& [s, concentration] : kSpecies) {
        const double boundary = meniscus * std::exp(s * omega2t);
        const double plateau = concentration * std::pow(meniscus / boundary, 2.0);
        signal += radius < meniscus ? 0.0 : plateau * 0.5 * (1.0 + std::erf((radius - boundary) / 0.1));
    }
    return signal;
}

/// 51 scans up to 6.949 cm, so that 7.0 cm is out of their reach. Returns the list's path.
std::string WriteScans(const test::DataFolder& folder) {
    std::vector<std::string> names;
    for (const Run& run : kRuns)
        for (int scan = 1; scan <= kScansOfSpeed; ++scan) {
            meniscus = run.meniscus;
            omega2t = run.from + (run.to - run.from) * scan / kScansOfSpeed;
            char text[32];
            std::snprintf(text, sizeof text, "%.4E", omega2t);
            const test::ScanFile file{.speed = run.speed, .omega2t = text, .points = 1050, .signal = SignalAt};
            std::snprintf(text, sizeof text, "%05d.RA1", static_cast<int>(names.size()) + 1);
            names.emplace_back(text);
            folder.Write(names.back(), file.Text());
        }
    return folder.Write("speeds.LST", test::ListText(names));
}

struct Wide : test::PlotSession {
    std::string PathOf(const std::string& name) const { return (folder.Path() / name).string(); }
    std::string Content(const std::string& name) const { return test::ContentOf(folder.Path() / name); }

    /// The widgets of a kind in the dialog that is open.
    template <class Widget>
    static QList<Widget*> ChildrenOfDialog() {
        const QWidget* dialog = QApplication::activeModalWidget();
        return dialog == nullptr ? QList<Widget*>() : dialog->findChildren<Widget*>();
    }
    /// The check box of a radius, in the dialog that is open.
    static QCheckBox* BoxOf(const char* radius) {
        for (QCheckBox* box : ChildrenOfDialog<QCheckBox>())
            if (box->text() == QLatin1String(radius))
                return box;
        return nullptr;
    }
    static void ClickBox(test::User& user, const char* radius) {
        user.Click(user.Look([=] {
            QCheckBox* box = BoxOf(radius);
            return box->mapToGlobal(QPoint(10, box->height() / 2));
        }));
    }
    /// The radii that are ticked, in their order.
    static std::string Ticked(test::User& user) {
        return user.Look([] {
            std::string ticked;
            for (const QCheckBox* box : ChildrenOfDialog<QCheckBox>())
                if (box->isChecked())
                    ticked += box->text().toStdString() + " ";
            return ticked;
        });
    }
    /// The dialog opens with 6.5 cm ticked; the user wants its neighbours too, and a radius that no one can have.
    static void ChooseRadii(test::User& user, const std::string& photograph) {
        user.AwaitWindow("Radii To Plot");
        EXPECT_EQ(Ticked(user), "6.5 ");
        EXPECT_TRUE(user.Look([] { return BoxOf("6.9")->isEnabled() && !BoxOf("7.0")->isEnabled(); }));
        for (const char* radius : {"6.3", "7.0", "6.7"})
            ClickBox(user, radius);
        user.Await("the ticks", [] { return BoxOf("6.7") != nullptr && BoxOf("6.7")->isChecked(); });
        EXPECT_EQ(Ticked(user), "6.3 6.5 6.7 ");
        user.Photograph(photograph);
        ExpectWholeLabels(user);
        PressButton(user, "OK");
        user.AwaitNoWindow("Radii To Plot");
    }
    static void AwaitPlot(test::User& user, const char* help, const std::string& photograph) {
        user.Await(help, [=] { return PlotShows(help); });
        user.AwaitWindow(test::kPlotWindow);
        user.Photograph(photograph);
        EXPECT_EQ(user.Look([] { return Store().PlotCount; }), 2 * 3 * (3 * kScansOfSpeed - 1));
    }
    static void ChoosePlot(test::User& user, const MenuItem& item) {
        TurnToMainWindow(user);
        ChooseItems(user, 'p', {&Menus().PlotDummy1, &Menus().PlotWideD, &item});
    }
    static QString TypedText() {
        const auto boxes = ChildrenOfDialog<QLineEdit>();
        return boxes.isEmpty() ? QString() : boxes.front()->text();
    }

    static void TypeMenisci(test::User& user) {
        ChooseItems(user, 'd', {&Menus().dummy_men, &Menus().Set_MultiMenManually});
        user.AwaitWindow("Set Meniscus Position");
        // Each box is selected as a whole when it takes the focus.
        user.Type("5.95");
        user.Press("Tab");
        user.Type("5.96");
        user.Press("Tab");
        user.Type("5.97");
        user.Photograph("d1-menisci");
        ExpectWholeLabels(user);
        PressButton(user, "&OK");
        user.AwaitNoWindow("Set Meniscus Position");
        for (std::int32_t run = 1; run <= 3; ++run)
            EXPECT_EQ(user.Look([run] { return Store().ScanMeniscus(Store().SpeedFirstScan(run)); }),
                      static_cast<float>(kRuns[run - 1].meniscus));
    }
    static void SmoothOverFour(test::User& user) {
        ChooseItems(user, 'd', {&Menus().UseWSSmoothing});
        user.AwaitWindow("Set Soothing Window");
        user.Press("ctrl+a");
        user.Type("4");
        user.Photograph("d2-smoothing");
        ExpectWholeLabels(user);
        PressButton(user, "Done");
        user.AwaitWindow("Smoothing Window Changed!");
        EXPECT_EQ(TextOfBox(user), "Smoothing Window MUST be odd numbered!  Window will be set to 5.");
        user.Photograph("d3-smoothing-changed");
        user.Press("Return");
        user.AwaitNoWindow("Smoothing Window Changed!");
        user.AwaitNoWindow("Set Soothing Window");
        EXPECT_EQ(user.Look([] { return Store().SmoothWindow; }), 5);
        // Two windows have gone at once, and the window manager may have given the keyboard to the second of them.
        TurnToMainWindow(user);
        ChooseItems(user, 'd', {&Menus().SetCSpan});
        user.AwaitWindow("Set Soothing Window");
        EXPECT_EQ(user.Look([] { return TypedText(); }), "5");
        PressButton(user, "Cancel");
        user.AwaitNoWindow("Set Soothing Window");
    }
};

TEST_F(Wide, DistributionComesOutAsInItsReplay) {
    const std::string list = WriteScans(folder);
    const int status = test::WithUser([&](test::User& user) {
        Start(user);
        LoadSpeeds(user, list);
        TypeMenisci(user);
        SmoothOverFour(user);
        EXPECT_FALSE(user.Look([] { return Menus().PlotWideD.IsEnabled() || Menus().WDOut.IsEnabled(); }));

        ChooseItems(user, 'd', {&Menus().DoWideStraight});
        ChooseRadii(user, "d4-radii");
        AwaitPlot(user, "[s* x g(s*)] vs Ln(s*)", "d5-over-ln");
        ChoosePlot(user, Menus().PlotSvsG);
        ChooseRadii(user, "d6-radii");
        AwaitPlot(user, "g(s*) vs s*", "d7-over-s");
        ChoosePlot(user, Menus().PlotIntegralWD);
        ChooseRadii(user, "d8-radii");
        AwaitPlot(user, "Integral of {[s* x g(s*)] vs Ln(s*)}", "d9-integral");

        // Cancelled, a dialog of radii takes the plot away.
        ChoosePlot(user, Menus().PlotLnS);
        user.AwaitWindow("Radii To Plot");
        PressButton(user, "Cancel");
        user.AwaitNoWindow(test::kPlotWindow);

        SaveAs(user, {&Menus().WDOut, &Menus().SaveSvsG}, "Wide Distribution Output", PathOf("g-by-hand.txt"));
        SaveAs(user, {&Menus().WDOut, &Menus().SaveLnSvsSG}, "Wide Distribution Output", PathOf("ln-by-hand.txt"));
        SaveAs(user, {&Menus().WDOut, &Menus().DoIntegralWD}, "Integral Of [s* x g(s*)] vs Ln(s*) - Output",
               PathOf("integral-by-hand.txt"));
        TurnToMainWindow(user);
        user.Photograph("d10-report");
        Exit(user);
    });
    ASSERT_EQ(status, 0);

    folder.Write("replay.session",
                 "click GetListNow\nchoose speeds.LST\nanswer ok\nclick Set_MultiMenManually\ntype Radii(0) 5.95\n"
                 "type Radii(1) 5.96\ntype Radii(2) 5.97\nclick JustDoIt\nclick UseWSSmoothing\ntype Text1 4\n"
                 "click IsOK\nanswer ok\nclick DoWideStraight\nclick PlotEmUp\nclick PlotIntegralWD\nclick PlotEmUp\n"
                 "click SaveSvsG\nchoose g-by-replay.txt\nclick SaveLnSvsSG\nchoose ln-by-replay.txt\n"
                 "click DoIntegralWD\nchoose integral-by-replay.txt\n");
    QProcess replay;
    replay.start(HALVERN_REPLAY, QStringList{"replay.session"});
    ASSERT_TRUE(replay.waitForFinished(60000));
    EXPECT_EQ(replay.exitCode(), 0) << replay.readAllStandardError().toStdString();
    for (const std::string name : {"g", "ln", "integral"}) {
        const std::string byHand = Content(name + "-by-hand.txt");
        EXPECT_NE(byHand.find(" R(meniscus) at 20000 rpm was set to 5.96 cm.\r\n"), std::string::npos) << byHand;
        EXPECT_NE(byHand.find(" Smoothing = 5 out of a total of 51\r\n"), std::string::npos);
        EXPECT_EQ(byHand.find("@7.0"), std::string::npos);
        EXPECT_EQ(byHand, Content(name + "-by-replay.txt"));
    }
}

TEST_F(Wide, DistributionOfTwoScansOfOneTimeEndsTheProgram) {
    const test::ScanFile first{.omega2t = "1.0000E10", .points = 1050}, second{.omega2t = "1.1000E10", .points = 1050},
        last{.omega2t = "1.2000E10", .points = 1050};
    folder.Write("1.RA1", first.Text());
    folder.Write("2.RA1", second.Text());
    folder.Write("3.RA1", second.Text());
    folder.Write("4.RA1", last.Text());
    const std::string list = folder.Write("equal.LST", test::ListText({"1.RA1", "2.RA1", "3.RA1", "4.RA1"}));
    testing::internal::CaptureStderr();
    const int status = test::WithUser([&](test::User& user) {
        Start(user);
        ChooseList(user, list);
        user.Press("Return");
        user.AwaitWindow("Data Error!");
        EXPECT_EQ(TextOfBox(user),
                  "3.RA1 and\n2.RA1\n have identical values of Omega^2*t.  Wide distribution calculations will fail!\n"
                  "Do You Want to Continue?");
        user.Photograph("e1-equal-times");
        user.Press("y");
        user.Await("the data set", [] { return Menus().OutputMenu.IsEnabled(); });
        ChooseItems(user, 'd', {&Menus().dummy_men, &Menus().Set_MenManually});
        user.AwaitWindow("Set Meniscus Position");
        user.Type("5.95");
        user.Press("Return");
        user.AwaitNoWindow("Set Meniscus Position");
        ChooseItems(user, 'd', {&Menus().DoWideStraight});
        user.AwaitWindow("Halvern");
        EXPECT_EQ(TextOfBox(user).simplified(), "Run-time error '11': Division by zero");
        user.Photograph("e2-division-by-zero");
        EXPECT_FALSE(user.Look([] {
            return PlotitForm().IsShown() || Menus().PlotWideD.IsEnabled() || Menus().WDOut.IsEnabled();
        })) << "nothing half-made is offered";
        user.Press("Return");
    });
    EXPECT_EQ(status, 70);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Run-time error '11': Division by zero\n  running: click DoWideStraight\n  version: halvern " +
                  RevisionNumbers() + "\n");
}

}  // namespace
}  // namespace halvern
