// SPDX-License-Identifier: MIT
#include "simulator/CameraCommands.h"

#include <algorithm>
#include <array>
#include <functional>

namespace nubo::simulator {

namespace {

constexpr int kBitsPerParameter = 32;

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
    const WifiLink& wifi = state.settings.wifi;
    CommandAnswer answer = success(request, {wifi.state});
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
    answer.restart = true;
    return answer;
}

CommandAnswer formatSdCard(const CommandRequest& request, CameraState& state) {
    state.sdCard.used = 0;
    return success(request);
}

CommandAnswer resetSettings(const CommandRequest& request, CameraState& state) {
    state.settings = CameraSettings{};
    return success(request);
}

constexpr std::array kCommands = {
    CameraCommand{0x5001, "Wi-Fi information", tellWifi},
    CameraCommand{0x5002, "access points", tellAccessPoints},
    CameraCommand{0x5037, "battery", tellBattery},
    CameraCommand{0x5039, "SD card information", tellSdCard},
    CameraCommand{0x6802, "restart", restart},
    CameraCommand{0x6803, "format SD card", formatSdCard},
    CameraCommand{0x6804, "reset settings", resetSettings},
};
static_assert(std::ranges::adjacent_find(kCommands, std::ranges::greater_equal(),
                                         &CameraCommand::code) == kCommands.end(),
              "codes rise, so that none stands twice");

}  // namespace

std::span<const CameraCommand> cameraCommands() {
    return kCommands;
}

const CameraCommand* cameraCommand(std::uint16_t code) {
    const auto command = std::ranges::lower_bound(kCommands, code, {}, &CameraCommand::code);
    return command == kCommands.end() || command->code != code ? nullptr : &*command;
}

}  // namespace nubo::simulator
