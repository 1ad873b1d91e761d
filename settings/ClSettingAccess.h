// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/CommandMessage.h"
#include "settings/Setting.h"

#include <QHash>
#include <QUuid>
#include <QVariant>

#include <span>

class ClCameraTransactions;

/// A setting and a value for it.
struct stSettingChange {
    const stSetting* setting;
    QVariant value;
};

/// Reads and writes the settings of one camera. Values that travel together are read once, until
/// one of them is written. On the thread of the transactions.
///
/// Results are 0, a transport code or the camera's own error code.
class ClSettingAccess {
public:
    explicit ClSettingAccess(ClCameraTransactions& camera) : m_camera(camera) {}

    /// @p value is of the type that the setting's kind names.
    [[nodiscard]] unsigned short read(const stSetting& setting, QVariant& value);

    /// Writes @p changes, which all are of one exchange, with one command; what else travels with
    /// them stays as the camera has it.
    [[nodiscard]] unsigned short write(std::span<const stSettingChange> changes);

    /// Makes the next read ask the camera.
    void forget() { m_answers.clear(); }

private:
    [[nodiscard]] unsigned short readExchange(const stSettingExchange& exchange, VX_CMD& answer);

    ClCameraTransactions& m_camera;
    QHash<QUuid, VX_CMD> m_answers;  ///< by the request
};

/// The code of the command that tells @p setting. Thread-safe.
[[nodiscard]] unsigned short getCode(const stSetting& setting);
/// The code of the command that sets @p setting; 0 when there is none. Thread-safe.
[[nodiscard]] unsigned short setCode(const stSetting& setting);
