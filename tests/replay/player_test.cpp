#include "replay/player.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "plot/plot_window.h"
#include "shell/main_window.h"
#include "shell/version.h"
#include "store/analysis_store.h"
#include "store/failure.h"
#include "store/files.h"
#include "store/menus.h"
#include "store/report.h"
#include "support/data_files.h"

namespace halvern::replay {
namespace {

/// A replay in a folder of its own. The test can hang commands of its own on the menu items before it plays.
struct Replay : ::testing::Test {
    const test::DataFolder folder;
    std::ostringstream out, err;

    Replay() { MainForm(); }

    int Play(std::string_view script) { return Player(Script(script), "test.script", out, err).Play(); }

    /// Where the folder's path stands in a text: "DIR".
    std::string WithoutFolder(std::string text) const {
        const std::string path = folder.Path().string();
        for (std::size_t at; (at = text.find(path)) != std::string::npos;)
            text.replace(at, path.size(), "DIR");
        return text;
    }
};

/// Adds to the report what a dialog for a new file gives back.
void ReportNewFile(const FileDialog& dialog) { AddLine(TheDesktop().AskForNewFile(dialog).value_or("cancelled")); }

std::vector<std::size_t> SelectedLines() {
    std::vector<std::size_t> selected;
    for (std::size_t i = 0; i < OutFileBox().ListCount(); ++i)
        if (OutFileBox().IsSelected(i))
            selected.push_back(i);
    return selected;
}

TEST_F(Replay, RunsTheStartBeforeTheFirstLine) {
    EXPECT_EQ(Play("print report"), kRanToItsEnd);
    EXPECT_EQ(out.str(), "report:  Halvern V0.99   \nreport:  Current Revision V0.99.0055 \n");
    EXPECT_EQ(err.str(), "");
}

TEST_F(Replay, StartsAndEndsTheProgramOnAnEmptyScriptToo) {
    EXPECT_EQ(Play("# nothing\n\n"), kRanToItsEnd);
    EXPECT_TRUE(MainForm().IsLoaded());
    EXPECT_EQ(out.str(), "");
    EXPECT_EQ(err.str(), "");
}

TEST_F(Replay, HasAScreenOf1024By768Pixels) {
    Play("");
    // A twentieth of 15360 by 11520 twips.
    EXPECT_EQ(MainForm().Where().left, 768);
    EXPECT_EQ(MainForm().Where().top, 576);
    EXPECT_EQ(Store().DefaultPrinterName, "Replay");
}

TEST_F(Replay, HasAnotherScreenIfTheScriptBeginsSo) {
    EXPECT_EQ(Play("# small\nscreen 800 600 noprinter\nprint clipboard\n"), kRanToItsEnd);
    // A twentieth of 12000 by 9000 twips.
    EXPECT_EQ(MainForm().Where().left, 600);
    EXPECT_EQ(MainForm().Where().top, 450);
    EXPECT_FALSE(Menus().PrintDummy1.IsEnabled());
    EXPECT_EQ(Store().DefaultPrinterName, "");
}

TEST_F(Replay, KeepsThePrinterOnAnotherScreen) {
    EXPECT_EQ(Play("screen 640 480\n"), kRanToItsEnd);
    EXPECT_EQ(MainForm().Where().left, 480);
    EXPECT_TRUE(Menus().PrintDummy1.IsEnabled());
}

TEST_F(Replay, FailsWithTheProgram) {
    Menus().MakeListNow.Click = [] { Fail(FailureCode::kDivisionByZero); };
    EXPECT_EQ(Play("print clipboard\n\nclick MakeListNow\nprint clipboard\n"), kProgramFailed);
    EXPECT_EQ(out.str(), "clipboard: empty\n");
    EXPECT_EQ(err.str(),
              "test.script:3: Run-time error '11': Division by zero\n"
              "  running: click MakeListNow\n"
              "  version: halvern-replay " +
                  RevisionNumbers() + "\n");
}

TEST_F(Replay, TellsTheLastLineReadWhenTheProgramFails) {
    Menus().MakeListNow.Click = [] {
        ReportNewFile({});
        Fail(FailureCode::kOverflow);
    };
    EXPECT_EQ(Play("click MakeListNow\ncancel\n"), kProgramFailed);
    EXPECT_EQ(err.str(),
              "test.script:2: Run-time error '6': Overflow\n"
              "  running: click MakeListNow\n"
              "  version: halvern-replay " +
                  RevisionNumbers() + "\n");
}

TEST_F(Replay, EndsWithTheProgram) {
    Menus().MakeListNow.Click = [] { EndProgram(); };
    EXPECT_EQ(Play("click MakeListNow\n# over\n\n"), kRanToItsEnd);
    EXPECT_EQ(err.str(), "");
}

TEST_F(Replay, TakesNoLineAfterTheProgramHasEnded) {
    Menus().MakeListNow.Click = [] { EndProgram(); };
    EXPECT_EQ(Play("click MakeListNow\n# over\n\nprint report\n"), kLineFailed);
    EXPECT_EQ(out.str(), "");
    EXPECT_EQ(err.str(), "test.script:4: the program has ended\n");
}

TEST_F(Replay, LetsABoxWithOkAloneAnswerItself) {
    Menus().MakeListNow.Click = [] {
        MsgBox("first", kExclamation, "T");
        MsgBox("second", kOkOnly, "T");
        AddLine("both");
        MsgBox("third", kOkOnly, "T");
    };
    EXPECT_EQ(Play("click MakeListNow\nanswer ok\nprint report\n"), kRanToItsEnd);
    // The first box takes the answer; the others see that the script goes on without them.
    EXPECT_EQ(out.str(),
              "message style=48 title=\"T\" text=\"first\" answer=ok\n"
              "message style=0 title=\"T\" text=\"second\" answer=ok\n"
              "message style=0 title=\"T\" text=\"third\" answer=ok\n"
              "report:  Halvern V0.99   \nreport:  Current Revision V0.99.0055 \nreport: both\n");
}

TEST_F(Replay, LetsABoxWithOkAloneAnswerItselfAtTheEndOfTheScript) {
    Menus().MakeListNow.Click = [] { MsgBox("done"); };
    EXPECT_EQ(Play("click MakeListNow"), kRanToItsEnd);
    EXPECT_EQ(out.str(), "message style=0 title=\"Halvern\" text=\"done\" answer=ok\n");
}

TEST_F(Replay, LeavesAQuestionOpenAtTheEndOfTheScript) {
    Menus().MakeListNow.Click = [] {
        MsgBox("Go on?", kYesNo);
        AddLine("went on");
    };
    EXPECT_EQ(Play("click MakeListNow\nprint clipboard\n"), kRanToItsEnd);
    EXPECT_EQ(out.str(), "clipboard: empty\n");
    EXPECT_EQ(err.str(), "");
    EXPECT_EQ(OutFileBox().ListCount(), 2U);
}

TEST_F(Replay, HandsNewFilesOverByTheirAbsoluteName) {
    folder.Write("sub/there.txt", "");
    Menus().MakeListNow.Click = [] { ReportNewFile({}); };
    EXPECT_EQ(Play("click MakeListNow\nchoose out.txt\n"
                   "click MakeListNow\nchoose ./sub/../sub//there.txt\n"
                   "click MakeListNow\nchoose nowhere/out\n"
                   "click MakeListNow\nchoose /a/./b/../c.txt\n"
                   "cd sub\nclick MakeListNow\nchoose ../up.txt\n"
                   "click MakeListNow\ncancel\nprint report\n"),
              kRanToItsEnd);
    EXPECT_EQ(WithoutFolder(out.str()),
              "report:  Halvern V0.99   \nreport:  Current Revision V0.99.0055 \n"
              "report: DIR/out.txt\nreport: DIR/sub/there.txt\nreport: DIR/nowhere/out\nreport: /a/c.txt\n"
              "report: DIR/up.txt\nreport: cancelled\n");
}

TEST_F(Replay, AddsADefaultExtensionToANameWithoutOne) {
    Menus().MakeListNow.Click = [] {
        FileDialog dialog;
        dialog.defaultExtension = "dat";
        ReportNewFile(dialog);
    };
    EXPECT_EQ(Play("click MakeListNow\nchoose plot\nclick MakeListNow\nchoose plot.txt\n"
                   "click MakeListNow\nchoose v1.2/plot\nprint report\n"),
              kRanToItsEnd);
    EXPECT_EQ(WithoutFolder(out.str()),
              "report:  Halvern V0.99   \nreport:  Current Revision V0.99.0055 \n"
              "report: DIR/plot.dat\nreport: DIR/plot.txt\nreport: DIR/v1.2/plot.dat\n");
}

TEST_F(Replay, LeavesLinksAloneAndMovesToTheFolderOfTheFile) {
    folder.Write("run7/C1.LST", "");
    std::filesystem::create_directory_symlink("run7", folder.Path() / "latest");
    Menus().MakeListNow.Click = [] { AddLine(ChooseExistingFile({})); };
    EXPECT_EQ(Play("click MakeListNow\nchoose latest/C1.LST\nclick MakeListNow\nchoose C1.LST\nprint report\n"),
              kRanToItsEnd);
    // The first name goes by the link; the folder that the second one counts from is the one that the link leads to.
    EXPECT_EQ(WithoutFolder(out.str()),
              "report:  Halvern V0.99   \nreport:  Current Revision V0.99.0055 \n"
              "report: DIR/latest/C1.LST\nreport: DIR/run7/C1.LST\n");
}

TEST_F(Replay, CountsAPathFromWhereTheScriptHasMovedWhileTheDialogWaits) {
    folder.Write("run7/C1.LST", "");
    Menus().MakeListNow.Click = [] { AddLine(ChooseExistingFile({})); };
    EXPECT_EQ(Play("click MakeListNow\ncd run7\nprint clipboard\nchoose C1.LST\nprint report\n"), kRanToItsEnd);
    EXPECT_EQ(WithoutFolder(out.str()),
              "clipboard: empty\nreport:  Halvern V0.99   \nreport:  Current Revision V0.99.0055 \n"
              "report: DIR/run7/C1.LST\n");
}

TEST_F(Replay, SelectsLinesOfTheReport) {
    EXPECT_EQ(Play("select 1\n"), kRanToItsEnd);
    EXPECT_EQ(SelectedLines(), (std::vector<std::size_t>{1}));
}

TEST_F(Replay, ReplacesTheSelectionByEachNewOne) {
    EXPECT_EQ(Play("select 1\nselect 0 0\n"), kRanToItsEnd);
    EXPECT_EQ(SelectedLines(), (std::vector<std::size_t>{0}));
}

TEST_F(Replay, SelectsAllOrNone) {
    Menus().MakeListNow.Click = [] { AddLine(std::to_string(SelectedLines().size())); };
    EXPECT_EQ(Play("select all\nclick MakeListNow\nselect none\nclick MakeListNow\nprint report\n"), kRanToItsEnd);
    EXPECT_EQ(out.str(), "report:  Halvern V0.99   \nreport:  Current Revision V0.99.0055 \nreport: 2\nreport: 0\n");
}

TEST_F(Replay, KeepsTheSelectionWhileLinesAreAdded) {
    Menus().MakeListNow.Click = [] { AddLine("third"); };
    EXPECT_EQ(Play("select 0 1\nclick MakeListNow\n"), kRanToItsEnd);
    EXPECT_EQ(SelectedLines(), (std::vector<std::size_t>{0, 1}));
}

TEST_F(Replay, GivesWindowsTheirSizeInTwips) {
    EXPECT_EQ(Play("resize keld 12000 8000\n"), kRanToItsEnd);
    EXPECT_EQ(MainForm().Where().width, 12000);
    EXPECT_EQ(MainForm().Where().height, 8000);
    EXPECT_EQ(OutFileBox().Where().width, 11500);
    EXPECT_EQ(OutFileBox().Where().height, 7000);
}

TEST_F(Replay, LetsTheMainWindowSnapBackWhenItIsMadeTooSmall) {
    EXPECT_EQ(Play("resize Keld 100 2147483640\n"), kRanToItsEnd);
    EXPECT_EQ(MainForm().Where().width, 3500);
    EXPECT_EQ(MainForm().Where().height, 2147483640);
}

TEST_F(Replay, PressesButtonsOfAWindowThatIsShown) {
    PlotitForm().TestIt.Click = [] { AddLine("pressed"); };
    Menus().MakeListNow.Click = [] {
        PlotitForm().Show();
        PlotitForm().TestIt.Show();
    };
    EXPECT_EQ(Play("click MakeListNow\nclick testit\nclick PLOTIT.TestIt\n"), kRanToItsEnd);
    EXPECT_EQ(OutFileBox().ListCount(), 4U);
}

TEST_F(Replay, LooksANameUpInTheMainWindowFirst) {
    Menus().MakeListNow.Click = [] {
        PlotitForm().Show();
        PlotitForm().Menu.SetJitterLimits.Show();
        Menus().SetJitterLimits.Enable();
    };
    Menus().SetJitterLimits.Click = [] { AddLine("main window"); };
    PlotitForm().Menu.SetJitterLimits.Click = [] { AddLine("plot window"); };
    EXPECT_EQ(Play("click MakeListNow\nclick SetJitterLimits\nclick Keld.SetJitterLimits\n"
                   "click Plotit.SetJitterLimits\nprint report\n"),
              kRanToItsEnd);
    EXPECT_EQ(out.str(),
              "report:  Halvern V0.99   \nreport:  Current Revision V0.99.0055 \n"
              "report: main window\nreport: main window\nreport: plot window\n");
}

TEST_F(Replay, SelectsAPrinterByItsIndex) {
    Menus().MakeListNow.Click = [] { Menus().Prn2Array(1).Click = [] { AddLine("chosen"); }; };
    EXPECT_EQ(Play("click MakeListNow\nclick prn2array(1)\n"), kRanToItsEnd);
    EXPECT_EQ(OutFileBox().Line(OutFileBox().ListCount() - 1), "chosen");
}

TEST_F(Replay, TellsOfLostOutputWhenTheUserEndsTheProgram) {
    folder.Write("a", test::ScanFile{}.Text());
    folder.Write("same.LST", test::ListText({"a", "a", "a", "a"}));
    out.setstate(std::ios::badbit);
    EXPECT_EQ(Play("click GetListNow\nchoose same.LST\nanswer no"), kLineFailed);
    EXPECT_NE(err.str().find("the output can't be written"), std::string::npos);
}

TEST_F(Replay, StopsWhenItsOutputCantBeWritten) {
    out.setstate(std::ios::badbit);
    EXPECT_EQ(Play("print report\n"), kLineFailed);
    EXPECT_EQ(err.str(), "test.script:1: the output can't be written\n");
}

struct Refused {
    const char* name;
    const char* script;  // its last line is the one that is refused
    const char* reason;
};

void PrintTo(const Refused& refused, std::ostream* stream) { *stream << refused.name; }

class RefusedLine : public Replay, public ::testing::WithParamInterface<Refused> {};

TEST_P(RefusedLine, EndsTheReplayWithItsReason) {
    folder.Write("empty.LST", "");
    folder.Write("folder/file", "");
    const std::string script = GetParam().script;
    EXPECT_EQ(Play(script), kLineFailed);
    const auto line = std::count(script.begin(), script.end(), '\n') + 1;
    EXPECT_EQ(err.str(), "test.script:" + std::to_string(line) + ": " + GetParam().reason + "\n");
}

// An empty list file brings up a box with OK alone, Exit one of Yes and No.
constexpr Refused kRefused[] = {
    {"unknown_event", "wave", "no such event: wave"},
    {"event_in_capitals", "Click AllDone", "no such event: Click"},
    {"quote_left_open", "cd \"folder", "a closing quote is missing"},

    {"unknown_control", "click Foo", "no such control: Foo"},
    {"unknown_control_of_window", "click Keld.Command1", "no such control: Keld.Command1"},
    {"unknown_element", "click Prn2Array(2)", "no such control: Prn2Array(2)"},
    {"unknown_window", "click Foo.KeldIt", "no such window: Foo"},
    {"window_as_control", "click Keld", "no such control: Keld"},
    {"window_that_has_gone", "click splash1.Label1", "Splash1 is not shown"},
    {"disabled", "click keldit", "KeldIt is disabled"},
    {"hidden", "click NoJitterCorrection", "NoJitterCorrection is not shown"},
    {"hidden_and_disabled", "click SavePlots", "SavePlots is not shown"},
    {"under_disabled", "click RawDataOut", "OutputMenu is disabled"},
    {"far_under_disabled", "click PlotSvsG", "PlotDummy1 is disabled"},
    {"in_hidden_window", "click ShowEm", "Plotit is not shown"},
    {"button_in_hidden_window", "click Plotit.Command1", "Plotit is not shown"},
    {"separator", "click spacer0", "spacer0 is a separator"},
    {"separator_of_array", "click Prn2Array(0)", "Prn2Array(0) is a separator"},
    {"submenu", "click FileDummy", "FileDummy only opens a submenu"},
    {"submenu_in_menu", "click dummy_men", "dummy_men only opens a submenu"},
    {"list", "click OutFileBox", "OutFileBox can't be clicked"},
    {"click_nothing", "click", "expected: click NAME"},
    {"click_two", "click AllDone KeldIt", "expected: click NAME"},

    {"choose_without_dialog", "choose empty.LST", "no file dialog is open"},
    {"cancel_without_dialog", "cancel", "no file dialog is open"},
    {"choose_missing", "click GetListNow\nchoose none.LST", "no such file: none.LST"},
    {"choose_folder", "click GetListNow\nchoose folder", "no such file: folder"},
    {"choose_empty_name", "click GetListNow\nchoose \"\"", "no such file: "},
    {"choose_nothing", "click GetListNow\nchoose", "expected: choose PATH"},
    {"cancel_something", "click GetListNow\ncancel all", "expected: cancel"},
    {"click_in_dialog", "click GetListNow\nclick AllDone", "a file dialog is open"},
    {"answer_in_dialog", "click GetListNow\nanswer ok", "a file dialog is open"},
    {"select_in_dialog", "click GetListNow\nselect all", "a file dialog is open"},
    {"close_in_dialog", "click GetListNow\nclose Keld", "a file dialog is open"},
    {"resize_in_dialog", "click GetListNow\nresize Keld 9000 9000", "a file dialog is open"},
    {"screen_in_dialog", "click GetListNow\nscreen 800 600", "a file dialog is open"},
    {"dialog_after_cd", "click GetListNow\ncd folder\nprint menus\nclick GetListNow", "a file dialog is open"},

    {"answer_without_box", "answer yes", "no message box is open"},
    {"answer_ok_without_box", "answer ok", "no message box is open"},
    {"answer_ok_to_yes_no", "click AllDone\nanswer ok", "the message box asks for yes or no"},
    {"answer_yes_to_ok", "click GetListNow\nchoose empty.LST\nanswer yes", "the message box has OK alone"},
    {"answer_no_to_ok", "click GetListNow\nchoose empty.LST\nanswer no", "the message box has OK alone"},
    {"second_answer", "click GetListNow\nchoose empty.LST\nanswer ok\nanswer ok", "no message box is open"},
    {"late_answer", "click GetListNow\nchoose empty.LST\nprint clipboard\nanswer ok", "no message box is open"},
    {"answer_otherwise", "click AllDone\nanswer maybe", "no such answer: maybe"},
    {"answer_nothing", "click AllDone\nanswer", "expected: answer ok|yes|no"},
    {"click_in_box", "click AllDone\nclick AllDone", "a message box is open"},
    {"choose_in_box", "click AllDone\nchoose empty.LST", "a message box is open"},
    {"close_in_box", "close Keld\nclose Keld", "a message box is open"},

    {"select_under_dialog", "click MakeListNow\nselect 0", "the dialog GenerateFile is open"},
    {"type_where_a_click_fills", "click MakeListNow\ntype Text3 00001.RA1", "Text3 is filled by a click"},
    {"select_line_behind_end", "select 0 2", "no such line of the report: 2"},
    {"select_negative", "select -1", "no such line of the report: -1"},
    {"select_no_number", "select first", "no such line of the report: first"},
    {"select_part_of_number", "select 1.0", "no such line of the report: 1.0"},
    {"select_all_and_more", "select all 0", "no such line of the report: all"},
    {"select_huge", "select 99999999999", "no such line of the report: 99999999999"},
    {"select_nothing", "select", "expected: select N ...|all|none"},

    {"close_plot_window_hidden", "close Plotit", "Plotit is not shown"},
    {"close_splash", "close Splash1", "Splash1 is not shown"},
    {"close_unknown", "close Foo", "no such window: Foo"},
    {"close_nothing", "close", "expected: close WINDOW"},
    {"close_then_more", "close Keld\nanswer yes\nprint report", "the program has ended"},
    {"bad_line_after_end", "close Keld\nanswer yes\n\ncd \"", "the program has ended"},

    {"resize_hidden", "resize Plotit 9000 9000", "Plotit is not shown"},
    {"resize_unknown", "resize Foo 9000 9000", "no such window: Foo"},
    {"resize_to_nothing", "resize Keld 0 9000", "not a width in twips: 0"},
    {"resize_below_nothing", "resize Keld 9000 -1", "not a height in twips: -1"},
    {"resize_no_number", "resize Keld 9000 tall", "not a height in twips: tall"},
    {"resize_half", "resize Keld 9000", "expected: resize WINDOW WIDTH HEIGHT"},

    {"cd_missing", "cd none", "no such folder: none"},
    {"cd_file", "cd empty.LST", "no such folder: empty.LST"},
    {"cd_nothing", "cd", "expected: cd DIR"},

    {"screen_late", "print clipboard\nscreen 800 600", "screen comes before anything else"},
    {"screen_twice", "screen 800 600\nscreen 800 600", "screen comes before anything else"},
    {"screen_no_number", "screen wide 600", "not a width in pixels: wide"},
    {"screen_too_high", "screen 800 143165577", "not a height in pixels: 143165577"},
    {"screen_otherwise", "screen 800 600 printer", "not noprinter: printer"},
    {"no_printer_to_print", "screen 800 600 noprinter\nclick PrintFitting", "PrintDummy1 is disabled"},
    {"no_printer_to_print_a_selection", "screen 800 600 noprinter\nclick PrnSelect", "PrintDummy1 is disabled"},
    {"no_printer_to_copy", "screen 800 600 noprinter\nclick CopySelect", "PrintDummy1 is disabled"},
    {"screen_half", "screen 800", "expected: screen WIDTH HEIGHT [noprinter]"},

    {"print_dialog", "print dialog", "no dialog is open"},
    {"print_dialog_in_box", "click AllDone\nprint dialog", "no dialog is open"},
    {"print_otherwise", "print everything", "nothing to print by that name: everything"},
    {"print_nothing", "print", "expected: print report|menus|plot|dialog|clipboard|printer"},
};

INSTANTIATE_TEST_SUITE_P(Replay, RefusedLine, ::testing::ValuesIn(kRefused),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(Replay, RefusesAnItemThatHasNoCommand) {
    Menus().MakeListNow.Click = nullptr;
    EXPECT_EQ(Play("click makelistnow"), kLineFailed);
    EXPECT_EQ(err.str(), "test.script:1: MakeListNow has no command\n");
}

TEST_F(Replay, RefusesToCloseThePlotWindowWhenItIsShownToo) {
    Menus().MakeListNow.Click = [] { PlotitForm().Show(); };
    EXPECT_EQ(Play("click MakeListNow\nclose plotit"), kLineFailed);
    EXPECT_EQ(err.str(), "test.script:2: Plotit can't be closed by its frame\n");
}

TEST_F(Replay, RefusesToClickInAWindowThatIsDisabled) {
    Menus().MakeListNow.Click = [] { MainForm().Disable(); };
    EXPECT_EQ(Play("click MakeListNow\nclick AllDone"), kLineFailed);
    EXPECT_EQ(err.str(), "test.script:2: Keld is disabled\n");
}

TEST_F(Replay, RefusesToClickAButtonThatIsHidden) {
    Menus().MakeListNow.Click = [] { PlotitForm().Show(); };
    EXPECT_EQ(Play("click MakeListNow\nclick Command1"), kLineFailed);
    EXPECT_EQ(err.str(), "test.script:2: Command1 is not shown\n");
}

TEST_F(Replay, RefusesTheNameOfANewFileThatNamesNone) {
    Menus().MakeListNow.Click = [] { ReportNewFile({}); };
    EXPECT_EQ(Play("click MakeListNow\nchoose out/"), kLineFailed);
    EXPECT_EQ(err.str(), "test.script:2: no name of a file: out/\n");
}

TEST_F(Replay, RefusesARelativePathWhenTheCurrentDirectoryHasGone) {
    std::filesystem::create_directory(folder.Path() / "gone");
    Menus().MakeListNow.Click = [] {
        std::filesystem::remove("../gone");
        ReportNewFile({});
    };
    EXPECT_EQ(Play("cd gone\nclick MakeListNow\nchoose /out.txt\nclick MakeListNow\nchoose out.txt"), kLineFailed);
    EXPECT_EQ(err.str(), "test.script:5: the current directory is gone\n");
    EXPECT_EQ(OutFileBox().Line(2), "/out.txt");
}

}  // namespace
}  // namespace halvern::replay
