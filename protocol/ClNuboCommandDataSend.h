// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/ClNuboCommand.h"

/// The data packet that follows a command with a payload. It has only an 8-byte head:
///
///     offset  width  field
///          0      2  packet type     2
///          2      2  transaction id  of the command that announced the data
///          4      4  byte count n
///          8      n  the payload
///
/// The whole payload goes out as one packet, whatever its size.
class ClNuboCommandDataSend : public ClNuboCommand {
public:
    ClNuboCommandDataSend(unsigned short id, const QByteArray& payload);
    ClNuboCommandDataSend(unsigned short id, const char* payload, int size);  ///< @p size in bytes

    [[nodiscard]] QByteArray getData() const override;

private:
    QByteArray m_data;
};
