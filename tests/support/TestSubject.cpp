// SPDX-License-Identifier: MIT
#include "tests/support/TestSubject.h"

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string_view>

namespace {

// Made at the first use: subjects register themselves before main(), in any order.
std::map<std::string_view, TestSubject::Run, std::less<>>& subjects() {
    static std::map<std::string_view, TestSubject::Run, std::less<>> all;
    return all;
}

std::string_view withoutNamespace(std::string_view name) {
    return name.substr(name.rfind(':') + 1);
}

}  // namespace

TestSubject::TestSubject(const char* name, Run run) {
    if (!subjects().emplace(withoutNamespace(name), run).second) {
        std::fprintf(stderr, "Two tests are named %s.\n", name);
        std::abort();
    }
}

int main(int argc, char** argv) {
    const auto subject = argc > 1 ? subjects().find(argv[1]) : subjects().end();
    if (subject == subjects().end()) {
        std::fprintf(stderr, "Usage: %s SUBJECT [Qt Test's options]\nSubjects:\n", argv[0]);
        for (const auto& [name, run] : subjects()) {
            std::fprintf(stderr, "  %.*s\n", static_cast<int>(name.size()), name.data());
        }
        return 2;
    }
    std::rotate(argv + 1, argv + 2, argv + argc);
    argv[argc - 1] = nullptr;
    return subject->second(argc - 1, argv);
}
