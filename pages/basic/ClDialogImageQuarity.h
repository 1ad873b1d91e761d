// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ClDialogBase.h"

class QSlider;

/// Asks for the contrast of the pictures, from light to dark in five steps.
///
/// Parameters: the step from 0 to 4 (in: unsigned int, out: int).
class ClDialogImageQuarity : public ClDialogBase {
    Q_OBJECT

public:
    explicit ClDialogImageQuarity(QWidget* parent = nullptr);

    void setParam(const QVariantList& params) override;
    [[nodiscard]] QVariantList getParam() override;

private:
    QSlider* m_contrast;
};
