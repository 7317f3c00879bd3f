#pragma once

#include <cstdint>

namespace halvern {

/// What the user does with the report: the commands of the main window's menu "Print".

/// Prints the lines of the report, or those that are selected, as they stand. A printer that fails ends it without a
/// word.
void PrintFitting_Click();
void PrnSelect_Click();

/// The selected lines, without the blanks at their ends, onto the clipboard.
///
/// Note      what the clipboard held before is gone in any case
void CopySelect_Click();

/// Makes a printer the current one.
///
/// Given     Index   1 .. number of installed printers, as the menus count them
/// Note      both windows have a menu of printers; their ticks move together
void Prn2Array_Click(std::int16_t Index);

}  // namespace halvern
