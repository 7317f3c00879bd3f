#include <gtest/gtest.h>

#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <cstdint>
#include <functional>
#include <stdexcept>

#include "analysis/dist_aves.h"
#include "conditioning/set_meniscus.h"
#include "conditioning/set_multi_men_f.h"
#include "desktop/application.h"
#include "desktop/message_box.h"
#include "desktop/qt_desktop.h"
#include "desktop/text_box_view.h"
#include "store/analysis_store.h"
#include "store/failure.h"

namespace halvern {
namespace {

/// The main window of a program that does nothing but show the dialog of the test.
struct MainWindow : Form {
    MainWindow() : Form("Main", "Main", {1500, 1500, 6000, 4500}) { Add("Command1", Command1, {150, 150, 900, 375}); }
    Button Command1{"&Dialog"};
};

/// Waits until the window has the keyboard. (To the toolkit's own test a dialog is active as soon as its parent is.)
bool HasTheKeyboard(QWidget* window) {
    return QTest::qWaitFor([&] { return QApplication::activeWindow() == window; });
}

struct DialogOnTheDesktop : ::testing::Test {
    QtDesktop desktop{[] { return PrinterList{}; }};
    MainWindow mainWindow;
    int boxes = 0;

    DialogOnTheDesktop() {
        UseDesktop(&desktop);
        for (int K = 1; K <= 2; ++K)
            Store().ScanMeniscus(K) = 6.0F;
        Store().NumFiles = 2;
    }
    ~DialogOnTheDesktop() override { UseDesktop(nullptr); }

    static void GiveTwoSpeeds() {
        auto& S = Store();
        S.NumSpeeds = 2;
        for (std::int16_t K = 1; K <= 2; ++K) {
            S.ScanSpeed(K) = K == 1 ? 40000 : 42000;
            S.SpeedFirstScan(K) = K;
        }
    }

    /// Shows the dialog from a handler of the main window. The user acts as soon as it has the keyboard, and has closed
    /// it in the end. Returns the program's exit status.
    int WithDialog(Form& dialog, const std::function<void()>& acts) {
        bool closed = false;
        const int status = desktop.Run([&] {
            mainWindow.Show();
            EXPECT_TRUE(HasTheKeyboard(desktop.WindowOf(mainWindow)));
            dialog.Load();
            QTimer::singleShot(0, [&] {
                EXPECT_TRUE(HasTheKeyboard(desktop.WindowOf(dialog)));
                acts();
                closed = !dialog.IsShown();
                if (!closed)
                    dialog.Unload();
            });
            dialog.ShowModal();
            mainWindow.Unload();
        });
        EXPECT_TRUE(closed || desktop.Gate().HasEnded());
        return status;
    }

    template <class Widget>
    Widget& Shows(Form& form, const Control& control) {
        return dynamic_cast<Widget&>(*desktop.WindowOf(form)->WidgetOf(control));
    }
    void Click(Form& form, const Control& control) {
        QTest::mouseClick(desktop.WindowOf(form)->WidgetOf(control), Qt::LeftButton);
    }
    /// A key goes where the keyboard is.
    static void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(Focus(), key, modifiers); }
    static void Type(const char* text) { QTest::keyClicks(Focus(), QString::fromLatin1(text)); }
    static QWidget* Focus() {
        if (QApplication::focusWidget() == nullptr)
            throw std::runtime_error("no window has the keyboard");
        return QApplication::focusWidget();
    }

    /// Carries out what opens a message box, and presses OK there. Returns its text, and awaits that the dialog has the
    /// keyboard again.
    QString TextOfBoxAt(Form& form, const std::function<void()>& act) {
        QString text;
        test::AtNext<MessageBoxWindow> user([&](MessageBoxWindow& box) {
            EXPECT_TRUE(HasTheKeyboard(&box));
            text = box.windowTitle() + QLatin1String(": ") + box.text();
            QTest::keyClick(&box, Qt::Key_Return);
        });
        act();
        boxes += user.Happened() ? 1 : 0;
        EXPECT_TRUE(HasTheKeyboard(desktop.WindowOf(form)));
        return text;
    }
};

constexpr const char* kRefusal = "Value for Radius: Please insert a number between 5.8 and 7.1";

TEST_F(DialogOnTheDesktop, TakesATypedMeniscus) {
    SetMeniscus dialog;
    WithDialog(dialog, [&] {
        auto& box = Shows<TextBoxView>(dialog, dialog.Text1);
        EXPECT_TRUE(box.hasFocus());
        EXPECT_EQ(box.text(), "6.00000");
        box.selectAll();
        Type("5.965");
        EXPECT_EQ(dialog.Text1.Text(), "5.965");
        EXPECT_TRUE(dialog.Text1.IsChanged());
        Click(dialog, dialog.IsOK);
    });
    EXPECT_EQ(Store().ScanMeniscus(1), 5.965F);
    EXPECT_EQ(Store().ScanMeniscus(2), 5.965F);
    EXPECT_EQ(desktop.WindowOf(dialog), nullptr);
}

TEST_F(DialogOnTheDesktop, ARefusedTextKeepsTheFocusAndSwallowsTheClick) {
    SetMeniscus dialog;
    WithDialog(dialog, [&] {
        auto& box = Shows<TextBoxView>(dialog, dialog.Text1);
        box.selectAll();
        Type("5.0");
        EXPECT_EQ(TextOfBoxAt(dialog, [&] { Click(dialog, dialog.IsOK); }), kRefusal);
        EXPECT_TRUE(dialog.IsShown());
        EXPECT_TRUE(box.hasFocus());
        // It is asked again, by every way out of the box.
        EXPECT_EQ(TextOfBoxAt(dialog, [&] { Click(dialog, dialog.NotThisTime); }), kRefusal);
        EXPECT_EQ(TextOfBoxAt(dialog, [] { Press(Qt::Key_Tab); }), kRefusal);
        EXPECT_EQ(TextOfBoxAt(dialog, [] { Press(Qt::Key_Backtab, Qt::ShiftModifier); }), kRefusal);
        EXPECT_EQ(TextOfBoxAt(dialog, [] { Press(Qt::Key_Return); }), kRefusal);
        EXPECT_EQ(TextOfBoxAt(dialog, [] { Press(Qt::Key_Escape); }), kRefusal);
        EXPECT_EQ(TextOfBoxAt(dialog, [] { Press(Qt::Key_O, Qt::AltModifier); }), kRefusal);
        EXPECT_TRUE(box.hasFocus());
        EXPECT_EQ(box.text(), "5.0");
        EXPECT_EQ(boxes, 7);
        EXPECT_EQ(Store().ScanMeniscus(1), 6.0F);
        box.selectAll();
        Type("5.8");
        Press(Qt::Key_Return);
    });
    EXPECT_EQ(Store().ScanMeniscus(2), 5.8F);
}

TEST_F(DialogOnTheDesktop, AsksNothingOfATextThatWasNotChanged) {
    Store().ScanMeniscus(1) = 5.0F;
    SetMeniscus dialog;
    WithDialog(dialog, [&] {
        Press(Qt::Key_Tab);
        EXPECT_TRUE(Shows<QPushButton>(dialog, dialog.IsOK).hasFocus());
        Click(dialog, dialog.Text1);
        EXPECT_TRUE(Shows<TextBoxView>(dialog, dialog.Text1).hasFocus());
        Press(Qt::Key_Return);
    });
    EXPECT_EQ(Store().ScanMeniscus(2), 5.0F);
}

TEST_F(DialogOnTheDesktop, AGoodTextLetsTheTabulatorThrough) {
    SetMeniscus dialog;
    WithDialog(dialog, [&] {
        Shows<TextBoxView>(dialog, dialog.Text1).selectAll();
        Type("7.1");
        Press(Qt::Key_Tab);
        EXPECT_TRUE(Shows<QPushButton>(dialog, dialog.IsOK).hasFocus());
        Press(Qt::Key_Tab);
        EXPECT_TRUE(Shows<QPushButton>(dialog, dialog.NotThisTime).hasFocus());
        // The button with the focus is the one that the key presses.
        Press(Qt::Key_Return);
    });
    EXPECT_EQ(Store().ScanMeniscus(1), 6.0F);
}

TEST_F(DialogOnTheDesktop, AnAccessKeyPressesItsButton) {
    SetMeniscus dialog;
    WithDialog(dialog, [&] {
        Shows<TextBoxView>(dialog, dialog.Text1).selectAll();
        Type("6.5");
        Press(Qt::Key_O, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog.IsShown(); }));
    });
    EXPECT_EQ(Store().ScanMeniscus(1), 6.5F);
}

TEST_F(DialogOnTheDesktop, EscapePressesTheCancelButton) {
    SetMeniscus dialog;
    WithDialog(dialog, [&] {
        Shows<TextBoxView>(dialog, dialog.Text1).selectAll();
        Type("6.5");
        Press(Qt::Key_Escape);
    });
    EXPECT_EQ(Store().ScanMeniscus(1), 6.0F);
    EXPECT_EQ(boxes, 0);
}

TEST_F(DialogOnTheDesktop, TheFrameClosesItWhateverTheTextIs) {
    SetMeniscus dialog;
    test::AtNext<MessageBoxWindow> noBox([](MessageBoxWindow& box) { box.accept(); });
    WithDialog(dialog, [&] {
        Shows<TextBoxView>(dialog, dialog.Text1).selectAll();
        Type("nonsense");
        desktop.WindowOf(dialog)->close();
    });
    EXPECT_FALSE(noBox.Happened());
    EXPECT_FALSE(dialog.IsLoaded());
    EXPECT_EQ(Store().ScanMeniscus(1), 6.0F);
}

TEST_F(DialogOnTheDesktop, TurningToAnotherWindowIsNoWayOutOfABox) {
    SetMeniscus dialog;
    int asked = 0, left = 0;
    WithDialog(dialog, [&] {
        dialog.Text1.Validate = [&](bool& Cancel) {
            ++asked;
            Cancel = true;
        };
        dialog.Text1.LostFocus = [&] { ++left; };
        Type("1");
        QWidget other;
        other.setWindowModality(Qt::ApplicationModal);
        other.show();
        EXPECT_TRUE(HasTheKeyboard(&other));
        other.close();
        EXPECT_TRUE(HasTheKeyboard(desktop.WindowOf(dialog)));
        EXPECT_TRUE(Shows<TextBoxView>(dialog, dialog.Text1).hasFocus());
        EXPECT_EQ(asked, 0);
        desktop.WindowOf(dialog)->close();
    });
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(left, 0);
}

TEST_F(DialogOnTheDesktop, SelectsTheTextAsAskedBeforeItIsShown) {
    SetMeniscus dialog;
    dialog.Load();
    dialog.Text1.SelectAll();
    WithDialog(dialog, [&] {
        EXPECT_EQ(Shows<TextBoxView>(dialog, dialog.Text1).selectedText(), "6.00000");
        Type("6.25");
        EXPECT_EQ(dialog.Text1.Text(), "6.25");
        Click(dialog, dialog.IsOK);
    });
    EXPECT_EQ(Store().ScanMeniscus(1), 6.25F);
}

TEST_F(DialogOnTheDesktop, GivesTheFocusAsAskedBeforeItIsShown) {
    SetMultiMenF dialog;
    GiveTwoSpeeds();
    dialog.Load();
    dialog.Radii[1].SetFocus();
    WithDialog(dialog, [&] {
        EXPECT_TRUE(Shows<TextBoxView>(dialog, dialog.Radii[1]).hasFocus());
        EXPECT_FALSE(dialog.Radii[1].WantsFocus());
        Press(Qt::Key_Escape);
    });
}

TEST_F(DialogOnTheDesktop, TellsTheBoxesOfTheFocus) {
    SetMultiMenF dialog;
    GiveTwoSpeeds();
    WithDialog(dialog, [&] {
        auto& first = Shows<TextBoxView>(dialog, dialog.Radii[0]);
        auto& second = Shows<TextBoxView>(dialog, dialog.Radii[1]);
        EXPECT_EQ(first.selectedText(), "6.00000");  // its handler has selected it
        Type("5.9");
        Click(dialog, dialog.Radii[1]);
        EXPECT_TRUE(second.hasFocus());
        EXPECT_EQ(dialog.Radii[0].Text(), "5.9");
        // A handler that takes the focus back at the loss of it keeps the user in the box, with its text anew.
        Type("9");
        EXPECT_EQ(TextOfBoxAt(dialog, [&] { Click(dialog, dialog.JustDoIt); }),
                  "Value for Radius: Please insert a number between 5.7 and 7.1");
        EXPECT_TRUE(dialog.IsShown());
        EXPECT_TRUE(second.hasFocus());
        EXPECT_EQ(second.text(), "6.00000");
        EXPECT_EQ(second.selectedText(), "6.00000");
        Type("6.1");
        Click(dialog, dialog.JustDoIt);
    });
    EXPECT_EQ(Store().ScanMeniscus(1), 5.9F);
    EXPECT_EQ(Store().ScanMeniscus(2), 6.1F);
}

TEST_F(DialogOnTheDesktop, HidesTheRowsThatTheDialogDoesNotUse) {
    SetMultiMenF dialog;
    GiveTwoSpeeds();
    WithDialog(dialog, [&] {
        EXPECT_TRUE(Shows<TextBoxView>(dialog, dialog.Radii[1]).isVisible());
        EXPECT_FALSE(Shows<TextBoxView>(dialog, dialog.Radii[2]).isVisible());
        EXPECT_EQ(Shows<QFrame>(dialog, dialog.Line1).frameShape(), QFrame::HLine);
        EXPECT_EQ(desktop.WindowOf(dialog)->height(), (240 + 2 * 420 + 960) / 15);
        Press(Qt::Key_Escape);
    });
}

TEST_F(DialogOnTheDesktop, KeepsTheOtherWindowsFromTheUser) {
    DistAves dialog;
    int clicks = 0;
    mainWindow.Command1.Click = [&] { ++clicks; };
    WithDialog(dialog, [&] {
        FormWindow& window = *desktop.WindowOf(dialog);
        EXPECT_EQ(window.windowModality(), Qt::ApplicationModal);
        EXPECT_EQ(window.windowHandle()->transientParent(), desktop.WindowOf(mainWindow)->windowHandle());
        EXPECT_EQ(QApplication::activeModalWidget(), &window);
        // A click on a point of the main window's, by way of the window system's own events.
        QTest::mouseClick(desktop.WindowOf(mainWindow)->windowHandle(), Qt::LeftButton, {}, QPoint(20, 20));
        EXPECT_EQ(clicks, 0);
        Press(Qt::Key_Return);
    });
    EXPECT_FALSE(dialog.IsLoaded());
}

TEST_F(DialogOnTheDesktop, HasOneSizeAndNoButtonsForOthers) {
    DistAves dialog;
    WithDialog(dialog, [&] {
        FormWindow& window = *desktop.WindowOf(dialog);
        EXPECT_EQ(window.size(), QSize(416, 360));
        EXPECT_EQ(window.minimumSize(), window.maximumSize());
        EXPECT_EQ(window.pos(), QPoint(160, 120));
        EXPECT_FALSE(window.windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
        EXPECT_FALSE(window.windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
        EXPECT_TRUE(window.windowFlags().testFlag(Qt::WindowCloseButtonHint));
        window.close();
    });
}

TEST_F(DialogOnTheDesktop, ShowsFramesBehindLabelsOfPlainText) {
    DistAves dialog;
    dialog.Label1.SetCaption("s = <b>4.1</b> & more");
    dialog.Frame1.SetCaption("A & B <i>c</i>");
    WithDialog(dialog, [&] {
        auto& frame = Shows<QGroupBox>(dialog, dialog.Frame1);
        auto& label = Shows<QLabel>(dialog, dialog.Label1);
        EXPECT_EQ(frame.title(), "A && B <i>c</i>");  // the toolkit's way of writing a plain &
        EXPECT_EQ(label.text(), "s = <b>4.1</b> & more");
        EXPECT_EQ(label.textFormat(), Qt::PlainText);
        EXPECT_EQ(Shows<QGroupBox>(dialog, dialog.Frame2).title(), "Averages for Non-Interacting Systems");
        EXPECT_TRUE(frame.geometry().contains(label.geometry()));
        EXPECT_EQ(frame.parentWidget()->childAt(label.geometry().center()), &label);
        EXPECT_TRUE(Shows<QPushButton>(dialog, dialog.Command1).hasFocus());
        Press(Qt::Key_Escape);
        EXPECT_TRUE(dialog.IsShown());  // it has no cancel button
        Press(Qt::Key_Return);
    });
}

TEST_F(DialogOnTheDesktop, IsLeftWhenTheProgramEndsBehindIt) {
    DistAves dialog;
    EXPECT_EQ(WithDialog(dialog, [&] { desktop.Gate().Run([] { EndProgram(); }); }), 0);
}

TEST_F(DialogOnTheDesktop, IsLeftWhenOneOfItsHandlersFails) {
    SetMeniscus dialog;
    test::AtNext<MessageBoxWindow> user([](MessageBoxWindow& box) { box.accept(); });
    testing::internal::CaptureStderr();
    const int status = WithDialog(dialog, [&] {
        dialog.IsOK.Click = [] { Fail(FailureCode::kOverflow); };
        Click(dialog, dialog.IsOK);
    });
    testing::internal::GetCapturedStderr();
    EXPECT_TRUE(user.Happened());
    EXPECT_EQ(status, 70);
}

TEST_F(DialogOnTheDesktop, AWindowThatIsShownAgainComesToTheFront) {
    MainWindow second;
    mainWindow.Show();
    EXPECT_TRUE(HasTheKeyboard(desktop.WindowOf(mainWindow)));
    second.Show();
    EXPECT_TRUE(HasTheKeyboard(desktop.WindowOf(second)));
    mainWindow.SetCaption("another caption");
    mainWindow.Show();
    EXPECT_TRUE(HasTheKeyboard(desktop.WindowOf(mainWindow)));
    EXPECT_FALSE(mainWindow.WantsFront());
    second.Unload();
    mainWindow.Unload();
}

}  // namespace
}  // namespace halvern
