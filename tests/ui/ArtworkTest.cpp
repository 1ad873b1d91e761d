// SPDX-License-Identifier: MIT
#include "tests/support/TestSubject.h"
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

#include <array>

using namespace Qt::StringLiterals;

namespace {

// A red picture of 2 x 1 pixels, the second half transparent, written out by hand.
constexpr std::array<unsigned char, 16> RED_PICTURE{
    2,    0,    0,    0,     // width
    1,    0,    0,    0,     // height
    0x00, 0x00, 0xFF, 0xFF,  // blue, green, red, alpha
    0x00, 0x00, 0x80, 0x80,
};

void writeFile(const QString& path, const QByteArray& content) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

QByteArray redPicture() {
    return {reinterpret_cast<const char*>(RED_PICTURE.data()), RED_PICTURE.size()};
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
    void smoothsThePictureBetweenTheRatios();
    void readsPackedPixels();
    void refusesWhatIsCutOff();
    void carriesEveryPictureAsItIsDrawn_data();
    void carriesEveryPictureAsItIsDrawn();
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
    QTest::newRow("a little sharper") << 1.25 << 1.25;
    QTest::newRow("between") << 1.5 << 1.5;
    QTest::newRow("double") << 2.0 << 2.0;
    QTest::newRow("triple") << 3.0 << 3.0;
}

void ArtworkTest::choosesThePictureForTheSurface() {
    QFETCH(qreal, surface);
    QFETCH(qreal, picture);
    const QPixmap found = artwork(u":/img/button1"_s, surface);
    QCOMPARE(found.devicePixelRatio(), picture);
    QCOMPARE(found.size(), QSize(112, 84) * picture);
    QCOMPARE(found.deviceIndependentSize(), QSizeF(112, 84));
}

void ArtworkTest::smoothsThePictureBetweenTheRatios() {
    const QImage doubled = artwork(u":/img/button_camera"_s, 2.0).toImage();
    const QSize size = artwork(u":/img/button_camera"_s, 1.5).size();
    const QImage smooth = doubled.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QImage rough = doubled.scaled(size, Qt::IgnoreAspectRatio, Qt::FastTransformation);
    QVERIFY(smooth != rough);
    QImage found = artwork(u":/img/button_camera"_s, 1.5).toImage();
    found.setDevicePixelRatio(smooth.devicePixelRatio());
    QCOMPARE(found, smooth);
}

void ArtworkTest::readsPackedPixels() {
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"picture"_s);
    writeFile(path, redPicture());
    const QImage image = artwork(path, 1.0).toImage();
    QCOMPARE(image.size(), QSize(2, 1));
    QCOMPARE(image.pixelColor(0, 0), QColor(255, 0, 0));
    QCOMPARE(image.pixelColor(1, 0), QColor(255, 0, 0, 128));
}

void ArtworkTest::refusesWhatIsCutOff() {
    const QTemporaryDir directory;
    for (qsizetype size = 0; size < redPicture().size(); ++size) {
        const QString path = directory.filePath(QString::number(size));
        writeFile(path, redPicture().first(size));
        QVERIFY(artwork(path, 1.0).isNull());
    }
}

void ArtworkTest::carriesEveryPictureAsItIsDrawn_data() {
    QTest::addColumn<QString>("name");
    for (const QString& name : QDir(u":/img"_s).entryList()) {
        QTest::newRow(qPrintable(name)) << name;
    }
}

void ArtworkTest::carriesEveryPictureAsItIsDrawn() {
    QFETCH(QString, name);
    QImage rendered(QStringLiteral(RENDERED_ARTWORK "/%1.png").arg(name));
    QVERIFY(!rendered.isNull());
    rendered.setDevicePixelRatio(1.0);  // it takes the "@2x" in the name for more
    QCOMPARE(artwork(u":/img/"_s + name, 1.0).toImage(),
             rendered.convertToFormat(QImage::Format_ARGB32_Premultiplied));
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
    writeFile(path, redPicture());
    const QPixmap first = artwork(path, 1.0);
    QVERIFY(QFile::remove(path));
    const QPixmap second = artwork(path, 1.0);
    QVERIFY(!second.isNull());
    QCOMPARE(second.cacheKey(), first.cacheKey());
}

void ArtworkTest::makesDoWithoutADoubledPicture() {
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"picture"_s);
    writeFile(path, redPicture());
    const QPixmap found = artwork(path, 2.0);
    QCOMPARE(found.size(), QSize(2, 1));
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

const TestSubject registered = subjectWithWidgets<ArtworkTest>();
#include "ArtworkTest.moc"
