#include "shell/splash.h"

#include "store/single.h"
#include "ui/desktop.h"

namespace halvern {

namespace {

constexpr Place kDesign{0, 0, 6600, 4200};
constexpr Place kTitle{300, 3000, 6000, 300};
constexpr Place kWide{300, 3360, 6000, 300};
constexpr Place kLimit{300, 3720, 6000, 300};
constexpr Place kImage{300, 240, 6000, 2640};

}  // namespace

Splash::Splash() : Form("Splash1", "HalvernV0.99", kDesign) {
    Add("Image1", Image1, kImage);
    Add("Label1", Label1, kTitle);
    Add("Label2", Label2, kWide);
    Add("Label3", Label3, kLimit);
}

/// A quarter of the free space goes to the left and above, not half of it.
void Splash::Form_Load() {
    const Place& design = Where();
    const auto& desktop = TheDesktop();
    SetPlace({ToInteger32((desktop.ScreenWidthTwips() - design.width) / 4.0),
              ToInteger32((desktop.ScreenHeightTwips() - design.height) / 4.0), design.width, design.height});
}

}  // namespace halvern
