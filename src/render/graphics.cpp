#include "render/graphics.h"

#include <QGuiApplication>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace halvern {

namespace {

constexpr int kNoGraphicsStatus = 1;

// The toolkit's remarks on the machine, on a home or a locale that it misses, are no complaint of the program. Where it
// can't go on it would abort, with a core file.
void KeepQuiet(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    if (type != QtFatalMsg)
        return;
    std::fprintf(stderr, "%s\n", text.toLocal8Bit().constData());
    std::_Exit(kNoGraphicsStatus);
}

}  // namespace

void StartGraphics() {
    if (QCoreApplication::instance() != nullptr)
        return;
    qInstallMessageHandler(KeepQuiet);
    // A theme of the user's session would look for its display.
    qunsetenv("QT_QPA_PLATFORMTHEME");
    static char name[] = "halvern", option[] = "-platform", platform[] = "offscreen";
    static char* arguments[] = {name, option, platform, nullptr};
    static int count = 3;
    const std::string locale = std::setlocale(LC_ALL, nullptr);
    static const QGuiApplication application(count, arguments);
    std::setlocale(LC_ALL, locale.c_str());
}

}  // namespace halvern
