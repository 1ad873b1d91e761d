// SPDX-License-Identifier: MIT
#include "pages/basic/ChoiceDialogs.h"
#include "tests/pages/DialogParameters.h"
#include "tests/support/DialogControls.h"
#include "tests/support/TestSubject.h"

#include <QLabel>
#include <QRadioButton>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QTest>

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

const QString FULL = u"GGA+GLL+GSA+GSV+RMC+VTG+ZDA"_s;

QStringList values(ClDialogBase& dialog) {
    return DialogControls(dialog).values();
}

bool open(QWidget& dialog) {
    dialog.show();
    return QTest::qWaitForWindowActive(&dialog);
}

}  // namespace

/// The dialogs of the LED, of GPS and of the pictures' contrast.
class OptionDialogsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ledLoads_data();
    void ledLoads();
    void ledReturnsWhatWasChosen();

    void gpsLoads_data();
    void gpsLoads();
    void gpsReturnsEveryCombination_data();
    void gpsReturnsEveryCombination();
    void gpsChoicesAreIndependent();
    void gpsOptionsAreAskedForWhenGpsIsUsed();

    void contrastLoads_data();
    void contrastLoads();
    void contrastCannotLeaveItsRange();
    void contrastIsLightAtTheLowEnd();
    void theContrastsTextsStandInLineWithItsHandle();
};

void OptionDialogsTest::ledLoads_data() {
    QTest::addColumn<QVariantList>("params");
    QTest::addColumn<QString>("choice");
    QTest::newRow("on") << QVariantList{true} << u"Light"_s;
    QTest::newRow("off") << QVariantList{false} << u"Not light"_s;
    QTest::newRow("nothing") << QVariantList{} << u"Light"_s;
    QTest::newRow("invalid") << QVariantList{QVariant()} << u"Not light"_s;
}

void OptionDialogsTest::ledLoads() {
    QFETCH(QVariantList, params);
    QFETCH(QString, choice);
    ClDialogLed dialog;
    dialog.setParam(params);
    QCOMPARE(values(dialog), QStringList{choice});
    QCOMPARE(typedValues(dialog.getParam()),
             QStringList{choice == u"Light" ? u"bool true"_s : u"bool false"_s});
}

void OptionDialogsTest::ledReturnsWhatWasChosen() {
    ClDialogLed dialog;
    dialog.setParam({true});
    QVERIFY(open(dialog));
    DialogControls(dialog).click(u"Not light"_s);
    QCOMPARE(typedValues(dialog.getParam()), QStringList{u"bool false"_s});
    DialogControls(dialog).click(u"Light"_s);
    QCOMPARE(typedValues(dialog.getParam()), QStringList{u"bool true"_s});
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Down);
    QCOMPARE(typedValues(dialog.getParam()), QStringList{u"bool false"_s});
    dialog.setParam({});
    QCOMPARE(values(dialog), QStringList{u"Not light"_s});
}

void OptionDialogsTest::gpsLoads_data() {
    QTest::addColumn<QVariantList>("params");
    QTest::addColumn<QStringList>("choices");  // from top to bottom
    QTest::newRow("nothing") << QVariantList{}
                             << QStringList{u"Not use GPS"_s, u"Not save logs"_s, FULL,
                                            u"Not adjust time"_s};
    QTest::newRow("use") << QVariantList{true}
                         << QStringList{u"Use GPS"_s, u"Not save logs"_s, FULL,
                                        u"Not adjust time"_s};
    QTest::newRow("use, logs") << QVariantList{true, true}
                               << QStringList{u"Use GPS"_s, u"Save logs"_s, FULL,
                                              u"Not adjust time"_s};
    QTest::newRow("use, time") << QVariantList{true, false, true}
                               << QStringList{u"Use GPS"_s, u"Not save logs"_s, FULL,
                                              u"Adjust time"_s};
    QTest::newRow("full format") << QVariantList{true, false, true, 2U}
                                 << QStringList{u"Use GPS"_s, u"Not save logs"_s, FULL,
                                                u"Adjust time"_s};
    QTest::newRow("short format") << QVariantList{false, true, false, 1U}
                                  << QStringList{u"Not use GPS"_s, u"Save logs"_s, u"GGA+RMC"_s,
                                                 u"Not adjust time"_s};
    for (const unsigned int format : {0U, 3U, 0xFFFFFFFFU}) {
        QTest::addRow("format %u", format)
            << QVariantList{true, true, true, format}
            << QStringList{u"Use GPS"_s, u"Save logs"_s, FULL, u"Adjust time"_s};
    }
    QTest::newRow("wrong types") << QVariantList{QVariant(), QVariant(), QVariantList{}, u"GGA"_s}
                                 << QStringList{u"Not use GPS"_s, u"Not save logs"_s, FULL,
                                                u"Not adjust time"_s};
    QTest::newRow("more than four")
        << QVariantList{true, true, true, 1U, 1U}
        << QStringList{u"Use GPS"_s, u"Save logs"_s, u"GGA+RMC"_s, u"Adjust time"_s};
}

void OptionDialogsTest::gpsLoads() {
    QFETCH(QVariantList, params);
    QFETCH(QStringList, choices);
    ClDialogGps dialog;
    QCOMPARE(values(dialog),
             (QStringList{u"Use GPS"_s, u"Save logs"_s, u"GGA+RMC"_s, u"Adjust time"_s}));
    // What a shorter list leaves alone shows as the opposite of what a new dialog holds.
    dialog.setParam({false, false, false, 2U});
    dialog.setParam(params);
    QCOMPARE(values(dialog), choices);
}

void OptionDialogsTest::gpsReturnsEveryCombination_data() {
    QTest::addColumn<int>("combination");
    for (int combination = 0; combination < 16; ++combination) {
        QTest::addRow("%d", combination) << combination;
    }
}

void OptionDialogsTest::gpsReturnsEveryCombination() {
    QFETCH(int, combination);
    const bool use = (combination & 1) != 0;
    const bool logs = (combination & 2) != 0;
    const bool time = (combination & 4) != 0;
    const bool isFull = (combination & 8) != 0;
    const QStringList expected{
        use ? u"bool true"_s : u"bool false"_s, logs ? u"bool true"_s : u"bool false"_s,
        time ? u"bool true"_s : u"bool false"_s, isFull ? u"int 2"_s : u"int 1"_s};

    ClDialogGps loaded;
    loaded.setParam({use, logs, time, isFull ? 2U : 1U});
    QCOMPARE(typedValues(loaded.getParam()), expected);

    // Clicked, from the opposite of all.
    ClDialogGps dialog;
    dialog.setParam({!use, !logs, !time, isFull ? 1U : 2U});
    QVERIFY(open(dialog));
    const DialogControls controls(dialog);
    controls.click(u"Use GPS"_s);
    controls.click(logs ? u"Save logs"_s : u"Not save logs"_s);
    controls.click(isFull ? FULL : u"GGA+RMC"_s);
    controls.click(time ? u"Adjust time"_s : u"Not adjust time"_s);
    controls.click(use ? u"Use GPS"_s : u"Not use GPS"_s);
    QCOMPARE(typedValues(dialog.getParam()), expected);
}

void OptionDialogsTest::gpsChoicesAreIndependent() {
    ClDialogGps dialog;
    dialog.setParam({true, true, true, 1U});
    QVERIFY(open(dialog));
    DialogControls(dialog).click(u"Not save logs"_s);
    QCOMPARE(values(dialog),
             (QStringList{u"Use GPS"_s, u"Not save logs"_s, u"GGA+RMC"_s, u"Adjust time"_s}));
    DialogControls(dialog).click(FULL);
    QCOMPARE(values(dialog),
             (QStringList{u"Use GPS"_s, u"Not save logs"_s, FULL, u"Adjust time"_s}));
}

void OptionDialogsTest::gpsOptionsAreAskedForWhenGpsIsUsed() {
    ClDialogGps dialog;
    QVERIFY(open(dialog));
    const auto enabled = [&dialog] {
        QStringList texts;
        for (const QRadioButton* const button : dialog.findChildren<QRadioButton*>()) {
            if (button->isEnabled()) {
                texts.append(button->text());
            }
        }
        return texts;
    };
    const QStringList always{u"Use GPS"_s, u"Not use GPS"_s};
    const QStringList all =
        always + QStringList{u"Save logs"_s, u"Not save logs"_s, u"GGA+RMC"_s,
                             FULL,           u"Adjust time"_s,   u"Not adjust time"_s};
    QCOMPARE(enabled(), all);
    DialogControls(dialog).click(u"Not use GPS"_s);
    QCOMPARE(enabled(), always);
    DialogControls(dialog).click(u"Use GPS"_s);
    QCOMPARE(enabled(), all);
    dialog.setParam({false});
    QCOMPARE(enabled(), always);
}

void OptionDialogsTest::contrastLoads_data() {
    QTest::addColumn<QVariantList>("params");
    QTest::addColumn<int>("step");
    for (int step = 0; step <= 4; ++step) {
        QTest::addRow("%d", step) << QVariantList{static_cast<unsigned int>(step)} << step;
    }
    for (const unsigned int step : {5U, 77U, 0x80000000U, 0xFFFFFFFFU}) {
        QTest::addRow("%u", step) << QVariantList{step} << 4;
    }
    QTest::newRow("nothing") << QVariantList{} << 0;
    QTest::newRow("no number") << QVariantList{u"dark"_s} << 0;
}

void OptionDialogsTest::contrastLoads() {
    QFETCH(QVariantList, params);
    QFETCH(int, step);
    ClDialogImageQuarity dialog;
    dialog.setParam(params);
    QCOMPARE(values(dialog), QStringList{QString::number(step)});
    QCOMPARE(typedValues(dialog.getParam()), QStringList{u"int %1"_s.arg(step)});
    dialog.setParam({});
    QCOMPARE(typedValues(dialog.getParam()), QStringList{u"int %1"_s.arg(step)});
}

void OptionDialogsTest::contrastCannotLeaveItsRange() {
    ClDialogImageQuarity dialog;
    dialog.setParam({2U});
    QVERIFY(open(dialog));
    const DialogControls controls(dialog);
    const auto step = [&](Qt::Key key) {
        controls.slide(key);
        return dialog.getParam().constFirst().toInt();
    };
    QCOMPARE(step(Qt::Key_Right), 3);
    QCOMPARE(step(Qt::Key_PageUp), 4);
    QCOMPARE(step(Qt::Key_Right), 4);
    QCOMPARE(step(Qt::Key_PageUp), 4);
    QCOMPARE(step(Qt::Key_Home), 0);
    QCOMPARE(step(Qt::Key_Left), 0);
    QCOMPARE(step(Qt::Key_PageDown), 0);
    QCOMPARE(step(Qt::Key_End), 4);
}

void OptionDialogsTest::contrastIsLightAtTheLowEnd() {
    ClDialogImageQuarity dialog;
    dialog.setParam({2U});
    QVERIFY(open(dialog));
    auto* const slider = dialog.findChild<QSlider*>();
    const auto label = [&dialog](const QString& text) {
        const auto labels = dialog.findChildren<QLabel*>();
        return *std::ranges::find(labels, text, &QLabel::text);
    };
    QVERIFY(label(u"Light"_s)->geometry().right() < slider->geometry().left());
    QVERIFY(label(u"Dark"_s)->geometry().left() > slider->geometry().right());
    // The slider's own low end is the one on the left.
    QVERIFY(slider->isLeftToRight());
    QVERIFY(!slider->invertedAppearance());
    const DialogControls controls(dialog);
    controls.slide(Qt::Key_Left);
    QCOMPARE(dialog.getParam().constFirst().toInt(), 1);
}

void OptionDialogsTest::theContrastsTextsStandInLineWithItsHandle() {
    ClDialogImageQuarity dialog;
    QVERIFY(open(dialog));
    auto* const slider = dialog.findChild<QSlider*>();
    QStyleOptionSlider option;
    option.initFrom(slider);
    option.tickPosition = slider->tickPosition();
    option.maximum = slider->maximum();
    const QRect handle = slider->style()->subControlRect(QStyle::CC_Slider, &option,
                                                         QStyle::SC_SliderHandle, slider);
    // Some styles draw the edge of the handle around this place.
    QVERIFY(slider->rect().adjusted(0, 1, 0, -1).contains(handle));
    const int middle = slider->mapTo(&dialog, handle.center()).y();
    for (const QLabel* label : dialog.findChildren<QLabel*>()) {
        if (label->buddy() == nullptr) {
            QVERIFY2(std::abs(label->geometry().center().y() - middle) <= 1,
                     qPrintable(label->text()));
        }
    }
}

const TestSubject registered = subjectWithWidgets<OptionDialogsTest>();
#include "OptionDialogsTest.moc"
