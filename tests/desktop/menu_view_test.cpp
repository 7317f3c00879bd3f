#include "desktop/menu_view.h"

#include <gtest/gtest.h>

#include <QMenu>
#include <QTest>

#include "desktop/application.h"
#include "desktop/qt_desktop.h"

namespace halvern {
namespace {

struct Items {
    MenuItem File, Load, spacer, Quit;
    MenuItem Data, Deep, Inner, Smooth;
    MenuItem Print, Array0, Line, Copy;
    PrinterItems Printers;
};
constexpr MenuRow<Items> kItems[] = {
    {1, &Items::File, "File", "&File", kOn, kShown},
    {2, &Items::Load, "Load", "&Get Files", kOn, kShown},
    {2, &Items::spacer, "spacer", "-", kOn, kShown},
    {2, &Items::Quit, "Quit", "&Exit", kOff, kShown},
    {1, &Items::Data, "Data", "<&dc/dt>", kOn, kShown},
    {2, &Items::Deep, "Deep", "Deeper", kOn, kShown},
    {3, &Items::Inner, "Inner", "Inner", kOn, kHidden},
    {2, &Items::Smooth, "Smooth", "Smooth", kOn, kShown},
    {1, &Items::Print, "Print", "P&rint", kOn, kShown},
    {2, &Items::Array0, "Array(0)", "-", kOn, kHidden},
    {2, &Items::Line, "Line", "-", kOn, kShown},
    {2, &Items::Copy, "Copy", "&Copy Selected", kOn, kShown, "Ctrl+C"},
};

struct MenuInAWindow : ::testing::Test {
    QtDesktop desktop{[] { return PrinterList{}; }};
    Items items;
    MenuBar bar;
    QWidget window;
    QMenuBar widget{&window};
    std::unique_ptr<MenuView> view;

    MenuInAWindow() {
        UseDesktop(&desktop);
        BuildMenu(bar, items, kItems);
        view = std::make_unique<MenuView>(widget, bar, desktop.Gate());
        window.resize(400, 100);
        widget.resize(400, 24);
        window.show();
    }
    ~MenuInAWindow() override {
        view->LetGo();
        UseDesktop(nullptr);
    }

    QAction& Action(const MenuItem& item) { return *view->ActionOf(item); }
    std::vector<const QAction*> In(const MenuItem& parent) {
        const auto actions = Action(parent).menu<QMenu*>()->actions();
        return {actions.begin(), actions.end()};
    }
};

TEST_F(MenuInAWindow, HasTheTreeOfTheModel) {
    ASSERT_EQ(widget.actions().size(), 3);
    EXPECT_EQ(widget.actions()[0]->text(), "&File");
    EXPECT_EQ(widget.actions()[1]->text(), "<&dc/dt>");
    EXPECT_EQ(In(items.File),
              (std::vector<const QAction*>{&Action(items.Load), &Action(items.spacer), &Action(items.Quit)}));
    EXPECT_EQ(In(items.Data), (std::vector<const QAction*>{&Action(items.Deep), &Action(items.Smooth)}));
    EXPECT_EQ(In(items.Deep), (std::vector<const QAction*>{&Action(items.Inner)}));
    EXPECT_EQ(Action(items.Smooth).menu<QMenu*>(), nullptr);
}

TEST_F(MenuInAWindow, ShowsStatesSeparatorsAndShortcuts) {
    EXPECT_TRUE(Action(items.spacer).isSeparator());
    EXPECT_FALSE(Action(items.Load).isSeparator());
    EXPECT_TRUE(Action(items.Load).isEnabled());
    EXPECT_FALSE(Action(items.Quit).isEnabled());
    EXPECT_TRUE(Action(items.Load).isVisible());
    EXPECT_FALSE(Action(items.Inner).isVisible());
    EXPECT_FALSE(Action(items.Array0).isVisible());
    EXPECT_TRUE(Action(items.Line).isVisible());
    EXPECT_EQ(Action(items.Copy).shortcut(), QKeySequence(Qt::CTRL | Qt::Key_C));
}

TEST_F(MenuInAWindow, FollowsTheModel) {
    items.Quit.Enable();
    items.Load.Disable();
    items.Smooth.Hide();
    items.Inner.Show();
    items.Load.SetCaption("Restart With Another Set");
    items.Data.Disable();
    EXPECT_TRUE(Action(items.Quit).isEnabled());
    EXPECT_FALSE(Action(items.Load).isEnabled());
    EXPECT_FALSE(Action(items.Smooth).isVisible());
    EXPECT_TRUE(Action(items.Inner).isVisible());
    EXPECT_EQ(Action(items.Load).text(), "Restart With Another Set");
    EXPECT_FALSE(widget.actions()[1]->isEnabled());
}

TEST_F(MenuInAWindow, ShowsTicks) {
    EXPECT_FALSE(Action(items.Smooth).isChecked());
    items.Smooth.Tick();
    EXPECT_TRUE(Action(items.Smooth).isCheckable());
    EXPECT_TRUE(Action(items.Smooth).isChecked());
    items.Smooth.Untick();
    EXPECT_FALSE(Action(items.Smooth).isChecked());
}

TEST_F(MenuInAWindow, LeavesTheTickToTheHandler) {
    items.Smooth.Tick();
    bool tickedInHandler = false;
    items.Smooth.Click = [&] { tickedInHandler = Action(items.Smooth).isChecked(); };
    Action(items.Smooth).trigger();
    EXPECT_TRUE(tickedInHandler);
    EXPECT_TRUE(Action(items.Smooth).isChecked());
    items.Smooth.Click = [&] { items.Smooth.Untick(); };
    Action(items.Smooth).trigger();
    EXPECT_FALSE(Action(items.Smooth).isChecked());
}

TEST_F(MenuInAWindow, TakesInItemsThatComeLater) {
    const QAction* const copy = &Action(items.Copy);
    MenuItem& first = items.Printers.Load();
    first.ShowName("Laser&Ink <2>");
    bar.InsertAfter(items.Array0, 2, first);
    MenuItem& second = items.Printers.Load();
    second.ShowName("-");
    second.Tick();
    bar.InsertAfter(first, 2, second);
    EXPECT_EQ(In(items.Print), (std::vector<const QAction*>{&Action(items.Array0), &Action(first), &Action(second),
                                                            &Action(items.Line), copy}));
    EXPECT_EQ(Action(first).text(), "Laser&&Ink <2>") << "to the toolkit that is one & and no access key";
    EXPECT_FALSE(Action(second).isSeparator());
    EXPECT_EQ(Action(second).text(), "-");
    EXPECT_TRUE(Action(second).isChecked());
    EXPECT_EQ(widget.actions().size(), 3);
    first.Tick();
    EXPECT_TRUE(Action(first).isChecked());
}

TEST_F(MenuInAWindow, ShowsASeparatorAlsoAtTheHeadOfAMenu) {
    EXPECT_FALSE(Action(items.Print).menu<QMenu*>()->separatorsCollapsible());
}

TEST_F(MenuInAWindow, RunsTheHandlerOfTheItemChosen) {
    int clicks = 0;
    items.Load.Click = [&] { ++clicks; };
    QMenu& file = *Action(items.File).menu<QMenu*>();
    file.popup(window.pos());
    QTest::keyClick(&file, Qt::Key_G);
    EXPECT_EQ(clicks, 1);
}

TEST_F(MenuInAWindow, StillRunsTheHandlersWhenItemsHaveComeLater) {
    MenuItem& alone = items.Printers.Load();
    int chosen = 0;
    alone.Click = [&] { ++chosen; };
    bar.InsertAfter(items.Copy, 1, alone);
    bar.InsertAfter(items.Array0, 2, items.Printers.Load());
    Action(alone).trigger();
    EXPECT_EQ(chosen, 1);
}

TEST_F(MenuInAWindow, OpensNoMenuThatIsDisabled) {
    items.File.Disable();
    QTest::mouseClick(&widget, Qt::LeftButton, {}, widget.actionGeometry(&Action(items.File)).center());
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    QTest::mouseClick(&widget, Qt::LeftButton, {}, widget.actionGeometry(&Action(items.Print)).center());
    EXPECT_EQ(QApplication::activePopupWidget(), Action(items.Print).menu<QMenu*>());
    QApplication::activePopupWidget()->close();
}

TEST_F(MenuInAWindow, LetsNoShortcutPastAMenuThatIsDisabledOrHidden) {
    int clicks = 0;
    items.Copy.Click = [&] { ++clicks; };
    Action(items.Copy).trigger();
    EXPECT_EQ(clicks, 1);
    items.Print.Disable();
    Action(items.Copy).trigger();
    items.Print.Enable();
    items.Print.Hide();
    Action(items.Copy).trigger();
    EXPECT_EQ(clicks, 1);
}

TEST_F(MenuInAWindow, HasNothingToDoWithAModelThatWasLetGo) {
    view->LetGo();
    items.Load.SetCaption("changed");
    EXPECT_EQ(Action(items.Load).text(), "&Get Files");
    bool clicked = false;
    items.Load.Click = [&] { clicked = true; };
    Action(items.Load).trigger();
    EXPECT_FALSE(clicked);
    view = std::make_unique<MenuView>(widget, bar, desktop.Gate());
}

}  // namespace
}  // namespace halvern
