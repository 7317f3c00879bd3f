#pragma once

#include <cstdint>
#include <string_view>

#include "ui/menu.h"

namespace halvern {

/// Puts an item for each installed printer into a menu and ticks the one that `DefaultPrinterName` names, or the first
/// if none has that name. The ticked printer becomes the current one. With no printer installed the menu is disabled.
///
/// Given     menu      the item that opens the menu
///           items     the control array; its elements are loaded here, so that it has to be empty
///           name      the array's design name; element I is called "name(I)"
///           before    the item that they come behind
///           level     their level in the tree
///           click     what choosing the printer of an index does
void LoadPrinterItems(MenuBar& bar, MenuItem& menu, PrinterItems& items, std::string_view name, const MenuItem& before,
                      int level, void (*click)(std::int16_t Index));

/// Ticks one printer of a menu, and no other.
///
/// Given     Index   1 .. items.Count()
void TickPrinter(PrinterItems& items, std::int16_t Index);

/// Makes a printer the current one, by its number in the menus.
///
/// Given     Index   1 .. number of installed printers; outside, failure 9
void UsePrinter(std::int16_t Index);

}  // namespace halvern
