#include "plot/plot_window.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QWindow>

#include <cmath>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "desktop/application.h"
#include "desktop/message_box.h"
#include "desktop/pixels.h"
#include "desktop/qt_desktop.h"
#include "plot/plot_request.h"
#include "plot/show_plot.h"
#include "store/analysis_store.h"

namespace halvern {
namespace {

/// A form that draws nothing but what the test draws, and keeps what the mouse did.
struct Drawing : Form {
    Drawing() : Form("Drawing", "Drawing", {1500, 1500, 270 * 15, 290 * 15}) {}
    void Form_MouseDown(int Button, int Shift, float X, float Y) override { Keep("down", Button, Shift, X, Y); }
    void Form_MouseMove(int Button, int Shift, float X, float Y) override { Keep("move", Button, Shift, X, Y); }
    void Form_MouseUp(int Button, int Shift, float X, float Y) override { Keep("up", Button, Shift, X, Y); }
    void BroughtUp() override { ++broughtUp; }

    void Keep(const char* what, int Button, int Shift, float X, float Y) {
        char line[80];
        std::snprintf(line, sizeof line, "%s %d %d (%g, %g)", what, Button, Shift, X, Y);
        story.push_back(line);
    }
    std::vector<std::string> story;
    int broughtUp = 0;
};

using Story = std::vector<std::string>;

/// The move alone, wherever the pointer of the display may be.
void MoveMouse(QWidget* widget, QPoint place, Qt::MouseButtons held = Qt::NoButton) {
    QMouseEvent move(QEvent::MouseMove, place, widget->mapToGlobal(place), Qt::NoButton, held, {});
    QApplication::sendEvent(widget, &move);
}

struct PaintCounter : QObject {
    bool eventFilter(QObject*, QEvent* event) override {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int paints = 0;
};

struct SurfaceOnTheDesktop : ::testing::Test {
    QtDesktop desktop{[] { return PrinterList{}; }};
    Drawing form;

    SurfaceOnTheDesktop() { UseDesktop(&desktop); }
    ~SurfaceOnTheDesktop() override {
        form.Unload();
        UseDesktop(nullptr);
    }
    ImageCanvas& Canvas() { return dynamic_cast<ImageCanvas&>(desktop.SurfaceOf(form)); }
    SurfaceView& Shown() {
        form.Load();
        Canvas().Scale(-25.0F, 120.0F, 110.0F, -25.0F);
        form.Show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(desktop.WindowOf(form)));
        SurfaceView* view = nullptr;
        for (auto* child : desktop.WindowOf(form)->findChildren<QWidget*>())
            if (auto* found = dynamic_cast<SurfaceView*>(child))
                view = found;
        return *view;
    }
};

TEST_F(SurfaceOnTheDesktop, IsThereBeforeTheWindowIsShown) {
    form.Load();
    EXPECT_EQ(Canvas().PixelWidth(), 270.0F);
    EXPECT_EQ(Canvas().PixelHeight(), 290.0F);
    EXPECT_FALSE(desktop.WindowOf(form)->isVisible());
    Canvas().Scale(-25.0F, 120.0F, 110.0F, -25.0F);
    Canvas().Cls();
    Canvas().FilledBox(0.0F, 0.0F, 100.0F, 100.0F, 0x0000FF);
    SurfaceView& view = Shown();
    const QImage seen = view.grab().toImage();
    EXPECT_EQ(seen.pixelColor(50, 240), QColor(0, 0, 255));
    EXPECT_EQ(seen.pixelColor(250, 40), QColor(0, 0, 255));
    EXPECT_EQ(seen.pixelColor(49, 240), QColor(Qt::white));
    EXPECT_EQ(seen.pixelColor(251, 40), QColor(Qt::white));
}

TEST_F(SurfaceOnTheDesktop, FollowsThePlaceOfAHiddenForm) {
    form.Load();
    EXPECT_EQ(Canvas().PixelWidth(), 270.0F);
    form.SetPlace({0, 0, 400 * 15, 300 * 15});
    EXPECT_EQ(Canvas().PixelWidth(), 400.0F);
    EXPECT_EQ(Canvas().PixelHeight(), 300.0F);
}

TEST_F(SurfaceOnTheDesktop, TellsOfTheMouseInPageUnits) {
    SurfaceView& view = Shown();
    MoveMouse(&view, QPoint(50, 240));
    ASSERT_FALSE(form.story.empty());
    EXPECT_EQ(form.story.back(), "move 0 0 (0, 0)");
    form.story.clear();
    QTest::mousePress(&view, Qt::LeftButton, {}, QPoint(50, 240));
    QTest::mouseRelease(&view, Qt::LeftButton, {}, QPoint(250, 40));
    EXPECT_EQ(form.story, (Story{"down 1 0 (0, 0)", "up 1 0 (100, 100)"}));
}

TEST_F(SurfaceOnTheDesktop, TellsButtonAndModifiersExactly) {
    SurfaceView& view = Shown();
    form.story.clear();
    const QPoint place(51, 240);
    QTest::mouseClick(&view, Qt::LeftButton, Qt::ControlModifier, place);
    QTest::mouseClick(&view, Qt::RightButton, Qt::ControlModifier, place);
    QTest::mouseClick(&view, Qt::LeftButton, Qt::AltModifier, place);
    QTest::mouseClick(&view, Qt::LeftButton, Qt::ControlModifier | Qt::ShiftModifier, place);
    QTest::mouseClick(&view, Qt::MiddleButton, {}, place);
    EXPECT_EQ(form.story, (Story{"down 1 2 (0.5, 0)", "up 1 2 (0.5, 0)", "down 2 2 (0.5, 0)", "up 2 2 (0.5, 0)",
                                 "down 1 4 (0.5, 0)", "up 1 4 (0.5, 0)", "down 1 3 (0.5, 0)", "up 1 3 (0.5, 0)"}));
}

TEST_F(SurfaceOnTheDesktop, TellsOfNoReleaseWithoutAPress) {
    SurfaceView& view = Shown();
    form.story.clear();
    QTest::mouseRelease(&view, Qt::LeftButton, {}, QPoint(50, 240));
    EXPECT_EQ(form.story, Story{});
}

TEST_F(SurfaceOnTheDesktop, SaysOnceThatTheWindowHasComeUp) {
    Shown();
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.broughtUp == 1; }));
    // What lies over the window and goes again brings nothing up.
    {
        QWidget cover;
        cover.setGeometry(desktop.WindowOf(form)->geometry());
        cover.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&cover));
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(form.broughtUp, 1);
    // A window that is there already is brought up as well, by however many calls of one handler.
    form.Show();
    form.Show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.broughtUp == 2; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(form.broughtUp, 2);
    form.Hide();
    form.Show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.broughtUp == 3; }));
}

TEST_F(SurfaceOnTheDesktop, SaysSoAgainWhenItHasBeenAnIcon) {
    Shown();
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.broughtUp == 1; }));
    FormWindow& window = *desktop.WindowOf(form);
    const auto becomesIcon = [&] {
        window.showMinimized();
        return QTest::qWaitFor([&] { return form.IsMinimised() && !window.windowHandle()->isExposed(); });
    };
    const auto comesUpFor = [&](int time) {
        return QTest::qWaitFor([&] { return form.broughtUp >= time && window.windowHandle()->isExposed(); }) &&
               QTest::qWaitForWindowActive(&window) && form.broughtUp == time && !form.IsMinimised();
    };
    ASSERT_TRUE(becomesIcon());
    EXPECT_EQ(form.broughtUp, 1);
    window.showNormal();
    EXPECT_TRUE(comesUpFor(2));
    // The program brings an icon up too, shown or hidden.
    ASSERT_TRUE(becomesIcon());
    form.Show();
    EXPECT_TRUE(comesUpFor(3));
    ASSERT_TRUE(becomesIcon());
    form.Hide();
    form.Show();
    EXPECT_TRUE(comesUpFor(4));
}

/// The plot window of the program with a line from (0, 0) to (10, 10).
struct PlotOnTheDesktop : ::testing::Test {
    QtDesktop desktop{[] { return PrinterList{}; }};
    PlotWindow& plot = PlotitForm();

    PlotOnTheDesktop() {
        UseDesktop(&desktop);
        Store().ShowXYDefault = true;
    }
    ~PlotOnTheDesktop() override {
        plot.Unload();
        UseDesktop(nullptr);
    }
    static void Fill(int points) {
        BeginPlainRequest();
        SetRequestTexts({"first line", "second line", "S (Svedbergs)", "<dc/dt>"});
        RequestFiller request;
        request.Line(1, points, kRed, [](std::int32_t I) {
            return PlotPoint{static_cast<float>(10 * (I - 1)), static_cast<float>(10 * (I - 1))};
        });
        request.Finish();
    }
    FormWindow& Shown() {
        Fill(2);
        ShowPlot(false);
        FormWindow& window = *desktop.WindowOf(plot);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        return window;
    }
    ImageCanvas& Canvas() { return dynamic_cast<ImageCanvas&>(desktop.SurfaceOf(plot)); }
    QWidget& Widget(const Control& control) { return *desktop.WindowOf(plot)->WidgetOf(control); }
    /// The pixel of a page position.
    QRgb At(float x, float y) {
        const int across = static_cast<int>(std::lround((x + 25.0F) / 135.0F * Canvas().PixelWidth()));
        const int down = static_cast<int>(std::lround((120.0F - y) / 145.0F * Canvas().PixelHeight()));
        return Canvas().Image().pixel(across, down);
    }
};

constexpr QRgb kBlackPixel = 0xFF000000, kRedPixel = 0xFFFF0000, kWhitePixel = 0xFFFFFFFF;

TEST_F(PlotOnTheDesktop, StandsWhereItsModelSaysBelowItsMenu) {
    FormWindow& window = Shown();
    EXPECT_EQ(window.size(), Pixels(plot.Where()).size());
    const int menuHeight = window.findChild<QMenuBar*>()->height();
    EXPECT_GT(menuHeight, 0);
    EXPECT_EQ(Canvas().PixelWidth(), static_cast<float>(window.width()));
    EXPECT_EQ(Canvas().PixelHeight(), static_cast<float>(window.height() - menuHeight));
    EXPECT_EQ(Store().PlotPixelHeight, Canvas().PixelHeight());
}

TEST_F(PlotOnTheDesktop, DrawsTheBoxAndTheLine) {
    Shown();
    EXPECT_EQ(At(0.0F, 100.0F), kBlackPixel);
    EXPECT_EQ(At(100.0F, 0.0F), kBlackPixel);
    // A line of one pixel passes its middle to within a pixel, some third of a page unit.
    const float X = (5.0F - plot.XAxisMin) * plot.XScale, Y = (5.0F - plot.YAxisMin) * plot.YScale;
    bool red = false;
    for (const float dx : {-0.3F, 0.0F, 0.3F})
        for (const float dy : {-0.3F, 0.0F, 0.3F})
            red = red || At(X + dx, Y + dy) == kRedPixel;
    EXPECT_TRUE(red);
    EXPECT_EQ(At(10.0F, 90.0F), kWhitePixel);
}

TEST_F(PlotOnTheDesktop, DrawsAnewWhenItIsResized) {
    FormWindow& window = Shown();
    window.resize(500, 400);
    ASSERT_TRUE(QTest::qWaitFor([&] { return Canvas().PixelWidth() == 500.0F; }));
    EXPECT_EQ(plot.Where().width, 500 * 15);
    EXPECT_EQ(Store().PlotPixelWidth, 500.0F);
    EXPECT_EQ(At(0.0F, 100.0F), kBlackPixel);
    EXPECT_EQ(At(100.0F, 0.0F), kBlackPixel);
    EXPECT_EQ(At(10.0F, 90.0F), kWhitePixel);
}

TEST_F(PlotOnTheDesktop, HasItsStripAtTheBottomAsWideAsTheWindow) {
    FormWindow& window = Shown();
    const auto placeOf = [&](const Control& control) {
        QWidget& widget = Widget(control);
        return QRect(widget.mapTo(&window, QPoint(0, 0)), widget.size());
    };
    const int height = Pixels(plot.XYCoords.Where().height);
    EXPECT_EQ(placeOf(plot.XYCoords), QRect(0, window.height() - height, window.width(), height));
    EXPECT_TRUE(placeOf(plot.XYCoords).contains(placeOf(plot.XYLabel)));
    window.resize(500, 400);
    EXPECT_TRUE(QTest::qWaitFor([&] { return placeOf(plot.XYCoords) == QRect(0, 400 - height, 500, height); }));
}

TEST_F(PlotOnTheDesktop, ShowsThePositionOfTheMouseUntilTheStripIsHidden) {
    Shown();
    plot.Form_MouseMove(0, 0, 0.0F, 0.0F);
    EXPECT_EQ(dynamic_cast<QLabel&>(Widget(plot.XYLabel)).text(), QString::fromStdString(plot.XYLabel.Caption()));
    EXPECT_NE(plot.XYLabel.Caption(), "");
    EXPECT_TRUE(Widget(plot.XYLabel).isVisible());
    plot.Menu.ShowEm.Click();
    EXPECT_FALSE(Widget(plot.XYCoords).isVisible());
    EXPECT_FALSE(Widget(plot.XYLabel).isVisible());
    plot.Menu.ShowEm.Click();
    EXPECT_TRUE(Widget(plot.XYLabel).isVisible());
}

TEST_F(PlotOnTheDesktop, ShowsItsButtonOverThePictureWhileAPickIsOpen) {
    FormWindow& window = Shown();
    QWidget& done = Widget(plot.Command1);
    EXPECT_FALSE(done.isVisible());
    plot.Command1.Show();
    EXPECT_TRUE(done.isVisible());
    const int menuHeight = window.findChild<QMenuBar*>()->height();
    EXPECT_EQ(done.mapTo(&window, QPoint(0, 0)), QPoint(0, menuHeight));
    EXPECT_EQ(window.childAt(20, menuHeight + 10), &done);
    QTest::mouseClick(&done, Qt::LeftButton);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(PlotOnTheDesktop, CanNotBeClosedByItsFrame) {
    FormWindow& window = Shown();
    EXPECT_FALSE(window.windowFlags().testFlag(Qt::WindowCloseButtonHint));
    EXPECT_TRUE(window.windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
    window.close();
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(plot.IsLoaded());
}

TEST_F(PlotOnTheDesktop, ARubberBandLeavesThePictureAsItWas) {
    FormWindow& window = Shown();
    auto* surface = window.childAt(window.width() / 2, window.height() / 2);
    const QImage before = Canvas().Image().copy();
    QTest::mousePress(surface, Qt::LeftButton, {}, QPoint(200, 200));
    MoveMouse(surface, QPoint(260, 250), Qt::LeftButton);
    ASSERT_TRUE(QTest::qWaitFor([&] { return Canvas().Image() != before; }));
    MoveMouse(surface, QPoint(230, 220), Qt::LeftButton);
    // By then the first box has gone: what is left differs from the picture along the second one alone.
    const auto differs = [&](int x, int y) { return Canvas().Image().pixel(x, y) != before.pixel(x, y); };
    ASSERT_TRUE(QTest::qWaitFor([&] { return !differs(260, 230) && differs(230, 210); }));
    EXPECT_TRUE(differs(215, 220));
    EXPECT_FALSE(differs(215, 210));
    EXPECT_FALSE(differs(240, 250));
    // A box without a width zooms nothing; it is the last thing that stays.
    MoveMouse(surface, QPoint(200, 220), Qt::LeftButton);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !differs(215, 220); }));
    QTest::mouseRelease(surface, Qt::LeftButton, {}, QPoint(200, 220));
    EXPECT_FALSE(differs(199, 210));
    EXPECT_TRUE(differs(200, 210));
    plot.Form_Paint();
    EXPECT_EQ(Canvas().Image(), before);
}

TEST_F(PlotOnTheDesktop, AMoveOfTheMouseDoesNotDrawThePlotAnew) {
    FormWindow& window = Shown();
    auto* surface = window.childAt(window.width() / 2, window.height() / 2);
    PaintCounter onSurface, onLabel;
    surface->installEventFilter(&onSurface);
    Widget(plot.XYLabel).installEventFilter(&onLabel);
    for (int across = 100; across < 110; ++across) {
        const int before = onLabel.paints;
        MoveMouse(surface, QPoint(across, 150));
        ASSERT_TRUE(QTest::qWaitFor([&] { return onLabel.paints > before; }));
    }
    EXPECT_EQ(onSurface.paints, 0);
    // A mark that a new drawing would wipe away.
    Canvas().FilledBox(50.0F, 20.0F, 60.0F, 25.0F, 0x00FF00);
    MoveMouse(surface, QPoint(150, 150));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !plot.XYLabel.Caption().empty(); }));
    surface->repaint();
    EXPECT_EQ(At(55.0F, 22.0F), 0xFF00FF00);
    plot.Form_Paint();
    EXPECT_EQ(At(55.0F, 22.0F), kWhitePixel);
}

TEST_F(PlotOnTheDesktop, SaysOnceThatThereIsNothingToDraw) {
    int boxes = 0;
    std::function<void()> await;
    std::vector<std::unique_ptr<test::AtNext<MessageBoxWindow>>> users;
    await = [&] {
        users.push_back(std::make_unique<test::AtNext<MessageBoxWindow>>([&](MessageBoxWindow& box) {
            ++boxes;
            EXPECT_EQ(box.windowTitle(), "Load Data");
            EXPECT_EQ(box.parentWidget(), desktop.WindowOf(plot));
            await();
            EXPECT_TRUE(QTest::qWaitForWindowExposed(&box));
            QTest::keyClick(&box, Qt::Key_Return);
        }));
    };
    await();
    Fill(1);
    ShowPlot(false);
    FormWindow& window = *desktop.WindowOf(plot);
    EXPECT_TRUE(QTest::qWaitFor([&] { return boxes == 1; }));
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    window.repaint();
    window.resize(500, 400);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Canvas().PixelWidth() == 500.0F; }));
    EXPECT_EQ(boxes, 1);
    EXPECT_EQ(At(0.0F, 0.0F), kWhitePixel);
}

}  // namespace
}  // namespace halvern
