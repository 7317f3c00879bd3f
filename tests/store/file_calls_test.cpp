#include "store/file_calls.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "support/data_files.h"

namespace halvern {
namespace {

namespace fs = std::filesystem;

struct FileCalls : ::testing::Test {
    test::DataFolder folder;
};

std::string Message(const std::error_code& error) { return error ? error.message() : std::string(); }

std::ptrdiff_t EntriesHere() { return std::distance(fs::directory_iterator("."), {}); }

TEST_F(FileCalls, MakeAFileOfBytes) {
    const std::string bytes("a\0b\r\n\xFF", 6);
    EXPECT_EQ(Message(ReplaceFile("new.bin", bytes)), "");
    EXPECT_EQ(test::ContentOf("new.bin"), bytes);
    EXPECT_EQ(EntriesHere(), 1) << "nothing else is left";
}

TEST_F(FileCalls, TakeNoOldInterruptionForANewOne) {
    folder.Write("empty.bin", "");
    const OpenedFile file = OpenForReading("empty.bin");
    std::array<char, 8> room{};
    errno = EINTR;  // of a call long ago
    const Transfer read = ReadFrom(file.descriptor, room);
    EXPECT_FALSE(read.error);
    EXPECT_EQ(read.bytes, 0U);
    ::close(file.descriptor);
}

TEST_F(FileCalls, OpenAFileInAProgramWithoutStandardInput) {
    folder.Write("a.bin", "a");
    ::close(STDIN_FILENO);
    errno = ENOENT;  // of a call long ago
    const OpenedFile file = OpenForReading("a.bin");
    EXPECT_EQ(file.descriptor, STDIN_FILENO);
    EXPECT_FALSE(file.error);
}

TEST_F(FileCalls, GiveANewFileThePermissionsOfTheUsersChoice) {
    ::umask(027);
    ASSERT_FALSE(ReplaceFile("new.bin", "x"));
    EXPECT_EQ(fs::status("new.bin").permissions(), fs::perms(0640));
}

TEST_F(FileCalls, ReplaceAFileAndKeepItsPermissions) {
    folder.Write("old.bin", "a longer text than the new one");
    fs::permissions("old.bin", fs::perms(0604));
    EXPECT_EQ(Message(ReplaceFile("old.bin", "new")), "");
    EXPECT_EQ(test::ContentOf("old.bin"), "new");
    EXPECT_EQ(fs::status("old.bin").permissions(), fs::perms(0604));
    EXPECT_EQ(EntriesHere(), 1);
}

TEST_F(FileCalls, ReplaceWhatALinkLeadsTo) {
    folder.Write("there/old.bin", "old");
    fs::create_symlink("there/old.bin", "link.bin");
    fs::create_symlink("there/none.bin", "dangling.bin");
    EXPECT_EQ(Message(ReplaceFile("link.bin", "new")), "");
    EXPECT_EQ(Message(ReplaceFile("dangling.bin", "made")), "");
    EXPECT_TRUE(fs::is_symlink("link.bin"));
    EXPECT_TRUE(fs::is_symlink("dangling.bin"));
    EXPECT_EQ(test::ContentOf("there/old.bin"), "new");
    EXPECT_EQ(test::ContentOf("there/none.bin"), "made");
}

TEST_F(FileCalls, WriteToADeviceThatIsNoFile) {
    EXPECT_EQ(Message(ReplaceFile("/dev/null", "gone")), "");
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_EQ(Message(ReplaceFile("/dev/full", "lost")), "No space left on device");
}

TEST_F(FileCalls, SayWhyAFileCantBeReplaced) {
    fs::create_directory("folder");
    folder.Write("a.txt", "");
    fs::create_symlink("loop", "loop");
    ASSERT_EQ(::mkfifo("pipe", 0600), 0);
    EXPECT_EQ(Message(ReplaceFile("folder", "x")), "Is a directory");
    EXPECT_EQ(Message(ReplaceFile("none/a.bin", "x")), "No such file or directory");
    EXPECT_EQ(Message(ReplaceFile("a.txt/a.bin", "x")), "Not a directory");
    EXPECT_EQ(Message(ReplaceFile("", "x")), "No such file or directory");
    EXPECT_EQ(Message(ReplaceFile(std::string("a\0.txt", 6), "x")), "No such file or directory");
    EXPECT_EQ(Message(ReplaceFile(std::string(300, 'x'), "x")), "File name too long");
    EXPECT_EQ(Message(ReplaceFile("loop", "x")), "Too many levels of symbolic links");
    EXPECT_EQ(Message(ReplaceFile("pipe", "x")), "No such device or address") << "nobody reads the pipe";
    EXPECT_EQ(EntriesHere(), 4);
}

/// The superuser may do everything; here is somebody who may not.
struct AsNobody {
    AsNobody() { EXPECT_EQ(self != 0 ? 0 : ::seteuid(65534), 0); }
    ~AsNobody() { EXPECT_EQ(::seteuid(self), 0); }
    const uid_t self = ::geteuid();
};

TEST_F(FileCalls, LeaveAWriteProtectedFile) {
    folder.Write("old.bin", "kept");
    fs::permissions("old.bin", fs::perms(0444));
    fs::permissions(".", fs::perms(0777));
    const AsNobody nobody;
    EXPECT_EQ(Message(ReplaceFile("old.bin", "new")), "Permission denied");
    EXPECT_EQ(test::ContentOf("old.bin"), "kept");
}

TEST_F(FileCalls, WriteDirectlyWhereTheFolderTakesNoSecondFile) {
    folder.Write("old.bin", "a longer text than the new one");
    fs::permissions("old.bin", fs::perms(0666));
    fs::permissions(".", fs::perms(0555));
    {
        const AsNobody nobody;
        EXPECT_EQ(Message(ReplaceFile("old.bin", "new")), "");
        EXPECT_EQ(Message(ReplaceFile("none.bin", "new")), "Permission denied");
    }
    fs::permissions(".", fs::perms(0755));
    EXPECT_EQ(test::ContentOf("old.bin"), "new");
}

TEST_F(FileCalls, WaitForNobodyWhenTheyOpenAPipe) {
    ASSERT_EQ(::mkfifo("pipe", 0600), 0);
    EXPECT_EQ(Message(OpenForWriting("pipe").error), "No such device or address");
    const OpenedFile reader = OpenForReading("pipe");
    EXPECT_EQ(Message(reader.error), "");
    const OpenedFile writer = OpenForWriting("pipe");
    ASSERT_EQ(Message(writer.error), "");
    EXPECT_EQ(::fcntl(writer.descriptor, F_GETFL) & O_NONBLOCK, 0) << "a slow reader is waited for";
    EXPECT_EQ(WriteTo(writer.descriptor, "text").bytes, 4U);
    std::array<char, 16> room{};
    EXPECT_EQ(ReadFrom(reader.descriptor, room).bytes, 4U);
    EXPECT_EQ(Message(CloseFile(reader.descriptor)), "");
    TakeSignalsOfWritingAsErrors();
    EXPECT_EQ(Message(WriteTo(writer.descriptor, "text").error), "Broken pipe");
    EXPECT_EQ(Message(CloseFile(writer.descriptor)), "");
}

TEST_F(FileCalls, OpenNoFileOfANameThatEndsWithinItself) {
    folder.Write("a", "text");
    const std::string name("a\0.txt", 6);
    EXPECT_EQ(Message(OpenForReading(name).error), "No such file or directory");
    EXPECT_EQ(Message(OpenForWriting(name).error), "No such file or directory");
    EXPECT_EQ(test::ContentOf("a"), "text");
}

TEST_F(FileCalls, LeaveTheTargetOfALinkWhoseWholePathIsTooLong) {
    const fs::path home = fs::current_path();
    const std::string part(250, 'd');
    for (int depth = 0; depth < 20; ++depth) {
        fs::create_directory(part);
        ASSERT_EQ(::chdir(part.c_str()), 0);
    }
    std::ofstream("old.bin") << "kept";
    fs::create_symlink("old.bin", "link.bin");
    EXPECT_NE(Message(ReplaceFile("link.bin", "new")), "");
    EXPECT_EQ(test::ContentOf("old.bin"), "kept");
    EXPECT_EQ(EntriesHere(), 2);
    fs::current_path(home);
}

TEST_F(FileCalls, TellOfADescriptorThatIsNone) {
    std::array<char, 1> room{};
    EXPECT_EQ(Message(CloseFile(-1)), "Bad file descriptor");
    EXPECT_EQ(Message(WriteTo(-1, "x").error), "Bad file descriptor");
    EXPECT_EQ(Message(ReadFrom(-1, room).error), "Bad file descriptor");
    EXPECT_EQ(Message(WriteTo(-1, "").error), "") << "nothing to write";
}

}  // namespace
}  // namespace halvern
