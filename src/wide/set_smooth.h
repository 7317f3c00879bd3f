#pragma once

#include "ui/form.h"
#include "ui/text_box.h"
#include "ui/up_down.h"

namespace halvern {

/// The dialog for the smoothing window of the wide distribution.
class SetSmooth : public Form {
  public:
    SetSmooth();

    Label Label1{"Smoothing Window Size"};
    TextBox Text1;
    UpDown UpDown1{Text1, 3, 50, 3};
    Label Label2{"[ 2 < span < 50 ]"};
    Button IsOK{"Done"};
    Button MaybeLater{"Cancel"};

  private:
    /// Refuses smoothing, with a message, where there are fewer than 30 scans.
    void Form_Load() override;
    void Text1_LostFocus();
    void IsOK_Click();
    void MaybeLater_Click();
};

/// "Smooth WS Distribution": turns smoothing on or off. The first time that it goes on it asks for the window.
void UseWSSmoothing_Click();

/// "Set Smoothing Span": asks for the window.
void SetCSpan_Click();

}  // namespace halvern
