// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>

/// The texts of the stream setting page, for its dialogs too: tr() looks them up under the page's
/// name.
class ClStreamText {
    Q_DECLARE_TR_FUNCTIONS(ClWidgetStreamSetting)
};
