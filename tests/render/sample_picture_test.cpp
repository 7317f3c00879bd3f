// The sample of three speeds as a user sees it: its bundled script, and then the plot over Ln(s*) on the screen.

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "render/stored_picture.h"
#include "support/data_files.h"

namespace halvern {
namespace {

void RunProgram(const std::string& command) { EXPECT_EQ(std::system((command + " >told 2>&1").c_str()), 0) << command; }

TEST(SamplePicture, OfThreeSpeedsOverLnS) {
    const test::DataFolder folder;
    RunProgram("'" HALVERN_SIMULATE "' '" HALVERN_SAMPLES "/three-speeds.parameters' --output .");
    const std::string script = test::ContentOf(HALVERN_SAMPLES "/three-speeds.session");
    ASSERT_NE(script, "");
    folder.Write("shown.session", script +
                                      "click PlotLnS\ntick UseRadii(4)\ntick UseRadii(6)\nclick PlotEmUp\n"
                                      "render three-speeds.png\n");
    RunProgram("env -u DISPLAY -u WAYLAND_DISPLAY '" HALVERN_REPLAY "' shown.session");
    test::ExpectAsStored(QImage(QStringLiteral("three-speeds.png")), "three-speeds");
}

}  // namespace
}  // namespace halvern
