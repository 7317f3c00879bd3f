#pragma once

#include "ui/form.h"

namespace halvern {

/// The main window, "Keld": the menu bar and, below it, the report list.
class MainWindow : public Form {
  public:
    MainWindow();

    MenuBar* MenuOf() override;

  private:
    void Form_Load() override;
    void Form_Resize() override;
    void Form_Unload(bool& Cancel) override;
    void FitReport();
    void SetReportExtent();
};

MainWindow& MainForm();

/// File, "Exit": unloads the main window, which asks first.
void AllDone_Click();

}  // namespace halvern
