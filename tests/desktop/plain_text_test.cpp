// Texts are shown as texts. What comes from the names of files, cells and printers can hold anything: markup, marks of
// access keys and of places to fill in, control characters, bytes that are no text.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/dist_aves.h"
#include "conditioning/set_meniscus.h"
#include "conditioning/set_multi_men_f.h"
#include "desktop/form_window.h"
#include "desktop/list_view.h"
#include "desktop/message_box.h"
#include "desktop/qt_desktop.h"
#include "intake/generate_file.h"
#include "output/incremental_plot.h"
#include "plot/legend.h"
#include "plot/plot_window.h"
#include "plot/progress.h"
#include "render/shown_text.h"
#include "shell/main_window.h"
#include "shell/splash.h"
#include "wide/radii_dialogs.h"
#include "wide/set_smooth.h"

namespace halvern {
namespace {

constexpr std::string_view kTexts[] = {
    "<dc/dt>",
    "<b>x</b> &amp; &lt; <a href='file:///'>here</a>",
    "A&B && C &",
    "%1 %2 %L1 %n %%",
    "[*] [*][*]",
    "-",
    "a\tb\rc\nd\x1B[2J\a\x7F",
    std::string_view("zero\0byte", 9),
    "gpj.\xE2\x80\xAE"
    "exe \xE2\x81\xA6",
    "caf\xE9 \xFF\xFE",
    "\\x41 \\n ${HOME} `ls`",
};

/// Whether a text can neither break a line nor turn it, nor command anything.
bool IsHarmless(const QString& text) {
    for (const QChar c : text)
        if (c.category() == QChar::Other_Control || (c.unicode() >= 0x2028 && c.unicode() <= 0x202E) ||
            (c.unicode() >= 0x2066 && c.unicode() <= 0x2069))
            return false;
    return true;
}

/// A caption as it is read on the screen, where `&&` is one.
QString Read(QString caption) {
    EXPECT_TRUE(QKeySequence::mnemonic(caption).isEmpty()) << caption.toStdString();
    return caption.replace("&&", "&");
}

/// Every form of the program, by the name that the design gives it. The windows that exist once are held by the program.
std::map<std::string, std::function<std::shared_ptr<Form>()>> Forms() {
    const auto held = [](Form& form) { return std::shared_ptr<Form>(std::shared_ptr<Form>(), &form); };
    return {
        {"Keld", [=] { return held(MainForm()); }},
        {"Plotit", [=] { return held(PlotitForm()); }},
        {"PlotLegend", [=] { return held(PlotLegendForm()); }},
        {"cmpltfrm", [=] { return held(CmpltFrmForm()); }},
        {"Splash1", [] { return std::make_shared<Splash>(); }},
        {"GenerateFile", [] { return std::make_shared<GenerateFile>(); }},
        {"IncrementalPlot", [] { return std::make_shared<IncrementalPlot>(); }},
        {"PlotRadii", [] { return std::make_shared<RadiiDialog>(kPlotRadii); }},
        {"PlotLogWD", [] { return std::make_shared<RadiiDialog>(kPlotLogWD); }},
        {"PlotIntegral", [] { return std::make_shared<RadiiDialog>(kPlotIntegral); }},
        {"SetMeniscus", [] { return std::make_shared<SetMeniscus>(); }},
        {"SetMultiMenF", [] { return std::make_shared<SetMultiMenF>(); }},
        {"SetSmooth", [] { return std::make_shared<SetSmooth>(); }},
        {"DistAves", [] { return std::make_shared<DistAves>(); }},
    };
}

struct PlainText : ::testing::Test {
    QtDesktop desktop{[] { return PrinterList{}; }};

    PlainText() { UseDesktop(&desktop); }
    ~PlainText() override { UseDesktop(nullptr); }

    void WithEveryForm(const std::function<void(Form&, FormWindow&)>& look) {
        for (const auto& [name, make] : Forms()) {
            SCOPED_TRACE(name);
            const std::shared_ptr<Form> form = make();
            EXPECT_EQ(form->Name(), name);
            FormWindow window(*form, desktop.Gate());
            look(*form, window);
            window.LetGo();
        }
    }
};

/// What is told of no control in particular: the toolkit would look for markup in the first three.
void ExpectNoHiddenTexts(const QWidget& widget) {
    EXPECT_EQ(widget.toolTip(), "");
    EXPECT_EQ(widget.statusTip(), "");
    EXPECT_EQ(widget.whatsThis(), "");
    EXPECT_TRUE(IsHarmless(widget.accessibleName()));
    EXPECT_TRUE(IsHarmless(widget.accessibleDescription()));
}

/// Looks at the widget of a control whose caption is this text. Result: whether such a widget shows its caption.
bool ShowsAsItIs(QWidget& widget, std::string_view text) {
    if (const auto* label = qobject_cast<QLabel*>(&widget)) {
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
        EXPECT_EQ(label->text(), ShownLine(text));
    } else if (const auto* frame = qobject_cast<QGroupBox*>(&widget)) {
        EXPECT_EQ(Read(frame->title()), ShownLine(text));
    } else if (const auto* box = qobject_cast<QLineEdit*>(&widget)) {
        EXPECT_EQ(box->text(), ShownLine(text));
        EXPECT_EQ(box->placeholderText(), "");
    } else if (const auto* button = qobject_cast<QAbstractButton*>(&widget)) {
        EXPECT_EQ(button->text(), ShownLine(text)) << "a caption of the program, with its access key";
    } else {
        return false;
    }
    return true;
}

TEST_F(PlainText, IsWhatEveryFormShows) {
    std::set<ControlKind> shown;
    WithEveryForm([&](Form& form, FormWindow& window) {
        for (const std::string_view text : kTexts) {
            SCOPED_TRACE(std::string(text));
            form.SetCaption(std::string(text));
            window.FormChanged();
            EXPECT_EQ(window.windowTitle(), ShownTitle(text));
            for (Control* control : form.Controls()) {
                SCOPED_TRACE(control->Name());
                control->SetCaption(std::string(text));
                control->SetSpokenName(std::string(text));
                window.ControlChanged(*control);
                if (ShowsAsItIs(*window.WidgetOf(*control), text))
                    shown.insert(control->Kind());
            }
            for (const auto* label : window.findChildren<QLabel*>())
                EXPECT_EQ(label->textFormat(), Qt::PlainText);
            for (const auto* button : window.findChildren<QAbstractButton*>())
                EXPECT_TRUE(IsHarmless(button->text()));
            for (const auto* widget : window.findChildren<QWidget*>())
                ExpectNoHiddenTexts(*widget);
            window.grab();
        }
    });
    EXPECT_EQ(shown, (std::set<ControlKind>{ControlKind::kLabel, ControlKind::kFrame, ControlKind::kTextBox,
                                            ControlKind::kButton, ControlKind::kCheckBox}));
}

TEST_F(PlainText, HasAccessKeysInCaptionsOfButtonsAndMenusAlone) {
    int keys = 0;
    WithEveryForm([&](Form& form, FormWindow& window) {
        for (const Control* control : form.Controls()) {
            const bool hasKey = control->Caption().find('&') != std::string::npos;
            const auto* button = qobject_cast<QAbstractButton*>(window.WidgetOf(*control));
            EXPECT_EQ(button != nullptr && !button->shortcut().isEmpty(), hasKey && button != nullptr)
                << control->Name();
            keys += hasKey ? 1 : 0;
        }
    });
    EXPECT_GT(keys, 0);
}

TEST_F(PlainText, IsWhatMessageBoxesShow) {
    for (const std::string_view text : kTexts) {
        SCOPED_TRACE(std::string(text));
        MessageBoxWindow box(nullptr, std::string(text), kYesNo + kQuestion, std::string(text));
        box.show();
        const auto* label = box.findChild<QLabel*>("qt_msgbox_label");
        ASSERT_NE(label, nullptr);
        EXPECT_EQ(label->text(), ShownLines(text));
        EXPECT_EQ(box.windowTitle(), ShownTitle(text));
        EXPECT_EQ(box.informativeText() + box.detailedText(), "");
        for (const auto* other : box.findChildren<QLabel*>())
            EXPECT_TRUE(other->textFormat() == Qt::PlainText || other->text().isEmpty());
        for (const auto* widget : box.findChildren<QWidget*>())
            ExpectNoHiddenTexts(*widget);
        for (const QString& line : label->text().split('\n'))
            EXPECT_TRUE(IsHarmless(line));
    }
}

TEST_F(PlainText, IsWhatTheReportShows) {
    ListBox lines;
    ListView view(lines, nullptr);
    view.show();
    for (const std::string_view text : kTexts)
        lines.AddLine(std::string(text));
    for (int row = 0; row < view.model()->rowCount(); ++row) {
        const QModelIndex index = view.model()->index(row, 0);
        EXPECT_EQ(index.data().toString(), ShownLine(kTexts[row]));
        EXPECT_TRUE(IsHarmless(index.data().toString()));
        EXPECT_FALSE(index.data(Qt::ToolTipRole).isValid());
        EXPECT_EQ(view.visualRect(index).height(), view.visualRect(view.model()->index(0, 0)).height());
    }
    view.grab();
    view.LetGo();
}

TEST_F(PlainText, IsWhatTheMenuOfThePrintersShows) {
    QMenuBar widget;
    MenuBar bar;
    MenuItem printers;
    printers.SetCaption("P&rint");
    bar.Append(1, printers);
    PrinterItems items;
    for (const std::string_view name : kTexts) {
        MenuItem& item = items.Load();
        item.ShowName(std::string(name));
        bar.Append(2, item);
    }
    MenuView view(widget, bar, desktop.Gate());
    for (std::size_t I = 1; I <= items.Count(); ++I) {
        const QAction& action = *view.ActionOf(items(I));
        EXPECT_EQ(Read(action.text()), ShownLine(kTexts[I - 1]));
        EXPECT_FALSE(action.isSeparator());
        EXPECT_TRUE(action.shortcut().isEmpty());
    }
    view.LetGo();
}

}  // namespace
}  // namespace halvern
