#include "store/printer_menu.h"

#include <string>

#include "store/analysis_store.h"
#include "store/fixed_text.h"
#include "ui/desktop.h"

namespace halvern {

void LoadPrinterItems(MenuBar& bar, PrinterItems& items, std::string_view name, const MenuItem& before, int level) {
    const std::vector<std::string> printers = TheDesktop().PrinterNames();
    const MenuItem* last = &before;
    bool found = false;
    for (std::size_t I = 1; I <= printers.size(); ++I) {
        const std::string& DeviceName = printers[I - 1];
        MenuItem& item = items.Load();
        item.SetName(Concat({name, "(", std::to_string(I), ")"}));
        item.SetCaption(DeviceName);
        bar.InsertAfter(*last, level, item);
        last = &item;
        if (Trimmed(DeviceName) == Trimmed(Store().DefaultPrinterName)) {
            item.Tick();
            TheDesktop().SelectPrinter(I - 1);
            found = true;
        }
    }
    if (!found && !printers.empty()) {
        items(1).Tick();
        TheDesktop().SelectPrinter(0);
    }
}

}  // namespace halvern
