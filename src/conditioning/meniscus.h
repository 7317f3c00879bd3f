#pragma once

#include <cstdint>

namespace halvern {

/// "Graphically (From 1st Scan)": shows the first scan, or the first scan of each speed in turn, for the meniscus to be
/// picked on it.
void Get_MenFromScan_Click();

/// "Enter Meniscus Value": one value for all scans, typed.
void Set_MenManually_Click();

/// "Enter Meniscus at Each Speed": one value for each speed run, typed.
void Set_MultiMenManually_Click();

/// What Done does with the position picked: the meniscus of all scans or, with several speeds, that of the speed run at
/// hand; it goes on with the next speed, and after the last one gives every scan the meniscus of its run.
void TakeMeniscus();

/// The plot request for a pick on one scan of a data set of several speeds.
///
/// Given     Scan   1 .. NumFiles
void ShowFirstScanOfSpeed(std::int16_t Scan);

/// Tells the meniscus of a speed run in the report and stores it for the run's first scan.
///
/// Given     F   first scan of the run
void StoreMeniscusOfRun(std::int16_t F);

/// Gives every scan the meniscus of the first scan of its speed run.
void SpreadMenisci();

}  // namespace halvern
