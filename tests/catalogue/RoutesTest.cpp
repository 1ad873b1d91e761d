// SPDX-License-Identifier: MIT
#include "protocol/CommandIdentifiers.h"
#include "protocol/CommandRoutes.h"
#include "protocol/RequestDispatcher.h"
#include "tests/catalogue/CataloguePackets.h"
#include "tests/catalogue/RouteMessages.h"
#include "tests/catalogue/RouteRows.h"
#include "tests/support/FakeCameraAccess.h"
#include "tests/support/TestSubject.h"

#include <QTest>

/// Every request of a page on its way through the dispatcher: message in, packets on the wire, one
/// message out.
class RoutesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyRouteHasItsRow();
    void theCameraIsAskedAndItsAnswerComesBack_data();
    void theCameraIsAskedAndItsAnswerComesBack();
    void aRefusalComesBackAsAPlainResult_data();
    void aRefusalComesBackAsAPlainResult();
    void aFailedWriteComesBackAsAPlainResult_data();
    void aFailedWriteComesBackAsAPlainResult();
    void aDeadCameraFailsWithoutATransfer_data();
    void aDeadCameraFailsWithoutATransfer();

private:
    static void addRows();
    static void compareMessages(const FakeCameraAccess& camera, const VX_CMD& expected);

    QObject m_page;
};

void RoutesTest::addRows() {
    QTest::addColumn<stRouteRow>("row");
    for (const stRouteRow& row : routeRows()) {
        QTest::newRow(qPrintable(getUsbCommand(row.request))) << row;
    }
}

/// Just @p expected came, with values of just its types.
void RoutesTest::compareMessages(const FakeCameraAccess& camera, const VX_CMD& expected) {
    QCOMPARE(camera.port().complaint(), QString());
    QCOMPARE(camera.messages().size(), 1);
    const VX_CMD message = camera.messages().first();
    QCOMPARE(typedText(message), typedText(expected));
    QCOMPARE(message, expected);
    QVERIFY(camera.rawReads().isEmpty());
}

void RoutesTest::everyRouteHasItsRow() {
    QStringList known;
    for (const stRoute& route : commandRoutes()) {
        known.append(route.request.toString());
    }
    QStringList tested;
    for (const stRouteRow& row : routeRows()) {
        tested.append(row.request.toString());
    }
    known.sort();
    tested.sort();
    QCOMPARE(tested, known);
}

void RoutesTest::theCameraIsAskedAndItsAnswerComesBack_data() {
    addRows();
}

void RoutesTest::theCameraIsAskedAndItsAnswerComesBack() {
    QFETCH(stRouteRow, row);
    FakeCameraAccess camera(row.script);
    const VX_CMD request = requestMessage(row.request, row.arguments, &m_page, camera.camera());
    dispatchRequest(request, camera);

    if (row.answer.isNull()) {
        compareMessages(camera, resultMessage(row.request, camera.camera(), 0));
    } else {
        compareMessages(camera, requestMessage(row.answer, row.values, &m_page, camera.camera()));
    }
}

void RoutesTest::aRefusalComesBackAsAPlainResult_data() {
    addRows();
}

void RoutesTest::aRefusalComesBackAsAPlainResult() {
    QFETCH(stRouteRow, row);
    FakeCameraAccess camera(openingOf(row.script) + Script{reads(refusal(0xFFF9))});
    dispatchRequest(requestMessage(row.request, row.arguments, &m_page, camera.camera()), camera);
    compareMessages(camera, resultMessage(row.request, camera.camera(), 0xFFF9));
}

void RoutesTest::aFailedWriteComesBackAsAPlainResult_data() {
    addRows();
}

void RoutesTest::aFailedWriteComesBackAsAPlainResult() {
    QFETCH(stRouteRow, row);
    FakeCameraAccess camera({writes(row.script.first().packet, 0xEF03)});
    dispatchRequest(requestMessage(row.request, row.arguments, &m_page, camera.camera()), camera);
    compareMessages(camera, resultMessage(row.request, camera.camera(), 0xEF03));
}

void RoutesTest::aDeadCameraFailsWithoutATransfer_data() {
    addRows();
}

void RoutesTest::aDeadCameraFailsWithoutATransfer() {
    QFETCH(stRouteRow, row);
    FakeCameraAccess camera({});
    void* const unplugged = &m_page;
    dispatchRequest(requestMessage(row.request, row.arguments, &m_page, unplugged), camera);
    const bool isMultiPacket = row.request == USB_REQ_NUBO_CMD_GET_WIFI_INFO ||
                               row.request == USB_REQ_NUBO_CMD_GET_ACCESSPOINT_LIST;
    compareMessages(camera, resultMessage(row.request, unplugged, isMultiPacket ? 0xEF01 : 0xEF00));
}

const TestSubject registered = subjectWithoutScreen<RoutesTest>();
#include "RoutesTest.moc"
