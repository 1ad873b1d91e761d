// SPDX-License-Identifier: MIT
#pragma once

#include <QKeySequence>
#include <QList>
#include <QStringList>

class QAbstractButton;

// Keys for buttons, whether or not they can have the focus.

/// When the keys of a button are its own: one key may serve several buttons in turn.
enum class eKeysWhile { Always, Checked, Unchecked };

/// Has each of @p keys press @p button as a click does, anywhere in its window, while it is visible
/// and enabled and no dialog is open. Its tool tip and assistive technology name the keys that are
/// the button's at the moment; so give @p button its name first.
void addKeys(QAbstractButton* button, const QList<QKeySequence>& keys,
             eKeysWhile when = eKeysWhile::Always);

/// The keys that are @p button's at the moment, as the desktop writes them.
[[nodiscard]] QStringList keysOf(const QAbstractButton& button);
