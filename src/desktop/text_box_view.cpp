#include "desktop/text_box_view.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>

#include "render/shown_text.h"

namespace halvern {

TextBoxView::TextBoxView(TextBox& box, EventGate& gate, QWidget* parent) : QLineEdit(parent), box_(&box), gate_(gate) {
    // A text dropped from elsewhere would bring the focus with it, past the box that has it.
    setAcceptDrops(false);
    setReadOnly(box.Click != nullptr);
    connect(this, &QLineEdit::textEdited, this, [this](const QString& text) {
        if (box_ != nullptr)
            gate_.Run([&] { box_->Type(text.toStdString()); }, "type " + box_->Name());
    });
}

void TextBoxView::BoxChanged() {
    if (const QString shown = ShownLine(box_->Text()); shown != text())
        setText(shown);
    if (box_->IsAllSelected())
        selectAll();
    if (box_->WantsFocus() && !leaving_)
        GiveFocus();
}

bool TextBoxView::Leave() {
    if (box_ == nullptr || gate_.HasEnded() || leaving_)
        return false;
    bool left = false;
    {
        const QScopedValueRollback leaving(leaving_, true);
        gate_.Run([&] { left = box_->Leave(); }, "type " + box_->Name());
    }
    if (box_ == nullptr || gate_.HasEnded())
        return false;
    knowsOfFocus_ = !left;
    if (!box_->WantsFocus())
        return left;
    GiveFocus();
    return false;
}

void TextBoxView::GiveFocus() {
    box_->FocusGiven();
    if (!hasFocus())
        setFocus();
    else
        TellOfFocus();
}

void TextBoxView::TellOfFocus() {
    if (box_ == nullptr || knowsOfFocus_)
        return;
    knowsOfFocus_ = true;
    gate_.Run(
        [this] {
            if (box_->GotFocus)
                box_->GotFocus();
        },
        "type " + box_->Name());
}

void TextBoxView::Click() {
    if (box_ != nullptr && box_->Click)
        gate_.Run(box_->Click, "click " + box_->Name());
}

// Whoever has no mouse presses a key where others click.
void TextBoxView::keyPressEvent(QKeyEvent* event) {
    const bool presses =
        event->key() == Qt::Key_Space || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!presses || box_ == nullptr || !box_->Click)
        return QLineEdit::keyPressEvent(event);
    Click();
}

void TextBoxView::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    pressBringsFocus_ = event->reason() == Qt::MouseFocusReason;
    TellOfFocus();
}

// A box may want its text selected when it gets the focus: the click that brings the focus does not undo that.
void TextBoxView::mousePressEvent(QMouseEvent* event) {
    keepsSelection_ = pressBringsFocus_ && box_ != nullptr && box_->IsAllSelected();
    pressBringsFocus_ = false;
    if (!keepsSelection_)
        QLineEdit::mousePressEvent(event);
}

void TextBoxView::mouseMoveEvent(QMouseEvent* event) {
    if (!keepsSelection_)
        QLineEdit::mouseMoveEvent(event);
}

void TextBoxView::mouseReleaseEvent(QMouseEvent* event) {
    if (!keepsSelection_)
        QLineEdit::mouseReleaseEvent(event);
    keepsSelection_ = false;
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        Click();
}

}  // namespace halvern
