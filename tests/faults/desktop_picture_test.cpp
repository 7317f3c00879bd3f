// The picture that the window program saves, while calls of the system fail.

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>

#include <filesystem>
#include <memory>

#include "desktop/image_bitmap.h"
#include "desktop/qt_desktop.h"
#include "faults/failing_calls.h"
#include "store/failure.h"
#include "support/data_files.h"

namespace halvern {
namespace {

constexpr const char* kOld = "what the user had saved before";

struct DesktopPicture : ::testing::Test {
    char name[8] = "halvern";
    char* arguments[2] = {name, nullptr};
    int argumentCount = 1;
    std::unique_ptr<QApplication> application;
    std::unique_ptr<QtDesktop> desktop;
    test::DataFolder folder;
    const std::string path = (folder.Path() / "caf\xE9 1.bmp").string();  // no UTF-8: the name is the bytes as they are

    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen");  // nothing is shown
        application = std::make_unique<QApplication>(argumentCount, arguments);
        desktop = std::make_unique<QtDesktop>([] { return PrinterList{}; });
    }

    /// Saves a picture while a call fails. Result: the number of the run-time failure, 0 for none.
    int SaveWith(const test::FaultPlan& plan) {
        QImage image(64, 48, QImage::Format_RGB32);
        image.fill(Qt::red);
        test::BeginFaults(folder.Path().string(), plan);
        int number = 0;
        try {
            desktop->SavePicture(ImageBitmap(image), path);
        } catch (const RuntimeFailure& failure) {
            number = failure.Number();
        }
        calls = test::EndFaults();
        return number;
    }
    std::string Saved() const {
        std::string bytes;
        if (std::FILE* const file = std::fopen(path.c_str(), "rb")) {
            char piece[16384];
            bytes.assign(piece, std::fread(piece, 1, sizeof piece, file));
            std::fclose(file);
        }
        return bytes;
    }
    std::ptrdiff_t EntriesInFolder() const {
        return std::distance(std::filesystem::directory_iterator(folder.Path()), {});
    }

    int calls = 0;
};

struct Case {
    int error;
    int failure;
};

TEST_F(DesktopPicture, StaysTheOldOneUntilTheNewOneIsWhole) {
    constexpr Case kCases[] = {{ENOSPC, 61}, {EDQUOT, 61}, {EFBIG, 61}, {EIO, 57}, {EMFILE, 67}};
    ASSERT_EQ(SaveWith({}), 0);
    const std::string whole = Saved();
    EXPECT_TRUE(
        QImage::fromData(reinterpret_cast<const uchar*>(whole.data()), static_cast<int>(whole.size()), "BMP").size() ==
        QSize(64, 48));
    const int callsOfAll = calls;
    ASSERT_EQ(callsOfAll, 5) << "open, write, bring to disk, close and move";
    for (const auto& c : kCases)
        for (int call = 1; call <= callsOfAll; ++call) {
            folder.Write(std::filesystem::path(path).filename().string(), kOld);
            EXPECT_EQ(SaveWith({.call = call, .error = c.error, .fault = test::Fault::kHalfTaken}), c.failure);
            EXPECT_EQ(Saved(), kOld) << "call " << call;
            EXPECT_EQ(EntriesInFolder(), 1);
            EXPECT_EQ(SaveWith({}), 0);
            EXPECT_TRUE(Saved() == whole) << "call " << call;
        }
    std::printf("SaveBMP of the window program: %d faults\n", test::FaultsInjected());
}

TEST_F(DesktopPicture, ComesWholeThroughSignals) {
    for (int call = 1; call <= 4; ++call) {
        EXPECT_EQ(SaveWith({.call = call, .error = EINTR, .fault = test::Fault::kInterrupted}), 0);
        EXPECT_EQ(Saved().size(), 54U + 64 * 48 * 3);
    }
}

}  // namespace
}  // namespace halvern
