#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QScreen>

#include <cmath>
#include <filesystem>

#include "desktop/plot_session.h"
#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "store/menus.h"

namespace halvern {
namespace {

namespace fs = std::filesystem;

/// Where a picture keeps the title of the window that it shows.
constexpr const char* kTitle = "Title";

/// The tutorial of the manual, done by a user. Each picture is taken anew from the window in front, and has to have the
/// size and the title of the one in the manual. With a folder in HALVERN_LOOK the pictures go there, and are not held against
/// the manual's: of other themes, fonts and densities.
struct ManualPictures : test::PlotSession {
    /// The scans lie where a reader may have put them, if the place is free: the report shows the path.
    ManualPictures() {
        const fs::path pleasant = fs::temp_directory_path() / "halvern-samples";
        ownsPleasant_ = fs::create_directory(pleasant);
        samples_ = ownsPleasant_ ? pleasant : folder.Path();
    }
    ~ManualPictures() override {
        if (ownsPleasant_)
            fs::remove_all(samples_);
    }

    /// The list of a sample, whose scans are made as a user has them made.
    std::string List(const std::string& sample, const std::string& list) const {
        const auto made =
            test::RunCommand("'" HALVERN_SAMPLES "/make' '" HALVERN_SIMULATE "' '" + samples_.string() + "' " + sample);
        EXPECT_EQ(made.status, 0) << made.output;
        return (samples_ / sample / list).string();
    }

    /// The window in front as the screen shows it, with its title.
    static QImage Picture() {
        QCoreApplication::sendPostedEvents();
        const QWidget* window = QApplication::activeWindow();
        const QRect place = window->frameGeometry();
        QImage picture =
            QApplication::primaryScreen()->grabWindow(0, place.x(), place.y(), place.width(), place.height()).toImage();
        picture.setText(kTitle, window->windowTitle());
        return picture;
    }
    static void Take(test::User& user, const std::string& name) {
        ExpectWholeLabels(user);
        ExpectLegibleTexts(user);
        const QImage picture = user.Look(Picture);
        const fs::path folder = qEnvironmentVariable("HALVERN_LOOK", HALVERN_PICTURES_MADE).toStdString();
        fs::create_directories(folder);
        ASSERT_TRUE(picture.save(QString::fromStdString((folder / (name + ".png")).string())));
        if (!qEnvironmentVariableIsSet("HALVERN_LOOK"))
            ExpectAsInManual(picture, name);
    }
    static void ExpectAsInManual(const QImage& picture, const std::string& name) {
        const QImage inManual(QString::fromStdString(HALVERN_MANUAL "/pictures/" + name + ".png"));
        EXPECT_EQ(inManual.size(), picture.size()) << name;
        EXPECT_EQ(inManual.text(kTitle).toStdString(), picture.text(kTitle).toStdString()) << name;
    }
    /// The paper of the plot is white in every theme.
    static void TakePlot(test::User& user, const std::string& name) {
        EXPECT_EQ(user.Look([] {
            const QPoint corner = SurfaceOfPlot().mapToGlobal(QPoint(SurfaceOfPlot().width() - 5, 5));
            return QApplication::primaryScreen()->grabWindow(0, corner.x(), corner.y(), 1, 1).toImage().pixel(0, 0);
        }),
                  qRgb(255, 255, 255));
        Take(user, name);
    }

    static void TypeMeniscus(test::User& user, const char* meniscus) {
        TurnToMainWindow(user);
        ChooseItems(user, 'd', {&Menus().dummy_men, &Menus().Set_MenManually});
        user.AwaitWindow("Set Meniscus Position");
        user.Type(meniscus);
        user.Press("Return");
        user.AwaitNoWindow("Set Meniscus Position");
    }

    /// Chooses items of the main window, and waits for a plot with this second line over it.
    static void Plot(test::User& user, char menu, const std::vector<const MenuItem*>& items, const std::string& help) {
        TurnToMainWindow(user);
        ChooseItems(user, menu, items);
        AwaitPlot(user, help);
    }
    static void AwaitPlot(test::User& user, const std::string& help) {
        user.AwaitWindow(test::kPlotWindow);
        user.Await(help, [=] { return PlotShows(help); });
        LetItBeDrawn(user);
    }
    /// Raw or corrected scans: the dialog asks which of them.
    static void PlotScans(test::User& user, const MenuItem& item, const std::string& help) {
        TurnToMainWindow(user);
        ChooseItems(user, 'p', {&Menus().PlotDummy1, &item});
        user.AwaitWindow("Choose Plots");
        user.Press("Return");
        user.AwaitNoWindow("Choose Plots");
        AwaitPlot(user, help);
    }
    static void PlotWide(test::User& user, const MenuItem& item, const std::vector<const char*>& radii) {
        TurnToMainWindow(user);
        ChooseItems(user, 'p', {&Menus().PlotDummy1, &Menus().PlotWideD, &item});
        PlotRadii(user, radii);
    }
    static void PlotRadii(test::User& user, const std::vector<const char*>& radii) {
        user.AwaitWindow("Radii To Plot");
        for (const char* radius : radii) {
            const QPoint place = user.Look([=] {
                for (QCheckBox* box : QApplication::activeWindow()->findChildren<QCheckBox*>())
                    if (box->text().startsWith(QLatin1String(radius)))
                        return box->mapToGlobal(QPoint(box->height() / 2, box->height() / 2));
                throw std::logic_error(std::string("no box for ") + radius);
            });
            user.Click(place);
        }
        PressButton(user, "OK");
        user.AwaitNoWindow("Radii To Plot");
        user.AwaitWindow(test::kPlotWindow);
        LetItBeDrawn(user);
    }
    static void LetItBeDrawn(test::User& user) {
        for (int pass = 0; pass < 3; ++pass)
            user.Look([] {
                QCoreApplication::sendPostedEvents();
                return true;
            });
    }

    static QPoint PixelAtData(test::User& user, double x, double y) {
        return PlaceAt(user, user.Look([=] { return (x - PlotitForm().XAxisMin) * PlotitForm().XScale; }),
                       user.Look([=] { return (y - PlotitForm().YAxisMin) * PlotitForm().YScale; }))
            .onScreen;
    }
    /// Drags a box open, in units of the axes.
    static void Zoom(test::User& user, double left, double bottom, double right, double top) {
        const QPoint from = PixelAtData(user, left, bottom), to = PixelAtData(user, right, top);
        user.Do(user.MoveTo(from) + " mousedown 1 " + user.MoveTo((from + to) / 2) + " " + user.MoveTo(to) +
                " mouseup 1");
        user.Await("the zoom", [] { return PlotitForm().Menu.Zoomout.IsEnabled(); });
        LetItBeDrawn(user);
    }
    static void PickRadius(test::User& user, double radius) {
        ClickWith(user, "ctrl", 1, PlaceAtData(user, radius).onScreen);
        user.Await("the radius", [=] { return std::fabs(Store().Meniscus - radius) < 0.005; });
        LetItBeDrawn(user);
    }

  private:
    bool ownsPleasant_ = false;
    fs::path samples_;
};

TEST_F(ManualPictures, OfTheTwoSpecies) {
    const std::string list = List("two-species", "middle.LST");
    const int status = test::WithUser([&](test::User& user) {
        Start(user);
        Load(user, list);
        Take(user, "main-window");

        ChooseItems(user, 'd', {&Menus().dummy_men, &Menus().Get_MenFromScan});
        user.AwaitWindow(test::kPlotWindow);
        LetItBeDrawn(user);
        Zoom(user, 5.90, 0.0, 6.00, 0.7);
        PickRadius(user, 5.95);
        TakePlot(user, "meniscus-pick");
        PressDone(user);
        TypeMeniscus(user, "5.95");

        Plot(user, 'd', {&Menus().KeldIt}, "Raw <dc/dt> vs S");
        TakePlot(user, "dcdt-pairs");
        Plot(user, 'd', {&Menus().SetKeldZero}, "for correcting dc/dt");
        TakePlot(user, "zero-level");
        PressDone(user);
        user.Await("the corrected plot", [] { return PlotShows("Average <dc/dt> vs S"); });

        Plot(user, 'd', {&Menus().DoGofS}, "for calculating g(s*)");
        ClickWith(user, "ctrl", 1, PlaceAtData(user, 1.0).onScreen);
        user.Await("the lower limit", [] { return Store().DataLimitMin > 0.5F; });
        ClickWith(user, "ctrl", 3, PlaceAtData(user, 10.0).onScreen);
        user.Await("the upper limit", [] { return Store().DataLimitMax < 10.5F; });
        LetItBeDrawn(user);
        TakePlot(user, "s-limits");
        PressDone(user);
        user.Await("the distribution", [] { return PlotShows("(un-normalized uncorrected distribution)"); });
        TurnToMainWindow(user);
        ChooseItems(user, 'p', {&Menus().PlotDummy1, &Menus().DoPlotGS});
        user.AwaitWindow(test::kPlotWindow);
        LetItBeDrawn(user);
        TakePlot(user, "gofs");

        TurnToMainWindow(user);
        ChooseItems(user, 'd', {&Menus().ShowSAve});
        user.AwaitWindow("Distribution Averages");
        Take(user, "averages");
        user.Press("Return");
        user.AwaitNoWindow("Distribution Averages");
        Exit(user);
    });
    EXPECT_EQ(status, 0);
}

TEST_F(ManualPictures, OfAListFileInTheMaking) {
    const std::string first = fs::path(List("two-species", "middle.LST")).replace_filename("00001.RA1").string();
    const int status = test::WithUser([&](test::User& user) {
        Start(user);
        user.Choose('f', "c");
        user.AwaitWindow("Generate List File");
        user.Click(user.Look([] {
            for (auto* box : QApplication::activeWindow()->findChildren<QLineEdit*>())
                if (box->text().startsWith(QLatin1Char('{')))
                    return box->mapToGlobal(box->rect().center());
            throw std::logic_error("no box for the first file");
        }));
        user.AwaitWindow("Get Data File");
        TypePath(user, first);
        user.Press("Return");
        user.AwaitNoWindow("Get Data File");
        user.AwaitWindow("Generate List File");
        Take(user, "generate-list");
        user.Press("Escape");
        user.AwaitNoWindow("Generate List File");
        TurnToMainWindow(user);
        Exit(user);
    });
    EXPECT_EQ(status, 0);
}

TEST_F(ManualPictures, OfInterferenceScans) {
    const std::string list = List("interference", "interference.LST");
    const int status = test::WithUser([&](test::User& user) {
        Start(user);
        Load(user, list);
        PlotScans(user, Menus().PlotRaw, "Raw Data");
        Zoom(user, 5.90, -12.0, 7.15, 13.0);
        TakePlot(user, "interference-raw");
        TurnToMainWindow(user);
        ChooseItems(user, 'd', {&Menus().DoReAddNow});
        user.Await("the tick", [] { return Menus().DoReAddNow.IsTicked(); });
        PlotScans(user, Menus().PlotRaw, "Raw Data");
        TakePlot(user, "interference-readded");

        TypeMeniscus(user, "6.0");
        TurnToMainWindow(user);
        ChooseItems(user, 'd', {&Menus().SetJitterLimits});
        user.AwaitWindow(test::kPlotWindow);
        user.Await("the pick", [] { return PlotShows("for Interference Jitter") && PlotitForm().TestIt.IsShown(); });
        PickRadius(user, 5.97);
        PressButton(user, "Test");
        LetItBeDrawn(user);
        TakePlot(user, "jitter-test");
        PressDone(user);
        user.Await("the correction", [] { return Menus().NoJitterCorrection.IsShown(); });

        TurnToMainWindow(user);
        ChooseItems(user, 'd', {&Menus().DoIntShift});
        user.AwaitWindow(test::kPlotWindow);
        user.Await("the pick", [] { return PlotShows("Integer Fringe Shifts") && PlotitForm().Command1.IsShown(); });
        PickRadius(user, 7.1);
        PressDone(user);
        user.AwaitWindow("Choose Plots");
        user.Press("Return");
        user.AwaitNoWindow("Choose Plots");
        user.AwaitWindow(test::kPlotWindow);
        LetItBeDrawn(user);
        TakePlot(user, "interference-corrected");
        Leave(user);
    });
    EXPECT_EQ(status, 0);
}

TEST_F(ManualPictures, OfThreeSpeeds) {
    const std::string list = List("three-speeds", "three-speeds.LST");
    const int status = test::WithUser([&](test::User& user) {
        Start(user);
        LoadSpeeds(user, list);

        ChooseItems(user, 'd', {&Menus().dummy_men, &Menus().Set_MultiMenManually});
        user.Await("the dialog", [] { return QApplication::activeModalWidget() != nullptr; });
        for (int speed = 0; speed < 3; ++speed) {
            user.Press("ctrl+a");
            user.Type("5.95");
            user.Press("Tab");
        }
        Take(user, "speeds-meniscus");
        PressButton(user, "&OK");
        user.Await("the end of the dialog", [] { return QApplication::activeModalWidget() == nullptr; });

        TurnToMainWindow(user);
        ChooseItems(user, 'd', {&Menus().DoWideStraight});
        PlotRadii(user, {"6.4", "6.6"});
        TakePlot(user, "wide-ln");
        PlotWide(user, Menus().PlotIntegralWD, {});
        TakePlot(user, "wide-integral");
        Leave(user);
    });
    EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace halvern
