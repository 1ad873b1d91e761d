// SPDX-License-Identifier: MIT
#include "protocol/DataPackets.h"
#include "protocol/NuboCommands.h"
#include "simulator/CameraCommands.h"
#include "simulator/ImageReceiver.h"
#include "simulator/Outbox.h"
#include "simulator/Wire.h"
#include "tests/properties/RandomValues.h"
#include "tests/support/TestSubject.h"

#include <QTest>

#include <functional>

using namespace nubo::simulator;

namespace {

constexpr int ROUNDS = 2000;
constexpr quint32 LONGEST_TEXT = 200;

ByteVector bytesOf(const QByteArray& bytes) {
    return {bytes.begin(), bytes.end()};
}

QByteArray packetOf(const ByteVector& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

QString textOf(const std::string& text) {
    return QString::fromLatin1(QByteArray::fromStdString(text));
}

/// What the camera makes of a command's packet; nothing when it cannot read it.
std::optional<CommandRequest> readByCamera(const ClNuboCommand& command, PacketForm form) {
    const ByteVector packet = bytesOf(command.getData());
    const auto request = readRequest(packet, form);
    const bool isCommand = isOfType(packet, PacketType::Command) && command.id() != 0 &&
                           readU32(packet, LENGTH_OFFSET) == packet.size() &&
                           readU16(packet, CODE_OFFSET) == command.code();
    return request && isCommand && request->id == command.id() ? request : std::nullopt;
}

/// Carries out a command in the camera and hands it the answer. @return its result
unsigned short execute(ClNuboCommand& command, CameraState& state) {
    const CommandAnswer answer = executeCommand(bytesOf(command.getData()), state);
    command.setData(packetOf(answer.packets.at(0)));
    return command.getError();
}

/// Sets a value and reads it back.
template <class Set, class Get, class Value, class Read>
bool comesBack(const Value& value, CameraState& state, Read read) {
    Set set(value);
    Get get;
    return execute(set, state) == 0 && execute(get, state) == 0 && std::invoke(read, get) == value;
}

unsigned int firstOf(const ClNuboCommand& command) {
    return command.param(1);
}

}  // namespace

/// Every form of packet, as the tool writes it and the camera reads it, and the other way round.
/// Both know the wire from its description alone.
class EncodingsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_values = RandomValues(1); }

    void theCameraReadsPlainCommands();
    void theCameraReadsTexts();
    void theCameraReadsSsidAndKey();
    void theCameraReadsImages();
    void theToolReadsPlainAnswers();
    void theToolReadsTexts();
    void theToolReadsRecords();
    void theToolReadsData();
    void addressesComeBack();
    void numbersAndSwitchesComeBack();
    void sizesComeBack();
    void timesComeBack();
    void severalValuesComeBackInTheirPlaces();
    void cardSizesOf64BitsArrive();

private:
    RandomValues m_values{1};
};

void EncodingsTest::theCameraReadsPlainCommands() {
    for (int round = 0; round < ROUNDS; ++round) {
        const Parameters parameters{m_values.number(), m_values.number(), m_values.number(),
                                    m_values.number(), m_values.number()};
        const auto code = static_cast<unsigned short>(m_values.number());
        const auto id = static_cast<unsigned short>(m_values.below(0xFFFF) + 1);
        const ClNuboCommand command(code, parameters[0], parameters[1], parameters[2],
                                    parameters[3], parameters[4], id, 0,
                                    ClNuboCommand::PLAIN_LENGTH);
        const auto request = readByCamera(command, PacketForm::Plain);
        QVERIFY(request);
        QCOMPARE(request->id, id);
        QVERIFY(request->parameters == parameters);
    }
}

void EncodingsTest::theCameraReadsTexts() {
    for (int round = 0; round < ROUNDS; ++round) {
        const QString text = m_values.text(LONGEST_TEXT);
        const auto request = readByCamera(ClNuboCommandSetStunServer(text), PacketForm::Text);
        QVERIFY(request);
        QCOMPARE(textOf(request->texts[0]), text);
        QVERIFY(request->parameters == Parameters{});
    }
}

void EncodingsTest::theCameraReadsSsidAndKey() {
    for (int round = 0; round < ROUNDS; ++round) {
        const QString ssid = m_values.text(LONGEST_TEXT);
        const QString key = m_values.text(LONGEST_TEXT);
        const auto request =
            readByCamera(ClNuboCommandConnectWifi(ssid, key), PacketForm::TwoTexts);
        QVERIFY(request);
        QCOMPARE(textOf(request->texts[0]), ssid);
        QCOMPARE(textOf(request->texts[1]), key);
    }
}

void EncodingsTest::theCameraReadsImages() {
    constexpr quint32 LONGEST_IMAGE = 5000;
    for (int round = 0; round < ROUNDS / 10; ++round) {
        const QByteArray image = m_values.bytes(LONGEST_IMAGE) + 'i';
        const ClNuboCommandExecFwUpdateData command(static_cast<unsigned int>(image.size()));
        const auto request = readByCamera(command, PacketForm::Plain);
        QVERIFY(request);
        QCOMPARE(request->parameters[0], static_cast<quint32>(image.size()));
        ImageReceiver receiver;
        receiver.expect(request->id, request->parameters[0]);
        const auto result =
            receiver.take(bytesOf(ClNuboCommandDataSend(command.id(), image).getData()));
        QVERIFY(result && result->isWhole);
        QCOMPARE(packetOf(result->image), image);
    }
}

void EncodingsTest::theToolReadsPlainAnswers() {
    for (int round = 0; round < ROUNDS; ++round) {
        const auto id = static_cast<std::uint16_t>(m_values.number());
        const auto result = static_cast<CameraResult>(m_values.number());
        const Parameters parameters{m_values.number(), m_values.number(), m_values.number(),
                                    m_values.number(), m_values.number()};
        const ClNuboCommand answer(packetOf(plainAnswer(id, result, parameters)));
        QCOMPARE(answer.type(), static_cast<unsigned short>(PacketType::Answer));
        QCOMPARE(answer.id(), id);
        QCOMPARE(answer.length(), ClNuboCommand::PLAIN_LENGTH);
        QCOMPARE(answer.getError(), static_cast<unsigned short>(result));
        for (int number = 1; number <= ClNuboCommand::PARAM_COUNT; ++number) {
            QCOMPARE(answer.param(number), parameters[static_cast<std::size_t>(number - 1)]);
        }
    }
}

void EncodingsTest::theToolReadsTexts() {
    for (int round = 0; round < ROUNDS; ++round) {
        const QString text = m_values.text(LONGEST_TEXT);
        const Parameters parameters{0, 0, m_values.number(), m_values.number(), m_values.number()};
        ClNuboCommandGetGpsInfo answer;
        answer.setData(
            packetOf(textAnswer(answer.id(), text.toLatin1().toStdString(), parameters)));
        QCOMPARE(answer.getError(), 0);
        QCOMPARE(answer.string(), text);
        for (const int number : {3, 4, 5}) {
            QCOMPARE(answer.param(number), parameters[static_cast<std::size_t>(number - 1)]);
        }
    }
}

void EncodingsTest::theToolReadsRecords() {
    for (int round = 0; round < ROUNDS; ++round) {
        const QString first = m_values.text(LONGEST_TEXT);
        const QString second = m_values.text(LONGEST_TEXT);
        const quint32 number = m_values.number();
        const ClNuboCommandAccesspointInfo1 record(packetOf(
            twoTextAnswer(static_cast<std::uint16_t>(round), number, first.toLatin1().toStdString(),
                          second.toLatin1().toStdString())));
        QCOMPARE(record.id(), round);
        QCOMPARE(record.param(1), number);
        QCOMPARE(record.firstString(), first);
        QCOMPARE(record.secondString(), second);
    }
}

void EncodingsTest::theToolReadsData() {
    constexpr quint32 LONGEST_DATA = 5000;
    for (int round = 0; round < ROUNDS / 10; ++round) {
        const QByteArray data = m_values.bytes(LONGEST_DATA);
        const auto id = static_cast<std::uint16_t>(m_values.number());
        Outbox outbox;
        outbox.addData(id, std::make_shared<const ByteVector>(bytesOf(data)));
        ClNuboCommandDataReceive receiver(id, static_cast<unsigned int>(data.size()));
        do {
            const auto packet = outbox.next();
            QVERIFY(packet);
            QVERIFY(receiver.addData(packetOf(*packet)));
        } while (receiver.isIncomplete());
        QVERIFY(outbox.isEmpty());
        QCOMPARE(receiver.receivedData(), data);
    }
}

void EncodingsTest::addressesComeBack() {
    CameraState state;
    for (int round = 0; round < ROUNDS; ++round) {
        const QString address = m_values.address();
        const auto isBack = comesBack<ClNuboCommandSetInfraAddress, ClNuboCommandGetInfraAddress>(
            address, state, &ClNuboCommandGetInfraAddress::getAddress);
        QVERIFY2(isBack, qPrintable(address));
        // The first octet is on top in the camera.
        QCOMPARE(state.settings.infraAddress >> 24U, address.section(u'.', 0, 0).toUInt());
    }
}

void EncodingsTest::numbersAndSwitchesComeBack() {
    CameraState state;
    for (int round = 0; round < ROUNDS; ++round) {
        const quint32 port = m_values.below(65'535) + 1;
        const auto isBack =
            comesBack<ClNuboCommandSetRtspPort, ClNuboCommandGetRtstPort>(port, state, &firstOf);
        QVERIFY2(isBack, qPrintable(QString::number(port)));
        QCOMPARE(state.settings.rtspPort, port);

        const bool isOn = m_values.isTrue();
        ClNuboCommandSetInfraUseDhcp set(isOn);
        ClNuboCommandGetInfraUseDhcp get;
        QCOMPARE(execute(set, state), 0);
        QCOMPARE(execute(get, state), 0);
        QCOMPARE(get.valueToBool(get.param(1)), isOn);
        QCOMPARE(state.settings.infraUseDhcp, isOn ? ON : OFF);
    }
}

void EncodingsTest::sizesComeBack() {
    CameraState state;
    for (const QSize& size : REC_SIZES) {
        const auto isBack = comesBack<ClNuboCommandSetRecImagesize, ClNuboCommandGetRecImagesize>(
            size, state, &ClNuboCommandGetRecImagesize::getSize);
        QVERIFY(isBack);
    }
    for (const QSize& size : LIVE_SIZES) {
        const auto isBack = comesBack<ClNuboCommandSetLiveImagesize, ClNuboCommandGetLiveImagesize>(
            size, state, &ClNuboCommandGetLiveImagesize::getSize);
        QVERIFY(isBack);
    }
}

void EncodingsTest::timesComeBack() {
    CameraState state;
    for (int round = 0; round < ROUNDS; ++round) {
        const QDateTime time = m_values.time();
        ClNuboCommandSetTime set(time);
        ClNuboCommandGetTime get;
        QCOMPARE(execute(set, state), 0);
        QCOMPARE(execute(get, state), 0);
        // The camera's clock runs.
        const qint64 later = time.secsTo(get.getTime());
        QVERIFY2(later >= 0 && later < 60, qPrintable(time.toString(Qt::ISODate)));
    }
}

void EncodingsTest::severalValuesComeBackInTheirPlaces() {
    CameraState state;
    for (int round = 0; round < ROUNDS; ++round) {
        const bool isUsed = m_values.isTrue();
        const quint32 delay = m_values.below(1000);
        const quint32 period = m_values.below(1000) + 1;
        ClNuboCommandSetIntervalTimer setTimer(isUsed, delay, period);
        QCOMPARE(execute(setTimer, state), 0);
        QCOMPARE(state.settings.intervalUse, isUsed ? ON : OFF);
        QCOMPARE(state.settings.intervalDelay, delay);
        QCOMPARE(state.settings.intervalPeriod, period);

        const std::array switches{m_values.isTrue(), m_values.isTrue(), m_values.isTrue()};
        const quint32 format = m_values.below(2) + 1;
        ClNuboCommandSetGpsSetting setGps(switches[0], switches[1], switches[2], format);
        QCOMPARE(execute(setGps, state), 0);
        QCOMPARE(state.settings.gpsUse, switches[0] ? ON : OFF);
        QCOMPARE(state.settings.gpsSaveLogs, switches[1] ? ON : OFF);
        QCOMPARE(state.settings.gpsAdjustTime, switches[2] ? ON : OFF);
        QCOMPARE(state.settings.gpsLogFormat, format);
    }
}

void EncodingsTest::cardSizesOf64BitsArrive() {
    CameraState state;
    for (int round = 0; round < ROUNDS; ++round) {
        state.sdCard.total = quint64{m_values.number()} << 32U | m_values.number();
        state.sdCard.used = quint64{m_values.number()} << 32U | m_values.number();
        ClNuboCommandGetSdInfo get;
        QCOMPARE(execute(get, state), 0);
        QCOMPARE(get.getSdSize(), state.sdCard.total);
        QCOMPARE(get.getSdUsedSize(), state.sdCard.used);
    }
}

const TestSubject registered = subjectWithoutScreen<EncodingsTest>();

#include "EncodingsTest.moc"
