#pragma once

namespace halvern::bench {

/// Ends the process with status 0 as soon as a window with a menu bar has its first picture on the display.
///
/// Note      needs an application object, and works for every window that comes up later
void EndWithFirstPaint();

}  // namespace halvern::bench
