// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

#include <array>

/// What a walker may do next. Numbers choose among what there is, modulo its count.
enum class eStep : char {
    Mode = 'm',    ///< click a mode's button; number of the mode
    Button = 'b',  ///< click a button
    Choice = 'c',  ///< click something that can be checked, or a tab
    Type = 't',    ///< replace a line edit's text; which edit, which text
    Key = 'k',     ///< press a key in a control; which control, which key
    Row = 'r',     ///< choose an access point
    Escape = 'x',  ///< press Escape
    Accept = 'o',  ///< click OK
    Unplug = 'u',  ///< pull the camera's cable
    Plug = 'p',    ///< plug the camera in
    Fault = 'f',   ///< disturb the bus; kind, transfer or command, which one from now, how often
    Wait = 'w',    ///< let so many milliseconds pass
};

/// One step of a walk. As a text it is its letter and its numbers: "f3,1,2,1".
struct stStep {
    eStep kind;
    std::array<int, 4> numbers{};

    [[nodiscard]] QString text() const;
    bool operator==(const stStep&) const = default;
};

using Walk = QList<stStep>;

/// The walk of a seed, always the same. Every other one only looks: it opens, accepts and closes
/// what there is, and changes nothing in it.
[[nodiscard]] Walk randomWalk(unsigned seed);
[[nodiscard]] bool onlyLooks(const Walk& walk);

[[nodiscard]] QString walkText(const Walk& walk);
/// The walk of a text; empty when it is none.
[[nodiscard]] Walk walkFromText(const QString& text);
