// SPDX-License-Identifier: MIT
#include "simulator/BusLines.h"

#include "simulator/FilePermissions.h"
#include "simulator/Words.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

namespace nubo::simulator {

namespace {

/// Replaces the call's camera by the one that its only word names; the error, if it is wrong.
std::string takeCamera(ControlCall& call) {
    const std::string_view word = takeWord(call.rest);
    if (word.empty()) {
        return {};
    }
    const auto index = cameraIndex(call.target, word);
    if (!index) {
        return noSuchCamera(word);
    }
    call.index = *index;
    return call.rest.empty() ? std::string() : error("too many words");
}

}  // namespace

std::string runPlug(ControlCall& call) {
    std::string failure = takeCamera(call);
    if (failure.empty()) {
        failure = plugCamera(call.target, call.index);
    }
    return failure.empty() ? "ok" : failure;
}

std::string runUnplug(ControlCall& call) {
    std::string failure = takeCamera(call);
    if (!failure.empty()) {
        return failure;
    }
    return call.target.bus.unplug(call.camera().id) ? "ok" : error("the camera is not plugged in");
}

std::string runAccess(ControlCall& call) {
    constexpr std::array WORDS = {
        std::pair{std::string_view("allowed"), NodeAccess::Allowed},
        std::pair{std::string_view("denied"), NodeAccess::Denied},
        std::pair{std::string_view("missing"), NodeAccess::Missing},
    };
    const auto row =
        std::ranges::find(WORDS, call.rest, [](const auto& word) { return word.first; });
    if (row == WORDS.end()) {
        return error("access is allowed, denied or missing, not " + quoted(call.rest));
    }
    if (row->second == NodeAccess::Denied && passesOverFilePermissions()) {
        return error("root may open every node: start the simulator with --as-user");
    }
    SimulatedCamera& camera = call.camera();
    camera.options.access = row->second;
    call.target.bus.setNodeAccess(camera.id, row->second);
    return "ok";
}

std::string runBusy(ControlCall& call) {
    const auto busy = switchFromText(call.rest);
    if (!busy) {
        return error("busy is on or off, not " + quoted(call.rest));
    }
    SimulatedCamera& camera = call.camera();
    camera.options.busyInterfaces = *busy == ON ? std::set{0} : std::set<int>();
    call.target.bus.setBusyInterfaces(camera.id, camera.options.busyInterfaces);
    return "ok";
}

std::string runStatus(ControlCall& call) {
    if (!call.rest.empty()) {
        return error("too many words");
    }
    std::string answer = "ok";
    std::size_t number = 0;
    for (const SimulatedCamera& camera : call.target.cameras) {
        const auto device = call.target.bus.deviceNumber(camera.id);
        const DeviceLog log = call.target.bus.log(camera.id);
        answer += number == 0 ? " " : "; ";
        answer += "camera " + std::to_string(++number) + ": ";
        answer += device ? "device " + std::to_string(*device) : "unplugged";
        answer += ", open " + std::to_string(log.openHandles);
        answer += ", transfers " + std::to_string(log.transferCount);
        answer += ", commands " + std::to_string(log.commandCount);
    }
    return answer;
}

}  // namespace nubo::simulator
