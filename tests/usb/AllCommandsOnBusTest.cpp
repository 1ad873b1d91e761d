// SPDX-License-Identifier: MIT
#include "protocol/CommandRoutes.h"
#include "protocol/NuboRecords.h"
#include "tests/catalogue/CataloguePackets.h"
#include "tests/catalogue/RouteMessages.h"
#include "tests/catalogue/RouteRows.h"
#include "tests/support/TestSubject.h"
#include "tests/usb/ScriptedCamera.h"

#include <QCoreApplication>
#include <QTest>

#include <algorithm>

using namespace nubo::simulator;

namespace {

constexpr unsigned short LOWEST_CAMERA_CODE = 0xFFF5;
constexpr unsigned short HIGHEST_CAMERA_CODE = 0xFFFF;
constexpr int SETTING_COUNT = 41;  // what can be both set and read

const QList<stRouteRow>& rows() {
    static const QList<stRouteRow> rows = routeRows();
    return rows;
}

/// The request that reads what the request with this code sets; null when it sets nothing.
const stRoute* readerOf(unsigned short setCode) {
    // The adjustment flag stands alone: its set code is the lower one.
    const int getCode = setCode == 0x0041 ? 0x0042 : setCode & ~0x0800;
    if (getCode == setCode) {
        return nullptr;
    }
    const auto found = std::ranges::find(commandRoutes(), getCode, &stRoute::code);
    return found == commandRoutes().end() ? nullptr : &*found;
}

/// The keys of @p message with the types of their values, its identifier with the value itself.
QStringList shapeOf(const VX_CMD& message) {
    QStringList shape{getUsbCommand(getCommand(message))};
    for (auto entry = message.cbegin(); entry != message.cend(); ++entry) {
        shape.append(entry.key() + QStringLiteral(": ") +
                     QString::fromLatin1(entry.value().typeName()));
    }
    return shape;
}

/// Whether @p read is what was @p set, on a clock that goes on.
bool isSame(const QVariant& set, const QVariant& read) {
    if (set.typeId() != QMetaType::QDateTime) {
        return set == read;
    }
    constexpr qint64 LONGEST_S = 3600;  // far beyond any test's run, far below a day
    const qint64 passed = set.toDateTime().secsTo(read.toDateTime());
    return passed >= 0 && passed <= LONGEST_S;
}

/// Whether the values of @p answer are those that were @p set.
bool holds(const VX_CMD& answer, const QVariantList& set) {
    for (qsizetype i = 0; i < set.size(); ++i) {
        if (!isSame(set[i], answer.value(Key::VALUES[i]))) {
            return false;
        }
    }
    return true;
}

/// A camera whose settings are none of those that the rows make.
CameraState stateOfOtherCamera() {
    CameraState state;
    state.settings.wifiMode = 2;
    state.settings.streamAuthorization = ON;
    state.settings.infraUseDhcp = OFF;
    state.settings.wifiOn = OFF;
    state.settings.recordingSize = 3;
    state.settings.liveSize = 2;
    state.settings.timeZone = 1;
    state.settings.ledStart = OFF;
    state.identity.createDay = "2013/01/02 03:04:05";
    const auto bytes = std::make_shared<const ByteVector>(ByteVector{'R', 'I', 'F', 'F'});
    state.data = {bytes, bytes, bytes};
    return state;
}

}  // namespace

/// Every request of a page on its whole way: message in, transfers of libusb, one message out.
class AllCommandsOnBusTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_bench.ui.forgetArrivals(); }

    void theCameraIsAskedAndItsAnswerComesBack_data() { addRoutes(); }
    void theCameraIsAskedAndItsAnswerComesBack();
    void everyErrorOfTheCameraComesBackAsAPlainResult_data() { addRoutes(); }
    void everyErrorOfTheCameraComesBackAsAPlainResult();
    void aCameraThatIsNotThereFailsWithoutATransfer_data() { addRoutes(); }
    void aCameraThatIsNotThereFailsWithoutATransfer();
    void theSimulatedCameraUnderstands_data() { addRoutes(); }
    void theSimulatedCameraUnderstands();
    void whatIsSetIsReadBack_data();
    void whatIsSetIsReadBack();
    void everyScanStartsWithAnEmptyList();

private:
    static void addRoutes();
    [[nodiscard]] VX_CMD requestOf(const stRouteRow& row, void* controller) {
        return requestMessage(row.request, row.arguments, &m_page, controller);
    }
    [[nodiscard]] VX_CMD answerOf(const stRouteRow& row) {
        return row.answer.isNull() ? resultMessage(row.request, m_controller, 0)
                                   : requestMessage(row.answer, row.values, &m_page, m_controller);
    }
    void compareAnswer(const VX_CMD& answer, const VX_CMD& expected);

    QObject m_page;
    ManagerBench m_bench;
    std::shared_ptr<ScriptedCamera> m_camera = std::make_shared<ScriptedCamera>();
    DeviceId m_device = m_bench.bus.plug(m_camera);
    ClUsbController* m_controller = nullptr;
};

void AllCommandsOnBusTest::initTestCase() {
    QCOMPARE(m_bench.start(), 0);
    QVERIFY(m_bench.ui.waitForOpened(1));
    m_controller = m_bench.ui.opened().first();
}

void AllCommandsOnBusTest::addRoutes() {
    QTest::addColumn<stRouteRow>("row");
    for (const stRoute& route : commandRoutes()) {
        const auto row = std::ranges::find(rows(), route.request, &stRouteRow::request);
        QVERIFY2(row != rows().end(), qPrintable(getUsbCommand(route.request)));
        QTest::addRow("%04X %s", route.code, qPrintable(getUsbCommand(route.request))) << *row;
    }
}

/// Just @p expected came, with values of just its types.
void AllCommandsOnBusTest::compareAnswer(const VX_CMD& answer, const VX_CMD& expected) {
    QCOMPARE(typedText(answer), typedText(expected));
    QCOMPARE(answer, expected);
    // Whatever the worker has sent until now has its place in this thread's queue.
    m_bench.runOnWorker([] {});
    QCoreApplication::processEvents();
    QCOMPARE(m_bench.ui.arrivals().size(), 1);
    QVERIFY(m_bench.manager->canCommunication());
    m_bench.ui.forgetArrivals();
}

void AllCommandsOnBusTest::theCameraIsAskedAndItsAnswerComesBack() {
    QFETCH(const stRouteRow, row);
    m_camera->follow(row.script);
    const std::uint64_t before = m_bench.bus.log(m_device).transferCount;
    compareAnswer(m_bench.ui.ask(requestOf(row, m_controller)), answerOf(row));
    QCOMPARE(m_camera->complaint(), QString());
    QCOMPARE(static_cast<qsizetype>(m_bench.bus.log(m_device).transferCount - before),
             row.script.size());
}

void AllCommandsOnBusTest::everyErrorOfTheCameraComesBackAsAPlainResult() {
    QFETCH(const stRouteRow, row);
    for (int code = LOWEST_CAMERA_CODE; code <= HIGHEST_CAMERA_CODE; ++code) {
        const auto result = static_cast<unsigned short>(code);
        m_camera->follow(openingOf(row.script) + Script{reads(refusal(result))});
        compareAnswer(m_bench.ui.ask(requestOf(row, m_controller)),
                      resultMessage(row.request, m_controller, result));
        QCOMPARE(m_camera->complaint(), QString());
    }
}

void AllCommandsOnBusTest::aCameraThatIsNotThereFailsWithoutATransfer() {
    QFETCH(const stRouteRow, row);
    const bool isMultiPacket = row.request == USB_REQ_NUBO_CMD_GET_WIFI_INFO ||
                               row.request == USB_REQ_NUBO_CMD_GET_ACCESSPOINT_LIST;
    const unsigned short result = isMultiPacket ? 0xEF01 : 0xEF00;
    const std::uint64_t before = m_bench.bus.log(m_device).transferCount;
    for (void* const controller : {static_cast<void*>(nullptr), static_cast<void*>(&m_page)}) {
        compareAnswer(m_bench.ui.ask(requestOf(row, controller)),
                      resultMessage(row.request, controller, result));
    }
    QCOMPARE(m_bench.bus.log(m_device).transferCount, before);
}

void AllCommandsOnBusTest::theSimulatedCameraUnderstands() {
    QFETCH(const stRouteRow, row);
    m_camera->simulate(stateOfOtherCamera());
    const VX_CMD answer = m_bench.ui.ask(requestOf(row, m_controller));
    QCOMPARE(shapeOf(answer), shapeOf(answerOf(row)));
    if (row.answer.isNull()) {
        compareAnswer(answer, answerOf(row));
    }
}

void AllCommandsOnBusTest::whatIsSetIsReadBack_data() {
    QTest::addColumn<stRouteRow>("row");
    QTest::addColumn<QUuid>("reader");
    int count = 0;
    for (const stRoute& route : commandRoutes()) {
        if (const stRoute* const reader = readerOf(route.code)) {
            const auto row = std::ranges::find(rows(), route.request, &stRouteRow::request);
            QVERIFY2(row != rows().end(), qPrintable(getUsbCommand(route.request)));
            QTest::addRow("%04X %s", route.code, qPrintable(getUsbCommand(route.request)))
                << *row << reader->request;
            ++count;
        }
    }
    QCOMPARE(count, SETTING_COUNT);
}

void AllCommandsOnBusTest::whatIsSetIsReadBack() {
    QFETCH(const stRouteRow, row);
    QFETCH(const QUuid, reader);
    m_camera->simulate(stateOfOtherCamera());
    const VX_CMD question = requestMessage(reader, {}, &m_page, m_controller);
    QVERIFY(!holds(m_bench.ui.ask(question), row.arguments));
    m_bench.ui.forgetArrivals();
    compareAnswer(m_bench.ui.ask(requestOf(row, m_controller)), answerOf(row));
    QVERIFY(holds(m_bench.ui.ask(question), row.arguments));
}

void AllCommandsOnBusTest::everyScanStartsWithAnEmptyList() {
    CameraState state = stateOfOtherCamera();
    for (const std::size_t count : {std::size_t{3}, std::size_t{1}, std::size_t{0}}) {
        state.accessPoints.assign(count, {"Harbour", 6, 4, 72});
        m_camera->simulate(state);
        const AccesspointList found(static_cast<qsizetype>(count),
                                    {QStringLiteral("Harbour"), {}, 6, 4, 0, 72});
        const std::uint64_t before = m_bench.bus.log(m_device).transferCount;
        compareAnswer(m_bench.ui.ask(requestMessage(USB_REQ_NUBO_CMD_GET_ACCESSPOINT_LIST, {},
                                                    &m_page, m_controller)),
                      requestMessage(USB_RES_NUBO_CMD_GET_ACCESSPOINT_LIST,
                                     {QVariant::fromValue(found)}, &m_page, m_controller));
        // A command and its answer, and two packets for each.
        QCOMPARE(m_bench.bus.log(m_device).transferCount - before, 2 + 2 * count);
    }
}

const TestSubject registered = subjectWithoutScreen<AllCommandsOnBusTest>();
#include "AllCommandsOnBusTest.moc"
