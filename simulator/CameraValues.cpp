// SPDX-License-Identifier: MIT
#include "simulator/CameraValues.h"

#include "simulator/Words.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <optional>
#include <type_traits>

namespace nubo::simulator {

namespace {

using Settings = CameraSettings;
using Identity = CameraIdentity;
using Readings = CameraReadings;

constexpr std::uint32_t ANY = std::numeric_limits<std::uint32_t>::max();
constexpr std::uint32_t THREE_DAYS = 72 * 60 * 60;
constexpr std::uint32_t SSID_LENGTH = 32;
constexpr std::uint32_t TEXT_LENGTH = 255;

// clang-format off
constexpr std::array VALUES = {
    CameraValue{"wifi",               0x5047, 0x5847, ValueForm::Switch,  OFF,  ON,          &Settings::wifiOn,              "Wi-Fi"},
    CameraValue{"wifi-mode",          0x5003, 0x5803, ValueForm::Number,  1,    2,           &Settings::wifiMode,            "1 infrastructure, 2 ad hoc"},
    CameraValue{"wifi-country",       0x5041, 0x5841, ValueForm::Number,  1,    4,           &Settings::wifiCountry,         "1 to 4"},
    CameraValue{"auto-wifi-off",      0x5048, 0x5848, ValueForm::Number,  0,    THREE_DAYS,  &Settings::autoWifiOff,         "seconds, 0 never"},
    CameraValue{"stream-auth",        0x5004, 0x5804, ValueForm::Switch,  OFF,  ON,          &Settings::streamAuthorization, "password for the live stream"},
    CameraValue{"stream-password",    0x5005, 0x5805, ValueForm::Text,    0,    TEXT_LENGTH, &Settings::streamPassword,      "text"},
    CameraValue{"adhoc-address",      0x5006, 0x5806, ValueForm::Address, 0,    ANY,         &Settings::adhocAddress,        "dotted address"},
    CameraValue{"adhoc-subnet-mask",  0x5007, 0x5807, ValueForm::Address, 0,    ANY,         &Settings::adhocSubnetMask,     "dotted address"},
    CameraValue{"adhoc-secure",       0x5042, 0x5842, ValueForm::Number,  0,    4,           &Settings::adhocSecure,         "0 to 4"},
    CameraValue{"infra-dhcp",         0x5008, 0x5808, ValueForm::Switch,  OFF,  ON,          &Settings::infraUseDhcp,        "address by DHCP"},
    CameraValue{"infra-address",      0x5009, 0x5809, ValueForm::Address, 0,    ANY,         &Settings::infraAddress,        "dotted address"},
    CameraValue{"infra-subnet-mask",  0x500A, 0x580A, ValueForm::Address, 0,    ANY,         &Settings::infraSubnetMask,     "dotted address"},
    CameraValue{"infra-gateway",      0x500B, 0x580B, ValueForm::Address, 0,    ANY,         &Settings::infraGateway,        "dotted address"},
    CameraValue{"primary-dns",        0x5045, 0x5845, ValueForm::Address, 0,    ANY,         &Settings::primaryDns,          "dotted address"},
    CameraValue{"secondary-dns",      0x5046, 0x5846, ValueForm::Address, 0,    ANY,         &Settings::secondaryDns,        "dotted address"},
    CameraValue{"infra-ssid",         0x503B, 0x583B, ValueForm::Text,    0,    SSID_LENGTH, &Settings::infraSsid,           "network to link to"},
    CameraValue{"infra-key",          0x503C, 0x583C, ValueForm::Text,    0,    TEXT_LENGTH, &Settings::infraKey,            "its key"},
    CameraValue{"rtsp-port",          0x5043, 0x5843, ValueForm::Number,  1,    65535,       &Settings::rtspPort,            "1 to 65535"},
    CameraValue{"stun-server",        0x5044, 0x5844, ValueForm::Text,    0,    TEXT_LENGTH, &Settings::stunServer,          "text"},
    CameraValue{"recording",          0x5010, 0,      ValueForm::Switch,  OFF,  ON,          &Settings::recording,           "a recording runs"},
    CameraValue{"rec-size",           0x5012, 0x5812, ValueForm::Number,  1,    3,           &Settings::recordingSize,       "1 1920x1080, 2 1280x720, 3 640x480"},
    CameraValue{"rec-rate",           0x5013, 0x5813, ValueForm::Number,  1,    60,          &Settings::recordingRate,       "pictures a second, 1 to 60"},
    CameraValue{"live-size",          0x5014, 0x5814, ValueForm::Number,  1,    2,           &Settings::liveSize,            "1 800x480, 2 320x240"},
    CameraValue{"live-rate",          0x5015, 0x5815, ValueForm::Number,  1,    60,          &Settings::liveRate,            "pictures a second, 1 to 60"},
    CameraValue{"image-quality",      0x5049, 0x5849, ValueForm::Number,  0,    4,           &Settings::imageQuality,        "0 to 4"},
    CameraValue{"camera-name",        0x5030, 0x5830, ValueForm::Text,    0,    TEXT_LENGTH, &Settings::cameraName,          "text"},
    CameraValue{"timezone",           0x5032, 0x5832, ValueForm::Number,  0,    24,          &Settings::timeZone,            "hours east; above 12: 12 and the hours west"},
    CameraValue{"led-start",          0x5033, 0x5833, ValueForm::Switch,  OFF,  ON,          &Settings::ledStart,            "LED at the start"},
    CameraValue{"led",                0x5034, 0x5834, ValueForm::Switch,  OFF,  ON,          &Settings::led,                 "LED"},
    CameraValue{"optimizer",          0x5035, 0x5835, ValueForm::Switch,  OFF,  ON,          &Settings::optimizer,           "optimiser"},
    CameraValue{"auto-power-off",     0x5038, 0x5838, ValueForm::Number,  0,    THREE_DAYS,  &Settings::autoPowerOff,        "seconds, 0 never"},
    CameraValue{"e-state",            0x5036, 0,      ValueForm::Switch,  OFF,  ON,          &Readings::eState,              "E-state"},
    CameraValue{"serial-number",      0x4001, 0x4801, ValueForm::Text,    0,    TEXT_LENGTH, &Identity::serialNumber,        "text"},
    CameraValue{"mac-address",        0x4002, 0,      ValueForm::Text,    0,    TEXT_LENGTH, &Identity::macAddress,          "text"},
    CameraValue{"machine-name",       0x4003, 0x4803, ValueForm::Text,    0,    TEXT_LENGTH, &Identity::machineName,         "text"},
    CameraValue{"ssid",               0x4004, 0x4804, ValueForm::Text,    0,    SSID_LENGTH, &Identity::ssid,                "of the camera's own network"},
    CameraValue{"adhoc-key",          0x4005, 0x4805, ValueForm::Text,    0,    TEXT_LENGTH, &Identity::adhocKey,            "of the camera's own network"},
    CameraValue{"create-day",         0x4006, 0x4806, ValueForm::Text,    0,    TEXT_LENGTH, &Identity::createDay,           "as 2014/03/09 07:05:01"},
    CameraValue{"lens",               0x4008, 0x4808, ValueForm::Text,    0,    TEXT_LENGTH, &Identity::lens,                "text"},
    CameraValue{"firmware-version",   0x503A, 0,      ValueForm::Text,    0,    TEXT_LENGTH, &Identity::firmwareVersion,     "text"},
    CameraValue{"adjust-flag",        0x0042, 0x0041, ValueForm::Number,  0,    ANY,         &Identity::adjustFlag,          "number"},
};
// clang-format on

template <class State, class Content>
auto& at(State& state, Content CameraSettings::*place) {
    return state.settings.*place;
}

template <class State, class Content>
auto& at(State& state, Content CameraIdentity::*place) {
    return state.identity.*place;
}

template <class State, class Content>
auto& at(State& state, Content CameraReadings::*place) {
    return state.readings.*place;
}

std::uint32_t measure(std::uint32_t number) {
    return number;
}

std::uint32_t measure(const std::string& text) {
    return static_cast<std::uint32_t>(std::min<std::size_t>(text.size(), ANY));
}

constexpr int BITS_PER_OCTET = 8;
constexpr int TOP_OCTET = 24;
constexpr std::uint32_t OCTET_MASK = 0xFF;

std::string addressText(std::uint32_t address) {
    std::string text;
    for (int shift = TOP_OCTET; shift >= 0; shift -= BITS_PER_OCTET) {
        text += std::to_string((address >> shift) & OCTET_MASK);
        text += shift > 0 ? "." : "";
    }
    return text;
}

std::optional<std::uint32_t> addressFromText(std::string_view text) {
    std::uint32_t address = 0;
    for (int shift = TOP_OCTET; shift >= 0; shift -= BITS_PER_OCTET) {
        const std::size_t end = shift > 0 ? text.find('.') : text.size();
        const auto octet = parseNumber<std::uint8_t>(text.substr(0, end));
        if (end == std::string_view::npos || !octet) {
            return std::nullopt;
        }
        address |= std::uint32_t{*octet} << shift;
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return address;
}

}  // namespace

std::span<const CameraValue> cameraValues() {
    return VALUES;
}

const CameraValue* cameraValue(std::uint16_t code) {
    const auto value = std::ranges::find_if(VALUES, [code](const CameraValue& row) {
        return code != 0 && (row.getCode == code || row.setCode == code);
    });
    return value == VALUES.end() ? nullptr : &*value;
}

ValueContent readValue(const CameraValue& value, const CameraState& state) {
    return std::visit([&](auto place) -> ValueContent { return at(state, place); }, value.place);
}

bool writeValue(const CameraValue& value, const ValueContent& content, CameraState& state) {
    const auto write = [&](auto place) {
        auto& kept = at(state, place);
        const auto* const wanted = std::get_if<std::remove_reference_t<decltype(kept)>>(&content);
        if (wanted == nullptr || measure(*wanted) < value.least || measure(*wanted) > value.most) {
            return false;
        }
        kept = *wanted;
        return true;
    };
    return std::visit(write, value.place);
}

std::string valueText(const CameraValue& value, const CameraState& state) {
    const ValueContent content = readValue(value, state);
    if (const auto* const text = std::get_if<std::string>(&content)) {
        return *text;
    }
    const std::uint32_t number = std::get<std::uint32_t>(content);
    switch (value.form) {
        case ValueForm::Switch:
            return switchToText(number);
        case ValueForm::Address:
            return addressText(number);
        default:
            return std::to_string(number);
    }
}

std::string allowedText(const CameraValue& value) {
    switch (value.form) {
        case ValueForm::Switch:
            return std::string(SWITCH_TEXT);
        case ValueForm::Address:
            return "an address as 192.168.0.20";
        case ValueForm::Text:
            return lengthText(value.least, value.most);
        case ValueForm::Number:
            break;
    }
    return rangeText(value.least, value.most);
}

bool setValueText(const CameraValue& value, std::string_view text, CameraState& state) {
    std::optional<std::uint32_t> number;
    switch (value.form) {
        case ValueForm::Text:
            return writeValue(value, std::string(text), state);
        case ValueForm::Switch:
            number = switchFromText(text);
            break;
        case ValueForm::Address:
            number = addressFromText(text);
            break;
        case ValueForm::Number:
            number = parseNumber<std::uint32_t>(text);
            break;
    }
    return number && writeValue(value, *number, state);
}

}  // namespace nubo::simulator
