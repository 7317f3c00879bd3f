#pragma once

#include <string_view>

#include "ui/list_box.h"

namespace halvern {

/// The report list of the main window: the record of the analysis. Nothing clears it while the program runs.
ListBox& OutFileBox();

/// Adds a line at the end of the report.
void AddLine(std::string_view text);

/// Takes the last line of the report away.
void RemoveLastLine();

/// After a batch of lines: moves the list on by five lines, if it goes on that far. It is no scroll to the end.
void ScrollReport();

/// The same between two passes through the events, so that the list shows what was added before a command goes on.
void ScrollReportAtOnce();

}  // namespace halvern
