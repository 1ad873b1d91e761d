// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>

/// The texts of the network page, for its parts and dialogs too: tr() looks them up under the
/// page's name.
class ClNetworkText {
    Q_DECLARE_TR_FUNCTIONS(ClWidgetNetworkSetting)
};
