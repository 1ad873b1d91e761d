// SPDX-License-Identifier: MIT
#include "tests/support/WireText.h"

#include <QtEndian>

namespace {

QByteArray idText(quint16 id) {
    const quint16 wire = qToLittleEndian(id);
    return QByteArray(reinterpret_cast<const char*>(&wire), sizeof wire).toHex();
}

}  // namespace

QByteArray wireBytes(const QByteArray& text, quint16 id) {
    QByteArray digits = text;
    digits.replace("<id>", idText(id));
    digits.replace("<other>", idText(static_cast<quint16>(id + 1)));
    digits.replace(' ', QByteArray());
    const QByteArray bytes = QByteArray::fromHex(digits);
    // fromHex() passes over what is no digit: a slip of the pen would shorten the packet unseen.
    if (bytes.size() * 2 != digits.size()) {
        qFatal("Not hexadecimal: %s", text.constData());
    }
    return bytes;
}

QByteArray wireText(const QByteArray& bytes) {
    return bytes.isEmpty() ? QByteArrayLiteral("nothing") : bytes.toHex(' ');
}
