#include "replay/replay_printer.h"

#include "replay/print.h"

namespace halvern::replay {

void ReplayPrinter::PaintPicture(const Bitmap& /*picture*/, double left, double top, double width, double height) {
    std::string line = "picture";
    for (const double number : {left, top, width, height})
        line += ' ' + NineDigits(number);
    printed_.push_back(line + (IsPortrait() ? " portrait" : " landscape"));
}

void ReplayPrinter::EndDocument() {
    printed_.emplace_back("end of document");
    orientation_ = Orientation::kPortrait;
}

}  // namespace halvern::replay
