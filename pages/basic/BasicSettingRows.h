// SPDX-License-Identifier: MIT
#pragma once

#include <QUuid>
#include <QVariantList>

#include <array>
#include <cstdint>
#include <memory>
#include <span>

class ClDialogBase;
class QWidget;

/// A setting of the camera: the request that reads it, the answer, the command that sets it, and
/// the types of its values.
struct stCameraSetting {
    /// Makes a variant of just the type that the value has; what is missing becomes its default.
    using Conversion = QVariant (*)(const QVariant&);

    QUuid request;
    QUuid answer;
    QUuid command;                     ///< null: this setting is only read
    std::array<Conversion, 4> values;  ///< from Key::PARAM2 on; null where there are no more
};

/// The parts of the page, from top to bottom.
enum class BasicSettingSection : std::uint8_t { Name, Time, Wifi, Other };

/// A button of the basic settings page and all that happens when it is clicked.
///
/// Its settings are read one after the other. The values of all of them in a row go to the dialog;
/// the values that the dialog returns are dealt out in the same order to those that can be set.
struct stBasicSettingRow {
    BasicSettingSection section;
    const char* text;  ///< of the button; null: the button shows the camera's name
    std::unique_ptr<ClDialogBase> (*createDialog)(QWidget* page);
    std::array<stCameraSetting, 2> settings;  ///< the second with a null request: there is only one
};

/// The rows from top to bottom; sections stand together. Texts are of ClWidgetBasicSetting.
[[nodiscard]] std::span<const stBasicSettingRow> basicSettingRows();

/// The caption of @p section, null for none.
[[nodiscard]] const char* sectionCaption(BasicSettingSection section);
