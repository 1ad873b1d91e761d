// SPDX-License-Identifier: MIT
#include "bench/Children.h"

#include "bench/Scene.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonDocument>
#include <QProcess>

#include <chrono>

namespace bench {

namespace {

constexpr int PATIENCE_MS = 180000;

QString pathOf(const QString& program) {
    return QDir(QCoreApplication::applicationDirPath()).filePath(program);
}

QStringList commandLine(const QString& program, Bus bus) {
    if (bus == Bus::Machine) {
        return {pathOf(program)};
    }
    QStringList line{
        pathOf(QStringLiteral("../simulator/nubo-camera-simulator")),
        QStringLiteral("--cameras"),
        bus == Bus::Simulated ? QStringLiteral("1") : QStringLiteral("2"),
    };
    if (bus == Bus::LargePictures) {
        line << QStringLiteral("--script") << QStringLiteral(LARGE_PICTURES_SCRIPT);
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
