// SPDX-License-Identifier: MIT
#include "simulator/BusLines.h"

#include "simulator/Words.h"

#include <algorithm>
#include <array>
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
    const std::string failure = takeCamera(call);
    return failure.empty() ? reply(call.camera().port->plug()) : failure;
}

std::string runUnplug(ControlCall& call) {
    const std::string failure = takeCamera(call);
    return failure.empty() ? reply(call.camera().port->unplug()) : failure;
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
    return reply(call.camera().port->setAccess(row->second));
}

std::string runBusy(ControlCall& call) {
    const auto busy = switchFromText(call.rest);
    if (!busy) {
        return error("busy is on or off, not " + quoted(call.rest));
    }
    return reply(call.camera().port->setBusy(*busy == ON));
}

std::string runStatus(ControlCall& call) {
    if (!call.rest.empty()) {
        return error("too many words");
    }
    std::string answer = "ok";
    std::size_t number = 0;
    for (const SimulatedCamera& camera : call.target.cameras) {
        answer += number == 0 ? " " : "; ";
        answer += "camera " + std::to_string(++number) + ": " + camera.port->status();
    }
    return answer;
}

}  // namespace nubo::simulator
