#include "plot/export.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "store/menus.h"
#include "support/data_files.h"
#include "support/failure.h"
#include "support/session.h"
#include "ui/desktop.h"

namespace halvern {
namespace {

using Texts = std::vector<std::string>;

struct TestPicture final : Bitmap {
    TestPicture(std::int32_t pixelsWide, std::int32_t pixelsHigh) : width(pixelsWide), height(pixelsHigh) {}
    std::int32_t PixelWidth() const override { return width; }
    std::int32_t PixelHeight() const override { return height; }
    std::int32_t width, height;
};

/// The plot window of a desktop with two printers, 600 by 400 pixels.
struct Export : ::testing::Test {
    test::DataFolder folder;
    test::TestDesktop desktop;
    PlotWindow& plot = PlotitForm();

    Export() {
        desktop.printers = {"Laser", "Ink"};
        LoadPrinterItemsOfBoth();
        plot.SetPlace({0, 0, 600 * kTwipsPerPixel, 400 * kTwipsPerPixel});
    }
    void LoadPrinterItemsOfBoth() {
        Store().DefaultPrinterName = "Laser";
        plot.Load();
        for (int i = 0; i < 2; ++i)
            Menus().Prn2Array.Load();
        desktop.printersSelected.clear();
    }
    /// How a picture of this size is laid on a page of this size.
    Texts Laid(std::int32_t width, std::int32_t height) {
        PrintPictureFit(desktop, TestPicture(width, height));
        return desktop.printed;
    }
};

TEST_F(Export, ClearsTheClipboardAndPutsThePictureOnIt) {
    plot.Menu.ClipPrn.Click();
    EXPECT_EQ(desktop.clipboard, (Texts{"cleared", "picture 600x400"}));
}

TEST_F(Export, EndsTheProgramWhenTheClipboardFails) {
    desktop.clipboardFails = true;
    EXPECT_FAILURE(521, plot.Menu.ClipPrn.Click());
}

TEST_F(Export, AsksForABitmapFileAndSavesThePicture) {
    const std::string path = (folder.Path() / "plot.bmp").string();
    desktop.choices.push_back(path);
    plot.Menu.SaveBMP.Click();
    EXPECT_EQ(desktop.pictures, (Texts{"600x400 " + path}));
    const FileDialog& dialog = desktop.fileDialogs.at(0);
    EXPECT_EQ(dialog.filter, "Bitmap | *.bmp");
    EXPECT_EQ(dialog.flags, 2);
    EXPECT_EQ(dialog.defaultExtension, "bmp");
    EXPECT_EQ(dialog.fileName, "");
    EXPECT_EQ(dialog.maxFileSize, 127);
}

TEST_F(Export, EndsWithoutAWordWhenTheBitmapIsCancelledOrCannotBeSaved) {
    desktop.choices.push_back(std::nullopt);
    plot.Menu.SaveBMP.Click();
    desktop.picturesFail = true;
    desktop.choices.push_back((folder.Path() / "plot.bmp").string());
    plot.Menu.SaveBMP.Click();
    EXPECT_TRUE(desktop.messages.empty());
    EXPECT_TRUE(desktop.pictures.empty());
}

TEST_F(Export, PrintsWhatTheScreenShowsOfTheWindow) {
    plot.Menu.PrnPlot.Click();
    EXPECT_EQ(desktop.captures, (Texts{"Plotit client 0,0 600x400"}));
    // The page lies, 15840 by 12240 twips: 0.8 x 15840 = 12672, 12672 / 1.5 = 8448, and what is left goes to both sides.
    EXPECT_EQ(desktop.printed,
              (Texts{"landscape", "picture 600x400 at 1584.000,1896.000 size 12672.000,8448.000", "end"}));
    EXPECT_EQ(desktop.pointers, (std::vector<int>{kPointerHourglass, kPointerNormal}));
    EXPECT_EQ(plot.Picture1, nullptr);
}

TEST_F(Export, EndsTheProgramWhenThePrinterFails) {
    desktop.printsBeforeFault = 0;
    EXPECT_FAILURE(482, plot.Menu.PrnPlot.Click());
    EXPECT_EQ(desktop.pointer, kPointerHourglass);
}

TEST_F(Export, FillsTheWidthOfThePageWithAWidePicture) {
    // 0.8 x 15840 wide, a quarter of that high, in the middle of 15840 by 12240.
    EXPECT_EQ(Laid(400, 100), (Texts{"landscape", "picture 400x100 at 1584.000,4536.000 size 12672.000,3168.000"}));
}

TEST_F(Export, FillsTheHeightOfThePageWithANarrowPicture) {
    // 0.8 x 15840 high, half of that wide, in the middle of 12240 by 15840.
    EXPECT_EQ(Laid(100, 200), (Texts{"portrait", "picture 100x200 at 2952.000,1584.000 size 6336.000,12672.000"}));
}

TEST_F(Export, PrintsASquarePictureInPortrait) {
    EXPECT_EQ(Laid(300, 300), (Texts{"portrait", "picture 300x300 at 1224.000,3024.000 size 9792.000,9792.000"}));
}

TEST_F(Export, FillsTheWidthWithAPictureOfThePagesOwnProportions) {
    desktop.pageWidth = 10000.0F;
    desktop.pageHeight = 12000.0F;
    EXPECT_EQ(Laid(500, 600), (Texts{"portrait", "picture 500x600 at 1000.000,1200.000 size 8000.000,9600.000"}));
    EXPECT_TRUE(FillsWidth(TestPicture(500, 600), 10000.0F, 12000.0F));
    EXPECT_FALSE(FillsWidth(TestPicture(499, 600), 10000.0F, 12000.0F));
    // Here the two quotients, each rounded, differ.
    EXPECT_TRUE(FillsWidth(TestPicture(11, 15), 11000.0F, 15000.0F));
}

TEST_F(Export, ChoosesAPrinterForBothWindows) {
    ASSERT_EQ(plot.Menu.PrnArray.Count(), 2U);
    EXPECT_TRUE(plot.Menu.PrnArray(1).IsTicked());
    plot.Menu.PrnArray(2).Click();
    for (PrinterItems* items : {&plot.Menu.PrnArray, &Menus().Prn2Array}) {
        EXPECT_FALSE((*items)(1).IsTicked());
        EXPECT_TRUE((*items)(2).IsTicked());
    }
    EXPECT_EQ(desktop.printersSelected, (std::vector<std::size_t>{1}));
    EXPECT_EQ(Store().DefaultPrinterName, "Ink");
}

}  // namespace
}  // namespace halvern
