// SPDX-License-Identifier: MIT
#include "settings/SettingTable.h"
#include "tests/cli/CliBench.h"
#include "tests/support/TestSubject.h"

#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// A value as users write it, and what the camera then keeps.
struct stValueRow {
    const char* key;
    const char* value;
    const char* item;
    const char* kept;
};

// clang-format off
constexpr std::array VALUES{
    stValueRow{"camera.name", "A", "camera-name", "A"},
    stValueRow{"camera.name", "Zz345678", "camera-name", "Zz345678"},
    stValueRow{"camera.time-zone", "UTC", "timezone", "0"},
    stValueRow{"camera.time-zone", "UTC+12", "timezone", "12"},
    stValueRow{"camera.time-zone", "-1", "timezone", "13"},
    stValueRow{"camera.time-zone", "utc-12:00", "timezone", "24"},
    stValueRow{"camera.led-at-start", "off", "led-start", "off"},
    stValueRow{"camera.led-at-start", "true", "led-start", "on"},
    stValueRow{"camera.led", "no", "led", "off"},
    stValueRow{"camera.led", "1", "led", "on"},
    stValueRow{"camera.optimizer", "yes", "optimizer", "on"},
    stValueRow{"camera.optimizer", "0", "optimizer", "off"},
    stValueRow{"camera.auto-power-off", "off", "auto-power-off", "0"},
    stValueRow{"camera.auto-power-off", "60", "auto-power-off", "60"},
    stValueRow{"camera.auto-power-off", "72h", "auto-power-off", "259200"},
    stValueRow{"image.contrast", "0", "image-quality", "0"},
    stValueRow{"image.contrast", "4", "image-quality", "4"},
    stValueRow{"recording.size", "1920x1080", "rec-size", "1"},
    stValueRow{"recording.size", "hd", "rec-size", "2"},
    stValueRow{"recording.size", "640x480", "rec-size", "3"},
    stValueRow{"recording.frame-rate", "1", "rec-rate", "1"},
    stValueRow{"recording.frame-rate", "60", "rec-rate", "60"},
    stValueRow{"interval.enabled", "on", "interval", "on"},
    stValueRow{"interval.enabled", "off", "interval", "off"},
    stValueRow{"interval.delay", "0", "interval-delay", "0"},
    stValueRow{"interval.delay", "72h", "interval-delay", "259200"},
    stValueRow{"interval.period", "1s", "interval-period", "1"},
    stValueRow{"interval.period", "71h59m60s", "interval-period", "259200"},
    stValueRow{"gps.enabled", "off", "gps", "off"},
    stValueRow{"gps.enabled", "on", "gps", "on"},
    stValueRow{"gps.save-log", "on", "gps-save-logs", "on"},
    stValueRow{"gps.save-log", "off", "gps-save-logs", "off"},
    stValueRow{"gps.set-clock", "off", "gps-adjust-time", "off"},
    stValueRow{"gps.set-clock", "on", "gps-adjust-time", "on"},
    stValueRow{"gps.log-format", "full", "gps-log-format", "2"},
    stValueRow{"gps.log-format", "gga+rmc", "gps-log-format", "1"},
    stValueRow{"live.size", "320x240", "live-size", "2"},
    stValueRow{"live.size", "fine", "live-size", "1"},
    stValueRow{"live.frame-rate", "30", "live-rate", "30"},
    stValueRow{"live.frame-rate", "15", "live-rate", "15"},
    stValueRow{"live.frame-rate", "10", "live-rate", "10"},
    stValueRow{"live.frame-rate", "6", "live-rate", "6"},
    stValueRow{"live.frame-rate", "1", "live-rate", "1"},
    stValueRow{"live.authorization", "on", "stream-auth", "on"},
    stValueRow{"live.authorization", "off", "stream-auth", "off"},
    stValueRow{"live.password", "!", "stream-password", "!"},
    stValueRow{"live.password", "0123456789abcde~", "stream-password", "0123456789abcde~"},
    stValueRow{"live.rtsp-port", "1", "rtsp-port", "1"},
    stValueRow{"live.rtsp-port", "65535", "rtsp-port", "65535"},
    stValueRow{"live.stun-server", "", "stun-server", ""},
    stValueRow{"live.stun-server", "stun.example.org:3478", "stun-server", "stun.example.org:3478"},
    stValueRow{"wifi.country", "japan", "wifi-country", "1"},
    stValueRow{"wifi.country", "us", "wifi-country", "2"},
    stValueRow{"wifi.country", "europe", "wifi-country", "3"},
    stValueRow{"wifi.country", "auto", "wifi-country", "4"},
    stValueRow{"wifi.auto-off", "off", "auto-wifi-off", "0"},
    stValueRow{"wifi.auto-off", "1m", "auto-wifi-off", "60"},
    stValueRow{"wifi.auto-off", "10m", "auto-wifi-off", "600"},
    stValueRow{"wifi.adhoc.address", "0.0.0.1", "adhoc-address", "0.0.0.1"},
    stValueRow{"wifi.adhoc.address", "255.255.255.254", "adhoc-address", "255.255.255.254"},
    stValueRow{"wifi.adhoc.netmask", "/0", "adhoc-subnet-mask", "0.0.0.0"},
    stValueRow{"wifi.adhoc.netmask", "/32", "adhoc-subnet-mask", "255.255.255.255"},
    stValueRow{"wifi.adhoc.security", "0", "adhoc-secure", "0"},
    stValueRow{"wifi.adhoc.security", "4", "adhoc-secure", "4"},
    stValueRow{"wifi.infrastructure.dhcp", "off", "infra-dhcp", "off"},
    stValueRow{"wifi.infrastructure.dhcp", "on", "infra-dhcp", "on"},
    stValueRow{"wifi.infrastructure.address", "10.0.0.1", "infra-address", "10.0.0.1"},
    stValueRow{"wifi.infrastructure.address", "010.000.000.254", "infra-address", "10.0.0.254"},
    stValueRow{"wifi.infrastructure.netmask", "/25", "infra-subnet-mask", "255.255.255.128"},
    stValueRow{"wifi.infrastructure.netmask", "255.255.240.0", "infra-subnet-mask", "255.255.240.0"},
    stValueRow{"wifi.infrastructure.gateway", "1.2.3.4", "infra-gateway", "1.2.3.4"},
    stValueRow{"wifi.infrastructure.gateway", "10.255.255.254", "infra-gateway", "10.255.255.254"},
    stValueRow{"wifi.infrastructure.dns1", "none", "primary-dns", "0.0.0.0"},
    stValueRow{"wifi.infrastructure.dns1", "8.8.4.4", "primary-dns", "8.8.4.4"},
    stValueRow{"wifi.infrastructure.dns2", "9.9.9.9", "secondary-dns", "9.9.9.9"},
    stValueRow{"wifi.infrastructure.dns2", "0.0.0.0", "secondary-dns", "0.0.0.0"},
    stValueRow{"wifi.infrastructure.ssid", "x", "infra-ssid", "x"},
    stValueRow{"wifi.infrastructure.ssid", "Lighthouse-Keeper Upper-Deck-2G4", "infra-ssid", "Lighthouse-Keeper Upper-Deck-2G4"},
    stValueRow{"wifi.infrastructure.key", "", "infra-key", ""},
    stValueRow{"wifi.infrastructure.key", "0123456789abcdef0123456789ABCDEF0123456789abcdef0123456789ABCDEF", "infra-key", "0123456789abcdef0123456789ABCDEF0123456789abcdef0123456789ABCDEF"},
    stValueRow{"wifi.mode", "adhoc", "wifi-mode", "2"},
    stValueRow{"wifi.mode", "infra", "wifi-mode", "1"},
    stValueRow{"wifi.enabled", "off", "wifi", "off"},
    stValueRow{"wifi.enabled", "on", "wifi", "on"},
};

struct stWrongRow {
    const char* word;
    const char* complaint;
};

constexpr std::array WRONG_VALUES{
    stWrongRow{"live.frame-rate=5", "live.frame-rate: 5 is not one of 30, 15, 10, 6, 1"},
    stWrongRow{"camera.name=", "camera.name: nothing is not 1 to 8 letters and digits"},
    stWrongRow{"camera.name=Cormorant", "camera.name: Cormorant is not 1 to 8 letters and digits"},
    stWrongRow{"camera.time-zone=UTC+13", "camera.time-zone: UTC+13 is not a time zone from UTC-12 to UTC+12, or local"},
    stWrongRow{"camera.auto-power-off=59", "camera.auto-power-off: 59 is not off or a duration from 1m to 72h"},
    stWrongRow{"camera.auto-power-off=72h1s", "camera.auto-power-off: 72h1s is not off or a duration from 1m to 72h"},
    stWrongRow{"wifi.auto-off=90", "wifi.auto-off: 90 is not off or a duration from 1m to 10m in steps of 1m"},
    stWrongRow{"image.contrast=5", "image.contrast: 5 is not a number from 0 to 4"},
    stWrongRow{"image.contrast=-1", "image.contrast: -1 is not a number from 0 to 4"},
    stWrongRow{"interval.period=0", "interval.period: 0 is not a duration from 1s to 72h"},
    stWrongRow{"wifi.adhoc.address=192.168.0.255", "wifi.adhoc.address: 192.168.0.255 is not an IPv4 address of a host"},
    stWrongRow{"wifi.adhoc.address=192.168.0", "wifi.adhoc.address: 192.168.0 is not an IPv4 address of a host"},
    stWrongRow{"wifi.adhoc.netmask=255.0.255.0", "wifi.adhoc.netmask: 255.0.255.0 is not a netmask, as 255.255.255.0 or /24"},
    stWrongRow{"wifi.enabled=maybe", "wifi.enabled: maybe is not one of on, off"},
    stWrongRow{"wifi.infrastructure.ssid=\xE6\xB8\xAF", "is not 1 to 32 printable characters of Latin-1"},
    stWrongRow{"live.password=with space", "live.password: this is not 1 to 16 printable ASCII characters without spaces"},
    stWrongRow{"live.rtsp-port=65536", "live.rtsp-port: 65536 is not a number from 1 to 65535"},
    stWrongRow{"camera.clock=1999-12-31T23:59:59", "camera.clock: 1999-12-31T23:59:59 is not now or a time from 2000"},
    stWrongRow{"identity.serial=X", "identity.serial cannot be set, only read"},
    stWrongRow{"wifi.adhoc.key=X", "wifi.adhoc.key cannot be set, only read"},
    stWrongRow{"camera.nmae=X", "no setting \"camera.nmae\"; did you mean camera.name?"},
    stWrongRow{"camera.name", "camera.name needs a value"},
};
// clang-format on

}  // namespace

/// Settings read and written by nuboctl, on a simulated camera behind the real libusb.
class SettingsOnBusTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_camera = m_bench.plug(); }
    void init() { m_camera->setState({}); }

    void everySettingHasItsRows();
    void aValueIsKeptByTheCameraAndReadBack_data();
    void aValueIsKeptByTheCameraAndReadBack();
    void aWrongValueIsRefusedAndNothingIsSent_data();
    void aWrongValueIsRefusedAndNothingIsSent();
    void theClockIsSetToATimeAndToNow();
    void onlyWhatDiffersIsWrittenInOrderAndReadBack();
    void valuesThatTravelTogetherKeepTheOthers();
    void secretsAreShownOnlyWhenAskedFor();
    void getTellsGroupsAndPatterns();

private:
    CliBench m_bench;
    std::shared_ptr<RecordingCamera> m_camera;
};

void SettingsOnBusTest::everySettingHasItsRows() {
    QSet<QByteArray> tested{"camera.clock"};  // has a test of its own
    for (const stValueRow& row : VALUES) {
        tested.insert(row.key);
    }
    for (const stSetting& row : settings()) {
        const QByteArray key(row.key.data(), static_cast<qsizetype>(row.key.size()));
        QVERIFY2(row.isReadOnly() != tested.contains(key), key);
    }
}

void SettingsOnBusTest::aValueIsKeptByTheCameraAndReadBack_data() {
    QTest::addColumn<stValueRow>("row");
    for (const stValueRow& row : VALUES) {
        QTest::addRow("%s=%s", row.key, row.value) << row;
    }
}

void SettingsOnBusTest::aValueIsKeptByTheCameraAndReadBack() {
    QFETCH(const stValueRow, row);
    const stRunResult set =
        CliBench::run({u"set"_s, QLatin1String(row.key) + u'=' + QLatin1String(row.value)});
    QCOMPARE(set.exit, 0);
    QCOMPARE(m_camera->item(row.item), QLatin1String(row.kept));
    // What is told can be set again, and changes nothing.
    const stRunResult get = CliBench::run({u"get"_s, u"--show-secrets"_s, QLatin1String(row.key)});
    QCOMPARE(get.exit, 0);
    QVERIFY(get.out.startsWith(QLatin1String(row.key) + u" = "_s));
}

void SettingsOnBusTest::aWrongValueIsRefusedAndNothingIsSent_data() {
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("complaint");
    for (const stWrongRow& row : WRONG_VALUES) {
        QTest::newRow(row.word) << QString::fromUtf8(row.word) << QString::fromUtf8(row.complaint);
    }
}

void SettingsOnBusTest::aWrongValueIsRefusedAndNothingIsSent() {
    QFETCH(const QString, word);
    const int opened = m_bench.bus.log(m_bench.ids[0]).timesOpened;
    const stRunResult set = CliBench::run({u"set"_s, u"gps.enabled=off"_s, word});
    QCOMPARE(set.exit, 2);
    QVERIFY(set.out.isEmpty());
    QFETCH(const QString, complaint);
    QVERIFY2(set.err.contains(complaint), qPrintable(set.err));
    QCOMPARE(m_bench.bus.log(m_bench.ids[0]).timesOpened, opened);
}

void SettingsOnBusTest::theClockIsSetToATimeAndToNow() {
    QCOMPARE(CliBench::run({u"set"_s, u"camera.clock=2000-01-01T00:00"_s}).exit, 0);
    QVERIFY(m_camera->item("time").startsWith(u"2000/01/01 00:0"_s));
    QCOMPARE(CliBench::run({u"set"_s, u"camera.clock=2100-12-31 23:50:00"_s}).exit, 0);
    QVERIFY(m_camera->item("time").startsWith(u"2100/12/31 23:5"_s));
    const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
    QCOMPARE(CliBench::run({u"set"_s, u"camera.clock=now"_s}).exit, 0);
    const auto told = QDateTime::fromString(m_camera->item("time"), u"yyyy/MM/dd hh:mm:ss"_s);
    QVERIFY(told >= before && told <= QDateTime::currentDateTime().addSecs(1));
}

void SettingsOnBusTest::onlyWhatDiffersIsWrittenInOrderAndReadBack() {
    m_camera->takeCodes();
    const stRunResult set =
        CliBench::run({u"set"_s, u"wifi.enabled=off"_s, u"interval.delay=5"_s, u"gps.enabled=on"_s,
                       u"interval.enabled=on"_s, u"camera.name=Tern"_s});
    QCOMPARE(set.exit, 0);
    QCOMPARE(m_camera->takeCodes(),
             (QByteArrayList{"5030", "5011", "5021", "5047",  // all are read
                             "5830", "5030", "5811", "5011",  // a write, and what it left
                             "5847", "5047"}));               // Wi-Fi comes last
    QCOMPARE(set.out,
             u"camera.name: Gull -> Tern\n"
             "interval.enabled: off -> on\n"
             "interval.delay: 10s -> 5s\n"
             "wifi.enabled: on -> off\n"_s);
}

void SettingsOnBusTest::valuesThatTravelTogetherKeepTheOthers() {
    QVERIFY(m_camera->set("gps-log-format", "2"));
    QCOMPARE(CliBench::run({u"set"_s, u"gps.save-log=on"_s}).exit, 0);
    QCOMPARE(m_camera->item("gps"), u"on"_s);
    QCOMPARE(m_camera->item("gps-save-logs"), u"on"_s);
    QCOMPARE(m_camera->item("gps-adjust-time"), u"on"_s);
    QCOMPARE(m_camera->item("gps-log-format"), u"2"_s);
}

void SettingsOnBusTest::secretsAreShownOnlyWhenAskedFor() {
    const stRunResult hidden = CliBench::run({u"get"_s});
    QVERIFY(hidden.out.contains(u"live.password = ********\n"_s));
    QVERIFY(!hidden.out.contains(u"lantern"_s) && !hidden.out.contains(u"breakwater"_s) &&
            !hidden.out.contains(u"simulated"_s));
    QVERIFY(!CliBench::run({u"get"_s, u"--json"_s}).out.contains(u"lantern"_s));
    QCOMPARE(CliBench::run({u"get"_s, u"--show-secrets"_s, u"live.password"_s}).out,
             u"live.password = lantern\n"_s);
    QVERIFY(!CliBench::run({u"set"_s, u"live.password=beacon"_s}).out.contains(u"beacon"_s));
}

void SettingsOnBusTest::getTellsGroupsAndPatterns() {
    QCOMPARE(CliBench::run({u"get"_s, u"interval"_s, u"*.size"_s}).out,
             u"interval.enabled = off\ninterval.delay = 10s\ninterval.period = 1m\n"
             "recording.size = 1280x720\nlive.size = 800x480\n"_s);
}

const TestSubject registered = subjectWithoutApplication<SettingsOnBusTest>();
#include "SettingsOnBusTest.moc"
