#pragma once

#include <string>
#include <vector>

#include "support/data_files.h"
#include "support/test_desktop.h"

namespace halvern::test {

/// The program, started on a desktop of the test's own, in a folder of the test's own.
struct Session {
    DataFolder folder;
    TestDesktop desktop;

    Session();

    /// Loads a list as the user does.
    void Load(const std::string& listPath);

    /// Loads scans of these speeds, 12 points each from 5.9 cm on.
    void LoadSpeeds(const std::vector<int>& speeds, ScanFile like = {});
};

}  // namespace halvern::test
