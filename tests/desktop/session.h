#pragma once

#include <gtest/gtest.h>

#include <QPoint>
#include <QString>

#include <string>
#include <vector>

#include "desktop/user.h"
#include "support/data_files.h"
#include "ui/menu.h"

namespace halvern::test {

/// The title of the main window.
inline constexpr const char* kMainWindow = "Halvern V0.99";

/// The program with its user, its data in a folder of their own, and with a lock of its own.
struct Session : ::testing::Test {
    DataFolder folder;

    Session();

    static std::vector<std::string> Report(User& user);
    static std::vector<std::string> ReportFrom(User& user, std::size_t first);

    static void Start(User& user);
    static void Exit(User& user);

    /// File, "Get Files": types a path into the dialog.
    static void ChooseList(User& user, const std::string& path);
    /// Types a path into the file dialog that is open.
    static void TypePath(User& user, const std::string& path);
    /// Chooses a list and awaits its data set.
    static void Load(User& user, const std::string& path);
    /// The same with a list of several speeds, of which the program tells.
    static void LoadSpeeds(User& user, const std::string& path);

    /// Opens the menu of an access key and clicks through its items, by the program's names for them.
    static void ChooseItems(User& user, char menu, const std::vector<const MenuItem*>& items);
    /// The same in the menu of the window that has the keyboard, whichever it is.
    static void ChooseItemsHere(User& user, char menu, const std::vector<const MenuItem*>& items);

    static void TurnToMainWindow(User& user);

    /// Clicks the button of this caption in the active window.
    static void PressButton(User& user, const char* caption);

    /// Output: types a path into the file dialog of this title that the items open, and has the file created.
    static void SaveAs(User& user, const std::vector<const MenuItem*>& items, const std::string& title,
                       const std::string& path);

    /// No label of the active window is longer than its room.
    static void ExpectWholeLabels(User& user);
    /// All texts of the active window that can be used stand out from what is behind them, whatever the theme.
    static void ExpectLegibleTexts(User& user);

    /// Where a line of the report is on the screen; it has to be in sight. The first has number 0.
    static QPoint PlaceOfLine(User& user, int line);
    /// Where the first menu of the main window is on the screen.
    static QPoint FileMenuOf(User& user);
    /// A click has been taken by the program, or passed over, when the box over it has the keyboard again.
    static void ActivateBox(User& user, const std::string& title);
    static QString TextOfBox(User& user);
};

}  // namespace halvern::test
