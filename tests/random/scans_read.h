#pragma once

#include <cstddef>

#include "ui/list_box.h"

namespace halvern::random_user {

/// What a load has come to, as the report and the files themselves tell it.
struct Reading {
    bool counted = false;       ///< the list was read, and its files were counted
    bool valid = false;         ///< all files have been read
    int numFiles = 0;           ///< files counted, or, once they have been read, the ones kept
    int speeds = 1;             ///< speed runs
    bool interference = false;  ///< a file that was read is of the interference optics
};

/// Given     first   line of the report that the load began with
Reading ReadingIn(const ListBox& report, std::size_t first);

}  // namespace halvern::random_user
