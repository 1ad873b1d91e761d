// SPDX-License-Identifier: MIT
#include "tests/support/Patience.h"
#include "tests/support/TestSubject.h"
#include "tests/ui/Mouse.h"
#include "tests/ui/Painting.h"
#include "ui/ApBadges.h"
#include "ui/Artwork.h"
#include "ui/ClButtonApInfo.h"
#include "ui/ClWidgetApInfo.h"

#include <QLabel>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array GROUPS{QPalette::Active, QPalette::Inactive, QPalette::Disabled};

QLabel* ssidOf(const QWidget& row) {
    for (QLabel* label : row.findChildren<QLabel*>(Qt::FindDirectChildrenOnly)) {
        if (qobject_cast<ClLinkCheck*>(label) == nullptr &&
            qobject_cast<ClWidgetRssi*>(label) == nullptr) {
            return label;
        }
    }
    qFatal("The row has no SSID.");
}

QList<QPoint> places(const QWidget& row) {
    return {row.findChild<ClLinkCheck*>()->pos(), ssidOf(row)->pos(),
            row.findChild<ClWidgetEncryption*>()->pos(), row.findChild<ClWidgetRssi*>()->pos()};
}

const QList<QPoint> BUTTON_PLACES{{30, 15}, {70, 18}, {284, 10}, {490, 8}};
const QList<QPoint> ROW_PLACES{{30, 17}, {70, 20}, {284, 12}, {490, 10}};

}  // namespace

/// An access point as a row of the list and as a button: look, parts and selection.
class ApInfoTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_window.reset(); }

    void hasItsSizeAndPlaces();
    void putsThePartsBackAtTheirPlaces();
    void isBoldInTheFontOfItsParent();
    void aRowIsFilled();
    void aButtonIsDrawnFromItsPicture();
    void textStaysDarkOnADarkDesktop();
    void handsItsValuesToTheParts();

    void aRowIsLighterUnderTheMouse();
    void aDoubleClickSelects_data();
    void aDoubleClickSelects();
    void otherClicksSelectNothing_data();
    void otherClicksSelectNothing();
    void aPressIsNotTakenForADragOfTheWindow();
    void aKeySelects_data();
    void aKeySelects();
    void aHeldKeySelectsOnce_data();
    void aHeldKeySelectsOnce();
    void showsThatItHasTheFocus();
    void mayGoWhileItIsSelected();
    void theButtonIsPressedByMouseAndKey();

private:
    std::unique_ptr<QWidget> m_window;
    ClWidgetApInfo* m_row = nullptr;
    ClButtonApInfo* m_button = nullptr;
};

void ApInfoTest::init() {
    m_window = std::make_unique<QWidget>();
    QFont font;
    font.setPixelSize(13);
    m_window->setFont(font);
    m_button = new ClButtonApInfo(u"Harbour"_s, 4, 90, m_window.get());
    m_row = new ClWidgetApInfo(u"Harbour"_s, 4, 90);
    m_row->setParent(m_window.get());
    m_row->move(0, 100);
    m_window->resize(600, 200);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void ApInfoTest::hasItsSizeAndPlaces() {
    for (const auto& [row, size] : {std::pair<QWidget*, QSize>(m_button, {568, 44}),
                                    std::pair<QWidget*, QSize>(m_row, {550, 49})}) {
        QCOMPARE(row->minimumSize(), size);
        QCOMPARE(row->maximumSize(), size);
    }
    QCOMPARE(places(*m_button), BUTTON_PLACES);
    QCOMPARE(places(*m_row), ROW_PLACES);
}

void ApInfoTest::putsThePartsBackAtTheirPlaces() {
    for (QWidget* row : {static_cast<QWidget*>(m_button), static_cast<QWidget*>(m_row)}) {
        for (QWidget* part : row->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
            part->move(1, 1);
        }
    }
    m_button->adjustPartsPos();
    m_row->adjustPartsPos();
    QCOMPARE(places(*m_button), BUTTON_PLACES);
    QCOMPARE(places(*m_row), ROW_PLACES);
}

void ApInfoTest::isBoldInTheFontOfItsParent() {
    QFont font;
    font.setPixelSize(17);
    m_window->setFont(font);
    const ClButtonApInfo button(u"Harbour"_s, 4, 90, m_window.get());
    for (const QWidget* widget :
         {static_cast<const QWidget*>(&button), static_cast<const QWidget*>(ssidOf(button)),
          static_cast<const QWidget*>(
              button.findChild<ClWidgetEncryption*>()->findChild<QLabel*>())}) {
        QCOMPARE(widget->font().weight(), QFont::Bold);
        QCOMPARE(widget->font().pixelSize(), 17);
    }
    QCOMPARE(m_row->font().weight(), QFont::Bold);
    QCOMPARE(ssidOf(*m_row)->font().weight(), QFont::Bold);
}

void ApInfoTest::aRowIsFilled() {
    QVERIFY(m_row->autoFillBackground());
    QVERIFY(!m_button->autoFillBackground());
    for (const auto group : GROUPS) {
        QCOMPARE(m_row->palette().color(group, QPalette::Window), QColor(185, 193, 202));
        QCOMPARE(m_button->palette().color(group, QPalette::Window), QColor(185, 193, 202));
    }
    QCOMPARE(m_row->grab().toImage().pixelColor(5, 5), QColor(185, 193, 202));
}

void ApInfoTest::aButtonIsDrawnFromItsPicture() {
    QCOMPARE(painted(*m_button), blankWith(*m_button, artwork(u":/img/ap_button"_s, 1.0)));
}

void ApInfoTest::textStaysDarkOnADarkDesktop() {
    const QPalette light = QApplication::palette();
    QPalette dark(QColor(40, 40, 40));
    dark.setColor(QPalette::WindowText, Qt::white);
    dark.setColor(QPalette::ButtonText, Qt::white);
    QApplication::setPalette(dark);
    const ClWidgetApInfo later(u"Harbour"_s, 4, 90);
    for (const QWidget* row :
         {static_cast<const QWidget*>(m_button), static_cast<const QWidget*>(m_row),
          static_cast<const QWidget*>(&later)}) {
        for (const auto group : GROUPS) {
            const QLabel* ssid = ssidOf(*row);
            QCOMPARE(ssid->palette().color(group, ssid->foregroundRole()),
                     QColor(0x2B, 0x30, 0x36));
        }
    }
    QCOMPARE(m_row->grab().toImage().pixelColor(5, 5), QColor(185, 193, 202));
    QApplication::setPalette(light);
}

void ApInfoTest::handsItsValuesToTheParts() {
    const auto check = [](auto& row) {
        row.setSsid(u"Lighthouse on the outer rocks"_s);
        row.setType(2);
        row.setRssi(10);
        row.setLinking(true);
        QCOMPARE(ssidOf(row)->text(), u"Lighthouse on the outer rocks"_s);
        QCOMPARE(row.template findChild<ClWidgetEncryption*>()->text(), u"TKIP"_s);
        QCOMPARE(
            painted(*row.template findChild<ClWidgetRssi*>()),
            blankWith(*row.template findChild<ClWidgetRssi*>(), artwork(u":/img/ap_rssi1"_s, 1.0)));
        QCOMPARE(row.template findChild<ClLinkCheck*>()->size(), QSize(24, 18));
        row.setSsid(u"x"_s);
        QCOMPARE(ssidOf(row)->size(), ssidOf(row)->sizeHint());
        row.setLinking(false);
        QVERIFY(row.template findChild<ClLinkCheck*>()->pixmap().isNull());
    };
    check(*m_button);
    check(*m_row);
}

void ApInfoTest::aRowIsLighterUnderTheMouse() {
    const auto background = [this] { return m_row->grab().toImage().pixelColor(5, 5); };
    moveMouse(*m_row);
    TRY_COMPARE(background(), QColor(206, 212, 218));
    for (const auto group : GROUPS) {
        QCOMPARE(m_row->palette().color(group, QPalette::Window), QColor(206, 212, 218));
    }
    moveMouse(*m_window, {300, 180});
    TRY_COMPARE(background(), QColor(185, 193, 202));
}

void ApInfoTest::aDoubleClickSelects_data() {
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("isEncrypted");
    QTest::newRow("open") << 0 << false;
    QTest::newRow("WEP") << 1 << true;
    QTest::newRow("TKIP") << 2 << true;
    QTest::newRow("AES") << 4 << true;
}

void ApInfoTest::aDoubleClickSelects() {
    QFETCH(int, type);
    QFETCH(bool, isEncrypted);
    m_row->setType(type);
    const QSignalSpy selected(m_row, &ClWidgetApInfo::sigSelect);
    QTest::mouseDClick(m_row, Qt::LeftButton);
    QCOMPARE(selected, (QList<QVariantList>{{u"Harbour"_s, isEncrypted}}));
}

void ApInfoTest::otherClicksSelectNothing_data() {
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<bool>("isDouble");
    QTest::newRow("left, single") << Qt::LeftButton << false;
    QTest::newRow("right, single") << Qt::RightButton << false;
    QTest::newRow("right, double") << Qt::RightButton << true;
    QTest::newRow("middle, double") << Qt::MiddleButton << true;
}

void ApInfoTest::otherClicksSelectNothing() {
    QFETCH(Qt::MouseButton, button);
    QFETCH(bool, isDouble);
    const QSignalSpy selected(m_row, &ClWidgetApInfo::sigSelect);
    if (isDouble) {
        QTest::mouseDClick(m_row, button);
    } else {
        QTest::mouseClick(m_row, button);
    }
    QVERIFY(selected.isEmpty());
}

void ApInfoTest::aPressIsNotTakenForADragOfTheWindow() {
    /// Notes the presses that no child has accepted.
    class Window : public QWidget {
    public:
        void mousePressEvent(QMouseEvent* event) override { presses.append(event->pos()); }
        QList<QPoint> presses;
    };
    Window window;
    window.resize(600, 200);
    m_row->setParent(&window);
    m_row->move(0, 100);
    m_row->show();
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    clickMouse(*m_row, {90, 25});
    clickMouse(window, {10, 10});
    QCOMPARE(window.presses, QList<QPoint>{QPoint(10, 10)});
    m_row->setParent(m_window.get());
}

void ApInfoTest::aKeySelects_data() {
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<qsizetype>("count");
    QTest::newRow("Return") << Qt::Key_Return << qsizetype(1);
    QTest::newRow("Enter") << Qt::Key_Enter << qsizetype(1);
    QTest::newRow("space bar") << Qt::Key_Space << qsizetype(1);
    QTest::newRow("letter") << Qt::Key_A << qsizetype(0);
}

void ApInfoTest::aKeySelects() {
    QFETCH(Qt::Key, key);
    const QSignalSpy selected(m_row, &ClWidgetApInfo::sigSelect);
    QTest::keyClick(m_row, key);
    QTEST(selected.size(), "count");
}

void ApInfoTest::aHeldKeySelectsOnce_data() {
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Return") << Qt::Key_Return;
    QTest::newRow("space bar") << Qt::Key_Space;
}

void ApInfoTest::aHeldKeySelectsOnce() {
    QFETCH(Qt::Key, key);
    const QSignalSpy selected(m_row, &ClWidgetApInfo::sigSelect);
    for (const bool isRepeat : {false, true, true}) {
        QKeyEvent press(QEvent::KeyPress, key, {}, {}, isRepeat);
        QApplication::sendEvent(m_row, &press);
    }
    QCOMPARE(selected.size(), 1);
}

void ApInfoTest::showsThatItHasTheFocus() {
    clickMouse(*m_button);
    QVERIFY(m_button->hasFocus());
    const QImage button = m_button->grab().toImage();
    const QImage row = m_row->grab().toImage();

    QTest::keyClick(m_button, Qt::Key_Tab);
    QVERIFY(m_row->hasFocus());
    QVERIFY(m_row->grab().toImage() != row);
    QCOMPARE(m_button->grab().toImage(), button);

    QTest::keyClick(m_row, Qt::Key_Backtab);
    QVERIFY(m_button->hasFocus());
    QVERIFY(m_button->grab().toImage() != button);
    QCOMPARE(m_row->grab().toImage(), row);
}

void ApInfoTest::mayGoWhileItIsSelected() {
    connect(m_row, &ClWidgetApInfo::sigSelect, this, [this] { delete m_row; });
    const QPointer<ClWidgetApInfo> row = m_row;
    QTest::mouseDClick(m_window->windowHandle(), Qt::LeftButton, {}, inWindow(*m_row, {100, 20}));
    QVERIFY(row.isNull());

    m_row = new ClWidgetApInfo(u"Harbour"_s, 4, 90);
    m_row->setParent(m_window.get());
    m_row->show();
    connect(m_row, &ClWidgetApInfo::sigSelect, this, [this] { delete m_row; });
    m_row->setFocus();
    const QPointer<ClWidgetApInfo> other = m_row;
    QTest::keyClick(m_window->windowHandle(), Qt::Key_Return);
    QVERIFY(other.isNull());
}

void ApInfoTest::theButtonIsPressedByMouseAndKey() {
    const QSignalSpy clicked(m_button, &QPushButton::clicked);
    // On a part that lies on it.
    clickMouse(*m_button, {90, 25});
    QCOMPARE(clicked.size(), 1);
    m_button->setFocus();
    QTest::keyClick(m_button, Qt::Key_Space);
    QCOMPARE(clicked.size(), 2);
}

const TestSubject registered = subjectWithWidgets<ApInfoTest>();
#include "ApInfoTest.moc"
