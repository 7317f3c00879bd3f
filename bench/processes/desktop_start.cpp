// The desktop program from its start to the first picture of its main window, the splash window's time included.

#include <QCoreApplication>

#include "bench/processes/first_paint.h"
#include "desktop/run_halvern.h"

using halvern::bench::EndWithFirstPaint;
Q_COREAPP_STARTUP_FUNCTION(EndWithFirstPaint)

int main(int /*argc*/, char** argv) { return halvern::RunHalvern(argv[0]); }
