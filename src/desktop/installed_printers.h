#pragma once

#include <chrono>
#include <functional>
#include <future>
#include <string>
#include <vector>

namespace halvern {

struct PrinterList {
    std::vector<std::string> names;
    std::string defaultName;
};

/// Asks the print system, through the toolkit.
PrinterList AskPrintSystem();

/// The installed printers. The print system is asked once, on a thread of its own: it may be a server far away.
class InstalledPrinters {
  public:
    static constexpr std::chrono::milliseconds kPatience{1500};

    /// Begins to ask.
    explicit InstalledPrinters(std::function<PrinterList()> ask = AskPrintSystem);

    /// The answer, waited for until kPatience after the asking began; without an answer by then there are no printers,
    /// for good.
    const PrinterList& List();

    /// Whether the thread still waits for the print system: nothing that it uses may be taken down then.
    bool StillAsking() const;

  private:
    std::chrono::steady_clock::time_point deadline_;
    std::shared_future<PrinterList> answer_;
    bool known_ = false;
    PrinterList list_;
};

}  // namespace halvern
