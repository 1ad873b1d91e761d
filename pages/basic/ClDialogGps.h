// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ClDialogBase.h"

#include <array>
#include <cstdint>

class QRadioButton;

/// Asks what the camera does with its GPS receiver.
///
/// Parameters in and out: whether it is used (bool), whether logs are saved (bool), whether the
/// clock is adjusted (bool), the format of the logs (in: unsigned int, out: int; 1 the short one, 2
/// the full one). Missing ones leave what is shown.
class ClDialogGps : public ClDialogBase {
    Q_OBJECT

public:
    explicit ClDialogGps(QWidget* parent = nullptr);

    void setParam(const QVariantList& params) override;
    [[nodiscard]] QVariantList getParam() override;

private:
    enum Choice : std::uint8_t { Use, Log, Format, Adjust, CHOICES };

    struct stPair {
        QRadioButton* first;
        QRadioButton* second;
    };

    void addChoice(Choice choice, QWidget* parent);

    std::array<stPair, CHOICES> m_pairs{};  ///< from top to bottom
};
