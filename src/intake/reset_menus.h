#pragma once

namespace halvern {

/// Takes the menus back to their state before a data set, and wipes the data set: the only way back to the empty state.
///
/// What it leaves alone: the report, NumFiles and FileNames(0), the captions of `GetListNow` and `Get_MenFromScan`,
/// `DoReAddNow`'s being hidden, `KeldOutGofS`, `RawDataOut`, and the windows that are open.
void ResetMenus();

}  // namespace halvern
