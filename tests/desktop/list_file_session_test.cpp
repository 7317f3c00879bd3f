#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include <filesystem>
#include <iterator>
#include <string>
#include <vector>

#include "desktop/session.h"
#include "store/analysis_store.h"
#include "store/menus.h"
#include "support/data_files.h"
#include "support/test_desktop.h"

namespace halvern {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

constexpr const char* kDialog = "Generate List File";
constexpr const char* kFirstFile = "{Click Here To Get FileName}";

/// A widget of the active window by the text that it shows; null without one.
template <class Widget>
Widget* Showing(const std::string& text) {
    if (QApplication::activeWindow() != nullptr)
        for (auto* widget : QApplication::activeWindow()->findChildren<Widget*>())
            if (widget->isVisible() && widget->text().toStdString() == text)
                return widget;
    return nullptr;
}

bool HasTheFocus(const QWidget* widget) { return widget != nullptr && QApplication::focusWidget() == widget; }

/// A folder of a series of 60 scans, of which some are missing, in front of the user who makes a list of them.
struct ListFile : test::Session {
    ListFile() {
        test::WriteDataSet(folder, 60);
        for (const char* missing : {"00007.RA1", "00020.RA1", "00021.RA1", "00033.RA1"})
            fs::remove(missing);
        fs::current_path("/");
    }
    std::string Scan(const char* name) const { return (folder.Path() / name).string(); }

    static void OpenDialog(test::User& user) {
        user.AwaitWindow(test::kMainWindow);
        user.Choose('f', "c");
        user.AwaitWindow(kDialog);
    }
    template <class Widget>
    static QPoint PlaceOf(test::User& user, const std::string& text) {
        QPoint place;
        user.Await(text, [&] {
            const Widget* widget = Showing<Widget>(text);
            if (widget != nullptr)
                place = widget->mapToGlobal(widget->rect().center());
            return widget != nullptr;
        });
        return place;
    }
    static void ClickBox(test::User& user, const std::string& text) { user.Click(PlaceOf<QLineEdit>(user, text)); }
    static void ClickButton(test::User& user, const std::string& text) { user.Click(PlaceOf<QPushButton>(user, text)); }

    /// Puts another text into the box that has the focus.
    static void Retype(test::User& user, const std::string& before, const std::string& after) {
        user.Await("the focus", [=] { return HasTheFocus(Showing<QLineEdit>(before)); });
        user.Press("ctrl+a");
        user.Type(after);
        user.Await(after, [=] { return HasTheFocus(Showing<QLineEdit>(after)); });
    }
    void AnswerFileDialog(test::User& user, const char* name) const {
        user.AwaitWindow("Get Data File");
        TypePath(user, Scan(name));
        user.Press("Return");
        user.AwaitNoWindow("Get Data File");
        user.AwaitWindow(kDialog);
    }
    static void DismissRefusal(test::User& user, const char* text) {
        user.AwaitWindow("Data Entry Error");
        EXPECT_EQ(TextOfBox(user), text);
        user.Press("Return");
        user.AwaitNoWindow("Data Entry Error");
        user.AwaitWindow(kDialog);
    }
    static void AwaitLine(test::User& user, const std::string& line) {
        user.Await(line, [=] { return test::ReportLines().back() == line; });
    }
    static Lines LinesOf(const fs::path& file) {
        const std::string text = test::ContentOf(file);
        Lines lines;
        for (std::size_t place = 0, end = 0; (end = text.find("\r\n", place)) != std::string::npos; place = end + 2)
            lines.push_back(text.substr(place, end - place));
        return lines;
    }
};

constexpr const char* kWrongNumber = "The value for the number of files is invalid or out of range!";
constexpr const char* kWrongIncrement = "The value for the file increment is invalid or out of range!";

TEST_F(ListFile, IsMadeOfASeriesAndLoaded) {
    const int status = test::WithUser([&](test::User& user) {
        Start(user);
        OpenDialog(user);
        user.Photograph("f1-list-file");
        EXPECT_FALSE(user.Look([] { return Showing<QPushButton>("Generate File")->isEnabled(); }));

        // A cancel leaves it as it is.
        ClickBox(user, kFirstFile);
        user.AwaitWindow("Get Data File");
        user.Photograph("f2-first-data-file");
        user.Press("Escape");
        user.AwaitNoWindow("Get Data File");
        user.AwaitWindow(kDialog);
        EXPECT_FALSE(user.Look([] { return Showing<QPushButton>("Generate File")->isEnabled(); }));
        ClickBox(user, kFirstFile);
        AnswerFileDialog(user, "00001.RA1");
        EXPECT_TRUE(user.Look([] { return Showing<QPushButton>("Generate File")->isEnabled(); }));
        const std::string path = Scan("00001.RA1");
        EXPECT_TRUE(user.Look([&] { return Showing<QLineEdit>("..." + path.substr(path.size() - 20)) != nullptr; }));

        // A number that is refused comes back, with the focus; the click that has left the box is gone.
        ClickBox(user, "200");
        Retype(user, "200", "3");
        ClickBox(user, "1");
        user.AwaitWindow("Data Entry Error");
        user.Photograph("f3-refused");
        DismissRefusal(user, kWrongNumber);
        Retype(user, " 200", "60");
        ClickBox(user, "1");
        Retype(user, "1", "250");
        ClickButton(user, "Generate File");
        DismissRefusal(user, kWrongIncrement);
        EXPECT_EQ(Report(user).size(), 2U);
        Retype(user, " 1", "1");
        user.Photograph("f4-filled-in");

        ClickButton(user, "Generate File");
        AwaitLine(user, "New ListFile saved as C1_1-60_I1.LST");
        EXPECT_EQ(ReportFrom(user, 2),
                  (Lines{"A Total of 56 files were found.", "New ListFile saved as C1_1-60_I1.LST"}));
        const fs::path list = folder.Path() / "C1_1-60_I1.LST";
        const Lines names = LinesOf(list);
        EXPECT_EQ(names.size(), 56U);
        EXPECT_EQ(names.at(5), Scan("00006.RA1"));
        EXPECT_EQ(names.at(6), Scan("00008.RA1"));
        EXPECT_EQ(names.at(55), Scan("00060.RA1"));
        user.AwaitWindow(kDialog);

        // The dialog has stayed; the list is there by now. No is the default.
        folder.Write("C1_1-60_I1.LST", "an old list\r\n");
        ClickButton(user, "Generate File");
        user.AwaitWindow("Replace File?");
        user.Photograph("f5-replace");
        EXPECT_EQ(TextOfBox(user), "C1_1-60_I1.LST already exists! Replace File?");
        EXPECT_EQ(user.Look([] { return dynamic_cast<QMessageBox*>(QApplication::activeModalWidget())->icon(); }),
                  QMessageBox::Critical);
        user.Press("Return");
        user.AwaitNoWindow("Replace File?");
        AwaitLine(user, "Old file exists!  C1_1-60_I1.LST NOT Replaced!");
        EXPECT_EQ(LinesOf(list), Lines{"an old list"});

        // Yes replaces it, and closes the dialog.
        user.AwaitWindow(kDialog);
        ClickButton(user, "Generate File");
        user.AwaitWindow("Replace File?");
        user.Press("y");
        user.AwaitNoWindow(kDialog);
        EXPECT_EQ(ReportFrom(user, 6), (Lines{"A Total of 56 files were found.", "Old ListFile deleted!",
                                              "New ListFile saved :: C1_1-60_I1.LST"}));
        EXPECT_EQ(LinesOf(list), names);

        user.AwaitWindow(test::kMainWindow);
        Load(user, list);
        EXPECT_EQ(user.Look([] { return Store().NumFiles; }), 56);
        user.Photograph("f6-loaded");
        Exit(user);
    });
    EXPECT_EQ(status, 0);
}

TEST_F(ListFile, IsMadeByTheKeyboardAlone) {
    const int status = test::WithUser([&](test::User& user) {
        Start(user);
        OpenDialog(user);
        user.Await("the first box", [] { return HasTheFocus(Showing<QLineEdit>(kFirstFile)); });
        user.Press("space");
        AnswerFileDialog(user, "00002.RA1");
        user.Press("Tab");
        Retype(user, "200", "501");
        user.Press("Tab");
        DismissRefusal(user, kWrongNumber);
        Retype(user, " 200", "10");
        user.Press("Tab");
        Retype(user, "1", "2");
        user.Press("Tab");
        user.Await("the button", [] { return HasTheFocus(Showing<QPushButton>("Generate File")); });
        user.Press("space");
        AwaitLine(user, "New ListFile saved as C1_2-18_I2.LST");
        EXPECT_EQ(LinesOf(folder.Path() / "C1_2-18_I2.LST").size(), 9U);  // the even ones from 2 to 20; 20 is missing
        user.AwaitWindow(kDialog);
        user.Press("Escape");
        user.AwaitNoWindow(kDialog);
        Exit(user);
    });
    EXPECT_EQ(status, 0);
}

TEST_F(ListFile, EndsTheProgramWithANumberThatIsTooLarge) {
    folder.Write("40000.RA1", test::ScanFile{}.Text());
    const int status = test::WithUser([&](test::User& user) {
        Start(user);
        OpenDialog(user);
        ClickBox(user, kFirstFile);
        AnswerFileDialog(user, "40000.RA1");
        ClickButton(user, "Generate File");
        user.AwaitWindow("Halvern");
        EXPECT_EQ(TextOfBox(user), "Run-time error '6':\n\nOverflow");
        user.Press("Return");
    });
    EXPECT_EQ(status, 70);
}

}  // namespace
}  // namespace halvern
