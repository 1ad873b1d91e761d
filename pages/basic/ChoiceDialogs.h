// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ClDialogBase.h"

#include <array>
#include <cstdint>

class QComboBox;
class QRadioButton;
class QSlider;

// The dialogs of the basic settings in which the user chooses among values.

/// Asks for the camera's time zone.
///
/// Parameters in and out: the zone (unsigned int) as the camera counts it: 0 to 12 hours east of
/// Greenwich, and 12 more than the hours west of it from 13 to 24. A zone that does not exist shows
/// none, and "OK" waits for a choice.
class ClDialogTimezone : public ClDialogBase {
    Q_OBJECT

public:
    explicit ClDialogTimezone(QWidget* parent = nullptr);

    void setParam(const QVariantList& params) override;
    [[nodiscard]] QVariantList getParam() override;

private:
    QComboBox* m_zone;
};

/// Asks by which country's rules the camera uses Wi-Fi.
///
/// Parameters in: whether the camera needs a country (bool), so that "Auto" is not
/// offered, and the country (unsigned int, from 1 to 4, which is "Auto"); fewer than both are left
/// alone. A country that does not exist shows none, and "OK" waits for a choice. Parameters out:
/// the country (unsigned int).
class ClDialogWifiCountry : public ClDialogBase {
    Q_OBJECT

public:
    explicit ClDialogWifiCountry(QWidget* parent = nullptr);

    void setParam(const QVariantList& params) override;
    [[nodiscard]] QVariantList getParam() override;

private:
    QComboBox* m_country;
};

/// Asks whether the camera's LED lights when it is switched on.
///
/// Parameters in and out: whether it lights (bool).
class ClDialogLed : public ClDialogBase {
    Q_OBJECT

public:
    explicit ClDialogLed(QWidget* parent = nullptr);

    void setParam(const QVariantList& params) override;
    [[nodiscard]] QVariantList getParam() override;

private:
    QRadioButton* m_light = nullptr;
    QRadioButton* m_notLight = nullptr;
};

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
