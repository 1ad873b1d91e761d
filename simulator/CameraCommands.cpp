// SPDX-License-Identifier: MIT
#include "simulator/CameraCommands.h"

#include <algorithm>
#include <array>
#include <functional>

#include "simulator/CameraValues.h"

namespace nubo::simulator {

namespace {

constexpr int kBitsPerParameter = 32;

CommandAnswer refusal(std::uint16_t id, CameraResult result) {
    return {{plainAnswer(id, result)}};
}

CommandAnswer success(const CommandRequest& request, const Parameters& parameters = {}) {
    return {{plainAnswer(request.id, CameraResult::Success, parameters)}};
}

std::uint32_t high(std::uint64_t value) {
    return static_cast<std::uint32_t>(value >> kBitsPerParameter);
}

std::uint32_t low(std::uint64_t value) {
    return static_cast<std::uint32_t>(value);
}

std::uint32_t bits(std::int32_t value) {
    return static_cast<std::uint32_t>(value);
}

CommandAnswer tellBattery(const CommandRequest& request, CameraState& state) {
    return success(request, {state.battery.state, state.battery.charge});
}

CommandAnswer tellSdCard(const CommandRequest& request, CameraState& state) {
    const SdCard& card = state.sdCard;
    return success(request, {high(card.total), low(card.total), high(card.used), low(card.used),
                             card.fileSystem});
}

/// The answer holds the link state; then follow a packet of the two names and one of the numbers.
CommandAnswer tellWifi(const CommandRequest& request, CameraState& state) {
    constexpr std::uint32_t kNotLinked = 1;
    const WifiLink& wifi = state.settings.wifi;
    const bool isOn = state.settings.wifiOn == kOn;
    CommandAnswer answer = success(request, {isOn ? wifi.state : kNotLinked});
    answer.packets.push_back(twoTextAnswer(request.id, 0, wifi.ssid, wifi.secondSsid));
    answer.packets.push_back(plainAnswer(request.id, CameraResult::Success,
                                         {0, wifi.channel, wifi.encryption, 0, bits(wifi.rssi)}));
    return answer;
}

/// The answer holds the number of networks; then follow two packets for each, numbered from 1.
CommandAnswer tellAccessPoints(const CommandRequest& request, CameraState& state) {
    std::uint32_t number = 0;
    CommandAnswer answer =
        success(request, {static_cast<std::uint32_t>(state.accessPoints.size())});
    for (const AccessPoint& point : state.accessPoints) {
        ++number;
        answer.packets.push_back(twoTextAnswer(request.id, number, point.ssid, ""));
        answer.packets.push_back(
            plainAnswer(request.id, CameraResult::Success,
                        {number, point.channel, point.encryption, 0, bits(point.rssi)}));
    }
    return answer;
}

CommandAnswer restart(const CommandRequest& request, CameraState&) {
    CommandAnswer answer = success(request);
    answer.afterwards = Afterwards::Restart;
    return answer;
}

CommandAnswer powerOff(const CommandRequest& request, CameraState&) {
    CommandAnswer answer = success(request);
    answer.afterwards = Afterwards::PowerOff;
    return answer;
}

CommandAnswer formatSdCard(const CommandRequest& request, CameraState& state) {
    state.sdCard.used = 0;
    return success(request);
}

CommandAnswer resetSettings(const CommandRequest& request, CameraState& state) {
    const CameraSettings defaults;
    state.settings = defaults;
    return success(request);
}

bool isSwitch(std::uint32_t value) {
    return value == kOff || value == kOn;
}

CommandAnswer tellInterval(const CommandRequest& request, CameraState& state) {
    const CameraSettings& settings = state.settings;
    return success(request,
                   {settings.intervalUse, settings.intervalDelay, settings.intervalPeriod});
}

CommandAnswer setInterval(const CommandRequest& request, CameraState& state) {
    constexpr std::uint32_t kThreeDays = 72 * 60 * 60;
    const auto& [use, delay, period, fourth, fifth] = request.parameters;
    if (!isSwitch(use) || delay > kThreeDays || period < 1 || period > kThreeDays) {
        return refusal(request.id, CameraResult::ParameterRange);
    }
    state.settings.intervalUse = use;
    state.settings.intervalDelay = delay;
    state.settings.intervalPeriod = period;
    return success(request);
}

CommandAnswer tellGps(const CommandRequest& request, CameraState& state) {
    return success(request, {state.readings.gpsState, state.readings.gpsSatellites});
}

CommandAnswer tellGpsSetting(const CommandRequest& request, CameraState& state) {
    const CameraSettings& settings = state.settings;
    return success(request, {settings.gpsUse, settings.gpsSaveLogs, settings.gpsAdjustTime,
                             settings.gpsLogFormat});
}

CommandAnswer setGpsSetting(const CommandRequest& request, CameraState& state) {
    const auto& [use, saveLogs, adjustTime, logFormat, fifth] = request.parameters;
    if (!isSwitch(use) || !isSwitch(saveLogs) || !isSwitch(adjustTime) || logFormat < 1 ||
        logFormat > 2) {
        return refusal(request.id, CameraResult::ParameterRange);
    }
    state.settings.gpsUse = use;
    state.settings.gpsSaveLogs = saveLogs;
    state.settings.gpsAdjustTime = adjustTime;
    state.settings.gpsLogFormat = logFormat;
    return success(request);
}

CommandAnswer tellTime(const CommandRequest& request, CameraState& state) {
    const PackedTime packed = packTime(state.clock.now());
    return success(request, {packed.date, packed.time});
}

CommandAnswer setTime(const CommandRequest& request, CameraState& state) {
    const auto time = unpackTime({request.parameters[0], request.parameters[1]});
    if (!time) {
        return refusal(request.id, CameraResult::ParameterRange);
    }
    state.clock.set(*time);
    return success(request);
}

CommandAnswer tellCountry(const CommandRequest& request, CameraState& state) {
    Parameters letters{};
    const std::string& country = state.identity.country;
    for (std::size_t i = 0; i < std::min<std::size_t>(country.size(), 2); ++i) {
        letters[i] = static_cast<std::uint8_t>(country[i]);
    }
    return success(request, letters);
}

CommandAnswer setCountry(const CommandRequest& request, CameraState& state) {
    const std::span<const std::uint32_t> letters(request.parameters.data(), 2);
    if (std::ranges::any_of(letters, [](auto letter) { return letter < 'A' || letter > 'Z'; })) {
        return refusal(request.id, CameraResult::ParameterRange);
    }
    state.identity.country.assign(letters.begin(), letters.end());
    return success(request);
}

/// On/off in the first parameter, kept in a setting.
template <std::uint32_t CameraSettings::*Place>
CommandAnswer switchSetting(const CommandRequest& request, CameraState& state) {
    if (!isSwitch(request.parameters[0])) {
        return refusal(request.id, CameraResult::ParameterRange);
    }
    state.settings.*Place = request.parameters[0];
    return success(request);
}

CommandAnswer changeWifiMode(const CommandRequest& request, CameraState& state) {
    if (request.parameters[0] < 1 || request.parameters[0] > 2) {
        return refusal(request.id, CameraResult::ParameterRange);
    }
    state.settings.wifiMode = request.parameters[0];
    return success(request);
}

/// Links to any network: one that is not in reach may hide its name.
CommandAnswer joinWifi(const CommandRequest& request, CameraState& state) {
    constexpr std::size_t kLongestSsid = 32;
    constexpr std::uint32_t kLinked = 2;
    const auto& [ssid, key] = request.texts;
    if (ssid.empty() || ssid.size() > kLongestSsid) {
        return refusal(request.id, CameraResult::ParameterRange);
    }
    WifiLink& wifi = state.settings.wifi;
    wifi.state = kLinked;
    wifi.ssid = ssid;
    wifi.secondSsid = ssid;
    const auto point = std::ranges::find(state.accessPoints, ssid, &AccessPoint::ssid);
    if (point != state.accessPoints.end()) {
        wifi.channel = point->channel;
        wifi.encryption = point->encryption;
        wifi.rssi = point->rssi;
    }
    state.settings.infraSsid = ssid;
    state.settings.infraKey = key;
    return success(request);
}

CommandAnswer capture(const CommandRequest& request, CameraState& state) {
    constexpr std::uint64_t kPictureSize = 2048;
    SdCard& card = state.sdCard;
    if (card.used > card.total || card.total - card.used < kPictureSize) {
        return refusal(request.id, CameraResult::SdCardFull);
    }
    card.used += kPictureSize;
    return success(request);
}

/// A service action that the host learns nothing of.
CommandAnswer agree(const CommandRequest& request, CameraState&) {
    return success(request);
}

template <SharedBytes CameraData::*Place>
CommandAnswer sendData(const CommandRequest& request, CameraState& state) {
    CommandAnswer answer =
        success(request, {static_cast<std::uint32_t>((state.data.*Place)->size())});
    answer.data = state.data.*Place;
    return answer;
}

CommandAnswer awaitFirmware(const CommandRequest& request, CameraState&) {
    if (request.parameters[0] == 0) {
        return refusal(request.id, CameraResult::ParameterRange);
    }
    CommandAnswer answer;
    answer.imageSize = request.parameters[0];
    return answer;
}

CommandAnswer applyFirmware(const CommandRequest& request, CameraState& state) {
    if (!isSwitch(request.parameters[0])) {
        return refusal(request.id, CameraResult::ParameterRange);
    }
    if (state.data.firmware->empty()) {
        return refusal(request.id, CameraResult::NotExecuted);
    }
    return success(request);
}

// clang-format off
constexpr std::array kCommands = {
    CameraCommand{0x0021, "alignment check",      PacketForm::Plain,    agree},
    CameraCommand{0x0022, "resolution check",     PacketForm::Plain,    agree},
    CameraCommand{0x0023, "vignetting check",     PacketForm::Plain,    agree},
    CameraCommand{0x0024, "white balance check",  PacketForm::Plain,    agree},
    CameraCommand{0x0025, "dust check",           PacketForm::Plain,    agree},
    CameraCommand{0x0026, "dot error check",      PacketForm::Plain,    agree},
    CameraCommand{0x0027, "memory check",         PacketForm::Plain,    agree},
    CameraCommand{0x0031, "save raw data",        PacketForm::Plain,    agree},
    CameraCommand{0x0032, "save YC data",         PacketForm::Plain,    agree},
    CameraCommand{0x0033, "save adjustment data", PacketForm::Plain,    agree},
    CameraCommand{0x2001, "firmware image",       PacketForm::Plain,    awaitFirmware},
    CameraCommand{0x2002, "apply firmware",       PacketForm::Plain,    applyFirmware},
    CameraCommand{0x3001, "picture",              PacketForm::Plain,    sendData<&CameraData::picture>},
    CameraCommand{0x3002, "audio",                PacketForm::Plain,    sendData<&CameraData::audio>},
    CameraCommand{0x4007, "country",              PacketForm::Plain,    tellCountry},
    CameraCommand{0x4807, "set country",          PacketForm::Plain,    setCountry},
    CameraCommand{0x5001, "Wi-Fi information",    PacketForm::Plain,    tellWifi},
    CameraCommand{0x5002, "access points",        PacketForm::Plain,    tellAccessPoints},
    CameraCommand{0x5011, "interval",             PacketForm::Plain,    tellInterval},
    CameraCommand{0x5020, "GPS information",      PacketForm::Plain,    tellGps},
    CameraCommand{0x5021, "GPS setting",          PacketForm::Plain,    tellGpsSetting},
    CameraCommand{0x5031, "time",                 PacketForm::Plain,    tellTime},
    CameraCommand{0x5037, "battery",              PacketForm::Plain,    tellBattery},
    CameraCommand{0x5039, "SD card information",  PacketForm::Plain,    tellSdCard},
    CameraCommand{0x5811, "set interval",         PacketForm::Plain,    setInterval},
    CameraCommand{0x5821, "set GPS setting",      PacketForm::Plain,    setGpsSetting},
    CameraCommand{0x5831, "set time",             PacketForm::Plain,    setTime},
    CameraCommand{0x6801, "power off",            PacketForm::Plain,    powerOff},
    CameraCommand{0x6802, "restart",              PacketForm::Plain,    restart},
    CameraCommand{0x6803, "format SD card",       PacketForm::Plain,    formatSdCard},
    CameraCommand{0x6804, "reset settings",       PacketForm::Plain,    resetSettings},
    CameraCommand{0x6805, "record",               PacketForm::Plain,    switchSetting<&CameraSettings::recording>},
    CameraCommand{0x6806, "capture",              PacketForm::Plain,    capture},
    CameraCommand{0x6807, "join Wi-Fi",           PacketForm::TwoTexts, joinWifi},
    CameraCommand{0x6808, "change Wi-Fi mode",    PacketForm::Plain,    changeWifiMode},
    CameraCommand{0x6809, "switch Wi-Fi",         PacketForm::Plain,    switchSetting<&CameraSettings::wifiOn>},
    CameraCommand{0x680A, "radio test mode",      PacketForm::Plain,    agree},
    CameraCommand{0x680B, "start radio test",     PacketForm::Plain,    agree},
    CameraCommand{0x680C, "end radio test",       PacketForm::Plain,    agree},
};
// clang-format on
static_assert(std::ranges::adjacent_find(kCommands, std::ranges::greater_equal(),
                                         &CameraCommand::code) == kCommands.end(),
              "codes rise, so that none stands twice");

CommandAnswer tellValue(const CameraValue& value, const CommandRequest& request,
                        const CameraState& state) {
    const ValueContent content = readValue(value, state);
    if (const auto* const text = std::get_if<std::string>(&content)) {
        return {{textAnswer(request.id, *text)}};
    }
    return success(request, {std::get<std::uint32_t>(content)});
}

CommandAnswer executeOn(const CameraValue& value, std::span<const std::uint8_t> packet,
                        CameraState& state) {
    const bool sets = readU16(packet, kCodeOffset) == value.setCode;
    const bool takesText = sets && value.form == ValueForm::Text;
    const auto request = readRequest(packet, takesText ? PacketForm::Text : PacketForm::Plain);
    if (!request) {
        return refusal(readU16(packet, kIdOffset), CameraResult::DataLength);
    }
    if (!sets) {
        return tellValue(value, *request, state);
    }
    const ValueContent content =
        takesText ? ValueContent(request->texts[0]) : ValueContent(request->parameters[0]);
    return writeValue(value, content, state) ? success(*request)
                                             : refusal(request->id, CameraResult::ParameterRange);
}

}  // namespace

std::span<const CameraCommand> cameraCommands() {
    return kCommands;
}

const CameraCommand* cameraCommand(std::uint16_t code) {
    const auto command = std::ranges::lower_bound(kCommands, code, {}, &CameraCommand::code);
    return command == kCommands.end() || command->code != code ? nullptr : &*command;
}

CommandAnswer executeCommand(std::span<const std::uint8_t> packet, CameraState& state) {
    const std::uint16_t id = readU16(packet, kIdOffset);
    if (!isOfType(packet, PacketType::Command)) {
        return refusal(id, CameraResult::UnknownCommand);
    }
    if (packet.size() < kHeaderSize || readU32(packet, kLengthOffset) != packet.size()) {
        return refusal(id, CameraResult::DataLength);
    }
    const std::uint16_t code = readU16(packet, kCodeOffset);
    if (const CameraValue* const value = cameraValue(code)) {
        return executeOn(*value, packet, state);
    }
    const CameraCommand* const command = cameraCommand(code);
    if (command == nullptr) {
        return refusal(id, CameraResult::UnknownCommand);
    }
    const auto request = readRequest(packet, command->form);
    return request ? command->execute(*request, state) : refusal(id, CameraResult::DataLength);
}

}  // namespace nubo::simulator
