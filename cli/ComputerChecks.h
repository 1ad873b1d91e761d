// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Checks.h"
#include "cli/ClCameraFinder.h"

#include <QList>

/// Where the files of a computer are found, and who runs the program. Made without arguments, it
/// is this computer and this user; tests look at a tree of their own.
struct stComputer {
    stComputer();

    QString root{};  ///< stands before every path
    unsigned int user = 0;
    QList<unsigned int> groups{};
};

/// Whether the rule that gives the user the right to open cameras is installed, and is for the
/// cameras of this program.
void checkRule(Checks& checks, const stComputer& computer);

/// What the system has made of @p camera: its node and who may open it, by which rule, seat or
/// group; the driver that has its interface; its speed.
void checkDevice(Checks& checks, const stComputer& computer, const stCamera& camera);
