// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ClDialogBase.h"

class QSize;
template <class Value>
class ClStreamChoices;

/// Asks for the picture size of recordings.
class ClDialogRecSetting : public ClDialogBase {
    Q_OBJECT

public:
    explicit ClDialogRecSetting(QWidget* parent);

    /// [0] the size (QSize). One that is not offered, or none, shows as 1920 x 1080. What follows
    /// is ignored.
    void setParam(const QVariantList& params) override;
    /// [0] the size (QSize).
    [[nodiscard]] QVariantList getParam() override;

private:
    ClStreamChoices<QSize>* m_sizes;
};
