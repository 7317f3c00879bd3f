// The whole program with a user whose system speaks German: the C library, the toolkit and all that is loaded with it have
// the comma in their numbers, and the program keeps its points.

#include <gtest/gtest.h>

#include <QLocale>
#include <QProcess>

#include <clocale>
#include <cstdlib>

#include "desktop/plot_session.h"
#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "store/menus.h"

namespace halvern {
namespace {

class GermanSystem : public ::testing::Environment {
    void SetUp() override {
        ::setenv("LOCPATH", HALVERN_LOCALES, 1);
        ::setenv("LC_ALL", "de_DE.UTF-8", 1);
        ::setenv("LANGUAGE", "de", 1);
    }
};
const ::testing::Environment* const kGermanSystem = ::testing::AddGlobalTestEnvironment(new GermanSystem);

struct GermanSession : test::PlotSession {
    std::string MakeSample() const {
        const auto made = test::RunCommand("'" HALVERN_SAMPLES "/make' '" HALVERN_SIMULATE "' '" +
                                           folder.Path().string() + "' two-species");
        EXPECT_EQ(made.status, 0) << made.output;
        return (folder.Path() / "two-species" / "middle.LST").string();
    }
    static void TypeMeniscus(test::User& user, const char* text) {
        user.AwaitWindow("Set Meniscus Position");
        user.Press("ctrl+a");
        user.Type(text);
        user.Press("Return");
    }
};

TEST_F(GermanSession, HasTheNumbersAndTheReportOfAnyOther) {
    const std::string list = MakeSample();
    std::vector<std::string> report;
    const int status = test::WithUser([&](test::User& user) {
        Start(user);
        user.Look([] {
            EXPECT_EQ(QLocale::system().name(), "de_DE") << "the toolkit knows the user's language";
            EXPECT_EQ(QLocale::system().decimalPoint(), ",");
            EXPECT_STREQ(std::setlocale(LC_TIME, nullptr), "de_DE.UTF-8") << "and so does the C library";
            EXPECT_EQ(QLocale().decimalPoint(), ".");
            EXPECT_STREQ(std::localeconv()->decimal_point, ".");
            return true;
        });
        Load(user, list);
        ChooseItems(user, 'd', {&Menus().dummy_men, &Menus().Set_MenManually});
        TypeMeniscus(user, "5,95");
        user.AwaitWindow("Value for Radius");
        EXPECT_EQ(TextOfBox(user), "Please insert a number between 5.8 and 7.1");
        user.Press("Return");
        user.AwaitNoWindow("Value for Radius");
        TypeMeniscus(user, "5.95");
        user.AwaitNoWindow("Set Meniscus Position");
        EXPECT_EQ(user.Look([] { return Store().ScanMeniscus(1); }), 5.95F);
        ChooseItems(user, 'd', {&Menus().KeldIt});
        user.AwaitWindow(test::kPlotWindow);
        user.Photograph("german-plot");
        report = Report(user);
        TurnToMainWindow(user);
        Exit(user);
    });
    EXPECT_EQ(status, 0);

    folder.Write("same.session",
                 "click GetListNow\nchoose two-species/middle.LST\nclick Set_MenManually\ntype Text1 5,95\n"
                 "type Text1 5.95\nclick IsOK\nclick KeldIt\nprint report\n");
    QProcess replay;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("LC_ALL", "C");
    replay.setProcessEnvironment(environment);
    replay.setWorkingDirectory(QString::fromStdString(folder.Path().string()));
    replay.start(HALVERN_REPLAY, QStringList{"same.session"});
    ASSERT_TRUE(replay.waitForFinished(60000));
    std::string wanted =
        "message style=0 title=\"Value for Radius\" text=\"Please insert a number between 5.8 and 7.1\" "
        "answer=ok\n";
    for (const std::string& line : report)
        wanted += "report: " + line + "\n";
    EXPECT_EQ(replay.readAllStandardOutput().toStdString(), wanted) << replay.readAllStandardError().toStdString();
}

}  // namespace
}  // namespace halvern
