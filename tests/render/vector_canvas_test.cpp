#include "render/vector_canvas.h"

#include <QBuffer>
#include <QImage>
#include <QRegularExpression>
#include <QSvgGenerator>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include <cmath>
#include <string_view>

#include "render/shown_text.h"

namespace halvern {
namespace {

/// A page of 665 by 500 pixels under the page of the plot, as text.
struct VectorCanvasTest : ::testing::Test {
    QBuffer buffer;
    QSvgGenerator page;
    std::unique_ptr<VectorCanvas> canvas;

    VectorCanvasTest() {
        page.setOutputDevice(&buffer);
        page.setResolution(96);
        page.setSize({665, 500});
        page.setViewBox(QRect(0, 0, 665, 500));
        canvas = std::make_unique<VectorCanvas>(page, QSize(665, 500));
        canvas->Scale(-25.0F, 120.0F, 110.0F, -25.0F);
    }

    QString Text() {
        EXPECT_TRUE(canvas->Finish());
        return QString::fromUtf8(buffer.data());
    }
    static double Across(double x) { return (x + 25.0) * 665.0 / 135.0; }
    static double Down(double y) { return (120.0 - y) * 500.0 / 145.0; }
    static QString Number(double value) { return QString::number(value, 'g', 6); }
};

TEST_F(VectorCanvasTest, IsAsLargeAsTheWindowAndMapsThePage) {
    EXPECT_EQ(canvas->PixelWidth(), 665.0F);
    EXPECT_EQ(canvas->PixelHeight(), 500.0F);
    EXPECT_EQ(canvas->ScaleHeight(), -145.0F);
}

TEST_F(VectorCanvasTest, KeepsPlacesBetweenPixels) {
    canvas->Box(0.0F, 0.0F, 100.0F, 100.0F, 0xFF0000);
    canvas->Line(10.0F, 20.0F, 30.0F, 40.0F, 0x0000FF);
    const QString text = Text();
    EXPECT_TRUE(text.contains("<rect x=\"" + Number(Across(0.0)) + "\" y=\"" + Number(Down(100.0)) + "\" width=\"" +
                              Number(Across(100.0) - Across(0.0))))
        << text.toStdString();
    EXPECT_TRUE(text.contains("points=\"" + Number(Across(10.0)) + ',' + Number(Down(20.0)) + ' ' +
                              Number(Across(30.0)) + ',' + Number(Down(40.0)) + ' '))
        << text.toStdString();
    EXPECT_TRUE(text.contains("stroke=\"#ff0000\""));
    EXPECT_TRUE(text.contains("stroke=\"#0000ff\""));
}

TEST_F(VectorCanvasTest, MakesOneLineOfWhatGoesOnInOneColour) {
    canvas->MoveTo(0.0F, 0.0F);
    for (int i = 1; i <= 10; ++i)
        canvas->LineTo(static_cast<float>(i), static_cast<float>(i % 2), 0xFF0000);
    canvas->LineTo(11.0F, 0.0F, 0x0000FF);
    canvas->MoveTo(50.0F, 50.0F);
    canvas->LineTo(51.0F, 50.0F, 0x0000FF);
    EXPECT_EQ(Text().count("<polyline"), 3);
}

TEST_F(VectorCanvasTest, DrawsInTheOrderOfTheOperations) {
    canvas->Line(0.0F, 0.0F, 50.0F, 50.0F, 0x00FF00);
    canvas->FilledBox(10.0F, 10.0F, 20.0F, 20.0F, 0x0000FF);
    const QString text = Text();
    EXPECT_LT(text.indexOf("#00ff00"), text.indexOf("#0000ff"));
}

TEST_F(VectorCanvasTest, IsWellFormedWhateverTheTextsHold) {
    const std::string_view texts[] = {"</text></svg><!--",
                                      "]]> & &amp; \"'",
                                      "\x1B[2J\a\t\r\n\x01",
                                      "caf\xE9 \xFF",
                                      "\xEF\xBF\xBE \xEF\xBF\xBF",
                                      "gpj.\xE2\x80\xAE"
                                      "exe",
                                      std::string_view("a\0b", 3)};
    QString wanted, found;
    for (const std::string_view text : texts) {
        canvas->MoveTo(0.0F, 0.0F);
        canvas->Print(text);
        wanted += ShownLine(text);
    }
    // A text whose letters are not all in one font is drawn in pieces.
    QXmlStreamReader reader(Text());
    while (!reader.atEnd())
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == QLatin1String("text"))
            found += reader.readElementText();
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    EXPECT_EQ(found.toStdString(), wanted.toStdString());
}

TEST_F(VectorCanvasTest, KeepsTextsAsTexts) {
    canvas->SetFont(12, true);
    canvas->MoveTo(0.0F, 0.0F);
    canvas->Print("a < b & c");
    canvas->SetRotatedFont(20);
    canvas->Print("Fringes");
    const QString text = Text();
    EXPECT_TRUE(text.contains(">a &lt; b &amp; c</text>"));
    EXPECT_TRUE(text.contains(">Fringes</text>"));
    EXPECT_TRUE(text.contains("font-family=\"Times New Roman\" font-size=\"16\" font-weight=\"700\""));
    // A quarter of a turn to the left, about the place.
    EXPECT_TRUE(text.contains("matrix(0,-1,1,0," + Number(Across(0.0)) + ',' + Number(Down(0.0)) + ')'))
        << text.toStdString();
}

TEST_F(VectorCanvasTest, MeasuresTextsInPageUnits) {
    canvas->SetFont(12, true);
    EXPECT_GT(canvas->TextWidth("Fringes"), 0.0F);
    EXPECT_NEAR(canvas->TextWidthPixels("Fringes"), canvas->TextWidth("Fringes") * 665.0 / 135.0, 1.0);
    // 16 pixels of 29 hundredths of a unit, and a little more.
    EXPECT_NEAR(canvas->TextHeight("X"), -16.0F * 1.1F * 0.29F, 0.6F);
    const float upright = canvas->TextWidth("Fringes");
    canvas->SetRotatedFont(40);
    EXPECT_EQ(canvas->TextWidth("Fringes"), upright);
    EXPECT_GT(canvas->TextWidthPixels("Fringes"), 2 * upright);
}

TEST_F(VectorCanvasTest, PutsCirclesAndPolygonsInTheirPlaces) {
    QImage image(665, 500, QImage::Format_RGB32);
    VectorCanvas onPixels(image, {665, 500});
    onPixels.Scale(-25.0F, 120.0F, 110.0F, -25.0F);
    onPixels.Cls();
    onPixels.SetFillStyle(FillStyle::kSolid);
    onPixels.SetFillColour(0xFF0000);
    onPixels.Circle(50.0F, 50.0F, 4.0F, 0xFF0000);  // 19.7 pixels around (369.4, 241.4)
    const PixelPoint corners[] = {{20, 10}, {40, 30}, {20, 50}, {0, 30}};
    onPixels.Polygon(corners);
    ASSERT_TRUE(onPixels.Finish());
    EXPECT_EQ(image.pixel(369, 241), 0xFFFF0000);
    EXPECT_EQ(image.pixel(369 - 18, 241), 0xFFFF0000);
    EXPECT_EQ(image.pixel(369, 241 + 18), 0xFFFF0000);
    EXPECT_EQ(image.pixel(369 - 22, 241), 0xFFFFFFFF);
    EXPECT_EQ(image.pixel(20, 30), 0xFFFF0000);
    EXPECT_EQ(image.pixel(35, 15), 0xFFFFFFFF);
}

TEST_F(VectorCanvasTest, FarOffThePageFailsNowhere) {
    canvas->Line(-HUGE_VALF, std::nanf(""), HUGE_VALF, 3E38F, 0);
    canvas->Circle(3E38F, 0.0F, 3E38F, 0);
    const QString text = Text();
    EXPECT_FALSE(text.contains("nan"));
    EXPECT_FALSE(text.contains("inf"));
}

TEST_F(VectorCanvasTest, IsFinishedOnce) {
    EXPECT_TRUE(canvas->Finish());
    EXPECT_FALSE(canvas->Finish());
}

}  // namespace
}  // namespace halvern
