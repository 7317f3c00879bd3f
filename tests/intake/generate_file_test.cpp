#include "intake/generate_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "intake/data_set_load.h"
#include "store/analysis_store.h"
#include "store/files.h"
#include "store/menus.h"
#include "store/report.h"
#include "support/data_files.h"
#include "support/failure.h"
#include "support/session.h"

namespace halvern {
namespace {

using Lines = std::vector<std::string>;

/// The dialog over a folder of empty scan files.
struct ListGenerator : ::testing::Test, test::Session {
    AnalysisStore& S = Store();

    std::string PathOf(const std::string& name) const { return (folder.Path() / name).string(); }
    void WriteScans(std::initializer_list<const char*> names) {
        for (const char* name : names)
            folder.Write(name, "");
    }
    /// What the user does in one opening of the dialog, which is closed by its button at the end if it still is open.
    void Use(const std::function<void(GenerateFile&)>& act) {
        desktop.dialogs.push_back([&](Form& form) {
            auto& dialog = dynamic_cast<GenerateFile&>(form);
            act(dialog);
            if (dialog.IsLoaded())
                dialog.Command1.Click();
        });
        Menus().MakeListNow.Click();
    }
    void ChooseFirst(GenerateFile& dialog, const std::string& name) {
        desktop.choices.push_back(PathOf(name));
        dialog.Text3.Click();
    }
    void Generate(const std::string& first, int files, int increment) {
        Use([&](GenerateFile& dialog) {
            ChooseFirst(dialog, first);
            dialog.UpDown2.SetValue(files);
            dialog.UpDown1.SetValue(increment);
            dialog.OKMakeFile.Click();
        });
    }
    Lines List(const std::string& name) const {
        std::ifstream in(folder.Path() / name, std::ios::binary);
        Lines lines;
        for (std::string line; std::getline(in, line);) {
            EXPECT_TRUE(line.ends_with('\r')) << line;
            line.pop_back();
            lines.push_back(line.starts_with(folder.Path().string()) ? line.substr(folder.Path().string().size() + 1)
                                                                     : line);
        }
        return lines;
    }
    static Lines MenuStates() {
        Lines states;
        for (const auto& entry : MainMenuBar().Entries()) {
            const MenuItem& item = *entry.item;
            states.push_back(item.Caption() + (item.IsEnabled() ? " enabled" : " disabled") +
                             (item.IsShown() ? " shown" : " hidden") + (item.IsTicked() ? " ticked" : ""));
        }
        return states;
    }
    static std::string ReportEnd(std::size_t back = 0) {
        const ListBox& report = OutFileBox();
        return report.Line(report.ListCount() - 1 - back);
    }
};

TEST_F(ListGenerator, StartsWithItsTexts) {
    Use([](GenerateFile& dialog) {
        EXPECT_EQ(dialog.Caption(), "Generate List File");
        EXPECT_EQ(dialog.Text3.Text(), "{Click Here To Get FileName}");
        EXPECT_EQ(dialog.Text2.Text(), "200");
        EXPECT_EQ(dialog.UpDown2.Value(), 200);
        EXPECT_EQ(dialog.UpDown2.Minimum(), 4);
        EXPECT_EQ(dialog.UpDown2.Maximum(), 500);
        EXPECT_EQ(dialog.Text1.Text(), "1");
        EXPECT_EQ(dialog.UpDown1.Value(), 1);
        EXPECT_EQ(dialog.UpDown1.Minimum(), 1);
        EXPECT_EQ(dialog.UpDown1.Maximum(), 249);
        EXPECT_FALSE(dialog.OKMakeFile.IsEnabled());
        EXPECT_TRUE(dialog.Command1.IsEnabled());
    });
}

TEST_F(ListGenerator, AsksForTheFirstFile) {
    WriteScans({"00001.IP1"});
    Use([&](GenerateFile& dialog) {
        ChooseFirst(dialog, "00001.IP1");
        EXPECT_TRUE(dialog.OKMakeFile.IsEnabled());
        EXPECT_EQ(dialog.Text3.Text(), "..." + PathOf("00001.IP1").substr(PathOf("00001.IP1").size() - 20));
    });
    EXPECT_EQ(desktop.fileDialogs[0].title, "Get Data File");
    EXPECT_EQ(desktop.fileDialogs[0].filter, " Data (*.IP*;*.RA*;*.*)| *.IP*;*.RA*;*.*");
    EXPECT_EQ(desktop.fileDialogs[0].flags, 6144);
    EXPECT_EQ(desktop.fileDialogs[0].maxFileSize, 127);
    EXPECT_EQ(S.FileNames(0).Name(), PathOf("00001.IP1"));
}

TEST_F(ListGenerator, ShowsAShortPathAsAWhole) {
    Use([&](GenerateFile& dialog) {
        desktop.choices.push_back("/srv/cell-12/00001.IP1 ");
        dialog.Text3.Click();
        EXPECT_EQ(dialog.Text3.Text(), "/srv/cell-12/00001.IP1");
        desktop.choices.push_back("/srv/cell-123/00001.IP1");
        dialog.Text3.Click();
        EXPECT_EQ(dialog.Text3.Text(), "/srv/cell-123/00001.IP1");
        desktop.choices.push_back("/srv/cell-1234/00001.IP1");
        dialog.Text3.Click();
        EXPECT_EQ(dialog.Text3.Text(), ".../cell-1234/00001.IP1");
        // Characters count, not bytes.
        desktop.choices.push_back("/srv/Zelle-\xC3\xA4\xC3\xB6/00001.IP1");
        dialog.Text3.Click();
        EXPECT_EQ(dialog.Text3.Text(), "/srv/Zelle-\xC3\xA4\xC3\xB6/00001.IP1");
    });
}

TEST_F(ListGenerator, KeepsTheFirstFileAfterACancel) {
    WriteScans({"00001.IP1"});
    Use([&](GenerateFile& dialog) {
        desktop.choices.push_back(std::nullopt);
        dialog.Text3.Click();
        EXPECT_FALSE(dialog.OKMakeFile.IsEnabled());
        EXPECT_EQ(dialog.Text3.Text(), "{Click Here To Get FileName}");
        ChooseFirst(dialog, "00001.IP1");
        const std::string shown = dialog.Text3.Text();
        desktop.choices.push_back(std::nullopt);
        dialog.Text3.Click();
        EXPECT_TRUE(dialog.OKMakeFile.IsEnabled());
        EXPECT_EQ(dialog.Text3.Text(), shown);
    });
    EXPECT_EQ(S.FileNames(0).Name(), PathOf("00001.IP1"));
}

TEST_F(ListGenerator, LeavesTheFirstFileUnchosenInEachNewOpening) {
    WriteScans({"00001.IP1"});
    Use([&](GenerateFile& dialog) { ChooseFirst(dialog, "00001.IP1"); });
    Use([](GenerateFile& dialog) { EXPECT_FALSE(dialog.OKMakeFile.IsEnabled()); });
}

TEST_F(ListGenerator, ListsEveryNthFileOfTheSeries) {
    WriteScans({"00001.RA3", "00002.RA3", "00003.RA3", "00004.RA3", "00005.RA3", "00007.RA3", "00009.RA3"});
    Generate("00001.RA3", 4, 2);
    EXPECT_EQ(List("C3_1-7_I2.LST"), (Lines{"00001.RA3", "00003.RA3", "00005.RA3", "00007.RA3"}));
    EXPECT_EQ(ReportEnd(1), "A Total of 4 files were found.");
    EXPECT_EQ(ReportEnd(), "New ListFile saved as C3_1-7_I2.LST");
    EXPECT_EQ(S.FoundFiles, 4);
}

TEST_F(ListGenerator, PassesOverGapsAndNamesTheLastFileFound) {
    WriteScans({"run_00023.IP1", "run_00025.IP1", "run_00222.IP1", "run_00223.IP1"});
    Generate("run_00023.IP1", 200, 1);
    EXPECT_EQ(List("C1_23-222_I1.LST"), (Lines{"run_00023.IP1", "run_00025.IP1", "run_00222.IP1"}));
}

TEST_F(ListGenerator, ListsTheFirstFileAloneWhereThereIsNoOther) {
    WriteScans({"00005.IP2"});
    Generate("00005.IP2", 10, 1);
    EXPECT_EQ(List("C2_5-5_I1.LST"), (Lines{"00005.IP2"}));
    EXPECT_EQ(ReportEnd(1), "A Total of 1 files were found.");
}

TEST_F(ListGenerator, HasNoDigitForANumberOfZero) {
    WriteScans({"00000.IP1"});
    Generate("00000.IP1", 4, 1);
    EXPECT_EQ(List("C1_-_I1.LST"), (Lines{"00000.IP1"}));
}

TEST_F(ListGenerator, WritesNumbersOfFiveDigitsOrMore) {
    WriteScans({"32500.IP1", "32650.IP1", "100000.IP1"});
    // The number of the last file goes into the list's name by its last five digits, which are zeros here.
    Generate("32500.IP1", 451, 150);
    EXPECT_EQ(List("C1_32500-_I150.LST"), (Lines{"32500.IP1", "32650.IP1", "100000.IP1"}));
}

TEST_F(ListGenerator, EndsTheProgramWhereTheLastFileHasANumberAbove32767) {
    WriteScans({"32760.IP1", "33009.IP1"});
    Use([&](GenerateFile& dialog) {
        ChooseFirst(dialog, "32760.IP1");
        dialog.UpDown1.SetValue(249);
        EXPECT_FAILURE(6, dialog.OKMakeFile.Click());
    });
    EXPECT_EQ(ReportEnd(), "A Total of 2 files were found.");
}

TEST_F(ListGenerator, KeepsAnExistingListIfTheUserSaysNo) {
    WriteScans({"00001.RA1", "00002.RA1"});
    folder.Write("C1_1-2_I1.LST", "mine");
    desktop.answers.push_back(Answer::kNo);
    Use([&](GenerateFile& dialog) {
        ChooseFirst(dialog, "00001.RA1");
        dialog.OKMakeFile.Click();
        EXPECT_TRUE(dialog.IsLoaded());
    });
    const auto& question = desktop.messages.back();
    EXPECT_EQ(question.text, "C1_1-2_I1.LST already exists! Replace File?");
    EXPECT_EQ(question.title, "Replace File?");
    EXPECT_EQ(question.style, 276);
    EXPECT_EQ(ReportEnd(), "Old file exists!  C1_1-2_I1.LST NOT Replaced!");
    EXPECT_EQ(test::ContentOf("C1_1-2_I1.LST"), "mine");
}

TEST_F(ListGenerator, ReplacesAnExistingListIfTheUserSaysYesAndCloses) {
    WriteScans({"00001.RA1", "00002.RA1"});
    folder.Write("C1_1-2_I1.LST", "an older and longer list\r\nof several lines\r\nand more\r\n");
    desktop.answers.push_back(Answer::kYes);
    Use([&](GenerateFile& dialog) {
        ChooseFirst(dialog, "00001.RA1");
        dialog.OKMakeFile.Click();
        EXPECT_FALSE(dialog.IsLoaded());
    });
    EXPECT_EQ(List("C1_1-2_I1.LST"), (Lines{"00001.RA1", "00002.RA1"}));
    EXPECT_EQ(ReportEnd(1), "Old ListFile deleted!");
    EXPECT_EQ(ReportEnd(), "New ListFile saved :: C1_1-2_I1.LST");
}

TEST_F(ListGenerator, StaysOpenAfterAFirstSaving) {
    WriteScans({"00001.RA1", "00002.RA1"});
    Use([&](GenerateFile& dialog) {
        ChooseFirst(dialog, "00001.RA1");
        dialog.OKMakeFile.Click();
        EXPECT_TRUE(dialog.IsLoaded());
        EXPECT_TRUE(dialog.OKMakeFile.IsEnabled());
    });
}

TEST_F(ListGenerator, SavesInTheFolderOfTheData) {
    std::filesystem::create_directory(folder.Path() / "cell");
    WriteScans({"cell/00001.RA1"});
    Generate("cell/00001.RA1", 4, 1);
    EXPECT_TRUE(std::filesystem::exists(folder.Path() / "cell" / "C1_1-1_I1.LST"));
}

struct Typed {
    const char* text;
    int value;
};

TEST_F(ListGenerator, TakesTypedNumbersToTheSpinControls) {
    Use([](GenerateFile& dialog) {
        for (const Typed& typed :
             {Typed{"17", 17}, {" 500 ", 500}, {"3.5", 4}, {"3.1", 4}, {"500.9", 500}, {"1e2", 100}}) {
            dialog.Text2.Type(typed.text);
            EXPECT_TRUE(dialog.Text2.Leave());
            EXPECT_EQ(dialog.UpDown2.Value(), typed.value) << typed.text;
            EXPECT_EQ(dialog.Text2.Text(), std::to_string(typed.value));
        }
        for (const Typed& typed : {Typed{"2", 2}, {"249", 249}, {"249.6", 249}, {"0.2", 1}, {"2.5", 2}, {"3.5", 4}}) {
            dialog.Text1.Type(typed.text);
            EXPECT_TRUE(dialog.Text1.Leave());
            EXPECT_EQ(dialog.UpDown1.Value(), typed.value) << typed.text;
        }
    });
    EXPECT_TRUE(desktop.messages.empty());
}

TEST_F(ListGenerator, RefusesTypedNumbersAndShowsTheOldOneBehindABlank) {
    Use([&](GenerateFile& dialog) {
        for (const char* text : {"3", "501", "", "abc", "-5", "12x"}) {
            dialog.Text2.Type(text);
            dialog.Text2.Leave();
            EXPECT_EQ(dialog.Text2.Text(), " 200") << text;
            EXPECT_EQ(dialog.UpDown2.Value(), 200);
            EXPECT_TRUE(dialog.Text2.WantsFocus());
            dialog.Text2.FocusGiven();
            EXPECT_EQ(desktop.messages.back().text, "The value for the number of files is invalid or out of range!");
            EXPECT_EQ(desktop.messages.back().title, "Data Entry Error");
            EXPECT_EQ(desktop.messages.back().style, 48);
        }
        dialog.UpDown2.StepUp();
        EXPECT_EQ(dialog.Text2.Text(), "201");
        for (const char* text : {"0", "250", "1,5"}) {
            dialog.Text1.Type(text);
            dialog.Text1.Leave();
            EXPECT_EQ(dialog.Text1.Text(), " 1") << text;
            EXPECT_EQ(desktop.messages.back().text, "The value for the file increment is invalid or out of range!");
            EXPECT_EQ(desktop.messages.back().title, "Data Entry Error");
        }
    });
}

TEST_F(ListGenerator, EndsTheProgramWhereNoNumberStandsBeforeTheFirstDot) {
    Use([&](GenerateFile& dialog) {
        for (const char* path : {"/a.IP1", "/noextension", "/1234",
                                 "/\xC3\xA9"
                                 "12.IP1"}) {
            desktop.choices.push_back(path);
            dialog.Text3.Click();
            EXPECT_FAILURE(5, dialog.OKMakeFile.Click());
        }
        desktop.choices.push_back("/x40000.IP1");
        dialog.Text3.Click();
        EXPECT_FAILURE(6, dialog.OKMakeFile.Click());
    });
}

TEST_F(ListGenerator, CountsCharactersAndNotBytesBeforeTheDot) {
    std::filesystem::create_directory(folder.Path() / "x1234\xC3\xA9.run");
    WriteScans({"x1234\xC3\xA9.run/00001.RA1"});
    Generate("x1234\xC3\xA9.run/00001.RA1", 4, 1);
    // Five characters stand before the dot, four digits and a letter with its accent, which ends the number.
    EXPECT_EQ(ReportEnd(), "New ListFile saved as C1_1234-1234_I1.LST");
}

TEST_F(ListGenerator, FindsOnlyTheFirstFileBelowAFolderWithADot) {
    std::filesystem::create_directory(folder.Path() / "00007.run");
    WriteScans({"00007.run/00001.RA1", "00007.run/00002.RA1"});
    Generate("00007.run/00001.RA1", 4, 1);
    EXPECT_EQ(ReportEnd(1), "A Total of 1 files were found.");
    EXPECT_EQ(List("00007.run/C1_7-7_I1.LST"), (Lines{"00007.run/00001.RA1"}));
}

TEST_F(ListGenerator, ChangesNoMenuAndNoResultOfADataSetThatIsLoaded) {
    const std::string list = test::WriteDataSet(folder, 6);
    Load(list);
    const std::string first(S.FileNames(0).Name());
    const float radius = S.ScanData(3, 1, 2);
    const Lines before = MenuStates();
    WriteScans({"00050.RA1", "00051.RA1"});
    Generate("00050.RA1", 4, 1);
    EXPECT_EQ(S.NumFiles, 6);
    EXPECT_EQ(S.ScanData(3, 1, 2), radius);
    EXPECT_NE(S.FileNames(0).Name(), first);
    EXPECT_EQ(MenuStates(), before);
}

TEST_F(ListGenerator, ChangesNoMenuWithoutADataSet) {
    WriteScans({"00050.RA1", "00051.RA1"});
    const Lines before = MenuStates();
    Generate("00050.RA1", 4, 1);
    EXPECT_EQ(MenuStates(), before);
}

TEST_F(ListGenerator, WritesAListThatLoads) {
    test::WriteDataSet(folder, 6);
    Generate("00001.RA1", 10, 1);
    Load(PathOf("C1_1-6_I1.LST"));
    EXPECT_EQ(S.NumFiles, 6);
    EXPECT_TRUE(Menus().dummy_men.IsEnabled());
}

TEST_F(ListGenerator, MovesTheReportOnByFiveLines) {
    for (int i = 0; i < 20; ++i)
        AddLine("line");
    OutFileBox().SetTopIndex(3);
    WriteScans({"00001.RA1"});
    Generate("00001.RA1", 4, 1);
    EXPECT_EQ(OutFileBox().TopIndex(), 8U);
}

}  // namespace
}  // namespace halvern
