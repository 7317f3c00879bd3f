#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QApplication>
#include <QLineEdit>
#include <QListView>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPoint>
#include <QProcess>
#include <QPushButton>
#include <QScrollBar>

#include <chrono>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "desktop/surface_view.h"
#include "desktop/user.h"
#include "plot/plot_window.h"
#include "shell/main_window.h"
#include "store/analysis_store.h"
#include "store/failure.h"
#include "store/menus.h"
#include "store/report.h"
#include "support/data_files.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

using Lines = std::vector<std::string>;

/// The program with its user, its data in a folder of their own, and with a lock of its own.
struct Session : ::testing::Test {
    test::DataFolder folder;

    Session() {
        std::filesystem::create_directories(folder.Path() / "run");
        std::filesystem::permissions(folder.Path() / "run", std::filesystem::perms::owner_all);
        qputenv("XDG_RUNTIME_DIR", (folder.Path() / "run").c_str());
    }

    static Lines Report(test::User& user) {
        return user.Look([] { return test::ReportLines(); });
    }
    static Lines ReportFrom(test::User& user, std::size_t first) {
        const Lines all = Report(user);
        return {all.begin() + static_cast<std::ptrdiff_t>(std::min(first, all.size())), all.end()};
    }

    static void Start(test::User& user) {
        test::FindWindow("HalvernV0.99");
        user.AwaitWindow("Halvern V0.99");
    }
    static void Exit(test::User& user) {
        user.Press("alt+F4");
        user.AwaitWindow("Halvern");
        user.Press("y");
    }

    /// File, "Get Files": types a path into the dialog and accepts it.
    static void ChooseList(test::User& user, const std::string& path) {
        user.Choose('f', "g");
        user.AwaitWindow("Get List File");
        user.Type(path);
        user.Await("the whole path", [path = QString::fromStdString(path)] {
            auto* name = QApplication::activeWindow()->findChild<QLineEdit*>("fileNameEdit");
            return name != nullptr && name->text() == path;
        });
    }

    /// Where the first menu of the main window is on the screen.
    static QPoint FileMenuOf(test::User& user) {
        return user.Look([] {
            QPoint place;
            for (const QWidget* window : QApplication::topLevelWidgets())
                if (const auto* bar = window->findChild<QMenuBar*>(); bar != nullptr && window->isVisible())
                    place = bar->mapToGlobal(bar->actionGeometry(bar->actions().constFirst()).center());
            return place;
        });
    }
    /// A click has been taken by the program, or passed over, when the box over it has the keyboard again.
    static void ActivateBox(test::User& user, const std::string& title) {
        test::ActivateWindow(test::FindWindow(title));
        user.AwaitWindow(title);
    }

    static QString TextOfBox(test::User& user) {
        return user.Look([] {
            auto* box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
            return box == nullptr ? QString() : box->text();
        });
    }
};

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

TEST_F(Session, SaysWhichCommandsAreStillMissing) {
    const int status = test::WithUser([&](test::User& user) {
        Start(user);
        user.Look([] {
            Menus().MakeListNow.Click = nullptr;
            return true;
        });
        user.Choose('f', "c");
        user.AwaitWindow("Halvern");
        EXPECT_EQ(TextOfBox(user), "This command is not part of this version yet.");
        user.Photograph("missing-command");
        user.Press("Return");
        user.AwaitNoWindow("Halvern");
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
        const QPoint third = user.Look([] {
            auto* list = QApplication::activeWindow()->findChild<QListView*>();
            return list->viewport()->mapToGlobal(list->visualRect(list->model()->index(42, 0)).topLeft() +
                                                 QPoint(20, 5));
        });
        user.Click(third);
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

/// The program as a process of its own, with its lock in the folder of the test.
/// A boundary that moves at 4.2 Svedbergs from a meniscus at 5.98 cm: 20 scans at 42000 rpm, 1300 points each.
struct MovingBoundary {
    static constexpr int kScans = 20;
    static double w2t(int scan) { return 1.6E11 + 0.06E11 * scan; }

    /// Writes the scans and the list file. Returns the list's path.
    static std::string Write(const test::DataFolder& folder) {
        std::vector<std::string> names;
        for (int scan = 1; scan <= kScans; ++scan) {
            boundary = 5.98 * std::exp(4.2E-13 * w2t(scan));
            char text[32];
            std::snprintf(text, sizeof text, "%.4E", w2t(scan));
            test::ScanFile file{.omega2t = text, .points = 1300};
            // Half the step and its broadening; the plateau is diluted as the square of the boundary's radius.
            file.signal = [](int J) {
                const double radius = 5.9 + 0.001 * (J - 1);
                const double plateau = 0.8 * (5.98 / boundary) * (5.98 / boundary);
                return radius < 5.98 ? 0.0 : plateau * 0.5 * (1.0 + std::erf((radius - boundary) / 0.04));
            };
            std::snprintf(text, sizeof text, "%05d.RA1", scan);
            names.push_back(text);
            folder.Write(names.back(), file.Text());
        }
        return folder.Write("moving.LST", test::ListText(names));
    }

  private:
    static inline double boundary = 0.0;
};

/// The analysis of one data set from its list to a file of g(s*).
struct Analysis : Session {
    static constexpr const char* kPlot = "Quillon V2.0";

    /// Opens the menu of an access key and clicks through its items, by the program's names for them.
    static void ChooseItems(test::User& user, char menu, const std::vector<const MenuItem*>& items) {
        user.AwaitWindow("Halvern V0.99");
        user.Press(std::string("alt+") + menu);
        user.Await("the menu", [] { return QApplication::activePopupWidget() != nullptr; });
        for (const MenuItem* item : items) {
            QPoint place;
            user.Await("the item " + item->Caption(), [&place, caption = QString::fromStdString(item->Caption())] {
                auto* popup = dynamic_cast<QMenu*>(QApplication::activePopupWidget());
                for (QAction* action : popup == nullptr ? QList<QAction*>() : popup->actions())
                    if (action->text() == caption && action->isVisible()) {
                        place = popup->mapToGlobal(popup->actionGeometry(action).center());
                        return true;
                    }
                return false;
            });
            user.Click(place);
        }
    }

    static void TurnToMainWindow(test::User& user) {
        test::ActivateWindow(test::FindWindow("Halvern V0.99"));
        user.AwaitWindow("Halvern V0.99");
    }

    static SurfaceView& SurfaceOfPlot() {
        for (QWidget* widget : QApplication::allWidgets())
            if (auto* surface = dynamic_cast<SurfaceView*>(widget))
                return *surface;
        throw std::logic_error("the plot has no surface");
    }

    /// A place on the plot: its pixel on the screen, and the page position that this pixel has, as a script writes it.
    struct PlotPlace {
        QPoint onScreen;
        std::string x, y;
    };
    static PlotPlace PlaceAt(test::User& user, double x, double y) {
        return user.Look([=] {
            SurfaceView& surface = SurfaceOfPlot();
            const QPoint pixel =
                QPointF((x + 25.0) / 135.0 * surface.width(), (120.0 - y) / 145.0 * surface.height()).toPoint();
            const auto [pageX, pageY] = surface.Surface().PageAt(pixel);
            return PlotPlace{surface.mapToGlobal(pixel), "@" + NineDigits(pageX), "@" + NineDigits(pageY)};
        });
    }
    /// The same for a position along the x axis, in the middle of the box's height.
    static PlotPlace PlaceAtData(test::User& user, double x) {
        return PlaceAt(user, user.Look([=] { return (x - PlotitForm().XAxisMin) * PlotitForm().XScale; }), 50.0);
    }
    static void ClickWith(test::User& user, const std::string& key, int button, QPoint place) {
        user.Do("mousemove --sync " + std::to_string(place.x()) + " " + std::to_string(place.y()) + " keydown " + key +
                " click " + std::to_string(button) + " keyup " + key);
    }
    static void PressDone(test::User& user) {
        const QPoint place = user.Look([] {
            for (QPushButton* button : QApplication::activeWindow()->findChildren<QPushButton*>())
                if (button->isVisible() && button->text() == QLatin1String("Done"))
                    return button->mapToGlobal(button->rect().center());
            return QPoint();
        });
        user.Click(place);
    }
    static bool PlotShows(const char* help) { return PlotitForm().IsShown() && Store().PlotHelp2 == help; }

    /// Nine digits say every single exactly.
    static std::string NineDigits(float value) {
        char text[32];
        std::snprintf(text, sizeof text, "%.9g", static_cast<double>(value));
        return text;
    }
    static std::string ContentOf(const std::filesystem::path& file) {
        std::ifstream in(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
};

TEST_F(Analysis, OfAMovingBoundaryComesOutAsInItsReplay) {
    const std::string list = MovingBoundary::Write(folder);
    PlotPlace zero, lower, upper;
    float zeroLevel = 0.0F, lowerLimit = 0.0F, upperLimit = 0.0F;

    const int status = test::WithUser([&](test::User& user) {
        Start(user);
        ChooseList(user, list);
        user.Press("Return");
        user.Await("the data set", [] { return Menus().OutputMenu.IsEnabled(); });

        user.AwaitWindow("Halvern V0.99");
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
        user.Type("5.98");
        user.Press("Return");
        user.AwaitNoWindow("Set Meniscus Position");
        EXPECT_EQ(user.Look([] { return Store().ScanMeniscus(MovingBoundary::kScans); }), 5.98F);

        ChooseItems(user, 'd', {&Menus().KeldIt});
        user.AwaitWindow(kPlot);
        user.Photograph("a3-raw-rate");
        EXPECT_TRUE(user.Look([] { return PlotShows("Raw <dc/dt> vs S"); }));

        // While the plot stands the main window can be used, and its commands bring the plot to the front again.
        TurnToMainWindow(user);
        user.Photograph("a4-main-window-in-front");
        ChooseItems(user, 'p', {&Menus().PlotDummy1, &Menus().PlotAvekeld});
        user.AwaitWindow(kPlot);
        user.Photograph("a5-average-rate");

        TurnToMainWindow(user);
        ChooseItems(user, 'd', {&Menus().SetKeldZero});
        user.AwaitWindow(kPlot);
        user.Await("the pick", [] { return PlotShows("for correcting dc/dt") && PlotitForm().Command1.IsShown(); });
        zero = PlaceAt(user, 90.0, 4.0);
        ClickWith(user, "ctrl", 1, zero.onScreen);
        user.Await("the level", [] { return Store().Meniscus != 0.0F; });
        user.Photograph("a6-zero-level");
        zeroLevel = user.Look([] { return Store().Meniscus; });
        PressDone(user);
        user.Await("the corrected plot", [] { return PlotShows("Average <dc/dt> vs S"); });
        user.AwaitWindow(kPlot);
        EXPECT_EQ(user.Look([] { return Store().ZeroLevel; }), zeroLevel);

        TurnToMainWindow(user);
        ChooseItems(user, 'd', {&Menus().DoGofS});
        user.AwaitWindow(kPlot);
        user.Await("the pick", [] { return PlotShows("for calculating g(s*)") && PlotitForm().Command1.IsShown(); });
        const float before = user.Look([] { return Store().DataLimitMax; });
        lower = PlaceAtData(user, 2.0);
        upper = PlaceAtData(user, 7.0);
        ClickWith(user, "ctrl", 1, lower.onScreen);
        user.Await("the lower limit", [] { return Store().DataLimitMin > 1.0F; });
        ClickWith(user, "ctrl", 3, upper.onScreen);
        user.Await("the upper limit", [before] { return Store().DataLimitMax < before; });
        user.Photograph("a7-limits");
        lowerLimit = user.Look([] { return Store().DataLimitMin; });
        upperLimit = user.Look([] { return Store().DataLimitMax; });
        EXPECT_NEAR(lowerLimit, 2.0F, 0.02F);  // a pixel is about 0.015 Svedbergs
        EXPECT_NEAR(upperLimit, 7.0F, 0.02F);
        PressDone(user);
        user.Await("the distribution", [] { return PlotShows("(un-normalized uncorrected distribution)"); });
        user.AwaitWindow(kPlot);
        user.Photograph("a8-g-hat");

        TurnToMainWindow(user);
        ChooseItems(user, 'd', {&Menus().ShowSAve});
        user.AwaitWindow("Distribution Averages");
        user.Photograph("a9-averages");
        user.Press("Return");
        user.AwaitNoWindow("Distribution Averages");

        ChooseItems(user, 'o', {&Menus().KeldOut, &Menus().KeldOutGofS});
        user.AwaitWindow("Keld G-of-S Output");
        user.Type((folder.Path() / "by-hand.dat").string());
        user.Press("Return");
        user.Await("the question whether to create it", [] {
            return dynamic_cast<QMessageBox*>(QApplication::activeWindow()) != nullptr &&
                   QApplication::activeWindow() == QApplication::activeModalWidget();
        });
        EXPECT_TRUE(TextOfBox(user).endsWith("does not exist.\nDo you want to create it?"));
        user.Press("y");
        user.AwaitNoWindow("Keld G-of-S Output");
        user.AwaitWindow("Halvern V0.99");
        Exit(user);
    });
    EXPECT_EQ(status, 0);

    folder.Write("replay.session",
                 "click GetListNow\nchoose moving.LST\nclick Set_MenManually\n"
                 "type Text1 5.98\nclick IsOK\nclick KeldIt\nclick SetKeldZero\n"
                 "mouse left+ctrl " +
                     zero.x + " " + zero.y +
                     "\nclick Plotit.Command1\nclick DoGofS\n"
                     "mouse left+ctrl " +
                     lower.x + " " + lower.y + "\nmouse right+ctrl " + upper.x + " " + upper.y +
                     "\nprint plot\nclick Plotit.Command1\nclick ShowSAve\nclick Command1\n"
                     "click KeldOutGofS\nchoose by-replay.dat\n");
    QProcess replay;
    replay.start(HALVERN_REPLAY, QStringList{"replay.session"});
    ASSERT_TRUE(replay.waitForFinished(60000));
    EXPECT_EQ(replay.exitCode(), 0) << replay.readAllStandardError().toStdString();
    const std::string byHand = ContentOf(folder.Path() / "by-hand.dat");
    EXPECT_GT(byHand.size(), 1000U);
    EXPECT_EQ(byHand, ContentOf(folder.Path() / "by-replay.dat"));
    const std::string told = replay.readAllStandardOutput().toStdString();
    EXPECT_NE(told.find("plot: DataLimitMin " + NineDigits(lowerLimit) + "\n"), std::string::npos) << told;
    EXPECT_NE(told.find("plot: DataLimitMax " + NineDigits(upperLimit) + "\n"), std::string::npos) << told;
}

struct OtherProcess : Session {
    QProcess process;

    void Begin(const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment()) {
        process.setProcessEnvironment(environment);
        process.start(HALVERN_EXECUTABLE, QStringList{});
        ASSERT_TRUE(process.waitForStarted());
    }
    static void TurnTo(const std::string& title) { test::ActivateWindow(test::FindWindow(title)); }
    static void Press(const std::string& keys) { EXPECT_EQ(test::RunCommand("xdotool key " + keys).status, 0); }
    /// Closes the main window by its frame and answers Yes.
    void End() {
        Press("alt+F4");
        TurnTo("Halvern");
        Press("y");
        ASSERT_TRUE(process.waitForFinished(30000));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(process.exitCode(), 0);
    }
};

TEST_F(OtherProcess, StartsAfterAnInstanceThatWasKilled) {
    Begin();
    TurnTo("Halvern V0.99");
    process.kill();
    ASSERT_TRUE(process.waitForFinished(30000));
    EXPECT_TRUE(std::filesystem::exists(folder.Path() / "run" / "halvern.lock"));
    Begin();
    TurnTo("Halvern V0.99");
    End();
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "run" / "halvern.lock"));
}

TEST_F(OtherProcess, StartsAndEndsWhileThePrintSystemIsSilent) {
    // A print server that takes connections and never says a word.
    const int server = ::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    ASSERT_EQ(::bind(server, reinterpret_cast<sockaddr*>(&address), size), 0);
    ASSERT_EQ(::listen(server, 8), 0);
    ASSERT_EQ(::getsockname(server, reinterpret_cast<sockaddr*>(&address), &size), 0);

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("CUPS_SERVER", QString("127.0.0.1:%1").arg(ntohs(address.sin_port)));
    const auto before = std::chrono::steady_clock::now();
    Begin(environment);
    TurnTo("Halvern V0.99");
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(12));
    const int asked = ::accept4(server, nullptr, nullptr, SOCK_NONBLOCK);
    EXPECT_GE(asked, 0) << "the program has asked another print server";
    End();
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "run" / "halvern.lock"));
    ::close(asked);
    ::close(server);
}

TEST_F(OtherProcess, WritesNoSettings) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("HOME", QString::fromStdString(folder.Path().string() + "/home"));
    std::filesystem::create_directories("home");
    environment.remove("XDG_CONFIG_HOME");
    Begin(environment);
    TurnTo("Halvern V0.99");
    Press("alt+f");
    Press("g");
    TurnTo("Get List File");
    Press("Escape");
    TurnTo("Halvern V0.99");
    End();
    EXPECT_EQ(process.readAllStandardError().toStdString(), "");
    EXPECT_FALSE(std::filesystem::exists("home/.config/QtProject.conf"));
}

TEST_F(OtherProcess, SaysSoWithoutADisplay) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove("DISPLAY");
    environment.remove("WAYLAND_DISPLAY");
    Begin(environment);
    ASSERT_TRUE(process.waitForFinished(30000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_TRUE(process.readAllStandardError().contains("display"));
}

}  // namespace
}  // namespace halvern
