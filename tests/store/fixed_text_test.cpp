#include "store/fixed_text.h"

#include <gtest/gtest.h>

namespace halvern {
namespace {

std::string Repeated(std::string_view text, int times) {
    std::string repeated;
    for (int i = 0; i < times; ++i)
        repeated += text;
    return repeated;
}

TEST(FixedText, IsFilledUpWithBlanksOrCut) {
    FixedText<5> text;
    EXPECT_EQ(text.View(), "     ");
    text = "ab";
    EXPECT_EQ(text.View(), "ab   ");
    text = "abcdefg";
    EXPECT_EQ(text.View(), "abcde");
    text = "x";
    EXPECT_EQ(text.View(), "x    ");
}

TEST(Trimmed, TakesBlanksAwayAndNothingElse) {
    EXPECT_EQ(Trimmed("  a b  "), "a b");
    EXPECT_EQ(Trimmed("\ta\t"), "\ta\t");
    EXPECT_EQ(Trimmed("   "), "");
    EXPECT_EQ(RightTrimmed("  a  "), "  a");
    EXPECT_EQ(RightTrimmed(" "), "");
}

TEST(FileName, CountsCharactersNotBytes) {
    FileName name;
    const std::string umlauts = Repeated("\xC3\xA4", 127);
    name = umlauts + "x";
    EXPECT_EQ(name.Name(), umlauts);
    const std::string emoji = Repeated("\xF0\x9F\x94\xAC", 127);
    name = emoji + "x";
    EXPECT_EQ(name.Name(), emoji);
}

TEST(FileName, CountsAByteThatIsNoTextAsOneCharacter) {
    FileName name;
    name = Repeated("\xFF", 127) + "x";
    EXPECT_EQ(name.Name(), Repeated("\xFF", 127));
    name = Repeated("\xC3", 127) + "x";
    EXPECT_EQ(name.Name(), Repeated("\xC3", 127));
}

TEST(FileName, KeepsLeadingBlanksAsPartOfTheNameButDoesNotShowThem) {
    FileName name;
    name = "  00001.RA1  ";
    EXPECT_EQ(name.Name(), "  00001.RA1");
    EXPECT_EQ(name.Shown(), "00001.RA1");
}

TEST(FileName, OfExactly127CharactersIsWhole) {
    FileName name;
    const std::string whole = Repeated("a", 126) + "z";
    name = whole;
    EXPECT_EQ(name.Name(), whole);
    name = whole + ".RA1";
    EXPECT_EQ(name.Name(), whole);
}

TEST(FileName, ForgetsTheFormerName) {
    FileName name;
    name = "a long name";
    name = " ";
    EXPECT_EQ(name.Name(), "");
}

TEST(CharacterLength, IsThatOfAWellFormedSequence) {
    struct Case {
        std::string_view text;
        std::size_t length;
    };
    constexpr Case kCases[] = {
        {"", 0},
        {"a", 1},
        {"\xC3\xA4z", 2},
        {"\xE2\x82\xAC", 3},
        {"\xF0\x9F\x94\xAC", 4},
        {"\xC3", 1},      // the sequence is cut off
        {"\xC3z", 1},     // no continuation
        {"\x80", 1},      // a continuation without a start
        {"\xC0\x80", 1},  // a longer form of a shorter character
        {"\xE0\x80\x80", 1},
        {"\xED\xA0\x80", 1},      // half of a pair
        {"\xF4\x90\x80\x80", 1},  // above the last character
        // The first and the last of each length, and the neighbours of the halves of pairs.
        {"\xC2\x80", 2},
        {"\xDF\xBF", 2},
        {"\xE0\xA0\x80", 3},
        {"\xED\x9F\xBF", 3},
        {"\xED\xBF\xBF", 1},
        {"\xEE\x80\x80", 3},
        {"\xEF\xBF\xBF", 3},
        {"\xF0\x90\x80\x80", 4},
        {"\xF4\x8F\xBF\xBF", 4},
        {"\xF8\x88\x80\x80\x80", 1},
    };
    for (const auto& c : kCases)
        EXPECT_EQ(CharacterLength(c.text), c.length) << testing::PrintToString(c.text);
}

}  // namespace
}  // namespace halvern
