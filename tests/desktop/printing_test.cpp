#include <QAction>
#include <QApplication>
#include <QMessageBox>
#include <QPainter>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "desktop/plot_session.h"
#include "desktop/print_service.h"
#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "store/menus.h"
#include "store/report.h"
#include "ui/desktop.h"

namespace halvern {
namespace {

using test::kInk;
using test::kLaser;
using test::Page;
using Lines = std::vector<std::string>;

constexpr int kDotsPerInch = 144;

/// The program with its user and two printers.
struct Printing : test::PlotSession {
    test::PrintService service{folder.Path() / "print"};

    static void GiveReport(test::User& user, const Lines& lines) {
        user.Look([&] {
            for (const std::string& line : lines)
                AddLine(line);
            return true;
        });
    }
    static const MenuItem& ItemOf(PrinterItems& items, const char* printer) {
        for (std::size_t i = 1; i <= items.Count(); ++i)
            if (items(i).Caption() == printer)
                return items(i);
        throw std::runtime_error(std::string("no printer ") + printer);
    }
    /// The printers that are ticked in the menus of a window.
    static QStringList TickedPrinters(test::User& user, const char* window) {
        return user.Look([window] {
            QStringList texts;
            for (const QWidget* widget : QApplication::topLevelWidgets())
                if (widget->windowTitle() == QLatin1String(window))
                    for (const QAction* action : widget->findChildren<QAction*>())
                        if (action->isChecked() && (action->text() == kLaser || action->text() == kInk))
                            texts += action->text();
            return texts;
        });
    }
    /// What a command of the menu does from now on is counted when it has come to its end.
    static void Count(test::User& user, MenuItem& item, int& ends) {
        user.Look([&] {
            item.Click = [&ends, command = item.Click] {
                command();
                ++ends;
            };
            return true;
        });
    }
    void PrintPlot(test::User& user) {
        user.AwaitWindow(test::kPlotWindow);
        ChooseItemsHere(user, 'p', {&PlotitForm().Menu.PrnPlot});
    }
};

/// The text of all pages, one line below the other, from the left margin on.
Lines TextOf(const std::vector<Page>& pages) {
    constexpr std::size_t kColumnsOfMargin = 3;
    Lines text;
    for (const Page& page : pages)
        for (const std::string& line : page)
            text.push_back(line.empty() ? line : line.substr(kColumnsOfMargin));
    return text;
}

std::string WithoutEnd(const std::string& line) { return line.substr(0, line.find_last_not_of(' ') + 1); }

/// Lines as they come out on paper of so many columns.
Lines OnPaper(const Lines& lines, std::size_t columns) {
    Lines paper;
    for (std::string line : lines) {
        for (; line.size() > columns; line.erase(0, columns))
            paper.push_back(WithoutEnd(line.substr(0, columns)));
        paper.push_back(WithoutEnd(line));
    }
    return paper;
}

/// 148 lines: some indented, some longer than any paper, some with blanks where the paper ends.
Lines LongReport() {
    Lines lines{"", "     ", std::string(90, 'x') + "     behind blanks", std::string(90, ' ') + "far right"};
    for (int i = static_cast<int>(lines.size()); i < 148; ++i) {
        std::string line = std::string(static_cast<std::size_t>(i % 5), ' ') + "line " + std::to_string(i);
        if (i % 10 == 0)
            for (int word = 0; word < 5 + i; ++word)
                line += "  " + std::to_string(1000 + word);
        lines.push_back(line);
    }
    return lines;
}

TEST_F(Printing, PutsTheWholeReportOnPages) {
    const Lines lines = LongReport();
    const int status = test::WithUser([&](test::User& user) {
        Start(user);
        GiveReport(user, lines);
        EXPECT_EQ(Report(user).size(), 150U);
        ChooseItems(user, 'r', {&Menus().PrintFitting});
        const std::vector<Page> pages = test::PagesOf(service.AwaitDocument());
        const Lines text = TextOf(pages);

        std::size_t columns = 0;
        for (const std::string& line : text)
            columns = std::max(columns, line.size());
        EXPECT_GE(columns, 90U);  // 559 points between the margins, 6 points a character
        EXPECT_LE(columns, 93U);
        EXPECT_EQ(text, OnPaper(Report(user), columns));
        EXPECT_GT(pages.size(), 3U);
        for (std::size_t page = 1; page + 1 < pages.size(); ++page)
            EXPECT_EQ(pages[page].size(), pages.at(0).size());
        EXPECT_GT(pages.at(0).size(), 60U);
        EXPECT_TRUE(user.Look([] { return QGuiApplication::overrideCursor() == nullptr; }));
        Exit(user);
    });
    EXPECT_EQ(status, 0);
}

TEST_F(Printing, PutsTheSelectedLinesOnAPage) {
    const int status = test::WithUser([&](test::User& user) {
        Start(user);
        GiveReport(user, {"first", "  second", "third", "    <b>A&&B</b> %1 &amp; [*]"});
        // With nothing selected the document has one page, and that is empty.
        ChooseItems(user, 'r', {&Menus().PrnSelect});
        const auto empty = service.AwaitDocument();
        EXPECT_EQ(test::PagesOf(empty), std::vector<Page>{Page{}});
        EXPECT_FALSE(test::FirstPageOf(empty, kDotsPerInch).isNull());

        user.AwaitWindow(test::kMainWindow);
        user.Click(PlaceOfLine(user, 5));
        ClickWith(user, "ctrl", 1, PlaceOfLine(user, 3));
        user.Await("two lines", [] { return OutFileBox().IsSelected(5) && OutFileBox().IsSelected(3); });
        ChooseItems(user, 'r', {&Menus().PrnSelect});
        EXPECT_EQ(TextOf(test::PagesOf(service.AwaitDocument())), (Lines{"  second", "    <b>A&&B</b> %1 &amp; [*]"}));
        Exit(user);
    });
    EXPECT_EQ(status, 0);
}

TEST_F(Printing, GoesToThePrinterThatEitherMenuHasTicked) {
    const int status = test::WithUser([&](test::User& user) {
        ShowRawRate(user);
        EXPECT_EQ(TickedPrinters(user, test::kMainWindow), QStringList{kLaser});
        EXPECT_EQ(TickedPrinters(user, test::kPlotWindow), QStringList{kLaser});

        TurnToMainWindow(user);
        ChooseItems(user, 'r', {&ItemOf(Menus().Prn2Array, kInk)});
        user.Await("the choice", [] { return std::string(Store().DefaultPrinterName) == kInk; });
        EXPECT_EQ(TickedPrinters(user, test::kMainWindow), QStringList{kInk});
        EXPECT_EQ(TickedPrinters(user, test::kPlotWindow), QStringList{kInk});
        ChooseItems(user, 'r', {&Menus().PrintFitting});
        EXPECT_EQ(service.AwaitDocument().filename(), "Ink-1.pdf");

        test::ActivateWindow(test::FindWindow(test::kPlotWindow));
        user.AwaitWindow(test::kPlotWindow);
        user.Press("alt+p");
        user.Await("the menu", [] { return QApplication::activePopupWidget() != nullptr; });
        user.Photograph("printers-of-the-plot");
        user.Press("Escape");
        user.Await("no menu", [] { return QApplication::activePopupWidget() == nullptr; });
        user.Press("Escape");
        ChooseItemsHere(user, 'p', {&ItemOf(PlotitForm().Menu.PrnArray, kLaser)});
        user.Await("the choice", [] { return std::string(Store().DefaultPrinterName) == kLaser; });
        EXPECT_EQ(TickedPrinters(user, test::kMainWindow), QStringList{kLaser});
        EXPECT_EQ(TickedPrinters(user, test::kPlotWindow), QStringList{kLaser});
        PrintPlot(user);
        EXPECT_EQ(service.AwaitDocument().filename(), "Laser-2.pdf");

        TurnToMainWindow(user);
        ChooseItems(user, 'r', {&Menus().PrintFitting});
        EXPECT_EQ(service.AwaitDocument().filename(), "Laser-3.pdf");
        Exit(user);
    });
    EXPECT_EQ(status, 0);
}

/// The page as it must look: a picture in its own proportions, in the middle, at 80 % of the largest size that fits
/// between the margins.
QImage PageWith(const QImage& picture) {
    constexpr double kDotsPerPoint = kDotsPerInch / 72.0;
    QSizeF paper(test::kPaperWidthPoints, test::kPaperHeightPoints);
    if (picture.width() > picture.height())
        paper.transpose();
    const QSizeF room(paper.width() - 2.0 * test::kMarginPoints, paper.height() - 2.0 * test::kMarginPoints);
    const double fit = std::min(room.width() / picture.width(), room.height() / picture.height());
    const QSizeF size = QSizeF(picture.size()) * fit * 0.8;
    const QPointF corner((paper.width() - size.width()) / 2.0, (paper.height() - size.height()) / 2.0);

    QImage page((paper * kDotsPerPoint).toSize(), QImage::Format_RGB32);
    page.fill(Qt::white);
    QPainter painter(&page);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(corner * kDotsPerPoint, size * kDotsPerPoint), picture);
    return page;
}

/// What has another colour than the paper.
QRect InkOn(const QImage& page) {
    QRect ink;
    for (int y = 0; y < page.height(); ++y)
        for (int x = 0; x < page.width(); ++x)
            if (qGray(page.pixel(x, y)) < 250)
                ink |= QRect(x, y, 1, 1);
    return ink;
}

/// Mean difference of the pixels, in levels of grey, of 255.
double Difference(const QImage& one, const QImage& other) {
    double sum = 0.0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            sum += std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y)));
    return sum / (one.width() * one.height());
}

/// A document is one page with a picture in its place.
void ExpectOnPage(const QImage& picture, const std::filesystem::path& document) {
    const QImage page = test::FirstPageOf(document, kDotsPerInch), expected = PageWith(picture);
    EXPECT_EQ(test::PagesOf(document).size(), 1U);
    EXPECT_EQ(test::PictureIn(document).convertToFormat(QImage::Format_RGB32), picture);
    ASSERT_EQ(page.size(), expected.size());
    constexpr int kRounding = 2;
    const QRect ink = InkOn(page), expectedInk = InkOn(expected);
    EXPECT_NEAR(ink.left(), expectedInk.left(), kRounding);
    EXPECT_NEAR(ink.top(), expectedInk.top(), kRounding);
    EXPECT_NEAR(ink.right(), expectedInk.right(), kRounding);
    EXPECT_NEAR(ink.bottom(), expectedInk.bottom(), kRounding);
    // The two are scaled by different hands, which shows at the edges of thin lines; a shift shows much more.
    const double difference = Difference(page, expected);
    for (const QPoint& shift : {QPoint(2, 0), QPoint(-2, 0), QPoint(0, 2), QPoint(0, -2)})
        EXPECT_LT(2.0 * difference, Difference(page, expected.copy(QRect(shift, expected.size()))));
}

/// What the screen shows of the plot window's client area.
QImage OnScreen(const QWidget& surface) {
    QCoreApplication::sendPostedEvents();
    const QRect place(surface.mapToGlobal(QPoint()), surface.size());
    return QApplication::primaryScreen()->grabWindow(0).copy(place).toImage().convertToFormat(QImage::Format_RGB32);
}
QImage ClientOnScreen(test::User& user) {
    return user.Look([] { return OnScreen(test::PlotSession::SurfaceOfPlot()); });
}
/// The same, once all of the window is drawn: on a busy machine it comes up bit by bit.
QImage DrawnClient(test::User& user) {
    user.Await("all of the plot", [] {
        SurfaceView& surface = test::PlotSession::SurfaceOfPlot();
        const QRect place(surface.mapTo(surface.window(), QPoint()), surface.size());
        return OnScreen(surface) == surface.window()->grab(place).toImage().convertToFormat(QImage::Format_RGB32);
    });
    return ClientOnScreen(user);
}

struct Shape {
    const char* name;
    int width, height;
    bool lies;
};
constexpr Shape kShapes[] = {{"as it comes up", 0, 0, true}, {"tall", 500, 850, false}, {"wide", 1100, 350, true}};

TEST_F(Printing, LaysThePlotOnAPage) {
    const int status = test::WithUser([&](test::User& user) {
        const std::string window = ShowRawRate(user);
        for (const Shape& shape : kShapes) {
            if (shape.width != 0) {
                user.Do("windowmove " + window + " 10 30");
                user.Do("windowsize " + window + " " + std::to_string(shape.width) + " " +
                        std::to_string(shape.height));
                user.Await(shape.name, [&] {
                    return SurfaceOfPlot().window()->size() == QSize(shape.width, shape.height) &&
                           PlotitForm().Where().width == shape.width * kTwipsPerPixel;
                });
            }
            const QImage seen = DrawnClient(user);
            // The menu of the command, which has covered the plot, is not on the picture.
            PrintPlot(user);
            SCOPED_TRACE(shape.name);
            EXPECT_EQ(seen.width() > seen.height(), shape.lies);
            ExpectOnPage(seen, service.AwaitDocument());
        }
        Leave(user);
    });
    EXPECT_EQ(status, 0);
}

TEST_F(Printing, ShowsWhatCoversThePlot) {
    const int status = test::WithUser([&](test::User& user) {
        ShowRawRate(user);
        const QImage before = DrawnClient(user);
        auto cover = Cover(user);
        const QImage seen = ClientOnScreen(user);
        EXPECT_EQ(seen.pixelColor(275, 300), ColourOfCover());
        EXPECT_TRUE(user.Look([] { return PlotitForm().XYCoords.IsShown(); }));
        EXPECT_EQ(seen.copy(0, 0, 200, before.height()), before.copy(0, 0, 200, before.height()));
        PrintPlot(user);
        ExpectOnPage(seen, service.AwaitDocument());
        user.Photograph("covered-plot");
        Uncover(user, cover);
        Leave(user);
    });
    EXPECT_EQ(status, 0);
}

TEST_F(Printing, ShowsThePartOfThePlotThatIsBeyondTheScreen) {
    const int status = test::WithUser([&](test::User& user) {
        const std::string window = ShowRawRate(user);
        const QImage whole = DrawnClient(user);
        const QPoint before = user.Look([] { return SurfaceOfPlot().mapToGlobal(QPoint()); });
        user.Do("windowmove " + window + " 800 700");
        user.Await("the other place", [&] { return SurfaceOfPlot().mapToGlobal(QPoint()) != before; });
        EXPECT_FALSE(user.Look(
            [] { return QApplication::primaryScreen()->geometry().contains(SurfaceOfPlot().window()->geometry()); }));
        PrintPlot(user);
        ExpectOnPage(whole, service.AwaitDocument());
        Leave(user);
    });
    EXPECT_EQ(status, 0);
}

/// How a printer can fail.
struct Fault {
    const char* name;
    void (*begin)(test::PrintService& service);
};
constexpr Fault kFaults[] = {
    {"SchedulerGone", [](test::PrintService& service) { service.Stop(); }},
    {"PrinterTakenAway", [](test::PrintService& service) { service.Remove(kLaser); }},
    {"DocumentsRefused", [](test::PrintService& service) { service.Refuse(kLaser); }},
};

std::string NameOfFault(const ::testing::TestParamInfo<Fault>& fault) { return fault.param.name; }

void PrintTo(const Fault& fault, std::ostream* out) { *out << fault.name; }

struct FailingPrinter : Printing, ::testing::WithParamInterface<Fault> {};

TEST_P(FailingPrinter, IsNotReportedByTheReportsCommands) {
    int ends = 0;
    const int status = test::WithUser([&](test::User& user) {
        Start(user);
        Count(user, Menus().PrintFitting, ends);
        Count(user, Menus().PrnSelect, ends);
        GetParam().begin(service);
        ChooseItems(user, 'r', {&Menus().PrintFitting});
        user.Await("the end of the command", [&] { return ends == 1; });
        ChooseItems(user, 'r', {&Menus().PrnSelect});
        user.Await("the end of the command", [&] { return ends == 2; });
        EXPECT_TRUE(user.Look([] { return QApplication::activeModalWidget() == nullptr; }));
        EXPECT_TRUE(user.Look([] { return QGuiApplication::overrideCursor() == nullptr; }));
        EXPECT_EQ(Report(user).size(), 2U);
        Exit(user);
    });
    EXPECT_EQ(status, 0);
}

TEST_P(FailingPrinter, EndsTheProgramWhenThePlotIsPrinted) {
    const int status = test::WithUser([&](test::User& user) {
        ShowRawRate(user);
        GetParam().begin(service);
        PrintPlot(user);
        user.AwaitWindow("Halvern");
        EXPECT_EQ(TextOfBox(user), "Run-time error '482':\n\nPrinter error");
        EXPECT_TRUE(user.Look([] { return QGuiApplication::overrideCursor() == nullptr; }));
        user.Photograph("printer-error");
        user.Press("Return");
    });
    EXPECT_EQ(status, 70);
}

INSTANTIATE_TEST_SUITE_P(Faults, FailingPrinter, ::testing::ValuesIn(kFaults), NameOfFault);

}  // namespace
}  // namespace halvern
