// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ClDialogBase.h"

class ClStreamChoices;

// The dialogs of the stream setting page.

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
    ClStreamChoices* m_sizes;
};

/// Asks for the picture size and the frame rate of the live view.
class ClDialogStreamSetting : public ClDialogBase {
    Q_OBJECT

public:
    explicit ClDialogStreamSetting(QWidget* parent);

    /// [0] the size (QSize), [1] the rate in pictures per second (unsigned int). One that is not
    /// offered, or none, shows as 320 x 240 and as 30.
    void setParam(const QVariantList& params) override;
    /// The same two.
    [[nodiscard]] QVariantList getParam() override;

private:
    ClStreamChoices* m_sizes;
    ClStreamChoices* m_rates;
};
