// SPDX-License-Identifier: MIT
#include "simulator/Script.h"

#include "simulator/Words.h"

#include <cstdint>
#include <cstdio>
#include <fstream>

namespace nubo::simulator {

bool Script::load(const std::string& path) {
    std::ifstream file(path);
    if (!file) {
        return false;
    }
    m_path = path;
    std::size_t number = 0;
    for (std::string text; std::getline(file, text);) {
        ++number;
        std::string_view words = text;
        const std::string_view first = takeWord(words);
        if (!first.empty() && !first.starts_with('#')) {
            m_lines.push_back({number, text});
        }
    }
    return true;
}

std::optional<Script::Clock::time_point> Script::run(const Runner& runner) {
    while (m_next < m_lines.size()) {
        if (m_notBefore > Clock::now()) {
            return m_notBefore;
        }
        const Line& line = m_lines[m_next++];
        std::string_view words = line.text;
        const std::string answer = takeWord(words) == "wait" ? waitFor(words) : runner(line.text);
        std::fprintf(stderr, "%s:%zu: %s\n", m_path.c_str(), line.number, answer.c_str());
    }
    return std::nullopt;
}

std::string Script::waitFor(std::string_view milliseconds) {
    const auto number = parseNumber<std::uint32_t>(milliseconds);
    if (!number) {
        return "error: no number of milliseconds: \"" + std::string(milliseconds) + "\"";
    }
    m_notBefore = Clock::now() + std::chrono::milliseconds(*number);
    return "ok";
}

}  // namespace nubo::simulator
