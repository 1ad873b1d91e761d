// SPDX-License-Identifier: MIT
#include "ui/Artwork.h"
#include "ui/ArtworkIcon.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// Writes a picture of one colour, without an extension, as resources have none.
void paintFile(const QString& path, QSize size, Qt::GlobalColor colour) {
    QImage image(size, QImage::Format_ARGB32);
    image.fill(colour);
    QVERIFY(image.save(path, "PNG"));
}

QImage generated(QIcon::Mode mode, const QPixmap& picture) {
    QStyleOption option;
    option.palette = QGuiApplication::palette();
    return QApplication::style()->generatedIconPixmap(mode, picture, &option).toImage();
}

}  // namespace

/// Pictures in the resolution of the surface, and the icons made of them.
class ArtworkTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void choosesThePictureForTheSurface_data();
    void choosesThePictureForTheSurface();
    void doublesEveryPictureOfTheProgram();
    void decodesOnce();
    void makesDoWithoutADoubledPicture();
    void givesNothingForNothing();
    void drawsAPartOfAPicture_data();
    void drawsAPartOfAPicture();

    void showsThePictureOfTheMode_data();
    void showsThePictureOfTheMode();
    void coloursAnIconWithoutThePictureOfTheMode_data();
    void coloursAnIconWithoutThePictureOfTheMode();
    void shrinksAnIconToFit();
    void paintsAnIcon();
    void keepsAnEmptyIconEmpty();
};

void ArtworkTest::choosesThePictureForTheSurface_data() {
    QTest::addColumn<qreal>("surface");
    QTest::addColumn<qreal>("picture");
    QTest::newRow("half") << 0.5 << 1.0;
    QTest::newRow("plain") << 1.0 << 1.0;
    QTest::newRow("a little sharper") << 1.25 << 2.0;
    QTest::newRow("between") << 1.5 << 2.0;
    QTest::newRow("double") << 2.0 << 2.0;
    QTest::newRow("triple") << 3.0 << 2.0;
}

void ArtworkTest::choosesThePictureForTheSurface() {
    QFETCH(qreal, surface);
    QFETCH(qreal, picture);
    const QPixmap found = artwork(u":/img/button1"_s, surface);
    QCOMPARE(found.devicePixelRatio(), picture);
    QCOMPARE(found.size(), QSize(112, 84) * picture);
    QCOMPARE(found.deviceIndependentSize(), QSizeF(112, 84));
}

void ArtworkTest::doublesEveryPictureOfTheProgram() {
    int pictures = 0;
    for (const QString& name : QDir(u":/img"_s).entryList()) {
        if (name.endsWith("@2x"_L1)) {
            continue;
        }
        ++pictures;
        const QString path = u":/img/"_s + name;
        const QPixmap plain = artwork(path, 1.0);
        QVERIFY2(!plain.isNull(), qPrintable(path));
        QCOMPARE(artwork(path, 2.0).size(), plain.size() * 2);
    }
    QVERIFY(pictures > 20);
}

void ArtworkTest::decodesOnce() {
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"picture"_s);
    paintFile(path, {4, 4}, Qt::red);
    const QPixmap first = artwork(path, 1.0);
    QVERIFY(QFile::remove(path));
    const QPixmap second = artwork(path, 1.0);
    QVERIFY(!second.isNull());
    QCOMPARE(second.cacheKey(), first.cacheKey());
}

void ArtworkTest::makesDoWithoutADoubledPicture() {
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"picture"_s);
    paintFile(path, {4, 4}, Qt::red);
    const QPixmap found = artwork(path, 2.0);
    QCOMPARE(found.size(), QSize(4, 4));
    QCOMPARE(found.devicePixelRatio(), 1.0);
}

void ArtworkTest::givesNothingForNothing() {
    QVERIFY(artwork(u":/img/none"_s, 1.0).isNull());
    QVERIFY(artwork(u":/img/none"_s, 2.0).isNull());
    QVERIFY(artwork(QString()).isNull());
}

void ArtworkTest::drawsAPartOfAPicture_data() {
    QTest::addColumn<qreal>("ratio");
    QTest::newRow("plain") << 1.0;
    QTest::newRow("double") << 2.0;
}

void ArtworkTest::drawsAPartOfAPicture() {
    QFETCH(qreal, ratio);
    const QPixmap picture = artwork(u":/img/button2"_s, ratio);
    const QRect area(3, 5, 40, 20);
    QImage drawn(picture.size(), QImage::Format_ARGB32_Premultiplied);
    drawn.setDevicePixelRatio(ratio);
    drawn.fill(Qt::transparent);
    QImage expected = drawn;

    QPainter painter(&drawn);
    drawArtwork(painter, area, picture);
    painter.end();
    painter.begin(&expected);
    painter.setClipRect(area);
    painter.drawPixmap(0, 0, picture);
    painter.end();
    QCOMPARE(drawn, expected);
    QCOMPARE(drawn.pixelColor(0, 0).alpha(), 0);
}

void ArtworkTest::showsThePictureOfTheMode_data() {
    QTest::addColumn<QIcon::Mode>("mode");
    QTest::addColumn<QString>("picture");
    QTest::newRow("normal") << QIcon::Normal << u":/img/close_mac1"_s;
    QTest::newRow("active") << QIcon::Active << u":/img/close_mac2"_s;
    QTest::newRow("selected") << QIcon::Selected << u":/img/close_mac3"_s;
}

void ArtworkTest::showsThePictureOfTheMode() {
    QFETCH(QIcon::Mode, mode);
    QFETCH(QString, picture);
    const QIcon icon = artworkIcon({{QIcon::Normal, u":/img/close_mac1"_s},
                                    {QIcon::Active, u":/img/close_mac2"_s},
                                    {QIcon::Selected, u":/img/close_mac3"_s}});
    for (const QIcon::State state : {QIcon::On, QIcon::Off}) {
        for (const qreal ratio : {1.0, 2.0}) {
            const QPixmap found = icon.pixmap(QSize(30, 20), ratio, mode, state);
            QCOMPARE(found.devicePixelRatio(), ratio);
            QCOMPARE(found.toImage(), artwork(picture, ratio).toImage());
        }
    }
}

void ArtworkTest::coloursAnIconWithoutThePictureOfTheMode_data() {
    QTest::addColumn<QIcon::Mode>("present");
    QTest::addColumn<QIcon::Mode>("wanted");
    QTest::newRow("disabled from normal") << QIcon::Normal << QIcon::Disabled;
    QTest::newRow("selected from normal") << QIcon::Normal << QIcon::Selected;
    QTest::newRow("active from normal") << QIcon::Normal << QIcon::Active;
    QTest::newRow("disabled from active") << QIcon::Active << QIcon::Disabled;
    QTest::newRow("disabled from selected") << QIcon::Selected << QIcon::Disabled;
}

void ArtworkTest::coloursAnIconWithoutThePictureOfTheMode() {
    QFETCH(QIcon::Mode, present);
    QFETCH(QIcon::Mode, wanted);
    const QString path = u":/img/button2"_s;
    const QIcon icon = artworkIcon({{present, path}});
    QCOMPARE(icon.pixmap(QSize(112, 84), 1.0, wanted).toImage(),
             generated(wanted, artwork(path, 1.0)));
    // QIcon itself, holding the same picture, is the measure.
    QIcon plain;
    plain.addPixmap(artwork(path, 1.0), present);
    QCOMPARE(icon.pixmap(QSize(112, 84), 1.0, wanted).toImage(),
             plain.pixmap(QSize(112, 84), 1.0, wanted).toImage());
}

void ArtworkTest::shrinksAnIconToFit() {
    const QIcon icon = artworkIcon({{QIcon::Normal, u":/img/button1"_s}});
    QCOMPARE(icon.pixmap(QSize(56, 84), 1.0).size(), QSize(56, 42));
    QCOMPARE(icon.pixmap(QSize(300, 300), 1.0).size(), QSize(112, 84));
    const QPixmap between = icon.pixmap(QSize(112, 84), 1.5);
    QCOMPARE(between.size(), QSize(168, 126));
    QCOMPARE(between.devicePixelRatio(), 1.5);
}

void ArtworkTest::paintsAnIcon() {
    const QIcon icon = artworkIcon({{QIcon::Normal, u":/img/close_mac1"_s}});
    QImage image(30, 20, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    icon.paint(&painter, image.rect());
    painter.end();
    QCOMPARE(image, artwork(u":/img/close_mac1"_s, 1.0).toImage().convertedTo(image.format()));
}

void ArtworkTest::keepsAnEmptyIconEmpty() {
    QVERIFY(artworkIcon({}).pixmap(QSize(30, 20), 1.0, QIcon::Disabled).isNull());
}

QTEST_MAIN(ArtworkTest)
#include "ArtworkTest.moc"
