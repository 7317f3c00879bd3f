#include "desktop/file_dialog.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSettings>
#include <QStyledItemDelegate>
#include <QTest>

#include <filesystem>
#include <string_view>

#include "desktop/application.h"
#include "desktop/message_box.h"
#include "render/shown_text.h"
#include "support/data_files.h"

namespace halvern {
namespace {

const FileDialog kListFile{.title = "Get List File",
                           .filter = " ListFile (*.LST)| *.LST",
                           .flags = kPathMustExist + kFileMustExist,
                           .defaultExtension = {},
                           .fileName = {}};

TEST(FileFilters, AreDescribedAsTheyStandAndMatchWithoutTheirBlanks) {
    const auto filters = ParseFilter(" ListFile (*.LST)| *.LST");
    ASSERT_EQ(filters.size(), 1U);
    EXPECT_EQ(filters[0].description, " ListFile (*.LST)");
    EXPECT_EQ(filters[0].patterns, QStringList{"*.LST"});
}

TEST(FileFilters, AreSeveralPairsOfSeveralPatterns) {
    const auto filters = ParseFilter("Scans|*.RA1;*.IP1 ; *.RI1|All (*.*)| *.*");
    ASSERT_EQ(filters.size(), 2U);
    EXPECT_EQ(filters[0].patterns, (QStringList{"*.RA1", "*.IP1", "*.RI1"}));
    EXPECT_EQ(filters[1].description, "All (*.*)");
    EXPECT_EQ(filters[1].patterns, QStringList{"*"});
}

TEST(FileFilters, WithoutAPatternAreNone) {
    EXPECT_TRUE(ParseFilter("").empty());
    EXPECT_TRUE(ParseFilter("Scans").empty());
}

struct Dialog : ::testing::Test {
    test::DataFolder folder;

    Dialog() {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");
        folder.Write("first.LST", "");
        folder.Write("second.lst", "");
        folder.Write("noextension", "");
        folder.Write("scan.RA1", "");
        folder.Write("inner/third.LST", "");
    }

    std::string PathOf(const std::string& name) const { return (folder.Path() / name).string(); }

    static QLineEdit& NameOf(FileDialogWindow& dialog) { return *dialog.findChild<QLineEdit*>("fileNameEdit"); }

    /// Names that the dialog lists, when its model has read the folder.
    static QStringList Listed(FileDialogWindow& dialog) {
        auto& list = *dialog.findChild<QListView*>("listView");
        QStringList names;
        EXPECT_TRUE(QTest::qWaitFor([&] {
            names.clear();
            for (int row = 0; row < list.model()->rowCount(list.rootIndex()); ++row)
                names += list.model()->index(row, 0, list.rootIndex()).data().toString();
            return names.contains("inner");
        }));
        names.sort();
        return names;
    }

    /// Types each name into the dialog and accepts; what it returns in the end.
    static std::optional<std::string> Choose(const FileDialog& settings, FileDialogKind kind,
                                             const std::vector<QString>& names) {
        test::AtNext<FileDialogWindow> user([&](FileDialogWindow& dialog) {
            EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
            for (const auto& name : names) {
                NameOf(dialog).setFocus();
                NameOf(dialog).setText(name);
                dialog.accept();
            }
            if (dialog.isVisible())
                dialog.reject();
        });
        return FileDialogWindow(nullptr, settings, kind).Ask();
    }
};

TEST_F(Dialog, HasTitleAndFilterTextAsTheyStand) {
    FileDialogWindow dialog(nullptr, kListFile, FileDialogKind::kExistingFile);
    EXPECT_EQ(dialog.windowTitle(), "Get List File");
    EXPECT_EQ(dialog.windowModality(), Qt::ApplicationModal);
    EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
    auto* types = dialog.findChild<QComboBox*>("fileTypeCombo");
    ASSERT_NE(types, nullptr);
    ASSERT_EQ(types->count(), 1);
    EXPECT_EQ(types->itemText(0), " ListFile (*.LST)");
}

TEST_F(Dialog, StartsInTheCurrentDirectory) {
    FileDialogWindow dialog(nullptr, kListFile, FileDialogKind::kExistingFile);
    EXPECT_EQ(dialog.directory().absolutePath().toStdString(), folder.Path().string());
}

TEST_F(Dialog, ListsNamesThatMatchWithoutRegardToCase) {
    FileDialogWindow dialog(nullptr, kListFile, FileDialogKind::kExistingFile);
    dialog.show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Listed(dialog) == QStringList{"first.LST", "inner", "second.lst"}; }));
}

TEST_F(Dialog, ListsEveryNameForAllFiles) {
    FileDialog all = kListFile;
    all.filter = "All files|*.*";
    FileDialogWindow dialog(nullptr, all, FileDialogKind::kExistingFile);
    dialog.show();
    const QStringList every{"first.LST", "inner", "noextension", "scan.RA1", "second.lst"};
    EXPECT_TRUE(QTest::qWaitFor([&] { return Listed(dialog) == every; }));
}

TEST_F(Dialog, UsesThePatternsOfTheFilterChosen) {
    FileDialog two = kListFile;
    two.filter = " ListFile (*.LST)| *.LST|Absorbance|*.RA1";
    FileDialogWindow dialog(nullptr, two, FileDialogKind::kExistingFile);
    dialog.show();
    auto* types = dialog.findChild<QComboBox*>("fileTypeCombo");
    ASSERT_EQ(types->count(), 2);
    EXPECT_EQ(types->itemText(1), "Absorbance");
    types->setFocus();
    QTest::keyClick(types, Qt::Key_Down);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Listed(dialog) == QStringList{"inner", "scan.RA1"}; }));
    EXPECT_EQ(types->currentText(), "Absorbance");
}

TEST_F(Dialog, GivesTheAbsolutePath) {
    EXPECT_EQ(Choose(kListFile, FileDialogKind::kExistingFile, {"first.LST"}), PathOf("first.LST"));
    EXPECT_EQ(Choose(kListFile, FileDialogKind::kExistingFile, {"inner/../inner/third.LST"}),
              PathOf("inner/third.LST"));
    EXPECT_EQ(Choose(kListFile, FileDialogKind::kExistingFile, {QString::fromStdString(PathOf("scan.RA1"))}),
              PathOf("scan.RA1"));
}

TEST_F(Dialog, GivesThePathInTheBytesOfTheFileSystem) {
    folder.Write("Z\xC3\xBCrich.LST", "");
    EXPECT_EQ(Choose(kListFile, FileDialogKind::kExistingFile, {QStringLiteral(u"Z\u00FCrich.LST")}),
              PathOf("Z\xC3\xBCrich.LST"));
}

TEST_F(Dialog, LeavesSymbolicLinksAlone) {
    std::filesystem::create_symlink(PathOf("scan.RA1"), PathOf("link.LST"));
    EXPECT_EQ(Choose(kListFile, FileDialogKind::kExistingFile, {"link.LST"}), PathOf("link.LST"));
}

TEST_F(Dialog, EntersAFolder) {
    EXPECT_EQ(Choose(kListFile, FileDialogKind::kExistingFile, {"inner", "third.LST"}), PathOf("inner/third.LST"));
}

TEST_F(Dialog, GivesNothingWhenCancelled) {
    EXPECT_EQ(Choose(kListFile, FileDialogKind::kExistingFile, {}), std::nullopt);
}

TEST_F(Dialog, ForAnExistingFileTakesRegularFilesAlone) {
    ASSERT_EQ(::mkfifo(PathOf("pipe.LST").c_str(), 0600), 0);
    for (const char* name : {"missing.LST", "pipe.LST", "<b>missing</b>.LST"}) {
        QString told;
        Qt::TextFormat format = Qt::AutoText;
        test::AtNext<MessageBoxWindow> user([&](MessageBoxWindow& box) {
            told = box.text();
            format = box.textFormat();
            QTest::keyClick(&box, Qt::Key_Return);
        });
        EXPECT_EQ(Choose(kListFile, FileDialogKind::kExistingFile, {name}), std::nullopt) << name;
        EXPECT_TRUE(told.startsWith(QString::fromStdString(PathOf(name)) + "\nFile not found.")) << told.toStdString();
        EXPECT_EQ(format, Qt::PlainText);
    }
}

const FileDialog kNewFile{.title = "Save Data",
                          .filter = "Data (*.dat)|*.dat",
                          .flags = kAskBeforeOverwriting,
                          .defaultExtension = "dat",
                          .fileName = {}};

TEST_F(Dialog, ForANewFileAddsTheDefaultExtensionToANameWithoutOne) {
    EXPECT_EQ(Choose(kNewFile, FileDialogKind::kNewFile, {"result"}), PathOf("result.dat"));
    EXPECT_EQ(Choose(kNewFile, FileDialogKind::kNewFile, {"result.txt"}), PathOf("result.txt"));
}

TEST_F(Dialog, ForANewFileOffersTheNameOfTheProgram) {
    FileDialog named = kNewFile;
    named.fileName = "run7.dat";
    FileDialogWindow dialog(nullptr, named, FileDialogKind::kNewFile);
    EXPECT_EQ(NameOf(dialog).text(), "run7.dat");
}

/// Answers the next question, and keeps its text.
struct Questioned {
    QString text;
    test::AtNext<MessageBoxWindow> user;
    explicit Questioned(Qt::Key key)
        : user([this, key](MessageBoxWindow& box) {
              text = box.text();
              QTest::keyClick(&box, key);
          }) {}
};

TEST_F(Dialog, AsksBeforeAFileIsOverwritten) {
    {
        const Questioned question(Qt::Key_Y);
        EXPECT_EQ(Choose(kNewFile, FileDialogKind::kNewFile, {"scan.RA1"}), PathOf("scan.RA1"));
        EXPECT_TRUE(question.text.contains("already exists."));
    }
    const Questioned question(Qt::Key_Return);  // the careful answer is the default
    EXPECT_EQ(Choose(kNewFile, FileDialogKind::kNewFile, {"scan.RA1"}), std::nullopt);
}

TEST_F(Dialog, AsksNothingWithoutTheFlag) {
    FileDialog quiet = kNewFile;
    quiet.flags = 0;
    EXPECT_EQ(Choose(quiet, FileDialogKind::kNewFile, {"scan.RA1"}), PathOf("scan.RA1"));
}

TEST_F(Dialog, AsksBeforeAFileIsCreated) {
    FileDialog asking = kNewFile;
    asking.flags = kAskBeforeCreating;
    {
        const Questioned question(Qt::Key_Y);
        EXPECT_EQ(Choose(asking, FileDialogKind::kNewFile, {"new"}), PathOf("new.dat"));
        EXPECT_TRUE(question.text.contains("does not exist."));
    }
    const Questioned question(Qt::Key_N);
    EXPECT_EQ(Choose(asking, FileDialogKind::kNewFile, {"new"}), std::nullopt);
    EXPECT_EQ(Choose(asking, FileDialogKind::kNewFile, {"scan.RA1"}), PathOf("scan.RA1"));
}

TEST_F(Dialog, RefusesAFolderThatIsMissingWhereThePathMustExist) {
    FileDialog strict = kNewFile;
    strict.flags = kPathMustExist;
    const Questioned told(Qt::Key_Return);
    EXPECT_EQ(Choose(strict, FileDialogKind::kNewFile, {"nowhere/new.dat"}), std::nullopt);
    EXPECT_TRUE(told.text.contains("Path does not exist."));
    EXPECT_EQ(Choose(kNewFile, FileDialogKind::kNewFile, {"nowhere/new.dat"}), PathOf("nowhere/new.dat"));
}

// Names can hold any character but a slash.
constexpr const char* kStrangeNames[] = {"<b>x<b>.LST", "A&B && C.LST",    "%1 %2.LST",      "say \"a\".LST",
                                         "\"all\".LST", "a\tb\r\nc.LST",   "\x1B[31m\a.LST", "gpj.\xE2\x80\xAE.LST",
                                         " blank.LST",  "back\\slash.LST", "a;b|c #?.LST",   "$HOME `ls` *.LST"};

/// The row of a file, when the dialog's model has read the folder.
QModelIndex RowOf(const QListView& list, const QString& name) {
    QModelIndex found;
    EXPECT_TRUE(QTest::qWaitFor([&] {
        for (int row = 0; row < list.model()->rowCount(list.rootIndex()); ++row)
            if (const auto index = list.model()->index(row, 0, list.rootIndex()); index.data() == name)
                found = index;
        return found.isValid();
    })) << name.toStdString();
    return found;
}

QString Shown(const QListView& list, const QModelIndex& index) {
    return dynamic_cast<QStyledItemDelegate&>(*list.itemDelegate()).displayText(index.data(), QLocale());
}

TEST_F(Dialog, ShowsEveryNameOnItsLineAndTakesTheFileThatIsClicked) {
    for (const char* name : kStrangeNames)
        folder.Write(name, "");
    for (const char* name : kStrangeNames) {
        const QString wanted = QString::fromUtf8(name);
        test::AtNext<FileDialogWindow> user([&](FileDialogWindow& dialog) {
            auto& list = *dialog.findChild<QListView*>("listView");
            const QModelIndex clicked = RowOf(list, wanted);
            EXPECT_EQ(Shown(list, clicked), ShownLine(name));
            list.scrollTo(clicked);
            QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(clicked).center());
            dialog.accept();
            if (dialog.isVisible())
                dialog.reject();
        });
        EXPECT_EQ(FileDialogWindow(nullptr, kListFile, FileDialogKind::kExistingFile).Ask(), PathOf(name)) << name;
    }
}

TEST_F(Dialog, TakesTheNameAsItIsTyped) {
    for (const char* name : kStrangeNames) {
        if (std::string_view(name).starts_with('"'))
            continue;
        EXPECT_EQ(Choose(kNewFile, FileDialogKind::kNewFile, {QString::fromUtf8(name)}), PathOf(name)) << name;
        folder.Write(name, "");
        EXPECT_EQ(Choose(kListFile, FileDialogKind::kExistingFile, {QString::fromUtf8(name)}), PathOf(name)) << name;
    }
}

TEST_F(Dialog, TakesAQuoteForALetterUnlessAPairStandsAroundTheWhole) {
    EXPECT_EQ(Choose(kNewFile, FileDialogKind::kNewFile, {"a\"b"}), PathOf("a\"b.dat"));
    EXPECT_EQ(Choose(kNewFile, FileDialogKind::kNewFile, {"inner/\"a\" and \"b\""}),
              PathOf("inner/\"a\" and \"b\".dat"));
    EXPECT_EQ(Choose(kNewFile, FileDialogKind::kNewFile, {"\"in quotes.txt\""}), PathOf("in quotes.txt"));
    const Questioned told(Qt::Key_Return);
    EXPECT_EQ(Choose(kListFile, FileDialogKind::kExistingFile, {"\"first.LST\" \"second.lst\""}), std::nullopt);
    EXPECT_TRUE(told.text.contains("File not found.")) << "two names are one that there is not";
}

TEST_F(Dialog, TakesNoNameThatTheSystemWouldCutShort) {
    const QString name = QStringLiteral("scan.RA1") + QChar(QChar::Null) + QStringLiteral(".dat");
    const Questioned told(Qt::Key_Return);
    EXPECT_EQ(Choose(kNewFile, FileDialogKind::kNewFile, {name}), std::nullopt);
    EXPECT_TRUE(told.text.endsWith("This is no file that can be written.")) << told.text.toStdString();
}

// To the toolkit a name is a text, and it has no way back from what it shows of other bytes.
TEST_F(Dialog, FindsNoFileWhoseNameIsNoText) {
    folder.Write("caf\xE9.LST", "");
    const Questioned told(Qt::Key_Return);
    EXPECT_EQ(Choose(kListFile, FileDialogKind::kExistingFile, {QStringLiteral(u"caf\uFFFD.LST")}), std::nullopt);
    EXPECT_TRUE(told.text.contains(QStringLiteral(u"caf\uFFFD.LST\nFile not found.")));
}

TEST_F(Dialog, ShowsPlainTextInTheBoxesOfTheToolkitToo) {
    folder.Write("<b>x<b>.dat", "");
    Qt::TextFormat format = Qt::AutoText;
    QString text;
    test::AtNext<FileDialogWindow> user([&](FileDialogWindow& dialog) {
        auto& list = *dialog.findChild<QListView*>("listView");
        list.setCurrentIndex(RowOf(list, "<b>x<b>.dat"));
        test::AtNext<QMessageBox> box([&](QMessageBox& asked) {
            format = asked.textFormat();
            text = asked.text();
            asked.button(QMessageBox::No)->click();
        });
        auto& erase = *dialog.findChild<QAction*>("qt_delete_action");
        erase.setEnabled(true);  // as the menu that it stands in does when it opens
        erase.trigger();
        EXPECT_TRUE(box.Happened());
        dialog.reject();
    });
    FileDialogWindow(nullptr, kNewFile, FileDialogKind::kNewFile).Ask();
    EXPECT_TRUE(text.contains("<b>x<b>.dat")) << text.toStdString();
    EXPECT_EQ(format, Qt::PlainText);
    EXPECT_TRUE(std::filesystem::exists(PathOf("<b>x<b>.dat")));
}

}  // namespace
}  // namespace halvern
