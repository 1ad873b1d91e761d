// SPDX-License-Identifier: MIT
#include "cli/ClConsole.h"
#include "cli/ClReport.h"
#include "cli/Interruption.h"
#include "cli/Verb.h"
#include "cli/Verbs.h"

#include <algorithm>
#include <array>

namespace {

using enum VerbCamera;

constexpr std::array COMMON_OPTIONS{
    stOption{"-c,--camera", "CAMERA", "the camera: serial number, port (1-2) or bus:device"},
    stOption{"--all", "", "all cameras, side by side"},
    stOption{"--json", "", "results as JSON, an object a camera"},
    stOption{"-q,--quiet", "", "errors alone"},
    stOption{"-v,--verbose", "", "tells what is done; twice: every transfer, secrets among them",
             "", true},
    stOption{"--wait", "S", "waits for a camera that can be used, S seconds or without end", "-1"},
    stOption{"--yes", "", "agrees to what would be asked"},
    stOption{"-h,--help", "", "shows help"},
    stOption{"--version", "", "shows the version"},
};

// Options of the same name are alike in whether their value may be left out: the parser knows them
// before it knows the verb.

constexpr std::array SHOW_SECRETS{
    stOption{"--show-secrets", "", "shows passwords and keys"},
};

constexpr std::array STATUS_OPTIONS{
    stOption{"--watch", "S", "tells it again every S seconds (2)", "2"},
};

constexpr std::array EXPORT_OPTIONS{
    stOption{"--secrets", "", "with passwords and keys; a file is then for its owner alone"},
};

constexpr std::array APPLY_OPTIONS{
    stOption{"--dry-run", "", "shows what would be written, and writes nothing"},
    stOption{"--only", "GLOB", "settings that match alone", "", true},
    stOption{"--skip", "GLOB", "leaves out settings that match", "", true},
    stOption{"--keep-going", "", "goes on after a setting that the camera refuses"},
    SHOW_SECRETS.front(),
};

constexpr std::array WIFI_OPTIONS{
    stOption{"--key-file", "FILE", "join: the network's key, from a file or standard input (-)"},
    stOption{"--static", "ADDRESSES", "join: ADDRESS/LENGTH,GATEWAY[,DNS[,DNS]] instead of DHCP"},
    SHOW_SECRETS.front(),
};

constexpr std::array RESTART_OPTIONS{
    stOption{"--wait-back", "S", "waits until the camera is back, S seconds at most (60)", "60"},
};

constexpr std::array RESET_OPTIONS{
    stOption{"--wait-back", "S", "waits until a camera that restarts then is back, S seconds (60)",
             "60"},
};

constexpr std::array PICTURE_OPTIONS{
    stOption{"--every", "S", "a picture every S seconds, without end unless --count ends it"},
    stOption{"--count", "N", "N pictures"},
};

constexpr std::array STREAM_OPTIONS{
    stOption{"--host", "HOST", "the camera's address in its network, where DHCP gives it one"},
    SHOW_SECRETS.front(),
};

constexpr std::array FIRMWARE_OPTIONS{
    stOption{"--dry-run", "", "update: checks everything, and sends nothing"},
    stOption{"--wait-back", "S", "update: waits S seconds for the camera to come back (180)",
             "180"},
};

constexpr std::array MONITOR_OPTIONS{
    stOption{"--every", "S", "reads the values every S seconds (2)"},
};

constexpr std::array RAW_OPTIONS{
    stOption{"--text", "S", "a text in place of the parameters"},
    stOption{"--expert", "", "agrees that nothing is checked"},
};

// clang-format off
constexpr std::array VERBS{
    stVerb{"list",     "",                    "cameras: port, bus:device, serial number, state",          Bus,  0, 0,  {},             nullptr,         runList},
    stVerb{"info",     "",                    "who the camera is",                                        One,  0, 0,  {},             nullptr,         runInfo},
    stVerb{"status",   "",                    "battery, link, card, recording, clock",                    One,  0, 0,  STATUS_OPTIONS, prepareStatus,   runStatus},
    stVerb{"get",      "[KEY|GROUP|GLOB]...", "tells settings, all when none is named: a profile",        One,  0, -1, SHOW_SECRETS,   prepareGet,      runGet},
    stVerb{"set",      "KEY=VALUE...",        "checks all, writes what differs, and reads it back",       One,  1, -1, SHOW_SECRETS,   prepareSet,      runSet},
    stVerb{"describe", "[KEY|GROUP|GLOB]...", "what settings may be, and which commands move them",       None, 0, -1, {},             prepareGet,      runDescribe},
    stVerb{"export",   "[FILE|-]",            "writes a profile: all that can be set",                    One,  0, 1,  EXPORT_OPTIONS, prepareExport,   runExport},
    stVerb{"diff",     "FILE [FILE2]",        "how the camera, or FILE2, differs from a profile",         One,  1, 2,  SHOW_SECRETS,   prepareDiff,     runDiff},
    stVerb{"apply",    "FILE",                "writes what differs from a profile, and reads it back",    One,  1, 1,  APPLY_OPTIONS,  prepareApply,    runApply},
    stVerb{"wifi",     "scan|join SSID|on|off", "access points in reach; joins one; Wi-Fi on or off",       One,  1, 2,  WIFI_OPTIONS,   prepareWifi,     runWifi},
    stVerb{"record",   "start|stop|status",   "starts or stops a recording, or tells whether one runs",   One,  1, 1,  {},             prepareRecord,   runRecord},
    stVerb{"picture",  "[FILE|-]",            "fetches a picture, as the camera sent it",                 One,  0, 1,  PICTURE_OPTIONS, preparePicture, runPicture},
    stVerb{"audio",    "[FILE|-]",            "fetches audio, as the camera sent it",                     One,  0, 1,  {},             prepareAudio,    runAudio},
    stVerb{"stream-url", "",                  "the address of the live stream",                           One,  0, 0,  STREAM_OPTIONS, nullptr,         runStreamUrl},
    stVerb{"sd",       "[format]",            "the SD card; format erases it",                            One,  0, 1,  {},             prepareCard,     runCard},
    stVerb{"clock",    "[sync]",              "the clock beside this computer's; sync sets it",           One,  0, 1,  {},             prepareClock,    runClock},
    stVerb{"restart",  "",                    "restarts the camera",                                      One,  0, 0,  RESTART_OPTIONS, prepareRestart, runRestart},
    stVerb{"poweroff", "",                    "switches the camera off",                                  One,  0, 0,  {},             nullptr,         runPowerOff},
    stVerb{"reset",    "",                    "puts all settings back to their defaults",                 One,  0, 0,  RESET_OPTIONS,  prepareReset,    runReset},
    stVerb{"firmware", "[update FILE]",       "the version of the firmware; update installs another",     One,  0, 2,  FIRMWARE_OPTIONS, prepareFirmware, runFirmware},
    stVerb{"monitor",  "",                    "a line an event: plugged, ready, gone, a value changed",   Bus,  0, 0,  MONITOR_OPTIONS, prepareMonitor, runMonitor},
    stVerb{"doctor",   "",                    "checks USB, access and camera, and tells the remedies",    None, 0, 0,  {},             nullptr,         runDoctor},
    stVerb{"descriptors", "",                 "the USB descriptors of the camera",                        Bus,  0, 0,  {},             nullptr,         runDescriptors},
    stVerb{"raw",      "CODE [P1 ... P5]",    "sends one command as it is, and tells the answer",         One,  1, 6,  RAW_OPTIONS,    prepareRaw,      runRaw},
    stVerb{"completion", "bash|zsh|fish",     "a script that completes words of nuboctl in the shell",    None, 1, 1,  {},             prepareCompletion, runCompletion},
    stVerb{"help",     "[VERB|KEY]",          "shows help",                                               None, 0, 1,  {},             prepareHelp,     runHelp},
};
// clang-format on

}  // namespace

std::span<const stVerb> verbs() {
    return VERBS;
}

std::span<const stOption> commonOptions() {
    return COMMON_OPTIONS;
}

const stVerb* findVerb(const QString& name) {
    const auto found = std::ranges::find_if(
        VERBS, [&name](const stVerb& verb) { return toText(verb.name) == name; });
    return found == VERBS.end() ? nullptr : &*found;
}

void printReport(const ClReport& report, const stArguments& arguments, ClConsole& console) {
    const bool isOneOfMany = arguments.has("all");
    const QString name = report.camera().name();
    if (arguments.isJson()) {
        if (!report.isTold() || report.hasFailed()) {
            printJson(console, report.json());
        }
    } else if (const QString text = report.text(); !text.isEmpty()) {
        console.print(
            isOneOfMany
                ? QStringLiteral("# camera %1 at %2\n%3\n").arg(name, report.camera().port, text)
                : text);
    }
    for (const QString& error : report.errors()) {
        console.error(isOneOfMany ? name + QLatin1String(": ") + error : error);
    }
}

void warn(const stRun& run, const QString& text) {
    const bool isOneOfMany = run.arguments.has("all");
    run.console.warn(isOneOfMany ? run.report.camera().name() + QLatin1String(": ") + text : text);
}

bool isAgreed(stRun& run, const QString& question) {
    if (run.arguments.has("yes")) {
        return true;
    }
    if (!run.console.isInteractive()) {
        run.report.fail({ExitCode::WrongUse,
                         question + QStringLiteral(" Say --yes: there is no terminal to ask on."),
                         {}});
        return false;
    }
    if (run.console.confirm(question)) {
        return true;
    }
    run.report.fail(
        Interruption::isRequested()
            ? stFailure{ExitCode::Interrupted, QStringLiteral("interrupted; nothing was done"), {}}
            : stFailure{ExitCode::WrongUse, QStringLiteral("not agreed; nothing was done"), {}});
    return false;
}
