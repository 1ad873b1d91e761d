// SPDX-License-Identifier: MIT
#include "simulator/CameraLines.h"

#include "simulator/CameraItems.h"
#include "simulator/Words.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <utility>

namespace nubo::simulator {

namespace {

std::string noSuchItem(std::string_view name) {
    return error("no item " + quoted(name) + ", try \"help\"");
}

std::string fileError(const std::string& path) {
    return error(path + ": " + std::strerror(errno));
}

}  // namespace

std::string runSet(ControlCall& call) {
    const std::string_view name = takeWord(call.rest);
    const CameraItem* const item = cameraItem(name);
    if (item == nullptr) {
        return noSuchItem(name);
    }
    if (call.camera().camera->set(name, call.rest)) {
        return "ok";
    }
    const std::string explanation = " (" + std::string(item->explanation) + ")";
    if (item->allowed.empty()) {
        return error(std::string(name) + " is only told" + explanation);
    }
    return error(std::string(name) + " is " + item->allowed + ", not " + quoted(call.rest) +
                 explanation);
}

std::string runGet(ControlCall& call) {
    const std::string_view name = takeWord(call.rest);
    const auto value = call.camera().camera->get(name);
    if (!value) {
        return noSuchItem(name);
    }
    return call.rest.empty() ? "ok " + *value : error("too many words");
}

std::string runPicture(ControlCall& call) {
    const std::string path(call.rest);
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    ByteVector bytes;
    // read() reports what cannot be read, as a directory; an iterator would throw.
    std::array<char, 65536> piece{};
    while (file.read(piece.data(), piece.size()) || file.gcount() > 0) {
        bytes.insert(bytes.end(), piece.begin(), piece.begin() + file.gcount());
    }
    if (!file.is_open() || bytes.empty()) {
        return errno != 0 ? fileError(path) : error(path + " is empty");
    }
    const std::size_t size = bytes.size();
    call.camera().camera->setPicture(std::move(bytes));
    return "ok " + std::to_string(size) + " bytes";
}

std::string runSaveFirmware(ControlCall& call) {
    const std::string path(call.rest);
    const SharedBytes image = call.camera().camera->firmware();
    if (image->empty()) {
        return error("no image has come");
    }
    errno = 0;
    std::ofstream file(path, std::ios::binary);
    std::ranges::copy(*image, std::ostreambuf_iterator<char>(file));
    file.close();
    return file ? "ok " + std::to_string(image->size()) + " bytes" : fileError(path);
}

std::string runCommands(ControlCall& call) {
    if (!call.rest.empty()) {
        return error("too many words");
    }
    std::string answer = "ok";
    for (const std::uint16_t code : call.camera().camera->takeCommandCodes()) {
        std::array<char, 8> text{};
        std::snprintf(text.data(), text.size(), " 0x%04X", static_cast<unsigned>(code));
        answer += text.data();
    }
    return answer;
}

}  // namespace nubo::simulator
