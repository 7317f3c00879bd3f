#include "store/terminal_text.h"

#include <gtest/gtest.h>

namespace halvern {
namespace {

TEST(OnTerminal, ShowsWhatWouldCommandTheTerminalByItsBytes) {
    EXPECT_EQ(OnTerminal(""), "");
    EXPECT_EQ(OnTerminal(" a's <b> & \"c\" \\ ~"), " a's <b> & \"c\" \\ ~");
    EXPECT_EQ(OnTerminal("Z\xC3\xBCrich \xE2\x82\xAC \xF0\x9F\x98\x80"), "Z\xC3\xBCrich \xE2\x82\xAC \xF0\x9F\x98\x80");
    EXPECT_EQ(OnTerminal("\x1B[2J\a\t\r\n\x7F"), R"(\x1b[2J\x07\x09\x0d\x0a\x7f)");
    EXPECT_EQ(OnTerminal(std::string_view("a\0b", 3)), R"(a\x00b)");
    EXPECT_EQ(OnTerminal("\xC2\x9B"
                         "1m"),
              R"(\xc2\x9b1m)");  // the same as ESC [
    EXPECT_EQ(OnTerminal("gpj.\xE2\x80\xAE"
                         "exe"),
              R"(gpj.\xe2\x80\xaeexe)");  // right-to-left override
    EXPECT_EQ(OnTerminal("\xE2\x81\xA6|\xE2\x80\xA8"), R"(\xe2\x81\xa6|\xe2\x80\xa8)");
    EXPECT_EQ(OnTerminal("\xC2\x9F|\xE2\x81\xA9"), R"(\xc2\x9f|\xe2\x81\xa9)") << "the last of their kind";
    EXPECT_EQ(OnTerminal("caf\xE9.RA1"), R"(caf\xe9.RA1)");
    EXPECT_EQ(OnTerminal("\xC2\xA0|\xE2\x80\xA7|\xE2\x80\xAF|\xE2\x81\xAA"),
              "\xC2\xA0|\xE2\x80\xA7|\xE2\x80\xAF|\xE2\x81\xAA")
        << "neighbours";
}

}  // namespace
}  // namespace halvern
