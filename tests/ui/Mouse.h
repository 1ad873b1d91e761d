// SPDX-License-Identifier: MIT
#pragma once

#include <QTest>
#include <QWidget>
#include <QWindow>

// The mouse as a user has it: events enter at the window, which finds the widget they are for.

inline QPoint inWindow(const QWidget& widget, QPoint position) {
    return widget.mapTo(widget.window(), position);
}

inline void moveMouse(QWidget& widget, QPoint position) {
    QTest::mouseMove(widget.window()->windowHandle(), inWindow(widget, position));
}

inline void moveMouse(QWidget& widget) {
    moveMouse(widget, widget.rect().center());
}

inline void pressMouse(QWidget& widget, QPoint position) {
    QTest::mousePress(widget.window()->windowHandle(), Qt::LeftButton, {},
                      inWindow(widget, position));
}

inline void releaseMouse(QWidget& widget, QPoint position) {
    QTest::mouseRelease(widget.window()->windowHandle(), Qt::LeftButton, {},
                        inWindow(widget, position));
}

inline void clickMouse(QWidget& widget, QPoint position) {
    QTest::mouseClick(widget.window()->windowHandle(), Qt::LeftButton, {},
                      inWindow(widget, position));
}

inline void clickMouse(QWidget& widget) {
    clickMouse(widget, widget.rect().center());
}
