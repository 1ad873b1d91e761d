// SPDX-License-Identifier: MIT
#include "app/ClMainWidget.h"
#include "protocol/CommandIdentifiers.h"
#include "tests/support/TestSubject.h"
#include "ui/ClButtonMode.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QSignalSpy>
#include <QStackedLayout>
#include <QTest>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

QRect placeInWindow(const QWidget& widget) {
    return {widget.mapTo(widget.window(), QPoint()), widget.size()};
}

/// By the Enter key, if @p button can have the focus.
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
    void aKeyChoosesTheMode_data();
    void aKeyChoosesTheMode();
    void f5RefreshesThePageOnShow_data();
    void f5RefreshesThePageOnShow();
    void controlTabChoosesTheOtherTab();
    void escapeGoesBack_data();
    void escapeGoesBack();
    void escapeGoesBackFromALineEdit();
    void aKeyClosesTheWindow_data();
    void aKeyClosesTheWindow();
    void noKeyWorksWithoutACamera();
    void noKeyWorksBehindADialog_data();
    void noKeyWorksBehindADialog();
    void aHeldKeyPressesOnce();
    void theKeysAreNamed();

private:
    static void addPages();
    static void addSubPages();
    [[nodiscard]] int mode() const {
        return m_window->findChild<QStackedLayout*>()->currentIndex();
    }
    void press(const QKeySequence& keys) const {
        QTest::keySequence(m_window->windowHandle(), keys);
    }
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
    addSubPages();
    const QString none;
    QTest::newRow("camera state") << 1 << none;
    QTest::newRow("network setting") << 2 << none;
    QTest::newRow("basic setting") << 3 << none;
    QTest::newRow("stream setting") << 4 << none;
    QTest::newRow("help") << 5 << none;
}

void MainWidgetKeysTest::addSubPages() {
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("subPage");  // the name of the button that leads there
    QTest::newRow("search") << 2 << u"AP search and setting"_s;
    QTest::newRow("manual setting") << 2 << u"AP manual setting"_s;
    QTest::newRow("DHCP") << 2 << u"AP of selecting"_s;
    QTest::newRow("ad-hoc") << 2 << u"Adhoc"_s;
}

void MainWidgetKeysTest::openPage() const {
    QFETCH(int, mode);
    QFETCH(QString, subPage);
    QTest::mouseClick(m_window->findChildren<ClButtonMode*>().at(mode - 1), Qt::LeftButton);
    QCOMPARE(this->mode(), mode);
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
    QCOMPARE(this->mode(), mode);
}

void MainWidgetKeysTest::aKeyChoosesTheMode_data() {
    QTest::addColumn<QKeySequence>("keys");
    QTest::addColumn<int>("expected");
    for (int mode = 1; mode <= 5; ++mode) {
        QTest::addRow("Ctrl+%d", mode) << QKeySequence(u"Ctrl+%1"_s.arg(mode)) << mode;
    }
    QTest::newRow("F1") << QKeySequence(Qt::Key_F1) << 5;
}

void MainWidgetKeysTest::aKeyChoosesTheMode() {
    QFETCH(QKeySequence, keys);
    QFETCH(int, expected);
    for (int from = 1; from <= 5; ++from) {
        QTest::mouseClick(m_window->findChildren<ClButtonMode*>().at(from - 1), Qt::LeftButton);
        press(keys);
        QCOMPARE(mode(), expected);
        QVERIFY(m_window->findChildren<ClButtonMode*>().at(expected - 1)->isChecked());
    }
}

void MainWidgetKeysTest::f5RefreshesThePageOnShow_data() {
    addPages();
}

void MainWidgetKeysTest::f5RefreshesThePageOnShow() {
    openPage();
    const auto modes = m_window->findChildren<ClButtonMode*>();
    QList<std::shared_ptr<QSignalSpy>> clicked;
    for (const ClButtonMode* button : modes) {
        clicked.append(std::make_shared<QSignalSpy>(button, &QAbstractButton::clicked));
    }
    QSignalSpy sent(m_window.get(), &ClMainWidget::sigSendCommand);
    press(Qt::Key_F5);
    QFETCH(int, mode);
    QCOMPARE(this->mode(), mode);
    for (int other = 1; other <= 5; ++other) {
        QCOMPARE(clicked[other - 1]->size(), other == mode ? 1 : 0);
    }
    QVERIFY(!sent.isEmpty() || mode == 4);  // the stream page reads when a dialog is asked for
}

void MainWidgetKeysTest::controlTabChoosesTheOtherTab() {
    press(Qt::CTRL | Qt::Key_2);
    for (const QString& tab : {u"Adhoc"_s, u"Infrastructure"_s, u"Adhoc"_s}) {
        press(Qt::CTRL | Qt::Key_Tab);
        QVERIFY(button(tab)->isChecked());
    }
    // Where there are no tabs the key does nothing.
    press(Qt::CTRL | Qt::Key_1);
    press(Qt::CTRL | Qt::Key_Tab);
    press(Qt::CTRL | Qt::Key_2);
    QVERIFY(button(u"Adhoc"_s)->isChecked());
}

void MainWidgetKeysTest::escapeGoesBack_data() {
    addSubPages();
}

void MainWidgetKeysTest::escapeGoesBack() {
    openPage();
    press(Qt::Key_Escape);
    QVERIFY(button(u"Infrastructure"_s)->isChecked());
    QVERIFY(button(u"AP manual setting"_s) != nullptr);
    QVERIFY(button(u"Back"_s) == nullptr);
}

void MainWidgetKeysTest::escapeGoesBackFromALineEdit() {
    press(Qt::CTRL | Qt::Key_2);
    open(*button(u"AP manual setting"_s));
    for (QLineEdit* const edit : m_window->findChildren<QLineEdit*>()) {
        if (edit->isVisible()) {
            edit->setFocus();
        }
    }
    QVERIFY(qobject_cast<QLineEdit*>(QApplication::focusWidget()) != nullptr);
    press(Qt::Key_Escape);
    QVERIFY(button(u"AP manual setting"_s) != nullptr);
}

void MainWidgetKeysTest::aKeyClosesTheWindow_data() {
    QTest::addColumn<QKeySequence>("keys");
    QTest::newRow("Ctrl+Q") << QKeySequence(Qt::CTRL | Qt::Key_Q);
    QTest::newRow("Ctrl+W") << QKeySequence(Qt::CTRL | Qt::Key_W);
}

void MainWidgetKeysTest::aKeyClosesTheWindow() {
    QFETCH(QKeySequence, keys);
    press(keys);
    QVERIFY(!m_window->isVisible());
}

void MainWidgetKeysTest::noKeyWorksWithoutACamera() {
    m_window->slotReceiveCommand(
        {{u"CMD"_s, USB_CMD_DEVICE_CLOSE}, {u"PARAM1"_s, QVariant::fromValue<void*>(this)}});
    for (const char* keys : {"Ctrl+1", "Ctrl+2", "Ctrl+5", "F1", "F5", "Ctrl+Tab", "Esc"}) {
        press(QKeySequence(QString::fromLatin1(keys)));
        QCOMPARE(mode(), 0);
    }
    press(Qt::CTRL | Qt::Key_Q);
    QVERIFY(!m_window->isVisible());
}

void MainWidgetKeysTest::noKeyWorksBehindADialog_data() {
    QTest::addColumn<bool>("isWindowActivated");
    QTest::newRow("the dialog is active") << false;
    QTest::newRow("the window behind it is active") << true;
}

void MainWidgetKeysTest::noKeyWorksBehindADialog() {
    press(Qt::CTRL | Qt::Key_2);
    open(*button(u"AP manual setting"_s));
    QDialog dialog(m_window.get());
    dialog.open();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QFETCH(bool, isWindowActivated);
    if (isWindowActivated) {
        QApplication::setActiveWindow(m_window.get());
    }
    for (const char* keys : {"Ctrl+1", "F1", "F5", "Ctrl+Tab", "Esc", "Ctrl+Q", "Ctrl+W"}) {
        const QSignalSpy sent(m_window.get(), &ClMainWidget::sigSendCommand);
        press(QKeySequence(QString::fromLatin1(keys)));
        QVERIFY(sent.isEmpty());
        QCOMPARE(mode(), 2);
        QVERIFY(button(u"Infrastructure"_s)->isChecked());
        QVERIFY(button(u"Back"_s) != nullptr);
        QVERIFY(m_window->isVisible());
    }
}

void MainWidgetKeysTest::aHeldKeyPressesOnce() {
    const QSignalSpy clicked(m_window->findChildren<ClButtonMode*>().at(4),
                             &QAbstractButton::clicked);
    press(Qt::Key_F1);
    for (int i = 0; i < 3; ++i) {
        qt_handleKeyEvent(m_window->windowHandle(), QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier,
                          QString(), true);
        QCoreApplication::processEvents();
    }
    QCOMPARE(clicked.size(), 1);
}

void MainWidgetKeysTest::theKeysAreNamed() {
    press(Qt::CTRL | Qt::Key_2);
    const auto verify = [this](const QString& name, const QStringList& keys) {
        QAbstractButton* const told = button(name);
        QVERIFY2(told != nullptr, qPrintable(name));
        QCOMPARE(told->toolTip(), u"%1 (%2)"_s.arg(name, keys.join(u", "_s)));
        auto* const seen = QAccessible::queryAccessibleInterface(told);
        QCOMPARE(seen->text(QAccessible::Description), keys.join(u", "_s));
        auto* const actions = seen->actionInterface();
        QCOMPARE(actions->keyBindingsForAction(actions->actionNames().first()), keys);
    };
    verify(u"Close"_s, {u"Ctrl+Q"_s, u"Ctrl+W"_s});
    verify(u"Camera state"_s, {u"Ctrl+1"_s});
    verify(u"Network setting"_s, {u"Ctrl+2"_s, u"F5"_s});
    verify(u"Basic setting"_s, {u"Ctrl+3"_s});
    verify(u"Stream setting"_s, {u"Ctrl+4"_s});
    verify(u"Help"_s, {u"Ctrl+5"_s, u"F1"_s});
    verify(u"Adhoc"_s, {u"Ctrl+Tab"_s});
    open(*button(u"AP manual setting"_s));
    verify(u"Back"_s, {u"Esc"_s});
    press(Qt::CTRL | Qt::Key_1);
    verify(u"Camera state"_s, {u"Ctrl+1"_s, u"F5"_s});
    verify(u"Network setting"_s, {u"Ctrl+2"_s});
}

const TestSubject registered = subjectWithWidgets<MainWidgetKeysTest>();
#include "MainWidgetKeysTest.moc"
