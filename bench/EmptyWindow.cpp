// SPDX-License-Identifier: MIT
//
// The yardstick for start and memory: the least that a Qt Widgets program of the tool's size does.

#include "bench/Scene.h"

#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QWidget window;
    window.setFixedSize(bench::WINDOW_SIZE);
    window.show();
    return QApplication::exec();
}
