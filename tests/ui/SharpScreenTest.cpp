// SPDX-License-Identifier: MIT
#include "tests/support/TestSubject.h"
#include "tests/ui/Mouse.h"
#include "tests/ui/Painting.h"
#include "ui/ApBadges.h"
#include "ui/Artwork.h"
#include "ui/ClButtonApInfo.h"
#include "ui/ClButtonMode.h"
#include "ui/ClButtonNetworkTab.h"
#include "ui/ClCaptionBar.h"
#include "ui/ClLabelSepalator.h"

#include <QApplication>
#include <QBitmap>
#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;

/// The controls at 200 %: laid out as ever, painted from the doubled pictures.
class SharpScreenTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isSharp();
    void paintsTheModeButtonFromDoubledPictures();
    void paintsTheTabFromDoubledPictures();
    void paintsTheCloseButtonFromDoubledPictures();
    void paintsTheAccessPointFromDoubledPictures();
    void stretchesADoubledPicture();
    void keepsTheSizesOfLabels();

private:
    QWidget m_window;
};

void SharpScreenTest::isSharp() {
    m_window.resize(600, 300);
    m_window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&m_window));
    QCOMPARE(m_window.devicePixelRatioF(), 2.0);
}

void SharpScreenTest::paintsTheModeButtonFromDoubledPictures() {
    ClButtonMode button(u":/img/button_camera"_s, u"Camera state"_s, &m_window);
    button.move(0, 50);
    button.show();
    QCOMPARE(button.size(), QSize(112, 84));
    QCOMPARE(button.findChild<QLabel*>()->pos(), QPoint(0, 65));
    clickMouse(button);

    QImage expected = blankWith(button, artwork(u":/img/button2"_s, 2.0));
    QCOMPARE(expected.size(), QSize(224, 168));
    QPainter(&expected).drawPixmap(QPoint(26, 7), artwork(u":/img/button_camera"_s, 2.0));
    QCOMPARE(painted(button), expected);
    QCOMPARE(button.mask(), QRegion(artwork(u":/img/button2"_s, 1.0).mask()));
}

void SharpScreenTest::paintsTheTabFromDoubledPictures() {
    ClButtonNetworkTab tab(u"Adhoc"_s, &m_window);
    tab.setCheckable(true);
    tab.move(0, 150);
    tab.show();
    clickMouse(tab);
    QCOMPARE(painted(tab), blankWith(tab, artwork(u":/img/tab2"_s, 2.0)));
    QCOMPARE(tab.mask(), QRegion(artwork(u":/img/tab2"_s, 1.0).mask()));
}

void SharpScreenTest::paintsTheCloseButtonFromDoubledPictures() {
    const ClCaptionBar bar(u"title"_s, &m_window);
    auto* const close = bar.findChild<ClRollOverToolBtn*>();
    QCOMPARE(painted(*close), blankWith(*close, artwork(u":/img/close_mac1"_s, 2.0)));
    QCOMPARE(close->mask(), QRegion(artwork(u":/img/close_mac1"_s, 1.0).mask()));
    QCOMPARE(close->mask().boundingRect(), QRect(9, 4, 12, 12));
}

void SharpScreenTest::paintsTheAccessPointFromDoubledPictures() {
    ClButtonApInfo button(u"Harbour"_s, 4, 90, &m_window);
    button.show();
    QCOMPARE(painted(button), blankWith(button, artwork(u":/img/ap_button"_s, 2.0)));

    auto& badge = *button.findChild<ClWidgetEncryption*>();
    QCOMPARE(badge.size(), QSize(112, 24));
    QCOMPARE(painted(badge), blankWith(badge, artwork(u":/img/ap_encryption"_s, 2.0)));

    auto& signal = *button.findChild<ClWidgetRssi*>();
    QCOMPARE(signal.size(), QSize(36, 28));
    QCOMPARE(painted(signal), blankWith(signal, artwork(u":/img/ap_rssi3"_s, 2.0)));
}

void SharpScreenTest::stretchesADoubledPicture() {
    QPixmap picture(20, 20);
    picture.fill(Qt::red);
    ClRollOverToolBtn button(&m_window);
    button.resize(40, 30);
    button.setImgShow(picture);
    QPixmap expected(80, 60);
    expected.fill(Qt::red);
    expected.setDevicePixelRatio(2.0);
    QCOMPARE(painted(button), blankWith(button, expected));
}

void SharpScreenTest::keepsTheSizesOfLabels() {
    ClLabelSepalator separator(&m_window);
    separator.show();
    QCOMPARE(separator.size(), QSize(600, 2));
    QCOMPARE(painted(separator), blankWith(separator, artwork(u":/img/bg_line"_s, 2.0)));

    ClLinkCheck check(&m_window);
    check.setCheck(true);
    QCOMPARE(check.size(), QSize(24, 18));
    QCOMPARE(painted(check), blankWith(check, artwork(u":/img/ap_check"_s, 2.0)));
}

const TestSubject registered("SharpScreenTest", [](int argc, char** argv) {
    qputenv("QT_SCALE_FACTOR", "2");
    const QApplication application(argc, argv);
    SharpScreenTest test;
    return QTest::qExec(&test, argc, argv);
});

#include "SharpScreenTest.moc"
