// SPDX-License-Identifier: MIT
#include "protocol/CommandIdentifiers.h"
#include "protocol/CommandMessage.h"
#include "protocol/NuboRecords.h"
#include "protocol/ResultCodes.h"
#include "tests/support/TestSubject.h"

#include <QMetaType>
#include <QTest>
#include <QUuid>

namespace {
// Only the address counts: nobody looks behind the pointer of a controller.
int aCamera = 0;
}  // namespace

/// The message between the user interface and the USB side, and the names of result codes.
class CommandMessageTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theIdentifierIsUnderItsKey_data();
    void theIdentifierIsUnderItsKey();
    void theControllerIsThePointerInTheFirstParameter_data();
    void theControllerIsThePointerInTheFirstParameter();
    void aResultNamesTransportAndCameraApart_data();
    void aResultNamesTransportAndCameraApart();
    void aResultWithoutControllerHasANullPointer();
    void resultCodesHaveNames_data();
    void resultCodesHaveNames();
    void typesAreKnownByName_data();
    void typesAreKnownByName();
};

void CommandMessageTest::theIdentifierIsUnderItsKey_data() {
    QTest::addColumn<QVariantMap>("message");
    QTest::addColumn<QUuid>("command");
    QTest::newRow("present") << QVariantMap{{QStringLiteral("CMD"), USB_NUBO_CMD_RESTART}}
                             << USB_NUBO_CMD_RESTART;
    QTest::newRow("missing") << QVariantMap{{QStringLiteral("PARAM2"), USB_NUBO_CMD_RESTART}}
                             << QUuid();
    QTest::newRow("of another type") << QVariantMap{{QStringLiteral("CMD"), 7}} << QUuid();
}

void CommandMessageTest::theIdentifierIsUnderItsKey() {
    QFETCH(QVariantMap, message);
    QFETCH(QUuid, command);
    QCOMPARE(getCommand(message), command);
}

void CommandMessageTest::theControllerIsThePointerInTheFirstParameter_data() {
    QTest::addColumn<QVariantMap>("message");
    QTest::addColumn<void*>("controller");
    const auto row = [](const char* name, const QVariant& param1, void* controller) {
        QTest::newRow(name) << QVariantMap{{QStringLiteral("PARAM1"), param1}} << controller;
    };
    void* const none = nullptr;
    QTest::newRow("missing") << QVariantMap() << none;
    row("pointer", QVariant::fromValue<void*>(&aCamera), &aCamera);
    row("null pointer", QVariant::fromValue<void*>(nullptr), none);
    row("nothing", QVariant(), none);
    row("number", 4711, none);
    row("text", QStringLiteral("camera"), none);
    row("identifier", USB_NUBO_CMD_RESTART, none);
    QTest::newRow("under another key")
        << QVariantMap{{QStringLiteral("PARAM2"), QVariant::fromValue<void*>(&aCamera)}} << none;
}

void CommandMessageTest::theControllerIsThePointerInTheFirstParameter() {
    QFETCH(QVariantMap, message);
    QFETCH(void*, controller);
    QCOMPARE(static_cast<void*>(getController(message)), controller);
}

void CommandMessageTest::aResultNamesTransportAndCameraApart_data() {
    QTest::addColumn<unsigned short>("result");
    QTest::addColumn<QUuid>("command");
    const auto row = [](const char* name, unsigned short result, const QUuid& command) {
        QTest::newRow(name) << result << command;
    };
    row("success", 0, USB_NUBO_CMD_RESPONSE);
    row("below the transport codes", 0xEEFF, USB_NUBO_CMD_RESPONSE);
    row("no device", 0xEF00, USB_CMD_ERROR);
    row("bad parameter", 0xEF01, USB_CMD_ERROR);
    row("busy", 0xEF02, USB_CMD_ERROR);
    row("time-out", 0xEF03, USB_CMD_ERROR);
    row("wrong data", 0xEF04, USB_CMD_ERROR);
    row("other", 0xEF05, USB_CMD_ERROR);
    row("above the transport codes", 0xEF06, USB_NUBO_CMD_RESPONSE);
    row("battery low", 0xFFF5, USB_NUBO_CMD_RESPONSE);
    row("wrong parameter", 0xFFFB, USB_NUBO_CMD_RESPONSE);
    row("unknown", 0xFFFF, USB_NUBO_CMD_RESPONSE);
}

void CommandMessageTest::aResultNamesTransportAndCameraApart() {
    QFETCH(unsigned short, result);
    QFETCH(QUuid, command);
    const VX_CMD message = communicationResult(&aCamera, USB_NUBO_CMD_FORMAT_SD, result);

    const QStringList keys{QStringLiteral("CMD"), QStringLiteral("PARAM1"),
                           QStringLiteral("PARAM2"), QStringLiteral("PARAM3")};
    QCOMPARE(message.keys(), keys);
    QCOMPARE(message[keys[0]].metaType(), QMetaType::fromType<QUuid>());
    QCOMPARE(message[keys[0]].toUuid(), command);
    QCOMPARE(message[keys[1]].metaType(), QMetaType::fromType<void*>());
    QCOMPARE(message[keys[1]].value<void*>(), static_cast<void*>(&aCamera));
    QCOMPARE(message[keys[2]].metaType(), QMetaType::fromType<QUuid>());
    QCOMPARE(message[keys[2]].toUuid(), USB_NUBO_CMD_FORMAT_SD);
    QCOMPARE(message[keys[3]].metaType(), QMetaType::fromType<unsigned short>());
    QCOMPARE(message[keys[3]].value<unsigned short>(), result);
}

void CommandMessageTest::aResultWithoutControllerHasANullPointer() {
    const VX_CMD message = communicationResult(nullptr, USB_NUBO_CMD_FORMAT_SD, 0xEF00);
    QCOMPARE(message.size(), 4);
    QCOMPARE(message[QStringLiteral("PARAM1")].metaType(), QMetaType::fromType<void*>());
    QCOMPARE(getController(message), nullptr);
}

void CommandMessageTest::resultCodesHaveNames_data() {
    QTest::addColumn<unsigned short>("code");
    QTest::addColumn<QString>("cameraName");
    QTest::addColumn<QString>("transportName");
    const auto row = [](unsigned short code, const char* cameraName, const char* transportName) {
        QTest::addRow("0x%04X", code)
            << code << QString::fromLatin1(cameraName) << QString::fromLatin1(transportName);
    };
    row(0x0000, "Unknown:0", "USB_ERROR_SUCCESS");
    row(0x0001, "Unknown:1", "Unknown:1");
    row(0x7FFF, "Unknown:32767", "Unknown:32767");
    row(0x8000, "Unknown:-32768", "Unknown:-32768");
    row(0xEEFF, "Unknown:-4353", "Unknown:-4353");
    row(0xEF00, "Unknown:-4352", "Unknown:-4352");
    row(0xEF01, "Unknown:-4351", "USB_ERROR_BAD_PARAM");
    row(0xEF02, "Unknown:-4350", "USB_ERROR_BUSY");
    row(0xEF03, "Unknown:-4349", "USB_ERROR_TIMEOUT");
    row(0xEF04, "Unknown:-4348", "USB_ERROR_RECEIVE_DATA");
    row(0xEF05, "Unknown:-4347", "USB_ERROR_OTHER");
    row(0xEF06, "Unknown:-4346", "Unknown:-4346");
    row(0xFFF4, "Unknown:-12", "Unknown:-12");
    row(0xFFF5, "NUBO_CMD_ERROR_BATTERY_LOW", "Unknown:-11");
    row(0xFFF6, "NUBO_CMD_ERROR_NO_SD_ACCESS", "Unknown:-10");
    row(0xFFF7, "NUBO_CMD_ERROR_NOT_SD_SPACE", "Unknown:-9");
    row(0xFFF8, "NUBO_CMD_ERROR_INTERNAL", "Unknown:-8");
    row(0xFFF9, "NUBO_CMD_ERROR_BUSY", "Unknown:-7");
    row(0xFFFA, "NUBO_CMD_ERROR_EXEC", "Unknown:-6");
    row(0xFFFB, "NUBO_CMD_ERROR_PARAM", "Unknown:-5");
    row(0xFFFC, "NUBO_CMD_ERROR_COMMAND", "Unknown:-4");
    row(0xFFFD, "NUBO_CMD_ERROR_DATALENGTH", "Unknown:-3");
    row(0xFFFE, "NUBO_CMD_ERROR_TIMEOUT", "Unknown:-2");
    row(0xFFFF, "NUBO_CMD_ERROR_UNKNOWN", "Unknown:-1");
}

void CommandMessageTest::resultCodesHaveNames() {
    QFETCH(unsigned short, code);
    QFETCH(QString, cameraName);
    QFETCH(QString, transportName);
    QCOMPARE(getNuboCommanderrorString(code), cameraName);
    QCOMPARE(getUsberrorString(code), transportName);
}

void CommandMessageTest::typesAreKnownByName_data() {
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("type");
    QTest::newRow("message") << QByteArray("VX_CMD") << qMetaTypeId<QVariantMap>();
    QTest::newRow("list of access points")
        << QByteArray("AccesspointList") << qMetaTypeId<QList<stAccesspointInfo>>();
}

void CommandMessageTest::typesAreKnownByName() {
    QFETCH(QByteArray, name);
    QFETCH(int, type);
    registerCommandTypes();
    registerCommandTypes();
    QCOMPARE(QMetaType::fromName(name).id(), type);
}

const TestSubject registered = subjectWithoutScreen<CommandMessageTest>();
#include "CommandMessageTest.moc"
