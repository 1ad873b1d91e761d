// SPDX-License-Identifier: MIT
#include "simulator/CameraItems.h"

#include "simulator/CameraValues.h"
#include "simulator/Words.h"

#include <algorithm>
#include <array>
#include <concepts>
#include <cstddef>
#include <utility>

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

/// @p Find leads from the state to the value.
template <auto Find>
constexpr CameraItem item(std::string_view name, std::string_view explanation) {
    return {name, explanation, [](const CameraState& state) { return toText(Find(state)); },
            [](CameraState& state, std::string_view text) { return fromText(Find(state), text); }};
}

bool setSwitch(std::uint32_t& value, std::string_view text) {
    if (text != "on" && text != "off") {
        return false;
    }
    value = text == "on" ? ON : OFF;
    return true;
}

template <std::uint32_t CameraSettings::*Place>
constexpr CameraItem switchItem(std::string_view name, std::string_view explanation) {
    return {name, explanation,
            [](const CameraState& state) {
                return std::string(state.settings.*Place == ON ? "on" : "off");
            },
            [](CameraState& state, std::string_view text) {
                return setSwitch(state.settings.*Place, text);
            }};
}

std::string getTime(const CameraState& state) {
    return timeToText(state.clock.now());
}

bool setTime(CameraState& state, std::string_view text) {
    const auto time = timeFromText(text);
    if (time) {
        state.clock.set(*time);
    }
    return time.has_value();
}

/// Bytes that differ from place to place, so that a swapped or lost packet shows.
ByteVector pattern(std::size_t size) {
    constexpr std::size_t STEP = 251;
    ByteVector bytes(size);
    for (std::size_t i = 0; i < size; ++i) {
        bytes[i] = static_cast<std::uint8_t>(i % STEP + i / STEP);
    }
    return bytes;
}

template <SharedBytes CameraData::*Place>
constexpr CameraItem sizeItem(std::string_view name, std::string_view explanation) {
    return {name, explanation,
            [](const CameraState& state) { return toText((state.data.*Place)->size()); },
            [](CameraState& state, std::string_view text) {
                constexpr std::uint32_t MOST = 256 * 1024 * 1024;
                const auto size = parseNumber<std::uint32_t>(text);
                if (!size || *size > MOST) {
                    return false;
                }
                state.data.*Place = std::make_shared<const ByteVector>(pattern(*size));
                return true;
            }};
}

/// The checksum is the 32-bit one of Fowler, Noll and Vo (1a).
std::string getFirmware(const CameraState& state) {
    constexpr std::uint32_t BASIS = 2166136261;
    constexpr std::uint32_t PRIME = 16777619;
    std::uint32_t sum = BASIS;
    for (const std::uint8_t byte : *state.data.firmware) {
        sum = (sum ^ byte) * PRIME;
    }
    return toText(state.data.firmware->size()) + " " + toText(sum);
}

bool setNothing(CameraState&, std::string_view) {
    return false;
}

// clang-format off
constexpr std::array ITEMS = {
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
    item<[](auto& camera) -> auto& { return camera.settings.intervalDelay; }>  ("interval-delay",  "seconds until the first picture"),
    item<[](auto& camera) -> auto& { return camera.settings.intervalPeriod; }> ("interval-period", "seconds between two pictures"),
    item<[](auto& camera) -> auto& { return camera.settings.gpsLogFormat; }>   ("gps-log-format",  "1 short, 2 full"),
    item<[](auto& camera) -> auto& { return camera.readings.gpsInfo; }>        ("gps-info",        "text of the GPS information"),
    item<[](auto& camera) -> auto& { return camera.readings.gpsNumber; }>      ("gps-number",      "number that goes with it"),
    item<[](auto& camera) -> auto& { return camera.identity.country; }>        ("country",         "two letters"),
    switchItem<&CameraSettings::intervalUse>  ("interval",        "interval timer"),
    switchItem<&CameraSettings::gpsUse>       ("gps",             "GPS"),
    switchItem<&CameraSettings::gpsSaveLogs>  ("gps-save-logs",   "GPS logs on the card"),
    switchItem<&CameraSettings::gpsAdjustTime>("gps-adjust-time", "clock set from GPS"),
    CameraItem{"time", "clock, as 2014/03/09 07:05:01", getTime, setTime},
    sizeItem<&CameraData::picture>            ("picture-size",    "bytes of the picture that is asked for"),
    sizeItem<&CameraData::audio>              ("audio-size",      "bytes of the audio that is asked for"),
    CameraItem{"firmware", "size and checksum of the image that came last; only told", getFirmware, setNothing},
};
// clang-format on

template <std::size_t Row>
CameraItem valueItem() {
    const CameraValue& value = cameraValues()[Row];
    return {value.name, value.explanation,
            [](const CameraState& state) { return valueText(cameraValues()[Row], state); },
            [](CameraState& state, std::string_view text) {
                return setValueText(cameraValues()[Row], text, state);
            }};
}

template <std::size_t... Rows>
auto allItems(std::index_sequence<Rows...>) {
    std::array<CameraItem, ITEMS.size() + sizeof...(Rows)> items;
    const auto rest = std::ranges::copy(ITEMS, items.begin()).out;
    const std::array values = {valueItem<Rows>()...};
    std::ranges::copy(values, rest);
    return items;
}

}  // namespace

std::span<const CameraItem> cameraItems() {
    static const auto ALL = allItems(std::make_index_sequence<CAMERA_VALUE_COUNT>());
    return ALL;
}

const CameraItem* cameraItem(std::string_view name) {
    const std::span<const CameraItem> items = cameraItems();
    const auto item = std::ranges::find(items, name, &CameraItem::name);
    return item == items.end() ? nullptr : &*item;
}

}  // namespace nubo::simulator
