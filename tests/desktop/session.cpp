#include "desktop/session.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <stdexcept>

#include "store/menus.h"
#include "support/test_desktop.h"

namespace halvern::test {

namespace {

/// The least contrast of texts that all can read: Web Content Accessibility Guidelines 2.1, criterion 1.4.3.
constexpr double kLegible = 4.5;

/// Relative luminance as defined there.
double Luminance(const QColor& colour) {
    const auto linear = [](double c) { return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}
double Contrast(const QColor& one, const QColor& other) {
    const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

bool HasText(const QWidget* widget) {
    return qobject_cast<const QLabel*>(widget) != nullptr || qobject_cast<const QAbstractButton*>(widget) != nullptr ||
           qobject_cast<const QLineEdit*>(widget) != nullptr || qobject_cast<const QListView*>(widget) != nullptr;
}

}  // namespace

Session::Session() {
    std::filesystem::create_directories(folder.Path() / "run");
    std::filesystem::permissions(folder.Path() / "run", std::filesystem::perms::owner_all);
    qputenv("XDG_RUNTIME_DIR", (folder.Path() / "run").c_str());
}

std::vector<std::string> Session::Report(User& user) {
    return user.Look([] { return ReportLines(); });
}

std::vector<std::string> Session::ReportFrom(User& user, std::size_t first) {
    const auto all = Report(user);
    return {all.begin() + static_cast<std::ptrdiff_t>(std::min(first, all.size())), all.end()};
}

void Session::Start(User& user) {
    FindWindow("HalvernV0.99");
    user.AwaitWindow(kMainWindow);
}

void Session::Exit(User& user) {
    user.Press("alt+F4");
    user.AwaitWindow("Halvern");
    user.Press("y");
}

void Session::ChooseList(User& user, const std::string& path) {
    user.Choose('f', "g");
    user.AwaitWindow("Get List File");
    TypePath(user, path);
}

void Session::TypePath(User& user, const std::string& path) {
    const auto stands = [path = QString::fromStdString(path)] {
        const QWidget* dialog = QApplication::activeWindow();
        const auto* name = dialog == nullptr ? nullptr : dialog->findChild<QLineEdit*>("fileNameEdit");
        return name != nullptr && name->text() == path;
    };
    // Now and then the display loses one of many keys, or another window had the keyboard; a person would click into the
    // field and type the name again.
    for (int tries = 0; tries < 4; ++tries) {
        user.Type(path);
        if (user.Comes("the whole path", stands, std::chrono::seconds(5)))
            return;
        user.Photograph("path-not-taken");
        user.Click(user.Look([] {
            const QWidget* dialog = QApplication::activeWindow();
            const auto* name = dialog == nullptr ? nullptr : dialog->findChild<QLineEdit*>("fileNameEdit");
            return name == nullptr ? QPoint() : name->mapToGlobal(name->rect().center());
        }));
        user.Press("ctrl+a");
    }
    throw std::runtime_error("the dialog does not take the path " + path);
}

void Session::Load(User& user, const std::string& path) {
    ChooseList(user, path);
    user.Press("Return");
    user.Await("the data set", [] { return Menus().OutputMenu.IsEnabled(); });
}

void Session::LoadSpeeds(User& user, const std::string& path) {
    ChooseList(user, path);
    user.Press("Return");
    user.AwaitWindow("Multiple Speed Data");
    user.Press("Return");
    user.AwaitNoWindow("Multiple Speed Data");
    user.Await("the data set", [] { return Menus().OutputMenu.IsEnabled(); });
}

void Session::ChooseItems(User& user, char menu, const std::vector<const MenuItem*>& items) {
    user.AwaitWindow(kMainWindow);
    ChooseItemsHere(user, menu, items);
}

void Session::ChooseItemsHere(User& user, char menu, const std::vector<const MenuItem*>& items) {
    user.Press(std::string("alt+") + menu);
    user.Await("the menu", [] { return QApplication::activePopupWidget() != nullptr; });
    for (const MenuItem* item : items) {
        QPoint place;
        user.Await("the item " + item->Caption(), [&place, caption = QString::fromStdString(item->Caption())] {
            auto* popup = dynamic_cast<QMenu*>(QApplication::activePopupWidget());
            for (QAction* action : popup == nullptr ? QList<QAction*>() : popup->actions())
                if (action->text() == caption && action->isVisible()) {
                    place = popup->mapToGlobal(popup->actionGeometry(action).center());
                    return true;
                }
            return false;
        });
        user.Click(place);
    }
}

void Session::TurnToMainWindow(User& user) {
    ActivateWindow(FindWindow(kMainWindow));
    user.AwaitWindow(kMainWindow);
}

QPoint Session::PlaceOfLine(User& user, int line) {
    return user.Look([line] {
        const auto* list = QApplication::activeWindow()->findChild<QListView*>();
        const QRect place = list->visualRect(list->model()->index(line, 0));
        return list->viewport()->mapToGlobal(place.topLeft() + QPoint(20, place.height() / 2));
    });
}

void Session::PressButton(User& user, const char* caption) {
    QPoint place;
    user.Await(std::string("the button ") + caption, [&place, caption] {
        const QWidget* window = QApplication::activeWindow();
        for (QPushButton* button : window == nullptr ? QList<QPushButton*>() : window->findChildren<QPushButton*>())
            if (button->isVisible() && button->text() == QLatin1String(caption)) {
                place = button->mapToGlobal(button->rect().center());
                return true;
            }
        return false;
    });
    user.Click(place);
}

void Session::ExpectWholeLabels(User& user) {
    EXPECT_EQ(user.Look([] {
        std::string cut;
        for (const QLabel* label : QApplication::activeWindow()->findChildren<QLabel*>())
            if (label->isVisible() && label->sizeHint().width() > label->width())
                cut += label->text().toStdString() + "\n";
        return cut;
    }),
              "");
}

void Session::ExpectLegibleTexts(User& user) {
    EXPECT_EQ(user.Look([] {
        std::string faint;
        for (const QWidget* widget : QApplication::activeWindow()->findChildren<QWidget*>()) {
            if (!HasText(widget) || !widget->isVisible() || !widget->isEnabled())
                continue;
            const QPalette& palette = widget->palette();
            const double contrast =
                Contrast(palette.color(widget->foregroundRole()), palette.color(widget->backgroundRole()));
            if (contrast < kLegible)
                faint += std::string(widget->metaObject()->className()) + " " + std::to_string(contrast) + "\n";
        }
        return faint;
    }),
              "");
}

void Session::SaveAs(User& user, const std::vector<const MenuItem*>& items, const std::string& title,
                     const std::string& path) {
    TurnToMainWindow(user);
    ChooseItems(user, 'o', items);
    user.AwaitWindow(title);
    TypePath(user, path);
    user.Press("Return");
    user.Await("the question whether to create it",
               [] { return dynamic_cast<QMessageBox*>(QApplication::activeWindow()) != nullptr; });
    user.Press("y");
    user.AwaitNoWindow(title);
}

QPoint Session::FileMenuOf(User& user) {
    return user.Look([] {
        QPoint place;
        for (const QWidget* window : QApplication::topLevelWidgets())
            if (const auto* bar = window->findChild<QMenuBar*>(); bar != nullptr && window->isVisible())
                place = bar->mapToGlobal(bar->actionGeometry(bar->actions().constFirst()).center());
        return place;
    });
}

void Session::ActivateBox(User& user, const std::string& title) {
    ActivateWindow(FindWindow(title));
    user.AwaitWindow(title);
}

QString Session::TextOfBox(User& user) {
    return user.Look([] {
        auto* box = dynamic_cast<QMessageBox*>(QApplication::activeModalWidget());
        return box == nullptr ? QString() : box->text();
    });
}

}  // namespace halvern::test
