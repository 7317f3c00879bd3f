#pragma once

#include <QMessageBox>

#include <string>

#include "ui/desktop.h"

namespace halvern {

/// The icon of a box that tells something of no weight.
inline constexpr int kInformation = 64;

/// A message box: plain text, an icon, OK alone or Yes and No, all by its style.
///
/// A box of Yes and No has no way out but these two: it takes neither the escape key nor the frame's close button. A
/// box of OK takes both as OK.
class MessageBoxWindow : public QMessageBox {
  public:
    MessageBoxWindow(QWidget* parent, const std::string& text, int style, const std::string& title);

    /// Waits for the user. When the program ends meanwhile, the answer means nothing.
    Answer Ask();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    bool yesNo_;
};

}  // namespace halvern
