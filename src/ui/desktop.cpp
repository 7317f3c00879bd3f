#include "ui/desktop.h"

#include <stdexcept>

namespace halvern {

namespace {

Desktop* theDesktop = nullptr;

}  // namespace

Desktop& TheDesktop() {
    if (theDesktop == nullptr)
        throw std::logic_error("no desktop is in use");
    return *theDesktop;
}

void UseDesktop(Desktop* desktop) { theDesktop = desktop; }

Answer MsgBox(const std::string& text, int style, std::string_view title) {
    return TheDesktop().AskUser(text, style, std::string(title));
}

void MousePointer(int shape) { TheDesktop().SetMousePointer(shape); }

void DoEvents() { TheDesktop().DoEvents(); }

void EndProgram() { throw ProgramEnd{}; }

}  // namespace halvern
