// SPDX-License-Identifier: MIT
#include "tests/cli/CliBench.h"
#include "tests/support/TestSubject.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <algorithm>
#include <atomic>

using namespace nubo::simulator;
using namespace Qt::StringLiterals;

namespace {

constexpr int CAMERAS = 16;

/// A camera that tells of its link only once @p others cameras have been asked for theirs.
class PatientCamera : public RecordingCamera {
public:
    PatientCamera(std::atomic<int>& asked, int others) : m_asked(asked), m_others(others) {}

    void receive(std::span<const std::uint8_t> packet) override {
        constexpr std::uint16_t GET_WIFI_INFO = 0x5001;
        if (packet.size() >= HEADER_SIZE && readU16(packet, CODE_OFFSET) == GET_WIFI_INFO) {
            m_isAsked = true;
            ++m_asked;
        }
        RecordingCamera::receive(packet);
    }
    std::optional<std::vector<std::uint8_t>> send() override {
        const bool waits = m_isAsked && m_asked <= m_others;
        return waits ? std::nullopt : RecordingCamera::send();
    }

private:
    std::atomic<int>& m_asked;
    int m_others;
    std::atomic<bool> m_isAsked = false;
};

}  // namespace

/// Several cameras in one run.
class AllCamerasTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void camerasAreServedSideBySide();
    void oneThatFailsLeavesTheOthersDone();
    void oneIsChosenByPortPlaceOrSerialNumber();
};

void AllCamerasTest::camerasAreServedSideBySide() {
    std::atomic<int> asked = 0;
    CliBench bench;
    for (int i = 0; i < CAMERAS; ++i) {
        bench.bus.plug(std::make_shared<PatientCamera>(asked, CAMERAS - 1));
    }
    // Each answers when all have been asked: one after the other, the first would never.
    const stRunResult run = CliBench::run({u"--all"_s, u"--json"_s, u"get"_s, u"wifi.channel"_s});
    QVERIFY2(run.exit == 0, qPrintable(run.err));
    const QStringList lines = run.out.split(u'\n', Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), CAMERAS);
    for (const QString& line : lines) {
        const QJsonObject object = QJsonDocument::fromJson(line.toUtf8()).object();
        QCOMPARE(object["settings"_L1]["wifi.channel"_L1].toInt(), 6);
        QCOMPARE(object["camera"_L1]["serial"_L1].toString(), u"SIM0001"_s);
    }
}

void AllCamerasTest::oneThatFailsLeavesTheOthersDone() {
    CliBench bench;
    const auto first = bench.plug();
    bench.plug({.busyInterfaces = {0}});
    const auto third = bench.plug();
    const stRunResult run = CliBench::run({u"--all"_s, u"set"_s, u"camera.name=Tern"_s});
    QCOMPARE(run.exit, 8);
    QCOMPARE(first->item("camera-name"), u"Tern"_s);
    QCOMPARE(third->item("camera-name"), u"Tern"_s);
    QVERIFY(run.err.contains(u"in use"_s));
}

void AllCamerasTest::oneIsChosenByPortPlaceOrSerialNumber() {
    CliBench bench;
    bench.plug();
    const auto camera = std::make_shared<RecordingCamera>();
    QVERIFY(camera->set("serial-number", "SIM0042"));
    QVERIFY(camera->set("camera-name", "Tern"));
    const DeviceId id = bench.bus.plug(camera);
    const QString place = u"1:%1"_s.arg(*bench.bus.deviceNumber(id));
    for (const QString& name : {u"1-3"_s, place, u"SIM0042"_s}) {
        const stRunResult run = CliBench::run({u"-c"_s, name, u"get"_s, u"camera.name"_s});
        QVERIFY2(run.exit == 0, qPrintable(run.err));
        QCOMPARE(run.out, u"camera.name = Tern\n"_s);
    }
}

const TestSubject registered = subjectWithoutApplication<AllCamerasTest>();
#include "AllCamerasTest.moc"
