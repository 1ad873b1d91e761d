// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QValidator>

/// Guards the typing of an IPv4 address: refuses what cannot become one, moves on to the next octet
/// after three digits and takes that dot back when it is deleted. It never answers Intermediate;
/// whether the address is complete, and free of the signs and spaces that QString::toInt() reads
/// over, is a matter of validIpv4().
///
/// It remembers the text before, so one validator serves one line edit.
class ClIpv4Validator : public QValidator {
    Q_OBJECT

public:
    explicit ClIpv4Validator(QObject* parent = nullptr);

    /// May append a dot to @p input or remove its last character, and move @p pos along.
    State validate(QString& input, int& pos) const override;

private:
    void moveOn(QString& input, int& pos, int lastOctet) const;

    mutable QString m_accepted;  // the last text, known only inside validate()
};
