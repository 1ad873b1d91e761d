// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/ClNuboCommand.h"

#include <QString>

/// A packet of a multi-packet answer that carries two counted strings behind param1. Only parsed,
/// never sent. Text arrives as Latin-1.
class ClNuboCommandRecord : public ClNuboCommand {
public:
    ClNuboCommandRecord() = default;
    explicit ClNuboCommandRecord(const QByteArray& packet) { ClNuboCommandRecord::setData(packet); }

    void setData(const QByteArray& packet) override;

    [[nodiscard]] QString firstString() const { return m_firstString; }
    [[nodiscard]] QString secondString() const { return m_secondString; }

private:
    QString m_firstString;
    QString m_secondString;
};

/// The packet with the texts of the Wi-Fi information.
class ClNuboCommandWifiInfo1 : public ClNuboCommandRecord {
public:
    using ClNuboCommandRecord::ClNuboCommandRecord;
};

/// The packet with the values of the Wi-Fi information.
class ClNuboCommandWifiInfo2 : public ClNuboCommand {
public:
    using ClNuboCommand::ClNuboCommand;
};

/// The packet with the texts of an access point; param1 is its number, counted from 1.
class ClNuboCommandAccesspointInfo1 : public ClNuboCommandRecord {
public:
    using ClNuboCommandRecord::ClNuboCommandRecord;
};

/// The packet with the values of an access point; param1 is its number, counted from 1.
class ClNuboCommandAccesspointInfo2 : public ClNuboCommand {
public:
    using ClNuboCommand::ClNuboCommand;
};
