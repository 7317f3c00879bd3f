#include "desktop/run_halvern.h"

#include <QApplication>
#include <QIcon>
#include <QLocale>
#include <QSettings>

#include <clocale>
#include <cstdio>
#include <cstdlib>

#include "desktop/qt_desktop.h"
#include "shell/start.h"
#include "store/file_calls.h"
#include "store/files.h"
#include "store/standard_streams.h"
#include "ui/desktop.h"

namespace halvern {

namespace {

constexpr int kNoDisplayStatus = 1;

QtMessageHandler usualHandler = nullptr;

// Without a display the toolkit would abort; that is a signal and a core file for a thing that the user can mend.
void EndQuietlyWhenFatal(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (type != QtFatalMsg) {
        usualHandler(type, context, text);
        return;
    }
    std::fprintf(stderr, "%s\n", text.toLocal8Bit().constData());
    std::_Exit(kNoDisplayStatus);
}

/// The application object has set the locale of the user's session; no number and no text may follow it.
void LeaveTheLocale() {
    std::setlocale(LC_NUMERIC, "C");
    QLocale::setDefault(QLocale::c());
}

/// The icon of all windows, and the desktop entry that they belong to.
void TellTheDesktop() {
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/pictures/icon.svg")));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.halvern.halvern"));
}

// The toolkit's file dialog would keep its last folders in a file of the user's. Nothing can be kept in this folder.
void KeepNoSettings() {
    for (const auto format : {QSettings::NativeFormat, QSettings::IniFormat})
        QSettings::setPath(format, QSettings::UserScope, QStringLiteral("/dev/null"));
}

}  // namespace

int RunHalvern(char* programPath) {
    HoldStandardStreams();
    TakeSignalsOfWritingAsErrors();
    usualHandler = qInstallMessageHandler(EndQuietlyWhenFatal);
    int argc = 1;
    char* argv[] = {programPath, nullptr};
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    LeaveTheLocale();
    KeepNoSettings();
    TellTheDesktop();

    int status = 0;
    bool stillAskingForPrinters = false;
    {
        QtDesktop desktop;
        UseDesktop(&desktop);
        status = desktop.Run(Main);
        UseDesktop(nullptr);
        stillAskingForPrinters = desktop.StillAskingForPrinters();
    }
    if (stillAskingForPrinters) {
        // A thread is inside the print system's library and can't be called back. The process ends around it: what the
        // library uses must not be taken down first.
        FlushOpenFiles();
        std::fflush(nullptr);
        std::_Exit(status);
    }
    qInstallMessageHandler(usualHandler);
    return status;
}

}  // namespace halvern
