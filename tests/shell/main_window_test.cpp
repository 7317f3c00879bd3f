#include "shell/main_window.h"

#include <gtest/gtest.h>

#include "plot/plot_window.h"
#include "shell/splash.h"
#include "shell/start.h"
#include "store/analysis_store.h"
#include "store/menus.h"
#include "store/report.h"
#include "support/data_files.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

struct MainWindowTest : ::testing::Test {
    test::DataFolder folder;
    test::TestDesktop desktop;
    MainWindowTest() { Main(); }
};

TEST_F(MainWindowTest, IsCalledAsTheProgram) {
    EXPECT_EQ(MainForm().Caption(), "Halvern V0.99");
    EXPECT_EQ(Splash().Caption(), "HalvernV0.99");
}

TEST_F(MainWindowTest, GivesTheReportItsSizeLess1000And500Twips) {
    MainForm().Resized(9000, 6000, false);
    EXPECT_EQ(OutFileBox().Where().width, 8500);
    EXPECT_EQ(OutFileBox().Where().height, 5000);
}

TEST_F(MainWindowTest, LetsTheReportScrollOverTwiceItsWidthAtStart) {
    const std::int32_t extent = OutFileBox().HorizontalExtent();
    // 9600 - 500 twips are 606.67 pixels, 607 when rounded.
    EXPECT_EQ(extent, 2 * 607);
    MainForm().Resized(20000, 6000, false);
    EXPECT_EQ(OutFileBox().HorizontalExtent(), extent);
}

TEST_F(MainWindowTest, SnapsBackTo3500TwipsInEitherDirection) {
    MainForm().Resized(3499, 8000, false);
    EXPECT_EQ(MainForm().Where().width, 3500);
    EXPECT_EQ(MainForm().Where().height, 8000);
    MainForm().Resized(8000, 100, false);
    EXPECT_EQ(MainForm().Where().width, 8000);
    EXPECT_EQ(MainForm().Where().height, 3500);
    EXPECT_EQ(OutFileBox().Where().height, 2500);
    MainForm().Resized(3500, 3500, false);
    EXPECT_EQ(MainForm().Where().width, 3500);
    EXPECT_EQ(MainForm().Where().height, 3500);
}

TEST_F(MainWindowTest, KeepsItsSizesWhileMinimised) {
    MainForm().Resized(9000, 6000, false);
    MainForm().Resized(150, 30, true);
    EXPECT_EQ(MainForm().Where().width, 9000);
    EXPECT_EQ(OutFileBox().Where().height, 5000);
}

TEST_F(MainWindowTest, AsksBeforeItGoesAndStaysOnNo) {
    desktop.answers = {Answer::kNo};
    Menus().AllDone.Click();
    ASSERT_EQ(desktop.messages.size(), 1U);
    EXPECT_EQ(desktop.messages[0].text, "Exit Program?");
    EXPECT_EQ(desktop.messages[0].style, 36);
    EXPECT_EQ(desktop.messages[0].title, "Halvern");
    EXPECT_TRUE(MainForm().IsShown());
    EXPECT_TRUE(PlotitForm().IsLoaded());
    EXPECT_TRUE(Store().PlotitLoaded);
}

TEST_F(MainWindowTest, KeepsTheDataOnNo) {
    desktop.choices = {test::WriteDataSet(folder, 5)};
    Menus().GetListNow.Click();
    const auto report = test::ReportLines();
    desktop.answers = {Answer::kNo};
    Menus().AllDone.Click();
    const auto& S = Store();
    EXPECT_EQ(S.NumSpeeds, 1);
    EXPECT_EQ(S.NumFiles, 5);
    EXPECT_EQ(S.ScanPoints(5), 12);
    EXPECT_EQ(S.ScanData(12, 2, 5), 0.012F);
    EXPECT_TRUE(Menus().dummy_men.IsEnabled());
    EXPECT_EQ(test::ReportLines(), report);
}

TEST_F(MainWindowTest, KeepsAnOpenPickOnNo) {
    desktop.choices = {test::WriteDataSet(folder, 5)};
    Menus().GetListNow.Click();
    Menus().Get_MenFromScan.Click();
    desktop.answers = {Answer::kNo};
    MainForm().Unload();
    const auto& S = Store();
    EXPECT_TRUE(PlotitForm().IsShown());
    EXPECT_TRUE(PlotitForm().Command1.IsShown());
    EXPECT_TRUE(S.PickMeniscus && S.PlotReady);
    EXPECT_EQ(S.PlotCount, 24);
    PlotitForm().Form_MouseUp(kLeftButton, kCtrl, 50.0F, 50.0F);
    PlotitForm().Command1.Click();
    EXPECT_EQ(S.ScanMeniscus(5), S.Meniscus);
    EXPECT_NE(S.Meniscus, kDefaultMeniscus);
}

TEST_F(MainWindowTest, UnloadsThePlotWindowAndGoesOnYes) {
    desktop.answers = {Answer::kYes};
    Menus().AllDone.Click();
    EXPECT_TRUE(desktop.loaded.empty());
    EXPECT_EQ(desktop.story[desktop.story.size() - 4], "unload cmpltfrm");
    EXPECT_EQ(desktop.story[desktop.story.size() - 3], "unload Plotit");
    EXPECT_EQ(desktop.story.back(), "unload Keld");
    EXPECT_FALSE(Store().PlotitLoaded);
}

TEST_F(MainWindowTest, HasASplashAtAQuarterOfTheFreeSpace) {
    desktop.screenWidthPixels = 1000;
    desktop.screenHeightPixels = 900;
    Splash splash;
    splash.Load();
    const Place& place = splash.Where();
    EXPECT_EQ(place.left, (15000 - place.width) / 4);
    EXPECT_EQ(place.top, (13500 - place.height) / 4);
    splash.Unload();
}

TEST_F(MainWindowTest, HasASplashThatNamesTheProgram) {
    Splash splash;
    std::string texts;
    for (const Control* control : splash.Controls())
        texts += control->Caption() + "|";
    EXPECT_NE(texts.find("Keld V0.99  for Win95/98 + WinNT|"), std::string::npos);
    EXPECT_NE(texts.find("* Includes Wide Distribution Calculation *|"), std::string::npos);
    EXPECT_NE(texts.find("(500 files max.)|"), std::string::npos);
}

TEST(MainMenu, HasACommandForEveryItemThatIsNoSubmenu) {
    const test::TestDesktop desktop;
    MainForm();
    for (MenuBar* bar : {MainForm().MenuOf(), PlotitForm().MenuOf()})
        for (std::size_t place = 0; place < bar->Entries().size(); ++place) {
            const MenuItem& item = *bar->Entries()[place].item;
            // Hidden from the program's start to its end.
            const bool isLeftOver = &item == &Menus().PrintDummy2;
            EXPECT_TRUE(item.Click || item.IsSeparator() || bar->OpensSubmenu(place) || isLeftOver) << item.Name();
        }
}

}  // namespace
}  // namespace halvern
