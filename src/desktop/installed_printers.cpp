#include "desktop/installed_printers.h"

#include <QPrinterInfo>
#include <QString>

#include <thread>
#include <utility>

namespace halvern {

PrinterList AskPrintSystem() {
    PrinterList list;
    for (const QString& name : QPrinterInfo::availablePrinterNames())
        list.names.push_back(name.toStdString());
    list.defaultName = QPrinterInfo::defaultPrinterName().toStdString();
    return list;
}

// The thread is let go, not joined: nobody can call it back from a print system that does not answer.
InstalledPrinters::InstalledPrinters(std::function<PrinterList()> ask)
    : deadline_(std::chrono::steady_clock::now() + kPatience) {
    std::packaged_task<PrinterList()> question(std::move(ask));
    answer_ = question.get_future().share();
    std::thread(std::move(question)).detach();
}

const PrinterList& InstalledPrinters::List() {
    if (!known_ && answer_.wait_until(deadline_) == std::future_status::ready)
        list_ = answer_.get();
    known_ = true;
    return list_;
}

bool InstalledPrinters::StillAsking() const {
    return answer_.wait_for(std::chrono::seconds(0)) != std::future_status::ready;
}

}  // namespace halvern
