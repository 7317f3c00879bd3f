// Files as they lie about on the disks of users: odd names, things that are no files, files that change, disks that are
// full.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "faults/failing_calls.h"
#include "faults/rig.h"
#include "intake/scan_reader.h"
#include "store/analysis_store.h"
#include "store/file_calls.h"
#include "store/files.h"
#include "store/menus.h"
#include "support/data_files.h"
#include "support/failure.h"
#include "support/test_desktop.h"
#include "ui/desktop.h"

namespace halvern {
namespace {

namespace fs = std::filesystem;
using test::ContentOf;
using test::Word;

constexpr const char* kTableFault =
    "message style=48 title=\"Output File Error\" text=\"Error in Saving Raw Data To Output File!\" answer=ok\n";
constexpr const char* kTooFew =
    "message style=0 title=\"Too Few Files Chosen!\" text=\"Too few files in List File.  Try again and select at least "
    "4 "
    "data files.\" answer=ok\n";

struct OddFiles : ::testing::Test {
    test::Rig rig;

    OddFiles() { fs::current_path(rig.data); }

    /// Scans of rising omega squared t under these names, in the folder of the data.
    void WriteScans(const std::vector<std::string>& names) {
        test::ScanFile scan;
        for (std::size_t i = 0; i < names.size(); ++i) {
            scan.omega2t = std::to_string(i + 1) + "E9";
            rig.folder.Write("data/" + names[i], scan.Text());
        }
    }
    std::string LoadList(const std::vector<std::string>& names) {
        rig.folder.Write("data/all.LST", test::ListText(names));
        return LoadIt();
    }
    std::string LoadIt() { return rig.Do("click GetListNow\nchoose " + Word((rig.data / "all.LST").string()) + "\n"); }

    void LoadFour() {
        WriteScans({"1", "2", "3", "4"});
        ASSERT_EQ(LoadList({"1", "2", "3", "4"}), "");
        ASSERT_EQ(Store().NumFiles, 4);
    }
    std::string SaveTo(const std::string& path) { return rig.Do("click RawDataOut\nchoose " + Word(path) + "\n"); }
    std::string Table() {
        EXPECT_EQ(SaveTo((rig.data / "table.txt").string()), "");
        return ContentOf(rig.data / "table.txt");
    }
    static bool Reported(const std::string& line) {
        const auto lines = test::ReportLines();
        return std::find(lines.begin(), lines.end(), line) != lines.end();
    }
};

const std::vector<std::string> kOddNames = {
    std::string(127, 'n'),
    "two words.RA1",
    " leading.RA1",
    "\"quoted\".RA1",
    "it's.RA1",
    "back\\slash.RA1",
    "\xC3\xB6l, \xE6\xBC\xA2\xE5\xAD\x97.RA1",
    "latin \xE9.RA1",
    "\xFF\xFE\x80",
    "tab\there.RA1",
    "bell\x07 escape\x1B[31m.RA1",
    "*?[a-z]$(true);&|.RA1",
    "%s%n.RA1",
    "-rf",
};

TEST_F(OddFiles, OddNamesInAListAreNames) {
    WriteScans(kOddNames);
    EXPECT_EQ(LoadList(kOddNames), "");
    EXPECT_EQ(Store().NumFiles, static_cast<std::int32_t>(kOddNames.size()));
    for (const std::string& name : kOddNames)
        EXPECT_FALSE(Reported("Data File Not Found: " + name)) << testing::PrintToString(name);
}

TEST_F(OddFiles, ATableIsWrittenUnderAnOddName) {
    LoadFour();
    const std::string whole = Table();
    std::vector<std::string> names = kOddNames;
    names.push_back(std::string(200, 'n'));
    names.push_back(std::string(255, 'n'));
    names.push_back("trailing blanks  ");
    for (const std::string& name : names) {
        EXPECT_EQ(SaveTo((rig.out / name).string()), "") << testing::PrintToString(name);
        EXPECT_EQ(ContentOf(rig.out / name), whole) << testing::PrintToString(name);
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(rig.out), {}), std::ssize(names))
        << "under these names and no other";
    EXPECT_EQ(SaveTo((rig.out / std::string(256, 'n')).string()), kTableFault);
}

TEST_F(OddFiles, ANameBeyond127CharactersInAListIsCutAndNotFound) {
    WriteScans({"1", "2", "3", "4", std::string(200, 'n')});
    EXPECT_EQ(LoadList({"1", "2", "3", "4", std::string(200, 'n')}), "");
    EXPECT_EQ(Store().NumFiles, 4);
    EXPECT_TRUE(Reported("Data File Not Found: " + std::string(127, 'n')));
}

/// Names of things that are no files, made in the current folder.
std::vector<std::string> MakeNoFiles() {
    fs::create_directory("folder");
    fs::create_symlink("nothing", "dangling");
    fs::create_symlink("loop", "loop");
    fs::create_symlink("/dev/full", "device");
    EXPECT_EQ(::mkfifo("pipe", 0600), 0);
    return {"folder", "dangling", "loop", "device", "pipe"};
}

TEST_F(OddFiles, WhatIsNoFileIsNotFoundInAList) {
    WriteScans({"1", "2", "3", "4"});
    std::vector<std::string> names = MakeNoFiles();
    for (const std::string& name : names)
        EXPECT_EQ(rig.Do("click GetListNow\nchoose " + name + "\n"), "no such file: " + name) << "as a list";
    names.insert(names.end(), {"1", "2", "3", "4", "/dev/zero", "/dev/stdin", "."});
    EXPECT_EQ(LoadList(names), "");
    EXPECT_EQ(Store().NumFiles, 4);
    for (const char* name : {"folder", "dangling", "loop", "device", "pipe", "/dev/zero", "."})
        EXPECT_TRUE(Reported(std::string("Data File Not Found: ") + name)) << name;
}

TEST_F(OddFiles, WhatIsNoFileTakesNoTable) {
    LoadFour();
    MakeNoFiles();
    for (const char* name : {"folder", "loop", "device", "pipe", "none/table.txt", "1/table.txt"})
        EXPECT_EQ(SaveTo(name), kTableFault) << name;
    EXPECT_EQ(rig.Pointer(), kPointerNormal);
    EXPECT_EQ(SaveTo("dangling"), "");
    EXPECT_EQ(ContentOf("nothing"), Table());
}

// Everything that happens between the look for the files and their reading happens in this pass through the queue.
TEST_F(OddFiles, AScanThatGoesWhileTheLoadRunsIsSparse) {
    WriteScans({"1", "2", "3", "4", "5", "6", "7"});
    rig.AtPass() = [] {
        fs::remove("2");
        fs::remove("4");
        if (!fs::exists("4"))
            fs::create_directory("4");
        std::error_code ignored;
        fs::permissions("6", fs::perms(0), ignored);
    };
    EXPECT_EQ(LoadList({"1", "2", "3", "4", "5", "7"}), "");
    EXPECT_EQ(Store().NumFiles, 4);
    EXPECT_TRUE(Reported("* Sparse File Found: 2"));
    EXPECT_TRUE(Reported("* Sparse File Found: 4"));
    EXPECT_EQ(rig.Pointer(), kPointerNormal);
}

TEST_F(OddFiles, AListOfTenMegabytesIsReadToItsEnd) {
    WriteScans({"1", "2", "3", "4"});
    std::vector<std::string> names(100000, std::string(103, 'x'));
    names.insert(names.begin(), {"1", "2"});
    names.insert(names.end(), {"3", "4"});
    EXPECT_EQ(LoadList(names), "");
    EXPECT_EQ(Store().NumFiles, 4);
    EXPECT_GT(fs::file_size(rig.data / "all.LST"), 10000000U);
}

TEST_F(OddFiles, AListWithoutALineEndInTenMegabytesIsOneName) {
    rig.folder.Write("data/all.LST", std::string(10 << 20, 'x'));
    EXPECT_EQ(LoadIt(), kTooFew);
    EXPECT_TRUE(Reported("Data File Not Found: " + std::string(127, 'x')));
}

TEST_F(OddFiles, AScanOfTwoGigabytesOfNothingIsSparse) {
    WriteScans({"1", "2", "3", "4", "5", "6"});
    ASSERT_EQ(::truncate("2", off_t{1} << 31), 0) << "the scan, and a line of zero bytes behind it";
    rig.folder.Write("data/4", "");
    ASSERT_EQ(::truncate("4", off_t{1} << 31), 0);
    EXPECT_EQ(LoadList({"1", "2", "3", "4", "5", "6"}), "");
    EXPECT_EQ(Store().NumFiles, 5);
    EXPECT_EQ(Store().ScanPoints(2), 13) << "12 points, and the line";
    EXPECT_TRUE(Reported("* Sparse File Found: 4"));
}

TEST_F(OddFiles, AFileThatShrinksWhileItIsReadEndsThere) {
    std::string text;
    for (int line = 0; line < 40000; ++line)
        text += "line " + std::to_string(line) + "\n";
    rig.folder.Write("data/shrinking.txt", text);
    OpenForInput(1, "shrinking.txt");
    EXPECT_EQ(ReadLine(1), "line 0");
    ASSERT_EQ(::truncate("shrinking.txt", 10), 0);
    int lines = 1;
    for (; !AtEnd(1); ++lines)
        static_cast<void>(ReadLine(1));
    EXPECT_LT(lines, 10000) << "what the buffer held";
    EXPECT_FAILURE(62, ReadLine(1));
    Close(1);
}

// A file of the system's own says that it is empty, and so is read in pieces of a buffer that grows.
TEST_F(OddFiles, OfAScanThatCannotBeReadOnTheLastLineReadIsKept) {
    const std::string text = ContentOf("/proc/self/status");
    Store().FileNames(0) = "/proc/self/status";
    std::set<std::string> kept;
    for (int call = 3; call < 12; ++call) {
        Store().LineBuf = "";
        test::BeginFaults("/proc", {.call = call, .error = EIO});
        ReadScanFile(1);
        test::EndFaults();
        kept.emplace(RightTrimmed(Store().LineBuf));
    }
    EXPECT_GE(kept.size(), 3U);
    for (const std::string& line : kept)
        EXPECT_TRUE(line.empty() || ("\n" + text).find("\n" + line + "\n") != std::string::npos) << line;
}

TEST_F(OddFiles, TheCurrentFolderMayGoAway) {
    LoadFour();
    const std::string whole = Table();
    fs::create_directory(rig.out / "gone");
    fs::current_path(rig.out / "gone");
    fs::remove(rig.out / "gone");
    EXPECT_EQ(rig.Do("click RawDataOut\nchoose table.txt\n"), "the current directory is gone");
    EXPECT_EQ(SaveTo((rig.out / "table.txt").string()), "");
    EXPECT_EQ(ContentOf(rig.out / "table.txt"), whole);
}

/// The superuser may do everything; here is somebody who may not.
struct AsNobody {
    AsNobody() { EXPECT_EQ(self != 0 ? 0 : ::seteuid(65534), 0); }
    ~AsNobody() { EXPECT_EQ(::seteuid(self), 0); }
    const uid_t self = ::geteuid();
};

TEST_F(OddFiles, AFolderThatIsNotTheUsersTakesNoTable) {
    LoadFour();
    rig.folder.Write("out/old.txt", "kept");
    fs::permissions(rig.folder.Path(), fs::perms(0755));
    fs::permissions(rig.out / "old.txt", fs::perms(0444));
    fs::permissions(rig.out, fs::perms(0555));
    {
        const AsNobody nobody;
        EXPECT_EQ(SaveTo((rig.out / "new.txt").string()), kTableFault);
        EXPECT_EQ(SaveTo((rig.out / "old.txt").string()), kTableFault);
        EXPECT_EQ(SaveTo("/proc/new.txt"), kTableFault);
    }
    fs::permissions(rig.out, fs::perms(0755));
    EXPECT_EQ(ContentOf(rig.out / "old.txt"), "kept");
    EXPECT_FALSE(fs::exists(rig.out / "new.txt"));
}

TEST_F(OddFiles, AScanThatIsNotTheUsersIsSparseAndAListLoadsNothing) {
    WriteScans({"1", "2", "3", "4", "5"});
    fs::permissions(rig.folder.Path(), fs::perms(0755));
    fs::permissions("2", fs::perms(0));
    {
        const AsNobody nobody;
        rig.AtPass() = nullptr;
    }
    rig.folder.Write("data/all.LST", test::ListText({"1", "2", "3", "4", "5"}));
    {
        const AsNobody nobody;
        EXPECT_EQ(LoadIt(), "");
        EXPECT_EQ(Store().NumFiles, 4);
        EXPECT_TRUE(Reported("* Sparse File Found: 2"));
    }
    fs::permissions("all.LST", fs::perms(0));
    const AsNobody nobody;
    EXPECT_EQ(LoadIt(), "");
    EXPECT_EQ(Store().NumSpeeds, 0) << "no data set stands";
    EXPECT_EQ(rig.Pointer(), kPointerNormal);
}

void LimitFileSize(rlim_t bytes) {
    rlimit limit{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &limit), 0);
    limit.rlim_cur = bytes;
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
}

TEST_F(OddFiles, ALimitOnTheSizeOfFilesIsToldLikeAFullDisk) {
    TakeSignalsOfWritingAsErrors();
    LoadFour();
    const std::string whole = Table();
    LimitFileSize(500);
    EXPECT_EQ(SaveTo((rig.out / "table.txt").string()), kTableFault);
    EXPECT_EQ(ContentOf(rig.out / "table.txt"), whole.substr(0, 500));
    LimitFileSize(RLIM_INFINITY);
    EXPECT_EQ(SaveTo((rig.out / "table.txt").string()), "");
    EXPECT_EQ(ContentOf(rig.out / "table.txt"), whole);
}

// A disk that is really full. Only the superuser may mount one; for others the device that is always full and the limit
// on the size of files stand in for it in the other tests.
TEST_F(OddFiles, ASmallDiskFillsUpAndTakesTheFileWhenThereIsRoom) {
    LoadFour();
    const std::string whole = Table();
    if (::mount("none", rig.out.c_str(), "tmpfs", 0, "size=8k") != 0)
        GTEST_SKIP() << "no disk can be mounted here: " << std::strerror(errno);
    struct Mounted {
        fs::path at;
        ~Mounted() { EXPECT_EQ(::umount2(at.c_str(), MNT_DETACH), 0); }
    } const mounted{rig.out};
    rig.folder.Write("out/filling", std::string(8000, 'x'));
    EXPECT_EQ(SaveTo((rig.out / "table.txt").string()), kTableFault);
    EXPECT_TRUE(whole.starts_with(ContentOf(rig.out / "table.txt")));
    fs::remove(rig.out / "filling");
    EXPECT_EQ(SaveTo((rig.out / "table.txt").string()), "");
    EXPECT_EQ(ContentOf(rig.out / "table.txt"), whole);
}

// The list, then each scan: every call of the load fails once, and the load that follows has all scans.
TEST_F(OddFiles, EveryCallOfALoadFailsOnceAndTheNextLoadIsWhole) {
    WriteScans({"1", "2", "3", "4", "5", "6"});
    ASSERT_EQ(LoadList({"1", "2", "3", "4", "5", "6"}), "");
    const std::string load = "click GetListNow\nchoose " + Word((rig.data / "all.LST").string()) + "\n";
    int faults = 0;
    for (const int error : {EIO, ENOENT, EACCES, ENFILE, ESTALE})
        for (int call = 1; !HasFailure(); ++call) {
            SCOPED_TRACE(std::string(std::strerror(error)) + ", call " + std::to_string(call));
            const int before = test::FaultsInjected();
            const std::string told = rig.DoWith({.call = call, .error = error}, rig.data, load);
            if (test::FaultsInjected() == before)
                break;
            ++faults;
            // With the last but one scan sparse its place keeps a speed of 0.
            EXPECT_TRUE(told.empty() || told.starts_with("message style=0 title=\"Multiple Speed Data\"")) << told;
            EXPECT_EQ(rig.Pointer(), kPointerNormal);
            EXPECT_EQ(Menus().OutputMenu.IsEnabled(), Store().NumSpeeds != 0);
            EXPECT_EQ(rig.Do(load), "");
            EXPECT_EQ(Store().NumFiles, 6);
            EXPECT_EQ(Store().NumSpeeds, 1);
            for (std::int32_t K = 1; K <= 6; ++K)
                EXPECT_EQ(Store().ScanPoints(K), 12);
        }
    EXPECT_GE(faults, 5 * 7 * 4) << "open, look at, read and close seven files";
    std::printf("GetListNow: %d faults\n", faults);
}

TEST_F(OddFiles, ASignalInAnyCallOfALoadChangesNothing) {
    WriteScans({"1", "2", "3", "4"});
    const std::string load = "click GetListNow\nchoose " + Word((rig.data / "all.LST").string()) + "\n";
    rig.folder.Write("data/all.LST", test::ListText({"1", "2", "3", "4"}));
    EXPECT_EQ(rig.DoWith({}, rig.data, load), "");
    // Looking at an open file waits for nothing, and so is not interrupted: the second call of each file.
    for (int call = 1; call <= rig.Calls(); ++call) {
        if (call % 5 == 2)
            continue;
        EXPECT_EQ(rig.DoWith({.call = call, .error = EINTR, .fault = test::Fault::kInterrupted}, rig.data, load), "");
        EXPECT_EQ(Store().NumFiles, 4) << "call " << call;
    }
    EXPECT_EQ(FreeFile(), 1);
}

}  // namespace
}  // namespace halvern
