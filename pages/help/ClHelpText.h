// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>

/// The texts of the help page, for its parts too: tr() looks them up under the page's name.
class ClHelpText {
    Q_DECLARE_TR_FUNCTIONS(ClWidgetHelp)
};
