#pragma once

namespace halvern {

/// "g(s*) vs s*": a pair of columns for every radius of the wide distribution.
void SaveSvsG_Click();

/// "[s* x g(s*)] vs Ln(s*)".
void SaveLnSvsSG_Click();

/// "Integral of [s*xg(s*)] vn Ln(s*)": works the integral out and writes it.
void DoIntegralWD_Click();

}  // namespace halvern
