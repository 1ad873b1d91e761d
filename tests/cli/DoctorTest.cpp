// SPDX-License-Identifier: MIT
#include "cli/Arguments.h"
#include "cli/ClCameraFinder.h"
#include "cli/ClReport.h"
#include "cli/Doctor.h"
#include "settings/SettingTable.h"
#include "tests/cli/CliBench.h"
#include "tests/support/SummerTime.h"
#include "tests/support/TestSubject.h"
#include "tests/support/WithoutFileOverride.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <sys/resource.h>
#include <sys/stat.h>

using namespace nubo::simulator;
using namespace Qt::StringLiterals;

namespace {

constexpr unsigned int USER = 1000;
constexpr unsigned int OTHER_GROUP = 46;

/// The rule of the cameras on the bus.
QByteArray rule() {
    const DeviceDescription camera;
    return QString::asprintf(
               "# the cameras\nSUBSYSTEM==\"usb\", ATTR{idVendor}==\"%04x\", "
               "ATTR{idProduct}==\"%04x\", TAG+=\"uaccess\"\n",
               camera.vendorId, camera.productId)
        .toLatin1();
}
constexpr auto RULE_PATH = "/usr/lib/udev/rules.d/70-nubo-setting-tool.rules";

struct stFinding {
    QString result{};
    QString message{};
    QString remedy{};
    QString port{};
};

/// What the doctor said.
struct stDiagnosis {
    ExitCode exit = ExitCode::Done;
    QString text{};
    QStringList order{};  ///< of the checks
    QMultiMap<QString, stFinding> findings{};

    [[nodiscard]] stFinding of(const char* check) const {
        return findings.value(QLatin1String(check));
    }
};

/// A computer made of files, with one camera that may be opened and that nothing is wrong with.
class Computer {
public:
    Computer() {
        const DeviceId camera = plug();
        m_number = *m_bench.bus.deviceNumber(camera);
        m_system.root = m_tree.path();
        m_system.user = USER;
        m_system.groups = {USER};
        write(node(), {});
        write(RULE_PATH, rule());
        write(record(), "V:1\nG:uaccess\nQ:uaccess\n");
        write("/run/systemd/seats/seat0", "# private\nIS_SEAT0=1\nACTIVE_UID=1000\n");
        write(u"/sys/bus/usb/devices/%1/speed"_s.arg(PORT).toLatin1(), "480\n");
    }

    DeviceId plug(const DeviceOptions& options = {}) {
        m_camera = m_bench.plug(options);
        return m_bench.ids.back();
    }
    [[nodiscard]] QByteArray node() const {
        return QString::asprintf("/dev/bus/usb/001/%03d", m_number).toLatin1();
    }
    [[nodiscard]] QByteArray record() const {
        return "/run/udev/data/c189:" + QByteArray::number(m_number - 1);
    }
    [[nodiscard]] QString path(const QByteArray& name) const {
        return m_tree.path() + QString::fromLatin1(name);
    }
    void write(const QByteArray& name, const QByteArray& content) const {
        QVERIFY(QDir().mkpath(QFileInfo(path(name)).path()));
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    }
    void remove(const QByteArray& name) const { QVERIFY(QFile::remove(path(name))); }
    void setMode(const QByteArray& name, mode_t mode) const {
        QCOMPARE(::chmod(QFile::encodeName(path(name)).constData(), mode), 0);
    }

    [[nodiscard]] stDiagnosis examined(const QStringList& words = {u"doctor"_s}) const {
        stArguments arguments;
        stDiagnosis diagnosis;
        if (parseArguments(words, arguments)) {
            return diagnosis;
        }
        ClConsole console([](const QByteArray&) { return true; },
                          [](const QByteArray&) { return true; });
        ClReport report;
        ClCameraFinder finder;
        stRun run{arguments, console, report, nullptr, finder, nullptr};
        examine(run, m_system);
        diagnosis.exit = report.exit();
        diagnosis.text = report.text();
        for (const QJsonValue& value : report.json()["checks"_L1].toArray()) {
            const QString check = value["check"_L1].toString();
            diagnosis.order.append(check);
            diagnosis.findings.insert(
                check, {value["result"_L1].toString(), value["message"_L1].toString(),
                        value["remedy"_L1].toString(), value["port"_L1].toString()});
        }
        return diagnosis;
    }

    [[nodiscard]] VirtualUsbBus& bus() { return m_bench.bus; }
    [[nodiscard]] DeviceId id() const { return m_bench.ids.front(); }
    [[nodiscard]] RecordingCamera& camera() const { return *m_camera; }
    [[nodiscard]] stComputer& system() { return m_system; }

    static constexpr auto PORT = "1-2"_L1;

private:
    CliBench m_bench;
    QTemporaryDir m_tree;
    stComputer m_system;
    std::shared_ptr<RecordingCamera> m_camera;
    int m_number = 0;
};

void verifyOk(const stDiagnosis& diagnosis, const char* check) {
    QVERIFY2(diagnosis.of(check).result == u"ok"_s, qPrintable(diagnosis.text));
}

void verifyFound(const stDiagnosis& diagnosis, const char* check, const QString& result,
                 const QString& message) {
    const stFinding found = diagnosis.of(check);
    QVERIFY2(found.result == result, qPrintable(diagnosis.text));
    QVERIFY2(found.message.contains(message), qPrintable(found.message));
    QVERIFY2(!found.remedy.isEmpty(), check);
    QCOMPARE(diagnosis.exit, ExitCode::No);
}

}  // namespace

/// What the doctor finds, check by check.
class DoctorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothingIsFoundWhereNothingIsWrong();
    void thisComputerIsLookedAtWhenNoOtherIsNamed();
    void usbThatCannotBeUsedIsToldAndNothingBehindIt();
    void withoutACameraTheIdentitiesThatAreSeenAreTold();
    void aNodeThatMayNotBeOpenedIsToldWithOwnerAndMode();
    void aNodeThatIsMissing();
    void withoutARuleOnlyRootIsContent();
    void aRuleForAnotherIdentity_data();
    void aRuleForAnotherIdentity();
    void aRuleThatIsHiddenDoesNotCount();
    void aRuleThatIsNotInForce();
    void aUserWithoutSeatAndGroup();
    void aGroupIsAsGoodAsASeat();
    void aProgramThatHoldsTheCamera();
    void aDriverOfTheKernel();
    void speeds_data();
    void speeds();
    void aCameraThatDoesNotAnswer();
    void aRefusalIsOfItsCheckAlone();
    void clocksBatteriesAndCards_data();
    void clocksBatteriesAndCards();
    void aClockInAnHourThatSummerTimeSkipsHereIsOffAndNotUnset();
    void everyCameraIsCheckedOrTheOneThatIsChosen();
    void theTextIsForARequestAndHoldsNoSecrets();
};

void DoctorTest::nothingIsFoundWhereNothingIsWrong() {
    const Computer computer;
    const stDiagnosis diagnosis = computer.examined();
    QVERIFY2(diagnosis.exit == ExitCode::Done, qPrintable(diagnosis.text));
    QCOMPARE(diagnosis.order.join(u' '),
             u"versions rule usb camera node force seat driver speed holder answer firmware clock "
             "battery card"_s);
    for (const stFinding& finding : diagnosis.findings) {
        QCOMPARE(finding.result, u"ok"_s);
        QVERIFY(finding.remedy.isEmpty());
    }
    QVERIFY(diagnosis.text.endsWith(u"nothing was found to be wrong\n"_s));
    QCOMPARE(diagnosis.of("seat").message, u"you sit at seat0"_s);
    QCOMPARE(diagnosis.of("speed").message, u"480 Mbit/s"_s);
    QCOMPARE(diagnosis.of("usb").port, QString());
    QCOMPARE(diagnosis.of("node").port, u"1-2"_s);
}

void DoctorTest::thisComputerIsLookedAtWhenNoOtherIsNamed() {
    const stComputer here;
    QCOMPARE(here.root, QString());
    QCOMPARE(here.user, ::geteuid());
    QVERIFY(here.groups.contains(::getegid()));
    CliBench bench;
    bench.plug();
    const stRunResult run = CliBench::run({u"doctor"_s});
    QVERIFY2(run.out.contains(u"/dev/bus/usb/001/002 of "_s), qPrintable(run.out));
    QVERIFY2(run.out.contains(u"battery   85 %\n"_s), qPrintable(run.out));
}

void DoctorTest::usbThatCannotBeUsedIsToldAndNothingBehindIt() {
    const Computer computer;
    rlimit before{};
    QCOMPARE(::getrlimit(RLIMIT_NOFILE, &before), 0);
    rlimit none = before;
    none.rlim_cur = 0;
    QCOMPARE(::setrlimit(RLIMIT_NOFILE, &none), 0);
    const stDiagnosis diagnosis = computer.examined();
    QCOMPARE(::setrlimit(RLIMIT_NOFILE, &before), 0);
    verifyFound(diagnosis, "usb", u"failure"_s, u"USB cannot be used"_s);
    QCOMPARE(diagnosis.order.last(), u"usb"_s);
}

void DoctorTest::withoutACameraTheIdentitiesThatAreSeenAreTold() {
    Computer computer;
    QVERIFY(computer.bus().unplug(computer.id()));
    const stDiagnosis diagnosis = computer.examined();
    verifyFound(diagnosis, "camera", u"failure"_s, u"none among those seen, which are 1d6b:0002"_s);
    QCOMPARE(diagnosis.order.last(), u"camera"_s);
}

void DoctorTest::aNodeThatMayNotBeOpenedIsToldWithOwnerAndMode() {
    const Computer computer;
    computer.setMode(computer.node(), 0440);
    const WithoutFileOverride asAnyUser;
    const stDiagnosis diagnosis = computer.examined();
    const QFileInfo node(computer.path(computer.node()));
    verifyFound(diagnosis, "node", u"failure"_s,
                u"%1 of %2:%3 with mode 0440 may not be opened"_s.arg(node.filePath(), node.owner(),
                                                                      node.group()));
}

void DoctorTest::aNodeThatIsMissing() {
    const Computer computer;
    computer.remove(computer.node());
    verifyFound(computer.examined(), "node", u"failure"_s, u"No such file or directory"_s);
}

void DoctorTest::withoutARuleOnlyRootIsContent() {
    Computer computer;
    computer.remove(RULE_PATH);
    verifyFound(computer.examined(), "rule", u"warning"_s, u"none is installed"_s);
    computer.system().user = 0;
    const stDiagnosis asRoot = computer.examined();
    verifyOk(asRoot, "rule");
    QCOMPARE(asRoot.exit, ExitCode::Done);
}

void DoctorTest::aRuleForAnotherIdentity_data() {
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    QTest::newRow("vendor") << QByteArray("idVendor}==\"") << QByteArray("idVendor}==\"f");
    QTest::newRow("product") << QByteArray("idProduct}==\"") << QByteArray("idProduct}==\"f");
    QTest::newRow("comment") << QByteArray("SUBSYSTEM") << QByteArray("# SUBSYSTEM");
    QTest::newRow("two lines") << QByteArray(", ATTR{idProduct}")
                               << QByteArray("\nATTR{idProduct}");
}

void DoctorTest::aRuleForAnotherIdentity() {
    QFETCH(const QByteArray, from);
    QFETCH(const QByteArray, to);
    const Computer computer;
    computer.write(RULE_PATH, rule().replace(from, to));
    verifyFound(computer.examined(), "rule", u"failure"_s, u"is for another identity"_s);
}

void DoctorTest::aRuleThatIsHiddenDoesNotCount() {
    const Computer computer;
    computer.write("/etc/udev/rules.d/70-nubo-setting-tool.rules", "# nothing\n");
    verifyFound(computer.examined(), "rule", u"failure"_s, u"/etc/udev/rules.d/"_s);
}

void DoctorTest::aRuleThatIsNotInForce() {
    const Computer computer;
    computer.setMode(computer.node(), 0);
    const WithoutFileOverride asAnyUser;
    verifyOk(computer.examined(), "force");
    computer.write(computer.record(), "V:1\nG:systemd\n");
    verifyFound(computer.examined(), "force", u"failure"_s, u"no rule is in force"_s);
    computer.remove(computer.record());
    verifyFound(computer.examined(), "force", u"failure"_s, u"udev knows nothing"_s);
    computer.setMode(computer.node(), 0600);
    verifyOk(computer.examined(), "force");
}

void DoctorTest::aUserWithoutSeatAndGroup() {
    const Computer computer;
    computer.write("/run/systemd/seats/seat0", "ACTIVE_UID=10001\n");
    verifyOk(computer.examined(), "seat");  // the node may be opened all the same
    computer.setMode(computer.node(), 0);
    const WithoutFileOverride asAnyUser;
    verifyFound(computer.examined(), "seat", u"failure"_s, u"you sit at no seat"_s);
}

void DoctorTest::aGroupIsAsGoodAsASeat() {
    Computer computer;
    computer.remove("/run/systemd/seats/seat0");
    QCOMPARE(::chown(QFile::encodeName(computer.path(computer.node())).constData(),
                     static_cast<uid_t>(-1), ::getegid()),
             0);
    computer.setMode(computer.node(), 0660);
    computer.system().groups = {OTHER_GROUP};
    QVERIFY(!computer.examined().of("seat").message.contains(u"you are in the group"_s));
    computer.system().groups = {OTHER_GROUP, ::getegid()};
    QVERIFY(computer.examined().of("seat").message.contains(u"you are in the group"_s));
    computer.setMode(computer.node(), 0640);
    QVERIFY(!computer.examined().of("seat").message.contains(u"you are in the group"_s));
}

void DoctorTest::aProgramThatHoldsTheCamera() {
    Computer computer;
    computer.bus().setBusyInterfaces(computer.id(), {0});
    const stDiagnosis diagnosis = computer.examined();
    verifyFound(diagnosis, "holder", u"failure"_s, u"has the camera"_s);
    QCOMPARE(diagnosis.order.last(), u"holder"_s);
}

void DoctorTest::aDriverOfTheKernel() {
    const Computer computer;
    const QString interface = computer.path("/sys/bus/usb/devices/1-2:1.0");
    QVERIFY(QDir().mkpath(interface));
    QVERIFY(QFile::link(u"../../../drivers/usbfs"_s, interface + u"/driver"_s));
    verifyOk(computer.examined(), "driver");
    QVERIFY(QFile::remove(interface + u"/driver"_s));
    QVERIFY(QFile::link(u"../../../drivers/uvcvideo"_s, interface + u"/driver"_s));
    const stDiagnosis diagnosis = computer.examined();
    verifyFound(diagnosis, "driver", u"failure"_s, u"the kernel's driver uvcvideo"_s);
    QVERIFY(diagnosis.of("driver").remedy.contains(u"1-2:1.0"_s));
}

void DoctorTest::speeds_data() {
    QTest::addColumn<QByteArray>("speed");
    QTest::addColumn<QString>("result");
    QTest::newRow("low") << QByteArray("1.5\n") << u"warning"_s;
    QTest::newRow("full") << QByteArray("12\n") << u"warning"_s;
    QTest::newRow("high") << QByteArray("480\n") << u"ok"_s;
    QTest::newRow("super") << QByteArray("5000\n") << u"ok"_s;
    QTest::newRow("not known") << QByteArray() << u"ok"_s;
}

void DoctorTest::speeds() {
    QFETCH(const QByteArray, speed);
    const Computer computer;
    computer.write("/sys/bus/usb/devices/1-2/speed", speed);
    const stFinding found = computer.examined().of("speed");
    QTEST(found.result, "result");
    QCOMPARE(found.message, speed.isEmpty() ? u"not known"_s
                                            : QString::fromLatin1(speed.trimmed()) + u" Mbit/s"_s);
    QCOMPARE(found.remedy.isEmpty(), found.result == u"ok"_s);
}

void DoctorTest::aCameraThatDoesNotAnswer() {
    Computer computer;
    computer.bus().addFault(computer.id(), {.kind = FaultKind::Stall});
    const stDiagnosis diagnosis = computer.examined();
    verifyFound(diagnosis, "answer", u"failure"_s, u"USB_ERROR_OTHER"_s);
    QCOMPARE(diagnosis.order.last(), u"answer"_s);
}

void DoctorTest::aRefusalIsOfItsCheckAlone() {
    Computer computer;
    // The version, the serial number, then the clock.
    computer.bus().addFault(
        computer.id(),
        {.kind = FaultKind::CameraError, .argument = 0xFFF9, .unit = FaultUnit::Command, .nth = 3});
    const stDiagnosis diagnosis = computer.examined();
    verifyFound(diagnosis, "clock", u"failure"_s, u"NUBO_CMD_ERROR_BUSY"_s);
    verifyOk(diagnosis, "battery");
    verifyOk(diagnosis, "card");
}

void DoctorTest::clocksBatteriesAndCards_data() {
    QTest::addColumn<QByteArrayList>("items");
    QTest::addColumn<QString>("check");
    QTest::addColumn<QString>("message");  // empty: nothing is wrong
    using Items = QByteArrayList;
    QTest::newRow("old clock") << Items{"time", "2014/03/09 07:05:01"} << u"clock"_s << u" s off"_s;
    QTest::newRow("battery low") << Items{"battery", "19"} << u"battery"_s << u"19 %"_s;
    QTest::newRow("battery enough") << Items{"battery", "20"} << u"battery"_s << QString();
    QTest::newRow("no card") << Items{"sd-total", "0"} << u"card"_s << u"none"_s;
    QTest::newRow("card full") << Items{"sd-total", "1000", "sd-used", "1000"} << u"card"_s
                               << u"full"_s;
    QTest::newRow("card nearly full")
        << Items{"sd-total", "1000", "sd-used", "999"} << u"card"_s << QString();
}

void DoctorTest::clocksBatteriesAndCards() {
    QFETCH(const QByteArrayList, items);
    QFETCH(const QString, check);
    QFETCH(const QString, message);
    const Computer computer;
    for (qsizetype i = 0; i < items.size(); i += 2) {
        QVERIFY(computer.camera().set(items[i].toStdString(), items[i + 1].toStdString()));
    }
    const stDiagnosis diagnosis = computer.examined();
    if (message.isEmpty()) {
        verifyOk(diagnosis, check.toLatin1().constData());
        QCOMPARE(diagnosis.exit, ExitCode::Done);
    } else {
        verifyFound(diagnosis, check.toLatin1().constData(), u"warning"_s, message);
        QVERIFY(diagnosis.text.endsWith(u"warnings: 1, failures: 0\n"_s));
    }
}

void DoctorTest::aClockInAnHourThatSummerTimeSkipsHereIsOffAndNotUnset() {
    const SummerTime here;
    const Computer computer;
    QVERIFY(computer.camera().set("time", "2026/03/29 02:30:05"));
    verifyFound(computer.examined(), "clock", u"warning"_s, u" s off"_s);
}

void DoctorTest::everyCameraIsCheckedOrTheOneThatIsChosen() {
    Computer computer;
    computer.plug({.busyInterfaces = {0}});
    const stDiagnosis both = computer.examined();
    QCOMPARE(both.findings.count(u"camera"_s), 2);
    QCOMPARE(both.exit, ExitCode::No);
    const stDiagnosis one = computer.examined({u"doctor"_s, u"-c"_s, u"1-2"_s});
    QCOMPARE(one.findings.count(u"camera"_s), 1);
    QCOMPARE(one.exit, ExitCode::Done);
    verifyFound(computer.examined({u"doctor"_s, u"-c"_s, u"9-9"_s}), "camera", u"failure"_s,
                u"no camera \"9-9\""_s);
}

void DoctorTest::theTextIsForARequestAndHoldsNoSecrets() {
    const Computer computer;
    const QString text = computer.examined().text;
    for (const QString& part : {u"nuboctl "_s, u"libusb "_s, u"Qt "_s, u"Linux"_s,
                                u"serial number SIM0001"_s, u"1.00"_s}) {
        QVERIFY2(text.contains(part), qPrintable(text));
    }
    for (const QString& secret : {u"lantern"_s, u"breakwater"_s}) {
        QVERIFY(!text.contains(secret));
    }
}

const TestSubject registered = subjectWithoutApplication<DoctorTest>();
#include "DoctorTest.moc"
