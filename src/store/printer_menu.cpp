#include "store/printer_menu.h"

#include <string>
#include <vector>

#include "store/analysis_store.h"
#include "store/failure.h"
#include "store/fixed_text.h"
#include "ui/desktop.h"

namespace halvern {

void LoadPrinterItems(MenuBar& bar, MenuItem& menu, PrinterItems& items, std::string_view name, const MenuItem& before,
                      int level, void (*click)(std::int16_t Index)) {
    const std::vector<std::string> printers = TheDesktop().PrinterNames();
    if (printers.empty())
        return menu.Disable();
    const MenuItem* last = &before;
    bool found = false;
    for (std::size_t I = 1; I <= printers.size(); ++I) {
        const std::string& DeviceName = printers[I - 1];
        MenuItem& item = items.Load();
        item.SetName(Concat({name, "(", std::to_string(I), ")"}));
        item.ShowName(DeviceName);
        item.Click = [click, I] { click(static_cast<std::int16_t>(I)); };
        bar.InsertAfter(*last, level, item);
        last = &item;
        if (Trimmed(DeviceName) == Trimmed(Store().DefaultPrinterName)) {
            item.Tick();
            TheDesktop().SelectPrinter(I - 1);
            found = true;
        }
    }
    if (!found) {
        items(1).Tick();
        TheDesktop().SelectPrinter(0);
    }
}

void TickPrinter(PrinterItems& items, std::int16_t Index) {
    for (std::size_t I = 1; I <= items.Count(); ++I)
        items(I).Untick();
    items(static_cast<std::size_t>(Index)).Tick();
}

void UsePrinter(std::int16_t Index) {
    const std::vector<std::string> printers = TheDesktop().PrinterNames();
    if (Index < 1 || static_cast<std::size_t>(Index) > printers.size())
        Fail(FailureCode::kSubscriptOutOfRange);
    const auto number = static_cast<std::size_t>(Index) - 1;
    TheDesktop().SelectPrinter(number);
    Store().DefaultPrinterName = printers[number];
}

}  // namespace halvern
