#include "ui/form.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "support/test_desktop.h"

namespace halvern {
namespace {

struct Window : Form {
    Window() : Form("Window", "A Window", {10, 20, 3000, 2000}) { Add("Command1", Command1, {0, 0, 852, 375}); }
    Button Command1{"Done"};
    bool refuse = false;
    int loads = 0, resizes = 0;
    void Form_Load() override { ++loads; }
    void Form_Resize() override { ++resizes; }
    void Form_Unload(bool& Cancel) override { Cancel = refuse; }
};

struct FormTest : ::testing::Test {
    test::TestDesktop desktop;
    Window window;
};

TEST_F(FormTest, IsLoadedOnceAndByItsFirstShowingAtTheLatest) {
    EXPECT_FALSE(window.IsLoaded());
    EXPECT_FALSE(window.IsShown());
    window.Show();
    window.Load();
    EXPECT_TRUE(window.IsLoaded());
    EXPECT_TRUE(window.IsShown());
    EXPECT_EQ(window.loads, 1);
    EXPECT_EQ(desktop.loaded, std::vector<Form*>{&window});
}

TEST_F(FormTest, StaysWhenItsUnloadIsCancelled) {
    window.Show();
    window.refuse = true;
    window.Unload();
    EXPECT_TRUE(window.IsLoaded());
    EXPECT_TRUE(window.IsShown());
    window.refuse = false;
    window.Unload();
    EXPECT_FALSE(window.IsLoaded());
    EXPECT_FALSE(window.IsShown());
    EXPECT_TRUE(desktop.loaded.empty());
}

TEST_F(FormTest, TakesASizeOverUnlessItIsMinimised) {
    window.Resized(5000, 4000, false);
    EXPECT_EQ(window.Where(), (Place{10, 20, 5000, 4000}));
    window.Resized(100, 50, true);
    EXPECT_TRUE(window.IsMinimised());
    EXPECT_EQ(window.Where(), (Place{10, 20, 5000, 4000}));
    EXPECT_EQ(window.resizes, 2);
}

TEST_F(FormTest, NamesItsControlsInTheOrderOfTheDesign) {
    ASSERT_EQ(window.Controls().size(), 1U);
    EXPECT_EQ(window.Controls()[0]->Name(), "Command1");
    EXPECT_EQ(window.Controls()[0]->Where(), (Place{0, 0, 852, 375}));
}

TEST_F(FormTest, ThatIsNotLoadedCannotBeUnloaded) {
    window.refuse = true;
    window.Unload();
    EXPECT_FALSE(window.IsLoaded());
    EXPECT_TRUE(desktop.story.empty());
}

TEST(TheDesktop, HasToBeThere) { EXPECT_THROW(TheDesktop(), std::logic_error); }

}  // namespace
}  // namespace halvern
