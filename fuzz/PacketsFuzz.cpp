// SPDX-License-Identifier: MIT
//
// The parsers of all answers. The whole input is the packet.
#include "fuzz/Check.h"
#include "fuzz/FuzzTarget.h"
#include "fuzz/PacketFields.h"
#include "protocol/NuboCommands.h"
#include "protocol/TextPackets.h"

#include <algorithm>
#include <array>

namespace {

constexpr unsigned short ANY_CODE = 0x5030;
constexpr qsizetype PLAIN_LENGTH = ClNuboCommand::PLAIN_LENGTH;
constexpr qsizetype COUNT_OFFSET = 12;
constexpr qsizetype STRING_OFFSET = 16;

template <class Command>
Command parsed(const QByteArray& packet) {
    Command command;
    command.setData(packet);
    return command;
}

/// What a plain parser keeps of @p packet: its whole fields but the reserved one, then zeros.
QByteArray plainForm(const QByteArray& packet) {
    constexpr std::array<qsizetype, 11> FIELD_ENDS{0, 2, 4, 8, 10, 12, 16, 20, 24, 28, 32};
    const qsizetype arrived = *std::prev(std::ranges::upper_bound(FIELD_ENDS, packet.size()));
    QByteArray kept = packet.first(arrived);
    kept.append(PLAIN_LENGTH - arrived, '\0');
    return kept.replace(10, 2, QByteArray(2, '\0'));
}

void checkPlain(const QByteArray& packet) {
    const QByteArray expected = plainForm(packet);
    FUZZ_CHECK(ClNuboCommand(packet).getData() == expected);
    FUZZ_CHECK(ClNuboCommandWifiInfo2(packet).getData() == expected);
    FUZZ_CHECK(ClNuboCommandAccesspointInfo2(packet).getData() == expected);
    FUZZ_CHECK(ClNuboCommand(packet.constData(), static_cast<int>(packet.size())).getData() ==
               expected);
    FUZZ_CHECK(ClNuboCommand(packet).getError() == field<quint16>(packet, CODE_OFFSET));
}

void checkString(const QByteArray& packet) {
    ClNuboCommandString answer(QStringLiteral("left over"), ANY_CODE);
    answer.setData(packet);
    const QByteArray bytes =
        packet.mid(STRING_OFFSET, static_cast<qsizetype>(field<quint32>(packet, COUNT_OFFSET)));
    FUZZ_CHECK(answer.string() == QString::fromLatin1(bytes));

    // Of a count without bytes nothing is left to be sent again.
    const QByteArray again = answer.getData();
    if (answer.param(1) == 0 || !bytes.isEmpty()) {
        ClNuboCommandString second({}, ANY_CODE);
        second.setData(again);
        FUZZ_CHECK(second.string() == answer.string());
        FUZZ_CHECK(second.getData() == again);
    }
}

void checkRecord(const QByteArray& packet) {
    const ClNuboCommandWifiInfo1 wifi(packet);
    const ClNuboCommandAccesspointInfo1 accesspoint(packet);
    FUZZ_CHECK(wifi.firstString() == accesspoint.firstString());
    FUZZ_CHECK(wifi.secondString() == accesspoint.secondString());
    FUZZ_CHECK(wifi.param(1) == field<quint32>(packet, COUNT_OFFSET));
    const qsizetype arrived = std::max<qsizetype>(packet.size() - STRING_OFFSET, 0);
    FUZZ_CHECK(wifi.firstString().size() + wifi.secondString().size() <= arrived);
}

void checkAddress(const QByteArray& packet) {
    const auto answer = parsed<ClNuboCommandGetInfraAddress>(packet);
    const ClNuboCommandSetInfraAddress again(answer.getAddress());
    FUZZ_CHECK(again.param(1) == answer.param(1));
}

template <class Getter, class Setter>
void checkSize(const QByteArray& packet) {
    const auto answer = parsed<Getter>(packet);
    const QSize size = answer.getSize();
    FUZZ_CHECK(Setter(size).param(1) == (size.isValid() ? answer.param(1) : 0));
}

void checkTime(const QByteArray& packet) {
    const auto answer = parsed<ClNuboCommandGetTime>(packet);
    if (const QDateTime time = answer.getTime(); time.isValid()) {
        const ClNuboCommandSetTime again(time);
        FUZZ_CHECK(again.param(1) == answer.param(1));
        FUZZ_CHECK(again.param(2) == answer.param(2));
    }
}

void checkCreateDay(const QByteArray& packet) {
    const auto answer = parsed<ClNuboCommandGetCreateDay>(packet);
    if (const QDateTime day = answer.getCreateDay(); day.isValid()) {
        FUZZ_CHECK(textToDateTime(ClNuboCommandSetCreateDay(day).string()) == day);
    }
}

void checkCountry(const QByteArray& packet) {
    const auto answer = parsed<ClNuboCommandGetCountry>(packet);
    const QString country = answer.getCountry();
    FUZZ_CHECK(country.size() <= 2);
    FUZZ_CHECK(!country.contains(QChar::Null));
    const ClNuboCommandSetCountry again(country);
    FUZZ_CHECK(unpackCountry(again.param(1), again.param(2)) == country);
}

void checkSdInfo(const QByteArray& packet) {
    const auto answer = parsed<ClNuboCommandGetSdInfo>(packet);
    FUZZ_CHECK(answer.getSdSize() >> 32 == answer.param(1));
    FUZZ_CHECK(answer.getSdUsedSize() >> 32 == answer.param(3));
}

void checkPassword(const QByteArray& packet) {
    const auto answer = parsed<ClNuboCommandGetStreamAuthorizationPassword>(packet);
    FUZZ_CHECK(answer.getPassword() == answer.string());
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto packet =
        QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    checkPlain(packet);
    checkString(packet);
    checkRecord(packet);
    checkAddress(packet);
    checkSize<ClNuboCommandGetRecImagesize, ClNuboCommandSetRecImagesize>(packet);
    checkSize<ClNuboCommandGetLiveImagesize, ClNuboCommandSetLiveImagesize>(packet);
    checkTime(packet);
    checkCreateDay(packet);
    checkCountry(packet);
    checkSdInfo(packet);
    checkPassword(packet);
    return 0;
}
