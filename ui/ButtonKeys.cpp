// SPDX-License-Identifier: MIT
#include "ui/ButtonKeys.h"

#include <QAbstractButton>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace {

QList<QShortcut*> shortcutsOf(const QAbstractButton& button) {
    return button.findChildren<QShortcut*>(Qt::FindDirectChildrenOnly);
}

void describeKeys(QAbstractButton* button) {
    const QString keys = keysOf(*button).join(u", "_s);
    const QString name =
        button->accessibleName().isEmpty() ? button->text().remove(u'&') : button->accessibleName();
    button->setToolTip(keys.isEmpty() ? QString() : u"%1 (%2)"_s.arg(name, keys));
    button->setAccessibleDescription(keys);
}

}  // namespace

void addKeys(QAbstractButton* button, const QList<QKeySequence>& keys, eKeysWhile when) {
    auto* shortcut = new QShortcut(button);
    shortcut->setKeys(keys);
    shortcut->setAutoRepeat(false);
    QObject::connect(shortcut, &QShortcut::activated, button, &QAbstractButton::click);
    if (when != eKeysWhile::Always) {
        const auto enable = [button, shortcut, when](bool isChecked) {
            shortcut->setEnabled(isChecked == (when == eKeysWhile::Checked));
            describeKeys(button);
        };
        QObject::connect(button, &QAbstractButton::toggled, shortcut, enable);
        enable(button->isChecked());
    }
    describeKeys(button);
}

QStringList keysOf(const QAbstractButton& button) {
    QStringList names;
    for (const QShortcut* shortcut : shortcutsOf(button)) {
        if (shortcut->isEnabled()) {
            for (const QKeySequence& key : shortcut->keys()) {
                names.append(key.toString(QKeySequence::NativeText));
            }
        }
    }
    return names;
}
