// SPDX-License-Identifier: MIT
#include "protocol/CommandIdentifiers.h"
#include "tests/support/TestSubject.h"

#include <QSet>
#include <QTest>

#include <array>

namespace {

struct stPinned {
    const char* name;
    const char* value;
};

constexpr std::array PINNED_IDENTIFIERS{
#define PINNED(NAME, VALUE) stPinned{NAME, VALUE},
#include "tests/protocol/PinnedIdentifiers.inc"
#undef PINNED
};

}  // namespace

/// The table of command identifiers.
class IdentifiersTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void noTwoAreEqual();
    void allAreRandomUuids();
    void everyIdentifierIsFoundByItsName();
    void theWifiSwitchHasTwoIdentifiersOfOneName();
    void constantsAndTableAgree_data();
    void constantsAndTableAgree();
    void constantsHaveTheirValues_data();
    void constantsHaveTheirValues();
    void noValueEverChanges_data();
    void noValueEverChanges();
    void unknownIdentifiersAreNamedByTheirText_data();
    void unknownIdentifiersAreNamedByTheirText();
};

void IdentifiersTest::noTwoAreEqual() {
    QSet<QUuid> seen;
    for (const stCommandIdentifier& identifier : commandIdentifiers()) {
        QVERIFY2(!seen.contains(identifier.uuid), identifier.name);
        seen.insert(identifier.uuid);
    }
}

void IdentifiersTest::allAreRandomUuids() {
    for (const stCommandIdentifier& identifier : commandIdentifiers()) {
        QVERIFY2(identifier.uuid.variant() == QUuid::DCE, identifier.name);
        QVERIFY2(identifier.uuid.version() == QUuid::Random, identifier.name);
    }
}

void IdentifiersTest::everyIdentifierIsFoundByItsName() {
    for (const stCommandIdentifier& identifier : commandIdentifiers()) {
        QCOMPARE(getUsbCommand(identifier.uuid), QString::fromLatin1(identifier.name));
    }
}

void IdentifiersTest::theWifiSwitchHasTwoIdentifiersOfOneName() {
    const QUuid request = WifiOnOffRequest::USB_RES_NUBO_CMD_GET_WIFI_ONOFF;
    const QUuid answer = USB_RES_NUBO_CMD_GET_WIFI_ONOFF;
    QVERIFY(request != answer);
    QCOMPARE(getUsbCommand(request), QStringLiteral("USB_RES_NUBO_CMD_GET_WIFI_ONOFF"));
    QCOMPARE(getUsbCommand(answer), QStringLiteral("USB_RES_NUBO_CMD_GET_WIFI_ONOFF"));

    QList<QUuid> inTable;
    for (const stCommandIdentifier& identifier : commandIdentifiers()) {
        if (qstrcmp(identifier.name, "USB_RES_NUBO_CMD_GET_WIFI_ONOFF") == 0) {
            inTable.append(identifier.uuid);
        }
    }
    QCOMPARE(inTable, (QList<QUuid>{request, answer}));
}

void IdentifiersTest::constantsAndTableAgree_data() {
    QTest::addColumn<QUuid>("constant");
    const auto row = [](const char* name, const QUuid& constant) {
        QTest::newRow(name) << constant;
    };
    row("USB_CMD_DESCRIPTOR_INFO", USB_CMD_DESCRIPTOR_INFO);
    row("USB_CMD_ERROR", USB_CMD_ERROR);
    row("USB_NUBO_CMD_RESPONSE", USB_NUBO_CMD_RESPONSE);
    row("USB_REQ_NUBO_CMD_GET_WIFI_INFO", USB_REQ_NUBO_CMD_GET_WIFI_INFO);
    row("USB_RES_NUBO_CMD_GET_WIFI_INFO", USB_RES_NUBO_CMD_GET_WIFI_INFO);
    row("USB_NUBO_CMD_SET_WIFI_MODE", USB_NUBO_CMD_SET_WIFI_MODE);
    row("USB_REQ_NUBO_CMD_IS_REC", USB_REQ_NUBO_CMD_IS_REC);
    row("USB_NUBO_CMD_SET_IMAGE_QUARITY", USB_NUBO_CMD_SET_IMAGE_QUARITY);
    row("USB_NUBO_CMD_INIT_SETTING", USB_NUBO_CMD_INIT_SETTING);
    row("USB_NUBO_CMD_SET_ADJUSTFLAG", USB_NUBO_CMD_SET_ADJUSTFLAG);
    row("USB_CMD_RES_AUDIO", USB_CMD_RES_AUDIO);
    row("USB_NUBO_CMD_EXEC_FWUPDATE", USB_NUBO_CMD_EXEC_FWUPDATE);
}

void IdentifiersTest::constantsAndTableAgree() {
    QFETCH(QUuid, constant);
    QCOMPARE(getUsbCommand(constant), QString::fromLatin1(QTest::currentDataTag()));
}

void IdentifiersTest::constantsHaveTheirValues_data() {
    QTest::addColumn<QUuid>("constant");
    QTest::addColumn<QString>("text");
    const auto row = [](const QUuid& constant, const char* text) {
        QTest::newRow(text) << constant << QString::fromLatin1(text);
    };
    row(USB_CMD_DESCRIPTOR_INFO, "{47eaa099-2cb6-416d-86dc-283cf0480ff9}");
    row(USB_CMD_ERROR, "{9a1e40b4-5815-4a99-99e2-d15364c7a500}");
    row(USB_NUBO_CMD_RESPONSE, "{68b4aef7-3eaa-4e17-9d8a-4eace693ae2d}");
    row(WifiOnOffRequest::USB_RES_NUBO_CMD_GET_WIFI_ONOFF,
        "{e0776f79-4505-45f3-b345-ea49da86430a}");
    row(USB_RES_NUBO_CMD_GET_WIFI_ONOFF, "{72defbc6-89b4-4b2d-b586-b1ff50295142}");
    row(USB_NUBO_CMD_EXEC_FWUPDATE, "{ac26a0b9-666d-4ce4-a768-2ddf665ab923}");
}

void IdentifiersTest::constantsHaveTheirValues() {
    QFETCH(QUuid, constant);
    QFETCH(QString, text);
    QCOMPARE(constant.toString(), text);
}

void IdentifiersTest::noValueEverChanges_data() {
    QTest::addColumn<QString>("value");
    for (const auto& [name, value] : PINNED_IDENTIFIERS) {
        QTest::addRow("%s %s", name, value) << QString::fromLatin1(value);
    }
}

void IdentifiersTest::noValueEverChanges() {
    QFETCH(const QString, value);
    const QByteArray row(QTest::currentDataTag());
    QCOMPARE(getUsbCommand(QUuid(value)) + u' ' + value, QString::fromLatin1(row));
}

void IdentifiersTest::unknownIdentifiersAreNamedByTheirText_data() {
    QTest::addColumn<QUuid>("unknown");
    QTest::addColumn<QString>("name");
    QTest::newRow("null") << QUuid()
                          << QStringLiteral("Unknown:{00000000-0000-0000-0000-000000000000}");
    QTest::newRow("foreign") << QUuid(0x01234567, 0x89ab, 0x4def, 0x81, 0x23, 0x45, 0x67, 0x89,
                                      0xab, 0xcd, 0xef)
                             << QStringLiteral("Unknown:{01234567-89ab-4def-8123-456789abcdef}");
}

void IdentifiersTest::unknownIdentifiersAreNamedByTheirText() {
    QFETCH(QUuid, unknown);
    QFETCH(QString, name);
    QCOMPARE(getUsbCommand(unknown), name);
}

const TestSubject registered = subjectWithoutScreen<IdentifiersTest>();
#include "IdentifiersTest.moc"
