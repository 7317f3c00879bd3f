#pragma once

#include "render/image_canvas.h"
#include "tests/support/deserted_desktop.h"

namespace halvern::bench {

/// A desktop with nobody before it, and a picture for the window that draws.
class BenchDesktop : public test::DesertedDesktop {
  public:
    ImageCanvas canvas;

    Canvas& SurfaceOf(Form& /*form*/) override { return canvas; }
};

}  // namespace halvern::bench
