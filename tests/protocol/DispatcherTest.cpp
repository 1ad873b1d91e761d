// SPDX-License-Identifier: MIT
#include "protocol/Answers.h"
#include "protocol/CommandIdentifiers.h"
#include "protocol/RequestDispatcher.h"
#include "tests/protocol/WirePackets.h"
#include "tests/support/FakeCameraAccess.h"
#include "tests/support/TestSubject.h"

#include <QRegularExpression>
#include <QTest>

namespace {

const QString CMD = QStringLiteral("CMD");
const QString SENDER = QStringLiteral("Sender");
const QString PARAM1 = QStringLiteral("PARAM1");
const QString PARAM2 = QStringLiteral("PARAM2");
const QString PARAM3 = QStringLiteral("PARAM3");
const QString LEFTOVER = QStringLiteral("Leftover");

const QByteArray GET_SD_INFO =
    "0000 <id> 20000000 3950 0000 00000000 00000000 00000000 00000000 00000000";
const QByteArray RESTART =
    "0000 <id> 20000000 0268 0000 00000000 00000000 00000000 00000000 00000000";
const QByteArray FORMAT_SD =
    "0000 <id> 20000000 0368 0000 00000000 00000000 00000000 00000000 00000000";
const QByteArray INIT_SETTING =
    "0000 <id> 20000000 0468 0000 00000000 00000000 00000000 00000000 00000000";

const QByteArray BATTERY =
    "0000 <id> 20000000 0000 0000 02000000 4b000000 00000000 00000000 00000000";
const QByteArray SD_INFO =
    "0000 <id> 20000000 0000 0000 01000000 02000000 03000000 04000000 ffffffff";
const QByteArray WIFI_LINK =
    "0000 <id> 20000000 0000 0000 02000000 00000000 00000000 00000000 00000000";
const QByteArray WIFI_TEXTS = "0000 <id> 1d000000 0000 0000 01000000 03000000 6e6574 02000000 e9ff";
const QByteArray WIFI_VALUES =
    "0000 <id> 20000000 0000 0000 02000000 06000000 04000000 fdffffff c4ffffff";

/// How a request goes out and how it can be answered.
struct stRequestRow {
    const char* name;
    QUuid request;
    QByteArray packet;
};

const QList<stRequestRow> REQUESTS{
    {"battery", USB_REQ_NUBO_CMD_GET_BATTERY, GET_BATTERY},
    {"SD card", USB_REQ_NUBO_CMD_GET_SDINFO, GET_SD_INFO},
    {"Wi-Fi information", USB_REQ_NUBO_CMD_GET_WIFI_INFO, GET_WIFI_INFO},
    {"restart", USB_NUBO_CMD_RESTART, RESTART},
    {"format", USB_NUBO_CMD_FORMAT_SD, FORMAT_SD},
    {"reset", USB_NUBO_CMD_INIT_SETTING, INIT_SETTING},
};

}  // namespace

/// The way of a request through the dispatcher: message in, packets on the wire, one message out.
class DispatcherTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aGetAnswersWithTheRequestAndItsValues_data();
    void aGetAnswersWithTheRequestAndItsValues();
    void answersAreReadAsWhatTheyAre();
    void anActionAnswersWithAPlainResult_data();
    void anActionAnswersWithAPlainResult();
    void aFailureAnswersWithAPlainResult_data();
    void aFailureAnswersWithAPlainResult();
    void anInterruptedReadShowsNoValues();
    void aDeadControllerFailsWithoutATransfer_data();
    void aDeadControllerFailsWithoutATransfer();
    void whatIsNoRequestIsLoggedOnceAndRefused_data();
    void whatIsNoRequestIsLoggedOnceAndRefused();
    void plainReadsWaitOneSecond();

private:
    [[nodiscard]] VX_CMD request(const QUuid& command, void* controller);
    static void compareResult(const FakeCameraAccess& access, const QUuid& request,
                              void* controller, unsigned short result);

    QObject m_page;
};

VX_CMD DispatcherTest::request(const QUuid& command, void* controller) {
    return {{CMD, command},
            {SENDER, QVariant::fromValue<QObject*>(&m_page)},
            {PARAM1, QVariant::fromValue<void*>(controller)},
            {LEFTOVER, 7}};
}

/// One message came, and it is the plain result of @p request: four keys, the page not among them.
void DispatcherTest::compareResult(const FakeCameraAccess& access, const QUuid& request,
                                   void* controller, unsigned short result) {
    QCOMPARE(access.messages().size(), 1);
    const VX_CMD message = access.messages().first();
    QCOMPARE(message.keys(), (QStringList{CMD, PARAM1, PARAM2, PARAM3}));
    const bool isTransportError = result >= 0xEF00 && result <= 0xEF05;
    QCOMPARE(message[CMD].metaType(), QMetaType::fromType<QUuid>());
    QCOMPARE(message[CMD].toUuid(), isTransportError ? USB_CMD_ERROR : USB_NUBO_CMD_RESPONSE);
    QCOMPARE(message[PARAM1].metaType(), QMetaType::fromType<void*>());
    QCOMPARE(message[PARAM1].value<void*>(), controller);
    QCOMPARE(message[PARAM2].metaType(), QMetaType::fromType<QUuid>());
    QCOMPARE(message[PARAM2].toUuid(), request);
    QCOMPARE(message[PARAM3].metaType(), QMetaType::fromType<unsigned short>());
    QCOMPARE(message[PARAM3].value<unsigned short>(), result);
}

void DispatcherTest::aGetAnswersWithTheRequestAndItsValues_data() {
    QTest::addColumn<QUuid>("command");
    QTest::addColumn<Script>("script");
    QTest::addColumn<QUuid>("answer");
    QTest::addColumn<QVariantList>("values");
    const auto row = [](const char* name, const QUuid& command, const Script& script,
                        const QUuid& answer, const QVariantList& values) {
        QTest::newRow(name) << command << script << answer << values;
    };
    row("battery", USB_REQ_NUBO_CMD_GET_BATTERY, {writes(GET_BATTERY), reads(BATTERY)},
        USB_RES_NUBO_CMD_GET_BATTERY, {2U, 75U});
    row("SD card", USB_REQ_NUBO_CMD_GET_SDINFO, {writes(GET_SD_INFO), reads(SD_INFO)},
        USB_RES_NUBO_CMD_GET_SDINFO,
        {Q_UINT64_C(0x0000000100000002), Q_UINT64_C(0x0000000300000004), 0xFFFFFFFFU});
    row("Wi-Fi information", USB_REQ_NUBO_CMD_GET_WIFI_INFO,
        {writes(GET_WIFI_INFO), reads(WIFI_LINK), reads(WIFI_TEXTS), reads(WIFI_VALUES)},
        USB_RES_NUBO_CMD_GET_WIFI_INFO,
        {2U, QStringLiteral("net"), QStringLiteral("\u00e9\u00ff"), 6U, 4U, -3, -60});
}

void DispatcherTest::aGetAnswersWithTheRequestAndItsValues() {
    QFETCH(QUuid, command);
    QFETCH(Script, script);
    QFETCH(QUuid, answer);
    QFETCH(QVariantList, values);
    FakeCameraAccess access(script);
    dispatchRequest(request(command, access.camera()), access);
    QCOMPARE(access.port().complaint(), QString());
    QCOMPARE(access.messages().size(), 1);

    const VX_CMD message = access.messages().first();
    QStringList keys{CMD, LEFTOVER, PARAM1};
    for (qsizetype i = 0; i < values.size(); ++i) {
        const QString key = QStringLiteral("PARAM%1").arg(i + 2);
        keys.append(key);
        QCOMPARE(message[key].metaType(), values[i].metaType());
        QCOMPARE(message[key], values[i]);
    }
    keys.append(SENDER);
    QCOMPARE(message.keys(), keys);
    QCOMPARE(message[CMD].metaType(), QMetaType::fromType<QUuid>());
    QCOMPARE(message[CMD].toUuid(), answer);
    QCOMPARE(message[SENDER].value<QObject*>(), &m_page);
    QCOMPARE(message[PARAM1].metaType(), QMetaType::fromType<void*>());
    QCOMPARE(message[PARAM1].value<void*>(), access.camera());
    QCOMPARE(message[LEFTOVER], QVariant(7));
}

void DispatcherTest::answersAreReadAsWhatTheyAre() {
    const auto answerTo = [this](const QUuid& command, const Script& script) {
        FakeCameraAccess access(script);
        dispatchRequest(request(command, access.camera()), access);
        return access.messages().first();
    };
    const stBattery charge =
        battery(answerTo(USB_REQ_NUBO_CMD_GET_BATTERY, {writes(GET_BATTERY), reads(BATTERY)}));
    QCOMPARE(charge.state, 2U);
    QCOMPARE(charge.charge, 75);

    const stSdInfo card =
        sdInfo(answerTo(USB_REQ_NUBO_CMD_GET_SDINFO, {writes(GET_SD_INFO), reads(SD_INFO)}));
    QCOMPARE(card.size, Q_UINT64_C(0x0000000100000002));
    QCOMPARE(card.usedSize, Q_UINT64_C(0x0000000300000004));
    QCOMPARE(card.fileSystem, -1);

    const stWifiInfo link =
        wifiInfo(answerTo(USB_REQ_NUBO_CMD_GET_WIFI_INFO, {writes(GET_WIFI_INFO), reads(WIFI_LINK),
                                                           reads(WIFI_TEXTS), reads(WIFI_VALUES)}));
    QCOMPARE(link.status, 2U);
    QCOMPARE(link.linkedSsid, QStringLiteral("net"));
    QCOMPARE(link.searchSsid, QStringLiteral("\u00e9\u00ff"));
    QCOMPARE(link.channel, 6U);
    QCOMPARE(link.encryption, 4U);
    QCOMPARE(link.reserved, -3);
    QCOMPARE(link.signal, -60);
    VX_CMD again;
    setWifiInfo(again, link);
    QVERIFY(wifiInfo(again) == link);
    QVERIFY(wifiInfo({}) == stWifiInfo());

    const AccesspointList points{{QStringLiteral("net"), QString(), 1, 2, 3, 4}};
    QCOMPARE(accesspointList({{PARAM2, QVariant::fromValue(points)}}), points);
    QVERIFY(accesspointList({}).isEmpty());
}

void DispatcherTest::anActionAnswersWithAPlainResult_data() {
    QTest::addColumn<QUuid>("command");
    QTest::addColumn<QByteArray>("packet");
    QTest::newRow("restart") << USB_NUBO_CMD_RESTART << RESTART;
    QTest::newRow("format") << USB_NUBO_CMD_FORMAT_SD << FORMAT_SD;
    QTest::newRow("reset") << USB_NUBO_CMD_INIT_SETTING << INIT_SETTING;
}

void DispatcherTest::anActionAnswersWithAPlainResult() {
    QFETCH(QUuid, command);
    QFETCH(QByteArray, packet);
    FakeCameraAccess access({writes(packet), reads(DONE)});
    dispatchRequest(request(command, access.camera()), access);
    QCOMPARE(access.port().complaint(), QString());
    compareResult(access, command, access.camera(), 0);
}

void DispatcherTest::aFailureAnswersWithAPlainResult_data() {
    QTest::addColumn<QUuid>("command");
    QTest::addColumn<Script>("script");
    QTest::addColumn<unsigned short>("result");
    for (const stRequestRow& row : REQUESTS) {
        const auto add = [&row](const char* fault, const Script& script, unsigned short result) {
            QTest::addRow("%s: %s", row.name, fault) << row.request << script << result;
        };
        const stScriptRow ask = writes(row.packet);
        add("not written", {writes(row.packet, 0xEF03)}, 0xEF03);
        add("write not tried", {writes(row.packet, -4)}, 0xEF05);
        add("silent", {ask, fails(0xEF03), fails(0xEF03), fails(0xEF03)}, 0xEF03);
        add("USB busy", {ask, fails(0xEF02), fails(0xEF02), fails(0xEF02)}, 0xEF02);
        add("gone", {ask, fails(0xEF00)}, 0xEF00);
        add("refused", {ask, reads(BUSY)}, 0xFFF9);
    }
}

void DispatcherTest::aFailureAnswersWithAPlainResult() {
    QFETCH(QUuid, command);
    QFETCH(Script, script);
    QFETCH(unsigned short, result);
    FakeCameraAccess access(script);
    dispatchRequest(request(command, access.camera()), access);
    QCOMPARE(access.port().complaint(), QString());
    compareResult(access, command, access.camera(), result);
}

void DispatcherTest::anInterruptedReadShowsNoValues() {
    FakeCameraAccess access({writes(GET_WIFI_INFO), reads(WIFI_LINK), reads(WIFI_TEXTS),
                             fails(0xEF03), fails(0xEF03), fails(0xEF03)});
    dispatchRequest(request(USB_REQ_NUBO_CMD_GET_WIFI_INFO, access.camera()), access);
    QCOMPARE(access.port().complaint(), QString());
    compareResult(access, USB_REQ_NUBO_CMD_GET_WIFI_INFO, access.camera(), 0xEF03);
}

void DispatcherTest::aDeadControllerFailsWithoutATransfer_data() {
    QTest::addColumn<QUuid>("command");
    QTest::addColumn<QVariant>("controller");
    QTest::addColumn<unsigned short>("result");
    for (const stRequestRow& row : REQUESTS) {
        const unsigned short result =
            row.request == USB_REQ_NUBO_CMD_GET_WIFI_INFO ? 0xEF01 : 0xEF00;
        const auto add = [&row, result](const char* which, const QVariant& controller) {
            QTest::addRow("%s: %s", row.name, which) << row.request << controller << result;
        };
        add("unplugged", QVariant::fromValue<void*>(this));
        add("null", QVariant::fromValue<void*>(nullptr));
        add("of another type", QStringLiteral("camera"));
        add("missing", {});
    }
}

void DispatcherTest::aDeadControllerFailsWithoutATransfer() {
    QFETCH(QUuid, command);
    QFETCH(QVariant, controller);
    QFETCH(unsigned short, result);
    FakeCameraAccess access({});
    VX_CMD message = request(command, nullptr);
    if (controller.isValid()) {
        message.insert(PARAM1, controller);
    } else {
        message.remove(PARAM1);
    }
    dispatchRequest(message, access);
    QCOMPARE(access.port().complaint(), QString());
    compareResult(access, command, controller.value<void*>(), result);
}

void DispatcherTest::whatIsNoRequestIsLoggedOnceAndRefused_data() {
    QTest::addColumn<QUuid>("command");
    QTest::addColumn<QByteArray>("loggedName");
    const auto row = [](const char* name, const QUuid& command, const char* loggedName) {
        QTest::newRow(name) << command << QByteArray(loggedName);
    };
    row("null", QUuid(), "Unknown:{00000000-0000-0000-0000-000000000000}");
    row("unknown",
        QUuid(0x01234567, 0x89ab, 0x4def, 0x81, 0x23, 0x45, 0x67, 0x89, 0xab, 0xcd, 0xef),
        "Unknown:{01234567-89ab-4def-8123-456789abcdef}");
    row("an event", USB_CMD_DEVICE_OPEN, "USB_CMD_DEVICE_OPEN");
    row("a result", USB_NUBO_CMD_RESPONSE, "USB_NUBO_CMD_RESPONSE");
    row("an answer", USB_RES_NUBO_CMD_GET_BATTERY, "USB_RES_NUBO_CMD_GET_BATTERY");
    row("the answer of the Wi-Fi switch", USB_RES_NUBO_CMD_GET_WIFI_ONOFF,
        "USB_RES_NUBO_CMD_GET_WIFI_ONOFF");
}

void DispatcherTest::whatIsNoRequestIsLoggedOnceAndRefused() {
    QFETCH(QUuid, command);
    QFETCH(QByteArray, loggedName);
    FakeCameraAccess access({});
    QTest::ignoreMessage(QtWarningMsg, "No command of the camera for " + loggedName);
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));  // a second one
    dispatchRequest(request(command, access.camera()), access);
    QCOMPARE(access.port().complaint(), QString());
    QVERIFY(access.port().transfers().isEmpty());
    compareResult(access, command, access.camera(), 0xEF01);
}

void DispatcherTest::plainReadsWaitOneSecond() {
    FakeCameraAccess access({writes(GET_BATTERY), fails(0xEF03), fails(0xEF03), reads(BATTERY)});
    dispatchRequest(request(USB_REQ_NUBO_CMD_GET_BATTERY, access.camera()), access);
    QCOMPARE(access.port().complaint(), QString());
    QCOMPARE(access.port().readTimeouts(), (QList<int>{1000, 1000, 1000}));
}

const TestSubject registered = subjectWithoutScreen<DispatcherTest>();
#include "DispatcherTest.moc"
