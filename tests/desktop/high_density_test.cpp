#include <gtest/gtest.h>

#include <QLabel>
#include <QScreen>
#include <QTest>

#include <filesystem>

#include "desktop/application.h"
#include "desktop/image_bitmap.h"
#include "desktop/pixels.h"
#include "desktop/qt_desktop.h"
#include "plot/legend.h"
#include "plot/plot_request.h"
#include "plot/plot_window.h"
#include "plot/show_plot.h"
#include "store/analysis_store.h"

namespace halvern {
namespace {

constexpr int kRatio = 2;

/// The plot window on a screen that has twice as many pixels along each side as the windows count.
struct HighDensity : ::testing::Test {
    QtDesktop desktop{[] { return PrinterList{}; }};
    PlotWindow& plot = PlotitForm();

    HighDensity() {
        UseDesktop(&desktop);
        Store().ShowXYDefault = true;
        BeginPlainRequest();
        SetRequestTexts({"first line", "second line", "S (Svedbergs)", "<dc/dt>"});
        RequestFiller request;
        const auto pointAt = [](std::int32_t I) { return PlotPoint{static_cast<float>(I), static_cast<float>(I % 7)}; };
        request.Line(1, 40, kRed, pointAt);
        request.Symbols(1, 40, kBlack, pointAt);
        request.Finish();
        ShowPlot(false);
        EXPECT_TRUE(QTest::qWaitForWindowActive(desktop.WindowOf(plot)));
    }
    ~HighDensity() override {
        UnloadPlotWindows();
        UseDesktop(nullptr);
    }
    SurfaceView& Surface(Form& form) {
        for (auto* child : desktop.WindowOf(form)->findChildren<QWidget*>())
            if (auto* surface = dynamic_cast<SurfaceView*>(child))
                return *surface;
        throw std::logic_error("no surface");
    }
    /// The pixels that the screen shows of a surface, down to this height in the window's own.
    static QImage OnScreen(SurfaceView& surface, int height) {
        const QPoint place = surface.mapTo(surface.window(), QPoint(0, 0));
        QScreen* screen = QGuiApplication::primaryScreen();
        QImage seen =
            screen->grabWindow(surface.window()->winId(), place.x(), place.y(), surface.width(), height).toImage();
        seen.setDevicePixelRatio(1.0);
        return seen.convertToFormat(QImage::Format_RGB32);
    }
    /// Awaits that the screen shows a surface as it was drawn, no pixel of it made up.
    static bool IsShownAsDrawn(SurfaceView& surface, int height) {
        const QImage& picture = surface.Surface().Image();
        return QTest::qWaitFor(
            [&, height] { return OnScreen(surface, height) == picture.copy(0, 0, picture.width(), height * kRatio); });
    }
    static void Photograph(const char* name) {
        const auto file = std::filesystem::path(HALVERN_SCREENSHOTS) / name;
        std::filesystem::create_directories(file.parent_path());
        EXPECT_TRUE(QGuiApplication::primaryScreen()->grabWindow(0).save(QString::fromStdString(file.string())));
    }
};

TEST_F(HighDensity, IsTheRatioOfThisTest) { EXPECT_EQ(QGuiApplication::primaryScreen()->devicePixelRatio(), kRatio); }

TEST_F(HighDensity, DrawsThePlotPixelByPixelOfTheScreen) {
    SurfaceView& surface = Surface(plot);
    const QImage& picture = surface.Surface().Image();
    EXPECT_EQ(picture.size(), surface.size() * kRatio);
    EXPECT_EQ(Store().PlotPixelWidth, static_cast<float>(surface.width() * kRatio));
    const int seenHeight = surface.height() - Pixels(plot.XYCoords.Where().height);
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return OnScreen(surface, seenHeight) == picture.copy(0, 0, picture.width(), seenHeight * kRatio); }));
    Photograph("d1-plot-of-high-density.png");
    // Not a picture of half the size blown up: neighbours of two by two pixels differ somewhere.
    bool fine = false;
    for (int y = 0; y + 1 < picture.height() && !fine; y += kRatio)
        for (int x = 0; x + 1 < picture.width() && !fine; x += kRatio)
            fine = picture.pixel(x, y) != picture.pixel(x + 1, y);
    EXPECT_TRUE(fine);
}

TEST_F(HighDensity, ReadsTheMouseInTheWindowsPixels) {
    SurfaceView& surface = Surface(plot);
    const auto [x, y] = surface.Surface().PageAt(QPointF(surface.width(), surface.height()));
    EXPECT_FLOAT_EQ(x, 110.0F);
    EXPECT_FLOAT_EQ(y, -25.0F);
}

TEST_F(HighDensity, CapturesThePixelsOfTheScreen) {
    SurfaceView& surface = Surface(plot);
    const QImage& picture = surface.Surface().Image();
    const int seenHeight = surface.height() - Pixels(plot.XYCoords.Where().height);
    ASSERT_TRUE(IsShownAsDrawn(surface, seenHeight));
    const BitmapPointer captured = desktop.CaptureArea(plot, true, 0, 0, picture.width(), picture.height());
    const QImage seen = ImageOn(*captured).convertToFormat(QImage::Format_RGB32);
    ASSERT_EQ(seen.size(), picture.size());
    picture.save("/tmp/helpB/hd_pic.png");
    const QRect above(0, 0, picture.width(), seenHeight * kRatio);
    EXPECT_EQ(seen.copy(above), picture.copy(above));
    // Below it lies the strip of the read-out.
    EXPECT_NE(seen, picture);

    const BitmapPointer part = desktop.CaptureArea(plot, true, 101, 57, 200, 99);
    EXPECT_EQ(ImageOn(*part).convertToFormat(QImage::Format_RGB32), picture.copy(101, 57, 200, 99));
}

TEST_F(HighDensity, DrawsTheLegendLikewise) {
    plot.Menu.ShowIt.Click();
    FormWindow& window = *desktop.WindowOf(PlotLegendForm());
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    SurfaceView& surface = Surface(PlotLegendForm());
    EXPECT_EQ(Store().LegendPixelWidth, static_cast<float>(window.width() * kRatio));
    // The last symbol of the last column, a triangle, stands where its number is: at (140, -16) of (100, 110) .. (150, -30).
    const QImage& picture = surface.Surface().Image();
    const QPoint middle(picture.width() * 40 / 50, picture.height() * 126 / 140);
    EXPECT_EQ(picture.pixelColor(middle), QColor(QRgb(0x00DFDF)));
    // The window is higher than what this screen has room for.
    EXPECT_TRUE(IsShownAsDrawn(surface, surface.height() / 2));
    Photograph("d2-legend-of-high-density.png");
}

}  // namespace
}  // namespace halvern
