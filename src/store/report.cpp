#include "store/report.h"

#include "ui/desktop.h"

namespace halvern {

ListBox& OutFileBox() {
    static ListBox box;
    return box;
}

void AddLine(std::string_view text) { OutFileBox().AddLine(text); }

void RemoveLastLine() { OutFileBox().RemoveLine(OutFileBox().ListCount() - 1); }

void ScrollReport() {
    ListBox& box = OutFileBox();
    if (box.TopIndex() + 5 < box.ListCount())
        box.SetTopIndex(box.TopIndex() + 5);
}

void ScrollReportAtOnce() {
    DoEvents();
    ScrollReport();
    DoEvents();
}

}  // namespace halvern
