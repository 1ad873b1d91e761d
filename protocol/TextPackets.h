// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/ClNuboCommand.h"

#include <QString>

// The packets that carry texts: in place of parameters, or packed into one.

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

/// A command or answer that carries an IPv4 address in param1, the first octet in the most
/// significant byte.
///
/// The text is packed by adding up its parts, each shifted to its place: a part above 255 spills
/// into the octet before it, a part that is no number counts 0, and the number of parts is not
/// checked. Whoever asks the user for an address validates it first.
class ClNuboCommandIpv4 : public ClNuboCommand {
public:
    ClNuboCommandIpv4(const QString& address, unsigned short code);

    /// The address as dotted text.
    [[nodiscard]] QString getAddress() const;
};

/// Joins the camera to a Wi-Fi network. Two counted strings, SSID and key, stand in place of param1
/// to param4; param5 follows. Text travels as Latin-1.
class ClNuboCommandConnectWifi : public ClNuboCommand {
public:
    static constexpr unsigned short CODE = 0x6807;

    ClNuboCommandConnectWifi(const QString& ssid, const QString& key);

    [[nodiscard]] QByteArray getData() const override;

private:
    QString m_ssid;
    QString m_key;
};

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
