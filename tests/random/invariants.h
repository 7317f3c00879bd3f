#pragma once

#include <string>
#include <vector>

#include "replay/replay_desktop.h"
#include "ui/list_box.h"

namespace halvern::random_user {

/// What is wrong with the numbers of the store, whatever the user has done; empty if nothing is.
std::vector<std::string> BrokenBounds();

/// What is wrong with the windows while no command runs; empty if nothing is.
std::vector<std::string> WindowsLeft(const replay::ReplayDesktop& desktop);

/// Files that this process has open.
int OpenFiles();

/// How many files loads may have left open: each scan that could not be read in full, each list that came to no data set.
int FilesLeftByLoads(const ListBox& report);

}  // namespace halvern::random_user
