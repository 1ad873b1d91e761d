// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/ClNuboCommand.h"

#include <QString>

/// A command or answer that carries one string in place of param1 and param2:
///
///     offset  width  field
///         12      4  byte count n
///         16      n  the bytes, without a terminator
///       16+n    3x4  param3 to param5
///
/// With an empty string the packet is the plain one. Text travels as Latin-1; characters beyond it
/// become '?'.
class ClNuboCommandString : public ClNuboCommand {
public:
    ClNuboCommandString(const QString& string, unsigned short code);

    void setData(const QByteArray& packet) override;
    [[nodiscard]] QByteArray getData() const override;

    [[nodiscard]] QString string() const { return m_string; }

private:
    QString m_string;
};
