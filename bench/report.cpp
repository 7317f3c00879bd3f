#include "bench/report.h"

#include <cstdio>

namespace halvern::bench {

void LineReporter::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        const std::string& name = run.run_name.function_name;
        if (run.error_occurred) {
            std::fprintf(stderr, "%s: %s\n", name.c_str(), run.error_message.c_str());
            hasFailed_ = true;
        } else if (run.run_type == Run::RT_Iteration) {
            std::printf("%s %.4f\n", name.c_str(), run.GetAdjustedRealTime());
        }
    }
    std::fflush(stdout);
}

int RunAndReport() {
    LineReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return reporter.HasFailed() ? 1 : 0;
}

}  // namespace halvern::bench
