// What the tests are run in is what they see. Without this a run in another language could be one in none.

#include <gtest/gtest.h>

#include <QLocale>

#include <clocale>
#include <string>

namespace halvern {
namespace {

struct Language {
    const char* locale;
    const char* inTheLibrary;  ///< the sign that parts the decimals, as the C library has it, and as the toolkit has it
    const char* inTheToolkit;
};
constexpr Language kLanguages[] = {
    {"de_DE.UTF-8", ",", ","}, {"tr_TR.UTF-8", ",", ","}, {"fa_IR.UTF-8", ".", "\xD9\xAB"},
    {"C", ".", "."},           {"C.UTF-8", ".", "."},
};

TEST(Locale, OfTheEnvironmentIsTheOneThatIsSeen) {
    ASSERT_NE(std::setlocale(LC_ALL, ""), nullptr) << "the environment names a locale that this system does not have";
    const std::string seen = std::setlocale(LC_NUMERIC, nullptr);
    const QByteArray named = qgetenv("LC_ALL");
    EXPECT_TRUE(named.isEmpty() || seen == named.toStdString()) << seen << " instead of " << named.toStdString();
    for (const Language& language : kLanguages) {
        if (seen != language.locale)
            continue;
        EXPECT_STREQ(std::localeconv()->decimal_point, language.inTheLibrary);
        EXPECT_EQ(QLocale::system().decimalPoint().toStdString(), language.inTheToolkit);
    }
    std::setlocale(LC_NUMERIC, "C");
}

}  // namespace
}  // namespace halvern
