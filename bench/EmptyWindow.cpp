// SPDX-License-Identifier: MIT
//
// The yardstick for start and memory: the least that a Qt Widgets program of the tool's size does
// that shows anything. One line of text makes it look up and load a font, as every window does.

#include "bench/Scene.h"

#include <QApplication>
#include <QLabel>
#include <QWidget>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QWidget window;
    window.setFixedSize(bench::WINDOW_SIZE);
    new QLabel(QStringLiteral("A window with one line of text"), &window);
    window.show();
    return QApplication::exec();
}
