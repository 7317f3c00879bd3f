#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace halvern::fuzz {

/// What the reading of a scan file has to leave behind.
struct ReadScanText {
    bool cameToTheEnd = false;
    bool askedNothing = true;  ///< the number below does not equal that of the scan before
    std::int32_t speed = 0;
    float omega2t = 0.0F, seconds = 0.0F;
    bool isInterference = false;
    std::vector<float> radii, signals;  ///< a failure leaves one radius more than signals, or as many
    std::string lastLine;               ///< 127 characters at most
};

/// Reads the text of a scan file as its layout is described, line by line and field by field, with nothing of the reader
/// in it but Val.
///
/// Given     before   omega squared t of the scan before; -1 for the first one
ReadScanText ReadScanByHand(std::string_view text, float before);

}  // namespace halvern::fuzz
