// SPDX-License-Identifier: MIT
#include "simulator/CameraItems.h"

#include "simulator/CameraValues.h"
#include "simulator/Words.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <limits>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

namespace nubo::simulator {

namespace {

using State = CameraState;
using Settings = CameraSettings;
using Readings = CameraReadings;
using Behaviour = CameraBehaviour;

constexpr std::uint32_t ANY = std::numeric_limits<std::uint32_t>::max();
constexpr std::uint64_t ANY_SIZE = std::numeric_limits<std::uint64_t>::max();
constexpr std::uint32_t THREE_DAYS = 72 * 60 * 60;
constexpr std::uint32_t ONE_MINUTE = 60'000;
constexpr std::uint32_t MOST_DATA = 256 * 1024 * 1024;
constexpr std::size_t SSID_LENGTH = 32;
constexpr std::size_t TEXT_LENGTH = 255;

/// Leads from a state, const or not, to what lies behind the pointers to members.
template <class... Members>
auto at(Members... members) {
    return [=](auto& state) -> auto& {
        return (state.*....*members);
    };
}

template <class Find>
using NumberAt = std::remove_cvref_t<std::invoke_result_t<Find, State&>>;

template <class Find, class Allows>
CameraItem numberItem(std::string_view name, Find find, std::string_view explanation,
                      std::string allowed, Allows allows) {
    return {name, explanation, std::move(allowed),
            [=](const State& state) { return std::to_string(find(state)); },
            [=](State& state, std::string_view text) {
                const auto number = parseNumber<NumberAt<Find>>(text);
                if (!number || !allows(*number)) {
                    return false;
                }
                find(state) = *number;
                return true;
            }};
}

template <class Find>
CameraItem range(std::string_view name, Find find, NumberAt<Find> least, NumberAt<Find> most,
                 std::string_view explanation) {
    return numberItem(name, find, explanation, rangeText(least, most),
                      [=](auto number) { return number >= least && number <= most; });
}

template <class Find>
CameraItem choice(std::string_view name, Find find, std::vector<NumberAt<Find>> choices,
                  std::string_view explanation) {
    std::string allowed = "one of";
    for (const auto number : choices) {
        allowed += " " + std::to_string(number);
    }
    return numberItem(name, find, explanation, std::move(allowed), [=](auto number) {
        return std::ranges::find(choices, number) != choices.end();
    });
}

template <class Find>
CameraItem onOff(std::string_view name, Find find, std::string_view explanation) {
    return {name, explanation, std::string(SWITCH_TEXT),
            [=](const State& state) { return switchToText(find(state)); },
            [=](State& state, std::string_view text) {
                const auto value = switchFromText(text);
                find(state) = value.value_or(find(state));
                return value.has_value();
            }};
}

template <class Find>
CameraItem words(std::string_view name, Find find, std::size_t most, std::string_view explanation) {
    return {name, explanation, lengthText(0, most), [=](const State& state) { return find(state); },
            [=](State& state, std::string_view text) {
                if (text.size() > most) {
                    return false;
                }
                find(state) = text;
                return true;
            }};
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

CameraItem dataSize(std::string_view name, SharedBytes CameraData::*place,
                    std::string_view explanation) {
    return {name, explanation, rangeText(0, MOST_DATA),
            [=](const State& state) { return std::to_string((state.data.*place)->size()); },
            [=](State& state, std::string_view text) {
                const auto size = parseNumber<std::uint32_t>(text);
                if (!size || *size > MOST_DATA) {
                    return false;
                }
                state.data.*place = std::make_shared<const ByteVector>(pattern(*size));
                return true;
            }};
}

CameraItem clock(std::string_view name, std::string_view explanation) {
    return {name, explanation, "a time as 2014/03/09 07:05:01",
            [](const State& state) { return timeToText(state.clock.now()); },
            [](State& state, std::string_view text) {
                const auto time = timeFromText(text);
                if (time) {
                    state.clock.set(*time);
                }
                return time.has_value();
            }};
}

CameraItem country(std::string_view name, std::string_view explanation) {
    return {name, explanation, "two letters, or nothing",
            [](const State& state) { return state.identity.country; },
            [](State& state, std::string_view text) {
                const bool isCountry =
                    (text.empty() || text.size() == 2) &&
                    std::ranges::all_of(text, [](char letter) {
                        return std::isalpha(static_cast<unsigned char>(letter)) != 0;
                    });
                if (isCountry) {
                    state.identity.country = text;
                }
                return isCountry;
            }};
}

CameraItem onlyTold(std::string_view name, std::string (*get)(const State&),
                    std::string_view explanation) {
    return {name, explanation, {}, get, [](State&, std::string_view) { return false; }};
}

/// The checksum is the 32-bit one of Fowler, Noll and Vo (1a).
std::string firmwareText(const State& state) {
    constexpr std::uint32_t BASIS = 2166136261;
    constexpr std::uint32_t PRIME = 16777619;
    std::uint32_t sum = BASIS;
    for (const std::uint8_t byte : *state.data.firmware) {
        sum = (sum ^ byte) * PRIME;
    }
    return std::to_string(state.data.firmware->size()) + " " + std::to_string(sum);
}

std::string freeText(const State& state) {
    return std::to_string(state.sdCard.total - std::min(state.sdCard.used, state.sdCard.total));
}

CameraItem valueItem(const CameraValue& value) {
    return {
        value.name, value.explanation, allowedText(value),
        [&value](const State& state) { return valueText(value, state); },
        [&value](State& state, std::string_view text) { return setValueText(value, text, state); }};
}

std::vector<CameraItem> allItems() {
    // clang-format off
    std::vector<CameraItem> items = {
        range   ("battery",             at(&State::battery, &Battery::charge),              0, 100,         "charge in percent"),
        range   ("battery-state",       at(&State::battery, &Battery::state),               0, ANY,         "number that goes with it"),
        range   ("wifi-state",          at(&State::settings, &Settings::wifi, &WifiLink::state), 1, 3,      "1 not linked, 2 linked, 3 ad hoc"),
        words   ("wifi-ssid",           at(&State::settings, &Settings::wifi, &WifiLink::ssid), SSID_LENGTH, "linked network, as the first text tells it"),
        words   ("wifi-ssid-2",         at(&State::settings, &Settings::wifi, &WifiLink::secondSsid), SSID_LENGTH, "linked network, as the second text tells it"),
        range   ("wifi-channel",        at(&State::settings, &Settings::wifi, &WifiLink::channel), 1, 14,   "number"),
        choice  ("wifi-encryption",     at(&State::settings, &Settings::wifi, &WifiLink::encryption), {0, 1, 2, 4}, "0 none, 1 WEP, 2 TKIP, 4 AES"),
        range   ("wifi-rssi",           at(&State::settings, &Settings::wifi, &WifiLink::rssi), -100, 100,  "receiver sensitivity; 0 and below: no signal"),
        range   ("sd-total",            at(&State::sdCard, &SdCard::total),                 0, ANY_SIZE,    "KiB"),
        range   ("sd-used",             at(&State::sdCard, &SdCard::used),                  0, ANY_SIZE,    "KiB"),
        onlyTold("sd-free",             freeText,                                                           "KiB; what is left of sd-total"),
        range   ("sd-filesystem",       at(&State::sdCard, &SdCard::fileSystem),            1, 3,           "1 FAT12, 2 FAT16, 3 FAT32"),
        onOff   ("interval",            at(&State::settings, &Settings::intervalUse),                       "interval timer"),
        range   ("interval-delay",      at(&State::settings, &Settings::intervalDelay),     0, THREE_DAYS,  "seconds until the first picture"),
        range   ("interval-period",     at(&State::settings, &Settings::intervalPeriod),    1, THREE_DAYS,  "seconds between two pictures"),
        onOff   ("gps",                 at(&State::settings, &Settings::gpsUse),                            "GPS"),
        onOff   ("gps-save-logs",       at(&State::settings, &Settings::gpsSaveLogs),                       "GPS logs on the card"),
        onOff   ("gps-adjust-time",     at(&State::settings, &Settings::gpsAdjustTime),                     "clock set from GPS"),
        range   ("gps-log-format",      at(&State::settings, &Settings::gpsLogFormat),      1, 2,           "1 short, 2 full"),
        words   ("gps-info",            at(&State::readings, &Readings::gpsInfo),           TEXT_LENGTH,    "text of the GPS information"),
        range   ("gps-number",          at(&State::readings, &Readings::gpsNumber),         0, ANY,         "number that goes with it"),
        country ("country",                                                                                 "of the factory's"),
        clock   ("time",                                                                                    "clock"),
        dataSize("picture-size",        &CameraData::picture,                                               "bytes of the picture that is asked for; setting it makes up that many"),
        dataSize("audio-size",          &CameraData::audio,                                                 "bytes of the audio that is asked for; setting it makes up that many"),
        onlyTold("firmware",            firmwareText,                                                       "size and checksum of the image that came last"),
        words   ("firmware-next",       at(&State::behaviour, &Behaviour::nextFirmware),    TEXT_LENGTH,    "version with which the camera comes back from an update; empty: it stays and keeps its version"),
        onOff   ("restart-after-reset", at(&State::behaviour, &Behaviour::restartAfterReset),               "whether the camera leaves and comes back when its settings are reset"),
        range   ("answer-delay",        at(&State::behaviour, &Behaviour::answerDelay),     0, ONE_MINUTE,  "milliseconds from each command to its answer"),
    };
    // clang-format on
    for (const CameraValue& value : cameraValues()) {
        items.push_back(valueItem(value));
    }
    return items;
}

}  // namespace

std::span<const CameraItem> cameraItems() {
    static const std::vector<CameraItem> ALL = allItems();
    return ALL;
}

const CameraItem* cameraItem(std::string_view name) {
    const std::span<const CameraItem> items = cameraItems();
    const auto item = std::ranges::find(items, name, &CameraItem::name);
    return item == items.end() ? nullptr : &*item;
}

}  // namespace nubo::simulator
