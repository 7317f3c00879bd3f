#pragma once

#include <benchmark/benchmark.h>

#include <vector>

namespace halvern::bench {

/// Prints a line for each run, "ROW/SCANS/WAY MILLISECONDS", and keeps in mind whether one of them failed.
class LineReporter : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context& /*context*/) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;
    bool HasFailed() const { return hasFailed_; }

  private:
    bool hasFailed_ = false;
};

/// Runs all benchmarks registered that the command line does not leave out. Result: the status of the process.
int RunAndReport();

}  // namespace halvern::bench
