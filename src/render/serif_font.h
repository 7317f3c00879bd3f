#pragma once

#include <QFont>

namespace halvern {

/// The font of plots, and of the labels that ask for one: Times New Roman, or what the platform has in its place.
QFont SerifFont();

}  // namespace halvern
