#include <QImage>
#include <QString>

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "support/data_files.h"

namespace halvern {
namespace {

namespace fs = std::filesystem;

/// The first scan as a plot with a pick of the meniscus.
constexpr const char* kPlotOfAScan =
    "click GetListNow\n"
    "choose all.LST\n"
    "click Get_MenFromScan\n";

/// Scripts for halvern-replay, run in a folder of scans without a display or a home.
struct RenderEvent : ::testing::Test {
    test::DataFolder folder;
    std::string out, err;

    RenderEvent() {
        test::ScanFile like;
        like.points = 400;
        test::WriteDataSet(folder, 5, like);
    }

    static std::string Content(const std::string& name) {
        std::ifstream file(name, std::ios::binary);
        std::ostringstream content;
        content << file.rdbuf();
        return content.str();
    }

    int Play(const std::string& script) {
        folder.Write("test.script", script);
        const int status = std::system(
            "env -u HOME -u DISPLAY -u WAYLAND_DISPLAY -u XDG_RUNTIME_DIR LC_ALL=C QT_QPA_PLATFORMTHEME=gtk3 "
            "QT_QPA_PLATFORM=xcb '" HALVERN_REPLAY "' test.script >out 2>err");
        out = Content("out");
        err = Content("err");
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    int PlayPlotAnd(const std::string& lines) { return Play(kPlotOfAScan + lines); }
};

TEST_F(RenderEvent, WritesAPictureOfTheWindow) {
    ASSERT_EQ(PlayPlotAnd("render plot.png\n"), 0) << err;
    EXPECT_EQ(err, "");
    const QImage image(QStringLiteral("plot.png"));
    // 0.65 of 1024 by 768 pixels are 665.6 by 499.2.
    ASSERT_EQ(image.size(), QSize(666, 499));
    // (0, 0) of the page is 25 / 135 of the width from the left and 120 / 145 of the height from the top, (100, 100) is
    // 125 / 135 and 20 / 145: 123 and 413, 617 and 69. The line there is two pixels wide.
    for (const int x : {122, 123, 616, 617})
        EXPECT_EQ(image.pixel(x, 250), 0xFF000000) << x;
    for (const int y : {68, 69, 412, 413})
        EXPECT_EQ(image.pixel(500, y), 0xFF000000) << y;
    EXPECT_EQ(image.pixel(121, 250), 0xFFFFFFFF);
    EXPECT_EQ(image.pixel(5, 5), 0xFFFFFFFF);
}

TEST_F(RenderEvent, FollowsTheSizeOfTheWindow) {
    ASSERT_EQ(PlayPlotAnd("resize Plotit 6000 4500\nrender plot.PNG\n"), 0) << err;
    EXPECT_EQ(QImage(QStringLiteral("plot.PNG")).size(), QSize(400, 300));
}

TEST_F(RenderEvent, DrawsTheBitmapThatThePlotIsSavedAs) {
    ASSERT_EQ(PlayPlotAnd("render plot.png\nclick SaveBMP\nchoose plot\n"), 0) << err;
    const std::string bitmap = Content("plot.bmp");
    ASSERT_GT(bitmap.size(), 54U);
    EXPECT_EQ(bitmap.substr(0, 2), "BM");
    EXPECT_EQ(bitmap[28], 24) << "bits of a pixel";
    const auto pixels = [](const char* name) {
        return QImage(QLatin1String(name)).convertToFormat(QImage::Format_RGB32);
    };
    EXPECT_EQ(pixels("plot.bmp").size(), QSize(666, 499));
    EXPECT_EQ(pixels("plot.bmp"), pixels("plot.png"));
}

TEST_F(RenderEvent, EndsWithoutAWordWhereTheBitmapCannotBeWritten) {
    fs::create_directory("plot.bmp");
    EXPECT_EQ(PlayPlotAnd("click SaveBMP\nchoose plot.bmp\nclick SaveBMP\ncancel\n"), 0) << err;
    EXPECT_EQ(out + err, "");
    EXPECT_TRUE(fs::is_empty("plot.bmp"));
}

TEST_F(RenderEvent, WritesADrawingThatKeepsItsTexts) {
    ASSERT_EQ(PlayPlotAnd("render plot.svg\n"), 0) << err;
    const std::string svg = Content("plot.svg");
    for (const char* text : {">Radius (cm)<", ">Use &lt;Ctrl&gt;LMB to Set the Meniscus Position<", ">5.800<", ">Conc"})
        EXPECT_NE(svg.find(text), std::string::npos) << text;
    EXPECT_NE(svg.find("viewBox=\"0 0 666 499\""), std::string::npos);
    // The box of the plot: 25 / 135 x 666 from the left, 20 / 145 x 499 from the top.
    EXPECT_NE(svg.find("<rect x=\"123.333\" y=\"68.8276\" width=\"493.333\" height=\"344.138\"/>"), std::string::npos);
}

TEST_F(RenderEvent, WritesAPage) {
    ASSERT_EQ(PlayPlotAnd("render plot.pdf\n"), 0) << err;
    const std::string pdf = Content("plot.pdf");
    EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
    // 666 by 499 pixels at 96 to an inch are 499.5 by 374.25 points, and pages have whole ones.
    EXPECT_NE(pdf.find("/MediaBox [0 0 500.000000 374.000000]"), std::string::npos)
        << pdf.substr(pdf.find("/MediaBox"), 40);
    EXPECT_NE(pdf.find("LiberationSerif"), std::string::npos);
    EXPECT_NE(pdf.find("%%EOF"), std::string::npos);
}

TEST_F(RenderEvent, LeavesThePlotAndTheOutputAlone) {
    ASSERT_EQ(PlayPlotAnd("print plot\n"), 0) << err;
    const std::string before = out;
    ASSERT_EQ(PlayPlotAnd("render plot.png\nrender plot.svg\nrender plot.pdf\nprint plot\n"), 0) << err;
    EXPECT_EQ(out, before);
    EXPECT_EQ(err, "");
}

TEST_F(RenderEvent, WritesIntoTheCurrentDirectory) {
    fs::create_directory("pictures");
    ASSERT_EQ(PlayPlotAnd("cd pictures\nrender plot.png\ncd ..\nrender pictures/again.png\n"), 0) << err;
    EXPECT_EQ(Content("pictures/plot.png"), Content("pictures/again.png"));
    EXPECT_GT(fs::file_size("pictures/plot.png"), 1000U);
}

TEST_F(RenderEvent, ReplacesAFile) {
    folder.Write("plot.png", "no picture");
    ASSERT_EQ(PlayPlotAnd("render plot.png\n"), 0) << err;
    EXPECT_FALSE(QImage(QStringLiteral("plot.png")).isNull());
}

TEST_F(RenderEvent, CanComeWhileAFileDialogWaits) {
    ASSERT_EQ(PlayPlotAnd("click GetListNow\nrender plot.png\ncancel\n"), 0) << err;
    EXPECT_TRUE(fs::exists("plot.png"));
}

TEST_F(RenderEvent, NeedsAPlot) {
    EXPECT_EQ(Play("render plot.png\n"), 1);
    EXPECT_EQ(err, "test.script:1: there is no plot\n");
    EXPECT_FALSE(fs::exists("plot.png"));
}

TEST_F(RenderEvent, KnowsThreeKindsOfFiles) {
    for (const std::string name : {"plot.gif", "plot", "png", ".png", "plot.bmp", "plot.png.txt"}) {
        EXPECT_EQ(PlayPlotAnd("render " + name + "\n"), 1) << name;
        EXPECT_EQ(err, "test.script:4: not a .png, .svg or .pdf file: " + name + "\n");
        EXPECT_FALSE(fs::exists(name));
    }
    EXPECT_EQ(PlayPlotAnd("render\n"), 1);
    EXPECT_EQ(err, "test.script:4: expected: render FILE\n");
}

TEST_F(RenderEvent, TellsWhyAFileCantBeWritten) {
    for (const std::string kind : {"png", "svg", "pdf"}) {
        EXPECT_EQ(PlayPlotAnd("render none/plot." + kind + "\n"), 1);
        EXPECT_EQ(err, "test.script:4: none/plot." + kind + " can't be written: No such file or directory\n");
        fs::create_directory("folder." + kind);
        EXPECT_EQ(PlayPlotAnd("render folder." + kind + "\n"), 1);
        EXPECT_EQ(err.substr(0, err.find(": ", 16)), "test.script:4: folder." + kind + " can't be written") << err;
    }
}

TEST_F(RenderEvent, RefusesAWindowThatNoPictureCanHold) {
    EXPECT_EQ(PlayPlotAnd("resize Plotit 600000 15\nrender plot.png\n"), 1);
    EXPECT_EQ(err, "test.script:5: plot.png can't be written: the plot window is too large\n");
}

TEST_F(RenderEvent, LeavesNumbersWithTheirPoints) {
    // A library of pictures takes over the locale of the session, and that may have decimal commas.
    ASSERT_EQ(PlayPlotAnd("render plot.png\nclick Command1\nclick Set_MenManually\ntype Text1 6.25\nprint dialog\n"), 0)
        << err;
    EXPECT_NE(out.find("\"6.25"), std::string::npos) << out;
}

}  // namespace
}  // namespace halvern
