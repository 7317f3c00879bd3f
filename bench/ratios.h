#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <ostream>
#include <string>

namespace halvern::bench {

/// Keeps the best time of each benchmark: how the ways to draw the same compare is what counts, and whatever else the
/// machine does only adds to a time.
///
/// The name of a benchmark is WAY/CASE.
class RatioReporter : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context& /*context*/) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;

    /// A line for each case: its times in milliseconds, and that of the first way as a ratio to each of the others.
    void PrintRatios(std::ostream& out, const std::vector<std::string>& ways) const;

  private:
    std::vector<std::string> cases_;
    std::map<std::string, std::map<std::string, double>> milliseconds_;  ///< by case and way
};

}  // namespace halvern::bench
