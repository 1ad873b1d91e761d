// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>

/// The texts of the basic setting page, for its dialogs too: tr() looks them up under the page's
/// name.
class ClBasicSettingText {
    Q_DECLARE_TR_FUNCTIONS(ClWidgetBasicSetting)
};
