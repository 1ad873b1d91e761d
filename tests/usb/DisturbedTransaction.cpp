// SPDX-License-Identifier: MIT
#include "tests/usb/DisturbedTransaction.h"

#include "protocol/CommandIdentifiers.h"

#include <QTest>

using namespace nubo::simulator;

namespace {

// A time-out of libusb may end a little before its time.
constexpr qint64 EARLY_MS = 10;

}  // namespace

void DisturbedTransaction::initTestCase() {
    QCOMPARE(m_bench.start(), 0);
    QVERIFY(m_bench.ui.waitForOpened(1));
    m_controller = m_bench.ui.opened().first();
}

void DisturbedTransaction::cleanup() {
    m_bench.bus.clearFaults(m_camera);
    m_bench.ui.forgetArrivals();
}

void DisturbedTransaction::addRow(const QByteArray& name, const stDisturbedRequest& row) {
    QTest::newRow(name.constData()) << row;
}

void DisturbedTransaction::runRow() {
    QFETCH(const stDisturbedRequest, row);
    const VX_CMD undisturbed = m_bench.ui.ask(row.request, m_controller);
    const VX_CMD battery = m_bench.ui.ask(USB_REQ_NUBO_CMD_GET_BATTERY, m_controller);
    m_bench.ui.forgetArrivals();

    m_bench.bus.addFault(m_camera, row.fault);
    const qint64 before = m_bench.ui.now();
    const VX_CMD answer = m_bench.ui.ask(row.request, m_controller);
    const qint64 taken = m_bench.ui.now() - before;
    QVERIFY(m_bench.manager->canCommunication());
    if (row.answer == Answer::Whole) {
        QCOMPARE(answer, undisturbed);
    } else {
        const bool isHollow = row.answer == Answer::Hollow;
        QCOMPARE(outcomeOf(answer), isHollow ? outcomeOf(undisturbed) : row.failure);
        QCOMPARE(answer.keys(),
                 isHollow ? undisturbed.keys()
                          : (QStringList{Key::CMD, Key::PARAM1, Key::PARAM2, Key::PARAM3}));
    }
    QCOMPARE_GE(taken, row.leastMs - EARLY_MS);
    QCOMPARE_LT(taken, row.leastMs + SLACK_MS);

    m_bench.bus.clearFaults(m_camera);
    waitForAnotherId();
    QCOMPARE(m_bench.ui.ask(USB_REQ_NUBO_CMD_GET_BATTERY, m_controller), battery);
    // Answers come in the order of the requests: a second one to the first would be here by now.
    QCOMPARE(m_bench.ui.arrivals().size(), 2);
}
