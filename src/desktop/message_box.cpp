#include "desktop/message_box.h"

#include <QCloseEvent>
#include <QKeyEvent>

#include "render/shown_text.h"

namespace halvern {

namespace {

struct IconRow {
    int style;
    QMessageBox::Icon icon;
};

constexpr IconRow kIcons[] = {
    {kCritical, QMessageBox::Critical},
    {kQuestion, QMessageBox::Question},
    {kExclamation, QMessageBox::Warning},
    {kInformation, QMessageBox::Information},
};

QMessageBox::Icon IconOf(int style) {
    for (const auto& row : kIcons)
        if ((style & kIconMask) == row.style)
            return row.icon;
    return QMessageBox::NoIcon;
}

// The path of a file has no blanks, and the box no room for all of it in one line: a mark without width lets it break.
QString WithLongWordsBreakable(const QString& text) {
    constexpr int kLongestWord = 60;
    constexpr QChar kMayBreakHere(0x200B);
    QString breakable;
    int word = 0;
    for (const QChar c : text) {
        word = c.isSpace() ? 0 : word + 1;
        if (word > kLongestWord && !c.isLowSurrogate()) {
            breakable += kMayBreakHere;
            word = 1;
        }
        breakable += c;
    }
    return breakable;
}

}  // namespace

MessageBoxWindow::MessageBoxWindow(QWidget* parent, const std::string& text, int style, const std::string& title)
    : QMessageBox(parent), yesNo_((style & kYesNo) != 0) {
    setTextFormat(Qt::PlainText);
    setText(WithLongWordsBreakable(ShownLines(text)));
    setWindowTitle(ShownTitle(title));
    setIcon(IconOf(style));
    setStandardButtons(yesNo_ ? Yes | No : StandardButtons(Ok));
    const StandardButton first = yesNo_ ? Yes : Ok;
    setDefaultButton(yesNo_ && (style & kDefaultSecond) != 0 ? No : first);
    setWindowModality(Qt::ApplicationModal);
}

Answer MessageBoxWindow::Ask() {
    const int pressed = exec();
    if (!yesNo_)
        return Answer::kOk;
    return pressed == Yes ? Answer::kYes : Answer::kNo;
}

void MessageBoxWindow::keyPressEvent(QKeyEvent* event) {
    if (yesNo_ && event->matches(QKeySequence::Cancel))
        return;
    QMessageBox::keyPressEvent(event);
}

void MessageBoxWindow::closeEvent(QCloseEvent* event) {
    if (yesNo_)
        event->ignore();
    else
        QMessageBox::closeEvent(event);
}

}  // namespace halvern
