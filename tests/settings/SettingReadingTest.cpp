// SPDX-License-Identifier: MIT
#include "protocol/ClBulkPort.h"
#include "settings/ClSettingAccess.h"
#include "settings/SettingTable.h"
#include "settings/TimeZone.h"
#include "tests/support/PortCamera.h"
#include "tests/support/TestSubject.h"

#include <QTest>

#include <atomic>
#include <limits>

namespace {

/// A camera that answers every command with the same parameters.
class AnsweringPort : public ClBulkPort {
public:
    explicit AnsweringPort(const QByteArray& parameters) : m_parameters(parameters) {}

    [[nodiscard]] const std::atomic<bool>& stop() const { return m_stop; }

    int write(const QByteArray& data, int /*timeoutMs*/, unsigned char /*endpoint*/) override {
        m_id = data.mid(2, 2);
        return static_cast<int>(data.size());
    }
    QByteArray read(int /*timeoutMs*/, unsigned char /*endpoint*/, int* /*status*/) override {
        return QByteArray::fromHex("0100") + m_id + QByteArray::fromHex("2000000000000000") +
               m_parameters;
    }

private:
    QByteArray m_parameters;
    QByteArray m_id;
    std::atomic<bool> m_stop = false;
};

qint64 readNumber(const stSetting& setting, const char* parameters) {
    PortCamera<AnsweringPort> camera(QByteArray::fromHex(parameters));
    camera.setCamera(nullptr);  // settings name none: there is but one
    QVariant value;
    const unsigned short result = ClSettingAccess(camera).read(setting, value);
    return result == 0 ? value.toLongLong() : -1;
}

}  // namespace

/// What is read from a camera that reports unusual values.
class SettingReadingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    static void aCardsSizeComesInBytes();
    static void aSizeBeyondAllNumbersIsTheLargest();
    static void aZoneThatIsNoneComesAsItIs();
};

// The size and the used size, each its upper half first, in KiB.
void SettingReadingTest::aCardsSizeComesInBytes() {
    const char* card = "0100000002000000 0000000001000000 03000000";
    QCOMPARE(readNumber(setting("sd.total"), card), ((qint64{1} << 32) + 2) * 1024);
    QCOMPARE(readNumber(setting("sd.used"), card), 1024);
    QCOMPARE(readNumber(setting("sd.free"), card), ((qint64{1} << 32) + 1) * 1024);
}

void SettingReadingTest::aSizeBeyondAllNumbersIsTheLargest() {
    constexpr qint64 LARGEST = std::numeric_limits<qint64>::max();
    // The largest size that has a number in bytes, and one KiB more.
    QCOMPARE(readNumber(setting("sd.total"), "ffff1f00ffffffff 0000000000000000 03000000"),
             LARGEST - 1023);
    QCOMPARE(readNumber(setting("sd.total"), "0000200000000000 0000000000000000 03000000"),
             LARGEST);
    QCOMPARE(readNumber(setting("sd.total"), "ffffffffffffffff 0000000000000000 03000000"),
             LARGEST);
}

void SettingReadingTest::aZoneThatIsNoneComesAsItIs() {
    QCOMPARE(zoneText(24), QStringLiteral("UTC-12"));
    QCOMPARE(zoneText(25), QStringLiteral("25"));
    QCOMPARE(zoneText(-1), QStringLiteral("-1"));
}

const TestSubject registered = subjectWithoutScreen<SettingReadingTest>();

#include "SettingReadingTest.moc"
