#include "desktop/single_instance.h"

#include <gtest/gtest.h>

#include <memory>

#include "support/data_files.h"

namespace halvern {
namespace {

struct Instances : ::testing::Test {
    test::DataFolder folder;
    Instances() { qputenv("XDG_RUNTIME_DIR", folder.Path().c_str()); }
};

TEST_F(Instances, OnlyOneAtATime) {
    auto first = std::make_unique<SingleInstance>();
    SingleInstance second;
    EXPECT_FALSE(first->AnotherRuns());
    EXPECT_FALSE(first->AnotherRuns());
    EXPECT_TRUE(second.AnotherRuns());
    EXPECT_TRUE(second.AnotherRuns());
    first.reset();
    EXPECT_FALSE(second.AnotherRuns());
}

TEST_F(Instances, AreNotHeldUpByALockWhoseProcessIsGone) {
    folder.Write("halvern.lock", "999999999\nhalvern\n\n\n\n");
    EXPECT_FALSE(SingleInstance().AnotherRuns());
}

TEST_F(Instances, StartWhereNoLockCanBeMade) {
    qputenv("XDG_RUNTIME_DIR", "/nowhere");
    qputenv("TMPDIR", "/nowhere");
    EXPECT_FALSE(SingleInstance().AnotherRuns());
}

}  // namespace
}  // namespace halvern
