#include <QApplication>
#include <QFileDialog>
#include <QImage>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <string>

#include "desktop/plot_session.h"
#include "plot/plot_window.h"
#include "store/analysis_store.h"
#include "store/val.h"
#include "support/data_files.h"

namespace halvern {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSaveDialog = "Save As";

/// The plot's way into files. The program has been started in a folder that is not the one of the data.
struct PlotFiles : test::PlotSession {
    const fs::path start = folder.Path() / "start";

    PlotFiles() {
        for (const char* name : {"start", "plots"})
            fs::create_directory(name);
        fs::current_path(start);
    }
    static std::string FolderOfDialog(test::User& user) {
        return user.Look([] {
            const auto* dialog = dynamic_cast<QFileDialog*>(QApplication::activeModalWidget());
            return dialog == nullptr ? std::string() : dialog->directory().path().toStdString();
        });
    }
    static void ChooseName(test::User& user, const std::string& path) {
        TypePath(user, path);
        user.Press("Return");
        user.AwaitNoWindow(kSaveDialog);
        user.AwaitWindow(test::kPlotWindow);
    }
    static fs::path CurrentFolder(test::User& user) {
        return user.Look([] { return fs::current_path(); });
    }
};

int NumberAt(const std::string& bytes, std::size_t place, int count) {
    int number = 0;
    for (int i = count; i-- > 0;)
        number = number * 256 + static_cast<unsigned char>(bytes.at(place + static_cast<std::size_t>(i)));
    return number;
}

TEST_F(PlotFiles, HoldThePictureAsABitmap) {
    const fs::path file = folder.Path() / "plots" / "raw.bmp";
    const int status = test::WithUser([&](test::User& user) {
        ShowRawRate(user);
        // A cancel leaves nothing behind.
        ChooseItemsHere(user, 'c', {&PlotitForm().Menu.SaveBMP});
        user.AwaitWindow(kSaveDialog);
        user.Photograph("save-bitmap");
        user.Press("Escape");
        user.AwaitNoWindow(kSaveDialog);
        EXPECT_TRUE(fs::is_empty(folder.Path() / "plots"));

        auto cover = Cover(user);
        user.AwaitWindow(test::kPlotWindow);
        ChooseItemsHere(user, 'c', {&PlotitForm().Menu.SaveBMP});
        user.AwaitWindow(kSaveDialog);
        ChooseName(user, (folder.Path() / "plots" / "raw").string());
        const QImage picture = user.Look([] { return SurfaceOfPlot().Surface().Image().copy(); });
        Uncover(user, cover);

        const std::string bytes = test::ContentOf(file);
        EXPECT_GT(bytes.size(), 54U);
        EXPECT_EQ(bytes.substr(0, 2), "BM");
        EXPECT_EQ(NumberAt(bytes, 2, 4), static_cast<int>(bytes.size()));
        EXPECT_EQ(NumberAt(bytes, 14, 4), 40);  // the head of a Windows bitmap
        EXPECT_EQ(NumberAt(bytes, 18, 4), picture.width());
        EXPECT_EQ(NumberAt(bytes, 22, 4), picture.height());
        EXPECT_EQ(NumberAt(bytes, 28, 2), 24);  // bits a pixel
        EXPECT_EQ(NumberAt(bytes, 30, 4), 0);   // not compressed
        EXPECT_EQ(QImage(QString::fromStdString(file)).convertToFormat(QImage::Format_RGB32),
                  picture.convertToFormat(QImage::Format_RGB32));
        const auto seen = test::RunCommand("identify -format '%m %wx%h' '" + file.string() + "'");
        EXPECT_EQ(seen.output.substr(0, 3), "BMP") << seen.output;
        EXPECT_NE(seen.output.find(std::to_string(picture.width()) + "x" + std::to_string(picture.height())),
                  std::string::npos)
            << seen.output;
        Leave(user);
    });
    EXPECT_EQ(status, 0);
}

TEST_F(PlotFiles, HoldThePointsAndTheNextDialogOpensInTheirFolder) {
    const int status = test::WithUser([&](test::User& user) {
        ShowRawRate(user);
        EXPECT_EQ(CurrentFolder(user), folder.Path());  // the load has moved it

        user.Press("alt+a");
        user.AwaitWindow(kSaveDialog);
        EXPECT_EQ(FolderOfDialog(user), folder.Path());
        user.Press("Escape");
        user.AwaitNoWindow(kSaveDialog);
        user.AwaitWindow(test::kPlotWindow);
        EXPECT_EQ(CurrentFolder(user), start);

        user.Press("alt+a");
        user.AwaitWindow(kSaveDialog);
        EXPECT_EQ(FolderOfDialog(user), start);
        user.Photograph("save-plot");
        ChooseName(user, (folder.Path() / "plots" / "raw").string());
        EXPECT_EQ(CurrentFolder(user), start);

        user.Press("alt+a");
        user.AwaitWindow(kSaveDialog);
        EXPECT_EQ(FolderOfDialog(user), folder.Path() / "plots");
        ChooseName(user, "again.txt");
        EXPECT_EQ(CurrentFolder(user), start);
        EXPECT_TRUE(user.Look([] { return QGuiApplication::overrideCursor() == nullptr; }));

        const std::string text = test::ContentOf(folder.Path() / "plots" / "raw.dat");
        EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 5 + user.Look([] { return Store().PlotCount; }));
        const auto from = [&](std::size_t line) {
            std::size_t place = 0;
            for (; line > 1; --line)
                place = text.find('\n', place) + 1;
            return text.substr(place, text.find('\r', place) - place);
        };
        EXPECT_EQ(from(2).substr(0, 81), "Raw <dc/dt> vs S" + std::string(64, ' ') + "!");
        EXPECT_EQ(from(3), " S (Svedbergs)");
        EXPECT_EQ(Val(from(5)), user.Look([] { return Store().PlotCount; }));
        EXPECT_NE(test::ContentOf(folder.Path() / "plots" / "again.txt"), "");
        Leave(user);
    });
    EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace halvern
