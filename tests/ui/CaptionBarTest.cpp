// SPDX-License-Identifier: MIT
#include "tests/support/Patience.h"
#include "tests/support/TestSubject.h"
#include "tests/ui/Mouse.h"
#include "tests/ui/Painting.h"
#include "tests/ui/TaggingTranslator.h"
#include "ui/Artwork.h"
#include "ui/ClCaptionBar.h"
#include "ui/ClRollOverToolBtn.h"

#include <QAccessible>
#include <QApplication>
#include <QBitmap>
#include <QLabel>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

class PressWindow : public QWidget {
public:
    QList<QPoint> m_presses;

protected:
    void mousePressEvent(QMouseEvent* event) override {
        m_presses.append(event->position().toPoint());
    }
};

}  // namespace

/// The caption bar of the frameless window.
class CaptionBarTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void placesItsCloseButton();
    void centresItsTitle_data();
    void centresItsTitle();
    void asksToCloseOnAClickInTheCircle();
    void drawsTheCloseButton();
    void leavesPressesBesideTheButtonToTheWindow();
    void staysReadableOnADarkDesktop();
    void namesTheCloseButton();

private:
    QImage picture(const QString& path) const { return blankWith(*m_close, artwork(path, 1.0)); }

    std::unique_ptr<PressWindow> m_window;
    ClCaptionBar* m_bar = nullptr;
    ClRollOverToolBtn* m_close = nullptr;
};

void CaptionBarTest::init() {
    m_window = std::make_unique<PressWindow>();
    m_window->resize(600, 100);
    m_bar = new ClCaptionBar(u"NuBo Setting Tool"_s, m_window.get());
    m_close = m_bar->findChild<ClRollOverToolBtn*>();
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    moveMouse(*m_window, {300, 90});
    TRY_VERIFY(!m_close->mask().isEmpty());
}

void CaptionBarTest::cleanup() {
    m_window.reset();
    QApplication::setPalette(QPalette());
}

void CaptionBarTest::placesItsCloseButton() {
    QCOMPARE(m_close->geometry(), QRect(0, 0, 30, 20));
    QCOMPARE(m_close->focusPolicy(), Qt::NoFocus);
    QCOMPARE(m_bar->geometry(), QRect(0, 0, 600, 30));
}

void CaptionBarTest::centresItsTitle_data() {
    QTest::addColumn<QString>("title");
    QTest::newRow("short") << u"N"_s;
    QTest::newRow("usual") << u"NuBo Setting Tool"_s;
    QTest::newRow("Japanese") << u"NuBo 設定ツール"_s;
    QTest::newRow("none") << QString();
}

void CaptionBarTest::centresItsTitle() {
    QFETCH(QString, title);
    const ClCaptionBar bar(title);
    const auto* const label = bar.findChild<QLabel*>();
    QCOMPARE(label->text(), title);
    QCOMPARE(label->pos(), QPoint((600 - label->sizeHint().width()) / 2, 10));
}

void CaptionBarTest::asksToCloseOnAClickInTheCircle() {
    QSignalSpy closed(m_bar, &ClCaptionBar::sigClose);
    clickMouse(*m_close, {2, 2});
    QCOMPARE(closed.size(), 0);
    clickMouse(*m_close, {15, 10});
    QCOMPARE(closed.size(), 1);
    QVERIFY(!m_close->hasFocus());
}

void CaptionBarTest::drawsTheCloseButton() {
    QCOMPARE(painted(*m_close), picture(u":/img/close_mac1"_s));
    moveMouse(*m_close, {15, 10});
    QCOMPARE(painted(*m_close), picture(u":/img/close_mac2"_s));
    pressMouse(*m_close, {15, 10});
    QCOMPARE(painted(*m_close), picture(u":/img/close_mac3"_s));
    releaseMouse(*m_close, {15, 10});
    QCOMPARE(m_close->mask(), QRegion(artwork(u":/img/close_mac1"_s, 1.0).mask()));
}

void CaptionBarTest::leavesPressesBesideTheButtonToTheWindow() {
    QSignalSpy closed(m_bar, &ClCaptionBar::sigClose);
    for (const QPoint position : {QPoint(2, 2), QPoint(300, 18), QPoint(560, 5)}) {
        pressMouse(*m_bar, position);
        QCOMPARE(m_window->m_presses, QList<QPoint>{position});
        m_window->m_presses.clear();
        releaseMouse(*m_bar, position);
    }
    pressMouse(*m_close, {15, 10});
    QVERIFY(m_window->m_presses.isEmpty());
    releaseMouse(*m_close, {15, 10});
    QCOMPARE(closed.size(), 1);
}

void CaptionBarTest::staysReadableOnADarkDesktop() {
    QApplication::setPalette(QPalette(QColor(0x31, 0x36, 0x3B), QColor(0x23, 0x26, 0x29)));
    const auto* const label = m_bar->findChild<QLabel*>();
    QCOMPARE(label->palette().color(label->foregroundRole()), QColor(0x2B, 0x30, 0x36));
}

void CaptionBarTest::namesTheCloseButton() {
    QCOMPARE(QAccessible::queryAccessibleInterface(m_close)->text(QAccessible::Name), u"Close"_s);
    QCOMPARE(QAccessible::queryAccessibleInterface(m_close)->role(), QAccessible::Button);
    const TaggingTranslator translator;
    const ClCaptionBar bar(u"title"_s);
    QCOMPARE(bar.findChild<ClRollOverToolBtn*>()->accessibleName(), u"ClCaptionBar|Close"_s);
}

const TestSubject registered = subjectWithWidgets<CaptionBarTest>();
#include "CaptionBarTest.moc"
