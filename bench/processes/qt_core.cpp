// A program of the toolkit without a window, and without work.

#include <QCoreApplication>

int main(int argc, char** argv) { QCoreApplication application(argc, argv); }
