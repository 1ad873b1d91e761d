// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class QWidget;

/// What a user would find wrong with the places of the texts that @p window shows: a text that is
/// cut off, by its own widget or by one around it, and a text that lies on another one. Each
/// complaint names the text. A text that is elided and says the whole in its tool tip is well, and
/// so is one that can be scrolled into view.
[[nodiscard]] QStringList misplacedTexts(const QWidget& window);
