// SPDX-License-Identifier: MIT
#include "simulator/SettingCommands.h"

#include <algorithm>
#include <span>

namespace nubo::simulator {

CommandAnswer tellInterval(const CommandRequest& request, CameraState& state) {
    const CameraSettings& settings = state.settings;
    return success(request,
                   {settings.intervalUse, settings.intervalDelay, settings.intervalPeriod});
}

CommandAnswer setInterval(const CommandRequest& request, CameraState& state) {
    constexpr std::uint32_t THREE_DAYS = 72 * 60 * 60;
    const auto& [use, delay, period, fourth, fifth] = request.parameters;
    if (!isSwitch(use) || delay > THREE_DAYS || period < 1 || period > THREE_DAYS) {
        return refusal(request.id, CameraResult::ParameterRange);
    }
    state.settings.intervalUse = use;
    state.settings.intervalDelay = delay;
    state.settings.intervalPeriod = period;
    return success(request);
}

CommandAnswer tellGps(const CommandRequest& request, CameraState& state) {
    const CameraReadings& readings = state.readings;
    return {{textAnswer(request.id, readings.gpsInfo, {0, 0, readings.gpsNumber})}};
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

}  // namespace nubo::simulator
