#pragma once

#include <string>
#include <vector>

#include "ui/control.h"
#include "ui/menu.h"

namespace halvern {

/// Buttons and modifiers of the mouse.
inline constexpr int kLeftButton = 1, kRightButton = 2;
inline constexpr int kNoModifier = 0, kShift = 1, kCtrl = 2, kAlt = 4;

/// A window: its controls and its handlers. It is free of any toolkit; an adapter shows it.
///
/// A form is loaded (it exists, its `Form_Load` has run), shown or hidden, and unloaded. The program runs as long as
/// any form is loaded.
class Form : public Control {
  public:
    Form(std::string name, std::string caption, Place design);

    bool IsLoaded() const { return loaded_; }
    bool IsMinimised() const { return minimised_; }

    /// The named controls in the order of the design table; the menu's items are in MenuOf().
    const std::vector<Control*>& Controls() const { return controls_; }
    virtual MenuBar* MenuOf() { return nullptr; }

    /// Runs `Form_Load`, unless the form is loaded.
    void Load();
    /// Loads the form if need be, and shows it without waiting for it. A window that is shown comes to the front.
    void Show() override;
    /// Shows the form and returns when it has been hidden or unloaded. No other window takes an event meanwhile.
    void ShowModal();
    /// Whether it was ShowModal that has shown the form.
    bool IsModal() const { return modal_; }
    /// Each showing asks for the front of the screen; whoever shows the form gives it and takes the wish back.
    bool WantsFront() const { return wantsFront_; }
    void FrontGiven() { wantsFront_ = false; }
    /// The window has come up before the user.
    virtual void BroughtUp() {}

    /// Shows at once what has changed on the form, without a pass through the events.
    void Refresh();
    /// A window that tells how far a command has come. It takes the keyboard from nobody, and need not come up at all for
    /// a command that is over in a moment.
    virtual bool TellsProgress() const { return false; }

    /// Runs `Form_Unload`; unless that cancels, the form is gone. Does nothing to a form that is not loaded.
    void Unload();
    /// Whether the close button of the frame unloads the form; a window that it does not unload has none.
    virtual bool ClosesByFrame() const { return true; }

    /// The button that the escape key presses; null for none.
    Button* CancelButton() const { return cancelButton_; }

    /// Mouse events of a form that draws on its surface, at positions in page units.
    ///
    /// Given     Button   kLeftButton or kRightButton; 0 for a move with none down
    ///           Shift    the exact modifier mask: 0, or a sum of kShift, kCtrl and kAlt
    virtual void Form_MouseDown(int /*Button*/, int /*Shift*/, float /*X*/, float /*Y*/) {}
    virtual void Form_MouseMove(int /*Button*/, int /*Shift*/, float /*X*/, float /*Y*/) {}
    virtual void Form_MouseUp(int /*Button*/, int /*Shift*/, float /*X*/, float /*Y*/) {}

    /// The user or the platform has given the window another size or minimised it: takes it over, runs `Form_Resize`.
    ///
    /// Given     widthTwips, heightTwips   size of the window without the platform's frame
    void Resized(std::int32_t widthTwips, std::int32_t heightTwips, bool minimised);

  protected:
    /// Given     name   empty for a label that the design gives none
    void Add(std::string name, Control& control, Place place);
    void SetCancelButton(Button& button) { cancelButton_ = &button; }

    virtual void Form_Load() {}
    virtual void Form_Resize() {}
    /// Given     Cancel   false; true keeps the form loaded
    virtual void Form_Unload(bool& /*Cancel*/) {}

  private:
    void ComeUp(bool modal);

    bool loaded_ = false;
    bool modal_ = false;
    bool wantsFront_ = false;
    bool minimised_ = false;
    std::vector<Control*> controls_;
    Button* cancelButton_ = nullptr;
};

}  // namespace halvern
