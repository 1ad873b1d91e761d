// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

// The camera's results, as they stand on the wire.
namespace nubo::simulator {

inline const QByteArray SUCCESS = "0000";
inline const QByteArray WRONG_LENGTH = "fdff";
inline const QByteArray UNKNOWN = "fcff";
inline const QByteArray OUT_OF_RANGE = "fbff";
inline const QByteArray NOT_EXECUTED = "faff";
inline const QByteArray CARD_FULL = "f7ff";

}  // namespace nubo::simulator
