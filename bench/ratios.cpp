#include "bench/ratios.h"

#include <algorithm>
#include <cmath>
#include <iomanip>

namespace halvern::bench {

void RatioReporter::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        const std::string& name = run.run_name.function_name;
        const std::size_t slash = name.find('/');
        if (run.error_occurred || run.run_type != Run::RT_Iteration || slash == std::string::npos)
            continue;
        const std::string picture = name.substr(slash + 1);
        if (milliseconds_.find(picture) == milliseconds_.end())
            cases_.push_back(picture);
        const double time = run.GetAdjustedCPUTime();
        const auto [kept, isFirst] = milliseconds_[picture].try_emplace(name.substr(0, slash), time);
        if (!isFirst)
            kept->second = std::min(kept->second, time);
    }
}

void RatioReporter::PrintRatios(std::ostream& out, const std::vector<std::string>& ways) const {
    const auto timeOf = [&](const std::string& picture, const std::string& way) {
        const auto& times = milliseconds_.at(picture);
        const auto found = times.find(way);
        return found == times.end() ? std::nan("") : found->second;
    };
    out << std::fixed << std::left << std::setw(28) << "milliseconds (best)" << std::right;
    for (const auto& way : ways)
        out << std::setw(12) << way;
    for (std::size_t i = 1; i < ways.size(); ++i)
        out << std::setw(20) << ways.front() + "/" + ways[i];
    out << '\n';
    for (const auto& picture : cases_) {
        out << std::left << std::setw(28) << picture << std::right;
        for (const auto& way : ways)
            out << std::setw(12) << std::setprecision(2) << timeOf(picture, way);
        for (std::size_t i = 1; i < ways.size(); ++i)
            out << std::setw(20) << std::setprecision(3) << timeOf(picture, ways.front()) / timeOf(picture, ways[i]);
        out << '\n';
    }
}

}  // namespace halvern::bench
