// SPDX-License-Identifier: MIT
#include "tests/cli/CliBench.h"
#include "tests/support/TestSubject.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

using namespace nubo::simulator;
using namespace Qt::StringLiterals;

/// Values whose writing went wrong: what people and programs are told of them.
class LostAnswersTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aValueWhoseAnswerIsLostIsLookedUp();
    void aValueThatNobodyKnowsOfIsTold();
    void aShortAnswerIsNoValue();
    void aLateAnswerIsNotTakenForTheNext();

private:
    /// The transfers of a set: two of reading, the write and its answer, two of reading back.
    static constexpr unsigned ANSWER_OF_WRITE = 4;
};

void LostAnswersTest::aValueWhoseAnswerIsLostIsLookedUp() {
    CliBench bench;
    const auto camera = bench.plug();
    bench.bus.addFault(bench.ids[0],
                       {.kind = FaultKind::ShortPacket, .argument = 12, .nth = ANSWER_OF_WRITE});
    const stRunResult run = CliBench::run({u"set"_s, u"camera.name=Tern"_s});
    QCOMPARE(run.exit, 8);
    QCOMPARE(run.out, u"camera.name: Gull -> Tern\n"_s);
    QVERIFY(run.err.contains(u"camera.name: the link failed"_s));
    QCOMPARE(camera->item("camera-name"), u"Tern"_s);
}

void LostAnswersTest::aValueThatNobodyKnowsOfIsTold() {
    CliBench bench;
    bench.plug();
    bench.bus.addFault(bench.ids[0], {.kind = FaultKind::DeviceGone, .nth = ANSWER_OF_WRITE});
    const stRunResult run = CliBench::run({u"set"_s, u"camera.name=Tern"_s});
    QCOMPARE(run.exit, 8);
    QCOMPARE(run.out, u"camera.name: Gull -> Tern (not known whether written)\n"_s);

    QVERIFY(bench.bus.waitForPlugged(bench.ids[0], false, std::chrono::seconds(20)));
    QVERIFY(bench.bus.replug(bench.ids[0]));
    // With JSON the serial number and the firmware are read first.
    bench.bus.addFault(bench.ids[0], {.kind = FaultKind::DeviceGone, .nth = ANSWER_OF_WRITE + 4});
    const stRunResult told = CliBench::run({u"--json"_s, u"set"_s, u"camera.name=Petrel"_s});
    QCOMPARE(told.exit, 8);
    const QJsonValue change = QJsonDocument::fromJson(told.out.toUtf8()).object()["changes"_L1][0];
    QCOMPARE(change["written"_L1], QJsonValue());
    QCOMPARE(change["verified"_L1], QJsonValue(false));
}

void LostAnswersTest::aShortAnswerIsNoValue() {
    CliBench bench;
    const auto camera = bench.plug();
    // As zeros the values that did not come would be a contrast that is there already.
    bench.bus.addFault(bench.ids[0], {.kind = FaultKind::ShortPacket, .argument = 12, .nth = 2});
    const stRunResult run = CliBench::run({u"set"_s, u"image.contrast=0"_s});
    QCOMPARE(run.exit, 7);
    QCOMPARE(run.out, QString());
    QCOMPARE(camera->item("image-quality"), u"2"_s);
}

void LostAnswersTest::aLateAnswerIsNotTakenForTheNext() {
    CliBench bench;
    const auto camera = bench.plug();
    // The answer to the write stays in the camera.
    bench.bus.addFault(bench.ids[0],
                       {.kind = FaultKind::Stall, .nth = ANSWER_OF_WRITE, .count = 3});
    const stRunResult run = CliBench::run({u"set"_s, u"image.contrast=3"_s});
    QCOMPARE(run.exit, 8);
    QCOMPARE(run.out, u"image.contrast: 2 -> 3\n"_s);
    QCOMPARE(camera->item("image-quality"), u"3"_s);
}

const TestSubject registered = subjectWithoutApplication<LostAnswersTest>();
#include "LostAnswersTest.moc"
