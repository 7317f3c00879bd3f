#include "store/analysis_store.h"

namespace halvern {

// Out of line, so that the store stays memory that is zero until used, and no 35 MB of the program's file.
AnalysisStore::AnalysisStore() = default;

AnalysisStore& Store() {
    static AnalysisStore store;
    return store;
}

}  // namespace halvern
