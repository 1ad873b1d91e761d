// SPDX-License-Identifier: MIT
#include "app/ClMainWidget.h"
#include "protocol/CommandIdentifiers.h"
#include "tests/support/TestSubject.h"
#include "ui/ClButtonMode.h"

#include <QAbstractButton>
#include <QAccessible>
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

/// By the Enter key, if @p button can have the keyboard.
void open(QAbstractButton& button) {
    if (button.focusPolicy() == Qt::NoFocus) {
        QTest::mouseClick(&button, Qt::LeftButton);
    } else {
        button.setFocus();
        QTest::keyClick(&button, Qt::Key_Return);
    }
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
    static void addPages();
    void openPage() const;
    /// The visible button that a screen reader calls @p name, or null.
    [[nodiscard]] QAbstractButton* button(const QString& name) const;
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

void MainWidgetKeysTest::addPages() {
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("subPage");  // the name of the button that leads there
    const QString none;
    QTest::newRow("camera state") << 1 << none;
    QTest::newRow("network setting") << 2 << none;
    QTest::newRow("search") << 2 << u"AP search and setting"_s;
    QTest::newRow("manual setting") << 2 << u"AP manual setting"_s;
    QTest::newRow("DHCP") << 2 << u"AP of selecting"_s;
    QTest::newRow("ad-hoc") << 2 << u"Adhoc"_s;
    QTest::newRow("basic setting") << 3 << none;
    QTest::newRow("stream setting") << 4 << none;
    QTest::newRow("help") << 5 << none;
}

void MainWidgetKeysTest::openPage() const {
    QFETCH(int, mode);
    QFETCH(QString, subPage);
    QTest::mouseClick(m_window->findChildren<ClButtonMode*>().at(mode - 1), Qt::LeftButton);
    QCOMPARE(m_window->findChild<QStackedLayout*>()->currentIndex(), mode);
    if (!subPage.isEmpty()) {
        QAbstractButton* const way = button(subPage);
        QVERIFY(way != nullptr);
        open(*way);
        QVERIFY(button(subPage) == nullptr || way->isChecked());
    }
}

QAbstractButton* MainWidgetKeysTest::button(const QString& name) const {
    for (QAbstractButton* const button : m_window->findChildren<QAbstractButton*>()) {
        if (button->isVisible() &&
            QAccessible::queryAccessibleInterface(button)->text(QAccessible::Name) == name) {
            return button;
        }
    }
    return nullptr;
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
    addPages();
}

void MainWidgetKeysTest::tabFollowsTheEyeAndCanBeSeen() {
    openPage();
    const QList<QWidget*> widgets = stops();
    QVERIFY(widgets.size() > 1);

    widgets.last()->setFocus();
    for (QWidget* const widget : widgets) {
        const QImage before = pictureOf(*widget);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), widget);
        QVERIFY2(pictureOf(*widget) != before, widget->metaObject()->className());
    }
}

void MainWidgetKeysTest::escapeClosesNothing_data() {
    addPages();
}

void MainWidgetKeysTest::escapeClosesNothing() {
    openPage();
    QTest::keyClick(m_window.get(), Qt::Key_Escape);
    for (QWidget* const widget : stops()) {
        QTest::keyClick(widget, Qt::Key_Escape);
    }
    QVERIFY(m_window->isVisible());
    QFETCH(int, mode);
    QCOMPARE(m_window->findChild<QStackedLayout*>()->currentIndex(), mode);
}

const TestSubject registered = subjectWithWidgets<MainWidgetKeysTest>();
#include "MainWidgetKeysTest.moc"
