// SPDX-License-Identifier: MIT
#include "pages/basic/ClWidgetBasicSetting.h"
#include "protocol/CommandIdentifiers.h"
#include "tests/support/TestSubject.h"
#include "ui/ClLabelSepalator.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalSpy>
#include <QTest>

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

const QStringList BUTTONS{u"--"_s,
                          u"Setting time zone"_s,
                          u"Setting time"_s,
                          u"Setting auto Wi-Fi off"_s,
                          u"Setting Wi-Fi country"_s,
                          u"Setting auto power off"_s,
                          u"Setting LED"_s,
                          u"Setting GPS"_s,
                          u"Setting user authorization"_s,
                          u"Setting interval"_s,
                          u"Image quarity"_s};

}  // namespace

/// Where everything stands on the basic settings page, and how keys and screen readers reach it.
class BasicSettingLayoutTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_page.reset(); }

    void thePartsStandInOrder();
    void theMarginsAreFixed();
    void theCaptionsAreIndented();
    void theButtonsAreCentred();
    void nothingSticksOutOfThePageOrOverlaps();
    void aFontWithHighLinesLeavesTheLastButtonInView();
    void thePageOfTodayNeedsNoScrolling();
    void aRowMoreIsReachedByScrolling();
    void theTabKeyGoesDownThePage();
    void aKeyPressesTheButton_data();
    void aKeyPressesTheButton();
    void aScreenReaderNamesTheButtons();

private:
    [[nodiscard]] QList<QPushButton*> buttons() const {
        return m_page->findChildren<QPushButton*>();
    }

    std::unique_ptr<ClWidgetBasicSetting> m_page;
};

void BasicSettingLayoutTest::initTestCase() {
    // The program's own text size.
    QFont font;
    font.setPixelSize(13);
    QApplication::setFont(font);

    m_page = std::make_unique<ClWidgetBasicSetting>(nullptr);
    m_page->setFixedSize(600, 505);
    m_page->show();
    QVERIFY(QTest::qWaitForWindowActive(m_page.get()));
}

void BasicSettingLayoutTest::thePartsStandInOrder() {
    QMap<int, QString> parts;  // by their place
    for (const QPushButton* button : buttons()) {
        parts.insert(button->y(), button->text());
    }
    for (const QLabel* label : m_page->findChildren<QLabel*>()) {
        const bool isLine = qobject_cast<const ClLabelSepalator*>(label) != nullptr;
        parts.insert(label->y(), isLine ? u"line"_s : label->text());
    }
    QStringList expected{u"Setting camera name"_s,
                         u"--"_s,
                         u"line"_s,
                         u"Time setting"_s,
                         BUTTONS[1],
                         BUTTONS[2],
                         u"line"_s,
                         u"Wi-Fi setting"_s,
                         BUTTONS[3],
                         BUTTONS[4],
                         u"line"_s};
    QCOMPARE(parts.values(), expected + BUTTONS.sliced(5));
}

void BasicSettingLayoutTest::theMarginsAreFixed() {
    QCOMPARE(m_page->layout()->contentsMargins(), QMargins(0, 19, 0, 0));
    QCOMPARE(m_page->layout()->spacing(), 6);
    int captions = 0;
    for (const QHBoxLayout* line : m_page->findChildren<QHBoxLayout*>()) {
        if (qobject_cast<QLabel*>(line->itemAt(1)->widget()) != nullptr) {
            ++captions;
            QCOMPARE(line->contentsMargins(), QMargins());
            QCOMPARE(line->spacing(), 0);
        }
    }
    QCOMPARE(captions, 3);
}

void BasicSettingLayoutTest::theCaptionsAreIndented() {
    for (const QLabel* label : m_page->findChildren<QLabel*>()) {
        if (qobject_cast<const ClLabelSepalator*>(label) == nullptr) {
            QCOMPARE(label->x(), 37);
            QCOMPARE(label->width(), label->sizeHint().width());
            QVERIFY(label->height() >= label->fontInfo().pixelSize() + 2);
        } else {
            QCOMPARE(label->x(), 0);
            QCOMPARE(label->size(), QSize(600, 2));
        }
    }
}

void BasicSettingLayoutTest::theButtonsAreCentred() {
    QCOMPARE(buttons().size(), BUTTONS.size());
    for (const QPushButton* button : buttons()) {
        QCOMPARE(button->minimumSize(), QSize(309, 30));
        QCOMPARE(button->size(), QSize(309, 30));
        QVERIFY(qAbs(button->x() + button->geometry().right() - 599) <= 1);
    }
}

void BasicSettingLayoutTest::nothingSticksOutOfThePageOrOverlaps() {
    QList<QRect> places;
    for (const QWidget* widget : m_page->findChildren<QWidget*>()) {
        QVERIFY(widget->isVisible());
        QVERIFY2(m_page->rect().contains(widget->geometry()), widget->metaObject()->className());
        for (const QRect& place : std::as_const(places)) {
            QVERIFY(!place.intersects(widget->geometry()));
        }
        places.append(widget->geometry());
    }
}

void BasicSettingLayoutTest::aFontWithHighLinesLeavesTheLastButtonInView() {
    // As high as the lines of a Japanese font of the program's text size.
    QFont font;
    font.setPixelSize(16);
    ClWidgetBasicSetting page(nullptr);
    page.setFont(font);
    page.setFixedSize(600, 505);
    page.show();
    QVERIFY(page.findChild<QLabel*>()->sizeHint().height() > 18);
    QVERIFY(page.findChildren<QPushButton*>().last()->geometry().bottom() < 504);
}

void BasicSettingLayoutTest::thePageOfTodayNeedsNoScrolling() {
    QCOMPARE(m_page->findChild<QScrollArea*>(), nullptr);
}

void BasicSettingLayoutTest::aRowMoreIsReachedByScrolling() {
    const auto today = basicSettingRows();
    std::vector<stBasicSettingRow> rows(today.begin(), today.end());
    rows.push_back(rows.back());
    ClWidgetBasicSetting page(nullptr, rows);
    page.setFixedSize(600, 505);
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    const QList<QPushButton*> shown = page.findChildren<QPushButton*>();
    QCOMPARE(shown.size(), BUTTONS.size() + 1);
    for (qsizetype i = 0; i < BUTTONS.size(); ++i) {
        QCOMPARE(shown[i]->mapTo(&page, QPoint()), buttons().at(i)->pos());
    }
    const auto isInView = [&page](const QPushButton* button) {
        return button->visibleRegion().boundingRect() == button->rect() &&
               page.rect().contains(QRect(button->mapTo(&page, QPoint()), button->size()));
    };
    QVERIFY(!isInView(shown.last()));
    shown.at(shown.size() - 2)->setFocus();
    QTest::keyClick(shown.at(shown.size() - 2), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), shown.last());
    QTRY_VERIFY(isInView(shown.last()));

    const QSignalSpy sent(&page, &ClWidgetBase::sigSendCommand);
    QTest::mouseClick(shown.last(), Qt::LeftButton);
    QCOMPARE(sent.size(), 1);
    QCOMPARE(getCommand(sent.first().first().toMap()), USB_REQ_NUBO_CMD_GET_IMAGE_QUARITY);
}

void BasicSettingLayoutTest::theTabKeyGoesDownThePage() {
    m_page->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_page.get()));
    buttons().first()->setFocus();
    for (const QPushButton* button : buttons()) {
        QCOMPARE(QApplication::focusWidget(), button);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
}

void BasicSettingLayoutTest::aKeyPressesTheButton_data() {
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("space") << Qt::Key_Space;
    QTest::newRow("return") << Qt::Key_Return;
    QTest::newRow("enter") << Qt::Key_Enter;
}

void BasicSettingLayoutTest::aKeyPressesTheButton() {
    QFETCH(Qt::Key, key);
    const QSignalSpy sent(m_page.get(), &ClWidgetBase::sigSendCommand);
    buttons().at(6)->setFocus();
    QTest::keyClick(buttons().at(6), key);
    QCOMPARE(sent.size(), 1);
    QCOMPARE(sent.first().first().toMap().value(u"CMD"_s).toUuid(), USB_REQ_NUBO_CMD_GET_LED_START);
}

void BasicSettingLayoutTest::aScreenReaderNamesTheButtons() {
    m_page->slotReceiveCommand(
        {{u"CMD"_s, USB_RES_NUBO_CMD_GET_CAMERANAME}, {u"PARAM2"_s, u"Gull"_s}});
    QStringList names;
    for (QPushButton* button : buttons()) {
        names.append(QAccessible::queryAccessibleInterface(button)->text(QAccessible::Name));
    }
    QCOMPARE(names, QStringList{u"Setting camera name"_s} + BUTTONS.sliced(1));
    QCOMPARE(
        QAccessible::queryAccessibleInterface(buttons().first())->text(QAccessible::Description),
        u"Gull"_s);
}

const TestSubject registered = subjectWithWidgets<BasicSettingLayoutTest>();
#include "BasicSettingLayoutTest.moc"
