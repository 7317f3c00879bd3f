#pragma once

#include <cstdint>
#include <string>

#include "ui/form.h"
#include "ui/text_box.h"
#include "ui/up_down.h"

namespace halvern {

/// The dialog that writes a list file: from the first scan file of a series, the number of files and the step between
/// their numbers.
///
/// The files of a series have numbers of five digits in front of the first dot of their path. `FileNames` is where the
/// dialog gathers their names, also while a data set is loaded: no analysis reads them after the load.
class GenerateFile : public Form {
  public:
    GenerateFile();

    Label Label1{"First Data File"};
    TextBox Text3{"{Click Here To Get FileName}"};
    Label Label2{"Total Number of Files"};
    TextBox Text2{"200"};
    UpDown UpDown2{Text2, 4, 500, 200};
    Label Label3{"[4 <= N <= 500 ]"};
    Label Label4{"File Increment"};
    TextBox Text1{"1"};
    UpDown UpDown1{Text1, 1, 249, 1};
    Label Label5{"[ 0 < incr  < 250 ]"};
    Button OKMakeFile{"Generate File"};
    Button Command1{"Exit"};

  private:
    void Text3_Click();
    void Text1_LostFocus();
    void Text2_LostFocus();
    /// Fails     5 where no five characters stand before the first dot of the path, 6 where they hold a number above
    ///           32767, and as the files do: nothing is caught here
    void OKMakeFile_Click();
    void Command1_Click();
};

/// File, "Create Listfile".
void MakeListNow_Click();

}  // namespace halvern
