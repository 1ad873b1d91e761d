// SPDX-License-Identifier: MIT
#include "pages/state/ClLabelWifiState.h"
#include "tests/support/Patience.h"
#include "tests/support/TestSubject.h"
#include "ui/Artwork.h"

#include <QCoreApplication>
#include <QEvent>
#include <QImage>
#include <QPainter>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr auto NOT_LINKED = ":/img/wifi_notlink";
constexpr auto LINKED = ":/img/wifi_link";

QImage emptyCanvas() {
    QImage canvas(112, 24, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    return canvas;
}

QImage painted(QWidget& label, const QRegion& region = {}) {
    QImage canvas = emptyCanvas();
    QPainter painter(&canvas);
    label.render(&painter, region.boundingRect().topLeft(), region, QWidget::RenderFlags());
    return canvas;
}

/// The picture, or the part of it in @p area.
QImage picture(const char* path, const QRect& area = {0, 0, 112, 24}) {
    QImage canvas = emptyCanvas();
    QPainter(&canvas).drawImage(area, artwork(QString::fromLatin1(path), 1).toImage(), area);
    return canvas;
}

bool hasWhite(const QImage& image) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == QColor(Qt::white)) {
                return true;
            }
        }
    }
    return false;
}

/// Counts how often what it watches is painted.
class PaintCounter : public QObject {
public:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    int count = 0;
};

}  // namespace

/// The badge that shows the link state.
class WifiStateLabelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_badge = std::make_unique<ClLabelWifiState>(nullptr); }
    void cleanup() { m_badge.reset(); }

    void theBadgeStartsNotLinked();
    void theTextIsBoldAndWhiteInTheMiddle();
    void aStateHasTextAndPicture_data();
    void aStateHasTextAndPicture();
    void theSameStateChangesNothing();
    void theTextStandsOnThePicture();
    void onlyTheRegionAskedForIsPainted();
    void aChangeOfPictureAloneRepaints();

private:
    std::unique_ptr<ClLabelWifiState> m_badge;
};

void WifiStateLabelTest::theBadgeStartsNotLinked() {
    QCOMPARE(m_badge->text(), u"Not link"_s);
    QCOMPARE(m_badge->minimumSize(), QSize(112, 24));
    QCOMPARE(m_badge->maximumSize(), QSize(112, 24));
    m_badge->setText(QString());
    QCOMPARE(painted(*m_badge), picture(NOT_LINKED));
}

void WifiStateLabelTest::theTextIsBoldAndWhiteInTheMiddle() {
    QCOMPARE(m_badge->alignment(), Qt::AlignCenter);
    QCOMPARE(m_badge->font().weight(), QFont::Bold);
    QCOMPARE(m_badge->palette().color(QPalette::Active, QPalette::WindowText), QColor(Qt::white));
    QCOMPARE(m_badge->palette().color(QPalette::Inactive, QPalette::WindowText), QColor(Qt::white));
}

void WifiStateLabelTest::aStateHasTextAndPicture_data() {
    QTest::addColumn<QList<unsigned int>>("states");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("path");
    const auto row = [](const char* name, const QList<unsigned int>& states, const QString& text,
                        const char* path) {
        QTest::newRow(name) << states << text << QByteArray(path);
    };
    row("1", {1}, u"Not link"_s, NOT_LINKED);
    row("2", {2}, u"Link"_s, LINKED);
    row("3", {3}, u"Adhoc Link"_s, LINKED);
    row("2, then 1", {2, 1}, u"Not link"_s, NOT_LINKED);
    row("3, then 2", {3, 2}, u"Link"_s, LINKED);
    row("unknown", {0}, u"Not link"_s, LINKED);
    row("2, then unknown", {2, 4}, u"Link"_s, LINKED);
    row("3, then unknown", {3, 0xFFFFFFFF}, u"Adhoc Link"_s, LINKED);
    row("unknown, then 1", {3, 9, 1}, u"Not link"_s, NOT_LINKED);
}

void WifiStateLabelTest::aStateHasTextAndPicture() {
    QFETCH(QList<unsigned int>, states);
    QFETCH(QByteArray, path);
    for (const unsigned int state : std::as_const(states)) {
        m_badge->setState(state);
    }
    QTEST(m_badge->text(), "text");
    m_badge->setText(QString());
    QCOMPARE(painted(*m_badge), picture(path.constData()));
}

void WifiStateLabelTest::theSameStateChangesNothing() {
    m_badge->setText(u"as it was"_s);
    m_badge->setState(1);
    QCOMPARE(m_badge->text(), u"as it was"_s);
    m_badge->setState(2);
    m_badge->setText(u"as it was"_s);
    m_badge->setState(2);
    QCOMPARE(m_badge->text(), u"as it was"_s);
}

void WifiStateLabelTest::theTextStandsOnThePicture() {
    m_badge->setState(2);
    const QImage withText = painted(*m_badge);
    QVERIFY(hasWhite(withText));
    QVERIFY(!hasWhite(picture(LINKED)));
    // Beside the text the picture is untouched.
    const QRect margin(0, 0, 20, 24);
    QCOMPARE(withText.copy(margin), picture(LINKED).copy(margin));
}

void WifiStateLabelTest::onlyTheRegionAskedForIsPainted() {
    m_badge->setText(QString());
    const QRect area(30, 5, 40, 10);
    QCOMPARE(painted(*m_badge, area), picture(NOT_LINKED, area));
}

void WifiStateLabelTest::aChangeOfPictureAloneRepaints() {
    m_badge->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_badge.get()));
    QCoreApplication::processEvents();
    PaintCounter counter;
    m_badge->installEventFilter(&counter);
    m_badge->setState(9);
    TRY_COMPARE(counter.count, 1);
}

const TestSubject registered = subjectWithWidgets<WifiStateLabelTest>();
#include "WifiStateLabelTest.moc"
