// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/CameraState.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace nubo::simulator {

enum class ValueForm {
    Number,
    Switch,   ///< OFF or ON, "off" or "on" in text
    Address,  ///< IPv4, the first octet on top
    Text,
};

/// One value of the camera that one command reads and another one sets.
struct CameraValue {
    using Place = std::variant<std::uint32_t CameraSettings::*, std::string CameraSettings::*,
                               std::uint32_t CameraIdentity::*, std::string CameraIdentity::*,
                               std::uint32_t CameraReadings::*>;

    std::string_view name;
    std::uint16_t getCode;
    std::uint16_t setCode;  ///< 0: no command sets it
    ValueForm form;
    std::uint32_t least;  ///< of a text: of its bytes
    std::uint32_t most;
    Place place;
    std::string_view explanation;
};

/// All values, in the order in which they are listed.
std::span<const CameraValue> cameraValues();

/// The value that a command of this code reads or sets, or null.
const CameraValue* cameraValue(std::uint16_t code);

using ValueContent = std::variant<std::uint32_t, std::string>;

ValueContent readValue(const CameraValue& value, const CameraState& state);
/// False, and nothing changes, when the content is out of range.
bool writeValue(const CameraValue& value, const ValueContent& content, CameraState& state);

std::string valueText(const CameraValue& value, const CameraState& state);
/// What setValueText() takes, for a reader.
std::string allowedText(const CameraValue& value);
/// False, and nothing changes, when the text is no such value.
bool setValueText(const CameraValue& value, std::string_view text, CameraState& state);

}  // namespace nubo::simulator
