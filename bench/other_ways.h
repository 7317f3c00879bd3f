#pragma once

#include <QImage>

namespace halvern::bench {

/// The points of the request, in the axes of the plot window's last picture, by a painter that draws an ellipse or a line
/// for each.
void DrawWithPainter(QImage& picture);

/// The same with no more than what has to be done: a marker's rows, or a pixel for each step of a line, and nothing for
/// a neighbour that covers the same. What every way is measured by.
void DrawWithStamps(QImage& picture);

}  // namespace halvern::bench
