#include "store/single.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/failure.h"

namespace halvern {
namespace {

TEST(Single, RoundsToTheNearestAHalfToEven) {
    // Neighbours of 1 as singles lie 2^-23 apart above it.
    const double step = 0x1p-23;
    EXPECT_EQ(Single(1.0 + 0.49 * step), 1.0F);
    EXPECT_EQ(Single(1.0 + 0.5 * step), 1.0F);
    EXPECT_EQ(Single(1.0 + 1.5 * step), 1.0F + 0x1p-22F);
}

TEST(Single, FailsAboveItsRange) {
    EXPECT_EQ(Single(-3.4028234e38), -std::numeric_limits<float>::max());
    EXPECT_FAILURE(6, Single(3.5e38));
    EXPECT_FAILURE(6, Single(std::numeric_limits<double>::infinity()));
    EXPECT_FAILURE(6, Single(std::numeric_limits<double>::quiet_NaN()));
}

TEST(Single, BecomesZeroBelowItsRange) { EXPECT_EQ(Single(1e-60), 0.0F); }

TEST(Quotient, FailsWithADivisorOfZero) {
    EXPECT_EQ(Quotient(1.0, 4.0), 0.25);
    EXPECT_FAILURE(11, Quotient(1.0, 0.0));
    EXPECT_FAILURE(11, Quotient(0.0, 0.0));
    EXPECT_FAILURE(11, Quotient(1.0L, -0.0L));
}

TEST(ToInteger, RoundsAHalfToTheEvenNeighbour) {
    struct Case {
        double value;
        std::int32_t integer;
    };
    constexpr Case kCases[] = {{0.5, 0},         {1.5, 2},         {2.5, 2},  {-0.5, 0}, {-1.5, -2}, {-2.5, -2},
                               {42000.5, 42000}, {42001.5, 42002}, {0.49, 0}, {0.51, 1}, {-0.51, -1}};
    for (const auto& c : kCases) {
        EXPECT_EQ(ToInteger32(c.value), c.integer) << c.value;
    }
    EXPECT_EQ(ToInteger16(2.5), 2);
    EXPECT_EQ(ToInteger16(-1.5), -2);
}

TEST(ToInteger, FailsOutsideItsRangeAfterRounding) {
    EXPECT_EQ(ToInteger16(32767.49), 32767);
    EXPECT_EQ(ToInteger16(-32768.5), -32768);
    EXPECT_FAILURE(6, ToInteger16(32767.5));
    EXPECT_FAILURE(6, ToInteger16(-32768.51));
    EXPECT_EQ(ToInteger32(2147483647.0), 2147483647);
    EXPECT_FAILURE(6, ToInteger32(2147483647.5));
    EXPECT_EQ(ToInteger32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    EXPECT_FAILURE(6, ToInteger32(-2147483649.0));
    EXPECT_FAILURE(6, ToInteger32(std::numeric_limits<double>::infinity()));
    EXPECT_FAILURE(6, ToInteger32(std::numeric_limits<double>::quiet_NaN()));
}

TEST(Failure, HasTheClassicNumberAndWords) {
    struct Case {
        FailureCode code;
        int number;
        const char* text;
    };
    constexpr Case kCases[] = {
        {FailureCode::kInvalidProcedureCall, 5, "Invalid procedure call or argument"},
        {FailureCode::kOverflow, 6, "Overflow"},
        {FailureCode::kSubscriptOutOfRange, 9, "Subscript out of range"},
        {FailureCode::kDivisionByZero, 11, "Division by zero"},
        {FailureCode::kTypeMismatch, 13, "Type mismatch"},
        {FailureCode::kFileNotFound, 53, "File not found"},
        {FailureCode::kInputPastEnd, 62, "Input past end of file"},
    };
    for (const auto& c : kCases) {
        const RuntimeFailure failure(c.code);
        EXPECT_EQ(failure.Number(), c.number);
        EXPECT_STREQ(failure.what(), c.text);
    }
    EXPECT_EQ(static_cast<int>(FailureCode::kCancelled), 32755);
}

TEST(Failure, OfAnUnknownNumberStillHasWords) { EXPECT_STREQ(FailureText(FailureCode{999}), "Unknown failure"); }

}  // namespace
}  // namespace halvern
