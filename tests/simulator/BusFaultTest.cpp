// SPDX-License-Identifier: MIT
#include "simulator/Fault.h"
#include "simulator/VirtualUsbBus.h"
#include "tests/simulator/ScriptedDevice.h"
#include "tests/simulator/UsbHost.h"
#include "tests/support/TestSubject.h"

#include <QElapsedTimer>
#include <QTest>

#include <libusb.h>

#include <cerrno>
#include <chrono>
#include <set>

namespace nubo::simulator {

namespace {

using Bytes = ScriptedDevice::Bytes;
using Clearing = int (*)(libusb_device_handle*);

constexpr std::chrono::milliseconds PATIENCE{PATIENCE_MS};
constexpr unsigned SHORT_TIMEOUT = 50;

Bytes bytes(const QByteArray& hex) {
    const QByteArray raw = QByteArray::fromHex(hex);
    return {raw.begin(), raw.end()};
}

// Command 0x5037 and a plain answer to it, both of id 0x1234.
const QByteArray NO_PARAMETERS = "00000000 00000000 00000000 00000000 00000000";
const QByteArray COMMAND = "0000 3412 20000000 3750 0000 " + NO_PARAMETERS;
const QByteArray ANSWER = "0100 3412 20000000 0000 0000 " + NO_PARAMETERS;
const QByteArray DATA_HEAD = "0200 3412 10000000 04000000 01020304";

Fault onCommand(FaultKind kind, std::uint32_t argument = 0) {
    return {.kind = kind, .argument = argument, .unit = FaultUnit::Command};
}

}  // namespace

class BusFaultTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void transferEndsAsTheFaultSays_data();
    void transferEndsAsTheFaultSays();
    void goneDeviceCanBeReplugged();
    void packetIsRewritten_data();
    void packetIsRewritten();
    void packetIsPaddedToTheRoomOfTheHost();
    void emptyPacketComesAheadOfThePacket();
    void delayedTransferIsServedLater();
    void delayedTransferCanTimeOut();
    void nthTransfersAreStruckSoManyTimes();
    void faultStrikesForEverUntilCleared();
    void haltedEndpointStallsUntilItIsCleared_data();
    void haltedEndpointStallsUntilItIsCleared();
    void haltedEndpointIsFreeAfterPluggingIn();
    void rewriteDueOnAnOutTransferStrikesTheNextPacket();
    void commandFaultStrikesTheAnswer();
    void commandFaultCountsCommandsOnly();
    void lostCommandGetsNoAnswer();
    void dataHeadFaultWaitsForTheDataPhase();
    void faultOfAnAnswerEndsWithTheNextCommand();
    void faultOfNoTransfersNeverStrikes();
    void everyFaultHasANameOfItsOwn();

private:
    std::shared_ptr<ScriptedDevice> m_device;
    std::unique_ptr<VirtualUsbBus> m_bus;
    DeviceId m_id;
    LibusbContext m_context;
    LibusbHandle m_handle;
};

void BusFaultTest::init() {
    m_device = std::make_shared<ScriptedDevice>();
    m_bus = std::make_unique<VirtualUsbBus>();
    m_id = m_bus->plug(m_device);
    m_context = newLibusbContext();
    m_handle.reset(
        libusb_open_device_with_vid_pid(m_context.get(), NUBO_USB_VENDOR_ID, NUBO_USB_PRODUCT_ID));
    QVERIFY(m_handle);
    QCOMPARE(libusb_claim_interface(m_handle.get(), 0), 0);
}

void BusFaultTest::cleanup() {
    m_handle.reset();
    m_context.reset();
    m_bus.reset();
}

void BusFaultTest::transferEndsAsTheFaultSays_data() {
    QTest::addColumn<FaultKind>("kind");
    QTest::addColumn<bool>("in");
    QTest::addColumn<int>("code");
    struct Row {
        FaultKind kind;
        int code;
    };
    for (const Row& row : {
             Row{FaultKind::Timeout, LIBUSB_ERROR_TIMEOUT},
             Row{FaultKind::DeviceGone, LIBUSB_ERROR_NO_DEVICE},
             Row{FaultKind::Busy, LIBUSB_ERROR_IO},
             Row{FaultKind::Stall, LIBUSB_ERROR_PIPE},
             Row{FaultKind::Babble, LIBUSB_ERROR_OVERFLOW},
             Row{FaultKind::UnplugBefore, LIBUSB_ERROR_NO_DEVICE},
             Row{FaultKind::LinkError, LIBUSB_ERROR_IO},
         }) {
        const std::string_view name = faultInfo(row.kind).name;
        QTest::addRow("%s, IN", name.data()) << row.kind << true << row.code;
        QTest::addRow("%s, OUT", name.data()) << row.kind << false << row.code;
    }
}

void BusFaultTest::transferEndsAsTheFaultSays() {
    QFETCH(FaultKind, kind);
    QFETCH(bool, in);
    QFETCH(int, code);
    m_device->answerWith(bytes(ANSWER));
    m_bus->addFault(m_id, {.kind = kind});
    const unsigned timeout = kind == FaultKind::Timeout ? SHORT_TIMEOUT : unsigned{PATIENCE_MS};
    const int struck =
        in ? bulkIn(m_handle, 1024, timeout).code : bulkOut(m_handle, bytes(COMMAND), timeout);
    QCOMPARE(struck, code);
    QVERIFY(m_device->received().empty());
    const bool leaves = code == LIBUSB_ERROR_NO_DEVICE || kind == FaultKind::LinkError;
    QVERIFY(m_bus->waitForPlugged(m_id, !leaves, PATIENCE));
    if (!leaves) {
        QCOMPARE(bulkIn(m_handle, 1024).bytes, bytes(ANSWER));
    }
}

void BusFaultTest::goneDeviceCanBeReplugged() {
    m_bus->addFault(m_id, {.kind = FaultKind::DeviceGone});
    QCOMPARE(bulkIn(m_handle, 1024).code, LIBUSB_ERROR_NO_DEVICE);
    QCOMPARE(m_bus->log(m_id).transfers.back().status, -ESHUTDOWN);
    m_handle.reset();
    QVERIFY(m_bus->waitForPlugged(m_id, false, PATIENCE));
    QVERIFY(m_bus->replug(m_id));
    const auto reopen = [&] {
        m_handle.reset(libusb_open_device_with_vid_pid(m_context.get(), NUBO_USB_VENDOR_ID,
                                                       NUBO_USB_PRODUCT_ID));
        return m_handle != nullptr;
    };
    TRY_VERIFY(reopen());
    QCOMPARE(libusb_claim_interface(m_handle.get(), 0), 0);
    QCOMPARE(bulkOut(m_handle, bytes(COMMAND)), 0);
}

void BusFaultTest::packetIsRewritten_data() {
    QTest::addColumn<FaultKind>("kind");
    QTest::addColumn<std::uint32_t>("argument");
    QTest::addColumn<QByteArray>("sent");
    QTest::addColumn<QByteArray>("arrived");
    const QByteArray empty;
    QTest::newRow("short packet") << FaultKind::ShortPacket << 12U << ANSWER
                                  << QByteArray("0100 3412 20000000 0000 0000");
    QTest::newRow("short packet that is not longer")
        << FaultKind::ShortPacket << 512U << ANSWER << ANSWER;
    QTest::newRow("nothing left") << FaultKind::ShortPacket << 0U << ANSWER << empty;
    QTest::newRow("empty packet") << FaultKind::EmptyPacket << 0U << ANSWER << empty;
    QTest::newRow("foreign id") << FaultKind::ForeignId << 0U << ANSWER
                                << "0100 cbed 20000000 0000 0000 " + NO_PARAMETERS;
    QTest::newRow("camera error") << FaultKind::CameraError << 0xFFF9U << ANSWER
                                  << "0100 3412 20000000 f9ff 0000 " + NO_PARAMETERS;
    QTest::newRow("wrong data head") << FaultKind::WrongDataHead << 0U << DATA_HEAD
                                     << QByteArray("0200 3412 efffffff 04000000 01020304");
    QTest::newRow("packet without an id")
        << FaultKind::ForeignId << 0U << QByteArray("010034") << QByteArray("010034");
    QTest::newRow("packet without a code")
        << FaultKind::CameraError << 0xFFF9U << QByteArray("010034") << QByteArray("010034");
}

void BusFaultTest::packetIsRewritten() {
    QFETCH(FaultKind, kind);
    QFETCH(std::uint32_t, argument);
    QFETCH(QByteArray, sent);
    QFETCH(QByteArray, arrived);
    m_device->answerWith(bytes(sent));
    m_bus->addFault(m_id, {.kind = kind, .argument = argument});
    const BulkResult result = bulkIn(m_handle, 1024);
    QCOMPARE(result.code, 0);
    QCOMPARE(result.bytes, bytes(arrived));
}

void BusFaultTest::packetIsPaddedToTheRoomOfTheHost() {
    m_device->answerWith(bytes(ANSWER));
    m_bus->addFault(m_id, {.kind = FaultKind::OverlongPacket});
    const BulkResult result = bulkIn(m_handle, 1024);
    QCOMPARE(result.code, 0);
    QCOMPARE(result.bytes.size(), 1024U);
    QCOMPARE(Bytes(result.bytes.begin(), result.bytes.begin() + 32), bytes(ANSWER));
    QCOMPARE(result.bytes.back(), 0xA5);
}

void BusFaultTest::emptyPacketComesAheadOfThePacket() {
    m_device->answerWith(bytes(ANSWER));
    m_bus->addFault(m_id, {.kind = FaultKind::EmptyPacket});
    QCOMPARE(bulkIn(m_handle, 1024).bytes, Bytes());
    QCOMPARE(bulkIn(m_handle, 1024).bytes, bytes(ANSWER));
}

void BusFaultTest::delayedTransferIsServedLater() {
    m_bus->addFault(m_id, {.kind = FaultKind::Delay, .argument = 60});
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(bulkOut(m_handle, bytes(COMMAND)), 0);
    QVERIFY2(timer.elapsed() >= 60, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(m_device->received().size(), 1U);
}

void BusFaultTest::delayedTransferCanTimeOut() {
    m_device->answerWith(bytes(ANSWER));
    m_bus->addFault(m_id, {.kind = FaultKind::Delay, .argument = 60000});
    QCOMPARE(bulkIn(m_handle, 1024, SHORT_TIMEOUT).code, LIBUSB_ERROR_TIMEOUT);
    QCOMPARE(bulkIn(m_handle, 1024).bytes, bytes(ANSWER));
}

void BusFaultTest::nthTransfersAreStruckSoManyTimes() {
    m_bus->addFault(m_id, {.kind = FaultKind::Stall, .nth = 3, .count = 2});
    for (const int code : {0, 0, int{LIBUSB_ERROR_PIPE}, int{LIBUSB_ERROR_PIPE}, 0}) {
        QCOMPARE(bulkOut(m_handle, bytes(COMMAND)), code);
    }
    QCOMPARE(m_device->received().size(), 3U);
}

void BusFaultTest::faultStrikesForEverUntilCleared() {
    m_bus->addFault(m_id, {.kind = FaultKind::Stall, .nth = 2, .count = Fault::FOREVER});
    QCOMPARE(bulkOut(m_handle, bytes(COMMAND)), 0);
    for (int i = 0; i < 20; ++i) {
        QCOMPARE(bulkOut(m_handle, bytes(COMMAND)), LIBUSB_ERROR_PIPE);
    }
    m_bus->clearFaults(m_id);
    QCOMPARE(bulkOut(m_handle, bytes(COMMAND)), 0);
}

void BusFaultTest::haltedEndpointStallsUntilItIsCleared_data() {
    QTest::addColumn<Clearing>("clear");
    QTest::newRow("cleared") << Clearing{
        [](libusb_device_handle* handle) { return libusb_clear_halt(handle, OUT_ENDPOINT); }};
    QTest::newRow("interface set anew") << Clearing{[](libusb_device_handle* handle) {
        return libusb_set_interface_alt_setting(handle, 0, 0);
    }};
}

void BusFaultTest::haltedEndpointStallsUntilItIsCleared() {
    QFETCH(const Clearing, clear);
    m_bus->addFault(m_id, {.kind = FaultKind::Halt});
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(bulkOut(m_handle, bytes(COMMAND)), LIBUSB_ERROR_PIPE);
    }
    m_device->answerWith(bytes(ANSWER));
    QCOMPARE(bulkIn(m_handle, 1024).bytes, bytes(ANSWER));
    QCOMPARE(libusb_clear_halt(m_handle.get(), IN_ENDPOINT), 0);
    QCOMPARE(bulkOut(m_handle, bytes(COMMAND)), LIBUSB_ERROR_PIPE);
    QCOMPARE(clear(m_handle.get()), 0);
    QCOMPARE(bulkOut(m_handle, bytes(COMMAND)), 0);
    QCOMPARE(m_device->received().size(), 1U);
}

void BusFaultTest::haltedEndpointIsFreeAfterPluggingIn() {
    m_bus->addFault(m_id, {.kind = FaultKind::Halt});
    QCOMPARE(bulkOut(m_handle, bytes(COMMAND)), LIBUSB_ERROR_PIPE);
    m_bus->unplug(m_id);
    QVERIFY(m_bus->replug(m_id));
    const LibusbContext context = newLibusbContext();
    const LibusbHandle handle(
        libusb_open_device_with_vid_pid(context.get(), NUBO_USB_VENDOR_ID, NUBO_USB_PRODUCT_ID));
    QVERIFY(handle);
    QCOMPARE(libusb_claim_interface(handle.get(), 0), 0);
    QCOMPARE(bulkOut(handle, bytes(COMMAND)), 0);
}

void BusFaultTest::rewriteDueOnAnOutTransferStrikesTheNextPacket() {
    m_bus->addFault(m_id, {.kind = FaultKind::ShortPacket, .argument = 4});
    QCOMPARE(bulkOut(m_handle, bytes("02000000")), 0);
    m_device->answerWith(bytes(ANSWER));
    m_device->answerWith(bytes(ANSWER));
    QCOMPARE(bulkIn(m_handle, 1024).bytes, bytes("01003412"));
    QCOMPARE(bulkIn(m_handle, 1024).bytes, bytes(ANSWER));
}

void BusFaultTest::commandFaultStrikesTheAnswer() {
    m_bus->addFault(m_id, onCommand(FaultKind::Stall));
    m_device->answerWith(bytes(ANSWER));
    QCOMPARE(bulkOut(m_handle, bytes(COMMAND)), 0);
    QCOMPARE(bulkIn(m_handle, 1024).code, LIBUSB_ERROR_PIPE);
    QCOMPARE(bulkIn(m_handle, 1024).bytes, bytes(ANSWER));
}

void BusFaultTest::commandFaultCountsCommandsOnly() {
    Fault fault = onCommand(FaultKind::CameraError, 0xFFF6);
    fault.nth = 2;
    m_bus->addFault(m_id, fault);
    for (const char* const code : {"0000", "f6ff", "0000"}) {
        QCOMPARE(bulkOut(m_handle, bytes(COMMAND)), 0);
        QCOMPARE(bulkOut(m_handle, bytes(DATA_HEAD)), 0);
        m_device->answerWith(bytes(ANSWER));
        const QByteArray expected = QByteArray("0100 3412 20000000 ") + code + "0000";
        QCOMPARE(bulkIn(m_handle, 1024).bytes, bytes(expected + NO_PARAMETERS));
    }
    QCOMPARE(m_bus->log(m_id).commandCount, 3U);
}

void BusFaultTest::lostCommandGetsNoAnswer() {
    m_bus->addFault(m_id, onCommand(FaultKind::Timeout));
    QCOMPARE(bulkOut(m_handle, bytes(COMMAND)), 0);
    QVERIFY(m_device->received().empty());
    QCOMPARE(bulkIn(m_handle, 1024, SHORT_TIMEOUT).code, LIBUSB_ERROR_TIMEOUT);
    QCOMPARE(bulkOut(m_handle, bytes(COMMAND)), 0);
    QCOMPARE(m_device->received().size(), 1U);
}

void BusFaultTest::dataHeadFaultWaitsForTheDataPhase() {
    m_bus->addFault(m_id, onCommand(FaultKind::WrongDataHead));
    QCOMPARE(bulkOut(m_handle, bytes(COMMAND)), 0);
    m_device->answerWith(bytes(ANSWER));
    m_device->answerWith(bytes(DATA_HEAD));
    QCOMPARE(bulkIn(m_handle, 1024).bytes, bytes(ANSWER));
    QCOMPARE(bulkIn(m_handle, 1024).bytes, bytes("0200 3412 efffffff 04000000 01020304"));
}

void BusFaultTest::faultOfAnAnswerEndsWithTheNextCommand() {
    m_bus->addFault(m_id, onCommand(FaultKind::ForeignId));
    QCOMPARE(bulkOut(m_handle, bytes(COMMAND)), 0);
    QCOMPARE(bulkOut(m_handle, bytes(COMMAND)), 0);
    m_device->answerWith(bytes(ANSWER));
    QCOMPARE(bulkIn(m_handle, 1024).bytes, bytes(ANSWER));
}

void BusFaultTest::faultOfNoTransfersNeverStrikes() {
    m_bus->addFault(m_id, {.kind = FaultKind::Stall, .count = 0});
    QCOMPARE(bulkOut(m_handle, bytes(COMMAND)), 0);
}

void BusFaultTest::everyFaultHasANameOfItsOwn() {
    std::set<std::string_view> names;
    for (const FaultInfo& info : faultTable()) {
        QVERIFY(names.insert(info.name).second);
        QCOMPARE(faultByName(info.name), std::optional(info.kind));
        QCOMPARE(&faultInfo(info.kind), &info);
    }
    QCOMPARE(faultByName("no-such-fault"), std::nullopt);
}

}  // namespace nubo::simulator

const TestSubject registered = subjectWithoutScreen<nubo::simulator::BusFaultTest>();
#include "BusFaultTest.moc"
