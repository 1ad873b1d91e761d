// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/ScriptedPort.h"

#include <QByteArray>

// Packets of the catalogue's conversations, as wireBytes() takes them. Code, parameters, lengths
// and texts are written out by hand in the order of the wire; what every packet repeats is filled
// in here.

/// The plain packet that the tool sends. Parameters that are not given are 0.
[[nodiscard]] QByteArray plainRequest(const char* code, const QByteArray& parameters = {});
/// The packet with a text that the tool sends: @p text is a byte count and the bytes.
[[nodiscard]] QByteArray textRequest(const char* length, const char* code, const QByteArray& text);

/// The camera's plain answer: success. Parameters that are not given are noise, so that a value
/// taken from a wrong place shows.
[[nodiscard]] QByteArray plainAnswer(const QByteArray& parameters = {});
/// The camera's answer with a text: a byte count and the bytes. The parameters are noise, but for
/// the third if it is given.
[[nodiscard]] QByteArray textAnswer(const char* length, const QByteArray& text,
                                    const char* third = "99999999");

/// The camera's plain answer with this error code.
[[nodiscard]] QByteArray refusal(quint16 code);
