// SPDX-License-Identifier: MIT
#include "tests/support/Contrast.h"

#include "app/Startup.h"
#include "pages/state/ClLabelWifiState.h"
#include "tests/app/BusBench.h"
#include "tests/ui/Mouse.h"
#include "tour/ClTour.h"
#include "ui/ApBadges.h"
#include "ui/ApInfoParts.h"
#include "ui/ClButtonApInfo.h"
#include "ui/ClCaptionBar.h"
#include "ui/ClRollOverToolBtn.h"
#include "ui/ClWidgetApInfo.h"

#include <QEnterEvent>
#include <QPainter>
#include <QStyleFactory>

using namespace nubo::simulator;
using namespace Qt::StringLiterals;

namespace {

constexpr QRect CLOSE_DISC{9, 4, 12, 12};
constexpr QRect CLOSE_GLYPH{12, 7, 6, 6};
constexpr QPoint BESIDE_CLOSE_DISC{6, 10};
constexpr std::array SIGNAL_BARS{QRect(6, 16, 6, 8), QRect(15, 10, 6, 14), QRect(24, 4, 6, 20)};

QRect placeIn(const QWidget& window, const QWidget& part) {
    return {part.mapTo(&window, QPoint()), part.size()};
}

/// At 200 %: strokes as thin as those of the text reach their colour only in small pixels.
QImage pictureOf(QWidget& window) {
    constexpr qreal SCALE = 2;
    QImage picture((QSizeF(window.size()) * SCALE).toSize(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(SCALE);
    picture.fill(Qt::white);
    window.render(&picture);
    return picture;
}

/// How much of @p picture differs from @p ground, each pixel by how much.
qreal weight(const QImage& picture, const QColor& ground) {
    qreal sum = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            sum += contrast(picture.pixelColor(x, y), ground) - 1;
        }
    }
    return sum / (picture.width() * picture.height());
}

QString complain(const QString& page, const stShownText& shown, qreal found) {
    return u"%1: %2 of '%3'"_s.arg(page, QString::number(found, 'f', 2), shown.text);
}

}  // namespace

/// Whether all that the tool shows can be told from what is behind it, measured from its pixels.
class ContrastTest : public QObject {
    Q_OBJECT

public:
    explicit ContrastTest(VirtualUsbBus& bus) : m_bus(bus) {}

private Q_SLOTS:
    static void initTestCase();
    static void cleanup() { QApplication::setPalette(QPalette()); }
    void everyTextCanBeRead_data();
    void everyTextCanBeRead();
    static void theWifiBadgeCanBeRead_data();
    static void theWifiBadgeCanBeRead();
    static void thePartsOfARowCanBeSeen_data();
    static void thePartsOfARowCanBeSeen();
    static void theFocusOfARowCanBeSeen();
    static void theCloseButtonCanBeSeen();

private:
    VirtualUsbBus& m_bus;
};

void ContrastTest::initTestCase() {
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    installFonts();
}

void ContrastTest::everyTextCanBeRead_data() {
    QTest::addColumn<QColor>("desktop");
    QTest::newRow("light desktop") << QColor(0xEF, 0xEF, 0xEF);
    QTest::newRow("dark desktop") << QColor(0x31, 0x36, 0x3B);
}

void ContrastTest::everyTextCanBeRead() {
    QFETCH(QColor, desktop);
    QApplication::setPalette(QPalette(desktop));
    const auto camera = std::make_shared<VirtualCamera>();
    const DeviceId id = m_bus.plug(camera);
    QStringList complaints;
    int texts = 0;
    {
        ClMainWidget window;
        window.show();
        ClTour tour(window, [&](QWidget& shown, const QString& name) {
            const QImage picture = pictureOf(shown);
            for (const stShownText& text : shownTexts(shown)) {
                const QImage part = partOf(picture, text.place);
                const qreal found = strongestContrast(part, groundOf(part));
                ++texts;
                if (found < READABLE) {
                    complaints << complain(name, text, found);
                }
            }
            return true;
        });
        QVERIFY(tour.run());
    }
    m_bus.settle();
    m_bus.unplug(id);
    QVERIFY2(complaints.isEmpty(), qPrintable(u'\n' + complaints.join(u'\n')));
    QVERIFY(texts > 200);
}

void ContrastTest::theWifiBadgeCanBeRead_data() {
    QTest::addColumn<unsigned int>("state");
    QTest::newRow("not linked") << 1U;
    QTest::newRow("linked") << 2U;
    QTest::newRow("ad-hoc") << 3U;
}

void ContrastTest::theWifiBadgeCanBeRead() {
    QFETCH(unsigned int, state);
    ClLabelWifiState badge(nullptr);
    badge.setState(state);
    badge.show();
    const QImage picture = partOf(pictureOf(badge), badge.rect().adjusted(12, 0, -12, 0));
    QVERIFY(strongestContrast(picture, groundOf(picture)) >= READABLE);
}

void ContrastTest::thePartsOfARowCanBeSeen_data() {
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("level");
    for (int level = 1; level <= 3; ++level) {
        for (const QString& kind : {u"row"_s, u"hovered row"_s, u"button"_s}) {
            QTest::addRow("%s, signal %d", qPrintable(kind), level) << kind << level;
        }
    }
}

void ContrastTest::thePartsOfARowCanBeSeen() {
    QFETCH(QString, kind);
    QFETCH(int, level);
    constexpr std::array RSSI{20, 50, 90};
    QWidget window;
    QWidget* row = nullptr;
    if (kind == u"button"_s) {
        auto* button =
            new ClButtonApInfo(u"S"_s, 4, RSSI.at(static_cast<std::size_t>(level - 1)), &window);
        button->setLinking(true);
        row = button;
    } else {
        auto* listed = new ClWidgetApInfo(u"S"_s, 4, RSSI.at(static_cast<std::size_t>(level - 1)));
        listed->setLinking(true);
        listed->setParent(&window);
        row = listed;
    }
    window.show();
    if (kind == u"hovered row"_s) {
        QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
        QCoreApplication::sendEvent(row, &enter);
    }
    const QImage picture = pictureOf(window);

    const auto* check = row->findChild<ClLinkCheck*>();
    const QImage mark = partOf(picture, placeIn(window, *check));
    QVERIFY(strongestContrast(mark, groundOf(mark)) >= VISIBLE);

    const QPoint signal = placeIn(window, *row->findChild<ClWidgetRssi*>()).topLeft();
    const QColor ground = groundOf(mark);
    QList<qreal> weights;
    for (const QRect& bar : SIGNAL_BARS) {
        const QImage part = partOf(picture, bar.translated(signal));
        QVERIFY(strongestContrast(part, ground) >= VISIBLE);
        weights.append(weight(part, ground));
    }
    // What is lit stands out more than what is not.
    for (int lit = 0; lit < level; ++lit) {
        for (int unlit = level; unlit < weights.size(); ++unlit) {
            QVERIFY(weights[lit] > 1.5 * weights[unlit]);
        }
    }
}

void ContrastTest::theFocusOfARowCanBeSeen() {
    QImage row(550, 49, QImage::Format_RGB32);
    row.fill(AP_ROW_COLOUR);
    {
        QPainter painter(&row);
        drawApFocus(painter, row.rect(), 0);
    }
    QVERIFY(strongestContrast(row, AP_ROW_COLOUR) >= VISIBLE);
}

void ContrastTest::theCloseButtonCanBeSeen() {
    ClMainWidget window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const auto verify = [&window] {
        const QImage picture = pictureOf(window);
        const QColor caption = partOf(picture, {BESIDE_CLOSE_DISC, QSize(1, 1)}).pixelColor(0, 0);
        const QColor disc = groundOf(partOf(picture, CLOSE_DISC));
        QVERIFY(contrast(disc, caption) >= VISIBLE);
        QVERIFY(strongestContrast(partOf(picture, CLOSE_GLYPH), disc) >= VISIBLE);
    };
    auto* close = window.findChild<ClCaptionBar*>()->findChild<ClRollOverToolBtn*>();
    moveMouse(window);
    verify();
    moveMouse(*close, CLOSE_DISC.center());
    verify();
    pressMouse(*close, CLOSE_DISC.center());
    verify();
    // Beside the button nothing is closed.
    releaseMouse(*close, {100, 15});
}

const TestSubject registered = subjectOnBus<ContrastTest>();

#include "ContrastTest.moc"
