#include "conditioning/set_meniscus.h"

#include <gtest/gtest.h>

#include "store/analysis_store.h"
#include "store/menus.h"
#include "support/layout.h"
#include "support/session.h"

namespace halvern {
namespace {

struct SetMeniscusTest : ::testing::Test {
    test::Session session;

    /// Opens the dialog by its menu item; the user acts on it.
    void InDialog(const std::function<void(SetMeniscus&)>& act) {
        session.desktop.dialogs.push_back([act](Form& form) { act(dynamic_cast<SetMeniscus&>(form)); });
        Menus().Set_MenManually.Click();
    }
};

bool Types(TextBox& box, const char* text) {
    box.Type(text);
    return box.Leave();
}

TEST_F(SetMeniscusTest, OffersTheStoredValueSelected) {
    session.LoadSpeeds({42000, 42000, 42000, 42000});
    Store().ScanMeniscus(1) = 5.9651F;
    InDialog([](SetMeniscus& dialog) {
        EXPECT_EQ(dialog.Caption(), "Set Meniscus Position");
        EXPECT_EQ(dialog.Label1.Caption(), "Meniscus Position (cm)");
        EXPECT_EQ(dialog.Text1.Text(), "5.9650998") << "seven decimals of the single next to 5.9651";
        EXPECT_TRUE(dialog.Text1.IsAllSelected());
        dialog.NotThisTime.Click();
    });
}

TEST_F(SetMeniscusTest, GivesEveryScanTheTypedValue) {
    session.LoadSpeeds({42000, 42000, 42000, 42000});
    InDialog([](SetMeniscus& dialog) {
        EXPECT_TRUE(Types(dialog.Text1, " 5.965 "));
        dialog.IsOK.Click();
    });
    const auto& S = Store();
    EXPECT_EQ(S.Meniscus, 5.965F);
    for (int K = 1; K <= 4; ++K)
        EXPECT_EQ(S.ScanMeniscus(K), 5.965F);
    EXPECT_EQ(S.ScanMeniscus(5), 6.0F) << "there is no such scan";
    EXPECT_TRUE(Menus().KeldIt.IsEnabled());
    EXPECT_TRUE(Menus().DoWideStraight.IsEnabled());
    EXPECT_TRUE(Menus().UseWSSmoothing.IsEnabled());
    EXPECT_FALSE(Menus().SetJitterLimits.IsEnabled());
    EXPECT_FALSE(Menus().DoIntShift.IsEnabled());
}

TEST_F(SetMeniscusTest, OffersTheCorrectionsOfInterferenceData) {
    test::ScanFile scan;
    scan.type = 'P';
    session.LoadSpeeds({42000, 42000, 42000, 42000}, scan);
    InDialog([](SetMeniscus& dialog) { dialog.IsOK.Click(); });
    EXPECT_TRUE(Menus().SetJitterLimits.IsEnabled());
    EXPECT_TRUE(Menus().DoIntShift.IsEnabled());
}

TEST_F(SetMeniscusTest, StoresNothingWhenItIsCancelled) {
    session.LoadSpeeds({42000, 42000, 42000, 42000});
    InDialog([](SetMeniscus& dialog) {
        EXPECT_TRUE(Types(dialog.Text1, "6.5"));
        dialog.NotThisTime.Click();
    });
    EXPECT_EQ(Store().ScanMeniscus(1), 6.0F);
    EXPECT_FALSE(Menus().KeldIt.IsEnabled());
}

struct TextCase {
    const char* text;
    bool good;
};

TEST_F(SetMeniscusTest, TakesNumbersFrom5Point8To7Point1) {
    constexpr TextCase kCases[] = {
        {"5.8", true}, {"7.1", true}, {"5.79", false}, {"7.11", false}, {"6", true},    {"6D0", true}, {" 6.1", true},
        {"6x", false}, {"", false},   {"6,1", false},  {"six", false},  {"6 1", false}, {"-6", false}, {".6E1", true},
    };
    session.LoadSpeeds({42000, 42000, 42000, 42000});
    InDialog([&](SetMeniscus& dialog) {
        for (const auto& c : kCases) {
            session.desktop.messages.clear();
            dialog.Text1.FocusGiven();
            EXPECT_EQ(Types(dialog.Text1, c.text), c.good) << c.text;
            EXPECT_EQ(session.desktop.messages.empty(), c.good) << c.text;
            EXPECT_EQ(dialog.Text1.WantsFocus(), !c.good) << "a refused text keeps the focus in the box";
            if (!c.good) {
                EXPECT_EQ(session.desktop.messages[0].text, "Please insert a number between 5.8 and 7.1");
                EXPECT_EQ(session.desktop.messages[0].title, "Value for Radius");
                EXPECT_EQ(session.desktop.messages[0].style, 0);
            }
        }
        dialog.NotThisTime.Click();
    });
}

TEST_F(SetMeniscusTest, DoesNotAskAboutATextThatWasNotChanged) {
    session.LoadSpeeds({42000, 42000, 42000, 42000});
    for (int K = 1; K <= 4; ++K)
        Store().ScanMeniscus(K) = 5.5F;
    InDialog([](SetMeniscus& dialog) {
        EXPECT_TRUE(dialog.Text1.Leave());
        dialog.IsOK.Click();
    });
    EXPECT_TRUE(session.desktop.messages.empty());
    EXPECT_EQ(Store().Meniscus, 5.5F);
}

TEST_F(SetMeniscusTest, HasItsControlsAndIsCancelledByEscape) {
    SetMeniscus dialog;
    EXPECT_EQ(test::NamesOn(dialog), (std::vector<std::string>{"Label1", "Text1", "IsOK", "NotThisTime"}));
    EXPECT_EQ(dialog.CancelButton(), &dialog.NotThisTime);
    test::ExpectLaidOut(dialog);
}

}  // namespace
}  // namespace halvern
