#include "ui/form.h"

#include "ui/desktop.h"

namespace halvern {

Form::Form(std::string name, std::string caption, Place design) : Control(ControlKind::kForm, std::move(caption)) {
    SetName(std::move(name));
    SetPlace(design);
    SetShown(false);
}

void Form::Add(std::string name, Control& control, Place place) {
    control.SetName(std::move(name));
    control.SetPlace(place);
    controls_.push_back(&control);
}

void Form::Load() {
    if (loaded_)
        return;
    loaded_ = true;
    TheDesktop().FormLoaded(*this);
    Form_Load();
}

void Form::ComeUp(bool modal) {
    Load();
    wantsFront_ = true;
    if (IsShown())
        return Changed();
    modal_ = modal;
    Control::Show();
}

void Form::Show() { ComeUp(false); }

void Form::ShowModal() {
    ComeUp(true);
    TheDesktop().RunModal(*this);
}

void Form::Refresh() { TheDesktop().Repaint(*this); }

void Form::Unload() {
    if (!loaded_)
        return;
    bool Cancel = false;
    Form_Unload(Cancel);
    if (Cancel)
        return;
    Hide();
    loaded_ = false;
    TheDesktop().FormUnloaded(*this);
}

void Form::Resized(std::int32_t widthTwips, std::int32_t heightTwips, bool minimised) {
    minimised_ = minimised;
    if (!minimised)
        SetPlace({Where().left, Where().top, widthTwips, heightTwips});
    Form_Resize();
}

}  // namespace halvern
