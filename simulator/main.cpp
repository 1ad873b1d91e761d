// SPDX-License-Identifier: MIT
#include "simulator/BusPort.h"
#include "simulator/ChildProcess.h"
#include "simulator/ControlLine.h"
#include "simulator/ControlSocket.h"
#include "simulator/ControlTerminal.h"
#include "simulator/FileDescriptor.h"
#include "simulator/FilePermissions.h"
#include "simulator/GadgetPort.h"
#include "simulator/Options.h"
#include "simulator/RootHub.h"
#include "simulator/Script.h"
#include "simulator/VirtualCamera.h"
#include "simulator/VirtualUsbBus.h"

#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace nubo::simulator {

namespace {

constexpr int WRONG_USE = 2;
constexpr int CANNOT_RUN = 127;
constexpr const char* PRELOADED_LIBRARY = "libumockdev-preload.so.0";
/// A child that has been asked to end is killed after this time.
constexpr std::chrono::seconds PATIENCE{5};

int fail(int exitCode, const std::string& what) {
    std::fprintf(stderr, "nubo-camera-simulator: %s\n", what.c_str());
    return exitCode;
}

/// Starts this program again with the preloaded library; returns only when that is impossible.
int startPreloaded(char** arguments) {
    const char* const preloaded = std::getenv("LD_PRELOAD");
    if (preloaded != nullptr && std::strstr(preloaded, PRELOADED_LIBRARY) != nullptr) {
        return fail(CANNOT_RUN, std::string(PRELOADED_LIBRARY) +
                                    " cannot be loaded: install the Debian package umockdev");
    }
    std::string list = PRELOADED_LIBRARY;
    if (preloaded != nullptr && *preloaded != '\0') {
        list += std::string(":") + preloaded;
    }
    setenv("LD_PRELOAD", list.c_str(), 1);
    ::execv("/proc/self/exe", arguments);
    return fail(CANNOT_RUN, std::string("cannot start again: ") + std::strerror(errno));
}

/// Turns the signals that the program watches for into a file; they are blocked in every thread
/// that is started from now on.
FileDescriptor watchSignals() {
    sigset_t watched;
    sigemptyset(&watched);
    for (const int number : {SIGCHLD, SIGINT, SIGTERM, SIGHUP}) {
        sigaddset(&watched, number);
    }
    pthread_sigmask(SIG_BLOCK, &watched, nullptr);
    return FileDescriptor(::signalfd(-1, &watched, SFD_CLOEXEC | SFD_NONBLOCK));
}

/// True when the user or the system has asked the program to end.
bool askedToEnd(const FileDescriptor& signals) {
    bool asked = false;
    signalfd_siginfo signal{};
    while (::read(signals.number(), &signal, sizeof(signal)) == sizeof(signal)) {
        asked = asked || signal.ssi_signo != SIGCHLD;
    }
    return asked;
}

/// Milliseconds from now until the first of these times, as poll() takes them; -1 for never.
int untilFirst(std::initializer_list<std::optional<Script::Clock::time_point>> times) {
    std::optional<Script::Clock::time_point> first;
    for (const auto& time : times) {
        if (time && (!first || *time < *first)) {
            first = time;
        }
    }
    if (!first) {
        return -1;
    }
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(*first - Script::Clock::now());
    return static_cast<int>(std::max<std::chrono::milliseconds::rep>(left.count(), 0));
}

/// Serves script, socket, terminal and signals until the child has ended; its exit code. Without a
/// child, until the program is asked to end.
int serveUntilEnd(ChildProcess& child, const FileDescriptor& signals, ControlTarget& target,
                  ControlSocket& socket, ControlTerminal& terminal, Script& script) {
    const auto runLine = [&](std::string_view line) { return runControlLine(target, line); };
    std::optional<Script::Clock::time_point> killTime;
    const bool alone = !child.isRunning();
    bool ends = false;
    const auto endChild = [&] {
        ends = true;
        if (!killTime) {
            child.signal(SIGTERM);
            killTime = Script::Clock::now() + PATIENCE;
        }
    };
    while (true) {
        const auto scriptTime = script.run(runLine);
        // Before the wait: nothing more may come after the line that asks for the end.
        if (std::exchange(target.quits, false)) {
            endChild();
        }
        std::vector<pollfd> waiting = {{signals.number(), POLLIN, 0}};
        socket.appendTo(waiting);
        const auto lookTime = terminal.appendTo(waiting);
        ::poll(waiting.data(), waiting.size(), untilFirst({scriptTime, killTime, lookTime}));
        if (askedToEnd(signals)) {
            endChild();
        }
        if (killTime && *killTime <= Script::Clock::now()) {
            child.signal(SIGKILL);
            killTime = std::nullopt;
        }
        if (alone && ends) {
            return EXIT_SUCCESS;
        }
        if (const auto exitCode = child.exitCode()) {
            return *exitCode;
        }
        socket.serve(runLine);
        terminal.serve(runLine);
    }
}

/// A different identity for every camera; the first one has the default identity.
CameraIdentity identityOf(int number) {
    CameraIdentity identity;
    if (number > 1) {
        std::array<char, 12> digits{};
        std::snprintf(digits.data(), digits.size(), "%04d", number);
        identity.serialNumber = std::string("SIM") + digits.data();
        identity.ssid = std::string("NuBo-") + digits.data();
        identity.machineName = "NuBo-" + std::to_string(number);
        std::snprintf(digits.data(), digits.size(), "%02X", static_cast<unsigned>(number));
        identity.macAddress = std::string("02:00:5E:10:00:") + digits.data();
    }
    return identity;
}

std::shared_ptr<VirtualCamera> makeCamera(int number, std::uint32_t answerDelay) {
    auto camera = std::make_shared<VirtualCamera>();
    CameraState state;
    state.identity = identityOf(number);
    state.behaviour.answerDelay = answerDelay;
    camera->setState(state);
    return camera;
}

/// What a camera is plugged into; @p failure is empty, or tells what is missing.
std::unique_ptr<CameraPort> makePort(const Options& options, std::optional<VirtualUsbBus>& bus,
                                     std::shared_ptr<VirtualDevice> camera, std::string& failure) {
    DeviceOptions device;
    device.restartDelay = options.restartDelay;
    if (bus) {
        return std::make_unique<BusPort>(*bus, std::move(camera), std::move(device));
    }
    auto port = std::make_unique<GadgetPort>(std::move(camera), std::move(device));
    failure = port->open(options.controller);
    return port;
}

int run(const Options& options) {
    Script script;
    if (!options.script.empty() && !script.load(options.script)) {
        return fail(WRONG_USE, options.script + ": " + std::strerror(errno));
    }
    if (options.asUser) {
        const std::string failure = heedFilePermissions();
        if (!failure.empty()) {
            return fail(CANNOT_RUN, failure);
        }
    }
    const FileDescriptor signals = watchSignals();
    std::optional<VirtualUsbBus> bus;
    if (!options.gadget) {
        plugRootHub(bus.emplace());
    }
    ControlTarget target;
    for (int number = 1; number <= options.cameras; ++number) {
        auto camera = makeCamera(number, options.answerDelay);
        std::string failure;
        auto port = makePort(options, bus, camera, failure);
        if (failure.empty() && !options.unplugged) {
            failure = port->plug();
        }
        if (!failure.empty()) {
            return fail(CANNOT_RUN, failure);
        }
        target.cameras.push_back({std::move(camera), std::move(port)});
    }
    ControlSocket socket;
    if (!options.control.empty()) {
        const std::string failure = socket.listen(options.control);
        if (!failure.empty()) {
            return fail(WRONG_USE, failure);
        }
    }
    ControlTerminal terminal;
    if (options.interactive) {
        terminal.open();
    }
    ChildProcess child;
    const std::string failure =
        options.command.empty() ? std::string() : child.start(options.command);
    if (!failure.empty()) {
        return fail(CANNOT_RUN, failure);
    }
    return serveUntilEnd(child, signals, target, socket, terminal, script);
}

}  // namespace

}  // namespace nubo::simulator

int main(int count, char** arguments) {
    using namespace nubo::simulator;
    Options options;
    const std::vector<std::string> words(arguments + (count > 0 ? 1 : 0), arguments + count);
    const std::string failure = parseOptions(words, options);
    if (!failure.empty()) {
        return fail(WRONG_USE, failure);
    }
    if (options.version) {
        std::fputs(versionText().c_str(), stdout);
        return EXIT_SUCCESS;
    }
    if (options.help) {
        std::fputs(optionHelp().c_str(), stdout);
        return EXIT_SUCCESS;
    }
    if (!options.gadget && !VirtualUsbBus::isAvailable()) {
        return startPreloaded(arguments);
    }
    return run(options);
}
