#pragma once

#include <QImage>

namespace halvern::bench {

/// The points of the request, in the axes of the plot window's last picture, by a painter that draws an ellipse or a line
/// for each.
void DrawWithPainter(QImage& picture);

/// The same, each marker stamped and each line drawn pixel by pixel, one point after the other, and nothing for a neighbour
/// that covers the same.
void DrawWithStamps(QImage& picture);

/// What every way is measured by: no more than what has to be done for the points. Pixels are worked out for many points
/// at once, neighbours on the same pixel are dropped without a branch, and the shapes that are left are written out.
void DrawTightly(QImage& picture);

/// The share of the pixels within the plot's box, its edge and ticks left out, that differ between two pictures.
double ShareOfOtherPixels(const QImage& picture, const QImage& other);

}  // namespace halvern::bench
