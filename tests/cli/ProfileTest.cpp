// SPDX-License-Identifier: MIT
#include "cli/Profile.h"
#include "cli/ProfileText.h"
#include "settings/SettingTable.h"
#include "tests/cli/CliBench.h"
#include "tests/support/TestSubject.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// Any value that @p row may have.
QString anyValue(const stSetting& row, QRandomGenerator& random) {
    const stSettingRange& range = row.range;
    switch (row.kind) {
        case SettingKind::Switch:
            return random.bounded(2) == 0 ? u"on"_s : u"off"_s;
        case SettingKind::Choice: {
            const std::string_view name =
                range.choices[random.bounded(static_cast<quint32>(range.choices.size()))].name;
            return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
        }
        case SettingKind::Text: {
            const auto size = range.least + random.bounded(qint64{range.most - range.least + 1});
            QString text;
            for (qint64 i = 0; i < size; ++i) {
                text += QChar(u'a' + random.bounded(26));
            }
            return text;
        }
        case SettingKind::Address:
            return u"10.%1.%2.%3"_s.arg(random.bounded(256))
                .arg(random.bounded(256))
                .arg(1 + random.bounded(254));
        case SettingKind::Netmask:
            return u"/%1"_s.arg(random.bounded(33));
        case SettingKind::TimeZone:
            return u"UTC-%1"_s.arg(random.bounded(13));
        default: {
            const qint64 steps = (range.most - range.least) / range.step + 1;
            return QString::number(range.least + random.bounded(steps) * range.step);
        }
    }
}

}  // namespace

/// Profiles: written, compared and applied on simulated cameras.
class ProfileTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void textComesBackFromItsQuotes_data();
    void textComesBackFromItsQuotes();
    void aProfileOfOneCameraMakesAnotherEqual();
    void aProfileBringsBackWhatARandomWalkChanged();
    void secretsAreLeftOutUnlessAskedForAndThenForTheOwnerAlone();
    void aWrongLineIsNamedAndNothingIsSent();
    void aDryRunWritesNothing();
    void onlyAndSkipChoose();
    void wifiIsSwitchedLast();
    void twoFilesAreComparedWithoutACamera();
    void jsonIsTakenToo();
    void aStopTellsTheWayBack();
    void whatIsToldOfSeveralNamesTheCamera();
    void aSerialNumberLeadsToNoOtherFolder();

private:
    QString file(const char* name, const QByteArray& text = {}) const {
        QFile written(m_folder.filePath(QLatin1String(name)));
        if (!text.isEmpty() && written.open(QIODevice::WriteOnly)) {
            written.write(text);
        }
        return written.fileName();
    }

    CliBench m_bench;
    QTemporaryDir m_folder;
    std::shared_ptr<RecordingCamera> m_first;
    std::shared_ptr<RecordingCamera> m_second;
};

void ProfileTest::initTestCase() {
    m_first = m_bench.plug();
    m_second = m_bench.plug();
}

void ProfileTest::init() {
    m_first->setState({});
    m_second->setState({});
}

void ProfileTest::textComesBackFromItsQuotes_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("quoted");
    QTest::newRow("plain") << u"Harbour"_s << u"Harbour"_s;
    QTest::newRow("comment sign") << u"#1 = net"_s << u"#1 = net"_s;
    QTest::newRow("nothing") << u""_s << u"\"\""_s;
    QTest::newRow("blanks") << u" a "_s << u"\" a \""_s;
    QTest::newRow("quote") << u"\"a\\"_s << u"\"\\\"a\\\\\""_s;
    QTest::newRow("line end") << u"a\nb"_s << u"\"a\\u000ab\""_s;
}

void ProfileTest::textComesBackFromItsQuotes() {
    QFETCH(const QString, text);
    QTEST(profileQuoted(text), "quoted");
    QCOMPARE(profileUnquoted(profileQuoted(text)), text);
}

void ProfileTest::aProfileOfOneCameraMakesAnotherEqual() {
    QVERIFY(m_first->set("camera-name", "Tern"));
    QVERIFY(m_first->set("infra-ssid", " Caf\xE9 #1 "));
    QVERIFY(m_first->set("gps-log-format", "2"));
    QVERIFY(m_first->set("interval", "on"));
    QVERIFY(m_first->set("stream-password", "beacon"));
    QVERIFY(m_first->set("wifi", "off"));
    const QString profile = file("all.nubo");
    QCOMPARE(CliBench::run({u"-c"_s, u"1-2"_s, u"export"_s, u"--secrets"_s, profile}).exit, 0);
    QCOMPARE(CliBench::run({u"-c"_s, u"1-3"_s, u"diff"_s, profile}).exit, 1);
    const stRunResult apply = CliBench::run({u"-c"_s, u"1-3"_s, u"apply"_s, profile});
    QVERIFY2(apply.exit == 0, qPrintable(apply.err));
    QCOMPARE(CliBench::run({u"-c"_s, u"1-3"_s, u"diff"_s, profile}).exit, 0);
    for (const char* const item :
         {"camera-name", "infra-ssid", "gps-log-format", "interval", "stream-password", "wifi"}) {
        QCOMPARE(m_second->item(item), m_first->item(item));
    }
}

void ProfileTest::aProfileBringsBackWhatARandomWalkChanged() {
    constexpr int STEPS = 150;
    const QString profile = file("before.nubo");
    const QStringList exportAll{u"-c"_s, u"1-2"_s, u"export"_s, u"--secrets"_s};
    QCOMPARE(CliBench::run(exportAll + QStringList{profile}).exit, 0);
    const QString before = CliBench::run(exportAll).out;
    QRandomGenerator random(20140309);
    for (int step = 0; step < STEPS; ++step) {
        const stSetting& row = settings()[random.bounded(static_cast<quint32>(settings().size()))];
        if (!row.isKept()) {
            continue;
        }
        const QString key =
            QString::fromLatin1(row.key.data(), static_cast<qsizetype>(row.key.size()));
        const stRunResult set =
            CliBench::run({u"-c"_s, u"1-2"_s, u"set"_s, key + u'=' + anyValue(row, random)});
        QVERIFY2(set.exit == 0, qPrintable(set.err));
    }
    QVERIFY(CliBench::run(exportAll).out != before);
    const stRunResult apply = CliBench::run({u"-c"_s, u"1-2"_s, u"apply"_s, profile});
    QVERIFY2(apply.exit == 0, qPrintable(apply.err));
    QCOMPARE(CliBench::run(exportAll).out, before);
}

void ProfileTest::secretsAreLeftOutUnlessAskedForAndThenForTheOwnerAlone() {
    const QString open = file("open.nubo");
    const QString secret = file("secret.nubo");
    QCOMPARE(CliBench::run({u"-c"_s, u"1-2"_s, u"export"_s, open}).exit, 0);
    QCOMPARE(CliBench::run({u"-c"_s, u"1-2"_s, u"export"_s, secret, u"--secrets"_s}).exit, 0);
    QFile openFile(open);
    QVERIFY(openFile.open(QIODevice::ReadOnly));
    const QByteArray text = openFile.readAll();
    QVERIFY(!text.contains("lantern") && !text.contains("breakwater"));
    QVERIFY(!text.contains("camera.clock") && !text.contains("battery"));
    QFile secretFile(secret);
    QVERIFY(secretFile.open(QIODevice::ReadOnly));
    QVERIFY(secretFile.readAll().contains("live.password = lantern\n"));
    const QFile::Permissions others = QFile::ReadGroup | QFile::ReadOther;
    QCOMPARE(QFileInfo(secret).permissions() & others, QFile::Permissions());
}

void ProfileTest::aWrongLineIsNamedAndNothingIsSent() {
    const QString profile =
        file("wrong.nubo", "# mine\n\ncamera.name = Tern\nlive.frame-rate = 5\n");
    m_first->takeCodes();
    const stRunResult run = CliBench::run({u"-c"_s, u"1-2"_s, u"apply"_s, profile});
    QCOMPARE(run.exit, 2);
    QVERIFY2(run.err.contains(u"line 4: live.frame-rate: 5 is not one of"_s), qPrintable(run.err));
    QVERIFY(m_first->takeCodes().isEmpty());
}

void ProfileTest::aDryRunWritesNothing() {
    const QString profile = file("name.nubo", "camera.name = Tern\ncamera.led-at-start = on\n");
    const stRunResult run = CliBench::run({u"-c"_s, u"1-2"_s, u"apply"_s, u"--dry-run"_s, profile});
    QCOMPARE(run.exit, 0);
    QCOMPARE(run.out, u"camera.name: Gull -> Tern\n"_s);
    QCOMPARE(m_first->item("camera-name"), u"Gull"_s);
}

void ProfileTest::onlyAndSkipChoose() {
    const QString profile =
        file("some.nubo", "camera.name = Tern\ngps.enabled = off\ngps.save-log = on\n");
    QCOMPARE(CliBench::run({u"-c"_s, u"1-2"_s, u"apply"_s, profile, u"--only=gps"_s, u"--skip"_s,
                            u"*.save-*"_s})
                 .exit,
             0);
    QCOMPARE(m_first->item("camera-name"), u"Gull"_s);
    QCOMPARE(m_first->item("gps"), u"off"_s);
    QCOMPARE(m_first->item("gps-save-logs"), u"off"_s);
}

void ProfileTest::wifiIsSwitchedLast() {
    const QString profile = file("wifi.nubo",
                                 "wifi.enabled = off\nwifi.mode = adhoc\n"
                                 "wifi.infrastructure.key = anchor\n"
                                 "wifi.infrastructure.ssid = Pier\nwifi.adhoc.netmask = /16\n"
                                 "live.rtsp-port = 8554\ngps.enabled = off\ncamera.name = Tern\n");
    m_first->takeCodes();
    QCOMPARE(CliBench::run({u"-c"_s, u"1-2"_s, u"apply"_s, profile}).exit, 0);
    QByteArrayList written;
    for (const QByteArray& code : m_first->takeCodes()) {
        if (code.startsWith("58")) {
            written.append(code);
        }
    }
    QCOMPARE(written,
             (QByteArrayList{"5830", "5821", "5843", "5807", "583b", "583c", "5803", "5847"}));
}

void ProfileTest::twoFilesAreComparedWithoutACamera() {
    const QString one = file("one.nubo", "camera.name = Tern\nimage.contrast = 1\n");
    const QString other = file("other.nubo", "image.contrast=2\n  camera.name =Tern\n");
    const stRunResult run = CliBench::run({u"diff"_s, one, other});
    QCOMPARE(run.exit, 1);
    QCOMPARE(run.out, u"image.contrast: 1 -> 2\n"_s);
    QCOMPARE(CliBench::run({u"diff"_s, one, one}).exit, 0);
}

void ProfileTest::jsonIsTakenToo() {
    const stRunResult get = CliBench::run({u"-c"_s, u"1-2"_s, u"get"_s, u"--json"_s});
    QCOMPARE(get.exit, 0);
    QVERIFY(m_second->set("camera-name", "Tern"));
    QVERIFY(m_second->set("auto-power-off", "0"));
    const QString profile = file("all.json", get.out.toUtf8());
    const stRunResult apply = CliBench::run({u"-c"_s, u"1-3"_s, u"apply"_s, profile});
    QVERIFY2(apply.exit == 0, qPrintable(apply.err));
    QCOMPARE(m_second->item("camera-name"), u"Gull"_s);
    QCOMPARE(m_second->item("auto-power-off"), u"600"_s);
}

void ProfileTest::aStopTellsTheWayBack() {
    const QString profile = file("stop.nubo", "camera.name = Tern\nimage.contrast = 3\n");
    // Two reads, a write and its reading back; the next write finds the camera busy.
    m_bench.bus.addFault(m_bench.ids[0], {.kind = nubo::simulator::FaultKind::CameraError,
                                          .argument = 0xFFF9,
                                          .unit = nubo::simulator::FaultUnit::Command,
                                          .nth = 5});
    const stRunResult run = CliBench::run({u"-c"_s, u"1-2"_s, u"apply"_s, profile});
    QCOMPARE(run.exit, 8);
    QVERIFY2(run.err.contains(u"to go back: nuboctl -c '1-2' set 'camera.name=Gull'"_s),
             qPrintable(run.err));
}

void ProfileTest::whatIsToldOfSeveralNamesTheCamera() {
    const QString profile = file("all.nubo", "camera.name = Tern\nimage.contrast = 3\n");
    // As above, after the serial number and the version, which name the camera.
    m_bench.bus.addFault(m_bench.ids[1], {.kind = nubo::simulator::FaultKind::CameraError,
                                          .argument = 0xFFF9,
                                          .unit = nubo::simulator::FaultUnit::Command,
                                          .nth = 7});
    const stRunResult run = CliBench::run({u"--all"_s, u"apply"_s, profile});
    QCOMPARE(run.exit, 8);
    const QString name = m_second->item("serial-number");
    QVERIFY2(run.err.contains(u"nuboctl: %1: plan: camera.name: Gull -> Tern\n"_s.arg(name)),
             qPrintable(run.err));
    QVERIFY2(run.err.contains(
                 u"nuboctl: %1: to go back: nuboctl -c '1-3' set 'camera.name=Gull'"_s.arg(name)),
             qPrintable(run.err));
}

void ProfileTest::aSerialNumberLeadsToNoOtherFolder() {
    QVERIFY(m_first->set("serial-number", "../SIM0001"));
    // The system reads it when the camera is plugged in.
    QVERIFY(m_bench.bus.unplug(m_bench.ids[0]));
    QVERIFY(m_bench.bus.replug(m_bench.ids[0]));
    QVERIFY(QDir(m_folder.path()).mkdir(u"in"_s));
    const QString path = m_folder.filePath(u"in/{serial}.nubo"_s);
    QCOMPARE(CliBench::run({u"-c"_s, u"1-2"_s, u"export"_s, path}).exit, 0);
    QCOMPARE(QDir(m_folder.filePath(u"in"_s)).entryList(QDir::Files | QDir::Hidden),
             QStringList{u".._SIM0001.nubo"_s});
}

const TestSubject registered = subjectWithoutApplication<ProfileTest>();
#include "ProfileTest.moc"
