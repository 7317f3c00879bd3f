#include <QApplication>
#include <QClipboard>
#include <QImage>

#include <filesystem>
#include <string>

#include "desktop/plot_session.h"
#include "desktop/print_service.h"
#include "plot/plot_window.h"
#include "store/menus.h"
#include "store/report.h"

namespace halvern {
namespace {

/// The program, and another one into which the user pastes. The menu of the report's commands wants a printer.
struct ClipboardSession : test::PlotSession {
    test::PrintService service{folder.Path() / "print"};

    static test::CommandResult PastedText() { return test::RunCommand("xclip -o -selection clipboard -t UTF8_STRING"); }
    QImage PastedPicture() const {
        const std::string file = (folder.Path() / "pasted.png").string();
        const auto pasted = test::RunCommand("xclip -o -selection clipboard -t image/png >'" + file + "'");
        EXPECT_EQ(pasted.status, 0) << pasted.output;
        return QImage(QString::fromStdString(file));
    }
    static void FillClipboard(const char* text) {
        // The other program stays and answers for what it has copied; it must not keep this one's output open.
        const std::string command =
            std::string("sh -c 'printf ") + text + " | xclip -i -selection clipboard >/dev/null 2>&1'";
        EXPECT_EQ(test::RunCommand(command).status, 0);
        EXPECT_EQ(PastedText().output, text);
    }
    static bool IsClipboardEmpty() {
        const auto targets = test::RunCommand("xclip -o -selection clipboard -t TARGETS");
        return targets.status != 0;
    }
};

TEST_F(ClipboardSession, TakesTheSelectedLinesOfTheReport) {
    const int status = test::WithUser([&](test::User& user) {
        Start(user);
        user.Look([] {
            for (const char* line : {"  indented", "left out", "    ", "also left out", "caf\xC3\xA9 & <dc/dt>  "})
                AddLine(line);
            return true;
        });
        // One line has no line break at its end.
        user.Click(PlaceOfLine(user, 2));
        user.Await("the line", [] { return OutFileBox().IsSelected(2); });
        user.Press("ctrl+c");
        user.Await("the copy", [] { return QApplication::clipboard()->text() == "indented"; });
        EXPECT_EQ(PastedText().output, "indented");

        ClickWith(user, "ctrl", 1, PlaceOfLine(user, 6));
        ClickWith(user, "ctrl", 1, PlaceOfLine(user, 4));
        user.Await("three lines", [] { return OutFileBox().IsSelected(4) && OutFileBox().IsSelected(6); });
        user.Press("ctrl+c");
        user.Await("the copy", [] { return QApplication::clipboard()->text() != "indented"; });
        EXPECT_EQ(PastedText().output, "indented\r\n\r\ncaf\xC3\xA9 & <dc/dt>");
        Exit(user);
    });
    EXPECT_EQ(status, 0);
}

TEST_F(ClipboardSession, IsEmptiedWhenNothingIsSelected) {
    const int status = test::WithUser([&](test::User& user) {
        Start(user);
        FillClipboard("earlier");
        user.Press("ctrl+c");
        user.AwaitWindow("Nothing Selected");
        EXPECT_EQ(TextOfBox(user), "No Text Was Selected!  Clipboard is Now Empty.");
        user.Photograph("nothing-selected");
        EXPECT_TRUE(IsClipboardEmpty());
        user.Press("Return");
        user.AwaitNoWindow("Nothing Selected");
        EXPECT_TRUE(IsClipboardEmpty());
        EXPECT_TRUE(user.Look([] { return QGuiApplication::overrideCursor() == nullptr; }));
        Exit(user);
    });
    EXPECT_EQ(status, 0);
}

TEST_F(ClipboardSession, TakesThePlotWhateverCoversIt) {
    const int status = test::WithUser([&](test::User& user) {
        ShowRawRate(user);
        auto cover = Cover(user);
        ChooseItemsHere(user, 'c', {&PlotitForm().Menu.ClipPrn});
        user.Await("the copy", [] { return !QApplication::clipboard()->image().isNull(); });
        const QImage picture = user.Look([] { return SurfaceOfPlot().Surface().Image().copy(); });
        const QImage pasted = PastedPicture();
        EXPECT_EQ(pasted.size(), picture.size());
        EXPECT_EQ(pasted.convertToFormat(QImage::Format_RGB32), picture.convertToFormat(QImage::Format_RGB32));
        EXPECT_NE(pasted.pixelColor(275, 300), ColourOfCover());
        Uncover(user, cover);
        Leave(user);
    });
    EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace halvern
