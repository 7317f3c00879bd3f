#include "desktop/installed_printers.h"

#include <gtest/gtest.h>

#include <atomic>

namespace halvern {
namespace {

using Names = std::vector<std::string>;

TEST(InstalledPrinters, AreAskedForOnce) {
    std::atomic<int> times = 0;
    InstalledPrinters printers([&] {
        ++times;
        return PrinterList{{"Laser", "Ink"}, "Ink"};
    });
    EXPECT_EQ(printers.List().names, (Names{"Laser", "Ink"}));
    EXPECT_EQ(printers.List().defaultName, "Ink");
    EXPECT_EQ(times, 1);
    EXPECT_FALSE(printers.StillAsking());
}

TEST(InstalledPrinters, AreNoneWhenThePrintSystemDoesNotAnswer) {
    std::promise<void> answered;
    std::promise<void> threadOver;
    const auto before = std::chrono::steady_clock::now();
    InstalledPrinters printers([&] {
        answered.get_future().wait();
        threadOver.set_value_at_thread_exit();
        return PrinterList{{"Late"}, "Late"};
    });
    EXPECT_TRUE(printers.List().names.empty());
    EXPECT_GE(std::chrono::steady_clock::now() - before, InstalledPrinters::kPatience);
    EXPECT_TRUE(printers.StillAsking());

    answered.set_value();
    threadOver.get_future().wait();
    EXPECT_FALSE(printers.StillAsking());
    EXPECT_TRUE(printers.List().names.empty());  // the menus are built by now
}

TEST(InstalledPrinters, CanBeAskedForOnThisSystem) {
    const PrinterList list = AskPrintSystem();
    EXPECT_TRUE(list.defaultName.empty() ||
                std::find(list.names.begin(), list.names.end(), list.defaultName) != list.names.end());
}

}  // namespace
}  // namespace halvern
