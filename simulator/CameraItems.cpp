// SPDX-License-Identifier: MIT
#include "simulator/CameraItems.h"

#include <algorithm>
#include <array>
#include <concepts>

#include "simulator/Words.h"

namespace nubo::simulator {

namespace {

std::string toText(std::integral auto value) {
    return std::to_string(value);
}

std::string toText(const std::string& value) {
    return value;
}

template <std::integral Number>
bool fromText(Number& value, std::string_view text) {
    const std::optional<Number> number = parseNumber<Number>(text);
    value = number.value_or(value);
    return number.has_value();
}

bool fromText(std::string& value, std::string_view text) {
    value = text;
    return true;
}

/// `Find` leads from the state to the value.
template <auto Find>
constexpr CameraItem item(std::string_view name, std::string_view explanation) {
    return {name, explanation, [](const CameraState& state) { return toText(Find(state)); },
            [](CameraState& state, std::string_view text) { return fromText(Find(state), text); }};
}

// clang-format off
constexpr std::array kItems = {
    item<[](auto& camera) -> auto& { return camera.battery.charge; }>          ("battery",         "charge in percent"),
    item<[](auto& camera) -> auto& { return camera.battery.state; }>           ("battery-state",   "number"),
    item<[](auto& camera) -> auto& { return camera.settings.wifi.state; }>     ("wifi-state",      "1 not linked, 2 linked, 3 ad hoc"),
    item<[](auto& camera) -> auto& { return camera.settings.wifi.ssid; }>      ("wifi-ssid",       "linked network, as the first text tells it"),
    item<[](auto& camera) -> auto& { return camera.settings.wifi.secondSsid; }>("wifi-ssid-2",     "linked network, as the second text tells it"),
    item<[](auto& camera) -> auto& { return camera.settings.wifi.channel; }>   ("wifi-channel",    "number"),
    item<[](auto& camera) -> auto& { return camera.settings.wifi.encryption; }>("wifi-encryption", "0 none, 1 WEP, 2 TKIP, 4 AES"),
    item<[](auto& camera) -> auto& { return camera.settings.wifi.rssi; }>      ("wifi-rssi",       "receiver sensitivity; 0 and below: no signal"),
    item<[](auto& camera) -> auto& { return camera.sdCard.total; }>            ("sd-total",        "KiB"),
    item<[](auto& camera) -> auto& { return camera.sdCard.used; }>             ("sd-used",         "KiB"),
    item<[](auto& camera) -> auto& { return camera.sdCard.fileSystem; }>       ("sd-filesystem",   "1 FAT12, 2 FAT16, 3 FAT32"),
};
// clang-format on

}  // namespace

std::span<const CameraItem> cameraItems() {
    return kItems;
}

const CameraItem* cameraItem(std::string_view name) {
    const auto item = std::ranges::find(kItems, name, &CameraItem::name);
    return item == kItems.end() ? nullptr : &*item;
}

}  // namespace nubo::simulator
