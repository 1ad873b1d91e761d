// SPDX-License-Identifier: MIT
#include "simulator/ControlLine.h"

#include "simulator/BusLines.h"
#include "simulator/CameraItems.h"
#include "simulator/CameraLines.h"
#include "simulator/ControlCall.h"
#include "simulator/Fault.h"
#include "simulator/FaultLine.h"
#include "simulator/Words.h"

#include <algorithm>
#include <array>

namespace nubo::simulator {

namespace {

struct ControlCommand {
    std::string_view name;
    std::string_view usage;
    std::string_view explanation;
    std::string (*run)(ControlCall& call);
};

std::string runClearFaults(ControlCall& call) {
    if (!call.rest.empty()) {
        return error("too many words");
    }
    call.camera().port->clearFaults();
    return "ok";
}

std::string runQuit(ControlCall& call) {
    if (!call.rest.empty()) {
        return error("too many words");
    }
    call.target.quits = true;
    return "ok";
}

std::string runHelp(ControlCall& call);

// clang-format off
constexpr std::array COMMANDS = {
    ControlCommand{"plug",          "plug [K]",           "plugs in camera K (1 when left out)", runPlug},
    ControlCommand{"unplug",        "unplug [K]",         "unplugs camera K (1 when left out)", runUnplug},
    ControlCommand{"set",           "set ITEM VALUE",     "sets a value of the camera", runSet},
    ControlCommand{"get",           "get ITEM",           "answers \"ok\" and a value of the camera", runGet},
    ControlCommand{"picture",       "picture FILE",       "the camera sends this file when it is asked for a picture", runPicture},
    ControlCommand{"save-firmware", "save-firmware FILE", "writes the firmware image that came last into a file", runSaveFirmware},
    ControlCommand{"commands",      "commands",           "answers \"ok\" and the codes of the commands since the last such line", runCommands},
    ControlCommand{"fault",         "fault KIND [ARG] [transfer|command] N [once|forever|xCOUNT]",
                                                          "strikes the N-th transfer (or the answer to the N-th command) from now", runFault},
    ControlCommand{"clear-faults",  "clear-faults",       "drops all faults that are still waiting", runClearFaults},
    ControlCommand{"busy",          "busy on|off",        "claiming the interface is refused, as if another program held it", runBusy},
    ControlCommand{"access",        "access allowed|denied|missing",
                                                          "how the device node answers opening (denied: for root only with --as-user)", runAccess},
    ControlCommand{"status",        "status",             "tells what is plugged in and what has happened", runStatus},
    ControlCommand{"help",          "help [NAME]",        "lists lines, items and faults, or explains one of them", runHelp},
    ControlCommand{"quit",          "quit",               "ends the command, and the simulator with it", runQuit},
};
// clang-format on

std::string itemHelp(const CameraItem& item) {
    const std::string allowed = item.allowed.empty() ? "only told" : item.allowed;
    return std::string(item.name) + ": " + allowed + " (" + std::string(item.explanation) + ")";
}

std::string faultUsage(const FaultInfo& fault) {
    return std::string(fault.name) + (fault.argument == FaultArgument::None ? "" : " ARG");
}

/// The explanation of the line, item or fault of that name.
std::string explain(std::string_view name) {
    const auto command = std::ranges::find(COMMANDS, name, &ControlCommand::name);
    if (command != COMMANDS.end()) {
        return "ok " + std::string(command->usage) + ": " + std::string(command->explanation);
    }
    if (const CameraItem* const item = cameraItem(name)) {
        return "ok " + itemHelp(*item);
    }
    if (const auto fault = faultByName(name)) {
        const FaultInfo& info = faultInfo(*fault);
        return "ok " + faultUsage(info) + ": " + std::string(info.explanation);
    }
    return error("no line, item or fault " + quoted(name));
}

std::string runHelp(ControlCall& call) {
    if (!call.rest.empty()) {
        return explain(call.rest);
    }
    std::string answer = "ok ";
    for (const ControlCommand& command : COMMANDS) {
        answer += std::string(command.usage) + "; ";
    }
    answer += "items:";
    for (const CameraItem& item : cameraItems()) {
        answer += " " + std::string(item.name);
    }
    answer += "; faults:";
    for (const FaultInfo& fault : faultTable()) {
        answer += " " + std::string(fault.name);
    }
    return answer;
}

std::string row(std::string_view left, std::string_view right) {
    constexpr std::size_t LEFT_WIDTH = 20;
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

std::string controlLineHelp() {
    std::string text = "Control lines, each answered by one line, \"ok ...\" or \"error: ...\":\n";
    for (const ControlCommand& command : COMMANDS) {
        text += row(command.usage, command.explanation);
    }
    text += row("@K LINE", "any of these lines, for camera K instead of camera 1");
    text += row("wait MS", "in a script: goes on after so many milliseconds");
    text += "\nItems:\n";
    for (const CameraItem& item : cameraItems()) {
        const std::string allowed = item.allowed.empty() ? "only told" : item.allowed;
        text += row(item.name, allowed + ": " + std::string(item.explanation));
    }
    text += "\nFaults:\n";
    for (const FaultInfo& fault : faultTable()) {
        text += row(faultUsage(fault), fault.explanation);
    }
    return text;
}

}  // namespace nubo::simulator
