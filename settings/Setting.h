// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>
#include <QUuid>

#include <cstdint>
#include <span>
#include <string_view>
#include <variant>

/// What a value is, and so how it is written and told.
enum class SettingKind {
    Switch,    ///< bool
    Number,    ///< qint64
    Duration,  ///< qint64, seconds
    Choice,    ///< qint64 or QSize
    Text,      ///< QString
    Address,   ///< QString, dotted
    Netmask,   ///< QString, dotted
    TimeZone,  ///< qint64, the camera's number of the zone
    Clock,     ///< QDateTime of the camera's own clock, as cameraClock() has it
    Capacity,  ///< qint64, bytes
};

/// The characters that a text may have.
enum class SettingCharacters {
    OneByte,       ///< printable ones of Latin-1, which is what the camera keeps
    Visible,       ///< those of ASCII without the space
    Alphanumeric,  ///< letters and digits of ASCII
};

/// One of the values of a choice.
struct stSettingChoice {
    std::string_view name;                    ///< as it is told
    std::variant<unsigned int, QSize> value;  ///< as messages to and from the camera carry it
    std::string_view alias = {};              ///< taken as well
};

/// What the camera may be set to.
struct stSettingRange {
    std::int64_t least = 0;  ///< of a text: of its characters
    std::int64_t most = 0;
    std::int64_t step = 1;
    /// Beside the range: the duration 0, "off", and the address 0.0.0.0, "none".
    bool hasNone = false;
    SettingCharacters characters = SettingCharacters::OneByte;
    std::span<const stSettingChoice> choices = {};
};

/// The messages that move a value, alone or together with others.
struct stSettingExchange {
    QUuid request;
    QUuid answer;
    QUuid write;  ///< takes the values in the order of the answer; null: only told

    /// The same for whoever only shows the values.
    [[nodiscard]] constexpr stSettingExchange toldOnly() const { return {request, answer, {}}; }
};

// What sets a setting apart; bits.
inline constexpr unsigned int SECRET = 1;    ///< shown only when asked for
inline constexpr unsigned int VOLATILE = 2;  ///< changes by itself, and is in no profile
inline constexpr unsigned int FACTORY = 4;   ///< written by the factory alone

/// One value that the camera tells, or can be set to.
struct stSetting {
    std::string_view key;
    SettingKind kind;
    stSettingExchange exchange;
    int place;  ///< among the values of the exchange, from 0
    stSettingRange range;
    unsigned int flags;
    std::string_view unit;
    std::string_view explanation;

    [[nodiscard]] constexpr bool is(unsigned int flag) const { return (flags & flag) != 0; }
    [[nodiscard]] constexpr bool isReadOnly() const {
        return is(FACTORY) || exchange.write.isNull();
    }
    /// Whether a profile holds it.
    [[nodiscard]] constexpr bool isKept() const { return !isReadOnly() && !is(VOLATILE); }
};
