// SPDX-License-Identifier: MIT
#pragma once

#include "settings/Setting.h"

#include <QVariant>

#include <array>
#include <cstdint>
#include <memory>
#include <span>

class ClDialogBase;
class QWidget;

/// What a row reads with one request and, if the exchange has a write, writes with one command.
struct stRowExchange {
    stSettingExchange exchange;
    /// What the dialog gets in place of the value; null: the value.
    QVariant (*convert)(const QVariant&) = nullptr;
};

/// The parts of the page, from top to bottom.
enum class BasicSettingSection : std::uint8_t { Name, Time, Wifi, Other };

/// A button of the basic settings page and all that happens when it is clicked.
///
/// Its exchanges are read one after the other. The values of all of them in a row go to the dialog;
/// the values that the dialog returns are dealt out in the same order to those that can be written.
struct stBasicSettingRow {
    BasicSettingSection section;
    const char* text;  ///< of the button; null: the button shows the camera's name
    std::unique_ptr<ClDialogBase> (*createDialog)(QWidget* page);
    std::array<stRowExchange, 2> exchanges;  ///< the second with a null request: there is only one
};

/// The rows from top to bottom; sections stand together. Texts are of ClWidgetBasicSetting.
[[nodiscard]] std::span<const stBasicSettingRow> basicSettingRows();

/// The caption of @p section, null for none.
[[nodiscard]] const char* sectionCaption(BasicSettingSection section);
