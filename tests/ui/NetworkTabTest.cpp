// SPDX-License-Identifier: MIT
#include "tests/support/TestSubject.h"
#include "tests/ui/Mouse.h"
#include "tests/ui/Painting.h"
#include "ui/Artwork.h"
#include "ui/ClButtonNetworkTab.h"

#include <QAccessible>
#include <QApplication>
#include <QBitmap>
#include <QLabel>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

/// The tabs of the network page.
class NetworkTabTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void isMadeForTheStrip();
    void drawsNothingWhenIdle();
    void drawsABackgroundForTheMouse();
    void drawsABackgroundWhenChecked();
    void coloursItsText_data();
    void coloursItsText();
    void takesNoFocus();
    void hasAnAccessibleName();

private:
    QImage picture(const QString& path) const { return blankWith(*m_tab, artwork(path, 1.0)); }

    std::unique_ptr<QWidget> m_window;
    ClButtonNetworkTab* m_tab = nullptr;
};

void NetworkTabTest::init() {
    m_window = std::make_unique<QWidget>();
    m_window->resize(300, 200);
    m_tab = new ClButtonNetworkTab(u"Adhoc"_s, m_window.get());
    m_tab->setCheckable(true);
    m_tab->move(10, 10);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    moveMouse(*m_window, {290, 190});
}

void NetworkTabTest::cleanup() {
    m_window.reset();
    QApplication::setPalette(QPalette());
}

void NetworkTabTest::isMadeForTheStrip() {
    QCOMPARE(m_tab->sizeHint(), QSize(172, 36));
    QCOMPARE(m_tab->size(), QSize(172, 36));
    const auto* const label = m_tab->findChild<QLabel*>();
    QCOMPARE(label->text(), u"Adhoc"_s);
    QCOMPARE(label->geometry(), QRect(0, 0, 172, 36));
    QCOMPARE(label->alignment(), Qt::AlignCenter);
}

void NetworkTabTest::drawsNothingWhenIdle() {
    QCOMPARE(painted(*m_tab), blank(*m_tab));
}

void NetworkTabTest::drawsABackgroundForTheMouse() {
    moveMouse(*m_tab);
    QCOMPARE(painted(*m_tab), picture(u":/img/tab1"_s));
    QCOMPARE(m_tab->mask(), QRegion(artwork(u":/img/tab1"_s, 1.0).mask()));
    pressMouse(*m_tab, m_tab->rect().center());
    QCOMPARE(painted(*m_tab), picture(u":/img/tab2"_s));
    releaseMouse(*m_tab, m_tab->rect().center());
}

void NetworkTabTest::drawsABackgroundWhenChecked() {
    clickMouse(*m_tab);
    moveMouse(*m_window, {290, 190});
    QCOMPARE(painted(*m_tab), picture(u":/img/tab2"_s));
    clickMouse(*m_tab);
    moveMouse(*m_window, {290, 190});
    QCOMPARE(painted(*m_tab), blank(*m_tab));
}

void NetworkTabTest::coloursItsText_data() {
    QTest::addColumn<bool>("darkDesktop");
    QTest::newRow("light desktop") << false;
    QTest::newRow("dark desktop") << true;
}

void NetworkTabTest::coloursItsText() {
    QFETCH(bool, darkDesktop);
    if (darkDesktop) {
        QApplication::setPalette(QPalette(QColor(0x31, 0x36, 0x3B), QColor(0x23, 0x26, 0x29)));
    }
    const auto has = [this](QColor colour) {
        const QImage image = painted(*m_tab, QWidget::DrawChildren);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) == colour) {
                    return true;
                }
            }
        }
        return false;
    };
    const QColor text(0x2B, 0x30, 0x36);
    QVERIFY2(has(text) && !has(Qt::white), "idle");
    moveMouse(*m_tab);
    QVERIFY2(has(text) && !has(Qt::white), "hovered");
    clickMouse(*m_tab);
    QVERIFY2(has(Qt::white) && !has(text), "checked");
}

void NetworkTabTest::takesNoFocus() {
    QCOMPARE(m_tab->focusPolicy(), Qt::NoFocus);
    clickMouse(*m_tab);
    QVERIFY(!m_tab->hasFocus());
}

void NetworkTabTest::hasAnAccessibleName() {
    QCOMPARE(QAccessible::queryAccessibleInterface(m_tab)->text(QAccessible::Name), u"Adhoc"_s);
}

const TestSubject registered = subjectWithWidgets<NetworkTabTest>();
#include "NetworkTabTest.moc"
