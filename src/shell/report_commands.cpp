#include "shell/report_commands.h"

#include <cstddef>
#include <string>

#include "plot/export.h"
#include "store/failure.h"
#include "store/fixed_text.h"
#include "store/report.h"
#include "ui/desktop.h"
#include "ui/printer.h"

namespace halvern {

namespace {

bool IsAnyLine(const ListBox& /*report*/, std::size_t /*index*/) { return true; }

bool IsSelectedLine(const ListBox& report, std::size_t index) { return report.IsSelected(index); }

void PrintLines(bool (*isWanted)(const ListBox& report, std::size_t index)) {
    try {
        MousePointer(kPointerHourglass);
        const ListBox& report = OutFileBox();
        Printer& printer = TheDesktop().CurrentPrinter();
        for (std::size_t i = 0; i < report.ListCount(); ++i)
            if (isWanted(report, i))
                printer.PrintLine(report.Line(i));
        printer.EndDocument();
    } catch (const RuntimeFailure&) {
        // A printer's fault is not reported.
    }
    MousePointer(kPointerNormal);
}

}  // namespace

void PrintFitting_Click() { PrintLines(IsAnyLine); }

void PrnSelect_Click() { PrintLines(IsSelectedLine); }

void CopySelect_Click() {
    TheDesktop().ClearClipboard();
    MousePointer(kPointerHourglass);
    const ListBox& report = OutFileBox();
    bool nothingSelected = true;
    std::string text;
    for (std::size_t i = 0; i < report.ListCount(); ++i) {
        if (!report.IsSelected(i))
            continue;
        if (!nothingSelected)
            text += "\r\n";
        nothingSelected = false;
        text += Trimmed(report.Line(i));
    }
    if (nothingSelected)
        MsgBox("No Text Was Selected!  Clipboard is Now Empty.", kExclamation, "Nothing Selected");
    else
        TheDesktop().SetClipboardText(text);
    MousePointer(kPointerNormal);
}

void Prn2Array_Click(std::int16_t Index) { PrnArray_Click(Index); }

}  // namespace halvern
