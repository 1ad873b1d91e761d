// SPDX-License-Identifier: MIT
#include "tests/cli/CliBench.h"
#include "tests/support/TestSubject.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using nubo::simulator::Fault;
using nubo::simulator::FaultKind;

namespace {

const QByteArrayList NOTHING;

/// Words that are refused before anything is sent, and what is said of them.
struct stRefusedRow {
    const char* words;  ///< with blanks between
    const char* complaint;
};

constexpr std::array REFUSED{
    stRefusedRow{"wifi", "wifi needs"},
    stRefusedRow{"wifi scna", "wifi takes no \"scna\"; did you mean scan?"},
    stRefusedRow{"wifi join", "wifi join needs one SSID"},
    stRefusedRow{"wifi on Harbour", "wifi on takes no more words"},
    stRefusedRow{"wifi on --static 1.2.3.4/24,1.2.3.1",
                 "--key-file and --static belong to wifi join"},
    stRefusedRow{"wifi join X --static 1.2.3.4", "1.2.3.4 is not ADDRESS/LENGTH,GATEWAY"},
    stRefusedRow{"wifi join X --static 1.2.3.4/33,1.2.3.1", "wifi.infrastructure.netmask"},
    stRefusedRow{"wifi join X --static 1.2.3.4/24,1.2.3.0", "wifi.infrastructure.gateway"},
    stRefusedRow{"wifi join Lighthouse-Keeper-Upper-Deck-2G4-No2", "wifi.infrastructure.ssid"},
    stRefusedRow{"sd erase", "sd takes no \"erase\"; it takes format"},
    stRefusedRow{"sd format", "sd format needs --yes"},
    stRefusedRow{"clock synch", "did you mean sync?"},
    stRefusedRow{"record", "record needs"},
    stRefusedRow{"record begin", "record takes no \"begin\""},
    stRefusedRow{"reset", "reset needs --yes"},
    stRefusedRow{"restart --wait-back=0", "--wait-back: 0 is not a number"},
};

QJsonObject objectOf(const stRunResult& result) {
    return QJsonDocument::fromJson(result.out.toUtf8()).object();
}

}  // namespace

/// What nuboctl makes a simulated camera do, behind the real libusb.
class ActionsOnBusTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        nubo::simulator::DeviceOptions options;
        options.restartDelay = std::chrono::milliseconds(50);
        m_camera = m_bench.plug(options);
    }
    void init() {
        m_camera->setState({});
        static_cast<void>(m_camera->takeCodes());
    }
    void cleanup() { m_bench.bus.clearFaults(m_bench.ids.front()); }

    void wrongWordsAreRefusedAndNothingIsSent_data();
    void wrongWordsAreRefusedAndNothingIsSent();
    void accessPointsAreListedByTheirSignal();
    void joiningWritesAddressesNetworkAndKeyInOrder();
    void joiningWithoutKeyLeavesTheKey();
    void aNetworkMayBeCalledLikeAnOption();
    void wifiIsSwitchedOffAndOn();
    void theCardIsFormattedWhenAgreed();
    void aRefusedFormatLeavesTheCard();
    void theClockIsComparedAndSet();
    void aRecordingIsStartedAndStopped();
    void restartIsWaitedFor();
    void resetPutsBackTheDefaults();
    void resetWaitsForACameraThatRestarts();
    void poweroffMakesTheCameraLeave();

private:
    CliBench m_bench;
    std::shared_ptr<RecordingCamera> m_camera;
};

void ActionsOnBusTest::wrongWordsAreRefusedAndNothingIsSent_data() {
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("complaint");
    for (const stRefusedRow& row : REFUSED) {
        QTest::addRow("%s", row.words)
            << QString::fromLatin1(row.words) << QString::fromLatin1(row.complaint);
    }
}

void ActionsOnBusTest::wrongWordsAreRefusedAndNothingIsSent() {
    QFETCH(const QString, words);
    QFETCH(const QString, complaint);
    const stRunResult result = CliBench::run(words.split(u' '));
    QCOMPARE(result.exit, 2);
    QVERIFY2(result.err.contains(complaint), qPrintable(result.err));
    QCOMPARE(result.out, QString());
    QCOMPARE(m_camera->takeCodes(), NOTHING);
}

void ActionsOnBusTest::accessPointsAreListedByTheirSignal() {
    const stRunResult text = CliBench::run({u"wifi"_s, u"scan"_s});
    QCOMPARE(text.exit, 0);
    QCOMPARE(m_camera->takeCodes(), QByteArrayList{"5002"});
    QCOMPARE(text.out,
             u"  72  aes     Harbour\n"
             "  64  aes     Lighthouse-Keeper-Upper-Deck-2G4\n"
             "  48  tkip    Workshop\n"
             "  41  aes     (hidden)\n"
             "  35  wep     Old radio\n"
             "  30  aes     Caf\u00e9 am Gro\u00dfmarkt\n"
             "  23  none    Guest\n"_s);
    const QJsonArray points =
        objectOf(CliBench::run({u"wifi"_s, u"scan"_s, u"--json"_s}))["accessPoints"_L1].toArray();
    QCOMPARE(points.size(), 7);
    QCOMPARE(
        points[2].toObject(),
        (QJsonObject{{u"ssid"_s, u"Workshop"_s}, {u"encryption"_s, u"tkip"_s}, {u"signal"_s, 48}}));
}

void ActionsOnBusTest::joiningWritesAddressesNetworkAndKeyInOrder() {
    QVERIFY(m_camera->set("wifi", "off"));
    const QTemporaryDir folder;
    QFile key(folder.filePath(u"key"_s));
    QVERIFY(key.open(QIODevice::WriteOnly) && key.write("foghorn1\n") > 0);
    key.close();
    const stRunResult result =
        CliBench::run({u"wifi"_s, u"join"_s, u"Workshop"_s, u"--key-file"_s, key.fileName(),
                       u"--static"_s, u"10.1.0.7/16,10.1.0.1,10.1.0.2"_s});
    QVERIFY2(result.exit == 0, qPrintable(result.err));
    QCOMPARE(m_camera->takeCodes(),
             (QByteArrayList{"5008", "5009", "500a", "500b", "5045", "503b", "503c", "5003", "5047",
                             "5808", "5008", "5809", "5009", "580a", "500a", "580b", "500b", "5845",
                             "5045", "583b", "503b", "583c", "503c", "5847", "5047"}));
    QCOMPARE(m_camera->item("infra-dhcp"), u"off"_s);
    QCOMPARE(m_camera->item("infra-address"), u"10.1.0.7"_s);
    QCOMPARE(m_camera->item("infra-subnet-mask"), u"255.255.0.0"_s);
    QCOMPARE(m_camera->item("infra-gateway"), u"10.1.0.1"_s);
    QCOMPARE(m_camera->item("primary-dns"), u"10.1.0.2"_s);
    QCOMPARE(m_camera->item("infra-ssid"), u"Workshop"_s);
    QCOMPARE(m_camera->item("infra-key"), u"foghorn1"_s);
    QCOMPARE(m_camera->item("wifi"), u"on"_s);
    QVERIFY(!result.out.contains(u"foghorn1"_s));
}

void ActionsOnBusTest::joiningWithoutKeyLeavesTheKey() {
    QCOMPARE(CliBench::run({u"wifi"_s, u"join"_s, u"Guest"_s}).exit, 0);
    QCOMPARE(m_camera->takeCodes(), (QByteArrayList{"503b", "5003", "5047", "583b", "503b"}));
    QCOMPARE(m_camera->item("infra-key"), u"breakwater"_s);
}

void ActionsOnBusTest::aNetworkMayBeCalledLikeAnOption() {
    for (const QString& name : {u"-x"_s, u"--all"_s, u"--"_s, u"[a]"_s}) {
        const stRunResult result = CliBench::run({u"wifi"_s, u"join"_s, u"--"_s, name});
        QVERIFY2(result.exit == 0, qPrintable(result.err));
        QCOMPARE(m_camera->item("infra-ssid"), name);
    }
}

void ActionsOnBusTest::wifiIsSwitchedOffAndOn() {
    QCOMPARE(CliBench::run({u"wifi"_s, u"off"_s}).exit, 0);
    QCOMPARE(m_camera->item("wifi"), u"off"_s);
    QCOMPARE(CliBench::run({u"wifi"_s, u"on"_s}).exit, 0);
    QCOMPARE(m_camera->item("wifi"), u"on"_s);
}

void ActionsOnBusTest::theCardIsFormattedWhenAgreed() {
    const stRunResult result = CliBench::run({u"sd"_s, u"format"_s, u"--yes"_s});
    QCOMPARE(result.exit, 0);
    QCOMPARE(m_camera->takeCodes(), (QByteArrayList{"6803", "5039"}));
    QCOMPARE(m_camera->item("sd-used"), u"0"_s);
    QVERIFY(result.out.startsWith(u"formatted\n"_s));
    const QJsonObject card =
        objectOf(CliBench::run({u"sd"_s, u"--json"_s}))["settings"_L1].toObject();
    QCOMPARE(card["sd.used"_L1].toInteger(), 0);
    QCOMPARE(card["sd.total"_L1].toInteger(), qint64{7744512} * 1024);
}

void ActionsOnBusTest::aRefusedFormatLeavesTheCard() {
    constexpr unsigned int NO_ACCESS = 0xFFF6;
    m_bench.bus.addFault(m_bench.ids.front(), {FaultKind::CameraError, NO_ACCESS,
                                               nubo::simulator::FaultUnit::Command, 1, 1});
    const stRunResult result = CliBench::run({u"sd"_s, u"format"_s, u"--yes"_s});
    QCOMPARE(result.exit, 6);
    QVERIFY2(result.err.contains(u"sd format: the camera refuses"_s), qPrintable(result.err));
    QCOMPARE(result.out, QString());
}

void ActionsOnBusTest::theClockIsComparedAndSet() {
    QVERIFY(m_camera->set("time", "2014/03/09 07:05:01"));
    const stRunResult behind = CliBench::run({u"clock"_s});
    QCOMPARE(behind.exit, 0);
    QVERIFY2(behind.out.startsWith(u"2014-03-09T07:05:0"_s), qPrintable(behind.out));
    QVERIFY(behind.out.contains(u" s behind this computer's"_s));
    static_cast<void>(m_camera->takeCodes());
    QCOMPARE(CliBench::run({u"clock"_s, u"sync"_s}).exit, 0);
    QCOMPARE(m_camera->takeCodes(), (QByteArrayList{"5031", "5831", "5031"}));
    const QDateTime time = QDateTime::fromString(m_camera->item("time"), u"yyyy/MM/dd HH:mm:ss"_s);
    QVERIFY(qAbs(time.secsTo(QDateTime::currentDateTime())) < 60);
}

void ActionsOnBusTest::aRecordingIsStartedAndStopped() {
    const stRunResult started = CliBench::run({u"record"_s, u"start"_s});
    QCOMPARE(started.exit, 0);
    QCOMPARE(started.out, u"running\n"_s);
    QCOMPARE(m_camera->takeCodes(), (QByteArrayList{"6805", "5010"}));
    QCOMPARE(CliBench::run({u"record"_s, u"status"_s}).out, u"running\n"_s);
    QCOMPARE(m_camera->takeCodes(), QByteArrayList{"5010"});
    QCOMPARE(CliBench::run({u"record"_s, u"stop"_s}).out, u"stopped\n"_s);
    QCOMPARE(m_camera->state().settings.recording, nubo::simulator::OFF);
}

void ActionsOnBusTest::restartIsWaitedFor() {
    const int timesPlugged = m_bench.bus.log(m_bench.ids.front()).timesPlugged;
    const stRunResult result = CliBench::run({u"restart"_s, u"--wait-back"_s, u"--json"_s});
    QVERIFY2(result.exit == 0, qPrintable(result.err));
    QCOMPARE(m_bench.bus.log(m_bench.ids.front()).timesPlugged, timesPlugged + 1);
    const QJsonObject object = objectOf(result);
    QCOMPARE(object["back"_L1]["serial"_L1].toString(), u"SIM0001"_s);
    QVERIFY(object["back"_L1]["device"_L1] != object["camera"_L1]["device"_L1]);
}

void ActionsOnBusTest::resetPutsBackTheDefaults() {
    QVERIFY(m_camera->set("camera-name", "Tern"));
    QCOMPARE(CliBench::run({u"reset"_s, u"--yes"_s}).exit, 0);
    QCOMPARE(m_camera->takeCodes(), QByteArrayList{"6804"});
    QCOMPARE(m_camera->item("camera-name"), u"Gull"_s);
}

void ActionsOnBusTest::resetWaitsForACameraThatRestarts() {
    QVERIFY(m_camera->set("restart-after-reset", "on"));
    const stRunResult result = CliBench::run({u"reset"_s, u"--yes"_s, u"--wait-back"_s});
    QVERIFY2(result.exit == 0, qPrintable(result.err));
    QVERIFY2(result.out.contains(u"back as "_s), qPrintable(result.out));
}

void ActionsOnBusTest::poweroffMakesTheCameraLeave() {
    QCOMPARE(CliBench::run({u"poweroff"_s}).exit, 0);
    QCOMPARE(m_camera->takeCodes(), QByteArrayList{"6801"});
    QVERIFY(m_bench.bus.waitForPlugged(m_bench.ids.front(), false, std::chrono::seconds(30)));
    QCOMPARE(CliBench::run({u"poweroff"_s}).exit, 3);
    QVERIFY(m_bench.bus.replug(m_bench.ids.front()));
}

const TestSubject registered = subjectWithoutApplication<ActionsOnBusTest>();
#include "ActionsOnBusTest.moc"
