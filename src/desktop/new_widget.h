#pragma once

#include <QWidget>

#include "desktop/event_gate.h"
#include "ui/control.h"

namespace halvern {

/// A widget for a control, which outlives it or is taken off it first. Its place and its states are the window's matter.
QWidget* NewWidget(Control& control, EventGate& gate, QWidget* parent);

/// Shows what has changed in the control itself: its caption, its text, its value.
void Mirror(Control& control, QWidget& widget);

/// Tells assistive programs what the control is. Where nothing else is told of a control, they go by its caption.
void TellName(const Control& control, QWidget& widget);

}  // namespace halvern
