// SPDX-License-Identifier: MIT
#include "simulator/FaultLine.h"

#include "simulator/Fault.h"
#include "simulator/Words.h"

#include <cstdint>
#include <limits>
#include <optional>

namespace nubo::simulator {

namespace {

std::optional<unsigned> parseCount(std::string_view word) {
    if (word.empty() || word == "once") {
        return 1;
    }
    if (word == "forever") {
        return Fault::FOREVER;
    }
    const auto count = word.front() == 'x' ? parseNumber<unsigned>(word.substr(1)) : std::nullopt;
    return count && *count > 0 ? count : std::nullopt;
}

}  // namespace

std::string runFault(ControlCall& call) {
    Fault fault;
    const std::string_view name = takeWord(call.rest);
    const std::optional<FaultKind> kind = faultByName(name);
    if (!kind) {
        return error("no fault " + quoted(name));
    }
    fault.kind = *kind;
    if (faultInfo(*kind).argument != FaultArgument::None) {
        const std::string_view word = takeWord(call.rest);
        const auto argument = parseNumber<std::uint32_t>(word);
        const bool isCode = faultInfo(*kind).argument == FaultArgument::Code;
        if (!argument || (isCode && *argument > std::numeric_limits<std::uint16_t>::max())) {
            return error("no argument for " + std::string(name) + ": " + quoted(word));
        }
        fault.argument = *argument;
    }
    std::string_view word = takeWord(call.rest);
    if (word == "transfer" || word == "command") {
        fault.unit = word == "command" ? FaultUnit::Command : FaultUnit::Transfer;
        word = takeWord(call.rest);
    }
    const auto nth = parseNumber<unsigned>(word);
    if (!nth || *nth < 1) {
        return error("which one is to be struck, counted from 1, not " + quoted(word));
    }
    fault.nth = *nth;
    word = takeWord(call.rest);
    const auto count = parseCount(word);
    if (!count || !call.rest.empty()) {
        return error("how often is once, forever or xCOUNT, not " + quoted(word));
    }
    fault.count = *count;
    return reply(call.camera().port->addFault(fault));
}

}  // namespace nubo::simulator
