// SPDX-License-Identifier: MIT
#include "simulator/ControlLine.h"

#include "simulator/CameraItems.h"
#include "simulator/ControlCall.h"
#include "simulator/Fault.h"
#include "simulator/FaultLine.h"
#include "simulator/Words.h"

#include <algorithm>
#include <array>
#include <optional>

namespace nubo::simulator {

namespace {

struct ControlCommand {
    std::string_view name;
    std::string_view usage;
    std::string_view explanation;
    std::string (*run)(ControlCall& call);
};

/// Reads the number of a camera (from 1) into an index.
std::optional<std::size_t> cameraIndex(const ControlTarget& target, std::string_view word) {
    const auto number = parseNumber<std::size_t>(word);
    if (!number || *number < 1 || *number > target.cameras.size()) {
        return std::nullopt;
    }
    return *number - 1;
}

std::string noSuchCamera(std::string_view word) {
    return error("no camera " + quoted(word));
}

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

std::string runSet(ControlCall& call) {
    const std::string_view name = takeWord(call.rest);
    if (cameraItem(name) == nullptr) {
        return error("no item " + quoted(name));
    }
    if (!call.camera().camera->set(name, call.rest)) {
        return error("no value for " + std::string(name) + ": " + quoted(call.rest));
    }
    return "ok";
}

std::string runGet(ControlCall& call) {
    const std::string_view name = takeWord(call.rest);
    const auto value = call.camera().camera->get(name);
    if (!value) {
        return error("no item " + quoted(name));
    }
    return call.rest.empty() ? "ok " + *value : error("too many words");
}

std::string runClearFaults(ControlCall& call) {
    if (!call.rest.empty()) {
        return error("too many words");
    }
    call.target.bus.clearFaults(call.camera().id);
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

std::string runHelp(ControlCall& call);

// clang-format off
constexpr std::array COMMANDS = {
    ControlCommand{"plug",         "plug [K]",        "plugs in camera K (1 when left out)", runPlug},
    ControlCommand{"unplug",       "unplug [K]",      "unplugs camera K (1 when left out)", runUnplug},
    ControlCommand{"set",          "set ITEM VALUE",  "sets a value of the camera", runSet},
    ControlCommand{"get",          "get ITEM",        "answers \"ok\" and a value of the camera", runGet},
    ControlCommand{"fault",        "fault KIND [ARG] [transfer|command] N [once|forever|xCOUNT]",
                                                      "strikes the N-th transfer (or the answer to the N-th command) from now", runFault},
    ControlCommand{"clear-faults", "clear-faults",    "drops all faults that are still waiting", runClearFaults},
    ControlCommand{"status",       "status",          "tells what is plugged in and what has happened", runStatus},
    ControlCommand{"help",         "help",            "lists the control lines", runHelp},
};
// clang-format on

std::string runHelp(ControlCall&) {
    std::string answer = "ok";
    for (const ControlCommand& command : COMMANDS) {
        answer += answer == "ok" ? " " : "; ";
        answer += command.usage;
    }
    return answer;
}

std::string row(std::string_view left, std::string_view right) {
    constexpr std::size_t LEFT_WIDTH = 18;
    std::string text = "  " + std::string(left);
    if (left.size() < LEFT_WIDTH) {
        text.append(LEFT_WIDTH - left.size(), ' ');
    } else {
        text += "\n  " + std::string(LEFT_WIDTH, ' ');
    }
    return text + std::string(right) + "\n";
}

}  // namespace

std::string runControlLine(ControlTarget& target, std::string_view line) {
    ControlCall call{target, 0, line};
    std::string_view name = takeWord(call.rest);
    if (name.starts_with('@')) {
        const auto index = cameraIndex(target, name.substr(1));
        if (!index) {
            return noSuchCamera(name.substr(1));
        }
        call.index = *index;
        name = takeWord(call.rest);
    }
    const auto command = std::ranges::find(COMMANDS, name, &ControlCommand::name);
    if (command == COMMANDS.end()) {
        return error("no command " + quoted(name) + ", try \"help\"");
    }
    return command->run(call);
}

std::string plugCamera(ControlTarget& target, std::size_t index) {
    SimulatedCamera& camera = target.cameras[index];
    if (target.bus.deviceNumber(camera.id)) {
        return error("the camera is plugged in already");
    }
    if (camera.id) {
        return target.bus.replug(camera.id) ? "" : error("the bus has no room");
    }
    camera.id = target.bus.plug(camera.camera, camera.options);
    return camera.id ? "" : error("the bus has no room");
}

std::string controlLineHelp() {
    std::string text = "Control lines, each answered by one line, \"ok ...\" or \"error: ...\":\n";
    for (const ControlCommand& command : COMMANDS) {
        text += row(command.usage, command.explanation);
    }
    text += row("@K LINE", "any of these lines, for camera K instead of camera 1");
    text += row("wait MS", "in a script: goes on after so many milliseconds");
    text += "\nItems:\n";
    for (const CameraItem& item : cameraItems()) {
        text += row(item.name, item.explanation);
    }
    text += "\nFaults:\n";
    for (const FaultInfo& fault : faultTable()) {
        const bool argument = fault.argument != FaultArgument::None;
        text += row(std::string(fault.name) + (argument ? " ARG" : ""), fault.explanation);
    }
    return text;
}

}  // namespace nubo::simulator
