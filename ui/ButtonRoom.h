// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>

class QPushButton;

/// Makes @p button at least as large as @p least, and as wide as its text with room on both sides:
/// some desktops' styles leave a text 4 pixels from the border. The button has its text by now.
void giveTextRoom(QPushButton* button, QSize least = {});
