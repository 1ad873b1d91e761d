// SPDX-License-Identifier: MIT
#include "cli/Verb.h"
#include "tests/cli/CliBench.h"
#include "tests/support/TestSubject.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;
using nubo::simulator::FaultKind;
using nubo::simulator::FaultUnit;

/// Pictures, audio and the stream's address of a simulated camera, and what stands beside them.
class DataOnBusTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_camera = m_bench.plug(); }
    void init();
    void cleanup() { m_bench.bus.clearFaults(m_bench.ids.front()); }

    void aPictureIsKeptAsItWasSent();
    void aSeriesIsNumbered();
    void theSeriesThatIsPrintedIsAStream();
    void aPictureCutShortLeavesNoFile();
    void wrongTargetsAreRefusedAndNothingIsSent();
    void audioIsKeptAsItWasSent();
    void theStreamHasTheCamerasAddress();
    void rawSendsOneCommandForExpertsAlone();
    void descriptorsAreToldWithoutACommand();
    void completionsNameEveryVerb();

private:
    [[nodiscard]] QByteArray fileAt(const QString& name) const {
        QFile file(m_folder->filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    [[nodiscard]] QStringList files() const {
        return QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    CliBench m_bench;
    std::shared_ptr<RecordingCamera> m_camera;
    std::unique_ptr<QTemporaryDir> m_folder;
    QByteArray m_bytes;
};

void DataOnBusTest::init() {
    m_camera->setState({});
    m_folder = std::make_unique<QTemporaryDir>();
    m_bytes = QByteArray("\xFF\xD8\xFF\xE0", 4);
    for (int i = 0; i < 5000; ++i) {
        m_bytes.append(static_cast<char>(i % 251));
    }
    m_camera->setPicture({m_bytes.cbegin(), m_bytes.cend()});
    m_camera->setAudio({m_bytes.crbegin(), m_bytes.crend()});
    static_cast<void>(m_camera->takeCodes());
}

void DataOnBusTest::aPictureIsKeptAsItWasSent() {
    const QString path = m_folder->filePath(u"a.jpg"_s);
    const stRunResult result = CliBench::run({u"picture"_s, path});
    QVERIFY2(result.exit == 0, qPrintable(result.err));
    QCOMPARE(m_camera->takeCodes(), QByteArrayList{"3001"});
    QCOMPARE(fileAt(u"a.jpg"_s), m_bytes);
    QCOMPARE(result.out, path + u": 5004 bytes\n"_s);
    const stRunResult json = CliBench::run({u"picture"_s, path, u"--json"_s});
    const QJsonArray told =
        QJsonDocument::fromJson(json.out.toUtf8()).object()["files"_L1].toArray();
    QCOMPARE(told, (QJsonArray{QJsonObject{{u"path"_s, path}, {u"size"_s, 5004}}}));
}

void DataOnBusTest::aSeriesIsNumbered() {
    const stRunResult result =
        CliBench::run({u"picture"_s, m_folder->filePath(u"{serial}-{n}.jpg"_s), u"--every"_s,
                       u"0.01"_s, u"--count"_s, u"3"_s});
    QVERIFY2(result.exit == 0, qPrintable(result.err));
    QCOMPARE(files(), (QStringList{u"SIM0001-1-0001.jpg"_s, u"SIM0001-1-0002.jpg"_s,
                                   u"SIM0001-1-0003.jpg"_s}));
    QCOMPARE(fileAt(u"SIM0001-1-0003.jpg"_s), m_bytes);
}

void DataOnBusTest::theSeriesThatIsPrintedIsAStream() {
    m_camera->setPicture({'J', 'P', 'G'});
    const stRunResult result = CliBench::run({u"picture"_s, u"-"_s, u"--count"_s, u"2"_s});
    QCOMPARE(result.exit, 0);
    QCOMPARE(result.out, u"JPGJPG"_s);
}

void DataOnBusTest::aPictureCutShortLeavesNoFile() {
    constexpr unsigned int FIRST_READ_OF_DATA = 3;
    m_bench.bus.addFault(m_bench.ids.front(),
                         {FaultKind::Stall, 0, FaultUnit::Transfer, FIRST_READ_OF_DATA, 1});
    const stRunResult result = CliBench::run({u"picture"_s, m_folder->filePath(u"a.jpg"_s)});
    QCOMPARE(result.exit, 7);
    QCOMPARE(files(), QStringList());
    QCOMPARE(result.out, QString());
}

void DataOnBusTest::wrongTargetsAreRefusedAndNothingIsSent() {
    for (const QStringList& words : {QStringList{u"picture"_s, u"-"_s, u"--json"_s},
                                     {u"picture"_s, u"-"_s, u"--all"_s},
                                     {u"audio"_s, u"a"_s, u"--all"_s},
                                     {u"picture"_s, u"a"_s, u"--every"_s, u"0"_s},
                                     {u"picture"_s, u"a"_s, u"--count"_s, u"none"_s}}) {
        QCOMPARE(CliBench::run(words).exit, 2);
    }
    QCOMPARE(m_camera->takeCodes(), QByteArrayList{});
    QCOMPARE(CliBench::run({u"picture"_s, m_folder->filePath(u"no/a.jpg"_s)}).exit, 9);
}

void DataOnBusTest::audioIsKeptAsItWasSent() {
    QCOMPARE(CliBench::run({u"audio"_s, m_folder->filePath(u"a.audio"_s)}).exit, 0);
    QCOMPARE(m_camera->takeCodes(), QByteArrayList{"3002"});
    QByteArray reversed = m_bytes;
    std::ranges::reverse(reversed);
    QCOMPARE(fileAt(u"a.audio"_s), reversed);
}

void DataOnBusTest::theStreamHasTheCamerasAddress() {
    QCOMPARE(CliBench::run({u"stream-url"_s}).exit, 1);  // only the DHCP server knows
    QCOMPARE(CliBench::run({u"stream-url"_s, u"--host"_s, u"cam.local"_s}).out,
             u"rtsp://cam.local:554/\n"_s);
    QVERIFY(m_camera->set("infra-dhcp", "off"));
    QVERIFY(m_camera->set("rtsp-port", "8554"));
    QCOMPARE(CliBench::run({u"stream-url"_s}).out, u"rtsp://192.168.0.20:8554/\n"_s);
    QVERIFY(m_camera->set("wifi-mode", "2"));
    QVERIFY(m_camera->set("stream-auth", "on"));
    QCOMPARE(CliBench::run({u"stream-url"_s}).out, u"rtsp://192.168.10.1:8554/\n"_s);
    QCOMPARE(CliBench::run({u"stream-url"_s, u"--show-secrets"_s}).out,
             u"rtsp://:lantern@192.168.10.1:8554/\n"_s);
}

void DataOnBusTest::rawSendsOneCommandForExpertsAlone() {
    QCOMPARE(CliBench::run({u"raw"_s, u"5037"_s}).exit, 2);
    for (const QString& code : {u"3001"_s, u"10000"_s, u"battery"_s}) {
        QCOMPARE(CliBench::run({u"raw"_s, code, u"--expert"_s}).exit, 2);
    }
    QCOMPARE(m_camera->takeCodes(), QByteArrayList{});
    QCOMPARE(CliBench::run({u"raw"_s, u"0x5037"_s, u"--expert"_s}).out,
             u"0x00000001 0x00000055 0x00000000 0x00000000 0x00000000\n"_s);
    QCOMPARE(CliBench::run({u"raw"_s, u"5849"_s, u"0x4"_s, u"--expert"_s}).exit, 0);
    QCOMPARE(m_camera->item("image-quality"), u"4"_s);
    QCOMPARE(CliBench::run({u"raw"_s, u"5830"_s, u"--text"_s, u"Tern"_s, u"--expert"_s}).exit, 0);
    QCOMPARE(m_camera->item("camera-name"), u"Tern"_s);
    QCOMPARE(CliBench::run({u"raw"_s, u"5FFF"_s, u"--expert"_s}).exit, 6);
}

void DataOnBusTest::descriptorsAreToldWithoutACommand() {
    const stRunResult result = CliBench::run({u"descriptors"_s, u"--json"_s});
    QCOMPARE(result.exit, 0);
    const QJsonObject device =
        QJsonDocument::fromJson(result.out.toUtf8()).object()["descriptors"_L1].toObject();
    QVERIFY(device["idVendor"_L1].toInt() > 0);
    const QJsonValue endpoints = device["configurations"_L1][0]["interfaces"_L1][0]["endpoints"_L1];
    QCOMPARE(endpoints.toArray().size(), 2);
    QVERIFY(CliBench::run({u"descriptors"_s}).out.contains(u"bEndpointAddress"_s));
    QCOMPARE(m_camera->takeCodes(), QByteArrayList{});
    QCOMPARE(m_bench.bus.log(m_bench.ids.front()).pendingTransfers, std::size_t{0});
}

void DataOnBusTest::completionsNameEveryVerb() {
    for (const QString& shell : {u"bash"_s, u"zsh"_s, u"fish"_s}) {
        const stRunResult result = CliBench::run({u"completion"_s, shell});
        QCOMPARE(result.exit, 0);
        for (const stVerb& verb : verbs()) {
            QVERIFY2(result.out.contains(toText(verb.name)), verb.name.data());
            for (const stOption& option : verb.options) {
                QVERIFY2(result.out.contains(toText(option.name).mid(2)), option.name.data());
            }
        }
        QVERIFY(result.out.contains(u"wifi.infrastructure.ssid"_s));
    }
    QCOMPARE(CliBench::run({u"completion"_s, u"tcsh"_s}).exit, 2);
}

const TestSubject registered = subjectWithoutApplication<DataOnBusTest>();
#include "DataOnBusTest.moc"
