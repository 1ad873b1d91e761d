// SPDX-License-Identifier: MIT
#include "simulator/WifiCommands.h"

#include <algorithm>

namespace nubo::simulator {

namespace {

std::uint32_t bits(std::int32_t value) {
    return static_cast<std::uint32_t>(value);
}

}  // namespace

/// The answer holds the link state; then follow a packet of the two names and one of the numbers.
CommandAnswer tellWifi(const CommandRequest& request, CameraState& state) {
    constexpr std::uint32_t NOT_LINKED = 1;
    const WifiLink& wifi = state.settings.wifi;
    const bool isOn = state.settings.wifiOn == ON;
    CommandAnswer answer = success(request, {isOn ? wifi.state : NOT_LINKED});
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

CommandAnswer changeWifiMode(const CommandRequest& request, CameraState& state) {
    if (request.parameters[0] < 1 || request.parameters[0] > 2) {
        return refusal(request.id, CameraResult::ParameterRange);
    }
    state.settings.wifiMode = request.parameters[0];
    return success(request);
}

/// Links to any network: one that is not in reach may hide its name.
CommandAnswer joinWifi(const CommandRequest& request, CameraState& state) {
    constexpr std::size_t LONGEST_SSID = 32;
    constexpr std::uint32_t LINKED = 2;
    const auto& [ssid, key] = request.texts;
    if (ssid.empty() || ssid.size() > LONGEST_SSID) {
        return refusal(request.id, CameraResult::ParameterRange);
    }
    WifiLink& wifi = state.settings.wifi;
    wifi.state = LINKED;
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

}  // namespace nubo::simulator
