// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ClDialogBase.h"

class QLineEdit;

/// Asks for the camera's name: one to eight letters and digits of ASCII.
///
/// Parameters in and out: the name (QString).
class ClDialogCameraName : public ClDialogBase {
    Q_OBJECT

public:
    explicit ClDialogCameraName(QWidget* parent = nullptr);

    void setParam(const QVariantList& params) override;
    [[nodiscard]] QVariantList getParam() override;

public Q_SLOTS:
    /// Stays open, with a message, while there is no name.
    void accept() override;

private:
    QLineEdit* m_name;
};
