#include "store/file_command.h"

#include <string>

#include "store/failure.h"
#include "store/files.h"
#include "ui/desktop.h"

namespace halvern {

void RunFileCommand(const std::function<void()>& command, std::string_view message) {
    try {
        command();
    } catch (const RuntimeFailure& failure) {
        FlushOpenFiles();
        if (failure.Code() != FailureCode::kCancelled)
            MsgBox(std::string(message), kExclamation, "Output File Error");
        MousePointer(kPointerNormal);
    }
}

}  // namespace halvern
