// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/CameraState.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace nubo::simulator {

/// One value of the camera that can be read and written by name, as text.
struct CameraItem {
    std::string_view name;
    std::string_view explanation;
    std::string allowed;  ///< what set() takes, for a reader; empty for an item that is only told
    std::function<std::string(const CameraState& state)> get;
    /// False, and nothing changes, when the text is no such value.
    std::function<bool(CameraState& state, std::string_view text)> set;
};

/// All items, in the order in which they are listed.
std::span<const CameraItem> cameraItems();

/// The item of that name, or null.
const CameraItem* cameraItem(std::string_view name);

}  // namespace nubo::simulator
