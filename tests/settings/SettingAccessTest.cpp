// SPDX-License-Identifier: MIT
#include "protocol/ClCameraAccess.h"
#include "protocol/ClNuboCommand.h"
#include "protocol/ResultCodes.h"
#include "settings/ClSettingAccess.h"
#include "settings/SettingTable.h"
#include "tests/support/TestSubject.h"
#include "tests/support/WireText.h"

#include <QTest>

#include <array>
#include <limits>
#include <utility>

namespace {

const QByteArray GET_INTERVAL =
    "0000 0000 20000000 1150 0000 00000000 00000000 00000000 00000000 "
    "00000000";
const QByteArray INTERVAL =
    "0100 0000 20000000 0000 0000 01000000 0a000000 3c000000 00000000 "
    "00000000";
const QByteArray DONE = "0100 0000 20000000 0000 0000 00000000 00000000 00000000 00000000 00000000";
const QByteArray BUSY = "0100 0000 20000000 f9ff 0000 00000000 00000000 00000000 00000000 00000000";

/// Answers plain commands with packets that are written out; other transactions fail.
class PaperCamera : public ClCameraTransactions {
public:
    explicit PaperCamera(const QByteArrayList& answers) : m_answers(answers) {}

    /// What was sent, without the transaction ids.
    [[nodiscard]] QByteArrayList takeSent() { return std::exchange(m_sent, {}); }

    unsigned short execNuboCommand(ClNuboCommand& command, ClUsbController* /*controller*/,
                                   int /*timeoutMs*/) override {
        QByteArray packet = command.getData();
        m_sent.append(packet.replace(2, 2, QByteArray(2, '\0')));
        if (m_answers.isEmpty()) {
            return USB_ERROR_TIMEOUT;
        }
        command.setData(wireBytes(m_answers.takeFirst()));
        return command.getError();
    }
    unsigned short execNuboDataWrite(ClNuboCommand& /*command*/, ClNuboCommandDataSend& /*data*/,
                                     ClUsbController* /*controller*/) override {
        return USB_ERROR_OTHER;
    }
    unsigned short execNuboDataRead(ClNuboCommand& /*command*/, ClNuboCommandDataReceive& /*data*/,
                                    ClUsbController* /*controller*/) override {
        return USB_ERROR_OTHER;
    }
    unsigned short execNuboGetWifiInfo(ClUsbController* /*controller*/,
                                       stWifiInfo* /*info*/) override {
        return USB_ERROR_OTHER;
    }
    unsigned short execNuboGetAccesspointList(ClUsbController* /*controller*/,
                                              QList<stAccesspointInfo>* /*list*/) override {
        return USB_ERROR_OTHER;
    }

private:
    QByteArrayList m_answers;
    QByteArrayList m_sent;
};

QVariant valueOf(ClSettingAccess& access, const stSetting& row) {
    QVariant value;
    return access.read(row, value) == 0 ? value : QVariant();
}

}  // namespace

/// Settings read from the camera's answers, and written into its commands.
class SettingAccessTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void capacitiesAreToldInBytes_data();
    void capacitiesAreToldInBytes();
    void valuesThatTravelTogetherAreReadOnce();
    void oneOfThemIsWrittenWithTheOthersAsTheyAre();
    void severalOfThemAreWrittenByOneCommand();
    void aValueThatTravelsAloneIsWrittenWithoutReading();
    void nothingIsWrittenWhenTheOthersCannotBeRead();
    void aFailureLeavesTheValueAlone();
    void everySettingHasItsCodes();
};

void SettingAccessTest::capacitiesAreToldInBytes_data() {
    QTest::addColumn<QByteArray>("sizes");
    QTest::addColumn<qint64>("total");
    QTest::addColumn<qint64>("used");
    QTest::addColumn<qint64>("rest");
    constexpr qint64 MOST = std::numeric_limits<qint64>::max();
    QTest::newRow("8 GB") << QByteArray("00000000 002c7600 00000000 66a21700") << 7930380288LL
                          << 1586075648LL << 6344304640LL;
    QTest::newRow("both words") << QByteArray("01000000 02000000 00000000 01000000")
                                << 0x40000000800LL << 1024LL << 0x40000000400LL;
    QTest::newRow("more used than there is")
        << QByteArray("00000000 01000000 00000000 02000000") << 1024LL << 2048LL << 0LL;
    QTest::newRow("more than can be told")
        << QByteArray("ffffffff ffffffff 00000000 00000000") << MOST << 0LL << MOST;
}

void SettingAccessTest::capacitiesAreToldInBytes() {
    QFETCH(const QByteArray, sizes);
    PaperCamera camera({"0100 0000 20000000 0000 0000 " + sizes + " 03000000"});
    ClSettingAccess access(camera);
    QTEST(valueOf(access, setting("sd.total")).toLongLong(), "total");
    QTEST(valueOf(access, setting("sd.used")).toLongLong(), "used");
    QTEST(valueOf(access, setting("sd.free")).toLongLong(), "rest");
}

void SettingAccessTest::valuesThatTravelTogetherAreReadOnce() {
    PaperCamera camera({INTERVAL, INTERVAL});
    ClSettingAccess access(camera);
    QCOMPARE(valueOf(access, setting("interval.enabled")), QVariant(false));
    QCOMPARE(valueOf(access, setting("interval.delay")), QVariant(10LL));
    QCOMPARE(valueOf(access, setting("interval.period")), QVariant(60LL));
    QCOMPARE(camera.takeSent(), QByteArrayList{wireBytes(GET_INTERVAL)});
    access.forget();
    QCOMPARE(valueOf(access, setting("interval.period")), QVariant(60LL));
    QCOMPARE(camera.takeSent(), QByteArrayList{wireBytes(GET_INTERVAL)});
}

void SettingAccessTest::oneOfThemIsWrittenWithTheOthersAsTheyAre() {
    PaperCamera camera({INTERVAL, DONE, INTERVAL});
    ClSettingAccess access(camera);
    const stSettingChange change{&setting("interval.delay"), 30LL};
    QCOMPARE(access.write({&change, 1}), 0);
    QCOMPARE(camera.takeSent(),
             (QByteArrayList{wireBytes(GET_INTERVAL),
                             wireBytes("0000 0000 20000000 1158 0000 01000000 1e000000 3c000000 "
                                       "00000000 00000000")}));
    // What was read before the write no longer counts.
    QCOMPARE(valueOf(access, setting("interval.delay")), QVariant(10LL));
    QCOMPARE(camera.takeSent(), QByteArrayList{wireBytes(GET_INTERVAL)});
}

void SettingAccessTest::severalOfThemAreWrittenByOneCommand() {
    PaperCamera camera({INTERVAL, DONE});
    ClSettingAccess access(camera);
    const std::array changes{stSettingChange{&setting("interval.enabled"), true},
                             stSettingChange{&setting("interval.period"), 5LL}};
    QCOMPARE(access.write(changes), 0);
    QCOMPARE(camera.takeSent().value(1),
             wireBytes("0000 0000 20000000 1158 0000 02000000 0a000000 05000000 00000000 "
                       "00000000"));
}

void SettingAccessTest::aValueThatTravelsAloneIsWrittenWithoutReading() {
    PaperCamera camera({DONE});
    ClSettingAccess access(camera);
    const stSettingChange change{&setting("camera.name"), QStringLiteral("Tern")};
    QCOMPARE(access.write({&change, 1}), 0);
    QCOMPARE(camera.takeSent(),
             QByteArrayList{wireBytes(
                 "0000 0000 20000000 3058 0000 04000000 5465726e 00000000 00000000 00000000")});
}

void SettingAccessTest::nothingIsWrittenWhenTheOthersCannotBeRead() {
    PaperCamera camera({BUSY});
    ClSettingAccess access(camera);
    const stSettingChange change{&setting("interval.delay"), 30LL};
    QCOMPARE(access.write({&change, 1}), NUBO_CMD_ERROR_BUSY);
    QCOMPARE(camera.takeSent(), QByteArrayList{wireBytes(GET_INTERVAL)});
}

void SettingAccessTest::aFailureLeavesTheValueAlone() {
    PaperCamera camera({});
    ClSettingAccess access(camera);
    QVariant value = 7;
    QCOMPARE(access.read(setting("image.contrast"), value), USB_ERROR_TIMEOUT);
    QCOMPARE(value, QVariant(7));
}

void SettingAccessTest::everySettingHasItsCodes() {
    QCOMPARE(getCode(setting("camera.name")), 0x5030);
    QCOMPARE(setCode(setting("camera.name")), 0x5830);
    QCOMPARE(getCode(setting("battery.charge")), 0x5037);
    QCOMPARE(setCode(setting("battery.charge")), 0);
}

const TestSubject registered = subjectWithoutApplication<SettingAccessTest>();
#include "SettingAccessTest.moc"
