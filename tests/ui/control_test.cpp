#include "ui/control.h"

#include <gtest/gtest.h>

namespace halvern {
namespace {

struct Counter : ControlObserver {
    int changes = 0;
    void ControlChanged(Control&) override { ++changes; }
};

TEST(Control, StartsEnabledAndShown) {
    const Button button("&OK");
    EXPECT_TRUE(button.IsEnabled());
    EXPECT_TRUE(button.IsShown());
    EXPECT_EQ(button.Caption(), "&OK");
}

TEST(Control, TellsItsObserverOfEachChangeAndOfNothingElse) {
    Button button("&OK");
    Counter counter;
    button.Observe(&counter);
    button.Disable();
    button.Disable();
    button.Hide();
    button.SetCaption("Done");
    button.SetCaption("Done");
    button.SetPlace({0, 0, 852, 375});
    EXPECT_EQ(counter.changes, 4);

    button.Observe(nullptr);
    button.Enable();
    EXPECT_EQ(counter.changes, 4);
}

TEST(Control, KeepsItsStateApartFromItsBeingShown) {
    Button button;
    button.Disable();
    button.Hide();
    button.Show();
    EXPECT_FALSE(button.IsEnabled());
}

}  // namespace
}  // namespace halvern
