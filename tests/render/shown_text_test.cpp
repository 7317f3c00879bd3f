#include "render/shown_text.h"

#include <gtest/gtest.h>

namespace halvern {
namespace {

const QString kReplaced = QChar(QChar::ReplacementCharacter);

TEST(ShownText, KeepsEveryBlank) { EXPECT_EQ(ShownLine("  a  b   "), "  a  b   "); }

TEST(ShownText, IsUtf8) { EXPECT_EQ(ShownLine("Z\xC3\xBCrich"), QStringLiteral(u"Z\u00FCrich")); }

TEST(ShownText, ReplacesBytesThatAreNoUtf8) {
    EXPECT_EQ(ShownLine("a\xFF"
                        "b"),
              "a" + kReplaced + "b");
    EXPECT_EQ(ShownLine("caf\xE9.RA1"), "caf" + kReplaced + ".RA1");
}

TEST(ShownText, ReplacesWhatWouldBreakOrTurnALine) {
    EXPECT_EQ(ShownLine("a\nb\rc\td\x1B[31m\x7F"), QString("a%1b%1c%1d%1[31m%1").arg(kReplaced));
    EXPECT_EQ(ShownLine(std::string_view("a\0b", 3)), "a" + kReplaced + "b");
    EXPECT_EQ(ShownLine("a\xC2\x85"
                        "b"),
              "a" + kReplaced + "b");  // next line, C1
    EXPECT_EQ(ShownLine("a\xE2\x80\xA8"
                        "b"),
              "a" + kReplaced + "b");  // line separator
    EXPECT_EQ(ShownLine("gpj.\xE2\x80\xAE"
                        "exe"),
              "gpj." + kReplaced + "exe");  // right-to-left override
    EXPECT_EQ(ShownLine("a\xE2\x81\xA6"
                        "b"),
              "a" + kReplaced + "b");  // isolate
}

TEST(ShownText, BreaksLinesOfMessages) {
    EXPECT_EQ(ShownLines("one\r\ntwo\nthree\r\n\r\n  four"), "one\ntwo\nthree\n\n  four");
    EXPECT_EQ(ShownLines("bell\a\r\nnext"), "bell" + kReplaced + "\nnext");
}

TEST(ShownText, ReplacesWhatNoPageOfXmlMayHold) {
    EXPECT_EQ(ShownLine("a\xEF\xBF\xBE"
                        "b\xEF\xBF\xBF"),
              "a" + kReplaced + "b" + kReplaced);
}

TEST(ShownText, KeepsTheMarkOfAnAccessKeyOutOfNames) {
    EXPECT_EQ(ShownName("A&B && C\n"), "A&&B &&&& C" + kReplaced);
    EXPECT_EQ(ShownLine("A&B"), "A&B") << "where the text is a caption of the program, the key is meant";
}

TEST(ShownText, KeepsTheMarkOfAModifiedDocumentOutOfTitles) { EXPECT_EQ(ShownTitle("g[*] s"), "g[*][*] s"); }

}  // namespace
}  // namespace halvern
