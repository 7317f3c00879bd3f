#include "desktop/form_window.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <algorithm>

#include "desktop/list_view.h"
#include "desktop/picture_view.h"
#include "desktop/qt_desktop.h"
#include "ui/list_box.h"

namespace halvern {
namespace {

constexpr std::int32_t kSmallest = 3500;

struct SomeForm : Form {
    SomeForm() : Form("Some", "Some [*] <form>", {1500, 3000, 6000, 4500}) {
        Add("Label1", Label1, {150, 0, 3000, 300});
        Add("Command1", Command1, {150, 300, 900, 375});
        Add("List1", List1, {150, 750, 5000, 2000});
        Add("Image1", Image1, {3000, 2800, 3000, 1500});
        Menu.SetCaption("&Menu");
        bar.Append(1, Menu);
    }
    MenuBar* MenuOf() override { return withMenu ? &bar : nullptr; }
    void Form_Resize() override {
        ++resizes;
        if (!IsMinimised())
            SetPlace(
                {Where().left, Where().top, std::max(Where().width, kSmallest), std::max(Where().height, kSmallest)});
    }
    void Form_Unload(bool& Cancel) override { Cancel = keep; }

    Label Label1{"<b>dc/dt</b> & s*"};
    Button Command1{"&Done"};
    ListBox List1;
    Picture Image1{"boundary"};
    MenuItem Menu;
    MenuBar bar;
    bool withMenu = true, keep = false;
    int resizes = 0;
};

struct FormOnTheDesktop : ::testing::Test {
    QtDesktop desktop{[] { return PrinterList{}; }};
    SomeForm form;

    FormOnTheDesktop() { UseDesktop(&desktop); }
    ~FormOnTheDesktop() override {
        form.keep = false;
        form.Unload();
        UseDesktop(nullptr);
    }

    FormWindow& Shown() {
        form.Show();
        FormWindow& window = *desktop.WindowOf(form);
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
        return window;
    }
    /// Waits for a size; the display tells it in events of its own.
    static bool Becomes(const FormWindow& window, QSize size) {
        return QTest::qWaitFor([&] { return window.size() == size; });
    }
    template <class Widget>
    Widget& Shows(const Control& control) {
        return dynamic_cast<Widget&>(*desktop.WindowOf(form)->WidgetOf(control));
    }
};

TEST_F(FormOnTheDesktop, HasNoWindowBeforeItIsShown) {
    form.Load();
    EXPECT_EQ(desktop.WindowOf(form), nullptr);
    form.Hide();
    form.SetCaption("Some [*] <form>");
    EXPECT_EQ(desktop.WindowOf(form), nullptr);
    form.Show();
    ASSERT_NE(desktop.WindowOf(form), nullptr);
    EXPECT_TRUE(desktop.WindowOf(form)->isVisible());
}

TEST_F(FormOnTheDesktop, HasTheSizeOfTheModelWithoutTheFrame) {
    FormWindow& window = Shown();
    EXPECT_EQ(window.size(), QSize(400, 300));
    EXPECT_EQ(window.pos(), QPoint(100, 200));
}

TEST_F(FormOnTheDesktop, ShowsItsCaptionAsItIs) {
    EXPECT_EQ(Shown().windowTitle(), "Some [*][*] <form>");  // the toolkit's way of writing one of them
    form.SetCaption("Another");
    EXPECT_EQ(desktop.WindowOf(form)->windowTitle(), "Another");
}

TEST_F(FormOnTheDesktop, ShowsLabelsAsPlainText) {
    Shown();
    auto& label = Shows<QLabel>(form.Label1);
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    EXPECT_EQ(label.text(), "<b>dc/dt</b> & s*");
    form.Label1.SetCaption("<i>new</i>");
    EXPECT_EQ(label.text(), "<i>new</i>");
}

TEST_F(FormOnTheDesktop, PutsControlsAtTheirPlacesBelowTheMenu) {
    FormWindow& window = Shown();
    const int menuHeight = window.findChild<QMenuBar*>()->height();
    EXPECT_GT(menuHeight, 0);
    auto& list = Shows<ListView>(form.List1);
    EXPECT_EQ(list.mapTo(&window, QPoint(0, 0)), QPoint(10, 50 + menuHeight));
    EXPECT_EQ(list.size(), QSize(333, 133));
    form.List1.SetPlace({300, 1500, 3000, 1500});
    EXPECT_EQ(list.mapTo(&window, QPoint(0, 0)), QPoint(20, 100 + menuHeight));
    EXPECT_EQ(list.size(), QSize(200, 100));
}

TEST_F(FormOnTheDesktop, BeginsAtTheTopWithoutAMenu) {
    form.withMenu = false;
    FormWindow& window = Shown();
    EXPECT_EQ(window.Menu(), nullptr);
    EXPECT_EQ(Shows<QPushButton>(form.Command1).mapTo(&window, QPoint(0, 0)), QPoint(10, 20));
}

TEST_F(FormOnTheDesktop, MirrorsTheStatesOfControls) {
    form.Command1.Hide();
    Shown();
    auto& button = Shows<QPushButton>(form.Command1);
    EXPECT_FALSE(button.isVisible());
    form.Command1.Show();
    EXPECT_TRUE(button.isVisible());
    EXPECT_EQ(button.text(), "&Done");
    form.Command1.Disable();
    EXPECT_FALSE(button.isEnabled());
    form.Command1.Enable();
    EXPECT_TRUE(button.isEnabled());
}

TEST_F(FormOnTheDesktop, RunsTheHandlerOfAButton) {
    Shown();
    int clicks = 0;
    form.Command1.Click = [&] { ++clicks; };
    QTest::mouseClick(&Shows<QPushButton>(form.Command1), Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
    form.Command1.Click = nullptr;
    QTest::mouseClick(&Shows<QPushButton>(form.Command1), Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
}

TEST_F(FormOnTheDesktop, DrawsThePictureItBringsAlong) {
    Shown();
    const QImage picture = Shows<PictureView>(form.Image1).grab().toImage();
    int coloured = 0, white = 0;
    for (int x = 0; x < picture.width(); ++x) {
        const QColor pixel = picture.pixelColor(x, picture.height() / 2);
        coloured += pixel.hsvSaturation() > 100 ? 1 : 0;
        white += pixel == Qt::white ? 1 : 0;
    }
    EXPECT_GE(coloured, 3);  // the curves, half way up
    EXPECT_GE(white, 2);
}

TEST_F(FormOnTheDesktop, TellsTheFormOfAnotherSize) {
    FormWindow& window = Shown();
    window.resize(500, 350);
    EXPECT_EQ(form.resizes, 1);
    EXPECT_EQ(form.Where(), (Place{1500, 3000, 7500, 5250}));
}

TEST_F(FormOnTheDesktop, SnapsBackToTheSizeThatTheFormWants) {
    FormWindow& window = Shown();
    window.resize(150, 350);
    EXPECT_EQ(form.Where(), (Place{1500, 3000, 3500, 5250}));
    EXPECT_TRUE(Becomes(window, {233, 350}));
    EXPECT_EQ(window.pos(), QPoint(100, 200));
}

TEST_F(FormOnTheDesktop, SnapsBackInBothDirections) {
    FormWindow& window = Shown();
    window.resize(50, 50);
    EXPECT_TRUE(Becomes(window, {233, 233}));
    EXPECT_EQ(window.pos(), QPoint(100, 200));
}

TEST_F(FormOnTheDesktop, StaysWhereTheUserHasMovedIt) {
    FormWindow& window = Shown();
    window.move(300, 400);
    window.resize(150, 350);
    EXPECT_TRUE(Becomes(window, {233, 350}));
    EXPECT_EQ(window.pos(), QPoint(300, 400));
}

/// A window manager that lets no window have another size than this.
struct Insisting : QObject {
    QWidget* window;
    QSize wanted;
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Resize && window->size() != wanted)
            QMetaObject::invokeMethod(
                window, [this] { window->resize(wanted); }, Qt::QueuedConnection);
        return false;
    }
};

TEST_F(FormOnTheDesktop, GivesInToAWindowManagerThatInsists) {
    FormWindow& window = Shown();
    Insisting manager;
    manager.window = &window;
    manager.wanted = {150, 150};
    window.installEventFilter(&manager);
    window.resize(150, 150);
    for (int pass = 0; pass < 100; ++pass)
        QCoreApplication::processEvents();
    EXPECT_LT(form.resizes, 20);
    EXPECT_EQ(window.size(), QSize(150, 150));
    window.removeEventFilter(&manager);
    window.resize(160, 160);
    EXPECT_TRUE(Becomes(window, {233, 233}));
}

TEST_F(FormOnTheDesktop, LeavesTheSizesAloneWhenMinimised) {
    FormWindow& window = Shown();
    window.showMinimized();
    ASSERT_TRUE(QTest::qWaitFor([&] { return form.IsMinimised(); }));
    EXPECT_EQ(form.Where(), (Place{1500, 3000, 6000, 4500}));
    window.showNormal();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !form.IsMinimised(); }));
    EXPECT_EQ(form.Where(), (Place{1500, 3000, 6000, 4500}));
    EXPECT_EQ(window.size(), QSize(400, 300));
}

TEST_F(FormOnTheDesktop, ClosedByItsFrameIsUnloaded) {
    FormWindow& window = Shown();
    form.keep = true;
    window.close();
    EXPECT_TRUE(form.IsLoaded());
    EXPECT_TRUE(window.isVisible());
    form.keep = false;
    window.close();
    EXPECT_FALSE(form.IsLoaded());
    EXPECT_EQ(desktop.WindowOf(form), nullptr);
}

TEST_F(FormOnTheDesktop, CanBeLoadedAgain) {
    Shown();
    form.Unload();
    form.Label1.SetCaption("after the first life");
    Shown();
    EXPECT_EQ(Shows<QLabel>(form.Label1).text(), "after the first life");
}

TEST_F(FormOnTheDesktop, MayGoBeforeItsWindowDoes) {
    auto local = std::make_unique<SomeForm>();
    local->List1.AddLine("line");
    local->Show();
    const QPointer<FormWindow> window = desktop.WindowOf(*local);
    local->Unload();
    local.reset();
    ASSERT_FALSE(window.isNull());
    window->grab();
    window->resize(10, 10);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(window.isNull());
}

}  // namespace
}  // namespace halvern
