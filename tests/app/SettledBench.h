// SPDX-License-Identifier: MIT
#pragma once

#include "pages/help/ClWidgetHelp.h"
#include "tests/app/BusBench.h"
#include "tests/support/HelpReader.h"

#include <QList>

/// The commands of the help page: firmware version, serial number, MAC address, day, country.
inline const QList<int> HELP_CHAIN{0x503A, 0x4001, 0x4002, 0x4006, 0x4007};
inline constexpr int STREAM_MODE = 4;
inline constexpr int HELP_MODE = 5;

/// A bench that serves many rows of a test, without a new window and a camera plugged in for each.
class SettledBench : public BusBench {
public:
    using BusBench::BusBench;

    /// Starts a row on the camera state page with all its values: all is forgotten that the rows
    /// before have left.
    [[nodiscard]] bool startRow() {
        user.setAction(acceptBox);
        const bool isSettled = settle();
        m_boxesBefore = user.boxes().size();
        camera->forgetCodes();
        return isSettled;
    }
    /// Starts a row by a click on @p mode.
    [[nodiscard]] bool startRow(int mode) {
        const bool isSettled = startRow();
        clickMode(mode);
        camera->forgetCodes();
        return isSettled;
    }

    /// The texts of the row's boxes.
    [[nodiscard]] QStringList texts() const { return user.texts().mid(m_boxesBefore); }

    [[nodiscard]] HelpReader help() const { return HelpReader(*window.findChild<ClWidgetHelp*>()); }

    /// Whether the help page, asked again, has all its values.
    [[nodiscard]] bool visitHelp() const {
        clickMode(HELP_MODE);
        return QTest::qWaitFor([this] { return !help().values().contains(QStringLiteral("--")); },
                               PATIENCE_MS);
    }

    /// All that the camera received in this row. Commands are served in the order of their coming:
    /// once those of the help page are through, so is everything before them.
    [[nodiscard]] QList<stReceivedCommand> finishRow() const {
        const bool isThrough = visitHelp();
        const QList<stReceivedCommand> commands = camera->commands();
        return isThrough && commands.size() >= HELP_CHAIN.size()
                   ? commands.first(commands.size() - HELP_CHAIN.size())
                   : QList<stReceivedCommand>{{-1, "the help page was not read"}};
    }

private:
    qsizetype m_boxesBefore = 0;
};
