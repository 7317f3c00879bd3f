#include "desktop/menu_view.h"

#include <QKeySequence>
#include <QMenu>

#include <algorithm>
#include <vector>

#include "render/shown_text.h"

namespace halvern {

namespace {

void TakeOut(QWidget& parent) {
    for (QAction* action : parent.actions())
        parent.removeAction(action);
}

QString CaptionOf(const MenuItem& item) {
    if (item.IsSeparator())
        return {};
    return item.ShowsName() ? ShownName(item.Caption()) : ShownLine(item.Caption());
}

}  // namespace

MenuView::MenuView(QMenuBar& widget, MenuBar& bar, EventGate& gate) : widget_(widget), bar_(&bar), gate_(gate) {
    // The bar is part of the window and of its height, also on desktops that would show it at the screen's edge.
    widget_.setNativeMenuBar(false);
    Build();
    bar.Observe(this);
}

void MenuView::LetGo() {
    bar_->Observe(nullptr);
    for (const MenuEntry& entry : bar_->Entries())
        entry.item->Observe(nullptr);
    bar_ = nullptr;
}

QAction* MenuView::ActionOf(const MenuItem& item) const {
    const auto found = actions_.find(&item);
    return found == actions_.end() ? nullptr : found->second;
}

void MenuView::ControlChanged(Control& control) { Mirror(static_cast<MenuItem&>(control)); }

void MenuView::MenuBarChanged() { Build(); }

/// Puts every item at its place in the tree. Items that have been shown before keep their actions.
void MenuView::Build() {
    TakeOut(widget_);
    std::vector<QWidget*> parents{&widget_};
    for (std::size_t i = 0; i < bar_->Entries().size(); ++i) {
        const auto [level, item] = bar_->Entries()[i];
        parents.resize(static_cast<std::size_t>(level));
        QAction* action = Place(*parents.back(), *item);
        if (!bar_->OpensSubmenu(i))
            continue;
        QMenu& submenu = SubmenuOf(*action);
        TakeOut(submenu);
        parents.push_back(&submenu);
    }
}

QAction* MenuView::Place(QWidget& parent, MenuItem& item) {
    QAction*& action = actions_[&item];
    if (action == nullptr) {
        action = new QAction(&widget_);
        // Not for the bar: what an action is connected to in it is cut when the action is taken out.
        QObject::connect(action, &QAction::triggered, action, [this, &item] { Choose(item); });
        item.Observe(this);
        Mirror(item);
    }
    parent.addAction(action);
    return action;
}

QMenu& MenuView::SubmenuOf(QAction& action) {
    auto* submenu = action.menu<QMenu*>();
    if (submenu == nullptr) {
        submenu = new QMenu(&widget_);
        // Separators stand where the tree has them, also in front and next to hidden items.
        submenu->setSeparatorsCollapsible(false);
        action.setMenu(submenu);
    }
    return *submenu;
}

void MenuView::Mirror(const MenuItem& item) {
    QAction& action = *ActionOf(item);
    action.setSeparator(item.IsSeparator());
    action.setText(CaptionOf(item));
    action.setEnabled(item.IsEnabled());
    action.setVisible(item.IsShown());
    // Only a ticked item is one that can be: the toolkit would tick the others by itself when they are chosen.
    action.setCheckable(item.IsTicked());
    action.setChecked(item.IsTicked());
    action.setShortcut(QKeySequence(ShownLine(item.Shortcut()), QKeySequence::PortableText));
}

void MenuView::Choose(const MenuItem& item) {
    if (bar_ == nullptr || gate_.HasEnded())
        return;
    Mirror(item);
    gate_.Run(
        [&] {
            const auto& entries = bar_->Entries();
            const auto entry =
                std::find_if(entries.begin(), entries.end(), [&](const MenuEntry& e) { return e.item == &item; });
            const auto place = static_cast<std::size_t>(entry - entries.begin());
            // A shortcut reaches its item past the menus over it.
            if (!bar_->CanBeReached(place) || bar_->OpensSubmenu(place) || item.IsSeparator())
                return;
            if (item.Click)
                item.Click();
        },
        "click " + item.Name());
}

}  // namespace halvern
