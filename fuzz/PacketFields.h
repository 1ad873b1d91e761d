// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QtEndian>

// Offsets of the fields of a packet, and how to read one: written a second time, so that a
// misreading in the code under test shows.

inline constexpr qsizetype ID_OFFSET = 2;
inline constexpr qsizetype LENGTH_OFFSET = 4;
inline constexpr qsizetype CODE_OFFSET = 8;

/// The number at @p offset of @p packet; 0 when it has not arrived whole.
template <class Number>
[[nodiscard]] Number field(const QByteArray& packet, qsizetype offset) {
    return packet.size() < offset + static_cast<qsizetype>(sizeof(Number))
               ? Number{0}
               : qFromLittleEndian<Number>(packet.constData() + offset);
}
