#include "conditioning/set_multi_men_f.h"

#include <gtest/gtest.h>

#include "store/analysis_store.h"
#include "store/menus.h"
#include "support/failure.h"
#include "support/layout.h"
#include "support/session.h"

namespace halvern {
namespace {

struct SetMultiMenFTest : ::testing::Test {
    test::Session session;

    void InDialog(const std::function<void(SetMultiMenF&)>& act) {
        session.desktop.dialogs.push_back([act](Form& form) { act(dynamic_cast<SetMultiMenF&>(form)); });
        Menus().Set_MultiMenManually.Click();
    }

    void LoadSpeedRuns(int runs) {
        std::vector<int> speeds;
        for (int run = 1; run <= runs; ++run)
            speeds.insert(speeds.end(), {2000 * run, 2000 * run});
        session.LoadSpeeds(speeds);
    }
};

TEST_F(SetMultiMenFTest, HasARowForEachSpeedAndClosesUpTheOthers) {
    LoadSpeedRuns(3);
    const SetMultiMenF design;
    Store().ScanMeniscus(3) = 5.75F;
    InDialog([&](SetMultiMenF& dialog) {
        EXPECT_EQ(dialog.Caption(), "Set Meniscus Position");
        EXPECT_EQ(dialog.Label1[0].Caption(), "Meniscus @ 2000rpm");
        EXPECT_EQ(dialog.Label1[2].Caption(), "Meniscus @ 6000rpm");
        EXPECT_EQ(dialog.Radii[0].Text(), "6.00000");
        EXPECT_EQ(dialog.Radii[1].Text(), "5.75000");
        for (std::size_t row = 0; row < 12; ++row) {
            EXPECT_EQ(dialog.Label1[row].IsShown(), row < 3);
            EXPECT_EQ(dialog.Radii[row].IsShown(), row < 3);
        }
        EXPECT_EQ(dialog.Label1[3].Caption(), "Meniscus - Speed 1");
        const std::int32_t shrink = 9 * (design.Label1[1].Where().top - design.Label1[0].Where().top);
        EXPECT_EQ(dialog.Where().height, design.Where().height - shrink);
        EXPECT_EQ(dialog.JustDoIt.Where().top, design.JustDoIt.Where().top - shrink);
        EXPECT_EQ(dialog.NotNow.Where().top, design.NotNow.Where().top - shrink);
        EXPECT_EQ(dialog.Line1.Where().top, design.Line1.Where().top - shrink);
        dialog.NotNow.Click();
    });
    EXPECT_FALSE(Menus().DoWideStraight.IsEnabled());
}

TEST_F(SetMultiMenFTest, KeepsItsDesignSizeWith12Speeds) {
    LoadSpeedRuns(12);
    const SetMultiMenF design;
    InDialog([&](SetMultiMenF& dialog) {
        EXPECT_EQ(dialog.Where().height, design.Where().height);
        EXPECT_TRUE(dialog.Radii[11].IsShown());
        dialog.NotNow.Click();
    });
}

TEST_F(SetMultiMenFTest, FailsWith13Speeds) {
    LoadSpeedRuns(13);
    EXPECT_FAILURE(9, Menus().Set_MultiMenManually.Click());
}

TEST_F(SetMultiMenFTest, TakesNumbersFrom5Point7To7Point1AndPutsTheStoredValueBack) {
    LoadSpeedRuns(2);
    Store().ScanMeniscus(3) = 5.9F;
    InDialog([&](SetMultiMenF& dialog) {
        TextBox& box = dialog.Radii[1];
        for (const char* good : {"5.7", "7.1", "6.1234"}) {
            box.Type(good);
            EXPECT_TRUE(box.Leave());
            EXPECT_EQ(box.Text(), good);
        }
        EXPECT_TRUE(session.desktop.messages.empty());
        for (const char* bad : {"5.69", "7.11", "abc", ""}) {
            session.desktop.messages.clear();
            box.FocusGiven();
            box.Type(bad);
            EXPECT_TRUE(box.Leave());
            EXPECT_EQ(box.Text(), "5.9000001") << "seven decimals of the single next to 5.9";
            EXPECT_TRUE(box.WantsFocus());
            ASSERT_EQ(session.desktop.messages.size(), 1U);
            EXPECT_EQ(session.desktop.messages[0].text, "Please insert a number between 5.7 and 7.1");
            EXPECT_EQ(session.desktop.messages[0].title, "Value for Radius");
        }
        dialog.NotNow.Click();
    });
}

TEST_F(SetMultiMenFTest, SelectsABoxThatGetsTheFocus) {
    LoadSpeedRuns(2);
    InDialog([](SetMultiMenF& dialog) {
        dialog.Radii[1].GotFocus();
        EXPECT_TRUE(dialog.Radii[1].IsAllSelected());
        EXPECT_FALSE(dialog.Radii[0].IsAllSelected());
        dialog.NotNow.Click();
    });
}

TEST_F(SetMultiMenFTest, SpreadsTheValuesOverTheRunsAndTellsThem) {
    session.LoadSpeeds({42000, 42000, 30000, 30000, 42000});
    const auto before = test::ReportLines().size();
    InDialog([](SetMultiMenF& dialog) {
        const char* const typed[] = {"6.002", "5.99804", "6.5"};
        for (std::size_t row = 0; row < 3; ++row) {
            dialog.Radii[row].Type(typed[row]);
            dialog.Radii[row].Leave();
        }
        dialog.JustDoIt.Click();
    });
    const auto& S = Store();
    const float expected[] = {6.002F, 6.002F, 5.99804F, 5.99804F, 6.5F};
    for (int K = 1; K <= 5; ++K)
        EXPECT_EQ(S.ScanMeniscus(K), expected[K - 1]) << K;
    EXPECT_EQ(S.Meniscus, 6.5F) << "left at the last speed's";
    const auto lines = test::ReportLines();
    ASSERT_EQ(lines.size(), before + 3);
    EXPECT_EQ(lines[before], " Meniscus position for 42000rpm is 6.002 cm.");
    EXPECT_EQ(lines[before + 1], " Meniscus position for 30000rpm is 5.998 cm.");
    EXPECT_EQ(lines[before + 2], " Meniscus position for 42000rpm is 6.5 cm.");
    EXPECT_FALSE(Menus().KeldIt.IsEnabled());
    EXPECT_TRUE(Menus().DoWideStraight.IsEnabled());
    EXPECT_TRUE(Menus().UseWSSmoothing.IsEnabled());
    EXPECT_FALSE(Menus().SetJitterLimits.IsEnabled());
    EXPECT_FALSE(Menus().DoIntShift.IsEnabled());
}

TEST_F(SetMultiMenFTest, DisablesDcDtThatWasOffered) {
    LoadSpeedRuns(2);
    Menus().KeldIt.Enable();
    InDialog([](SetMultiMenF& dialog) { dialog.JustDoIt.Click(); });
    EXPECT_FALSE(Menus().KeldIt.IsEnabled());
}

TEST_F(SetMultiMenFTest, OffersTheCorrectionsOfInterferenceData) {
    session.LoadSpeeds({42000, 42000, 30000, 30000}, {.type = 'P'});
    EXPECT_FALSE(Menus().SetJitterLimits.IsEnabled());
    InDialog([](SetMultiMenF& dialog) { dialog.JustDoIt.Click(); });
    EXPECT_TRUE(Menus().SetJitterLimits.IsEnabled());
    EXPECT_TRUE(Menus().DoIntShift.IsEnabled());
}

TEST_F(SetMultiMenFTest, HasTwelveRowsOfALabelAndABoxAndIsCancelledByEscape) {
    SetMultiMenF dialog;
    std::vector<std::string> names;
    for (const char* name : {"Label1(", "Radii("})
        for (int J = 0; J < 12; ++J)
            names.push_back(name + std::to_string(J) + ")");
    for (const char* name : {"Line1", "JustDoIt", "NotNow"})
        names.emplace_back(name);
    EXPECT_EQ(test::NamesOn(dialog), names);
    EXPECT_EQ(dialog.CancelButton(), &dialog.NotNow);
    test::ExpectLaidOut(dialog);
    for (std::size_t J = 0; J < 12; ++J) {
        EXPECT_EQ(dialog.Label1[J].Caption(), "Meniscus - Speed 1");
        EXPECT_EQ(dialog.Radii[J].Text(), "6.00000");
        const Place label = dialog.Label1[J].Where(), box = dialog.Radii[J].Where();
        EXPECT_TRUE(label.top >= box.top && label.top + label.height <= box.top + box.height) << J;
        EXPECT_EQ(box.top, dialog.Radii[0].Where().top + static_cast<std::int32_t>(J) * 420) << J;
    }
}

}  // namespace
}  // namespace halvern
