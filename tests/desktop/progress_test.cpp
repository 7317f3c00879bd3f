#include <gtest/gtest.h>

#include <QLabel>
#include <QProgressBar>
#include <QScreen>
#include <QTest>

#include <chrono>

#include "desktop/application.h"
#include "desktop/message_box.h"
#include "desktop/pixels.h"
#include "desktop/qt_desktop.h"
#include "plot/plot_request.h"
#include "plot/plot_window.h"
#include "plot/progress.h"
#include "plot/show_plot.h"
#include "store/analysis_store.h"
#include "store/failure.h"

namespace halvern {
namespace {

constexpr std::chrono::hours kForEver{1};

struct Plain : Form {
    explicit Plain() : Form("Plain", "Plain", {1500, 1500, 4500, 3000}) {
        Add("Label1", Label1, {150, 150, 3000, 300});
    }
    Label Label1{"nothing"};
};

/// Counts the events of one kind that a widget gets.
struct Counter : QObject {
    explicit Counter(QEvent::Type type) : kind(type) {}
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == kind ? 1 : 0;
        return false;
    }
    QEvent::Type kind;
    int count = 0;
};

/// How often a window of this title comes up in the application.
struct ComingsUp : QObject {
    explicit ComingsUp(QString title) : title_(std::move(title)) { qApp->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* window = event->type() == QEvent::Show ? dynamic_cast<FormWindow*>(watched) : nullptr;
        count += window != nullptr && window->windowTitle() == title_ ? 1 : 0;
        return false;
    }
    int count = 0;

  private:
    QString title_;
};

struct ProgressOnTheDesktop : ::testing::Test {
    QtDesktop desktop{[] { return PrinterList{}; }};
    ProgressWindow& progress = CmpltFrmForm();
    Plain plain;

    ProgressOnTheDesktop() {
        UseDesktop(&desktop);
        progress.Load();
        progress.SetPlace({9000, 6000, progress.Where().width, progress.Where().height});
    }
    ~ProgressOnTheDesktop() override {
        progress.Unload();
        plain.Unload();
        UseDesktop(nullptr);
    }
    bool IsUp() { return desktop.WindowOf(progress) != nullptr && desktop.WindowOf(progress)->isVisible(); }
    void BringUp() {
        desktop.patience = std::chrono::milliseconds::zero();
        progress.Show();
        progress.Refresh();
        EXPECT_TRUE(IsUp());
    }
    /// What stands on the screen where the progress window has its place, whatever the program believes.
    QImage OnScreen() const {
        const QRect place = Pixels(progress.Where());
        QScreen* screen = QGuiApplication::primaryScreen();
        return screen->grabWindow(0, place.x(), place.y(), place.width(), place.height()).toImage();
    }
};

TEST_F(ProgressOnTheDesktop, StaysAwayFromACommandThatIsSoonOver) {
    desktop.patience = kForEver;
    const ComingsUp comingsUp("% Complete");
    progress.Show();
    for (int tenth = 1; tenth <= 10; ++tenth) {
        progress.ProgressBar1.SetValue(10 * tenth);
        progress.Refresh();
    }
    EXPECT_FALSE(IsUp());
    progress.Hide();
    QCoreApplication::processEvents();
    EXPECT_EQ(comingsUp.count, 0);
}

TEST_F(ProgressOnTheDesktop, ComesUpAtARefreshWhenTheCommandLasts) {
    const QImage empty = OnScreen();
    desktop.patience = kForEver;
    progress.Label3.SetCaption("Creating Plot");
    progress.ProgressBar1.SetValue(0);
    progress.Show();
    progress.Refresh();
    EXPECT_FALSE(IsUp());
    desktop.patience = std::chrono::milliseconds::zero();
    EXPECT_FALSE(IsUp());
    progress.Refresh();
    EXPECT_TRUE(IsUp());
    // All within one handler, no event having passed: the screen shows it nevertheless, and each step of it.
    const QImage begun = OnScreen();
    EXPECT_NE(begun, empty);
    EXPECT_EQ(begun, desktop.WindowOf(progress)->grab().toImage().convertToFormat(begun.format()));
    progress.ProgressBar1.SetValue(70);
    progress.Refresh();
    const QImage later = OnScreen();
    EXPECT_NE(later, begun);
    EXPECT_EQ(later, desktop.WindowOf(progress)->grab().toImage().convertToFormat(begun.format()));
    progress.Hide();
    EXPECT_FALSE(IsUp());
    EXPECT_NE(OnScreen(), later);
}

TEST_F(ProgressOnTheDesktop, ShowsHowFarTheCommandIs) {
    BringUp();
    const auto widgetOf = [&](const Control& control) { return desktop.WindowOf(progress)->WidgetOf(control); };
    const auto& bar = dynamic_cast<QProgressBar&>(*widgetOf(progress.ProgressBar1));
    EXPECT_EQ(bar.value(), 0);
    progress.ProgressBar1.SetValue(40);
    EXPECT_EQ(bar.value(), 40);
    EXPECT_EQ(bar.maximum(), 100);
    EXPECT_FALSE(widgetOf(progress.Gauge1)->isVisible());
}

TEST_F(ProgressOnTheDesktop, BeginsItsTimeAnewWithEachShowing) {
    BringUp();
    progress.Hide();
    desktop.patience = kForEver;
    progress.Show();
    progress.Refresh();
    EXPECT_FALSE(IsUp());
}

TEST_F(ProgressOnTheDesktop, TakesTheKeyboardFromNobody) {
    plain.Show();
    FormWindow& window = *desktop.WindowOf(plain);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    Counter deactivations(QEvent::WindowDeactivate);
    window.installEventFilter(&deactivations);
    BringUp();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(desktop.WindowOf(progress)));
    progress.Hide();
    // Another window that does take it comes behind whatever the progress window might have brought about.
    QWidget other;
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(deactivations.count, 1);
}

TEST_F(ProgressOnTheDesktop, StandsBackWhileTheUserIsAsked) {
    plain.Show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(desktop.WindowOf(plain)));
    BringUp();
    bool stoodBack = false;
    const test::AtNext<MessageBoxWindow> user([&](MessageBoxWindow& box) {
        stoodBack = !IsUp();
        EXPECT_EQ(box.parentWidget(), desktop.WindowOf(plain));
        QTest::keyClick(&box, Qt::Key_Return);
    });
    MsgBox("X Data are Identical!");
    EXPECT_TRUE(user.Happened());
    EXPECT_TRUE(stoodBack);
    EXPECT_FALSE(IsUp());
    // The user's own time is not the command's.
    desktop.patience = kForEver;
    progress.Refresh();
    EXPECT_FALSE(IsUp());
    desktop.patience = std::chrono::milliseconds::zero();
    progress.Refresh();
    EXPECT_TRUE(IsUp());
}

TEST_F(ProgressOnTheDesktop, IsGoneFromTheBoxOfAFailure) {
    bool gone = false;
    const test::AtNext<MessageBoxWindow> user([&](MessageBoxWindow& box) {
        gone = !IsUp();
        QTest::keyClick(&box, Qt::Key_Return);
    });
    testing::internal::CaptureStderr();
    desktop.Gate().Run([&] {
        BringUp();
        Fail(FailureCode::kOverflow);
    });
    testing::internal::GetCapturedStderr();
    EXPECT_TRUE(user.Happened());
    EXPECT_TRUE(gone);
}

TEST_F(ProgressOnTheDesktop, IsNotSeenOverAPlotThatIsDrawnInAMoment) {
    ComingsUp comingsUp("% Complete");
    const auto plot = [] {
        BeginPlainRequest();
        SetRequestTexts({"first line", "second line", "S (Svedbergs)", "<dc/dt>"});
        RequestFiller request;
        request.Line(1, 2, kRed, [](std::int32_t I) {
            return PlotPoint{static_cast<float>(I), static_cast<float>(I)};
        });
        request.Finish();
        ShowPlot(false);
    };
    desktop.patience = kForEver;
    plot();
    EXPECT_EQ(comingsUp.count, 0);
    EXPECT_FALSE(progress.IsShown());
    // It takes more than no time.
    desktop.patience = std::chrono::milliseconds::zero();
    plot();
    EXPECT_EQ(comingsUp.count, 1);
    EXPECT_FALSE(IsUp());
    PlotitForm().Unload();
}

TEST_F(ProgressOnTheDesktop, ARefreshPaintsAnyOtherWindowAtOnce) {
    plain.Refresh();
    plain.Show();
    FormWindow& window = *desktop.WindowOf(plain);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    QCoreApplication::processEvents();
    Counter paints(QEvent::Paint);
    window.WidgetOf(plain.Label1)->installEventFilter(&paints);
    plain.Label1.SetCaption("something else");
    EXPECT_EQ(paints.count, 0);
    plain.Refresh();
    EXPECT_EQ(paints.count, 1);
    plain.Hide();
    plain.Refresh();
    EXPECT_EQ(paints.count, 1);
}

}  // namespace
}  // namespace halvern
