#include "desktop/session.h"

#include <QApplication>
#include <QListView>
#include <QLocale>
#include <QMenu>
#include <QProcess>
#include <QScrollBar>

#include <clocale>
#include <filesystem>

#include "plot/plot_window.h"
#include "shell/main_window.h"
#include "store/analysis_store.h"
#include "store/failure.h"
#include "store/menus.h"
#include "store/report.h"

namespace halvern {
namespace {

using test::Session;
using Lines = std::vector<std::string>;

/// What the menus let through after a load, and after it was given up again.
struct Gates {
    bool meniscus, plots, output;
    std::string caption;
    bool operator==(const Gates&) const = default;
};
Gates GatesNow(test::User& user) {
    return user.Look([] {
        return Gates{Menus().dummy_men.IsEnabled(), Menus().PlotDummy1.IsEnabled(), Menus().OutputMenu.IsEnabled(),
                     Menus().GetListNow.Caption()};
    });
}

TEST_F(Session, FromTheSplashToTheEnd) {
    const std::string list = test::WriteDataSet(folder, 45);
    std::filesystem::remove("00010.RA1");
    folder.Write("00020.RA1", test::ScanFile{.omega2t = "1.1900E10", .points = 9}.Text());
    std::filesystem::current_path("/");

    const int status = test::WithUser([&](test::User& user) {
        test::FindWindow("HalvernV0.99");
        user.Photograph("1-splash");
        const std::string window = user.AwaitWindow("Halvern V0.99");
        user.AwaitNoWindow("HalvernV0.99");
        user.Photograph("2-main-window");
        EXPECT_EQ(Report(user), (Lines{" Halvern V0.99   ", " Current Revision V0.99.0055 "}));
        EXPECT_FALSE(user.Look([] { return PlotitForm().IsShown(); }));
        EXPECT_TRUE(user.Look([] { return PlotitForm().IsLoaded(); }));
        EXPECT_TRUE(user.Look([] { return QLocale() == QLocale::c(); }));
        EXPECT_EQ(user.Look([] { return std::string(std::setlocale(LC_NUMERIC, nullptr)); }), "C");

        user.Press("alt+f");
        user.Await("the menu", [] { return QApplication::activePopupWidget() != nullptr; });
        user.Photograph("3-file-menu");
        user.Press("Escape");
        user.Await("no menu", [] { return QApplication::activePopupWidget() == nullptr; });
        user.Press("Escape");

        ChooseList(user, list);
        user.Photograph("4-file-dialog");
        user.Press("Return");
        user.Await("the data set", [] { return Menus().OutputMenu.IsEnabled(); });
        user.Photograph("5-loaded");
        EXPECT_EQ(ReportFrom(user, 2), (Lines{"ListFile :: " + list + " being used.", "Data File Not Found: 00010.RA1",
                                              "44 Data Files Found.", "*", "* Sparse File Found: 00020.RA1", "*",
                                              " 43 valid data files were found."}));
        EXPECT_EQ(user.Look([] { return Store().NumFiles; }), 43);
        EXPECT_EQ(user.Look([] { return Store().NumSpeeds; }), 1);
        EXPECT_EQ(user.Look([] { return std::filesystem::current_path(); }), folder.Path());
        const Gates loaded{true, true, true, "Restart With Another Set"};
        EXPECT_EQ(GatesNow(user), loaded);

        // A second instance of the program is refused, and the first knows nothing of it.
        QProcess second;
        second.start(HALVERN_EXECUTABLE, QStringList{"--ignored", "arguments"});
        test::ActivateWindow(test::FindWindow("Previous Instance"));
        user.Photograph("6-second-instance");
        user.Press("Return");
        ASSERT_TRUE(second.waitForFinished(30000));
        EXPECT_EQ(second.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(second.exitCode(), 0);
        test::ActivateWindow(window);
        user.AwaitWindow("Halvern V0.99");
        EXPECT_EQ(user.Look([] { return Store().NumSpeeds; }), 1);

        // No to the question leaves all as it was.
        user.Choose('f', "e");
        user.AwaitWindow("Halvern");
        EXPECT_EQ(TextOfBox(user), "Exit Program?");
        user.Photograph("7-exit-question");
        user.Press("Escape");
        EXPECT_EQ(TextOfBox(user), "Exit Program?");
        user.Click(FileMenuOf(user));
        ActivateBox(user, "Halvern");
        EXPECT_EQ(TextOfBox(user), "Exit Program?");
        EXPECT_TRUE(user.Look([] { return QApplication::activePopupWidget() == nullptr; }));
        user.Press("n");
        user.AwaitNoWindow("Halvern");
        EXPECT_EQ(GatesNow(user), loaded);
        EXPECT_EQ(user.Look([] { return Store().NumSpeeds; }), 1);
        EXPECT_TRUE(user.Look([] { return MainForm().IsLoaded() && PlotitForm().IsLoaded(); }));
        EXPECT_EQ(Report(user).size(), 9U);

        // A restart gives the data set up before the dialog is answered.
        user.AwaitWindow("Halvern V0.99");
        user.Press("alt+f");
        user.Await("the menu", [] { return QApplication::activePopupWidget() != nullptr; });
        user.Photograph("8-restart-menu");
        user.Press("Return");
        user.AwaitWindow("Get List File");
        user.Press("Escape");
        user.AwaitNoWindow("Get List File");
        EXPECT_EQ(user.Look([] { return Store().NumSpeeds; }), 0);
        EXPECT_EQ(GatesNow(user), (Gates{false, false, false, "Restart With Another Set"}));
        EXPECT_EQ(Report(user).size(), 9U);

        // The window can't be made too small, and does not drift while it is told so.
        user.AwaitWindow("Halvern V0.99");
        user.Do("windowsize --sync " + window + " 150 400");
        user.Await("the least width", [] { return QApplication::activeWindow()->size() == QSize(233, 400); });
        user.Photograph("9-smallest-width");
        EXPECT_EQ(user.Look([] { return MainForm().Where().width; }), 3500);
        user.Do("windowsize " + window + " 800 100");
        user.Await("the least height", [] { return QApplication::activeWindow()->size() == QSize(800, 233); });
        EXPECT_EQ(user.Look([] { return OutFileBox().Where(); }), (Place{250, 250, 800 * 15 - 500, 2500}));

        user.Press("alt+F4");
        user.AwaitWindow("Halvern");
        user.Press("Return");
    });
    EXPECT_EQ(status, 0);
    EXPECT_FALSE(MainForm().IsLoaded());
    EXPECT_FALSE(PlotitForm().IsLoaded());
    EXPECT_FALSE(Store().PlotitLoaded);
}

TEST_F(Session, TellsOfTooFewFilesAndOfSeveralSpeeds) {
    folder.Write("few.LST", test::ListText({"00001.RA1", "none.RA1", "00002.RA1", "none.RA1", "00003.RA1"}));
    const std::string list = test::WriteDataSet(folder, 6);
    for (const char* name : {"00004.RA1", "00005.RA1", "00006.RA1"})
        folder.Write(name, test::ScanFile{.speed = 30000, .omega2t = std::string("2.0000E1") + name[4]}.Text());

    const int status = test::WithUser([&](test::User& user) {
        Start(user);
        ChooseList(user, folder.Path() / "few.LST");
        user.Press("Return");
        user.AwaitWindow("Too Few Files Chosen!");
        user.Photograph("too-few-files");
        EXPECT_EQ(TextOfBox(user), "Too few files in List File.  Try again and select at least 4 data files.");
        user.Press("Return");
        user.AwaitNoWindow("Too Few Files Chosen!");
        EXPECT_EQ(user.Look([] { return Store().NumSpeeds; }), 0);

        user.AwaitWindow("Halvern V0.99");
        ChooseList(user, list);
        user.Press("Return");
        user.AwaitWindow("Multiple Speed Data");
        user.Photograph("several-speeds");
        EXPECT_EQ(
            TextOfBox(user),
            "Multiple speeds have been found.  These datasets\ncan only be used to calculate Wide Distributions!");
        user.Press("Escape");
        user.AwaitNoWindow("Multiple Speed Data");
        EXPECT_EQ(Report(user).back(), "Datasets from 2 different speeds were found.");

        // The submenu shows what the load has opened.
        user.AwaitWindow("Halvern V0.99");
        user.Choose('d', "m");
        user.Await("the submenu", [] {
            auto* menu = dynamic_cast<QMenu*>(QApplication::activePopupWidget());
            return menu != nullptr && menu->actions().constFirst()->text().startsWith("Graphically");
        });
        user.Photograph("meniscus-menu");
        user.Press("Escape");
        user.Press("Escape");
        user.Press("Escape");
        user.Await("no menu", [] { return QApplication::activePopupWidget() == nullptr; });
        Exit(user);
    });
    EXPECT_EQ(status, 0);
}

TEST_F(Session, EndsWithoutAQuestionWhenEqualScansAreNotToBeUsed) {
    const std::string list = test::WriteDataSet(folder, 8);
    folder.Write("00003.RA1", test::ScanFile{.omega2t = "1.0100E10"}.Text());
    const int status = test::WithUser([&](test::User& user) {
        Start(user);
        ChooseList(user, list);
        user.Press("Return");
        user.AwaitWindow("Data Error!");
        user.Photograph("data-error");
        EXPECT_TRUE(TextOfBox(user).startsWith("00003.RA1 and\n00002.RA1\n have identical values of Omega^2*t."));
        user.Press("n");
    });
    EXPECT_EQ(status, 0);
    EXPECT_FALSE(Store().PlotitLoaded);
}

TEST_F(Session, EndsWithStatus70AfterARunTimeFailure) {
    const int status = test::WithUser([&](test::User& user) {
        Start(user);
        user.Look([] {
            Menus().MakeListNow.Click = [] { Fail(FailureCode::kDivisionByZero); };
            return true;
        });
        user.Choose('f', "c");
        user.AwaitWindow("Halvern");
        user.Photograph("run-time-failure");
        EXPECT_EQ(TextOfBox(user), "Run-time error '11':\n\nDivision by zero");
        user.Press("Return");
    });
    EXPECT_EQ(status, 70);
}

TEST_F(Session, TakesNothingFromTheUserWhileTheSplashStands) {
    const int status = test::WithUser([&](test::User& user) {
        test::FindWindow("HalvernV0.99");
        user.Press("alt+F4 Return");
        user.AwaitWindow("Halvern V0.99");
        EXPECT_EQ(Report(user).size(), 2U);
        Exit(user);
    });
    EXPECT_EQ(status, 0);
}

TEST_F(Session, SelectsAndScrollsTheReport) {
    int copies = 0;
    const int status = test::WithUser([&](test::User& user) {
        Start(user);
        user.Look([] {
            for (int i = 2; i < 100; ++i)
                AddLine(" line " + std::to_string(i) + " <dc/dt> & g^(s*) caf\xE9");
            OutFileBox().SetTopIndex(40);
            return true;
        });
        EXPECT_EQ(user.Look([] { return OutFileBox().TopIndex(); }), 40U);
        user.Click(PlaceOfLine(user, 42));
        user.Await("the line clicked", [] { return OutFileBox().IsSelected(42); });
        user.Press("shift+Down shift+Down");
        user.Await("three lines", [] { return OutFileBox().IsSelected(44); });
        EXPECT_TRUE(user.Look([] { return OutFileBox().IsSelected(43); }));
        user.Do("click 5");
        user.Await("the wheel", [] { return OutFileBox().TopIndex() > 40; });
        user.Photograph("selected-lines");

        // Without a printer there is no copying either: the shortcut is as dead as the menu.
        user.Look([&] {
            Menus().CopySelect.Click = [&] { ++copies; };
            return true;
        });
        user.Press("ctrl+c Home");
        user.Await("the key behind it", [] { return OutFileBox().TopIndex() == 0; });
        EXPECT_EQ(user.Look([&] { return copies; }), 0);
        user.Look([] {
            Menus().PrintDummy1.Enable();
            return true;
        });
        user.Press("ctrl+c");
        user.Await("the copy", [&] { return copies == 1; });
        Exit(user);
    });
    EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace halvern
