// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QTest>
#include <QVariantList>

/// The values of a dialog's parameter list with their types, which equal variants may differ in:
/// "bool true", "uint 60".
inline QStringList typedValues(const QVariantList& values) {
    QStringList texts;
    for (const QVariant& value : values) {
        texts.append(QString::fromLatin1(value.typeName()) + u' ' + value.toString());
    }
    return texts;
}

/// Types @p text with one key, as an input method for any script does.
inline void typeAtOnce(QWidget* field, const QString& text) {
    QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, text, Qt::NoModifier);
}
