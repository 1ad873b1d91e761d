// SPDX-License-Identifier: MIT
#include "tour/ClTour.h"

#include "app/ClMainWidget.h"
#include "pages/ClWidgetSelectMode.h"

#include <QApplication>
#include <QPushButton>
#include <QStackedLayout>
#include <QTest>
#include <QTimer>

#include <algorithm>

namespace {

constexpr int PATIENCE_MS = 30000;
constexpr int LOOK_INTERVAL_MS = 10;

bool waitFor(const char* what, const std::function<bool()>& condition) {
    const bool hasCome = QTest::qWaitFor(condition, PATIENCE_MS);
    if (!hasCome) {
        qWarning("Waited in vain for %s", what);
    }
    return hasCome;
}

bool clickLastButton(const QWidget& shown) {
    QList<QPushButton*> buttons = shown.findChildren<QPushButton*>();
    buttons.removeIf([](const QPushButton* button) { return !button->isVisible(); });
    if (buttons.isEmpty()) {
        return false;
    }
    QTest::mouseClick(buttons.last(), Qt::LeftButton);
    return true;
}

}  // namespace

bool ClTour::run() {
    const auto* pages = m_window.findChild<QStackedLayout*>();
    return m_visitor(m_window, QStringLiteral("not-connected")) &&
           waitFor("a camera", [pages] { return pages->currentIndex() != MODE_NOT_CONNECTED; }) &&
           visitAll(tourStops(), m_window);
}

bool ClTour::visitAll(const std::vector<stStop>& stops, QWidget& shown) {
    return std::ranges::all_of(stops, [&](const stStop& stop) {
        return stop.kind == eStop::Dialog ? visitDialog(stop, shown) : visitPage(stop);
    });
}

bool ClTour::visitPage(const stStop& stop) {
    if (!stop.enter(m_window)) {
        qWarning("There is no way to %s", stop.name);
        return false;
    }
    return visit(stop, m_window) && (stop.kind != eStop::SubPage || clickLastButton(m_window));
}

bool ClTour::visitDialog(const stStop& stop, const QWidget& from) {
    const QWidget* before = QApplication::activeModalWidget();
    bool isVisited = false;
    bool isClosed = false;
    // Entering may return when the dialog has been closed, or before it opens.
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (dialog == before || !dialog->isVisible()) {
            return;
        }
        look.stop();
        isVisited = visit(stop, *dialog);
        QTest::keyClick(dialog, Qt::Key_Escape);
        isClosed = true;
    });
    look.start(LOOK_INTERVAL_MS);
    if (!stop.enter(from)) {
        qWarning("There is no way to %s", stop.name);
        return false;
    }
    return waitFor(stop.name,
                   [&] { return isClosed && QApplication::activeModalWidget() == before; }) &&
           isVisited;
}

bool ClTour::visit(const stStop& stop, QWidget& shown) {
    return waitFor(stop.name, [&] { return stop.isReady(shown); }) &&
           m_visitor(shown, QString::fromLatin1(stop.name)) && visitAll(stop.inner, shown);
}
