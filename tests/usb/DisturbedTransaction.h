// SPDX-License-Identifier: MIT
#pragma once

#include "tests/usb/ManagerBench.h"

/// What the undisturbed answer has become.
enum class Answer {
    Whole,    ///< all values are there
    Hollow,   ///< the answer comes, but its values were lost on the way
    Failure,  ///< a plain result with a code says what went wrong
};
Q_DECLARE_METATYPE(Answer)

/// A request that meets a fault of the transfer, and how it is to end.
struct stDisturbedRequest {
    QUuid request;
    nubo::simulator::Fault fault;
    Answer answer = Answer::Whole;
    QByteArray failure = {};  ///< as outcomeOf() writes it, with Answer::Failure
    qint64 leastMs = 0;       ///< the time-outs that the transaction waits for
};
Q_DECLARE_METATYPE(stDisturbedRequest)

/// Runs requests through a manager on a camera whose transfers fail. After every failure the tool
/// is reported once, in time, and the camera answers the next request.
class DisturbedTransaction : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

protected:
    /// Adds the row of a test function with the column "row".
    static void addRow(const QByteArray& name, const stDisturbedRequest& row);
    /// Runs the row that is due.
    void runRow();

    ManagerBench m_bench;
    nubo::simulator::DeviceId m_camera = m_bench.plugCamera();
    ClUsbController* m_controller = nullptr;
};
