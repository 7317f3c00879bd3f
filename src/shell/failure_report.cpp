#include "shell/failure_report.h"

#include "shell/version.h"
#include "store/failure.h"
#include "store/terminal_text.h"

namespace halvern {

std::string FailureReport(const std::exception& failure, const std::vector<std::string>& running,
                          const std::string& program) {
    const auto* expected = dynamic_cast<const RuntimeFailure*>(&failure);
    std::vector<std::string> lines;
    if (expected != nullptr)
        lines.push_back("Run-time error '" + std::to_string(expected->Number()) + "': " + expected->what());
    else
        lines.push_back(std::string("internal error: ") + failure.what());
    if (expected != nullptr && !expected->Detail().empty())
        lines.push_back("  with: " + expected->Detail());
    for (const auto& event : running)
        lines.push_back("  running: " + event);
    lines.push_back("  version: " + program + " " + RevisionNumbers());

    std::string report;
    for (const auto& line : lines)
        report += OnTerminal(line) + '\n';
    return report;
}

}  // namespace halvern
