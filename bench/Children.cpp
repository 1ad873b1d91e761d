// SPDX-License-Identifier: MIT
#include "bench/Children.h"

#include "bench/Scene.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonDocument>
#include <QProcess>

#include <algorithm>
#include <array>
#include <chrono>

namespace bench {

namespace {

constexpr int PATIENCE_MS = 180000;

QString pathOf(const QString& program) {
    return QDir(QCoreApplication::applicationDirPath()).filePath(program);
}

struct stBus {
    Bus bus;
    const char* cameras;
    const char* script;  ///< or null
};

constexpr std::array BUSES{
    stBus{Bus::Simulated, "1", nullptr},
    stBus{Bus::TwoCameras, "2", nullptr},
    stBus{Bus::LargePictures, "2", LARGE_PICTURES_SCRIPT},
    stBus{Bus::SlowCameras, "16", SLOW_CAMERAS_SCRIPT},
};

QStringList commandLine(const QString& program, Bus bus) {
    const auto row = std::ranges::find(BUSES, bus, &stBus::bus);
    if (row == BUSES.end()) {
        return {pathOf(program)};
    }
    QStringList line{pathOf(QStringLiteral("../simulator/nubo-camera-simulator")),
                     QStringLiteral("--cameras"), QString::fromLatin1(row->cameras)};
    if (row->script != nullptr) {
        line << QStringLiteral("--script") << QString::fromUtf8(row->script);
    }
    return line << QStringLiteral("--") << pathOf(program);
}

QProcessEnvironment environmentFor(const char* scene) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // The same texts and the same fonts everywhere.
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    if (scene != nullptr) {
        environment.insert(QString::fromLatin1(SCENE_VARIABLE), QString::fromLatin1(scene));
    }
    const std::chrono::nanoseconds now = std::chrono::steady_clock::now().time_since_epoch();
    environment.insert(QString::fromLatin1(STARTED_VARIABLE), QString::number(now.count()));
    return environment;
}

}  // namespace

QJsonObject run(const QString& program, Bus bus, const char* scene) {
    QStringList arguments = commandLine(program, bus);
    const QString executable = arguments.takeFirst();
    QProcess process;
    process.setProcessEnvironment(environmentFor(scene));
    process.start(executable, arguments, QIODevice::ReadOnly);
    if (!process.waitForFinished(PATIENCE_MS)) {
        throw CannotRun((program + QLatin1String(": ") + process.errorString()).toStdString());
    }
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0) {
        throw CannotRun(program.toStdString() + " failed\n" +
                        process.readAllStandardError().toStdString());
    }
    const QJsonObject result = QJsonDocument::fromJson(process.readAllStandardOutput()).object();
    if (result.isEmpty()) {
        throw CannotRun(program.toStdString() + " gave no result");
    }
    return result;
}

}  // namespace bench
