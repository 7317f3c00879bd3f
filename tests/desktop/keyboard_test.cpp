#include <gtest/gtest.h>

#include <QAccessible>
#include <QMenu>
#include <QPushButton>
#include <QTest>

#include <string>

#include "desktop/application.h"
#include "desktop/qt_desktop.h"
#include "plot/plot_request.h"
#include "plot/plot_window.h"
#include "plot/show_plot.h"
#include "store/analysis_store.h"
#include "ui/text_box.h"

namespace halvern {
namespace {

/// The plot window with a line on it, for a user who has no mouse.
struct PlotByKeyboard : ::testing::Test {
    QtDesktop desktop{[] { return PrinterList{{"Laser", "Ink"}, "Ink"}; }};
    PlotWindow& plot = PlotitForm();

    PlotByKeyboard() {
        UseDesktop(&desktop);
        Store().ShowXYDefault = true;
        BeginPlainRequest();
        SetRequestTexts({"first line", "second line", "S (Svedbergs)", "<dc/dt>"});
        RequestFiller request;
        request.Line(1, 2, kRed, [](std::int32_t I) {
            return PlotPoint{static_cast<float>(I), static_cast<float>(I)};
        });
        request.Finish();
        ShowPlot(false);
        EXPECT_TRUE(QTest::qWaitForWindowActive(desktop.WindowOf(plot)));
    }
    ~PlotByKeyboard() override {
        plot.Unload();
        UseDesktop(nullptr);
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QWidget* popup = QApplication::activePopupWidget();
        QWidget* focus = QApplication::focusWidget();
        QWidget* window = focus != nullptr ? focus : desktop.WindowOf(plot);
        QTest::keyClick(popup != nullptr ? popup : window, key, modifiers);
    }
    bool HasFocus(const Control& control) { return desktop.WindowOf(plot)->WidgetOf(control)->hasFocus(); }
};

TEST_F(PlotByKeyboard, ReachesTheItemsWithoutASubmenuByTheirAccessKeys) {
    struct Row {
        Qt::Key key;
        MenuItem* item;
    };
    for (const auto& [key, item] :
         {Row{Qt::Key_Z, &plot.Menu.Zoomout}, {Qt::Key_H, &plot.Menu.ShowEm}, {Qt::Key_A, &plot.Menu.SavePlotNow}}) {
        int chosen = 0;
        item->Click = [&] { ++chosen; };
        item->Disable();
        Press(key, Qt::AltModifier);
        EXPECT_EQ(chosen, 0) << item->Name();
        item->Enable();
        Press(key, Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor([&] { return chosen == 1; })) << item->Name();
        item->Click = nullptr;
    }
}

TEST_F(PlotByKeyboard, OpensTheSubmenusByTheirAccessKeys) {
    struct Row {
        Qt::Key key;
        const char* first;
    };
    for (const auto& [key, first] : {Row{Qt::Key_P, "Laser"}, {Qt::Key_T, "Omit Lines"}, {Qt::Key_C, "To Clipboard"}}) {
        Press(key, Qt::AltModifier);
        ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; })) << first;
        const auto& menu = dynamic_cast<QMenu&>(*QApplication::activePopupWidget());
        EXPECT_EQ(menu.actions().constFirst()->text(), first);
        EXPECT_EQ(menu.activeAction(), menu.actions().constFirst());
        Press(Qt::Key_Escape);
        ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() == nullptr; }));
        Press(Qt::Key_Escape);
    }
    Press(Qt::Key_T, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; }));
    Press(Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([&] { return plot.Menu.Nolines.IsTicked(); }));
}

TEST_F(PlotByKeyboard, ReachesTheButtonsByTheTabulator) {
    std::string pressed;
    plot.Command1.Click = [&] { pressed += "Done "; };
    plot.TestIt.Click = [&] { pressed += "Test "; };
    plot.Command1.Show();
    plot.TestIt.Show();
    EXPECT_FALSE(HasFocus(plot.Command1) || HasFocus(plot.TestIt));
    Press(Qt::Key_Tab);
    EXPECT_TRUE(HasFocus(plot.Command1));
    Press(Qt::Key_Tab);
    EXPECT_TRUE(HasFocus(plot.TestIt));
    Press(Qt::Key_Space);
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(HasFocus(plot.Command1));
    Press(Qt::Key_Space);
    EXPECT_EQ(pressed, "Test Done ");
    // The button that a pick leaves behind is no goal of the keyboard any more.
    plot.Command1.Hide();
    EXPECT_FALSE(HasFocus(plot.Command1));
    EXPECT_TRUE(HasFocus(plot.TestIt));
}

TEST_F(PlotByKeyboard, TellsItsButtonsToAssistivePrograms) {
    plot.Command1.Show();
    for (const Button* button : {&plot.Command1, &plot.TestIt}) {
        const auto* told = QAccessible::queryAccessibleInterface(desktop.WindowOf(plot)->WidgetOf(*button));
        ASSERT_NE(told, nullptr);
        EXPECT_EQ(told->role(), QAccessible::PushButton);
        EXPECT_EQ(told->text(QAccessible::Name).toStdString(), button->Caption());
        EXPECT_EQ(told->state().invisible, !button->IsShown() ? 1U : 0U);
        EXPECT_EQ(told->state().focusable, 1U);
    }
}

/// A form whose parts have names of their own for those who can't see it.
struct SpokenForm : Form {
    SpokenForm() : Form("Told", "A caption", {1500, 1500, 4500, 3000}) {
        Add("Strip", Strip, {0, 2600, 4500, 400});
        Add("ReadOut", ReadOut, {0, 0, 3000, 400});
        Add("Plain", Plain, {0, 0, 1500, 400});
        Add("Radius", Radius, {0, 500, 1500, 400});
        Strip.Hold(ReadOut);
        ReadOut.SetSpokenName("X,Y read-out");
        Radius.SetSpokenName("Radius in cm");
    }
    Panel Strip;
    Label ReadOut, Plain{"in plain view"};
    TextBox Radius{"6.0"};
};

struct SpokenOnTheDesktop : ::testing::Test {
    QtDesktop desktop{[] { return PrinterList{}; }};
    SpokenForm form;

    SpokenOnTheDesktop() { UseDesktop(&desktop); }
    ~SpokenOnTheDesktop() override {
        form.Unload();
        UseDesktop(nullptr);
    }
    static std::string Told(QWidget* widget, QAccessible::Text what) {
        const auto* told = QAccessible::queryAccessibleInterface(widget);
        return told == nullptr ? "nothing" : told->text(what).toStdString();
    }
    std::string Told(const Control& control, QAccessible::Text what) {
        return Told(desktop.WindowOf(form)->WidgetOf(control), what);
    }
    QWidget* Surface() {
        form.Load();
        desktop.SurfaceOf(form);
        for (auto* child : desktop.WindowOf(form)->findChildren<QWidget*>())
            if (dynamic_cast<SurfaceView*>(child) != nullptr)
                return child;
        return nullptr;
    }
};

TEST_F(SpokenOnTheDesktop, GivesControlsTheirSpokenNames) {
    form.Show();
    EXPECT_EQ(Told(form.ReadOut, QAccessible::Name), "X,Y read-out");
    form.ReadOut.SetCaption(" X= 1.0000E+00");
    EXPECT_EQ(Told(form.ReadOut, QAccessible::Name), "X,Y read-out");
    EXPECT_EQ(Told(form.ReadOut, QAccessible::Description), " X= 1.0000E+00");
    EXPECT_EQ(Told(form.Plain, QAccessible::Name), "in plain view");
    EXPECT_EQ(Told(form.Radius, QAccessible::Name), "Radius in cm");
    EXPECT_EQ(Told(form.Radius, QAccessible::Value), "6.0");
}

TEST_F(SpokenOnTheDesktop, CallsTheSurfaceByTheFormsSpokenName) {
    form.SetSpokenName("Plot");
    EXPECT_EQ(Told(Surface(), QAccessible::Name), "Plot");
}

TEST_F(SpokenOnTheDesktop, CallsTheSurfaceByTheFormsCaptionOtherwise) {
    EXPECT_EQ(Told(Surface(), QAccessible::Name), "A caption");
}

}  // namespace
}  // namespace halvern
