#include "replay/script.h"

#include <gtest/gtest.h>

#include "support/data_files.h"

namespace halvern::replay {
namespace {

using Words = std::vector<std::string>;
using namespace std::string_view_literals;

TEST(Script, IsAnEventALine) {
    Script script("click GetListNow\nchoose run7/C1.LST\n");
    EXPECT_EQ(script.Next().words, (Words{"click", "GetListNow"}));
    EXPECT_EQ(script.Next().words, (Words{"choose", "run7/C1.LST"}));
    EXPECT_TRUE(script.AtEnd());
}

TEST(Script, PassesOverBlankLinesAndCommentsButCountsThem) {
    Script script("\n  # loads\n \t\nclick GetListNow\n#\n\tcancel # no comment\n");
    EXPECT_EQ(script.LineNumber(), 0U);
    EXPECT_EQ(script.Next().words, (Words{"click", "GetListNow"}));
    EXPECT_EQ(script.LineNumber(), 4U);
    EXPECT_EQ(script.Next().words, (Words{"cancel", "#", "no", "comment"}));
    EXPECT_EQ(script.LineNumber(), 6U);
}

TEST(Script, MayEndItsLinesAsEitherSystemDoes) {
    Script script("print report\r\n\r\n# over\r\nprint menus\nprint plot\r\n");
    EXPECT_EQ(script.Next().words, (Words{"print", "report"}));
    EXPECT_EQ(script.Next().words, (Words{"print", "menus"}));
    EXPECT_EQ(script.Next().words, (Words{"print", "plot"}));
    EXPECT_EQ(script.LineNumber(), 5U);
}

TEST(Script, NeedsNoLineEndBehindItsLastLine) {
    Script script("print report");
    EXPECT_EQ(script.Next().words, (Words{"print", "report"}));
    EXPECT_TRUE(script.AtEnd());
}

TEST(Script, MayBeginWithAByteOrderMark) {
    Script script("\xEF\xBB\xBF# one\nprint report\n");
    EXPECT_EQ(script.Next().words, (Words{"print", "report"}));
    EXPECT_EQ(script.LineNumber(), 2U);
}

TEST(Script, SaysWhatComesNextWithoutTakingIt) {
    Script script("answer \"yes\nprint report\n");
    EXPECT_TRUE(script.NextIs("answer"));
    EXPECT_FALSE(script.NextIs("print"));
    EXPECT_EQ(script.LineNumber(), 0U);
    script.Next();
    EXPECT_TRUE(script.NextIs("print"));
    script.Next();
    EXPECT_FALSE(script.NextIs("print"));
}

TEST(Script, IsOverWhenMoreIsAskedOfIt) {
    Script script("print report\n\n");
    script.Next();
    EXPECT_THROW(script.Next(), ScriptEnd);
    EXPECT_EQ(script.LineNumber(), 1U);
}

struct WordsCase {
    std::string_view line;
    Words words;
};

TEST(Script, TakesWordsApart) {
    const WordsCase cases[] = {
        {"a  b\tc ", {"a", "b", "c"}},
        {R"(choose "my run/C1.LST")", {"choose", "my run/C1.LST"}},
        {R"(type Text1 "")", {"type", "Text1", ""}},
        {R"(choose "a \"b\" c\\d" e)", {"choose", R"(a "b" c\d)", "e"}},
        // Only a word that starts with a quote is quoted; elsewhere quote and backslash are characters as others.
        {R"(choose 5"6\7)", {"choose", R"(5"6\7)"}},
        {R"("click" KeldIt)", {"click", "KeldIt"}},
        {R"(cd "# 1")", {"cd", "# 1"}},
    };
    for (const auto& row : cases)
        EXPECT_EQ(Script(row.line).Next().words, row.words) << row.line;
}

struct BadLine {
    std::string_view line;
    std::string_view reason;
};

TEST(Script, TellsWhatIsWrongWithALineThatCantBeTakenApart) {
    const BadLine cases[] = {
        {R"(choose "C1.LST)", "a closing quote is missing"},
        {R"(choose "C1.LST\)", R"(only \" and \\ may stand in quotes)"},
        {R"(choose "run\n.LST")", R"(only \" and \\ may stand in quotes)"},
        {R"(choose "C1".LST)", "a blank is missing behind a closing quote"},
        {"choose C1\0.LST"sv, "the line holds a zero byte"},
    };
    for (const auto& row : cases) {
        Script script("print report\n" + std::string(row.line));
        EXPECT_EQ(script.Next().error, "");
        EXPECT_EQ(script.Next().error, row.reason);
    }
}

struct Utf8Case {
    std::string_view text;
    bool good;
};

TEST(Utf8, IsWhatItsDefinitionSays) {
    const Utf8Case cases[] = {
        {"", true},
        {"plain\n", true},
        {"\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80", true},
        {"\xE9", false},              // an accented letter of a single-byte set
        {"\xC3", false},              // cut short
        {"\xC3 ", false},             // second byte missing
        {"\x80", false},              // second byte without a first
        {"\xC0\xAF", false},          // a slash in two bytes
        {"\xED\xA0\x80", false},      // half of a pair of 16-bit units
        {"\xF4\x90\x80\x80", false},  // above the last code point
        {"\xFF\xFE", false},
    };
    for (const auto& row : cases)
        EXPECT_EQ(IsUtf8(row.text), row.good) << testing::PrintToString(row.text);
}

TEST(ScriptFile, IsReadWhole) {
    const test::DataFolder folder;
    const std::string long_text(200000, 'x');
    EXPECT_EQ(ReadScript(folder.Write("long.script", long_text)), long_text);
    EXPECT_EQ(ReadScript(folder.Write("empty.script", "")), "");
}

TEST(ScriptFile, IsRefusedWhenItCantBeReadOrIsNoUtf8) {
    const test::DataFolder folder;
    EXPECT_THROW(ReadScript("none.script"), ScriptUnreadable);
    EXPECT_THROW(ReadScript(folder.Path().string()), ScriptUnreadable);
    EXPECT_THROW(ReadScript(folder.Write("latin.script", "# caf\xE9\n")), ScriptUnreadable);
}

}  // namespace
}  // namespace halvern::replay
