#pragma once

#include <QAction>
#include <QMenuBar>

#include <map>

#include "desktop/event_gate.h"
#include "ui/menu.h"

namespace halvern {

/// Shows a tree of menu items in a menu bar: captions with their access keys, states, ticks, shortcuts. Choosing an
/// item runs its handler.
class MenuView final : public ControlObserver, public MenuBarObserver {
  public:
    /// Given     widget   the empty bar; it has to live as long as the view
    MenuView(QMenuBar& widget, MenuBar& bar, EventGate& gate);
    MenuView(const MenuView&) = delete;
    MenuView& operator=(const MenuView&) = delete;

    void ControlChanged(Control& control) override;
    void MenuBarChanged() override;

    /// What shows an item; null for one that is not in the bar.
    QAction* ActionOf(const MenuItem& item) const;

    /// From now on the bar has nothing to do with the model, which may go first.
    void LetGo();

  private:
    void Build();
    QAction* Place(QWidget& parent, MenuItem& item);
    QMenu& SubmenuOf(QAction& action);
    void Mirror(const MenuItem& item);
    void Choose(const MenuItem& item);

    QMenuBar& widget_;
    MenuBar* bar_;
    EventGate& gate_;
    std::map<const Control*, QAction*> actions_;
};

}  // namespace halvern
