#include "desktop/list_view.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QScrollBar>
#include <QTest>

namespace halvern {
namespace {

struct ListOfLines : ::testing::Test {
    ListBox box;
    ListView view{box, nullptr};

    ListOfLines() {
        view.resize(300, 200);
        view.show();
    }
    ~ListOfLines() override { view.LetGo(); }

    void AddLines(int count) {
        for (int i = 0; i < count; ++i)
            box.AddLine(" line " + std::to_string(i));
    }
    /// The line at the top of the visible part, as it is painted.
    int TopLine() {
        QCoreApplication::processEvents();
        return view.indexAt({5, 2}).row();
    }
    QString Text(int row) const { return view.model()->index(row, 0).data().toString(); }
    int Rows() const { return view.model()->rowCount(); }
    void Click(int row, Qt::KeyboardModifiers keys = {}) {
        view.scrollTo(view.model()->index(row, 0));
        QTest::mouseClick(view.viewport(), Qt::LeftButton, keys, view.visualRect(view.model()->index(row, 0)).center());
    }
    std::vector<std::size_t> Selected() const {
        std::vector<std::size_t> lines;
        for (std::size_t i = 0; i < box.ListCount(); ++i)
            if (box.IsSelected(i))
                lines.push_back(i);
        return lines;
    }
};

using Numbers = std::vector<std::size_t>;

TEST_F(ListOfLines, ShowsLinesAsTheyAreAdded) {
    box.AddLine(" Halvern V0.99   ");
    box.AddLine("<dc/dt> & <b>bold</b>");
    ASSERT_EQ(Rows(), 2);
    EXPECT_EQ(Text(0), " Halvern V0.99   ");
    EXPECT_EQ(Text(1), "<dc/dt> & <b>bold</b>");
}

TEST_F(ListOfLines, ShowsLinesOfAListThatHasSomeAlready) {
    AddLines(3);
    box.Select(1);
    ListView second(box, nullptr);
    EXPECT_EQ(second.model()->rowCount(), 3);
    EXPECT_EQ(second.selectionModel()->selectedRows().size(), 1);
    second.LetGo();
    EXPECT_EQ(second.model()->rowCount(), 0);
}

TEST_F(ListOfLines, TakesLinesAway) {
    AddLines(4);
    box.RemoveLine(1);
    box.RemoveLine(2);
    ASSERT_EQ(Rows(), 2);
    EXPECT_EQ(Text(0), " line 0");
    EXPECT_EQ(Text(1), " line 2");
}

TEST_F(ListOfLines, ShowsBytesThatAreNoText) {
    box.AddLine("Data File Not Found: caf\xE9\n.RA1");
    EXPECT_EQ(Text(0), QStringLiteral(u"Data File Not Found: caf\uFFFD\uFFFD.RA1"));
    view.grab();
}

TEST_F(ListOfLines, LetsTheUserSelectSeveralLines) {
    AddLines(8);
    Click(2);
    EXPECT_EQ(Selected(), (Numbers{2}));
    Click(4, Qt::ControlModifier);
    EXPECT_EQ(Selected(), (Numbers{2, 4}));
    Click(3);
    Click(6, Qt::ShiftModifier);
    EXPECT_EQ(Selected(), (Numbers{3, 4, 5, 6}));
    Click(5, Qt::ControlModifier);
    EXPECT_EQ(Selected(), (Numbers{3, 4, 6}));
    Click(0);
    EXPECT_EQ(Selected(), (Numbers{0}));
}

TEST_F(ListOfLines, ShowsWhatTheProgramSelects) {
    AddLines(5);
    box.Select(1);
    box.Select(3);
    EXPECT_TRUE(view.selectionModel()->isRowSelected(1));
    EXPECT_TRUE(view.selectionModel()->isRowSelected(3));
    box.Select(1, false);
    EXPECT_FALSE(view.selectionModel()->isRowSelected(1));
    EXPECT_EQ(Selected(), (Numbers{3}));
}

TEST_F(ListOfLines, KeepsTheSelectionWhileLinesAreAddedAndTakenAway) {
    AddLines(5);
    Click(1);
    Click(4, Qt::ControlModifier);
    box.AddLine("one more");
    EXPECT_EQ(Selected(), (Numbers{1, 4}));
    box.RemoveLine(5);
    box.RemoveLine(4);
    EXPECT_EQ(Selected(), (Numbers{1}));
    box.RemoveLine(0);
    EXPECT_EQ(Selected(), (Numbers{0}));
    EXPECT_TRUE(view.selectionModel()->isRowSelected(0));
    EXPECT_EQ(view.selectionModel()->selectedRows().size(), 1);
}

TEST_F(ListOfLines, PutsTheTopLineWhereTheProgramWantsIt) {
    AddLines(100);
    box.SetTopIndex(50);
    EXPECT_EQ(box.TopIndex(), 50U);
    EXPECT_EQ(TopLine(), 50);
}

TEST_F(ListOfLines, ScrollsAsFarAsTheListGoesAndTellsTheRealTop) {
    AddLines(100);
    box.SetTopIndex(99);
    const int top = TopLine();
    EXPECT_EQ(box.TopIndex(), static_cast<std::size_t>(top));
    EXPECT_EQ(top, view.verticalScrollBar()->maximum());
    const QRect last = view.visualRect(view.model()->index(99, 0));
    EXPECT_TRUE(view.viewport()->rect().contains(last.adjusted(0, 0, -last.width() / 2, 0)));
    EXPECT_GE(last.bottom() + last.height(), view.viewport()->height());  // no room for one more
}

TEST_F(ListOfLines, DoesNotScrollAListThatHasRoomForAllOfIt) {
    AddLines(8);
    box.SetTopIndex(5);
    EXPECT_EQ(box.TopIndex(), 0U);
    EXPECT_EQ(TopLine(), 0);
}

TEST_F(ListOfLines, TellsTheTopWhenTheUserScrolls) {
    AddLines(100);
    QCoreApplication::processEvents();
    view.verticalScrollBar()->setValue(7);
    EXPECT_EQ(box.TopIndex(), 7U);
    EXPECT_EQ(TopLine(), 7);
    Click(7);
    QTest::keyClick(&view, Qt::Key_End);
    EXPECT_EQ(box.TopIndex(), static_cast<std::size_t>(view.verticalScrollBar()->maximum()));
}

TEST_F(ListOfLines, KeepsTheTopWhileLinesAreAdded) {
    AddLines(100);
    box.SetTopIndex(20);
    AddLines(10);
    EXPECT_EQ(TopLine(), 20);
    EXPECT_EQ(box.TopIndex(), 20U);
}

TEST_F(ListOfLines, TellsTheTopWhenTheWindowGrows) {
    AddLines(100);
    box.SetTopIndex(99);
    const std::size_t before = box.TopIndex();
    view.resize(300, 600);
    QCoreApplication::processEvents();
    EXPECT_LT(box.TopIndex(), before);
    EXPECT_EQ(box.TopIndex(), static_cast<std::size_t>(TopLine()));
}

TEST_F(ListOfLines, RemembersATopThatWasSetBeforeItWasShown) {
    ListBox other;
    for (int i = 0; i < 50; ++i)
        other.AddLine("line");
    other.SetTopIndex(30);
    ListView late(other, nullptr);
    late.resize(300, 200);
    late.show();
    EXPECT_EQ(late.verticalScrollBar()->value(), 30);
    late.LetGo();
}

TEST_F(ListOfLines, ScrollsSidewaysOverItsExtent) {
    box.SetHorizontalExtent(1160);
    AddLines(1);
    view.ExtentChanged();
    QCoreApplication::processEvents();
    EXPECT_EQ(view.horizontalScrollBar()->maximum() + view.viewport()->width(), 1160);
}

TEST_F(ListOfLines, ScrollsSidewaysOverTheLongestLineIfThatIsMore) {
    box.SetHorizontalExtent(400);
    const std::string longest(400, 'W');
    box.AddLine("short");
    box.AddLine(longest);
    QCoreApplication::processEvents();
    const int width = view.fontMetrics().horizontalAdvance(QString::fromStdString(longest));
    EXPECT_GE(view.horizontalScrollBar()->maximum() + view.viewport()->width(), width);
    EXPECT_LE(view.horizontalScrollBar()->maximum() + view.viewport()->width(), width + 20);
    box.RemoveLine(1);
    QCoreApplication::processEvents();
    EXPECT_EQ(view.horizontalScrollBar()->maximum() + view.viewport()->width(), 400);
}

TEST_F(ListOfLines, FitsItsWidthWithoutAnExtent) {
    box.AddLine("short");
    QCoreApplication::processEvents();
    EXPECT_EQ(view.horizontalScrollBar()->maximum(), 0);
}

TEST_F(ListOfLines, PaintsAtOnePassThroughTheEvents) {
    QCoreApplication::processEvents();
    const QImage before = view.grab().toImage();
    struct Painted : QObject {
        int times = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            times += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
    } painted;
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    QCoreApplication::processEvents();
    view.viewport()->installEventFilter(&painted);
    box.AddLine(" * Reading Files *");
    QCoreApplication::processEvents();
    EXPECT_GE(painted.times, 1);
    EXPECT_NE(view.grab().toImage(), before);
}

TEST_F(ListOfLines, LeavesTheClipboardToTheMenu) {
    QGuiApplication::clipboard()->setText("what was there before");
    AddLines(3);
    Click(1);
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "what was there before");
}

TEST_F(ListOfLines, IsCalledReportForThoseWhoHearIt) { EXPECT_EQ(view.accessibleName(), "Report"); }

}  // namespace
}  // namespace halvern
