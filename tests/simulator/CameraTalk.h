// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/VirtualCamera.h"

#include <QByteArrayList>

/// Talking to a VirtualCamera in hexadecimal, with blanks where they help the reader.
namespace nubo::simulator {

inline void tell(VirtualCamera& camera, const QByteArray& hex) {
    const QByteArray raw = QByteArray::fromHex(hex);
    camera.receive(
        {reinterpret_cast<const std::uint8_t*>(raw.data()), static_cast<std::size_t>(raw.size())});
}

/// All packets that the camera has ready.
inline QByteArrayList answers(VirtualCamera& camera) {
    QByteArrayList packets;
    while (const auto packet = camera.send()) {
        packets.append(QByteArray(reinterpret_cast<const char*>(packet->data()),
                                  static_cast<qsizetype>(packet->size()))
                           .toHex());
    }
    return packets;
}

inline QByteArrayList ask(VirtualCamera& camera, const QByteArray& hex) {
    tell(camera, hex);
    return answers(camera);
}

inline QByteArray plainHex(const QByteArray& hex) {
    return QByteArray::fromHex(hex).toHex();
}

/// A command of id 0x1234 with the code and the parameters as they stand on the wire; parameters
/// that are left out are 0.
inline QByteArray command(const QByteArray& code, const QByteArray& parameters = {}) {
    constexpr qsizetype PARAMETER_DIGITS = 40;
    return "0000 3412 20000000" + code + "0000" +
           plainHex(parameters).leftJustified(PARAMETER_DIGITS, '0');
}

/// The answer to it.
inline QByteArray reply(const QByteArray& result, const QByteArray& parameters = {}) {
    constexpr qsizetype PARAMETER_DIGITS = 40;
    return plainHex("0100 3412 20000000" + result + "0000" +
                    plainHex(parameters).leftJustified(PARAMETER_DIGITS, '0'));
}

}  // namespace nubo::simulator
