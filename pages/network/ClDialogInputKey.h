// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ClDialogBase.h"

class QLineEdit;

/// Asks for the encryption key of an access point. Its parameter list holds the key, of letters and
/// digits.
class ClDialogInputKey : public ClDialogBase {
    Q_OBJECT

public:
    /// With @p mustInput, an empty key is not accepted.
    ClDialogInputKey(QWidget* parent, bool mustInput);

    void setParam(const QVariantList& params) override;
    [[nodiscard]] QVariantList getParam() override;
    /// Closes the dialog, unless a key is missing: then a box says so.
    void accept() override;

Q_SIGNALS:
    void sigConnect(const QString& key);

public Q_SLOTS:
    /// Shows the key as it is, or hidden behind dots.
    void slotChangeShow(bool isShown);

private:
    QLineEdit* m_key;
    bool m_mustInput;
};
