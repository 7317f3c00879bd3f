#include "desktop/new_widget.h"

#include <QCheckBox>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <stdexcept>

#include "desktop/list_view.h"
#include "desktop/picture_view.h"
#include "desktop/text_box_view.h"
#include "render/serif_font.h"
#include "render/shown_text.h"
#include "ui/check_box.h"
#include "ui/up_down.h"

namespace halvern {

namespace {

QWidget* NewLabel(Control& /*control*/, EventGate& /*gate*/, QWidget* parent) {
    auto* widget = new QLabel(parent);
    widget->setTextFormat(Qt::PlainText);
    return widget;
}

QWidget* NewButton(Control& control, EventGate& gate, QWidget* parent) {
    auto* widget = new QPushButton(parent);
    auto& button = static_cast<Button&>(control);
    QObject::connect(widget, &QPushButton::clicked, widget, [&button, &gate] {
        gate.Run(
            [&] {
                if (button.Click)
                    button.Click();
            },
            "click " + button.Name());
    });
    return widget;
}

QWidget* NewTextBox(Control& control, EventGate& gate, QWidget* parent) {
    return new TextBoxView(static_cast<TextBox&>(control), gate, parent);
}

QWidget* NewCheckBox(Control& control, EventGate& gate, QWidget* parent) {
    auto* widget = new QCheckBox(parent);
    auto& box = static_cast<CheckBox&>(control);
    QObject::connect(widget, &QCheckBox::clicked, widget, [&box, &gate](bool ticked) {
        gate.Run([&] { box.SetValue(ticked ? 1 : 0); }, (ticked ? "tick " : "untick ") + box.Name());
    });
    return widget;
}

/// One arrow of a spin control, above or below the other. Held down it goes on.
QToolButton* NewArrow(Qt::ArrowType arrow, const char* name, QWidget* pair) {
    auto* button = new QToolButton(pair);
    button->setArrowType(arrow);
    button->setAutoRepeat(true);
    button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    button->setFocusPolicy(Qt::NoFocus);
    button->setAccessibleName(QLatin1String(name));
    pair->layout()->addWidget(button);
    return button;
}

QWidget* NewUpDown(Control& control, EventGate& gate, QWidget* parent) {
    auto* pair = new QWidget(parent);
    auto* layout = new QVBoxLayout(pair);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto& spin = static_cast<UpDown&>(control);
    auto* up = NewArrow(Qt::UpArrow, "Up", pair);
    auto* down = NewArrow(Qt::DownArrow, "Down", pair);
    QObject::connect(up, &QToolButton::clicked, pair,
                     [&spin, &gate] { gate.Run([&] { spin.StepUp(); }, "spin " + spin.Name()); });
    QObject::connect(down, &QToolButton::clicked, pair,
                     [&spin, &gate] { gate.Run([&] { spin.StepDown(); }, "spin " + spin.Name()); });
    return pair;
}

QWidget* NewFrame(Control& /*control*/, EventGate& /*gate*/, QWidget* parent) { return new QGroupBox(parent); }

QWidget* NewLine(Control& /*control*/, EventGate& /*gate*/, QWidget* parent) {
    auto* widget = new QFrame(parent);
    widget->setFrameStyle(static_cast<int>(QFrame::HLine) | static_cast<int>(QFrame::Plain));
    widget->setForegroundRole(QPalette::Mid);
    return widget;
}

QFont FontOf(const TextFont& text) {
    constexpr double kPixelsPerPoint = 96.0 / 72.0;
    QFont font = SerifFont();
    font.setBold(text.bold);
    font.setPixelSize(static_cast<int>(std::lround(static_cast<double>(text.points) * kPixelsPerPoint)));
    return font;
}

QWidget* NewPanel(Control& /*control*/, EventGate& /*gate*/, QWidget* parent) {
    auto* widget = new QFrame(parent);
    widget->setFrameStyle(static_cast<int>(QFrame::Panel) | static_cast<int>(QFrame::Sunken));
    widget->setAutoFillBackground(true);
    return widget;
}

QWidget* NewList(Control& control, EventGate& /*gate*/, QWidget* parent) {
    return new ListView(static_cast<ListBox&>(control), parent);
}

QWidget* NewPicture(Control& control, EventGate& /*gate*/, QWidget* parent) {
    return new PictureView(static_cast<Picture&>(control).Resource(), parent);
}

QWidget* NewProgressBar(Control& /*control*/, EventGate& /*gate*/, QWidget* parent) {
    auto* widget = new QProgressBar(parent);
    widget->setTextVisible(false);
    return widget;
}

void MirrorLabel(Control& control, QWidget& widget) {
    static_cast<QLabel&>(widget).setText(ShownLine(control.Caption()));
}

void MirrorButton(Control& control, QWidget& widget) {
    static_cast<QPushButton&>(widget).setText(ShownLine(control.Caption()));
}

void MirrorCheckBox(Control& control, QWidget& widget) {
    auto& box = static_cast<QCheckBox&>(widget);
    box.setText(ShownLine(control.Caption()));
    box.setChecked(static_cast<CheckBox&>(control).Value() != 0);
}

void MirrorTextBox(Control& /*control*/, QWidget& widget) { static_cast<TextBoxView&>(widget).BoxChanged(); }

void MirrorFrame(Control& control, QWidget& widget) {
    static_cast<QGroupBox&>(widget).setTitle(ShownName(control.Caption()));
}

void MirrorList(Control& /*control*/, QWidget& widget) { static_cast<ListView&>(widget).ExtentChanged(); }

void MirrorProgressBar(Control& control, QWidget& widget) {
    static_cast<QProgressBar&>(widget).setValue(static_cast<ProgressBar&>(control).Value());
}

void MirrorNothing(Control& /*control*/, QWidget& /*widget*/) {}

struct WidgetRow {
    ControlKind kind;
    QWidget* (*make)(Control& control, EventGate& gate, QWidget* parent);
    void (*mirror)(Control& control, QWidget& widget);
};

constexpr WidgetRow kWidgets[] = {
    {ControlKind::kLabel, NewLabel, MirrorLabel},
    {ControlKind::kButton, NewButton, MirrorButton},
    {ControlKind::kTextBox, NewTextBox, MirrorTextBox},
    {ControlKind::kCheckBox, NewCheckBox, MirrorCheckBox},
    {ControlKind::kUpDown, NewUpDown, MirrorNothing},
    {ControlKind::kFrame, NewFrame, MirrorFrame},
    {ControlKind::kLine, NewLine, MirrorNothing},
    {ControlKind::kPanel, NewPanel, MirrorNothing},
    {ControlKind::kListBox, NewList, MirrorList},
    {ControlKind::kPicture, NewPicture, MirrorNothing},
    {ControlKind::kProgressBar, NewProgressBar, MirrorProgressBar},
};

const WidgetRow& RowOf(const Control& control) {
    const auto row = std::find_if(std::begin(kWidgets), std::end(kWidgets),
                                  [&](const WidgetRow& candidate) { return candidate.kind == control.Kind(); });
    if (row == std::end(kWidgets))
        throw std::logic_error("no widget for a control of this kind: " + control.Name());
    return *row;
}

}  // namespace

QWidget* NewWidget(Control& control, EventGate& gate, QWidget* parent) {
    return RowOf(control).make(control, gate, parent);
}

void Mirror(Control& control, QWidget& widget) {
    if (control.Font().has_value())
        widget.setFont(FontOf(*control.Font()));
    RowOf(control).mirror(control, widget);
}

void TellName(const Control& control, QWidget& widget) {
    if (control.SpokenName().empty())
        return;
    widget.setAccessibleName(ShownLine(control.SpokenName()));
    if (control.Kind() == ControlKind::kLabel)
        widget.setAccessibleDescription(ShownLine(control.Caption()));
}

}  // namespace halvern
