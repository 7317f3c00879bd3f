#include <gtest/gtest.h>

#include <sstream>

#include "plot/plot_window.h"
#include "replay/player.h"
#include "shell/main_window.h"
#include "shell/version.h"
#include "store/analysis_store.h"
#include "store/menus.h"
#include "support/data_files.h"

namespace halvern::replay {
namespace {

/// A replay on six absorbance scans, or of several speeds.
struct Analysis : ::testing::Test {
    const test::DataFolder folder;
    std::ostringstream out, err;

    Analysis() { test::WriteDataSet(folder, 6); }

    int Play(const std::string& script) {
        return Player(Script("click GetListNow\nchoose all.LST\n" + script), "s", out, err).Play();
    }
};

TEST_F(Analysis, TypesIntoADialog) {
    EXPECT_EQ(Play("click Set_MenManually\ntype Text1 5.904\nclick IsOK\n"), kRanToItsEnd);
    EXPECT_EQ(Store().Meniscus, 5.904F);
    EXPECT_TRUE(Menus().KeldIt.IsEnabled());
    EXPECT_EQ(out.str(), "");
}

TEST_F(Analysis, PrintsADialog) {
    EXPECT_EQ(Play("click Set_MenManually\nprint dialog\nclick SetMeniscus.NotThisTime\nprint dialog\n"), kLineFailed);
    EXPECT_EQ(out.str(),
              "dialog: SetMeniscus \"Set Meniscus Position\"\n"
              "control: Label1 enabled shown \"Meniscus Position (cm)\"\n"
              "control: Text1 enabled shown \"6.00000\"\n"
              "control: IsOK enabled shown \"&OK\"\n"
              "control: NotThisTime enabled shown \"Cancel\"\n");
    EXPECT_EQ(err.str(), "s:6: no dialog is open\n");
}

TEST_F(Analysis, SwallowsAClickThatLeavesARefusedText) {
    EXPECT_EQ(Play("click Set_MenManually\n"
                   "type Text1 5.5\n"
                   "click IsOK\n"         // refused again, and swallowed
                   "click NotThisTime\n"  // so is this one
                   "type Text1 5.9\n"
                   "click IsOK\n"
                   "print report\n"),
              kRanToItsEnd);
    const std::string message =
        "message style=0 title=\"Value for Radius\" text=\"Please insert a number between 5.8 and 7.1\" answer=ok\n";
    EXPECT_TRUE(out.str().starts_with(message + message + message + "report: ")) << out.str();
    EXPECT_EQ(Store().Meniscus, 5.9F);
}

TEST_F(Analysis, RefusesAClickThatCantBeMadeBeforeItAsksAboutTheText) {
    EXPECT_EQ(Play("click Set_MenManually\ntype Text1 5.5\nclick Label1\n"), kLineFailed);
    EXPECT_EQ(err.str(), "s:5: Label1 can't be clicked\n");
}

TEST_F(Analysis, LeavesABoxAgainThatHasTakenTheFocusBack) {
    test::ScanFile scan;
    for (int I = 1; I <= 4; ++I) {
        scan.speed = I < 3 ? 30000 : 42000;
        scan.omega2t = std::to_string(I) + "E9";
        folder.Write("speed" + std::to_string(I), scan.Text());
    }
    folder.Write("all.LST", test::ListText({"speed1", "speed2", "speed3", "speed4"}));
    // A meniscus picked at 5.5 cm lies outside what the dialog takes: the box tells of it whenever it is left.
    EXPECT_EQ(Play("click Get_MenFromScan\nmouse left+ctrl 5.5 0\nclick Command1\nclick Command1\n"
                   "click Set_MultiMenManually\ntype Radii(0) 9\nclick JustDoIt\n"),
              kRanToItsEnd);
    std::size_t told = 0;
    for (std::size_t at = 0; (at = out.str().find("Please insert a number between 5.7", at)) != std::string::npos; ++at)
        ++told;
    EXPECT_EQ(told, 2U);
    EXPECT_NEAR(Store().ScanMeniscus(1), 5.5F, 1E-6F);
}

TEST_F(Analysis, ClosesADialogByItsFrameWithARefusedText) {
    EXPECT_EQ(Play("click Set_MenManually\ntype Text1 5.5\nclose SetMeniscus\nclick Set_MenManually\nclick IsOK\n"),
              kRanToItsEnd);
    EXPECT_EQ(Store().Meniscus, 6.0F);
}

TEST_F(Analysis, KeepsEventsFromOtherWindowsWhileADialogIsOpen) {
    EXPECT_EQ(Play("click Set_MenManually\nclick KeldIt\n"), kLineFailed);
    EXPECT_EQ(err.str(), "s:4: no such control: KeldIt\n");
}

TEST_F(Analysis, KeepsNamedEventsFromOtherWindowsToo) {
    EXPECT_EQ(Play("click Set_MenManually\nclick Keld.GetListNow\n"), kLineFailed);
    EXPECT_EQ(err.str(), "s:4: the dialog SetMeniscus is open\n");
}

TEST_F(Analysis, EndsWithoutAWordWhileADialogIsOpen) {
    EXPECT_EQ(Play("click Set_MenManually\n"), kRanToItsEnd);
    EXPECT_EQ(out.str(), "");
}

TEST_F(Analysis, PicksInDataUnitsAndInPageUnits) {
    EXPECT_EQ(Play("click Get_MenFromScan\nmouse left+ctrl 5.905 0\n"), kRanToItsEnd);
    const auto& plot = PlotitForm();
    // To the page and back, each step a single.
    const auto onPage = static_cast<float>((5.905 - plot.XAxisMin) * plot.XScale);
    const float quotient = static_cast<float>(static_cast<double>(onPage) / plot.XScale);
    EXPECT_EQ(Store().Meniscus, static_cast<float>(static_cast<double>(quotient) + plot.XAxisMin));
    EXPECT_NEAR(Store().Meniscus, 5.905F, 1E-6F);
}

TEST_F(Analysis, PicksInPageUnits) {
    EXPECT_EQ(Play("click Get_MenFromScan\nmouse left+ctrl @0 @50\n"), kRanToItsEnd);
    EXPECT_EQ(Store().Meniscus, PlotitForm().XAxisMin);
}

TEST_F(Analysis, DragsAZoomBoxAndHovers) {
    EXPECT_EQ(Play("click Get_MenFromScan\nhover @0 @0\ndrag @10 @10 @60 @70\nclick Zoomout\n"), kRanToItsEnd);
    EXPECT_TRUE(PlotitForm().XYLabel.Caption().starts_with(" X= "));
    EXPECT_EQ(err.str(), "");
}

TEST_F(Analysis, PressesDoneOnlyWhileItIsShown) {
    EXPECT_EQ(Play("click Get_MenFromScan\nclick Command1\nclick Command1\n"), kLineFailed);
    EXPECT_EQ(err.str(), "s:5: Plotit is not shown\n");
}

struct RefusedEvent {
    const char* line;
    const char* reason;
};

TEST_F(Analysis, RefusesAMouseWithoutAPlot) {
    EXPECT_EQ(Play("mouse left 1 1\n"), kLineFailed);
    EXPECT_EQ(err.str(), "s:3: Plotit is not shown\n");
}

class BadMouse : public Analysis, public ::testing::WithParamInterface<RefusedEvent> {};

TEST_P(BadMouse, IsRefusedWithItsReason) {
    EXPECT_EQ(Play(std::string("click Get_MenFromScan\n") + GetParam().line), kLineFailed);
    EXPECT_EQ(err.str(), std::string("s:4: ") + GetParam().reason + "\n");
}

INSTANTIATE_TEST_SUITE_P(Replay, BadMouse,
                         ::testing::Values(RefusedEvent{"mouse middle 1 1", "no such mouse button: middle"},
                                           RefusedEvent{"mouse left+meta 1 1", "no such mouse button: left+meta"},
                                           RefusedEvent{"mouse left+ 1 1", "no such mouse button: left+"},
                                           RefusedEvent{"mouse left one 1", "not a position: one"},
                                           RefusedEvent{"mouse left 1 @", "not a position: "},
                                           RefusedEvent{"mouse left 1 nan", "not a position: nan"},
                                           RefusedEvent{"mouse left @1e300 5", "not a position: @1e300"},
                                           RefusedEvent{"mouse left 1e300 5", "not a position: 1e300"},
                                           RefusedEvent{"mouse left 1",
                                                        "expected: mouse BUTTON[+ctrl][+alt][+shift] X Y"},
                                           RefusedEvent{"type OutFileBox x", "OutFileBox is no text box"},
                                           RefusedEvent{"type Text1 x", "no such control: Text1"},
                                           RefusedEvent{"hover 1", "expected: hover X Y"},
                                           RefusedEvent{"drag 1 2 3", "expected: drag X0 Y0 X1 Y1"}));

/// The dialog for the smoothing window of sixty scans: a spin control from 3 to 6 beside a text box.
struct SpinAndTick : Analysis {
    SpinAndTick() { test::WriteDataSet(folder, 60); }

    static constexpr const char* kMeniscus = "click Set_MenManually\ntype Text1 5.904\nclick IsOK\n";
    int PlaySmoothing(const std::string& lines) {
        return Play(std::string(kMeniscus) + "click UseWSSmoothing\n" + lines);
    }
    /// Six scans from 5.9 to 6.899 cm: the radii up to 6.8 cm can be calculated.
    void WriteLongScans() { test::WriteDataSet(folder, 6, {.points = 1000}); }
    int PlayRadii(const std::string& lines) { return Play(std::string(kMeniscus) + "click DoWideStraight\n" + lines); }
};

TEST_F(SpinAndTick, ASpinShowsInTheTextAndIsTaken) {
    EXPECT_EQ(PlaySmoothing("spin UpDown1 5\nprint dialog\nclick IsOK\n"), kRanToItsEnd);
    EXPECT_NE(out.str().find("control: Text1 enabled shown \"5\"\ncontrol: UpDown1 enabled shown \"5\"\n"),
              std::string::npos)
        << out.str();
    EXPECT_EQ(Store().SmoothWindow, 5);
}

TEST_F(SpinAndTick, ASpinBeyondALimitGoesToIt) {
    EXPECT_EQ(PlaySmoothing("spin UpDown1 2147483647\nprint dialog\nspin UpDown1 -7\nprint dialog\n"), kRanToItsEnd);
    const std::string told = out.str();
    const std::size_t highest = told.find("control: UpDown1 enabled shown \"6\"\n");
    ASSERT_NE(highest, std::string::npos) << told;
    EXPECT_NE(told.find("control: UpDown1 enabled shown \"3\"\n", highest), std::string::npos) << told;
}

TEST_F(SpinAndTick, ASpinComesAfterTheTextThatWasTypedBefore) {
    EXPECT_EQ(PlaySmoothing("type Text1 5\nspin UpDown1 3\nclick IsOK\n"), kRanToItsEnd);
    EXPECT_EQ(Store().SmoothWindow, 3);
    EXPECT_EQ(out.str(), "");
}

TEST_F(SpinAndTick, ASpinLeavesATextThatHasTakenTheFocusBack) {
    EXPECT_EQ(PlaySmoothing("type Text1 50\nspin UpDown1 5\nprint dialog\nclick IsOK\n"), kRanToItsEnd);
    EXPECT_TRUE(
        out.str().starts_with("message style=48 title=\"Data Entry Error\" text=\"The value for the file increment "
                              "is invalid or out of range!\" answer=ok\ndialog: SetSmooth "))
        << out.str();
    EXPECT_EQ(out.str().find("message", 1), std::string::npos) << "what the dialog put in its place is good";
    EXPECT_EQ(Store().SmoothWindow, 5);
}

TEST_F(SpinAndTick, TicksAndUnticks) {
    WriteLongScans();
    EXPECT_EQ(PlayRadii("tick UseRadii(4)\nuntick UseRadii(5)\ntick PlotLogWD.useradii(6)\ntick UseRadii(6)\n"
                        "untick UseRadii(6)\nuntick UseRadii(6)\nprint dialog\n"),
              kRanToItsEnd)
        << err.str();
    EXPECT_NE(out.str().find("control: UseRadii(3) enabled shown \"0\"\ncontrol: UseRadii(4) enabled shown \"1\"\n"
                             "control: UseRadii(5) enabled shown \"0\"\ncontrol: UseRadii(6) enabled shown \"0\"\n"),
              std::string::npos)
        << out.str();
}

TEST_F(SpinAndTick, NeverTicksARadiusThatWasNotCalculated) {
    // Scans of twelve points reach none of the radii.
    EXPECT_EQ(PlayRadii("print dialog\ntick UseRadii(5)\n"), kLineFailed);
    EXPECT_NE(out.str().find("control: UseRadii(5) disabled shown \"0\"\n"), std::string::npos) << out.str();
    EXPECT_EQ(err.str(), "s:8: UseRadii(5) is disabled\n");
}

class BadSpinOrTick : public SpinAndTick, public ::testing::WithParamInterface<RefusedEvent> {};

TEST_P(BadSpinOrTick, IsRefusedWithItsReason) {
    EXPECT_EQ(PlaySmoothing(GetParam().line), kLineFailed);
    EXPECT_EQ(err.str(), std::string("s:7: ") + GetParam().reason + "\n");
    EXPECT_EQ(Store().SmoothWindow, 3);
}

INSTANTIATE_TEST_SUITE_P(Replay, BadSpinOrTick,
                         ::testing::Values(RefusedEvent{"spin UpDown1 five", "not a whole number: five"},
                                           RefusedEvent{"spin UpDown1 5.0", "not a whole number: 5.0"},
                                           RefusedEvent{"spin UpDown1 2147483648", "not a whole number: 2147483648"},
                                           RefusedEvent{"spin UpDown1 \"\"", "not a whole number: "},
                                           RefusedEvent{"spin UpDown1", "expected: spin NAME VALUE"},
                                           RefusedEvent{"spin Text1 5", "Text1 is no spin control"},
                                           RefusedEvent{"spin UpDown2 5", "no such control: UpDown2"},
                                           RefusedEvent{"spin Keld.OutFileBox 5", "the dialog SetSmooth is open"},
                                           RefusedEvent{"tick Text1", "Text1 is no check box"},
                                           RefusedEvent{"untick IsOK", "IsOK is no check box"},
                                           RefusedEvent{"tick", "expected: tick NAME"},
                                           RefusedEvent{"untick UpDown1 0", "expected: untick NAME"}));

/// A run that stood still: all scans of one omega squared t.
void WriteScansOfOneTime(const test::DataFolder& folder) {
    test::ScanFile scan;
    scan.points = 1000;
    for (int I = 1; I <= 4; ++I)
        folder.Write("same" + std::to_string(I), scan.Text());
    folder.Write("all.LST", test::ListText({"same1", "same2", "same3", "same4"}));
}

TEST_F(Analysis, EndsWithStatus70AfterADivisionByZero) {
    WriteScansOfOneTime(folder);  // the pairs have no time between them
    EXPECT_EQ(
        Play("answer yes\nanswer yes\nanswer yes\nclick Set_MenManually\ntype Text1 5.9\nclick IsOK\nclick KeldIt\n"),
        kProgramFailed);
    EXPECT_EQ(err.str(),
              "s:9: Run-time error '11': Division by zero\n  running: click KeldIt\n  version: halvern-replay " +
                  RevisionNumbers() + "\n");
}

TEST_F(Analysis, EndsWithStatus70InAWideDistributionOfOneTime) {
    WriteScansOfOneTime(folder);  // no s* between neighbours to divide by
    EXPECT_EQ(Play("answer yes\nanswer yes\nanswer yes\nclick Set_MenManually\ntype Text1 5.9\nclick IsOK\n"
                   "click DoWideStraight\nprint report\n"),
              kProgramFailed);
    EXPECT_EQ(
        err.str(),
        "s:9: Run-time error '11': Division by zero\n  running: click DoWideStraight\n  version: halvern-replay " +
            RevisionNumbers() + "\n");
    EXPECT_EQ(out.str().find("report:"), std::string::npos) << "nothing comes behind it";
    EXPECT_FALSE(PlotitForm().IsShown() || Menus().PlotWideD.IsEnabled() || Menus().WDOut.IsEnabled());
}

}  // namespace
}  // namespace halvern::replay
