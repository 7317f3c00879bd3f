#include "desktop/message_box.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "desktop/application.h"

namespace halvern {
namespace {

QMessageBox::StandardButton DefaultOf(const MessageBoxWindow& box) { return box.standardButton(box.defaultButton()); }

TEST(MessageBox, ShowsPlainTextWithItsLineBreaks) {
    MessageBoxWindow box(nullptr, "<b>dc/dt</b> &amp;\r\nsecond line", kOkOnly, "A <title>");
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.text(), "<b>dc/dt</b> &amp;\nsecond line");
    EXPECT_EQ(box.windowTitle(), "A <title>");
    auto* label = box.findChild<QLabel*>("qt_msgbox_label");
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
    EXPECT_EQ(label->text(), "<b>dc/dt</b> &amp;\nsecond line");
}

TEST(MessageBox, ShowsTheWholeOfALongFileName) {
    const std::string name(127, 'W');
    MessageBoxWindow box(nullptr, name + " and\r\n" + name, kYesNo + kCritical, "Data Error!");
    box.show();
    auto* label = box.findChild<QLabel*>("qt_msgbox_label");
    ASSERT_NE(label, nullptr);
    const QRect written =
        label->fontMetrics().boundingRect(QRect(0, 0, label->width(), 10000), Qt::TextWordWrap, label->text());
    EXPECT_LE(written.width(), label->width());
    EXPECT_LE(written.height(), label->height());
}

TEST(MessageBox, LeavesTextsOfOrdinaryWordsAsTheyAre) {
    const std::string text = "Too few files in List File.  Try again and select at least 4 data files.";
    EXPECT_EQ(MessageBoxWindow(nullptr, text, kOkOnly, "title").text().toStdString(), text);
}

struct IconCase {
    int style;
    QMessageBox::Icon icon;
};
constexpr IconCase kIcons[] = {
    {kOkOnly, QMessageBox::NoIcon},
    {kCritical, QMessageBox::Critical},
    {kQuestion, QMessageBox::Question},
    {kExclamation, QMessageBox::Warning},
    {kInformation, QMessageBox::Information},
    {kYesNo + kQuestion, QMessageBox::Question},
    {kYesNo + kExclamation + kDefaultSecond, QMessageBox::Warning},
};

TEST(MessageBox, TakesItsIconFromTheStyle) {
    for (const auto& [style, icon] : kIcons)
        EXPECT_EQ(MessageBoxWindow(nullptr, "text", style, "title").icon(), icon) << style;
}

TEST(MessageBox, HasOkAloneOrYesAndNo) {
    EXPECT_EQ(MessageBoxWindow(nullptr, "text", kExclamation, "title").standardButtons(), QMessageBox::Ok);
    EXPECT_EQ(MessageBoxWindow(nullptr, "text", kYesNo, "title").standardButtons(), QMessageBox::Yes | QMessageBox::No);
}

TEST(MessageBox, HasTheFirstButtonAsDefaultUnlessTheStyleNamesTheSecond) {
    EXPECT_EQ(DefaultOf({nullptr, "text", kOkOnly, "title"}), QMessageBox::Ok);
    EXPECT_EQ(DefaultOf({nullptr, "text", kYesNo + kQuestion, "title"}), QMessageBox::Yes);
    EXPECT_EQ(DefaultOf({nullptr, "text", kYesNo + kQuestion + kDefaultSecond, "title"}), QMessageBox::No);
    EXPECT_EQ(DefaultOf({nullptr, "text", kDefaultSecond, "title"}), QMessageBox::Ok);
}

TEST(MessageBox, KeepsEveryOtherWindowFromEvents) {
    EXPECT_EQ(MessageBoxWindow(nullptr, "text", kOkOnly, "title").windowModality(), Qt::ApplicationModal);
}

/// What a box answers when the keys are pressed in it one after the other.
Answer AnswerTo(int style, const std::vector<Qt::Key>& keys) {
    test::AtNext<MessageBoxWindow> user([&](MessageBoxWindow& box) {
        for (const Qt::Key key : keys)
            QTest::keyClick(box.focusWidget(), key);
    });
    return MessageBoxWindow(nullptr, "text", style, "title").Ask();
}

TEST(MessageBox, AnswersByItsDefaultButtonAndByItsAccessKeys) {
    EXPECT_EQ(AnswerTo(kOkOnly, {Qt::Key_Return}), Answer::kOk);
    EXPECT_EQ(AnswerTo(kYesNo, {Qt::Key_Return}), Answer::kYes);
    EXPECT_EQ(AnswerTo(kYesNo + kDefaultSecond, {Qt::Key_Return}), Answer::kNo);
    EXPECT_EQ(AnswerTo(kYesNo, {Qt::Key_N}), Answer::kNo);
    EXPECT_EQ(AnswerTo(kYesNo + kDefaultSecond, {Qt::Key_Y}), Answer::kYes);
}

TEST(MessageBox, OfOkTakesEscapeAndTheFrameAsOk) {
    EXPECT_EQ(AnswerTo(kOkOnly, {Qt::Key_Escape}), Answer::kOk);
    test::AtNext<MessageBoxWindow> user([](MessageBoxWindow& box) { box.close(); });
    EXPECT_EQ(MessageBoxWindow(nullptr, "text", kOkOnly, "title").Ask(), Answer::kOk);
}

TEST(MessageBox, OfYesAndNoTakesNeitherEscapeNorTheFrame) {
    EXPECT_EQ(AnswerTo(kYesNo, {Qt::Key_Escape, Qt::Key_Escape, Qt::Key_Return}), Answer::kYes);
    test::AtNext<MessageBoxWindow> user([](MessageBoxWindow& box) {
        EXPECT_FALSE(box.close());
        EXPECT_TRUE(box.isVisible());
        QTest::keyClick(box.focusWidget(), Qt::Key_N);
    });
    EXPECT_EQ(MessageBoxWindow(nullptr, "text", kYesNo, "title").Ask(), Answer::kNo);
}

}  // namespace
}  // namespace halvern
