#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "simulate/parameters.h"

namespace halvern::simulate {

/// When a scan is taken.
struct Moment {
    int rpm = 0;
    double seconds = 0.0;  // from the start of the run
    double omega2t = 0.0;  // integral of omega^2 dt up to the scan, over all speeds so far, rad^2/s
};

/// What the optics make of the cell: three columns of equal length.
struct Trace {
    std::vector<double> radiusCm;  // rising
    std::vector<double> signal;    // absorbance units or fringes
    std::vector<double> spread;    // absorbance only: standard deviation of the readings behind each signal
};

struct Scan {
    Moment moment;
    Trace trace;
};

/// A file that can't be written; what() is "path: reason".
class WriteError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Omega squared t as the ten columns of a scan file hold it: "3.99720E10" with six digits.
std::string Omega2tText(double omega2t, int digits);

/// A radius as a scan file with that many decimals holds it.
double WrittenRadius(double radiusCm, int decimals);

/// The text of a scan file, with CR LF behind each line.
///
/// Line 1    the title; with interference optics the radial step in front of it
/// Line 2    columns 1 letter of the optics (R or P), 3 cell, 5-8 temperature, 9-14 speed in rpm, 16-22 seconds,
///           23-32 omega squared t, from 34 wavelength and readings
/// Others    columns 4-10 radius, 11-25 signal, with absorbance 26-40 the spread
std::string ScanText(const Parameters& parameters, const Scan& scan);

/// "00001.RA1": the scan's number, from 1, in five digits; the optics and the cell.
std::string ScanFileName(const Parameters& parameters, std::size_t number);

/// Writes the scans and the list file that names them in order, without a folder, CR LF behind each name.
///
/// Given     folder   created if there is none
/// Fails     WriteError; files written until then stay, and none is there in part
void WriteScans(const Parameters& parameters, const std::vector<Scan>& scans, const std::string& folder);

}  // namespace halvern::simulate
