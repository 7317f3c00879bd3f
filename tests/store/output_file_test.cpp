#include "store/output_file.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <iterator>

#include "store/file_calls.h"
#include "support/data_files.h"
#include "support/failure.h"

namespace halvern {
namespace {

struct OutputFileTest : ::testing::Test {
    test::DataFolder folder;
};

TEST_F(OutputFileTest, EndsEveryLineWithCarriageReturnAndLineFeed) {
    OutputFile file("out.txt");
    file.WriteLine("first");
    file.WriteLine("");
    file.WriteLine(" \xFFlast ");
    file.Finish();
    EXPECT_EQ(test::ContentOf("out.txt"), "first\r\n\r\n \xFFlast \r\n");
}

TEST_F(OutputFileTest, IsWholeInAProgramWithoutStandardInput) {
    ::close(STDIN_FILENO);  // its number is taken by the next file that is opened
    OutputFile("out.txt").WriteLine("a line");
    EXPECT_EQ(test::ContentOf("out.txt"), "a line\r\n");
}

TEST_F(OutputFileTest, ReplacesAnOldFile) {
    folder.Write("out.txt", "a longer text than the new one");
    OutputFile("out.txt").WriteLine("new");
    EXPECT_EQ(test::ContentOf("out.txt"), "new\r\n");
}

TEST_F(OutputFileTest, EmptiesTheOldFileAtOnce) {
    folder.Write("out.txt", "old");
    const OutputFile file("out.txt");
    EXPECT_EQ(test::ContentOf("out.txt"), "");
}

TEST_F(OutputFileTest, HoldsItsLinesAfterAFlush) {
    OutputFile file("out.txt");
    file.WriteLine("first");
    file.Flush();
    EXPECT_EQ(test::ContentOf("out.txt"), "first\r\n");
    file.WriteLine("second");
    file.Flush();
    EXPECT_EQ(test::ContentOf("out.txt"), "first\r\nsecond\r\n") << "each once";
}

TEST_F(OutputFileTest, HoldsItsLinesAtItsEnd) {
    { OutputFile("out.txt").WriteLine("first"); }
    EXPECT_EQ(test::ContentOf("out.txt"), "first\r\n");
}

TEST_F(OutputFileTest, TakesMoreThanItsBuffer) {
    std::string expected;
    OutputFile file("out.txt");
    for (int line = 0; line < 30000; ++line) {
        const std::string text = std::to_string(line) + std::string(static_cast<std::size_t>(line % 41), 'x');
        file.WriteLine(text);
        expected += text + "\r\n";
    }
    const std::string huge(300000, 'y');
    file.WriteLine(huge);
    file.Finish();
    EXPECT_EQ(test::ContentOf("out.txt"), expected + huge + "\r\n");
}

TEST_F(OutputFileTest, TellsOfAFullDiskAtTheLatestAtItsFinish) {
    std::filesystem::create_symlink("/dev/full", "full.txt");
    OutputFile file("full.txt");
    file.WriteLine("waits in the buffer");
    EXPECT_FAILURE(61, file.Flush());
    EXPECT_FAILURE(61, file.Finish());
    OutputFile large("full.txt");
    EXPECT_FAILURE(61, large.WriteLine(std::string(100000, 'x')));
}

TEST_F(OutputFileTest, EndsOnAFullDiskWithoutAWord) {
    std::filesystem::create_symlink("/dev/full", "full.txt");
    EXPECT_NO_THROW({
        OutputFile file("full.txt");
        file.WriteLine("lost");
    });
}

void LimitFileSize(rlim_t bytes) {
    rlimit limit{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &limit), 0);
    limit.rlim_cur = bytes;
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
}

// The user makes room and saves again under the same name: what had not been taken would end up in the new file.
TEST_F(OutputFileTest, WritesNothingMoreAfterAFault) {
    TakeSignalsOfWritingAsErrors();
    LimitFileSize(10);
    {
        OutputFile broken("out.txt");
        broken.WriteLine("0123456789abcdef");
        EXPECT_FAILURE(61, broken.Flush());
        EXPECT_EQ(test::ContentOf("out.txt"), "0123456789") << "as far as there was room";
        LimitFileSize(RLIM_INFINITY);
        broken.WriteLine("more");
        EXPECT_FAILURE(61, broken.Flush());
        EXPECT_FAILURE(61, broken.Finish());
        OutputFile again("out.txt");
        again.WriteLine("ghi");
        again.Finish();
    }
    EXPECT_EQ(test::ContentOf("out.txt"), "ghi\r\n");
}

TEST_F(OutputFileTest, DoesNotWaitForSomebodyToReadAPipe) {
    ASSERT_EQ(::mkfifo("pipe", 0600), 0);
    EXPECT_FAILURE(75, OutputFile("pipe"));
}

TEST_F(OutputFileTest, CannotBeMadeWhereThereIsNoFolder) {
    folder.Write("a.txt", "");
    std::filesystem::create_directory("folder");
    EXPECT_FAILURE(75, OutputFile("folder"));
    EXPECT_FAILURE(76, OutputFile("a.txt/out.txt"));
    EXPECT_FAILURE(53, OutputFile("missing/out.txt"));
}

TEST_F(OutputFileTest, CannotReplaceAFileThatIsWriteProtected) {
    folder.Write("out.txt", "kept");
    std::filesystem::permissions("out.txt", std::filesystem::perms(0444));
    std::filesystem::permissions(".", std::filesystem::perms(0755));
    constexpr uid_t kNobody = 65534;
    const uid_t self = ::geteuid();
    if (self == 0) {  // the superuser writes everywhere
        ASSERT_EQ(::seteuid(kNobody), 0);
    }
    EXPECT_FAILURE(70, OutputFile("out.txt"));
    ASSERT_EQ(::seteuid(self), 0);
    EXPECT_EQ(test::ContentOf("out.txt"), "kept");
}

}  // namespace
}  // namespace halvern
