// Every command that writes a file is run again and again, with the first, the second, the third ... of its calls
// failing, until it runs through.

#include <gtest/gtest.h>

#include <cstdio>
#include <ostream>
#include <string>

#include "faults/rig.h"
#include "store/files.h"
#include "support/data_files.h"
#include "ui/desktop.h"

namespace halvern {
namespace {

using test::ContentOf;
using test::Fault;
using test::FaultPlan;

/// A command that writes a file, and what the user is told when it fails.
struct Command {
    const char* name;
    const char* lines;  ///< of a script; the path of the file follows
    const char* told;   ///< the message box; empty for none
    int pointer;        ///< after a fault behind the opening
    bool keepsOld;      ///< the old file stays until the new one is whole; otherwise the new one holds its first lines
};

void PrintTo(const Command& command, std::ostream* out) { *out << command.name; }

#define BOX(text) "message style=48 title=\"Output File Error\" text=\"" text "\" answer=ok\n"

constexpr Command kCommands[] = {
    {"RawDataOut", "click RawDataOut\nchoose ", BOX("Error in Saving Raw Data To Output File!"), kPointerNormal, false},
    {"CorrectedDataOut", "click CorrectedDataOut\nchoose ", BOX("Error in Saving Corrected Data To Output File!"),
     kPointerNormal, false},
    {"KeldOutCorrected", "click KeldOutCorrected\nchoose ", BOX("Error in Saving <dc/dt> Output File!"), kPointerNormal,
     false},
    {"KeldOutGofS", "click KeldOutGofS\nchoose ", BOX("Error in Saving G-of-S Output File!"), kPointerNormal, false},
    {"SaveSvsG", "click SaveSvsG\nchoose ", BOX("Unknown Error in SaveSvsG!"), kPointerNormal, false},
    {"SaveLnSvsSG", "click SaveLnSvsSG\nchoose ", BOX("Error in SaveLnSvsSG!"), kPointerNormal, false},
    {"DoIntegralWD", "click DoIntegralWD\nchoose ", BOX("Unknown Error in Saving Integral Data!"), kPointerNormal,
     false},
    // Kept: the pointer stays an hourglass, and nobody is told.
    {"SavePlotNow", "click SavePlotNow\nchoose ", "", kPointerHourglass, false},
    {"SaveBMP", "click SaveBMP\nchoose ", "", kPointerNormal, true},
};

struct Variant {
    const char* name;
    int error;
    Fault fault;
    bool forGood;
};

constexpr Variant kVariants[] = {
    {"a full disk", ENOSPC, Fault::kRefused, true},
    {"a disk full for a moment", ENOSPC, Fault::kRefused, false},
    {"a disk full in the middle of a piece", ENOSPC, Fault::kHalfTaken, true},
    {"a device at fault", EIO, Fault::kRefused, false},
    {"no permission", EACCES, Fault::kRefused, false},
    {"a used-up quota", EDQUOT, Fault::kHalfTaken, false},
    {"too many open files", EMFILE, Fault::kRefused, false},
};

constexpr const char* kOld = "what the user had saved before\r\n";

/// The file of a plot tells the minute behind column 80 of its second line.
std::string WithoutTime(std::string content, const std::string& name) {
    constexpr std::size_t kTimeStarts = 80;
    const std::size_t line = content.find('\n');
    if (name != "SavePlotNow" || line == std::string::npos || content.size() < line + 1 + kTimeStarts)
        return content;
    const std::size_t start = line + 1 + kTimeStarts;
    return content.erase(start, content.find('\r', start) - start);
}

struct Torture : ::testing::TestWithParam<Command> {
    test::Rig rig;
    const Command& command = GetParam();
    const std::filesystem::path file = rig.out / "file.bmp";
    const std::string lines = command.lines + test::Word(file.string()) + "\n";
    std::string whole;
    int faults = 0;

    std::string Now() const { return WithoutTime(ContentOf(file), command.name); }

    void WriteWhole() {
        std::filesystem::remove(file);
        ASSERT_EQ(rig.DoWith({}, rig.out, lines), "");
        whole = Now();
        ASSERT_GT(whole.size(), 100U);
    }

    /// One run with a call that fails. Result: whether there was such a call.
    bool FailsOnce(const Variant& variant, int call) {
        SCOPED_TRACE(std::string(variant.name) + ", call " + std::to_string(call));
        rig.folder.Write("out/file.bmp", kOld);
        const int before = test::FaultsInjected();
        const std::string told = rig.DoWith(
            {.call = call, .error = variant.error, .fault = variant.fault, .forGood = variant.forGood}, rig.out, lines);
        if (test::FaultsInjected() == before)
            return false;
        ++faults;
        OnlyTheFileIsThere();
        // Where the folder takes no second file the old one is written over.
        if (command.keepsOld && call == 1 && variant.error == EACCES) {
            EXPECT_TRUE(Now() == whole);
            return true;
        }
        EXPECT_EQ(told, command.told);
        EXPECT_EQ(rig.Pointer(), call > 1 ? command.pointer : kPointerNormal);
        if (call == 1 || command.keepsOld)
            EXPECT_TRUE(ContentOf(file) == kOld) << "the old file is lost";
        else
            EXPECT_TRUE(whole.starts_with(Now())) << Now().size() << " of " << whole.size() << " bytes";
        return true;
    }

    void OnlyTheFileIsThere() const {
        const std::filesystem::directory_iterator entries(rig.out);
        EXPECT_EQ(std::distance(begin(entries), end(entries)), 1) << "something is left over";
    }

    void RunsWhole() {
        EXPECT_EQ(rig.Do(lines), "");
        EXPECT_EQ(rig.Pointer(), kPointerNormal);
        EXPECT_TRUE(Now() == whole) << "the file of the run that followed";
    }
};

std::string NameOf(const ::testing::TestParamInfo<Command>& info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(OfEveryCommand, Torture, ::testing::ValuesIn(kCommands), NameOf);

TEST_P(Torture, EveryCallFailsOnceAndTheNextRunIsWhole) {
    rig.Analyse();
    WriteWhole();
    const int calls = rig.Calls();
    ASSERT_GE(calls, 3) << "open, write, close";
    const int descriptors = test::OpenDescriptors();
    for (const Variant& variant : kVariants)
        for (int call = 1; FailsOnce(variant, call) && !HasFailure(); ++call)
            RunsWhole();
    EXPECT_GE(faults, static_cast<int>(std::size(kVariants)) * (calls - 1));
    // An interrupted file stays open until the program ends, and nothing else does.
    EXPECT_LE(test::OpenDescriptors(), descriptors + FreeFile() - 1);
    std::printf("%s: %d calls, %d faults\n", command.name, calls, faults);
    RecordProperty("faults", faults);
}

TEST_P(Torture, ASignalInAnyCallChangesNothing) {
    rig.Analyse();
    WriteWhole();
    const int calls = rig.Calls();
    for (int call = 1; call <= calls; ++call) {
        EXPECT_EQ(rig.DoWith({.call = call, .error = EINTR, .fault = Fault::kInterrupted}, rig.out, lines), "")
            << "call " << call;
        EXPECT_TRUE(Now() == whole) << "call " << call;
        ++faults;
    }
    EXPECT_EQ(FreeFile(), 1) << "every file has been closed";
    std::printf("%s: %d signals\n", command.name, faults);
}

TEST_P(Torture, ACancelledDialogLeavesTheOldFile) {
    rig.Analyse();
    rig.folder.Write("out/file.bmp", kOld);
    const std::string cancelled(command.lines, std::string_view(command.lines).find("choose"));
    EXPECT_EQ(rig.DoWith({}, rig.out, cancelled + "cancel\n"), "");
    EXPECT_EQ(rig.Calls(), 0);
    EXPECT_EQ(rig.Pointer(), kPointerNormal);
    EXPECT_EQ(ContentOf(file), kOld);
}

// A file that a fault interrupted is still open when the user has made room and saves another table under its name.
TEST_P(Torture, WhatAFaultLeftOverNeverEntersALaterFile) {
    rig.Analyse();
    WriteWhole();
    const std::string another =
        std::string("click ") + (std::string(command.name) == "SaveSvsG" ? "SaveLnSvsSG" : "SaveSvsG") + "\nchoose ";
    ASSERT_EQ(rig.Do(another + test::Word((rig.out / "another.txt").string()) + "\n"), "");
    for (int call = 2; call <= rig.Calls(); ++call) {
        rig.DoWith({.call = call, .error = ENOSPC, .fault = Fault::kHalfTaken, .forGood = true}, rig.out, lines);
        EXPECT_EQ(rig.Do(another + test::Word(file.string()) + "\n"), "");
        FlushOpenFiles();
        EXPECT_TRUE(ContentOf(file) == ContentOf(rig.out / "another.txt")) << "call " << call;
    }
}

struct RenderTorture : ::testing::TestWithParam<std::string> {
    test::Rig rig;
    const std::filesystem::path file = rig.out / ("plot." + GetParam());
    const std::string lines = "render " + test::Word(file.string()) + "\n";

    /// A document tells its time, so that its size can change by a few bytes.
    void IsAPictureOf(std::size_t size) const {
        EXPECT_NEAR(static_cast<double>(ContentOf(file).size()), static_cast<double>(size), 16.0);
    }

    /// One run with a call that fails. Result: whether there was such a call.
    bool FailsOnce(const Variant& variant, int call, std::size_t size) {
        SCOPED_TRACE(std::string(variant.name) + ", call " + std::to_string(call));
        rig.folder.Write("out/" + file.filename().string(), kOld);
        const int before = test::FaultsInjected();
        const std::string told = rig.DoWith(
            {.call = call, .error = variant.error, .fault = variant.fault, .forGood = variant.forGood}, rig.out, lines);
        if (test::FaultsInjected() == before)
            return false;
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(rig.out), {}), 1) << "something is left over";
        if (call == 1 && variant.error == EACCES) {
            IsAPictureOf(size);
            return true;
        }
        EXPECT_EQ(told, file.string() + " can't be written: " + std::generic_category().message(variant.error));
        EXPECT_TRUE(ContentOf(file) == kOld) << "the old file is lost";
        return true;
    }
};

std::string KindOf(const ::testing::TestParamInfo<std::string>& info) { return info.param; }

INSTANTIATE_TEST_SUITE_P(OfEveryKind, RenderTorture, ::testing::Values("png", "svg", "pdf"), KindOf);

TEST_P(RenderTorture, TheOldPictureStaysUntilTheNewOneIsWhole) {
    rig.Analyse();
    ASSERT_EQ(rig.DoWith({}, rig.out, lines), "");
    const std::size_t size = ContentOf(file).size();
    ASSERT_GT(size, 1000U);
    int faults = 0;
    for (const Variant& variant : kVariants)
        for (int call = 1; FailsOnce(variant, call, size) && !HasFailure(); ++call, ++faults) {
            EXPECT_EQ(rig.Do(lines), "");
            IsAPictureOf(size);
        }
    EXPECT_GE(faults, 5 * 7) << "open, write, bring to disk, close and move, in seven ways";
    std::printf("render %s: %d faults\n", GetParam().c_str(), faults);
}

}  // namespace
}  // namespace halvern
