// SPDX-License-Identifier: MIT
//
// Whole runs of nuboctl, from before the process is made until it has ended, against those of a
// plain libusb program on the same bus, or of nuboctl for one camera alone.

#include "bench/Output.h"
#include "bench/Scene.h"
#include "bench/Statistics.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

namespace {

/// Runs a program of this build with its results thrown away, and notes whether all ended well.
class Runner {
public:
    [[nodiscard]] auto runs(const char* program, const QStringList& words) {
        return bench::timed(1, [this, program, words] { run(program, words); });
    }
    [[nodiscard]] bool isGood() const { return m_isGood; }

private:
    void run(const char* program, const QStringList& words) {
        QList<QByteArray> bytes{
            QDir(QCoreApplication::applicationDirPath()).filePath(QLatin1String(program)).toUtf8()};
        for (const QString& word : words) {
            bytes.append(word.toUtf8());
        }
        std::vector<char*> arguments;
        for (QByteArray& word : bytes) {
            arguments.push_back(word.data());
        }
        arguments.push_back(nullptr);

        posix_spawn_file_actions_t actions{};
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        pid_t process = 0;
        int status = -1;
        const bool isRun = posix_spawn(&process, arguments[0], &actions, nullptr, arguments.data(),
                                       environ) == 0 &&
                           waitpid(process, &status, 0) == process;
        posix_spawn_file_actions_destroy(&actions);
        m_isGood = m_isGood && isRun && status == 0;
    }

    bool m_isGood = true;
};

}  // namespace

int main(int argc, char** argv) {
    constexpr int GETS = 41;
    constexpr int PICTURES = 7;
    constexpr int EXPORTS = 7;
    const auto nuboctl = "../cli/nuboctl";
    const auto plain = "bench-plain-nuboctl";
    const QCoreApplication application(argc, argv);
    const QByteArray scene = qgetenv(bench::SCENE_VARIABLE);
    const QTemporaryDir folder;
    const QString profiles = folder.filePath(QStringLiteral("{n}.nubo"));
    const auto words = [](const char* line) { return QString::fromLatin1(line).split(u' '); };

    Runner runner;
    bench::stPairs<double> pairs;
    if (scene == bench::NUBOCTL_GET_SCENE) {
        pairs = bench::compare(GETS, runner.runs(nuboctl, words("get battery.charge")),
                               runner.runs(plain, words("get")));
    } else if (scene == bench::NUBOCTL_PICTURE_SCENE) {
        pairs = bench::compare(PICTURES, runner.runs(nuboctl, words("-c 1-2 picture -")),
                               runner.runs(plain, words("picture")));
    } else {
        pairs = bench::compare(EXPORTS, runner.runs(nuboctl, words("--all export") << profiles),
                               runner.runs(nuboctl, words("-c 1-2 export") << profiles));
    }
    const auto milliseconds = [](double microseconds) { return microseconds / 1000; };
    bench::print(bench::ratioOf(pairs.map(milliseconds), QStringLiteral("ms")));
    return runner.isGood() ? EXIT_SUCCESS : EXIT_FAILURE;
}
