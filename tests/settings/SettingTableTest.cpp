// SPDX-License-Identifier: MIT
#include "protocol/CommandRoutes.h"
#include "settings/ClSettingAccess.h"
#include "settings/SettingSearch.h"
#include "settings/SettingTable.h"
#include "settings/SettingValue.h"
#include "tests/support/TestSubject.h"

#include <QSet>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString keyOf(const stSetting& row) {
    return QString::fromLatin1(row.key.data(), static_cast<qsizetype>(row.key.size()));
}

}  // namespace

/// The table of settings, and what can be found in it.
class SettingTableTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyExchangeIsOneOfTheWire();
    void keysAreDistinct();
    void valuesThatTravelTogetherStandTogether();
    void everyRangeCanBeTold();
    void groupsPatternsAndKeysAreFound();
    void aMisspeltKeyIsGuessed_data();
    void aMisspeltKeyIsGuessed();
};

void SettingTableTest::everyExchangeIsOneOfTheWire() {
    for (const stSetting& row : settings()) {
        const stRoute* const get = commandRoute(row.exchange.request);
        QVERIFY2(get != nullptr, qPrintable(keyOf(row)));
        QCOMPARE(get->answer, row.exchange.answer);
        if (row.exchange.write.isNull()) {
            continue;
        }
        const stRoute* const set = commandRoute(row.exchange.write);
        QVERIFY2(set != nullptr, qPrintable(keyOf(row)));
        QCOMPARE(set->code, get->code + 0x800);  // as the camera numbers its commands
    }
}

void SettingTableTest::keysAreDistinct() {
    QSet<QString> keys;
    for (const stSetting& row : settings()) {
        QVERIFY2(!keys.contains(keyOf(row)), qPrintable(keyOf(row)));
        keys.insert(keyOf(row));
    }
}

void SettingTableTest::valuesThatTravelTogetherStandTogether() {
    QSet<QUuid> past;
    QUuid current;
    for (const stSetting& row : settings()) {
        if (row.exchange.request != current) {
            past.insert(current);
            current = row.exchange.request;
            QVERIFY2(!past.contains(current), qPrintable(keyOf(row)));
        }
    }
}

void SettingTableTest::everyRangeCanBeTold() {
    for (const stSetting& row : settings()) {
        QVERIFY2(!rangeText(row).isEmpty() && !kindText(row.kind).isEmpty(),
                 qPrintable(keyOf(row)));
        QVERIFY2(!row.explanation.empty(), qPrintable(keyOf(row)));
    }
}

void SettingTableTest::groupsPatternsAndKeysAreFound() {
    QCOMPARE(matchingSettings(u"interval"_s).size(), 3);
    QCOMPARE(matchingSettings(u"wifi.adhoc"_s).size(), 5);
    QCOMPARE(matchingSettings(u"*.size"_s).size(), 2);
    QCOMPARE(matchingSettings(u"camera.name"_s), (QList{&setting("camera.name")}));
    QCOMPARE(matchingSettings(u"*"_s).size(), static_cast<qsizetype>(settings().size()));
    QCOMPARE(matchingSettings(u"gps.sav?-log"_s), (QList{&setting("gps.save-log")}));
    QVERIFY(matchingSettings(u"camera.nam"_s).isEmpty());
    // In a pattern only the two are special.
    QVERIFY(matchingSettings(u"*[wifi"_s).isEmpty());
    QVERIFY(matchingSettings(u"camera?name.*"_s).isEmpty());
    QVERIFY(matchingSettings(u"[a-z]*"_s).isEmpty());
}

void SettingTableTest::aMisspeltKeyIsGuessed_data() {
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("guess");
    QTest::newRow("letters swapped") << u"camera.nmae"_s << u"camera.name"_s;
    QTest::newRow("last part") << u"optimizer"_s << u"camera.optimizer"_s;
    QTest::newRow("missing letter") << u"gps.enable"_s << u"gps.enabled"_s;
}

void SettingTableTest::aMisspeltKeyIsGuessed() {
    QFETCH(const QString, key);
    QFETCH(const QString, guess);
    QVERIFY(noSuchSetting(key).endsWith(u"did you mean "_s + guess + u'?'));
    QVERIFY(noSuchSetting(u"quite something else"_s).contains(u"describe"_s));
}

const TestSubject registered = subjectWithoutApplication<SettingTableTest>();
#include "SettingTableTest.moc"
