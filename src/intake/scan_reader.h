#pragma once

#include <cstdint>

namespace halvern {

/// Reads one scan file into the store under its scan number.
///
/// Given     I                    scan, 1 .. 500; its file is FileNames(I - 1)
/// Writes    ScanSpeed(I)         revolutions per minute, from a number rounded half to even
///           ScanW2t(I)           radians squared per second, single
///           ScanTime(I)          seconds, single
///           ScanData(J, 1, I)    radius, cm, single; J = 1 .. 2048
///           ScanData(J, 2, I)    signal, fringes or absorbance, single
///           ScanPoints(I)        points, only when the read came to the end of the file
///           IsInterference       set when the second line starts with "P", otherwise left alone
///           LineBuf              the last line read, 127 bytes
/// Note      a failure on the way is dropped without a word: what was read stays in the store, the file stays open, the
///           mouse pointer is set to normal. The caller tells a bad file from a good one by ScanPoints(I) alone
/// Fails     67 with no file number left: the one failure that comes before the trap
/// Ends      the program, when the user does not want to go on with two neighbours of equal omega squared t
void ReadScanFile(std::int16_t I);

}  // namespace halvern
