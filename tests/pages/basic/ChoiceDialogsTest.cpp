// SPDX-License-Identifier: MIT
#include "pages/basic/ChoiceDialogs.h"
#include "tests/pages/DialogParameters.h"
#include "tests/support/DialogControls.h"
#include "tests/support/TestSubject.h"

#include <QComboBox>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

struct stZone {
    const char* text;
    unsigned int zone;
};

const QList<stZone> ZONES{
    {"Eniwetok/Kwajalein\nGMT-12:00", 24},
    {"Midway Island/Samoa\nGMT-11:00", 23},
    {"Hawaii\nGMT-10:00", 22},
    {"Alaska\nGMT-9:00", 21},
    {"Pacific STD Time\nGMT-8:00", 20},
    {"Mountain STD Time\nGMT-7:00", 19},
    {"Central STD Time\nGMT-6:00", 18},
    {"Eastern STD Time\nGMT-5:00", 17},
    {"Atlantic STD Time\nGMT-4:00", 16},
    {"Brasilia/Buenos Aires\nGMT-3:00", 15},
    {"Central Atlantic\nGMT-2:00", 14},
    {"Azores Islands\nGMT-1:00", 13},
    {"London/Lisbon\nGMT+0:00", 0},
    {"Paris/Berlin/Rome\nGMT+1:00", 1},
    {"Athens/Cairo/Helsink\nGMT+2:00", 2},
    {"Moscow/Baghdad\nGMT+3:00", 3},
    {"Abu Dhabi\nGMT+4:00", 4},
    {"Islamabad/Karachi\nGMT+5:00", 5},
    {"Dhaka/Novosibirsk\nGMT+6:00", 6},
    {"Bangkok/Hanoi\nGMT+7:00", 7},
    {"Beijing/Singapore\nGMT+8:00", 8},
    {"Tokyo/Seoul/Yakutsk\nGMT+9:00", 9},
    {"Melbourne/Vladivostok\nGMT+10:00", 10},
    {"New Caledonia\nGMT+11:00", 11},
    {"Auckland/Fiji\nGMT+12:00", 12},
};

QComboBox* box(const QWidget& dialog) {
    return dialog.findChild<QComboBox*>();
}

QStringList items(const QWidget& dialog) {
    QStringList texts;
    for (int i = 0; i < box(dialog)->count(); ++i) {
        texts.append(box(dialog)->itemText(i));
    }
    return texts;
}

bool open(QWidget& dialog) {
    dialog.show();
    return QTest::qWaitForWindowActive(&dialog);
}

// Nothing is chosen: OK has no effect, by the mouse and by the keyboard, until something is.
void expectWaitingForAChoice(QDialog& dialog, const QString& first) {
    QVERIFY(open(dialog));
    QCOMPARE(box(dialog)->currentText(), QString());
    DialogControls(dialog).click(u"OK"_s);
    QTest::keyClick(box(dialog), Qt::Key_Return);
    QVERIFY(dialog.isVisible());
    DialogControls(dialog).choose(Qt::Key_Down);
    QCOMPARE(box(dialog)->currentText(), first);
    QTest::keyClick(box(dialog), Qt::Key_Return);
    QVERIFY(dialog.isHidden());
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
}

}  // namespace

/// The dialogs that offer a list: time zone and Wi-Fi country.
class ChoiceDialogsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void offersTheZonesFromWestToEast();
    void carriesEveryZoneInAndOut();
    void everyZoneCanBeChosen();
    void aZoneThatDoesNotExistWaitsForAChoice_data();
    void aZoneThatDoesNotExistWaitsForAChoice();
    void anEmptyListLeavesTheZone();

    void carriesEveryCountryInAndOut_data();
    void carriesEveryCountryInAndOut();
    void autoIsNotOfferedWhenACountryIsNeeded();
    void autoComesBack();
    void everyCountryCanBeChosen();
    void aShortListLeavesTheCountry();
    void aCountryThatDoesNotExistWaitsForAChoice_data();
    void aCountryThatDoesNotExistWaitsForAChoice();
};

void ChoiceDialogsTest::offersTheZonesFromWestToEast() {
    QStringList expected;
    for (const stZone& zone : ZONES) {
        expected.append(QString::fromLatin1(zone.text));
    }
    QCOMPARE(items(ClDialogTimezone()), expected);
}

void ChoiceDialogsTest::carriesEveryZoneInAndOut() {
    ClDialogTimezone dialog;
    for (const stZone& zone : ZONES) {
        dialog.setParam({zone.zone});
        QCOMPARE(box(dialog)->currentText(), QString::fromLatin1(zone.text));
        QCOMPARE(typedValues(dialog.getParam()), QStringList{u"uint %1"_s.arg(zone.zone)});
    }
    // As any other kind of number, too.
    dialog.setParam({9});
    QCOMPARE(box(dialog)->currentText(), u"Tokyo/Seoul/Yakutsk\nGMT+9:00"_s);
}

void ChoiceDialogsTest::everyZoneCanBeChosen() {
    ClDialogTimezone dialog;
    dialog.setParam({9U});
    QVERIFY(open(dialog));
    DialogControls(dialog).choose(Qt::Key_Home);
    for (const stZone& zone : ZONES) {
        QCOMPARE(typedValues(dialog.getParam()), QStringList{u"uint %1"_s.arg(zone.zone)});
        DialogControls(dialog).choose(Qt::Key_Down);
    }
    QCOMPARE(box(dialog)->currentIndex(), 24);
}

void ChoiceDialogsTest::aZoneThatDoesNotExistWaitsForAChoice_data() {
    QTest::addColumn<QVariant>("zone");
    QTest::newRow("25") << QVariant(25U);
    QTest::newRow("36") << QVariant(36U);
    QTest::newRow("200") << QVariant(200U);
    QTest::newRow("greatest int") << QVariant(0x7FFFFFFFU);
    QTest::newRow("greatest") << QVariant(0xFFFFFFFFU);
    QTest::newRow("negative") << QVariant(-1);
}

void ChoiceDialogsTest::aZoneThatDoesNotExistWaitsForAChoice() {
    QFETCH(QVariant, zone);
    ClDialogTimezone dialog;
    dialog.setParam({zone});
    expectWaitingForAChoice(dialog, u"Eniwetok/Kwajalein\nGMT-12:00"_s);
    QCOMPARE(typedValues(dialog.getParam()), QStringList{u"uint 24"_s});
}

void ChoiceDialogsTest::anEmptyListLeavesTheZone() {
    ClDialogTimezone dialog;
    dialog.setParam({17U});
    dialog.setParam({});
    QCOMPARE(box(dialog)->currentText(), u"Eastern STD Time\nGMT-5:00"_s);
}

void ChoiceDialogsTest::carriesEveryCountryInAndOut_data() {
    QTest::addColumn<bool>("isNeeded");
    QTest::addColumn<unsigned int>("country");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<unsigned int>("result");
    const QStringList names{u"Japan"_s, u"United States,Canada,Taiwan"_s, u"EU"_s};
    for (const bool isNeeded : {false, true}) {
        for (unsigned int country = 1; country <= 3; ++country) {
            QTest::addRow("%u, %s Auto", country, isNeeded ? "without" : "with")
                << isNeeded << country << names[static_cast<int>(country) - 1] << country;
        }
    }
    QTest::newRow("Auto, with Auto") << false << 4U << u"Auto"_s << 4U;
    QTest::newRow("Auto, without Auto") << true << 4U << u"Japan"_s << 1U;
}

void ChoiceDialogsTest::carriesEveryCountryInAndOut() {
    QFETCH(bool, isNeeded);
    QFETCH(unsigned int, country);
    QFETCH(QString, shown);
    QFETCH(unsigned int, result);
    ClDialogWifiCountry dialog;
    dialog.setParam({isNeeded, country});
    QCOMPARE(box(dialog)->currentText(), shown);
    QCOMPARE(typedValues(dialog.getParam()), QStringList{u"uint %1"_s.arg(result)});
}

void ChoiceDialogsTest::autoIsNotOfferedWhenACountryIsNeeded() {
    const QStringList countries{u"Japan"_s, u"United States,Canada,Taiwan"_s, u"EU"_s};
    ClDialogWifiCountry dialog;
    QCOMPARE(items(dialog), countries + QStringList{u"Auto"_s});
    dialog.setParam({true, 2U});
    QCOMPARE(items(dialog), countries);
    dialog.setParam({true, 3U});
    QCOMPARE(items(dialog), countries);
    dialog.setParam({true, 4U});
    QCOMPARE(items(dialog), countries);
    QCOMPARE(box(dialog)->currentText(), u"EU"_s);
}

void ChoiceDialogsTest::autoComesBack() {
    ClDialogWifiCountry dialog;
    dialog.setParam({true, 2U});
    dialog.setParam({false, 4U});
    QCOMPARE(box(dialog)->currentText(), u"Auto"_s);
    QCOMPARE(items(dialog).size(), 4);
    dialog.setParam({false, 1U});
    QCOMPARE(items(dialog).size(), 4);
    QCOMPARE(box(dialog)->currentText(), u"Japan"_s);
}

void ChoiceDialogsTest::everyCountryCanBeChosen() {
    ClDialogWifiCountry dialog;
    dialog.setParam({false, 3U});
    QVERIFY(open(dialog));
    DialogControls(dialog).choose(Qt::Key_Home);
    for (unsigned int country = 1; country <= 4; ++country) {
        QCOMPARE(typedValues(dialog.getParam()), QStringList{u"uint %1"_s.arg(country)});
        DialogControls(dialog).choose(Qt::Key_Down);
    }
    QCOMPARE(box(dialog)->currentText(), u"Auto"_s);
}

void ChoiceDialogsTest::aShortListLeavesTheCountry() {
    ClDialogWifiCountry dialog;
    dialog.setParam({false, 2U});
    for (const QVariantList& params : {QVariantList{}, QVariantList{true}, QVariantList{3U}}) {
        dialog.setParam(params);
        QCOMPARE(box(dialog)->currentText(), u"United States,Canada,Taiwan"_s);
        QCOMPARE(items(dialog).size(), 4);
    }
}

void ChoiceDialogsTest::aCountryThatDoesNotExistWaitsForAChoice_data() {
    QTest::addColumn<bool>("isNeeded");
    QTest::addColumn<QVariant>("country");
    for (const bool isNeeded : {false, true}) {
        for (const unsigned int country : {0U, 5U, 99U, 0x80000000U, 0xFFFFFFFFU}) {
            QTest::addRow("%u, %s Auto", country, isNeeded ? "without" : "with")
                << isNeeded << QVariant(country);
        }
        QTest::addRow("no number, %s Auto", isNeeded ? "without" : "with")
            << isNeeded << QVariant(u"EU"_s);
    }
}

void ChoiceDialogsTest::aCountryThatDoesNotExistWaitsForAChoice() {
    QFETCH(bool, isNeeded);
    QFETCH(QVariant, country);
    ClDialogWifiCountry dialog;
    dialog.setParam({isNeeded, country});
    expectWaitingForAChoice(dialog, u"Japan"_s);
    QCOMPARE(typedValues(dialog.getParam()), QStringList{u"uint 1"_s});
}

const TestSubject registered = subjectWithWidgets<ChoiceDialogsTest>();
#include "ChoiceDialogsTest.moc"
