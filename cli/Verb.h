// SPDX-License-Identifier: MIT
#pragma once

#include "cli/ExitCode.h"
#include "settings/TableText.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <span>
#include <string_view>

class ClCameraFinder;
class ClConsole;
class ClReport;
class ClSession;
struct stVerb;

/// An option of a verb, or of all of them.
struct stOption {
    std::string_view
        name;  ///< as in "--dry-run"; a short form stands before it, as in "-c,--camera"
    std::string_view value;  ///< what stands for its value in texts; empty: it has none
    std::string_view explanation;
    std::string_view implied = {};  ///< its value when it is left out; empty: it must not be
    bool repeats = false;
};

/// How the run was asked for.
struct stArguments {
    const stVerb* verb = nullptr;
    QStringList values;                  ///< what stands behind the verb
    QMap<QString, QStringList> options;  ///< all given, by the long name: "dry-run"

    [[nodiscard]] bool has(const char* option) const {
        return options.contains(QLatin1String(option));
    }
    [[nodiscard]] QString option(const char* name) const {
        return options.value(QLatin1String(name)).value(0);
    }
    [[nodiscard]] bool isJson() const { return has("json"); }
};

/// What a verb makes of its arguments before any camera is opened: checked values, a profile read.
/// Verbs derive theirs.
struct stVerbPlan {
    virtual ~stVerbPlan() = default;
    bool needsCamera = true;  ///< false: these arguments of the verb touch no USB
};

/// One run of a verb: on one camera, or on none. The verb tells the report what is to be told, and
/// the report knows the exit code.
struct stRun {
    const stArguments& arguments;
    ClConsole& console;
    ClReport& report;
    ClSession* camera;       ///< claimed; null for a verb that needs none
    ClCameraFinder& finder;  ///< started for all verbs but those of VerbCamera::None
    const stVerbPlan* plan;  ///< what prepare made
    int number = 1;          ///< of the camera in the run, from 1
};

enum class VerbCamera {
    None,     ///< touches no USB, or starts that by itself
    Bus,      ///< looks at the bus, and opens cameras by itself
    One,      ///< one camera, or all of them side by side
    OneOnly,  ///< one camera, and never all of them
};

/// A verb of the program: a row of the table.
struct stVerb {
    std::string_view name;
    std::string_view usage;  ///< what stands behind it
    std::string_view explanation;
    VerbCamera camera;
    int leastValues;
    int mostValues;  ///< -1: any number
    std::span<const stOption> options;
    /// Checks the arguments once, before any camera is opened. Null: there is nothing to check.
    stFailure (*prepare)(const stArguments&, ClConsole&, std::unique_ptr<stVerbPlan>& plan);
    void (*run)(stRun&);
};

/// All verbs, in the order in which help lists them.
[[nodiscard]] std::span<const stVerb> verbs();
/// The options that every verb takes.
[[nodiscard]] std::span<const stOption> commonOptions();
/// The verb of this name, or null.
[[nodiscard]] const stVerb* findVerb(const QString& name);

/// Writes what @p report has to tell, with the camera's name where there are several.
void printReport(const ClReport& report, const stArguments& arguments, ClConsole& console);
/// Warns of the run's camera, by its name where there are several.
void warn(const stRun& run, const QString& text);

/// Whether the user agrees to @p question: by --yes, or on the terminal. Where there is none, the
/// report fails with what is missing.
[[nodiscard]] bool isAgreed(stRun& run, const QString& question);
