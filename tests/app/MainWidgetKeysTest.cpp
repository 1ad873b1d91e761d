// SPDX-License-Identifier: MIT
#include "app/ClMainWidget.h"
#include "protocol/CommandIdentifiers.h"
#include "ui/ClButtonMode.h"

#include <QApplication>
#include <QStackedLayout>
#include <QTest>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

QRect placeInWindow(const QWidget& widget) {
    return {widget.mapTo(widget.window(), QPoint()), widget.size()};
}

/// As the eye goes: row by row, and from left to right.
bool isBefore(const QWidget* one, const QWidget* other) {
    const QRect first = placeInWindow(*one);
    const QRect second = placeInWindow(*other);
    const bool inOneRow = first.top() <= second.center().y() && second.top() <= first.center().y();
    return inOneRow ? first.left() < second.left() : first.top() < second.top();
}

}  // namespace

/// The main window under the keyboard, with a camera that never answers.
class MainWidgetKeysTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void tabFollowsTheEyeAndCanBeSeen_data();
    void tabFollowsTheEyeAndCanBeSeen();
    void escapeClosesNothing_data();
    void escapeClosesNothing();

private:
    static void addModes();
    void openPage(int mode) const;
    /// What Tab can lead to, in the order of the eye.
    [[nodiscard]] QList<QWidget*> stops() const;
    [[nodiscard]] QImage pictureOf(const QWidget& widget) const {
        return m_window->grab(placeInWindow(widget)).toImage();
    }

    std::unique_ptr<ClMainWidget> m_window;
};

void MainWidgetKeysTest::init() {
    m_window = std::make_unique<ClMainWidget>();
    QVERIFY(disconnect(m_window.get(), &ClMainWidget::sigSendCommand, nullptr, nullptr));
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_window->slotReceiveCommand(
        {{u"CMD"_s, USB_CMD_DEVICE_OPEN}, {u"PARAM1"_s, QVariant::fromValue<void*>(this)}});
}

void MainWidgetKeysTest::addModes() {
    QTest::addColumn<int>("mode");
    QTest::newRow("camera state") << 1;
    QTest::newRow("network setting") << 2;
    QTest::newRow("basic setting") << 3;
    QTest::newRow("stream setting") << 4;
    QTest::newRow("help") << 5;
}

void MainWidgetKeysTest::openPage(int mode) const {
    QTest::mouseClick(m_window->findChildren<ClButtonMode*>().at(mode - 1), Qt::LeftButton);
    QCOMPARE(m_window->findChild<QStackedLayout*>()->currentIndex(), mode);
}

QList<QWidget*> MainWidgetKeysTest::stops() const {
    QList<QWidget*> widgets = m_window->findChildren<QWidget*>();
    widgets.removeIf([](const QWidget* widget) {
        return !widget->isVisible() || !widget->isEnabled() ||
               (widget->focusPolicy() & Qt::TabFocus) == 0;
    });
    std::ranges::sort(widgets, isBefore);
    return widgets;
}

void MainWidgetKeysTest::tabFollowsTheEyeAndCanBeSeen_data() {
    addModes();
}

void MainWidgetKeysTest::tabFollowsTheEyeAndCanBeSeen() {
    QFETCH(int, mode);
    openPage(mode);
    const QList<QWidget*> widgets = stops();
    QVERIFY(widgets.size() > 1);

    widgets.last()->setFocus();
    for (QWidget* const widget : widgets) {
        const QImage before = pictureOf(*widget);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), widget);
        QVERIFY(pictureOf(*widget) != before);
    }
}

void MainWidgetKeysTest::escapeClosesNothing_data() {
    addModes();
}

void MainWidgetKeysTest::escapeClosesNothing() {
    QFETCH(int, mode);
    openPage(mode);
    QTest::keyClick(m_window.get(), Qt::Key_Escape);
    for (QWidget* const widget : stops()) {
        QTest::keyClick(widget, Qt::Key_Escape);
    }
    QVERIFY(m_window->isVisible());
    QCOMPARE(m_window->findChild<QStackedLayout*>()->currentIndex(), mode);
}

QTEST_MAIN(MainWidgetKeysTest)
#include "MainWidgetKeysTest.moc"
