#include "wide/set_smooth.h"

#include <gtest/gtest.h>

#include "store/analysis_store.h"
#include "store/menus.h"
#include "support/layout.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

struct Smoothing : ::testing::Test {
    test::TestDesktop desktop;
    AnalysisStore& S = Store();
    MainMenu& M = Menus();

    Smoothing() {
        S.NumFiles = 100;
        S.SmoothWindow = 3;
        M.UseWSSmoothing.Enable();
        Offer();
    }
    void Offer() {
        M.PlotWideD.Enable();
        M.WDOut.Enable();
    }
    bool IsOffered() const { return M.PlotWideD.IsEnabled() && M.WDOut.IsEnabled(); }
    void Answer(void (*act)(SetSmooth& dialog)) {
        desktop.dialogs.push_back([act](Form& form) { act(dynamic_cast<SetSmooth&>(form)); });
    }
    static void Type(SetSmooth& dialog, const char* text) {
        dialog.Text1.Type(text);
        dialog.Text1.Leave();
    }
};

TEST_F(Smoothing, AsksForTheWindowTheFirstTimeAlone) {
    Answer([](SetSmooth& dialog) {
        EXPECT_EQ(dialog.Caption(), "Set Soothing Window");
        EXPECT_EQ(dialog.Text1.Text(), "3");
        EXPECT_EQ(dialog.Label2.Caption(), "[ 2 < span < 10] (odd)");
        EXPECT_EQ(dialog.UpDown1.Maximum(), 10);
        EXPECT_EQ(dialog.UpDown1.Minimum(), 3);
        dialog.UpDown1.SetValue(7);
        dialog.IsOK.Click();
    });
    UseWSSmoothing_Click();
    EXPECT_TRUE(S.UseSmoothing && S.SmoothDialogShown);
    EXPECT_TRUE(M.UseWSSmoothing.IsTicked() && M.SetCSpan.IsEnabled());
    EXPECT_EQ(S.SmoothWindow, 7);
    EXPECT_FALSE(IsOffered());

    Offer();
    UseWSSmoothing_Click();
    EXPECT_FALSE(S.UseSmoothing || M.UseWSSmoothing.IsTicked() || M.SetCSpan.IsEnabled() || IsOffered());
    Offer();
    UseWSSmoothing_Click();  // no dialog: the desktop has none to answer
    EXPECT_TRUE(S.UseSmoothing && M.UseWSSmoothing.IsTicked());
    EXPECT_FALSE(M.PlotWideD.IsEnabled() || M.WDOut.IsEnabled());
}

TEST_F(Smoothing, StaysOnWhenItsFirstDialogIsCancelled) {
    Answer([](SetSmooth& dialog) {
        dialog.UpDown1.SetValue(7);
        dialog.MaybeLater.Click();
    });
    UseWSSmoothing_Click();
    EXPECT_TRUE(S.UseSmoothing && S.SmoothDialogShown && M.UseWSSmoothing.IsTicked());
    EXPECT_EQ(S.SmoothWindow, 3);
}

TEST_F(Smoothing, IsRefusedWithFewerThanThirtyScans) {
    S.NumFiles = 29;
    UseWSSmoothing_Click();
    ASSERT_EQ(desktop.messages.size(), 1U);
    EXPECT_EQ(desktop.messages[0].text, "Too Few Datasets To Use Smoothing!");
    EXPECT_EQ(desktop.messages[0].title, "Smoothing Disabled!");
    EXPECT_EQ(desktop.messages[0].style, 48);
    EXPECT_FALSE(S.UseSmoothing || S.SmoothDialogShown);
    EXPECT_FALSE(M.UseWSSmoothing.IsTicked() || M.UseWSSmoothing.IsEnabled() || M.SetCSpan.IsEnabled());
    EXPECT_TRUE(desktop.loaded.empty());
}

TEST_F(Smoothing, OffersAWindowOfThreeWithThirtyScans) {
    S.NumFiles = 30;
    SetSmooth dialog;
    dialog.Load();
    EXPECT_EQ(dialog.UpDown1.Minimum(), 3);
    EXPECT_EQ(dialog.UpDown1.Maximum(), 3);
    EXPECT_TRUE(desktop.messages.empty());
    dialog.Unload();
}

TEST_F(Smoothing, TellsTheLimitByTheNumberOfScans) {
    for (const auto& [scans, text] : {std::pair{45, "[ 2 < span < 4] (odd)"}, {9, "[ 2 < span < ] (odd)"}}) {
        S.NumFiles = scans;
        SetSmooth dialog;
        dialog.Load();
        EXPECT_EQ(dialog.Label2.Caption(), text);
        dialog.Unload();
    }
}

TEST_F(Smoothing, ShowsTheSpanDialogAllTheSameWithTooFewScans) {
    S.NumFiles = 20;
    S.UseSmoothing = true;
    M.UseWSSmoothing.Tick();
    Answer([](SetSmooth& dialog) {
        EXPECT_EQ(dialog.UpDown1.Minimum(), 0);
        EXPECT_EQ(dialog.UpDown1.Maximum(), 1);
        dialog.MaybeLater.Click();
    });
    SetCSpan_Click();
    EXPECT_EQ(desktop.messages.size(), 1U);
    EXPECT_FALSE(S.UseSmoothing);
    EXPECT_TRUE(M.UseWSSmoothing.IsTicked()) << "the tick is the caller's";
}

TEST_F(Smoothing, MakesAnEvenWindowOdd) {
    Answer([](SetSmooth& dialog) {
        Type(dialog, "4");
        dialog.IsOK.Click();
    });
    SetCSpan_Click();
    EXPECT_EQ(S.SmoothWindow, 5);
    ASSERT_EQ(desktop.messages.size(), 1U);
    EXPECT_EQ(desktop.messages[0].text, "Smoothing Window MUST be odd numbered!  Window will be set to 5.");
    EXPECT_EQ(desktop.messages[0].title, "Smoothing Window Changed!");
    EXPECT_EQ(desktop.messages[0].style, 48);
    EXPECT_TRUE(IsOffered()) << "what was calculated was not smoothed";
}

TEST_F(Smoothing, MayRaiseTheWindowBeyondTheLimitByOne) {
    Answer([](SetSmooth& dialog) {
        dialog.UpDown1.SetValue(10);
        dialog.IsOK.Click();
    });
    SetCSpan_Click();
    EXPECT_EQ(S.SmoothWindow, 11);
}

TEST_F(Smoothing, WithdrawsTheDistributionWhenTheWindowInUseChanges) {
    S.UseSmoothing = true;
    Answer([](SetSmooth& dialog) { dialog.IsOK.Click(); });
    SetCSpan_Click();
    EXPECT_TRUE(IsOffered()) << "the same window";
    Answer([](SetSmooth& dialog) {
        dialog.UpDown1.SetValue(5);
        dialog.IsOK.Click();
    });
    SetCSpan_Click();
    EXPECT_FALSE(M.PlotWideD.IsEnabled() || M.WDOut.IsEnabled());
}

TEST_F(Smoothing, ChecksATypedWindowByItsOwnLimits) {
    SetSmooth dialog;
    dialog.Load();
    std::size_t refused = 0;
    for (const char* text : {"2", "50", "wide", "", "1.99"}) {
        Type(dialog, text);
        ASSERT_EQ(desktop.messages.size(), ++refused) << text;
        EXPECT_EQ(desktop.messages.back().text, "The value for the file increment is invalid or out of range!");
        EXPECT_EQ(desktop.messages.back().title, "Data Entry Error");
        EXPECT_EQ(desktop.messages.back().style, 48);
        EXPECT_EQ(dialog.Text1.Text(), "3");
        EXPECT_TRUE(dialog.Text1.WantsFocus());
    }
    // 49 passes though the label says 10, and becomes the nearer limit; 2.5 goes to the even 2, and on to 3.
    Type(dialog, "49");
    EXPECT_EQ(dialog.UpDown1.Value(), 10);
    Type(dialog, "2.5");
    EXPECT_EQ(dialog.UpDown1.Value(), 3);
    Type(dialog, "5.5");
    EXPECT_EQ(dialog.UpDown1.Value(), 6);
    EXPECT_EQ(desktop.messages.size(), refused);
    dialog.Unload();
}

TEST_F(Smoothing, HasADialogThatEscapeCancels) {
    SetSmooth dialog;
    EXPECT_EQ(test::NamesOn(dialog),
              (std::vector<std::string>{"Label1", "Text1", "UpDown1", "Label2", "IsOK", "MaybeLater"}));
    EXPECT_EQ(dialog.CancelButton(), &dialog.MaybeLater);
    test::ExpectLaidOut(dialog);
}

TEST_F(Smoothing, ShowsTheWindowInUseInTheSpanDialog) {
    S.SmoothWindow = 7;
    SetSmooth dialog;
    dialog.Load();
    EXPECT_EQ(dialog.Text1.Text(), "7");
    EXPECT_EQ(dialog.UpDown1.Value(), 7);
    dialog.Unload();
}

TEST_F(Smoothing, GoesOutOfReachWithTooFewScansInTheSpanDialog) {
    S.NumFiles = 29;
    M.SetCSpan.Enable();
    Answer([](SetSmooth& dialog) { dialog.MaybeLater.Click(); });
    SetCSpan_Click();
    EXPECT_FALSE(M.UseWSSmoothing.IsEnabled() || M.SetCSpan.IsEnabled());
}

TEST_F(Smoothing, ShowsTheWindowThatStandsThoughItCannotBeUsed) {
    S.NumFiles = 20;
    S.SmoothWindow = 7;
    SetSmooth dialog;
    dialog.Load();
    EXPECT_EQ(dialog.Text1.Text(), "7");
    EXPECT_EQ(dialog.UpDown1.Value(), 1);
    dialog.Unload();
}

}  // namespace
}  // namespace halvern
