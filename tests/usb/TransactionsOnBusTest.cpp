// SPDX-License-Identifier: MIT
#include "simulator/Wire.h"
#include "tests/simulator/ScriptedDevice.h"
#include "tests/support/TestSubject.h"
#include "tests/usb/ManagerBench.h"
#include "tests/usb/Requests.h"

#include <QRegularExpression>
#include <QTest>

using namespace nubo::simulator;
using namespace std::chrono_literals;

namespace {

constexpr unsigned int CHARGE = 61;

/// A camera that says something else before each answer.
class ChattyCamera : public SteadyCamera {
public:
    explicit ChattyCamera(std::size_t strayCount) : m_strayCount(strayCount) {}

    void receive(std::span<const std::uint8_t> packet) override {
        const auto id = static_cast<std::uint16_t>(~readU16(packet, ID_OFFSET));
        m_strays.assign(m_strayCount, plainAnswer(id, CameraResult::Success, {9, 9, 9, 9, 9}));
        SteadyCamera::receive(packet);
    }
    std::optional<std::vector<std::uint8_t>> send() override {
        if (m_strays.empty()) {
            return SteadyCamera::send();
        }
        const auto stray = m_strays.back();
        m_strays.pop_back();
        return stray;
    }

private:
    std::size_t m_strayCount;
    std::vector<std::vector<std::uint8_t>> m_strays;
};

}  // namespace

/// The requests of the camera state page, from message to message, on cameras that behave.
class TransactionsOnBusTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_bench.ui.forgetArrivals(); }

    void everyRequestIsAnsweredOnce_data();
    void everyRequestIsAnsweredOnce();
    void valuesTravelFromTheCamera_data();
    void valuesTravelFromTheCamera();
    void aResultNamesItsRequest();
    void actionsChangeTheCamera();
    void answersComeInTheOrderOfTheRequests();
    void foreignPacketsArePassedOver_data() { everyRequestIsAnsweredOnce_data(); }
    void foreignPacketsArePassedOver();
    void anAnswerLongAfterItsRequestAndSoonAfterAForeignPacketArrives();
    void aRequestWithoutCommandIsLoggedOnceAndRefusedAtOnce_data();
    void aRequestWithoutCommandIsLoggedOnceAndRefusedAtOnce();
    void rawDataIsReadAndNothingIsWritten();
    void rawDataOfNobodyIsNotAnswered();
    void aRestartedCameraIsReportedGoneAndAnnouncedAgain();

private:
    ManagerBench m_bench;
    std::shared_ptr<SteadyCamera> m_state = std::make_shared<SteadyCamera>();
    std::shared_ptr<VirtualCamera> m_restartingState = std::make_shared<VirtualCamera>();
    DeviceId m_camera;
    std::map<unsigned int, ClUsbController*> m_controllers;  ///< by the charge of the battery
    ClUsbController* m_controller = nullptr;
    ClUsbController* m_chatty = nullptr;
    ClUsbController* m_restarting = nullptr;
};

void TransactionsOnBusTest::initTestCase() {
    QVERIFY(m_state->set("battery", std::to_string(CHARGE)));
    m_camera = m_bench.bus.plug(m_state);
    auto chatty = std::make_shared<ChattyCamera>(7);
    QVERIFY(chatty->set("battery", "62"));
    m_bench.bus.plug(chatty);
    QVERIFY(m_restartingState->set("battery", "63"));
    m_bench.bus.plug(m_restartingState, {.restartDelay = 100ms});
    QCOMPARE(m_bench.start(), 0);
    QVERIFY(m_bench.ui.waitForOpened(3));
    auto controllers = m_bench.controllersByCharge();
    m_controller = controllers[CHARGE];
    m_chatty = controllers[62];
    m_restarting = controllers[63];
    QVERIFY(m_controller != nullptr && m_chatty != nullptr && m_restarting != nullptr);
}

void TransactionsOnBusTest::everyRequestIsAnsweredOnce_data() {
    QTest::addColumn<QUuid>("request");
    QTest::addColumn<QByteArray>("outcome");
    QTest::addColumn<unsigned>("transfers");
    for (const auto& [name, request, transfers, success] : REQUESTS) {
        QTest::newRow(name) << request << QByteArray(success) << transfers;
    }
}

void TransactionsOnBusTest::everyRequestIsAnsweredOnce() {
    QFETCH(const QUuid, request);
    QFETCH(const unsigned, transfers);
    const std::uint64_t before = m_bench.bus.log(m_camera).transferCount;
    const VX_CMD answer = m_bench.ui.ask(request, m_controller);
    QTEST(outcomeOf(answer), "outcome");
    QCOMPARE(getController(answer), m_controller);
    QVERIFY(!answer.contains(Key::SENDER));
    QCOMPARE(m_bench.bus.log(m_camera).transferCount, before + transfers);
    QVERIFY(m_bench.manager->canCommunication());
    QVERIFY(!m_bench.ui.ask(USB_REQ_NUBO_CMD_GET_BATTERY, m_controller).isEmpty());
    QCOMPARE(m_bench.ui.arrivals().size(), 2);
}

void TransactionsOnBusTest::valuesTravelFromTheCamera_data() {
    QTest::addColumn<QUuid>("request");
    QTest::addColumn<QStringList>("values");
    QTest::newRow("battery") << USB_REQ_NUBO_CMD_GET_BATTERY
                             << QStringList{QStringLiteral("1"), QString::number(CHARGE)};
    // Sizes beyond 32 bits, in KiB.
    QTest::newRow("SD card") << USB_REQ_NUBO_CMD_GET_SDINFO
                             << QStringList{QStringLiteral("5000000001"),
                                            QStringLiteral("4294967296"), QStringLiteral("3")};
    QTest::newRow("GPS information") << USB_REQ_NUBO_CMD_GET_GPSINFO
                                     << QStringList{QStringLiteral("$GPGGA"), QStringLiteral("9")};
    QTest::newRow("Wi-Fi information")
        << USB_REQ_NUBO_CMD_GET_WIFI_INFO
        << QStringList{QStringLiteral("3"),  QStringLiteral("first"), QStringLiteral("second"),
                       QStringLiteral("11"), QStringLiteral("2"),     QStringLiteral("0"),
                       QStringLiteral("-5")};
}

void TransactionsOnBusTest::valuesTravelFromTheCamera() {
    CameraState state = m_state->state();
    state.sdCard.total = 5'000'000'001;
    state.sdCard.used = 4'294'967'296;
    state.settings.wifi = {3, "first", "second", 11, 2, -5};
    state.readings = {.gpsInfo = "$GPGGA", .gpsNumber = 9};
    m_state->setState(state);
    QFETCH(const QUuid, request);
    const VX_CMD answer = m_bench.ui.ask(request, m_controller);
    QStringList values;
    for (const QString& key : Key::VALUES) {
        if (answer.contains(key)) {
            values.append(answer.value(key).toString());
        }
    }
    QTEST(values, "values");
}

void TransactionsOnBusTest::aResultNamesItsRequest() {
    const VX_CMD answer = m_bench.ui.ask(USB_NUBO_CMD_FORMAT_SD, m_controller);
    QCOMPARE(answer.keys(), (QStringList{Key::CMD, Key::PARAM1, Key::PARAM2, Key::PARAM3}));
    QCOMPARE(answer.value(Key::PARAM1).typeId(), int{QMetaType::VoidStar});
    QCOMPARE(answer.value(Key::PARAM2).typeId(), int{QMetaType::QUuid});
    QCOMPARE(answer.value(Key::PARAM2).toUuid(), USB_NUBO_CMD_FORMAT_SD);
    QCOMPARE(answer.value(Key::PARAM3).typeId(), int{QMetaType::UShort});
}

void TransactionsOnBusTest::actionsChangeTheCamera() {
    QVERIFY(m_state->set("sd-used", "1000"));
    QVERIFY(m_state->set("wifi-channel", "13"));
    QCOMPARE(outcomeOf(m_bench.ui.ask(USB_NUBO_CMD_FORMAT_SD, m_controller)),
             "USB_NUBO_CMD_RESPONSE 0x0");
    QCOMPARE(m_state->get("sd-used"), "0");
    QCOMPARE(m_state->get("wifi-channel"), "13");
    QCOMPARE(outcomeOf(m_bench.ui.ask(USB_NUBO_CMD_INIT_SETTING, m_controller)),
             "USB_NUBO_CMD_RESPONSE 0x0");
    QCOMPARE(m_state->get("wifi-channel"), "6");
}

void TransactionsOnBusTest::answersComeInTheOrderOfTheRequests() {
    QList<QByteArray> expected;
    for (int round = 0; round < 3; ++round) {
        for (const auto& [name, request, transfers, success] : REQUESTS) {
            m_bench.ui.send(request, m_controller);
            expected.append(success);
        }
    }
    TRY_COMPARE(m_bench.ui.answers().size(), expected.size());
    QList<QByteArray> outcomes;
    for (const VX_CMD& answer : m_bench.ui.answers()) {
        outcomes.append(outcomeOf(answer));
    }
    QCOMPARE(outcomes, expected);
}

void TransactionsOnBusTest::foreignPacketsArePassedOver() {
    QFETCH(const QUuid, request);
    QTEST(outcomeOf(m_bench.ui.ask(request, m_chatty)), "outcome");
    QCOMPARE(m_bench.ui.ask(USB_REQ_NUBO_CMD_GET_BATTERY, m_chatty).value(Key::PARAM3), 62U);
}

void TransactionsOnBusTest::anAnswerLongAfterItsRequestAndSoonAfterAForeignPacketArrives() {
    const auto camera = std::make_shared<ChattyCamera>(2);
    QVERIFY(camera->set("battery", "64"));
    const DeviceId id = m_bench.bus.plug(camera);
    QVERIFY(m_bench.ui.waitForOpened(1));
    // One second of silence each, which makes three; the packets are read between them.
    for (const unsigned transfer : {3U, 4U, 6U}) {
        m_bench.bus.addFault(id, {.kind = FaultKind::Timeout, .nth = transfer});
    }
    m_bench.bus.addFault(id, {.kind = FaultKind::Delay, .argument = 150, .nth = 7});
    const qint64 before = m_bench.ui.now();
    const VX_CMD answer = m_bench.ui.ask(USB_REQ_NUBO_CMD_GET_BATTERY, m_bench.ui.opened().first());
    QCOMPARE(answer.value(Key::PARAM3), 64U);
    QCOMPARE_GE(m_bench.ui.now() - before, 3100);
    QVERIFY(m_bench.bus.unplug(id));
    QVERIFY(m_bench.ui.waitForClosed(1));
}

void TransactionsOnBusTest::aRequestWithoutCommandIsLoggedOnceAndRefusedAtOnce_data() {
    QTest::addColumn<QUuid>("request");
    QTest::newRow("nothing") << QUuid();
    QTest::newRow("unheard of") << QUuid(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11);
    QTest::newRow("an answer") << USB_RES_NUBO_CMD_GET_BATTERY;
    QTest::newRow("a message of the USB side") << USB_CMD_DEVICE_OPEN;
}

void TransactionsOnBusTest::aRequestWithoutCommandIsLoggedOnceAndRefusedAtOnce() {
    QFETCH(const QUuid, request);
    const std::uint64_t before = m_bench.bus.log(m_camera).transferCount;
    const QString warning = QStringLiteral("No command of the camera for ");
    QTest::ignoreMessage(QtWarningMsg, qPrintable(warning + getUsbCommand(request)));
    QTest::failOnWarning(QRegularExpression(warning));  // a second one
    const VX_CMD answer = m_bench.ui.ask(request, m_controller);
    QCOMPARE(outcomeOf(answer), "USB_CMD_ERROR 0xef01");
    QCOMPARE(answer.value(Key::PARAM2).toUuid(), request);
    QCOMPARE(m_bench.bus.log(m_camera).transferCount, before);
}

void TransactionsOnBusTest::rawDataIsReadAndNothingIsWritten() {
    auto device = std::make_shared<ScriptedDevice>();
    const DeviceId id = m_bench.bus.plug(device);
    QVERIFY(m_bench.ui.waitForOpened(1));
    ClUsbController* const controller = m_bench.ui.opened().first();
    m_bench.ui.forgetArrivals();

    device->answerWith({'r', 'a', 'w'});
    const VX_CMD notice = m_bench.ui.ask(USB_CMD_SEND_DATA, controller);
    QCOMPARE(getCommand(notice), USB_CMD_NOTIFY_RECEIVE_DATA);
    QCOMPARE(notice.keys(), (QStringList{Key::CMD, Key::PARAM1, Key::PARAM2}));
    QCOMPARE(getController(notice), controller);
    QCOMPARE(notice.value(Key::PARAM2), QVariant(QByteArray("raw")));
    // A read in vain is reported as well.
    QCOMPARE(m_bench.ui.ask(USB_CMD_SEND_DATA, controller).value(Key::PARAM2),
             QVariant(QByteArray()));
    QVERIFY(device->received().empty());

    m_bench.bus.addFault(id, {.kind = FaultKind::DeviceGone});
    m_bench.ui.forgetArrivals();
    m_bench.ui.send(USB_CMD_SEND_DATA, controller);
    QVERIFY(m_bench.ui.waitForClosed(1));
    QCOMPARE(outcomeOf(m_bench.ui.ask(USB_REQ_NUBO_CMD_GET_BATTERY, controller)),
             "USB_CMD_ERROR 0xef00");
    QCOMPARE(m_bench.ui.arrivals().size(), 2);
}

void TransactionsOnBusTest::rawDataOfNobodyIsNotAnswered() {
    m_bench.ui.send(USB_CMD_SEND_DATA, nullptr);
    QVERIFY(!m_bench.ui.ask(USB_REQ_NUBO_CMD_GET_BATTERY, m_controller).isEmpty());
    QCOMPARE(m_bench.ui.arrivals().size(), 1);
}

void TransactionsOnBusTest::aRestartedCameraIsReportedGoneAndAnnouncedAgain() {
    QCOMPARE(outcomeOf(m_bench.ui.ask(USB_NUBO_CMD_RESTART, m_restarting)),
             "USB_NUBO_CMD_RESPONSE 0x0");
    QVERIFY(m_bench.ui.waitForClosed(1));
    QCOMPARE(m_bench.ui.closed(), QList<ClUsbController*>{m_restarting});
    QVERIFY(m_bench.ui.waitForOpened(1));
    QCOMPARE(m_bench.ui.ask(USB_REQ_NUBO_CMD_GET_BATTERY, m_bench.ui.opened().first())
                 .value(Key::PARAM3),
             63U);
    QCOMPARE(m_bench.ui.arrivals().size(), 4);
}

const TestSubject registered = subjectWithoutScreen<TransactionsOnBusTest>();
#include "TransactionsOnBusTest.moc"
