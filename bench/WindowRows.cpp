// SPDX-License-Identifier: MIT
#include "bench/WindowRows.h"

#include "bench/Children.h"
#include "bench/Scene.h"
#include "bench/Statistics.h"

namespace bench {

namespace {

constexpr int STARTS = 25;
constexpr int MEMORY_RUNS = 5;
constexpr double KIB_PER_MIB = 1024;

using Runs = stPairs<QJsonObject>;

Runs takeRuns(int count, Bus bus, const char* scene) {
    return compare(
        count, [=] { return run(QStringLiteral("bench-window-tool"), bus, scene); },
        [=] { return run(QStringLiteral("bench-window-empty"), bus, scene); });
}

QJsonObject startRatio(const QString& time) {
    static const Runs runs = takeRuns(STARTS, Bus::Machine, FIRST_PAINT_SCENE);
    return ratioOf(runs.map([&time](const QJsonObject& run) { return run.value(time).toDouble(); }),
                   QStringLiteral("ms"));
}

/// What the tool has more than the empty window at @p moment, of the @p kinds of private memory.
QJsonObject memoryDifference(const QString& moment, const QStringList& kinds) {
    static const Runs runs = takeRuns(MEMORY_RUNS, Bus::Simulated, MEMORY_SCENE);
    const auto mebibytes = [&](const QJsonObject& run) {
        // The empty window has only one moment.
        const QJsonObject memory = run.value(run.contains(moment) ? moment : SETTLED).toObject();
        double sum = 0;
        for (const QString& kind : kinds) {
            sum += memory.value(kind).toDouble();
        }
        return sum / KIB_PER_MIB;
    };
    return differenceOf(runs.map(mebibytes), QStringLiteral("MiB"));
}

}  // namespace

QJsonObject measureStart() {
    return startRatio(PASSED);
}

QJsonObject measureStartProcessor() {
    return startRatio(COMPUTED);
}

QJsonObject measureStateMemory() {
    return memoryDifference(CAMERA_STATE, {WRITTEN, CLEAN});
}

QJsonObject measureStateMemoryUnshared() {
    return memoryDifference(CAMERA_STATE, {WRITTEN, CLEAN, SHARED});
}

QJsonObject measureStateMemoryWritten() {
    return memoryDifference(CAMERA_STATE, {WRITTEN});
}

QJsonObject measureAllPagesMemory() {
    return memoryDifference(ALL_PAGES, {WRITTEN, CLEAN});
}

QJsonObject measureAllPagesMemoryUnshared() {
    return memoryDifference(ALL_PAGES, {WRITTEN, CLEAN, SHARED});
}

QJsonObject measureAllPagesMemoryWritten() {
    return memoryDifference(ALL_PAGES, {WRITTEN});
}

}  // namespace bench
