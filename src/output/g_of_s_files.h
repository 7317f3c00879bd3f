#pragma once

namespace halvern {

/// "<dc/dt> (zeroed) vs s": writes the average dc/dt, less its plateau part, with its standard error over s*.
void KeldOutCorrected_Click();

/// "g(s*) and g^(s*) vs s*": writes the averages and both distributions.
///
/// Note      the points outside the limits are blanked and the averages taken before the dialog is shown
/// Fails     11 with no point between the limits, before the one failure exit is switched on
void KeldOutGofS_Click();

}  // namespace halvern
