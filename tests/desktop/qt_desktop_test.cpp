#include "desktop/qt_desktop.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QPainter>
#include <QPointer>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <stdexcept>

#include "desktop/application.h"
#include "desktop/message_box.h"
#include "desktop/pixels.h"
#include "shell/version.h"
#include "store/failure.h"
#include "ui/list_box.h"

namespace halvern {
namespace {

struct PlainForm : Form {
    explicit PlainForm(std::string name) : Form(name, name, {1500, 1500, 6000, 4500}) {
        Add("Command1", Command1, {150, 150, 900, 375});
    }
    void Form_Resize() override { ++resizes; }
    Button Command1{"&Done"};
    int resizes = 0;
};

struct TheQtDesktop : ::testing::Test {
    QtDesktop desktop{[] { return PrinterList{{"Laser", "Ink"}, "Ink"}; }};
    // Declared behind the desktop: a form that is still loaded when the program has failed goes first.
    PlainForm first{"First"}, second{"Second"};

    TheQtDesktop() { UseDesktop(&desktop); }
    ~TheQtDesktop() override { UseDesktop(nullptr); }

    void Press(Form& form, Button& button) {
        QTest::mouseClick(desktop.WindowOf(form)->WidgetOf(button), Qt::LeftButton);
    }
};

/// Presses a key in the next message box, and keeps its text.
struct AtBox {
    QString text, title;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    std::function<void(MessageBoxWindow&)> before;
    test::AtNext<MessageBoxWindow> user;
    explicit AtBox(Qt::Key key)
        : user([this, key](MessageBoxWindow& box) {
              text = box.text();
              title = box.windowTitle();
              icon = box.icon();
              if (before)
                  before(box);
              QTest::keyClick(&box, key);
          }) {}
};

TEST_F(TheQtDesktop, RunsUntilNoFormIsLoaded) {
    const int status = desktop.Run([&] {
        first.Show();
        second.Load();
        first.Command1.Click = [&] {
            second.Unload();
            first.Unload();
        };
        QTimer::singleShot(0, [&] { Press(first, first.Command1); });
    });
    EXPECT_EQ(status, 0);
    EXPECT_FALSE(first.IsLoaded());
    EXPECT_EQ(QApplication::topLevelWidgets().size(), 0);
}

TEST_F(TheQtDesktop, GoesOnWhileAHandlerHasNoFormLoaded) {
    bool wentOn = false;
    const int status = desktop.Run([&] {
        first.Show();
        DoEvents();
        first.Unload();
        DoEvents();
        second.Show();
        wentOn = true;
        QTimer::singleShot(0, [&] { desktop.WindowOf(second)->close(); });
    });
    EXPECT_TRUE(wentOn);
    EXPECT_EQ(status, 0);
}

TEST_F(TheQtDesktop, SleepsFromWhenItsWindowsAreOnTheScreen) {
    bool wasOnTheScreen = false;
    EXPECT_EQ(desktop.Run([&] {
        first.Show();
        TheDesktop().Sleep(0);
        wasOnTheScreen = desktop.WindowOf(first)->windowHandle()->isExposed();
        EndProgram();
    }),
              0);
    EXPECT_TRUE(wasOnTheScreen);
}

TEST_F(TheQtDesktop, KeepsAWindowThatIsClosedAmidAHandlerOfItsOwnUntilThatIsOver) {
    QPointer<QWidget> window;
    bool isGone = false, wasThereAfterwards = false;
    const int status = desktop.Run([&] {
        second.Show();
        first.Show();
        window = desktop.WindowOf(first);
        QObject::connect(window, &QObject::destroyed, [&] { desktop.WindowOf(second)->close(); });
        first.Command1.Click = [&] {
            QTimer::singleShot(0, window, [&] { window->close(); });
            for (int i = 0; i < 3; ++i)
                DoEvents();
            isGone = !first.IsLoaded();
            wasThereAfterwards = window != nullptr;
        };
        QTimer::singleShot(0, [&] { Press(first, first.Command1); });
    });
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(isGone);
    EXPECT_TRUE(wasThereAfterwards);
    EXPECT_EQ(window, nullptr);
}

TEST_F(TheQtDesktop, EndsByAProgramEndInItsFirstEvent) {
    EXPECT_EQ(desktop.Run([] { EndProgram(); }), 0);
}

TEST_F(TheQtDesktop, LeavesEveryHandlerThatWaitsWhenTheProgramEnds) {
    int wentOn = 0;
    const int status = desktop.Run([&] {
        first.Show();
        first.Command1.Click = [&] {
            test::AtNext<MessageBoxWindow> user([&](MessageBoxWindow&) { desktop.Gate().Run([] { EndProgram(); }); });
            MsgBox("the inner one");
            ++wentOn;
        };
        QTimer::singleShot(0, [&] { Press(first, first.Command1); });
        TheDesktop().Sleep(60000);
        ++wentOn;
    });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(wentOn, 0);
}

TEST_F(TheQtDesktop, LeavesAFileDialogThatWaitsWhenTheProgramEnds) {
    bool wentOn = false;
    const int status = desktop.Run([&] {
        first.Show();
        test::AtNext<FileDialogWindow> user([&](FileDialogWindow&) { desktop.Gate().Run([] { EndProgram(); }); });
        desktop.AskForExistingFile({.title = "Get", .filter = {}, .defaultExtension = {}, .fileName = {}});
        wentOn = true;
    });
    EXPECT_EQ(status, 0);
    EXPECT_FALSE(wentOn);
}

TEST_F(TheQtDesktop, ShowsARunTimeFailureInABoxAndEndsWithStatus70) {
    AtBox box(Qt::Key_Return);
    testing::internal::CaptureStderr();
    const int status = desktop.Run([&] {
        first.Show();
        first.Command1.Click = [] { Fail(FailureCode::kDivisionByZero); };
        QTimer::singleShot(0, [&] { Press(first, first.Command1); });
    });
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Run-time error '11': Division by zero\n  running: click Command1\n  version: halvern " +
                  RevisionNumbers() + "\n");
    EXPECT_EQ(box.text, "Run-time error '11':\n\nDivision by zero");
    EXPECT_EQ(box.title, "Halvern");
    EXPECT_EQ(box.icon, QMessageBox::Critical);
    EXPECT_EQ(status, 70);
}

TEST_F(TheQtDesktop, TakesNoEventBehindTheBoxOfAFailure) {
    AtBox box(Qt::Key_Return);
    box.before = [&](MessageBoxWindow&) {
        desktop.WindowOf(first)->resize(500, 500);
        desktop.WindowOf(first)->close();
        EXPECT_TRUE(desktop.WindowOf(first)->isVisible());
    };
    testing::internal::CaptureStderr();
    const int status = desktop.Run([&] {
        first.Show();
        throw std::logic_error("a slip of ours");
    });
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "internal error: a slip of ours\n  running: start\n  version: halvern " + RevisionNumbers() + "\n");
    EXPECT_EQ(box.text, "a slip of ours");
    EXPECT_EQ(first.resizes, 0);
    EXPECT_TRUE(first.IsLoaded());
    EXPECT_EQ(status, 70);
}

TEST_F(TheQtDesktop, LeavesTheOuterHandlerWhenAnInnerOneFails) {
    AtBox box(Qt::Key_Return);
    bool wentOn = false;
    testing::internal::CaptureStderr();
    const int status = desktop.Run([&] {
        first.Show();
        first.Command1.Click = [] { Fail(FailureCode::kSubscriptOutOfRange); };
        QTimer::singleShot(0, [&] { Press(first, first.Command1); });
        while (!wentOn)
            DoEvents();
        wentOn = true;
    });
    testing::internal::GetCapturedStderr();
    EXPECT_TRUE(box.text.startsWith("Run-time error '9':"));
    EXPECT_FALSE(wentOn);
    EXPECT_EQ(status, 70);
}

TEST_F(TheQtDesktop, SurvivesAFormThatAFailureHasTakenWithIt) {
    AtBox box(Qt::Key_Return);
    box.before = [](MessageBoxWindow& shown) {
        shown.parentWidget()->resize(300, 300);
        shown.parentWidget()->showMinimized();
        shown.parentWidget()->close();
    };
    testing::internal::CaptureStderr();
    const int status = desktop.Run([] {
        PlainForm local("Local");
        local.Show();
        DoEvents();
        Fail(FailureCode::kOverflow);
    });
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(status, 70);
}

TEST_F(TheQtDesktop, TakesAnotherCommandWhileAHandlerPassesThroughTheEvents) {
    bool clicked = false;
    desktop.Run([&] {
        first.Show();
        first.Command1.Click = [&] { clicked = true; };
        QTimer::singleShot(0, [&] { Press(first, first.Command1); });
        while (!clicked)
            DoEvents();
        EndProgram();
    });
    EXPECT_TRUE(clicked);
}

TEST_F(TheQtDesktop, PaintsWhileItSleeps) {
    bool painted = false;
    QElapsedTimer clock;
    desktop.Run([&] {
        first.Show();
        QTimer::singleShot(100, [&] {
            desktop.WindowOf(first)->WidgetOf(first.Command1)->update();
            painted = desktop.WindowOf(first)->windowHandle()->isExposed();
        });
        clock.start();
        desktop.Sleep(400);
        EXPECT_GE(clock.elapsed(), 400);
        EndProgram();
    });
    EXPECT_TRUE(painted);
}

TEST_F(TheQtDesktop, ShowsTheHourglassWhileItWorksButNotOverABox) {
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    MousePointer(kPointerHourglass);
    MousePointer(kPointerHourglass);
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    AtBox box(Qt::Key_Return);
    box.before = [](MessageBoxWindow&) { EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr); };
    MsgBox("text");
    EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
    MousePointer(kPointerNormal);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    MousePointer(kPointerNormal);
}

TEST_F(TheQtDesktop, MeasuresTheScreenInTwips) {
    const QSize screen = QGuiApplication::primaryScreen()->geometry().size();
    EXPECT_EQ(desktop.ScreenWidthTwips(), screen.width() * 15);
    EXPECT_EQ(desktop.ScreenHeightTwips(), screen.height() * 15);
}

TEST_F(TheQtDesktop, SelectsAPrinterByItsNumber) {
    EXPECT_EQ(desktop.PrinterNames(), (std::vector<std::string>{"Laser", "Ink"}));
    EXPECT_EQ(desktop.SystemDefaultPrinter(), "Ink");
    EXPECT_EQ(desktop.CurrentPrinterName(), "");
    desktop.SelectPrinter(1);
    EXPECT_EQ(desktop.CurrentPrinterName(), "Ink");
    EXPECT_THROW(desktop.SelectPrinter(2), std::out_of_range);
}

TEST(Pixels, AreFifteenTwips) {
    EXPECT_EQ(Pixels(3500), 233);
    EXPECT_EQ(Pixels(7), 0);
    EXPECT_EQ(Pixels(8), 1);
    EXPECT_EQ(Pixels(-8), -1);
    EXPECT_EQ(Twips(640), 9600);
}

}  // namespace
}  // namespace halvern
