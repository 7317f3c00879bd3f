#include "store/files.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "store/input_file.h"
#include "support/data_files.h"
#include "support/failure.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

using Lines = std::vector<std::string>;

struct Files : ::testing::Test {
    test::DataFolder folder;
};

Lines LinesOf(std::string_view name) {
    const std::int16_t number = FreeFile();
    OpenForInput(number, name);
    Lines lines;
    while (!AtEnd(number))
        lines.emplace_back(ReadLine(number));
    Close(number);
    return lines;
}

struct EndsCase {
    const char* text;
    Lines lines;
};

TEST_F(Files, LinesEndWithLineFeedOrCarriageReturnAndLineFeedOrTheFile) {
    const EndsCase kCases[] = {
        {"", {}},         {"a", {"a"}},           {"a\n", {"a"}},
        {"a\r\n", {"a"}}, {"a\r\nb", {"a", "b"}}, {"a\nb\r\n\r\n", {"a", "b", ""}},
        {"\n", {""}},     {"a\rb\n", {"a\rb"}},   {"a\r", {"a\r"}},
    };
    for (const auto& c : kCases) {
        folder.Write("lines.txt", c.text);
        EXPECT_EQ(LinesOf("lines.txt"), c.lines) << testing::PrintToString(c.text);
    }
}

TEST_F(Files, LinesOfAFileLargerThanTheBufferComeWhole) {
    std::string text;
    Lines lines;
    for (int i = 0; i < 20000; ++i) {
        lines.push_back(std::to_string(i) + std::string(static_cast<std::size_t>(i % 37), 'x'));
        text += lines.back() + (i % 2 == 0 ? "\n" : "\r\n");
    }
    folder.Write("large.txt", text);
    EXPECT_EQ(LinesOf("large.txt"), lines);
}

TEST_F(Files, ALineBeyondTheLongestIsCutAndTheNextIsWhole) {
    folder.Write("long.txt", std::string(300000, 'x') + "\nnext\n" + std::string(200000, 'y'));
    const Lines lines = LinesOf("long.txt");
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0], std::string(InputFile::kLongestLine, 'x'));
    EXPECT_EQ(lines[1], "next");
    EXPECT_EQ(lines[2], std::string(InputFile::kLongestLine, 'y'));
}

TEST_F(Files, LinesRoundTheSizeOfTheBufferKeepTheirBounds) {
    for (const std::size_t size : {std::size_t{65534}, std::size_t{65535}, std::size_t{65536}, std::size_t{65537}}) {
        folder.Write("edge.txt", std::string(size, 'x') + "\nnext\n");
        const Lines lines = LinesOf("edge.txt");
        ASSERT_EQ(lines.size(), 2U) << size;
        EXPECT_EQ(lines[0].size(), std::min(size, InputFile::kLongestLine));
        EXPECT_EQ(lines[1], "next");
    }
}

TEST_F(Files, AFileThatGrowsWhileItIsReadIsReadOn) {
    folder.Write("growing.txt", "a\n");
    OpenForInput(1, "growing.txt");
    EXPECT_EQ(ReadLine(1), "a");
    EXPECT_TRUE(AtEnd(1));
    std::ofstream("growing.txt", std::ios::app) << "a much longer line\n";
    EXPECT_FALSE(AtEnd(1));
    EXPECT_EQ(ReadLine(1), "a much longer line");
    Close(1);
}

TEST_F(Files, ReadingPastTheEndFails) {
    folder.Write("one.txt", "a");
    OpenForInput(1, "one.txt");
    EXPECT_EQ(ReadLine(1), "a");
    EXPECT_FAILURE(62, ReadLine(1));
    EXPECT_TRUE(AtEnd(1));
}

TEST_F(Files, NumbersAreTakenFromTheSmallestAndGivenBackByClose) {
    folder.Write("a.txt", "");
    EXPECT_EQ(FreeFile(), 1);
    OpenForInput(1, "a.txt");
    OpenForInput(FreeFile(), "a.txt");
    EXPECT_EQ(FreeFile(), 3);
    Close(1);
    EXPECT_EQ(FreeFile(), 1);
    EXPECT_FAILURE(55, OpenForInput(2, "a.txt"));
    EXPECT_FAILURE(52, OpenForInput(0, "a.txt"));
    EXPECT_FAILURE(52, OpenForInput(512, "a.txt"));
    EXPECT_FAILURE(52, Close(1));
    EXPECT_FAILURE(52, AtEnd(1));
    EXPECT_FAILURE(52, ReadLine(7));
}

TEST_F(Files, FiveHundredAndElevenCanBeOpenAtOnce) {
    // The usual limit of a session is 1024 files; a smaller one is raised as far as the system allows.
    rlimit limit{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
    ASSERT_GE(limit.rlim_max, 1024U);
    limit.rlim_cur = 256;
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);

    folder.Write("a.txt", "text\n");
    for (int i = 1; i <= kMostOpenFiles; ++i)
        OpenForInput(FreeFile(), "a.txt");
    EXPECT_EQ(ReadLine(1), "text");
    EXPECT_EQ(ReadLine(kMostOpenFiles), "text");
    EXPECT_FAILURE(67, FreeFile());
}

TEST_F(Files, WhatCannotBeOpenedFailsWithItsReason) {
    std::filesystem::create_directory("folder");
    folder.Write("a.txt", "");
    ASSERT_EQ(::mkfifo("pipe", 0600), 0);
    EXPECT_FAILURE(53, OpenForInput(1, "missing.txt"));
    EXPECT_FAILURE(53, OpenForInput(1, ""));
    EXPECT_FAILURE(53, OpenForInput(1, std::string_view("a.txt\0b", 7)));
    EXPECT_FAILURE(75, OpenForInput(1, "folder"));
    EXPECT_FAILURE(75, OpenForInput(1, "pipe"));
    EXPECT_FAILURE(76, OpenForInput(1, "a.txt/b.txt"));
    EXPECT_EQ(FreeFile(), 1) << "a number that nothing was opened with stays free";
}

TEST_F(Files, BlanksArePartOfAPath) {
    folder.Write(" b.txt ", "blanks at both ends");
    EXPECT_EQ(LinesOf(" b.txt "), Lines{"blanks at both ends"});
    EXPECT_FAILURE(53, OpenForInput(1, "b.txt"));
    EXPECT_FAILURE(53, OpenForInput(1, " b.txt"));
}

TEST_F(Files, OnlyRegularFilesAndLinksToThemExist) {
    folder.Write("a.txt", "");
    folder.Write("\xFF\xFE.txt", "");
    std::filesystem::create_directory("folder");
    std::filesystem::create_symlink("a.txt", "link");
    std::filesystem::create_symlink("missing", "dangling");
    std::filesystem::create_symlink("folder", "folder-link");
    ASSERT_EQ(::mkfifo("pipe", 0600), 0);
    EXPECT_TRUE(FileExists("a.txt"));
    EXPECT_TRUE(FileExists("\xFF\xFE.txt"));
    EXPECT_TRUE(FileExists("link"));
    EXPECT_TRUE(FileExists(folder.Path().string() + "/a.txt"));
    for (const std::string_view name : {"", " ", "missing", "folder", ".", "folder-link", "dangling", "pipe", "*.txt",
                                        "?.txt", " a.txt", "a.txt ", "a.txt/"})
        EXPECT_FALSE(FileExists(name)) << testing::PrintToString(name);
    EXPECT_FALSE(FileExists(std::string_view("a.txt\0", 6)));
    EXPECT_FALSE(FileExists(std::string(5000, 'x')));
}

TEST_F(Files, ChoosingAFileMovesTheCurrentFolderToItsOwn) {
    test::TestDesktop desktop;
    const std::string path = folder.Write("run 7/a.LST", "");
    desktop.choices = {path, std::nullopt};
    EXPECT_EQ(ChooseExistingFile({}), path);
    EXPECT_EQ(CurrentFolder(), folder.Path().string() + "/run 7/");
    EXPECT_FAILURE(32755, ChooseExistingFile({}));
    EXPECT_EQ(CurrentFolder(), folder.Path().string() + "/run 7/");
}

TEST_F(Files, TheCurrentFolderMayHaveBeenRemoved) {
    std::filesystem::create_directory("gone");
    std::filesystem::current_path("gone");
    std::filesystem::remove(folder.Path() / "gone");
    EXPECT_EQ(CurrentFolder(), "/");
}

TEST_F(Files, TheCurrentFolderEndsInOneSlash) {
    std::filesystem::current_path("/");
    EXPECT_EQ(CurrentFolder(), "/");
}

TEST_F(Files, AFolderThatCannotBeEnteredFailsWithItsReason) {
    folder.Write("file", "");
    EXPECT_FAILURE(76, ChangeFolder((folder.Path() / "missing").string()));
    EXPECT_FAILURE(76, ChangeFolder((folder.Path() / "file").string()));
    EXPECT_EQ(CurrentFolder(), folder.Path().string() + "/");
}

TEST_F(Files, OnlyAFileThatIsThereCanBeRemoved) {
    folder.Write("file", "");
    RemoveFile("file");
    EXPECT_FALSE(FileExists("file"));
    EXPECT_FAILURE(53, RemoveFile("file"));
}

}  // namespace
}  // namespace halvern
