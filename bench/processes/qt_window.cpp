// qt_window ITEMS: the least that has a window with that many menu items. It ends with its first picture.

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>

#include <cstdlib>

#include "bench/processes/first_paint.h"

int main(int argc, char** argv) {
    constexpr int kItemsOfMenu = 10;
    QApplication application(argc, argv);
    halvern::bench::EndWithFirstPaint();
    QMainWindow window;
    QMenu* menu = nullptr;
    const int items = argc > 1 ? std::atoi(argv[1]) : 0;
    for (int i = 0; i < items; ++i)
        if (i % kItemsOfMenu == 0)
            menu = window.menuBar()->addMenu(QStringLiteral("Menu %1").arg(i / kItemsOfMenu));
        else
            menu->addAction(QStringLiteral("Item %1").arg(i));
    window.resize(640, 480);
    window.show();
    return QApplication::exec();
}
