#pragma once

#include <string_view>

namespace halvern {

/// The number that a text starts with: the conversion of every field of a file and of every typed number.
///
/// Given     text     blanks, a sign (+ or -), digits with at most one decimal point and at least one digit, an exponent
///                    (E, e, D or d, a sign, digits); the blanks, the sign and the exponent may be absent
/// Returns   the number up to the first character that cannot go on with it, 0 if none starts there
/// Rounding  once, to the nearest double, a half to even, however many digits there are
/// Bounds    infinity above the range of double, 0 below it, with the number's sign; -0 is a negative zero
/// Fails     never, and never looks at the locale
/// Note      only ' ' is a blank, and only in front: "\t5" is 0, "5 6" is 5. A letter without digits behind it is no
///           exponent: "1E" and "1E+" are 1
double Val(std::string_view text) noexcept;

/// Whether a text is one number of Val's grammar from end to end, blanks around it aside.
///
/// " 5.8 " is one; "", "5,8" and "1E" are none.
bool IsNumeric(std::string_view text) noexcept;

/// Val the long way, for any number of digits and any exponent. Val goes it where its short way for the common field
/// does not hold; both give the same bits where both hold.
double ValGeneral(std::string_view text) noexcept;

}  // namespace halvern
