#pragma once

namespace halvern {

/// "Set Zero Level for Average dc/dt": shows the average and lets the user pick a level.
void SetKeldZero_Click();

/// What Done does with the level picked: subtracts it from `AveRate` and `RateWork` and offers g(s*).
void TakeZeroLevel();

/// "Restore Original Zero Level": takes the level away again, and with it every result derived from it.
void BackToOrigKeld_Click();

}  // namespace halvern
