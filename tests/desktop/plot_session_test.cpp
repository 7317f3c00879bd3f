#include "desktop/plot_session.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>

#include <array>
#include <string>

#include "desktop/moving_boundary.h"
#include "plot/legend.h"
#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "store/menus.h"

namespace halvern {
namespace {

/// The axes of the plot as they are drawn.
using View = std::array<float, 4>;
View ViewNow(test::User& user) {
    return user.Look([] {
        const PlotWindow& plot = PlotitForm();
        return View{plot.XAxisMin, plot.XAxisMax, plot.YAxisMin, plot.YAxisMax};
    });
}

struct OnThePlot : test::PlotSession {
    /// From the raw rate on, the zero level left where it is: the pick of the limits of s*.
    static void StartLimitsPick(test::User& user) {
        TurnToMainWindow(user);
        ChooseItems(user, 'd', {&Menus().SetKeldZero});
        user.AwaitWindow(test::kPlotWindow);
        user.Await("the level's pick",
                   [] { return PlotShows("for correcting dc/dt") && PlotitForm().Command1.IsShown(); });
        PressDone(user);
        user.Await("the corrected plot", [] { return PlotShows("Average <dc/dt> vs S"); });
        user.AwaitWindow(test::kPlotWindow);
        TurnToMainWindow(user);
        ChooseItems(user, 'd', {&Menus().DoGofS});
        user.AwaitWindow(test::kPlotWindow);
        user.Await("the pick", [] { return PlotShows("for calculating g(s*)") && PlotitForm().Command1.IsShown(); });
    }
    /// Drags a zoom box open in two moves; the button stays down.
    static void OpenBox(test::User& user, QPoint from, QPoint to) {
        user.Do(user.MoveTo(from) + " mousedown 1 " + user.MoveTo((from + to) / 2) + " " + user.MoveTo(to));
        user.Await("the rubber band", [to] { return SurfaceOfPlot().mapFromGlobal(to) == lastMove; });
    }

    /// Where the surface has last seen the mouse.
    static inline QPoint lastMove;
    struct MoveWatch : QObject {
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::MouseMove)
                lastMove = static_cast<QMouseEvent*>(event)->position().toPoint();
            return false;
        }
    };
};

TEST_F(OnThePlot, ZoomsIntoABoxAndOutAgain) {
    MoveWatch watch;
    const int status = test::WithUser([&](test::User& user) {
        ShowRawRate(user);
        user.Look([&] {
            SurfaceOfPlot().installEventFilter(&watch);
            return true;
        });
        user.Photograph("p1-whole");
        const View whole = ViewNow(user);
        EXPECT_FALSE(user.Look([] { return PlotitForm().Menu.Zoomout.IsEnabled(); }));

        const QPoint corner = PlaceAt(user, 30.0, 95.0).onScreen, opposite = PlaceAt(user, 70.0, 20.0).onScreen;
        const QImage before = user.Look([] { return SurfaceOfPlot().Surface().Image().copy(); });
        OpenBox(user, corner, opposite);
        user.Photograph("p2-rubber-band");
        // The band alone differs: nothing else has been drawn.
        const QImage during = user.Look([] { return SurfaceOfPlot().Surface().Image().copy(); });
        const QRect band = user.Look(
            [=] { return QRect(SurfaceOfPlot().mapFromGlobal(corner), SurfaceOfPlot().mapFromGlobal(opposite)); });
        EXPECT_EQ(during.copy(band.adjusted(2, 2, -2, -2)), before.copy(band.adjusted(2, 2, -2, -2)));
        EXPECT_NE(during, before);
        user.Do("mouseup 1");
        user.Await("the zoom", [] { return PlotitForm().Menu.Zoomout.IsEnabled(); });
        user.Photograph("p3-zoomed");
        const View zoomed = ViewNow(user);
        EXPECT_GT(zoomed[0], whole[0]);
        EXPECT_LT(zoomed[1], whole[1]);
        EXPECT_GT(zoomed[2], whole[2]);
        EXPECT_LE(zoomed[3], whole[3]);

        // A box beside the data is refused, and so is a click; the view stays.
        OpenBox(user, PlaceAt(user, -20.0, 60.0).onScreen, PlaceAt(user, -10.0, 70.0).onScreen);
        user.Do("mouseup 1");
        user.AwaitWindow("Error in Zooming");
        user.Photograph("p4-nothing-to-zoom");
        EXPECT_EQ(TextOfBox(user), "There Were No Data Within the Zoom-In Box!");
        user.Press("Return");
        user.AwaitNoWindow("Error in Zooming");
        user.AwaitWindow(test::kPlotWindow);
        user.Click(opposite);
        EXPECT_EQ(ViewNow(user), zoomed);

        user.Press("alt+z");
        user.Await("the whole picture", [] { return !PlotitForm().Menu.Zoomout.IsEnabled(); });
        EXPECT_EQ(ViewNow(user), whole);
        user.Photograph("p5-zoomed-out");
        Leave(user);
    });
    EXPECT_EQ(status, 0);
}

TEST_F(OnThePlot, MovesTheLimitsByEachOfTheirClicks) {
    const int status = test::WithUser([&](test::User& user) {
        ShowRawRate(user);
        StartLimitsPick(user);
        const auto limits = [&] {
            return user.Look([] { return std::pair{Store().DataLimitMin, Store().DataLimitMax}; });
        };
        const auto [atFirst, most] = limits();
        const QPoint two = PlaceAtData(user, 2.0).onScreen, five = PlaceAtData(user, 5.0).onScreen,
                     seven = PlaceAtData(user, 7.0).onScreen, eight = PlaceAtData(user, 8.0).onScreen;
        ClickWith(user, "ctrl", 1, two);
        user.Await("the lower limit", [least = atFirst] { return Store().DataLimitMin > least; });
        ClickWith(user, "ctrl", 3, seven);
        user.Await("the upper limit", [before = most] { return Store().DataLimitMax < before; });
        user.Photograph("l1-limits");
        const auto [lower, upper] = limits();
        EXPECT_NEAR(lower, 2.0F, 0.02F);
        EXPECT_NEAR(upper, 7.0F, 0.02F);

        // With Shift as well it is none of these clicks; the next one is seen behind it.
        ClickWith(user, "ctrl keydown shift", 1, five);
        user.Do("keyup shift");
        ClickWith(user, "alt", 1, five);
        user.Await("the upper limit of Alt", [before = upper] { return Store().DataLimitMax < before; });
        EXPECT_EQ(limits().first, lower);
        EXPECT_NEAR(limits().second, 5.0F, 0.02F);
        user.Photograph("l2-limit-by-alt");

        ClickWith(user, "ctrl", 1, eight);
        user.AwaitWindow("Invalid Operation");
        user.Photograph("l3-limit-error");
        EXPECT_EQ(TextOfBox(user), "Error Setting Data Limits! This would remove all data.");
        user.Press("Return");
        user.AwaitNoWindow("Invalid Operation");
        user.AwaitWindow(test::kPlotWindow);
        EXPECT_EQ(limits().first, lower);

        // Done by the keyboard alone.
        user.Press("Tab");
        user.Await("the focus", [] {
            auto* button = dynamic_cast<QPushButton*>(QApplication::focusWidget());
            return button != nullptr && button->text() == QLatin1String("Done");
        });
        user.Press("space");
        user.Await("the distribution", [] { return PlotShows("(un-normalized uncorrected distribution)"); });
        user.AwaitWindow(test::kPlotWindow);
        user.Photograph("l4-distribution");
        Leave(user);
    });
    EXPECT_EQ(status, 0);
}

TEST_F(OnThePlot, PicksAMeniscusForEachSpeed) {
    const std::string list = test::WriteThreeSpeeds(folder);
    const int status = test::WithUser([&](test::User& user) {
        Start(user);
        LoadSpeeds(user, list);
        const std::size_t before = Report(user).size();
        ChooseItems(user, 'd', {&Menus().dummy_men, &Menus().Get_MenFromScan});
        for (const auto& [speed, meniscus] : test::kSpeedRuns) {
            user.AwaitWindow(test::kPlotWindow);
            const std::string title = "First Dataset at a Speed of " + std::to_string(speed) + " rpm";
            user.Await(title, [&] { return PlotShows(title) && PlotitForm().Command1.IsShown(); });
            EXPECT_EQ(user.Look([] { return Store().Meniscus; }), 6.0F);
            ClickWith(user, "ctrl", 1, PlaceAtData(user, meniscus).onScreen);
            user.Await("the meniscus", [] { return Store().Meniscus != 6.0F; });
            EXPECT_NEAR(user.Look([] { return Store().Meniscus; }), meniscus, 0.003);
            user.Photograph("m-" + std::to_string(speed));
            PressDone(user);
        }
        user.AwaitNoWindow(test::kPlotWindow);
        EXPECT_FALSE(user.Look([] { return Store().PickMeniscus; }));
        const auto lines = ReportFrom(user, before);
        ASSERT_EQ(lines.size(), std::size(test::kSpeedRuns));
        for (std::size_t run = 0; run < lines.size(); ++run) {
            const auto& [speed, meniscus] = test::kSpeedRuns[run];
            EXPECT_TRUE(lines[run].starts_with(" Meniscus position for " + std::to_string(speed) + "rpm is "));
            for (int scan = 1; scan <= test::kScansOfSpeed; ++scan) {
                const auto K = static_cast<std::int32_t>(run) * test::kScansOfSpeed + scan;
                EXPECT_NEAR(user.Look([K] { return Store().ScanMeniscus(K); }), meniscus, 0.003) << K;
            }
        }
        Leave(user);
    });
    EXPECT_EQ(status, 0);
}

struct Shape {
    const char* name;
    int width, height;
};
constexpr Shape kShapes[] = {{"narrow", 350, 600}, {"tall", 500, 950}, {"wide", 1250, 400}, {"small", 260, 240}};

TEST_F(OnThePlot, KeepsItsTextsInsideAWindowOfAnyShape) {
    const int status = test::WithUser([&](test::User& user) {
        const std::string window = ShowRawRate(user);
        StartLimitsPick(user);
        ClickWith(user, "ctrl", 1, PlaceAtData(user, 2.0).onScreen);
        user.Await("the lower limit", [] { return Store().DataLimitMin > 1.0F; });
        user.Do("windowmove " + window + " 10 30");
        for (const Shape& shape : kShapes) {
            user.Do("windowsize " + window + " " + std::to_string(shape.width) + " " + std::to_string(shape.height));
            user.Await(shape.name, [&] {
                return SurfaceOfPlot().window()->size() == QSize(shape.width, shape.height) &&
                       PlotitForm().Where().width == shape.width * kTwipsPerPixel;
            });
            user.Photograph(std::string("s-") + shape.name);
            // What is cut off would leave something of it at the edge.
            const QImage picture = user.Look([] { return SurfaceOfPlot().Surface().Image().copy(); });
            for (int y = 0; y < picture.height(); ++y) {
                ASSERT_EQ(picture.pixelColor(0, y), QColor(Qt::white)) << shape.name << " left, row " << y;
                ASSERT_EQ(picture.pixelColor(picture.width() - 1, y), QColor(Qt::white))
                    << shape.name << " right, " << y;
            }
            for (int x = 0; x < picture.width(); ++x)
                ASSERT_EQ(picture.pixelColor(x, 0), QColor(Qt::white)) << shape.name << " top, column " << x;
        }
        Leave(user);
    });
    EXPECT_EQ(status, 0);
}

TEST_F(OnThePlot, StaysUntilTheProgramHidesIt) {
    const int status = test::WithUser([&](test::User& user) {
        const std::string window = ShowRawRate(user);
        // Towards the lower right corner, its frame included.
        const auto [frame, screen] = user.Look([] {
            return std::pair{SurfaceOfPlot().window()->frameGeometry(), QApplication::primaryScreen()->geometry()};
        });
        EXPECT_TRUE(screen.contains(frame));
        EXPECT_GT(frame.center().x(), screen.center().x());
        EXPECT_GT(frame.center().y(), screen.center().y());
        EXPECT_LT(screen.right() - frame.right(), frame.left());

        user.Press("alt+F4");
        user.Press("alt+h");
        user.Await("the key behind it", [] { return !PlotitForm().XYCoords.IsShown(); });
        EXPECT_TRUE(user.Look([] { return PlotitForm().IsShown() && SurfaceOfPlot().window()->isVisible(); }));
        user.Press("alt+s");
        user.Await("the strip again", [] { return PlotitForm().XYCoords.IsShown(); });

        // The next command brings a minimised plot up again, drawn anew.
        user.Do("windowminimize " + window);
        user.Await("the icon", [] { return PlotitForm().IsMinimised(); });
        TurnToMainWindow(user);
        ChooseItems(user, 'p', {&Menus().PlotDummy1, &Menus().PlotAvekeld});
        user.AwaitWindow(test::kPlotWindow);
        EXPECT_FALSE(user.Look([] { return PlotitForm().IsMinimised(); }));
        EXPECT_TRUE(user.Look([] { return PlotShows("Average <dc/dt> vs S"); }));
        user.Photograph("w1-after-an-icon");
        Leave(user);
    });
    EXPECT_EQ(status, 0);
}

TEST_F(OnThePlot, TellsOnceForEachComingUpThatThereIsNothingToPlot) {
    constexpr const char* kTitle = "Load Data";
    const int status = test::WithUser([&](test::User& user) {
        const std::string window = ShowRawRate(user);
        user.Look([] {
            Store().PlotReady = false;
            return true;
        });
        for (const char* comingUp : {"from the icon", "and again"}) {
            user.Do("windowminimize " + window);
            user.Await("the icon", [] { return PlotitForm().IsMinimised(); });
            user.Do("windowactivate " + window);
            user.AwaitWindow(kTitle);
            EXPECT_EQ(TextOfBox(user), "There Are No Data To Plot Yet!\n       Load a Data File 1st.") << comingUp;
            user.Photograph("w2-nothing-to-plot");
            user.Press("Return");
            user.AwaitNoWindow(kTitle);
            user.AwaitWindow(test::kPlotWindow);
        }
        // What the box has uncovered, and another size, ask for no other one: the key behind them is taken at once.
        user.Do("windowsize --sync " + window + " 700 500");
        user.Press("alt+h");
        user.Await("the key behind it", [] { return !PlotitForm().XYCoords.IsShown(); });
        EXPECT_TRUE(user.Look([] { return QApplication::activeModalWidget() == nullptr; }));
        Leave(user);
    });
    EXPECT_EQ(status, 0);
}

TEST_F(OnThePlot, HasALegendInTwoOrders) {
    const int status = test::WithUser([&](test::User& user) {
        ShowRawRate(user);
        user.Look([] {
            PlotitForm().Menu.ShowIt.Click();
            return true;
        });
        const std::string window = user.AwaitWindow("Plot Legend");
        user.Photograph("g1-symbols-first");
        user.Look([] {
            PlotitForm().Menu.Col_Sym.Click();
            return true;
        });
        user.Photograph("g2-colours-first");
        const float width = user.Look([] { return Store().LegendPixelWidth; });
        EXPECT_EQ(width, 220.0F);
        user.Do("windowsize " + window + " 440 500");
        user.Await("the other size", [] { return PlotLegendForm().Where().width == 440 * kTwipsPerPixel; });
        EXPECT_EQ(user.Look([] { return Store().LegendPixelWidth; }), width);
        user.Photograph("g3-resized");
        user.Press("alt+F4");
        user.AwaitNoWindow("Plot Legend");
        EXPECT_TRUE(user.Look([] { return PlotitForm().Menu.ShowIt.IsEnabled() && !Store().PlotLegendLoaded; }));
        Leave(user);
    });
    EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace halvern
