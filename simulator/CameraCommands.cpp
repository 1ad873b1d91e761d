// SPDX-License-Identifier: MIT
#include "simulator/CameraCommands.h"

#include "simulator/CameraValues.h"
#include "simulator/SettingCommands.h"
#include "simulator/WifiCommands.h"

#include <algorithm>
#include <array>
#include <functional>

namespace nubo::simulator {

namespace {

constexpr int BITS_PER_PARAMETER = 32;

std::uint32_t high(std::uint64_t value) {
    return static_cast<std::uint32_t>(value >> BITS_PER_PARAMETER);
}

std::uint32_t low(std::uint64_t value) {
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
    CommandAnswer answer = success(request);
    if (state.behaviour.restartAfterReset == ON) {
        answer.afterwards = Afterwards::Restart;
    }
    return answer;
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

CommandAnswer capture(const CommandRequest& request, CameraState& state) {
    constexpr std::uint64_t PICTURE_SIZE = 2048;
    SdCard& card = state.sdCard;
    if (card.used > card.total || card.total - card.used < PICTURE_SIZE) {
        return refusal(request.id, CameraResult::SdCardFull);
    }
    card.used += PICTURE_SIZE;
    return success(request);
}

/// A service action: the host cannot observe its effect.
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
    CommandAnswer answer = success(request);
    if (!state.behaviour.nextFirmware.empty()) {
        state.behaviour.isUpdating = true;
        answer.afterwards = Afterwards::Restart;
    }
    return answer;
}

// clang-format off
constexpr std::array COMMANDS = {
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
static_assert(std::ranges::adjacent_find(COMMANDS, std::ranges::greater_equal(),
                                         &CameraCommand::code) == COMMANDS.end(),
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
    const bool sets = readU16(packet, CODE_OFFSET) == value.setCode;
    const bool takesText = sets && value.form == ValueForm::Text;
    const auto request = readRequest(packet, takesText ? PacketForm::Text : PacketForm::Plain);
    if (!request) {
        return refusal(readU16(packet, ID_OFFSET), CameraResult::DataLength);
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
    return COMMANDS;
}

const CameraCommand* cameraCommand(std::uint16_t code) {
    const auto command = std::ranges::lower_bound(COMMANDS, code, {}, &CameraCommand::code);
    return command == COMMANDS.end() || command->code != code ? nullptr : &*command;
}

CommandAnswer executeCommand(std::span<const std::uint8_t> packet, CameraState& state) {
    const std::uint16_t id = readU16(packet, ID_OFFSET);
    if (!isOfType(packet, PacketType::Command)) {
        return refusal(id, CameraResult::UnknownCommand);
    }
    if (packet.size() < HEADER_SIZE || readU32(packet, LENGTH_OFFSET) != packet.size()) {
        return refusal(id, CameraResult::DataLength);
    }
    const std::uint16_t code = readU16(packet, CODE_OFFSET);
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
