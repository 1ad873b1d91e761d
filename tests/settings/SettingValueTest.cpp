// SPDX-License-Identifier: MIT
#include "settings/CameraClock.h"
#include "settings/SettingTable.h"
#include "settings/SettingValue.h"
#include "tests/support/SummerTime.h"
#include "tests/support/TestSubject.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// Values as users and programs write them, and as they are reported.
class SettingValueTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void textsAreTaken_data();
    void textsAreTaken();
    void textsOutOfRangeAreRefused_data();
    void textsOutOfRangeAreRefused();
    void jsonIsTaken_data();
    void jsonIsTaken();
    void jsonOfAnotherKindIsRefused_data();
    void jsonOfAnotherKindIsRefused();
    void whatIsBesideTheRangeIsToldAsItIs_data();
    void whatIsBesideTheRangeIsToldAsItIs();
    void everyValueHasItsJson_data();
    void everyValueHasItsJson();
    void rangesAreTold_data();
    void rangesAreTold();
    void aRefusedSecretIsNotRepeated();
    void nowIsTheTimeOfThisComputer();
    void aTimeThatSummerTimeSkipsHereIsTakenAndTold();
};

namespace {

const stSetting& row(const char* key) {
    return *findSetting(key);
}

void addColumns() {
    QTest::addColumn<const stSetting*>("setting");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("told");
}

void addTaken(const char* key, const QString& text, const QString& told) {
    QTest::addRow("%s=%s", key, qPrintable(text)) << &row(key) << text << told;
}

}  // namespace

void SettingValueTest::textsAreTaken_data() {
    addColumns();
    for (const QString& on : {u"on"_s, u"TRUE"_s, u"yes"_s, u"1"_s}) {
        addTaken("gps.enabled", on, u"on"_s);
    }
    for (const QString& off : {u"off"_s, u"false"_s, u"No"_s, u"0"_s}) {
        addTaken("gps.enabled", off, u"off"_s);
    }
    addTaken("image.contrast", u"4"_s, u"4"_s);
    addTaken("live.rtsp-port", u"65535"_s, u"65535"_s);
    addTaken("interval.delay", u"0"_s, u"0s"_s);
    addTaken("interval.delay", u"90"_s, u"1m30s"_s);
    addTaken("interval.delay", u"90s"_s, u"1m30s"_s);
    addTaken("interval.delay", u"1h30m5s"_s, u"1h30m5s"_s);
    addTaken("interval.delay", u"72h"_s, u"72h"_s);
    addTaken("camera.auto-power-off", u"Off"_s, u"off"_s);
    addTaken("camera.auto-power-off", u"0"_s, u"off"_s);
    addTaken("camera.auto-power-off", u"1m"_s, u"1m"_s);
    addTaken("wifi.auto-off", u"2m"_s, u"2m"_s);
    addTaken("live.frame-rate", u"30"_s, u"30"_s);
    addTaken("live.size", u"800X480"_s, u"800x480"_s);
    addTaken("wifi.mode", u"Infrastructure"_s, u"infrastructure"_s);
    addTaken("camera.name", u"Gull0001"_s, u"Gull0001"_s);
    addTaken("live.stun-server", u""_s, u""_s);
    addTaken("wifi.infrastructure.ssid", u" Café #1 "_s, u" Café #1 "_s);
    addTaken("wifi.infrastructure.address", u"192.168.000.020"_s, u"192.168.0.20"_s);
    addTaken("wifi.infrastructure.dns2", u"none"_s, u"0.0.0.0"_s);
    addTaken("wifi.infrastructure.dns2", u"0.0.0.0"_s, u"0.0.0.0"_s);
    addTaken("wifi.infrastructure.netmask", u"/0"_s, u"0.0.0.0"_s);
    addTaken("wifi.infrastructure.netmask", u"/24"_s, u"255.255.255.0"_s);
    addTaken("wifi.infrastructure.netmask", u"/32"_s, u"255.255.255.255"_s);
    addTaken("wifi.infrastructure.netmask", u"255.255.240.0"_s, u"255.255.240.0"_s);
    addTaken("camera.time-zone", u"UTC"_s, u"UTC"_s);
    addTaken("camera.time-zone", u"utc+12"_s, u"UTC+12"_s);
    addTaken("camera.time-zone", u"GMT-12"_s, u"UTC-12"_s);
    addTaken("camera.time-zone", u"+9"_s, u"UTC+9"_s);
    addTaken("camera.time-zone", u"UTC-03:00"_s, u"UTC-3"_s);
    addTaken("camera.clock", u"2026-03-09T07:05:01"_s, u"2026-03-09T07:05:01"_s);
    addTaken("camera.clock", u"2026-03-09 07:05"_s, u"2026-03-09T07:05:00"_s);
    addTaken("camera.clock", u"2000-01-01T00:00"_s, u"2000-01-01T00:00:00"_s);
}

void SettingValueTest::textsAreTaken() {
    QFETCH(const stSetting*, setting);
    QFETCH(const QString, text);
    const stParsedValue parsed = parseValue(*setting, text);
    QVERIFY2(parsed.isValid(), qPrintable(parsed.error));
    QCOMPARE(parsed.error, QString());
    QTEST(valueText(*setting, parsed.value), "told");
    QTEST(valueText(*setting, parseValue(*setting, valueText(*setting, parsed.value)).value),
          "told");
}

void SettingValueTest::textsOutOfRangeAreRefused_data() {
    QTest::addColumn<const stSetting*>("setting");
    QTest::addColumn<QString>("text");
    const auto refused = [](const char* key, const QStringList& texts) {
        for (const QString& text : texts) {
            QTest::addRow("%s=%s", key, qPrintable(text)) << &row(key) << text;
        }
    };
    refused("gps.enabled", {u""_s, u"onn"_s, u"2"_s, u"-1"_s});
    refused("image.contrast", {u"-1"_s, u"5"_s, u"2.0"_s, u"0x1"_s, u""_s});
    refused("live.rtsp-port", {u"0"_s, u"65536"_s, u"18446744073709551696"_s});
    refused("interval.delay", {u"off"_s, u"-1"_s, u"72h1s"_s, u"1s1m"_s, u"1.5h"_s, u""_s});
    refused("interval.period", {u"0"_s, u"999999999h"_s});
    refused("camera.auto-power-off", {u"59s"_s, u"73h"_s});
    refused("wifi.auto-off", {u"90s"_s, u"11m"_s});
    refused("live.frame-rate", {u"5"_s, u""_s});
    refused("live.size", {u"800"_s, u"unknown"_s});
    refused("camera.name", {u""_s, u"Gull00012"_s, u"Gull 1"_s, u"Möwe"_s});
    refused("live.stun-server", {u"two words"_s, QString(256, u'a')});
    refused("wifi.infrastructure.ssid", {u"海"_s, u"a\nb"_s, QString(33, u'a')});
    refused("wifi.infrastructure.address",
            {u"none"_s, u"0.0.0.0"_s, u"255.255.255.255"_s, u"192.168.0.256"_s, u"192.168.0"_s,
             u"1921.68.0.1"_s, u""_s});
    refused("wifi.infrastructure.netmask", {u"/33"_s, u"/-1"_s, u"/"_s, u"255.0.255.0"_s});
    refused("camera.time-zone", {u"UTC+13"_s, u"UTC-13"_s, u"UTC+9:30"_s, u"9"_s, u""_s});
    refused("camera.clock", {u"2026-02-30 00:00"_s, u"1999-12-31T23:59"_s, u"2101-01-01 00:00"_s,
                             u"2026-03-09T25:00"_s, u"yesterday"_s});
    refused("sd.total", {u"-1"_s, u"many"_s});
}

void SettingValueTest::textsOutOfRangeAreRefused() {
    QFETCH(const stSetting*, setting);
    QFETCH(const QString, text);
    const stParsedValue parsed = parseValue(*setting, text);
    QVERIFY(!parsed.isValid());
    const QString named = text.isEmpty() ? u"nothing"_s : text;
    QVERIFY2(parsed.error.endsWith(named + u" is not "_s + rangeText(*setting)),
             qPrintable(parsed.error));
}

void SettingValueTest::jsonIsTaken_data() {
    QTest::addColumn<const stSetting*>("setting");
    QTest::addColumn<QJsonValue>("json");
    QTest::addColumn<QString>("told");
    const auto taken = [](const char* key, const QJsonValue& json, const QString& told) {
        QTest::addRow("%s: %s", key, qPrintable(told)) << &row(key) << json << told;
    };
    taken("gps.enabled", true, u"on"_s);
    taken("gps.enabled", u"off"_s, u"off"_s);
    taken("image.contrast", 3, u"3"_s);
    taken("interval.delay", 90, u"1m30s"_s);
    taken("live.frame-rate", 15, u"15"_s);
    taken("live.size", u"320x240"_s, u"320x240"_s);
    taken("camera.name", u"Gull"_s, u"Gull"_s);
}

void SettingValueTest::jsonIsTaken() {
    QFETCH(const stSetting*, setting);
    QFETCH(const QJsonValue, json);
    const stParsedValue parsed = parseJson(*setting, json);
    QVERIFY2(parsed.isValid(), qPrintable(parsed.error));
    QTEST(valueText(*setting, parsed.value), "told");
}

void SettingValueTest::jsonOfAnotherKindIsRefused_data() {
    QTest::addColumn<const stSetting*>("setting");
    QTest::addColumn<QJsonValue>("json");
    QTest::newRow("switch for a number") << &row("image.contrast") << QJsonValue(true);
    QTest::newRow("number for a switch") << &row("gps.enabled") << QJsonValue(1);
    QTest::newRow("number for a text") << &row("camera.name") << QJsonValue(1234);
    QTest::newRow("part of a number") << &row("image.contrast") << QJsonValue(2.5);
    QTest::newRow("nothing") << &row("camera.name") << QJsonValue();
    QTest::newRow("out of range") << &row("image.contrast") << QJsonValue(5);
}

void SettingValueTest::jsonOfAnotherKindIsRefused() {
    QFETCH(const stSetting*, setting);
    QFETCH(const QJsonValue, json);
    QVERIFY(!parseJson(*setting, json).isValid());
    QVERIFY(!parseJson(*setting, json).error.isEmpty());
}

void SettingValueTest::whatIsBesideTheRangeIsToldAsItIs_data() {
    QTest::addColumn<const stSetting*>("setting");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("told");
    QTest::newRow("zone") << &row("camera.time-zone") << QVariant(25LL) << u"25"_s;
    QTest::newRow("below the zones") << &row("camera.time-zone") << QVariant(-1LL) << u"-1"_s;
    QTest::newRow("choice") << &row("live.frame-rate") << QVariant(7LL) << u"7"_s;
    QTest::newRow("size") << &row("live.size") << QVariant(QSize()) << u"unknown"_s;
    QTest::newRow("clock") << &row("camera.clock") << QVariant(QDateTime()) << u"unknown"_s;
    QTest::newRow("capacity") << &row("sd.total") << QVariant(1024LL) << u"1024"_s;
}

void SettingValueTest::whatIsBesideTheRangeIsToldAsItIs() {
    QFETCH(const stSetting*, setting);
    QFETCH(const QVariant, value);
    QTEST(valueText(*setting, value), "told");
}

void SettingValueTest::everyValueHasItsJson_data() {
    QTest::addColumn<const stSetting*>("setting");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QJsonValue>("json");
    QTest::newRow("switch") << &row("gps.enabled") << QVariant(true) << QJsonValue(true);
    QTest::newRow("duration") << &row("interval.delay") << QVariant(90LL) << QJsonValue(90);
    QTest::newRow("capacity") << &row("sd.total") << QVariant(1LL << 40)
                              << QJsonValue(qint64{1} << 40);
    QTest::newRow("size") << &row("live.size") << QVariant(QSize(320, 240))
                          << QJsonValue(u"320x240"_s);
    QTest::newRow("zone") << &row("camera.time-zone") << QVariant(9LL) << QJsonValue(u"UTC+9"_s);
}

void SettingValueTest::everyValueHasItsJson() {
    QFETCH(const stSetting*, setting);
    QFETCH(const QVariant, value);
    QTEST(valueJson(*setting, value), "json");
}

void SettingValueTest::rangesAreTold_data() {
    QTest::addColumn<const stSetting*>("setting");
    QTest::addColumn<QString>("told");
    const auto range = [](const char* key, const QString& told) {
        QTest::newRow(key) << &row(key) << told;
    };
    range("gps.enabled", u"one of on, off"_s);
    range("image.contrast", u"a number from 0 to 4"_s);
    range("battery.charge", u"a number"_s);
    range("interval.delay", u"a duration from 0s to 72h"_s);
    range("wifi.auto-off", u"off or a duration from 1m to 10m in steps of 1m"_s);
    range("live.frame-rate", u"one of 30, 15, 10, 6, 1"_s);
    range("camera.name", u"1 to 8 letters and digits"_s);
    range("live.password", u"1 to 16 printable ASCII characters without spaces"_s);
    range("wifi.infrastructure.ssid", u"1 to 32 printable characters of Latin-1"_s);
    range("wifi.infrastructure.address", u"an IPv4 address of a host"_s);
    range("wifi.infrastructure.dns1", u"none or an IPv4 address of a host"_s);
    range("wifi.adhoc.netmask", u"a netmask, as 255.255.255.0 or /24"_s);
    range("camera.time-zone", u"a time zone from UTC-12 to UTC+12, or local"_s);
    range("camera.clock", u"now or a time from 2000 to 2100, as 2000-12-31T23:59:59"_s);
    range("sd.total", u"a number of bytes"_s);
}

void SettingValueTest::rangesAreTold() {
    QFETCH(const stSetting*, setting);
    QTEST(rangeText(*setting), "told");
}

void SettingValueTest::aRefusedSecretIsNotRepeated() {
    const stParsedValue parsed = parseValue(row("live.password"), u"two words"_s);
    QVERIFY(!parsed.isValid());
    QVERIFY2(!parsed.error.contains(u"two words"_s), qPrintable(parsed.error));
}

void SettingValueTest::nowIsTheTimeOfThisComputer() {
    const QDateTime before = cameraClockNow();
    const QDateTime now = parseValue(row("camera.clock"), u"now"_s).value.toDateTime();
    QVERIFY(before <= now && now <= cameraClockNow());
}

void SettingValueTest::aTimeThatSummerTimeSkipsHereIsTakenAndTold() {
    const SummerTime here;
    const stSetting& clock = row("camera.clock");
    const stParsedValue parsed = parseValue(clock, u"2026-03-29T02:30:05"_s);
    QVERIFY2(parsed.isValid(), qPrintable(parsed.error));
    QCOMPARE(valueText(clock, parsed.value), u"2026-03-29T02:30:05"_s);
    QCOMPARE(valueText(clock, cameraClock(SummerTime::skipped())), u"2026-03-29T02:30:05"_s);
}

const TestSubject registered = subjectWithoutApplication<SettingValueTest>();
#include "SettingValueTest.moc"
