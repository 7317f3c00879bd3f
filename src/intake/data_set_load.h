#pragma once

namespace halvern {

/// "Get Files From Listfile", later "Restart With Another Set": turns a list file into a data set in the store.
///
/// Asks for the list file, drops names that are no files, reads the scans, drops scans of fewer than 10 points, finds
/// the speed runs, tells all of it in the report and opens the next menus. A data set that stood before is wiped first,
/// even if the user then cancels.
void GetListNow_Click();

}  // namespace halvern
