// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/ClNuboCommand.h"

#include <QString>

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
