// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// The bytes of a packet written out in hexadecimal, blanks ignored. Two words stand for what only
/// the run knows: `<id>` is the transaction id @p id, `<other>` an id of somebody else.
[[nodiscard]] QByteArray wireBytes(const QByteArray& text, quint16 id = 0);

/// @p bytes in hexadecimal, for messages.
[[nodiscard]] QByteArray wireText(const QByteArray& bytes);
