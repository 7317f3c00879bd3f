#pragma once

#include <cstdint>
#include <filesystem>

#include "random/tally.h"

namespace halvern::random_user {

/// What decides everything that the user does.
struct Plan {
    std::uint64_t seed;
    std::uint64_t session;
    std::uint64_t mostEvents;
    std::filesystem::path
        folder;  ///< of the session's own, empty; its name counts, since names of files are shown and cut
    std::filesystem::path copies;  ///< takes a second copy of each file that the user brings along; empty for none
};

/// Runs the program once, until it ends, its user has done so many things, or something is wrong with it. One to a process,
/// since the program's state is the process's.
void RunSession(const Plan& plan, Tally& tally);

}  // namespace halvern::random_user
