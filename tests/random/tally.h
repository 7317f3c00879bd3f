#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace halvern::random_user {

/// How a session came to its end.
enum class End : int { kRunning, kEventsOver, kUserLeft, kDataRefused, kFailed, kFinding };

/// What a session tells of itself. It lies in memory that it shares with the process that started it, so that it is there
/// also when the session has crashed.
struct Tally {
    static constexpr std::size_t kMostItems = 256;
    static constexpr std::size_t kLongestText = 4096;
    static constexpr std::size_t kLongestScript = 1 << 20;

    std::uint64_t reached[kMostItems];  ///< by item of WhatToReach(), over all sessions
    std::uint64_t changed[kMostItems];  ///< by effect of GateEffects(): how often the item was not so before
    std::uint64_t events;               ///< over all sessions
    std::uint64_t refused;
    std::uint64_t checks;  ///< comparisons with the model
    End end;
    int failure;                 ///< number of the run-time failure
    char command[256];           ///< the event that was being carried out when it ended
    char finding[kLongestText];  ///< what is wrong
    std::size_t scriptSize;
    char script[kLongestScript];  ///< the events of this session as a script

    void BeginSession();
    void AppendToScript(std::string_view text);
    static void Put(char* to, std::size_t size, std::string_view text);
};

/// One of them, shared with the processes that this one starts.
Tally& SharedTally();

/// Everything that a person can choose, press, type into or close, by name: "Keld.KeldIt", "SetSmooth.Text1", the ways on
/// from Done, and the rows of the gates.
const std::vector<std::string>& WhatToReach();

/// Every single effect that the gates have on an item, such as "reset disables KeldIt".
const std::vector<std::string>& GateEffects();

/// Counts one of these that has changed something.
void CountChange(std::string_view effect);

/// Counts one of what is to be reached; what need not be reached is passed over.
void Reach(std::string_view name);

}  // namespace halvern::random_user
