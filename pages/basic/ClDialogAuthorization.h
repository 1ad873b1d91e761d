// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ClDialogBase.h"

#include <array>
#include <cstdint>

class QLineEdit;
class QRadioButton;

/// Asks whether the live stream needs a password, and for a new one: one to sixteen printable ASCII
/// characters without the space.
///
/// Parameters in: whether authorization is used (bool), the current password (QString). Parameters
/// out: whether it is used (bool), the new password (QString), which may be empty when it is not.
class ClDialogAuthorization : public ClDialogBase {
    Q_OBJECT

public:
    explicit ClDialogAuthorization(QWidget* parent = nullptr);

    void setParam(const QVariantList& params) override;
    [[nodiscard]] QVariantList getParam() override;

public Q_SLOTS:
    /// Stays open, with a message, unless the passwords are right or none is used.
    void accept() override;
    void slotChangeSetting(bool use);

private:
    enum Field : std::uint8_t { Now, New, Check, FIELDS };

    /// What is wrong with the passwords; empty when nothing is.
    [[nodiscard]] QString complaint() const;

    QRadioButton* m_notUse = nullptr;
    QRadioButton* m_use = nullptr;
    QWidget* m_passwords;
    std::array<QLineEdit*, FIELDS> m_fields{};
    QString m_current;  ///< the camera's password
};
