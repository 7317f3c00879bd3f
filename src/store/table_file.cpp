#include "store/table_file.h"

#include <string>

#include "store/analysis_store.h"
#include "store/files.h"
#include "store/fixed_text.h"

namespace halvern {

std::string AskForTableFile(std::string_view title) {
    return ChooseNewFile({.title = std::string(title),
                          .filter = "Output File | *.*",
                          .flags = kAskBeforeOverwriting + kAskBeforeCreating,
                          .defaultExtension = {},
                          .fileName = {}});
}

void OpenTableFile(const std::string& chosen) {
    auto& S = Store();
    S.OutFileName = chosen;
    S.FileNum = FreeFile();
    OpenForOutput(S.FileNum, S.OutFileName);
}

void WriteTableLine(std::string_view line) { WriteLine(Store().FileNum, line); }

void WriteTableOrigin() {
    const auto& S = Store();
    WriteTableLine(S.ProgramName);
    WriteTableLine(Concat({"Current Revision V", S.RevisionText}));
    WriteTableLine(Concat({"ListFile :: ", Trimmed(S.ListFileName)}));
}

void CloseTableFile() { Close(Store().FileNum); }

}  // namespace halvern
