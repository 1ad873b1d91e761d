// SPDX-License-Identifier: MIT
#include "protocol/CommandIdentifiers.h"
#include "protocol/RequestDispatcher.h"
#include "tests/catalogue/CataloguePackets.h"
#include "tests/catalogue/RouteMessages.h"
#include "tests/support/FakeCameraAccess.h"
#include "tests/support/TestSubject.h"

#include <QDateTime>
#include <QSize>
#include <QTest>
#include <QtEndian>

/// Arguments as pages really hand them over: of a neighbouring type, too few, too many, of a wrong
/// type. A request always goes out; what is missing counts as 0, off, empty or now.
class RouteArgumentsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void argumentsAreConverted_data();
    void argumentsAreConverted();
    void whatIsMissingCountsAsNothing_data();
    void whatIsMissingCountsAsNothing();
    void aTimeThatIsMissingIsNow_data();
    void aTimeThatIsMissingIsNow();
    void otherKeysOfARequestComeBack();

private:
    void compareRequest(const QUuid& request, const QVariantList& arguments,
                        const QByteArray& packet);

    QObject m_page;
};

void RouteArgumentsTest::compareRequest(const QUuid& request, const QVariantList& arguments,
                                        const QByteArray& packet) {
    FakeCameraAccess camera({writes(packet), reads(plainAnswer())});
    dispatchRequest(requestMessage(request, arguments, &m_page, camera.camera()), camera);
    QCOMPARE(camera.port().complaint(), QString());
    QCOMPARE(camera.messages(), QList<VX_CMD>{resultMessage(request, camera.camera(), 0)});
}

void RouteArgumentsTest::argumentsAreConverted_data() {
    QTest::addColumn<QUuid>("request");
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<QByteArray>("packet");
    const auto row = [](const char* name, const QUuid& request, const QVariantList& arguments,
                        const QByteArray& packet) {
        QTest::newRow(name) << request << arguments << packet;
    };
    row("int for a number", USB_NUBO_CMD_SET_AUTO_POWEROFF, {0}, plainRequest("3858"));
    row("another int", USB_NUBO_CMD_SET_IMAGE_QUARITY, {4}, plainRequest("4958", "04000000"));
    row("negative int", USB_NUBO_CMD_SET_TIMEZONE, {-1}, plainRequest("3258", "ffffffff"));
    row("text for a number", USB_NUBO_CMD_SET_RTSP_PORT, {QStringLiteral("554")},
        plainRequest("4358", "2a020000"));
    row("long number", USB_NUBO_CMD_SET_REC_FRAMERATE, {qint64{30}},
        plainRequest("1358", "1e000000"));
    row("number for a switch", USB_NUBO_CMD_SET_LED_START, {1U}, plainRequest("3358", "02000000"));
    row("0 for a switch", USB_NUBO_CMD_SET_LED_START, {0}, plainRequest("3358", "01000000"));
    row("int for the log format", USB_NUBO_CMD_SET_GPSSETTING, {true, false, true, 2},
        plainRequest("2158", "02000000 01000000 02000000 02000000"));
    row("bytes for a text", USB_NUBO_CMD_SET_CAMERANAME, {QByteArray("cam")},
        textRequest("1f000000", "3058", "03000000 63616d"));
    row("more arguments than are read", USB_NUBO_CMD_SET_WIFI_MODE, {1U, 2U, 3U},
        plainRequest("0358", "01000000"));
    row("size outside the list", USB_NUBO_CMD_SET_REC_IMAGESIZE, {QSize(1280, 1080)},
        plainRequest("1258"));
    row("no address", USB_NUBO_CMD_SET_INFRA_ADDRESS, {QStringLiteral("somewhere")},
        plainRequest("0958"));
    row("address that spills over", USB_NUBO_CMD_SET_INFRA_ADDRESS, {QStringLiteral("10.0.0.256")},
        plainRequest("0958", "0001000a"));
}

void RouteArgumentsTest::argumentsAreConverted() {
    QFETCH(QUuid, request);
    QFETCH(QVariantList, arguments);
    QFETCH(QByteArray, packet);
    compareRequest(request, arguments, packet);
}

void RouteArgumentsTest::whatIsMissingCountsAsNothing_data() {
    QTest::addColumn<QUuid>("request");
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<QByteArray>("packet");
    const auto row = [](const char* name, const QUuid& request, const QByteArray& packet) {
        QTest::addRow("%s: missing", name) << request << QVariantList{} << packet;
        QTest::addRow("%s: of a wrong type", name)
            << request << QVariantList{QVariant::fromValue(QUuid())} << packet;
    };
    row("number", USB_NUBO_CMD_SET_WIFI_MODE, plainRequest("0358"));
    row("switch", USB_NUBO_CMD_CTRL_REC, plainRequest("0568", "01000000"));
    row("size", USB_NUBO_CMD_SET_LIVE_IMAGESIZE, plainRequest("1458"));
    row("address", USB_NUBO_CMD_SET_PRIMARY_DNS, plainRequest("4558"));
    row("interval", USB_NUBO_CMD_SET_INTERVAL_INFO, plainRequest("1158", "01000000"));
    row("GPS", USB_NUBO_CMD_SET_GPSSETTING,
        plainRequest("2158", "01000000 01000000 01000000 00000000"));
    row("radio test", USB_NUBO_CMD_RF_TESTMODE, plainRequest("0a68"));
    QTest::newRow("text: missing")
        << USB_NUBO_CMD_SET_INFRA_KEY << QVariantList{} << plainRequest("3c58");
    QTest::newRow("country: missing")
        << USB_NUBO_CMD_SET_COUNTRY << QVariantList{} << plainRequest("0748");
    QTest::newRow("network: key missing")
        << USB_NUBO_CMD_CONNECT_WIFI << QVariantList{QStringLiteral("net")}
        << QByteArray("0000 <id> 1b000000 0768 0000 03000000 6e6574 00000000 00000000");
}

void RouteArgumentsTest::whatIsMissingCountsAsNothing() {
    QFETCH(QUuid, request);
    QFETCH(QVariantList, arguments);
    QFETCH(QByteArray, packet);
    compareRequest(request, arguments, packet);
}

void RouteArgumentsTest::aTimeThatIsMissingIsNow_data() {
    QTest::addColumn<QVariantList>("arguments");
    QTest::newRow("missing") << QVariantList{};
    QTest::newRow("invalid") << QVariantList{QDateTime()};
    QTest::newRow("no such day") << QVariantList{QDateTime(QDate(2015, 2, 29), QTime(1, 2, 3))};
    QTest::newRow("of a wrong type") << QVariantList{QSize(1, 2)};
}

void RouteArgumentsTest::aTimeThatIsMissingIsNow() {
    QFETCH(QVariantList, arguments);
    // What goes out cannot be foretold, so it is refused here and looked at afterwards.
    FakeCameraAccess camera({writes("", 0xEF03)});
    const QDate before = QDate::currentDate();
    dispatchRequest(requestMessage(USB_NUBO_CMD_SET_TIME, arguments, &m_page, camera.camera()),
                    camera);
    const QDate after = QDate::currentDate();
    const QByteArray packet = camera.port().transfers().first().bytes;
    QCOMPARE(packet.size(), 32);
    const auto sent = qFromLittleEndian<quint32>(packet.constData() + 12);
    const QDate day(static_cast<int>(sent / 10000), static_cast<int>(sent / 100 % 100),
                    static_cast<int>(sent % 100));
    QVERIFY(before <= day && day <= after);
}

void RouteArgumentsTest::otherKeysOfARequestComeBack() {
    FakeCameraAccess camera({writes(plainRequest("0350")), reads(plainAnswer("02000000"))});
    VX_CMD request = requestMessage(USB_REQ_NUBO_CMD_GET_WIFIMODE, {QStringLiteral("old"), 7},
                                    &m_page, camera.camera());
    request.insert(QStringLiteral("Mine"), 8);
    dispatchRequest(request, camera);
    QCOMPARE(camera.port().complaint(), QString());
    VX_CMD expected =
        requestMessage(USB_RES_NUBO_CMD_GET_WIFIMODE, {2U, 7}, &m_page, camera.camera());
    expected.insert(QStringLiteral("Mine"), 8);
    QCOMPARE(camera.messages().size(), 1);
    QCOMPARE(typedText(camera.messages().first()), typedText(expected));
}

const TestSubject registered = subjectWithoutScreen<RouteArgumentsTest>();
#include "RouteArgumentsTest.moc"
