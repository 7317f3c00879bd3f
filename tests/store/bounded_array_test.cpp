#include "store/bounded_array.h"

#include <gtest/gtest.h>

#include <memory>

#include "support/failure.h"

namespace halvern {
namespace {

using Table = BoundedArray<float, Bounds<1, 3>, Bounds<0, 1>>;

TEST(BoundedArray, HoldsBothEndsOfItsBounds) {
    Table table{};
    table(1, 0) = 1.0F;
    table(3, 1) = 2.0F;
    EXPECT_EQ(table(1, 0), 1.0F);
    EXPECT_EQ(table(3, 1), 2.0F);
}

TEST(BoundedArray, FailsWithAnyIndexOutside) {
    Table table{};
    EXPECT_FAILURE(9, table(0, 0));
    EXPECT_FAILURE(9, table(4, 0));
    EXPECT_FAILURE(9, table(1, -1));
    EXPECT_FAILURE(9, table(1, 2));
    EXPECT_FAILURE(9, table(std::int64_t{1} << 32, 0));
    EXPECT_FAILURE(9, table(std::int16_t{-32768}, 0));
}

TEST(BoundedArray, RunsItsFirstIndexFastest) {
    Table table{};
    float next = 0.0F;
    for (std::int32_t second = 0; second <= 1; ++second)
        for (std::int32_t first = 1; first <= 3; ++first)
            table(first, second) = next++;
    for (std::size_t i = 0; i < Table::kCount; ++i)
        EXPECT_EQ(table.Elements()[i], static_cast<float>(i));
}

TEST(BoundedArray, IsZeroEverywhereAfterZero) {
    auto large = std::make_unique<BoundedArray<std::int16_t, Bounds<1, 5000>>>();
    (*large)(1) = 1;
    (*large)(1025) = -1;
    (*large)(5000) = 3;
    large->Zero();
    for (const auto value : large->Elements())
        ASSERT_EQ(value, 0);
}

}  // namespace
}  // namespace halvern
