// SPDX-License-Identifier: MIT
#include "simulator/FunctionDescriptors.h"
#include "simulator/GadgetPipe.h"
#include "simulator/GadgetSetup.h"
#include "tests/support/TestSubject.h"

#include <QTemporaryDir>
#include <QTest>

#include <sys/file.h>

#include <fcntl.h>

#include <filesystem>
#include <fstream>

using namespace nubo::simulator;
using namespace Qt::StringLiterals;

/// What is missing for a gadget, on a computer whose parts are folders of the test, and what the
/// kernel is told. The kernel itself is met in tests/kernel.
class GadgetSetupTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void configfsIsMissing();
    void noControllerIsThere();
    void anotherControllerIsAskedFor();
    void theControllerHasAnotherGadget();
    void theControllerHasAnotherSimulator();
    void theFirstFreeControllerIsTaken();
    void theInterfaceIsReportedAtBothSpeeds();
    void faultsThatAGadgetCannotPlayAreRefused_data();
    void faultsThatAGadgetCannotPlayAreRefused();

private:
    [[nodiscard]] QString complaint(const std::string& controller = {}) const {
        return QString::fromStdString(GadgetSetup(m_places).create(controller));
    }
    void addController(const std::string& name, const std::string& user = {}) const {
        std::filesystem::create_directories(m_places.controllers / name);
        std::ofstream(m_places.controllers / name / "function") << user << '\n';
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    GadgetPlaces m_places;
};

void GadgetSetupTest::init() {
    m_folder = std::make_unique<QTemporaryDir>();
    const std::filesystem::path root = m_folder->path().toStdString();
    m_places = {root / "config", root / "udc", root / "run"};
    std::filesystem::create_directories(m_places.configfs / "usb_gadget");
    std::filesystem::create_directories(m_places.controllers);
}

void GadgetSetupTest::configfsIsMissing() {
    std::filesystem::remove_all(m_places.configfs);
    QCOMPARE(complaint(),
             u"the file system configfs is not there: modprobe configfs, then mount -t "
             "configfs configfs "_s +
                 QString::fromStdString(m_places.configfs.string()));
}

void GadgetSetupTest::noControllerIsThere() {
    QCOMPARE(complaint(),
             u"this computer has no USB device controller: switch the device mode of its port on "
             "(without such a port: modprobe dummy_hcd)"_s);
}

void GadgetSetupTest::anotherControllerIsAskedFor() {
    addController("a.usb");
    addController("b.usb");
    QCOMPARE(complaint("c.usb"), u"no controller \"c.usb\" (--udc): there is a.usb, b.usb"_s);
}

void GadgetSetupTest::theControllerHasAnotherGadget() {
    addController("a.usb", "g_ether");
    QCOMPARE(complaint(),
             u"the controller a.usb is in use by the gadget g_ether: take that away, or choose one "
             "with --udc"_s);
}

void GadgetSetupTest::theControllerHasAnotherSimulator() {
    addController("a.usb");
    std::filesystem::create_directories(m_places.run);
    const FileDescriptor other(
        ::open((m_places.run / "a.usb.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    QCOMPARE(::flock(other.number(), LOCK_EX), 0);
    QCOMPARE(
        complaint("a.usb"),
        u"the controller a.usb is in use by another nubo-camera-simulator: end that, or choose "
        "one with --udc"_s);
}

// The file system of the test is no configfs: the gadget gets no further than its folders.
void GadgetSetupTest::theFirstFreeControllerIsTaken() {
    addController("a.usb", "g_ether");
    addController("b.usb");
    GadgetSetup setup(m_places);
    QVERIFY(!setup.create({}).empty());
    QCOMPARE(setup.controller(), std::string("b.usb"));
}

void GadgetSetupTest::theInterfaceIsReportedAtBothSpeeds() {
    const AlternateSetting setting = DeviceDescription::cameraInterface().alternates.front();
    const std::vector<std::uint8_t> bytes = encodeFunction(setting);
    const QByteArray told(reinterpret_cast<const char*>(bytes.data()),
                          static_cast<qsizetype>(bytes.size()));
    QCOMPARE(told.toHex(' '),
             QByteArray("03 00 00 00 42 00 00 00 03 00 00 00 03 00 00 00 03 00 00 00 "
                        "09 04 00 00 02 ff 00 00 00 07 05 81 02 40 00 00 07 05 02 02 40 00 00 "
                        "09 04 00 00 02 ff 00 00 00 07 05 81 02 00 02 00 07 05 02 02 00 02 00"));
    const std::vector<std::uint8_t> strings = encodeFunctionStrings();
    QCOMPARE(strings, (std::vector<std::uint8_t>{2, 0, 0, 0, 16, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
}

void GadgetSetupTest::faultsThatAGadgetCannotPlayAreRefused_data() {
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("unit");
    QTest::addColumn<bool>("refused");
    for (const FaultInfo& info : faultTable()) {
        for (const FaultUnit unit : {FaultUnit::Transfer, FaultUnit::Command}) {
            const bool refused = info.kind == FaultKind::Busy || info.kind == FaultKind::Stall ||
                                 info.kind == FaultKind::Babble ||
                                 info.kind == FaultKind::UnplugBefore ||
                                 (info.kind == FaultKind::Timeout && unit == FaultUnit::Transfer);
            QTest::addRow("%s of a %s", info.name.data(),
                          unit == FaultUnit::Command ? "command" : "transfer")
                << static_cast<int>(info.kind) << static_cast<int>(unit) << refused;
        }
    }
}

void GadgetSetupTest::faultsThatAGadgetCannotPlayAreRefused() {
    QFETCH(const int, kind);
    QFETCH(const int, unit);
    QFETCH(const bool, refused);
    const std::string refusal = GadgetPipe::refusal(
        {.kind = static_cast<FaultKind>(kind), .unit = static_cast<FaultUnit>(unit)});
    QCOMPARE(refusal.starts_with("a gadget cannot do this: "), refused);
    QCOMPARE(refusal.empty(), !refused);
}

const TestSubject registered = subjectWithoutScreen<GadgetSetupTest>();
#include "GadgetSetupTest.moc"
