#pragma once

namespace halvern {

/// "Raw Data": the scans as the store holds them, a table of two columns a scan. After fringes were re-added it shows that.
void RawDataOut_Click();

/// "Corrected Data": the same less each scan's offset. The title names both corrections whichever was made.
void CorrectedDataOut_Click();

}  // namespace halvern
