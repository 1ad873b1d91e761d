// SPDX-License-Identifier: MIT
#include "pages/state/ClLabelWifiState.h"
#include "pages/state/ClWidgetCameraState.h"
#include "tests/pages/CameraMessages.h"
#include "tests/support/TestSubject.h"
#include "ui/ClLabelSepalator.h"
#include "ui/ClWidgetProgress.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

/// Where everything stands on the camera state page, and in which type. The page shows a linked
/// camera.
class CameraStateLayoutTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_page.reset(); }

    void aCaptionStandsAtItsPlace_data();
    void aCaptionStandsAtItsPlace();
    void aCaptionEndsAtItsEdge_data();
    void aCaptionEndsAtItsEdge();
    void aValueStandsBoldAtItsPlace_data();
    void aValueStandsBoldAtItsPlace();
    void theSensitivityIsGreen();
    void theControlsStandAtTheirPlaces();
    void theButtonsEndAtTheRight();
    void nothingSticksOutOfThePage();

private:
    [[nodiscard]] QLabel* label(const QString& text) const;

    std::unique_ptr<ClWidgetCameraState> m_page;
    QWidget* m_panel = nullptr;  ///< of the link's details
};

void CameraStateLayoutTest::initTestCase() {
    // The program's own text size.
    QFont font;
    font.setPixelSize(13);
    QApplication::setFont(font);

    m_page = std::make_unique<ClWidgetCameraState>(nullptr);
    m_page->resize(600, 505);
    m_page->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_page.get()));
    m_page->slotReceiveCommand(batteryAnswer(85));
    m_page->slotReceiveCommand(wifiAnswer(2, 72, 6));
    m_page->slotReceiveCommand(sdAnswer(7744512, 1548902, 3));
    m_panel = label(u"6ch"_s)->parentWidget();
}

QLabel* CameraStateLayoutTest::label(const QString& text) const {
    for (QLabel* label : m_page->findChildren<QLabel*>()) {
        if (label->text() == text) {
            return label;
        }
    }
    qFatal("There is no label \"%s\".", qPrintable(text));
}

void CameraStateLayoutTest::aCaptionStandsAtItsPlace_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QPoint>("place");
    QTest::newRow("battery") << u"Battery charge"_s << QPoint(35, 27);
    QTest::newRow("Wi-Fi") << u"Wi-Fi state"_s << QPoint(35, 94);
    QTest::newRow("SD card") << u"SD card"_s << QPoint(35, 218);
}

void CameraStateLayoutTest::aCaptionStandsAtItsPlace() {
    QFETCH(QString, text);
    QTEST(label(text)->pos(), "place");
    QVERIFY(label(text)->isVisible());
}

void CameraStateLayoutTest::aCaptionEndsAtItsEdge_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isInPanel");
    QTest::addColumn<int>("right");
    QTest::addColumn<int>("top");
    QTest::newRow("sensitivity") << u"Receiver sensitivity"_s << true << 227 << 0;
    QTest::newRow("channel") << u"Channel"_s << true << 227 << 30;
    QTest::newRow("total") << u"Total capacity"_s << false << 228 << 243;
    QTest::newRow("free") << u"Free capacity"_s << false << 228 << 274;
    QTest::newRow("file system") << u"Category"_s << false << 228 << 303;
}

void CameraStateLayoutTest::aCaptionEndsAtItsEdge() {
    QFETCH(QString, text);
    QFETCH(bool, isInPanel);
    const QLabel* caption = label(text);
    QTEST(caption->x() + caption->sizeHint().width(), "right");
    QTEST(caption->y(), "top");
    QCOMPARE(caption->parentWidget(), isInPanel ? m_panel : m_page.get());
    QVERIFY(caption->isVisible());
    QCOMPARE(caption->size(), caption->sizeHint());
}

void CameraStateLayoutTest::aValueStandsBoldAtItsPlace_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isInPanel");
    QTest::addColumn<QPoint>("place");
    QTest::newRow("sensitivity") << u"72dBm"_s << true << QPoint(273, 0);
    QTest::newRow("channel") << u"6ch"_s << true << QPoint(273, 30);
    QTest::newRow("total") << u"7930380288 Byte"_s << false << QPoint(275, 243);
    QTest::newRow("free") << u"6344304640 Byte (19% used)"_s << false << QPoint(275, 274);
    QTest::newRow("file system") << u"FAT32"_s << false << QPoint(275, 303);
}

void CameraStateLayoutTest::aValueStandsBoldAtItsPlace() {
    QFETCH(QString, text);
    QFETCH(bool, isInPanel);
    const QLabel* value = label(text);
    QTEST(value->pos(), "place");
    QCOMPARE(value->parentWidget(), isInPanel ? m_panel : m_page.get());
    QCOMPARE(value->font().weight(), QFont::Bold);
    QCOMPARE(value->font().pixelSize(), 13);
    QVERIFY(value->isVisible());
    // The label has grown with its text, so that nothing is cut off.
    QCOMPARE(value->size(), value->sizeHint());
}

void CameraStateLayoutTest::theSensitivityIsGreen() {
    QCOMPARE(label(u"72dBm"_s)->palette().color(QPalette::WindowText), QColor(26, 97, 9));
    QCOMPARE(label(u"6ch"_s)->palette().color(QPalette::WindowText),
             m_page->palette().color(QPalette::WindowText));
}

void CameraStateLayoutTest::theControlsStandAtTheirPlaces() {
    QCOMPARE(m_page->findChild<ClWidgetProgress*>()->pos(), QPoint(187, 25));
    QCOMPARE(m_page->findChild<ClLabelWifiState*>()->pos(), QPoint(196, 89));
    QCOMPARE(m_page->findChild<ClLabelSepalator*>()->pos(), QPoint(0, 190));
    QCOMPARE(m_panel->parentWidget(), m_page.get());
    QCOMPARE(m_panel->geometry(), QRect(0, 131, 600, 50));
    QCOMPARE(m_panel->minimumSize(), QSize(600, 50));
    QCOMPARE(m_panel->maximumSize(), QSize(600, 50));
}

void CameraStateLayoutTest::theButtonsEndAtTheRight() {
    const auto buttons = m_page->findChildren<QPushButton*>();
    QStringList texts;
    for (const QPushButton* button : buttons) {
        texts.append(button->text());
        QCOMPARE(button->minimumSize(), QSize(133, 30));
    }
    QCOMPARE(texts, (QStringList{u"SD card format"_s, u"Initialize settings"_s, u"Reset NuBo"_s}));

    const QWidget* row = buttons.first()->parentWidget();
    QCOMPARE(row->x() + row->sizeHint().width(), 586);
    QCOMPARE(row->y(), 419);
    QCOMPARE(row->parentWidget(), m_page.get());
    for (int index = 1; index < 3; ++index) {
        QCOMPARE(buttons[index]->x() - buttons[index - 1]->geometry().right(), 11);
        QCOMPARE(buttons[index]->y(), buttons[0]->y());
    }
    QCOMPARE(row->layout()->contentsMargins(), QMargins());
    QCOMPARE(row->layout()->spacing(), 11);
    const auto* line = qobject_cast<QHBoxLayout*>(row->layout()->itemAt(0)->layout());
    QVERIFY(line != nullptr);
    QCOMPARE(line->contentsMargins(), QMargins());
    QCOMPARE(line->spacing(), 10);
}

void CameraStateLayoutTest::nothingSticksOutOfThePage() {
    for (const QWidget* widget : m_page->findChildren<QWidget*>()) {
        const QRect place(widget->mapTo(m_page.get(), QPoint()), widget->size());
        QVERIFY2(m_page->rect().contains(place), widget->metaObject()->className());
    }
}

const TestSubject registered = subjectWithWidgets<CameraStateLayoutTest>();
#include "CameraStateLayoutTest.moc"
