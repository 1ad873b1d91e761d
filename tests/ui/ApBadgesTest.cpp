// SPDX-License-Identifier: MIT
#include "tests/support/TestSubject.h"
#include "tests/ui/Painting.h"
#include "tests/ui/TaggingTranslator.h"
#include "ui/ApBadges.h"
#include "ui/Artwork.h"

#include <QLabel>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

/// The signal picture and the encryption badge of an access point.
class ApBadgesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void showsTheSignalByItsStrength_data();
    void showsTheSignalByItsStrength();
    void showsNoPictureWithoutASignal_data();
    void showsNoPictureWithoutASignal();
    void changesTheSignal();
    void reachesTheStrongestPictureWithoutTheSlash();
    void namesTheSignal();

    void showsTheEncryption_data();
    void showsTheEncryption();
    void collapsesWithoutEncryption_data();
    void collapsesWithoutEncryption();
    void unknownTypeLeavesTheBadge_data();
    void unknownTypeLeavesTheBadge();
    void openAfterEncryptedHidesTheBadge();
    void centresTheTextInWhite();
    void repaintsAPartLikeTheWhole();

private:
    QWidget m_window;
};

void ApBadgesTest::showsTheSignalByItsStrength_data() {
    QTest::addColumn<int>("rssi");
    QTest::addColumn<QString>("picture");
    QTest::newRow("highest") << std::numeric_limits<int>::max() << u":/img/ap_rssi3"_s;
    QTest::newRow("100") << 100 << u":/img/ap_rssi3"_s;
    QTest::newRow("80") << 80 << u":/img/ap_rssi3"_s;
    QTest::newRow("79") << 79 << u":/img/ap_rssi2"_s;
    QTest::newRow("30") << 30 << u":/img/ap_rssi2"_s;
    QTest::newRow("29") << 29 << u":/img/ap_rssi1"_s;
    QTest::newRow("1") << 1 << u":/img/ap_rssi1"_s;
}

void ApBadgesTest::showsTheSignalByItsStrength() {
    QFETCH(int, rssi);
    QFETCH(QString, picture);
    ClWidgetRssi signal(rssi, &m_window);
    QCOMPARE(signal.size(), QSize(36, 28));
    QCOMPARE(painted(signal), blankWith(signal, artwork(picture, 1.0)));
}

void ApBadgesTest::showsNoPictureWithoutASignal_data() {
    QTest::addColumn<int>("rssi");
    QTest::newRow("0") << 0;
    QTest::newRow("-1") << -1;
    QTest::newRow("lowest") << std::numeric_limits<int>::min();
}

void ApBadgesTest::showsNoPictureWithoutASignal() {
    QFETCH(int, rssi);
    const ClWidgetRssi signal(rssi, &m_window);
    QVERIFY(signal.pixmap().isNull());
    QCOMPARE(signal.size(), QSize(0, 0));
}

void ApBadgesTest::changesTheSignal() {
    ClWidgetRssi signal(0, &m_window);
    signal.setValue(90);
    QCOMPARE(signal.size(), QSize(36, 28));
    QCOMPARE(painted(signal), blankWith(signal, artwork(u":/img/ap_rssi3"_s, 1.0)));
    signal.setValue(0);
    QCOMPARE(signal.size(), QSize(0, 0));
    signal.setValue(10);
    QCOMPARE(painted(signal), blankWith(signal, artwork(u":/img/ap_rssi1"_s, 1.0)));
}

void ApBadgesTest::reachesTheStrongestPictureWithoutTheSlash() {
    for (const qreal ratio : {1.0, 2.0}) {
        const QImage picture = artwork(u":img/ap_rssi3"_s, ratio).toImage();
        QVERIFY(!picture.isNull());
        QCOMPARE(picture, artwork(u":/img/ap_rssi3"_s, ratio).toImage());
    }
}

void ApBadgesTest::namesTheSignal() {
    const TaggingTranslator translator;
    ClWidgetRssi signal(57, &m_window);
    QCOMPARE(signal.accessibleName(), u"ClWidgetRssi|Signal strength 57"_s);
    signal.setValue(0);
    QVERIFY(signal.accessibleName().isEmpty());
}

void ApBadgesTest::showsTheEncryption_data() {
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("text");
    QTest::newRow("1") << 1 << u"WEP"_s;
    QTest::newRow("2") << 2 << u"TKIP"_s;
    QTest::newRow("4") << 4 << u"AES"_s;
}

void ApBadgesTest::showsTheEncryption() {
    QFETCH(int, type);
    ClWidgetEncryption badge(type, &m_window);
    QTEST(badge.findChild<QLabel*>()->text(), "text");
    QVERIFY(badge.getIsEncryption());
    QCOMPARE(badge.minimumSize(), QSize(112, 24));
    QCOMPARE(badge.maximumSize(), QSize(112, 24));
    QCOMPARE(painted(badge), blankWith(badge, artwork(u":/img/ap_encryption"_s, 1.0)));
}

void ApBadgesTest::collapsesWithoutEncryption_data() {
    QTest::addColumn<int>("type");
    QTest::newRow("0") << 0;
    QTest::newRow("-1") << -1;
    QTest::newRow("unknown from the start") << 3;
}

void ApBadgesTest::collapsesWithoutEncryption() {
    QFETCH(int, type);
    const ClWidgetEncryption badge(type, &m_window);
    QVERIFY(badge.findChild<QLabel*>()->text().isEmpty());
    QVERIFY(!badge.getIsEncryption());
    QCOMPARE(badge.minimumSize(), QSize(0, 0));
    QCOMPARE(badge.maximumSize(), QSize(0, 0));
}

void ApBadgesTest::unknownTypeLeavesTheBadge_data() {
    QTest::addColumn<int>("before");
    QTest::addColumn<QString>("text");
    QTest::newRow("WEP") << 1 << u"WEP"_s;
    QTest::newRow("AES") << 4 << u"AES"_s;
    QTest::newRow("open") << 0 << QString();
}

void ApBadgesTest::unknownTypeLeavesTheBadge() {
    QFETCH(int, before);
    ClWidgetEncryption badge(before, &m_window);
    const QSize size = badge.size();
    for (const int unknown : {3, 5, 6, 8, -2, 255}) {
        badge.setValue(unknown);
        QTEST(badge.text(), "text");
        QCOMPARE(badge.size(), size);
    }
}

void ApBadgesTest::openAfterEncryptedHidesTheBadge() {
    ClWidgetEncryption badge(4, &m_window);
    badge.setValue(0);
    QVERIFY(!badge.getIsEncryption());
    QCOMPARE(badge.size(), QSize(0, 0));
    badge.setValue(2);
    QCOMPARE(badge.text(), u"TKIP"_s);
    QCOMPARE(badge.size(), QSize(112, 24));
}

void ApBadgesTest::centresTheTextInWhite() {
    const ClWidgetEncryption badge(1, &m_window);
    const auto* label = badge.findChild<QLabel*>();
    QCOMPARE(label->geometry(), QRect(25, 0, 75, 24));
    QCOMPARE(label->alignment(), Qt::AlignCenter);
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        QCOMPARE(label->palette().color(group, QPalette::WindowText), QColor(Qt::white));
        QCOMPARE(label->palette().color(group, QPalette::ButtonText), QColor(Qt::white));
    }
}

void ApBadgesTest::repaintsAPartLikeTheWhole() {
    ClWidgetEncryption badge(4, &m_window);
    const QRect part(40, 6, 60, 10);
    QImage repainted(part.size(), QImage::Format_ARGB32_Premultiplied);
    repainted.fill(Qt::transparent);
    badge.render(&repainted, {}, part, {});
    QCOMPARE(repainted, painted(badge).copy(part));
}

const TestSubject registered = subjectWithWidgets<ApBadgesTest>();
#include "ApBadgesTest.moc"
