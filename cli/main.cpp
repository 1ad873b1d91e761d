// SPDX-License-Identifier: MIT
#include "cli/ClConsole.h"
#include "cli/Interruption.h"
#include "cli/Nuboctl.h"

#include <fcntl.h>
#include <unistd.h>

namespace {

/// A standard descriptor that was closed would become one of USB's, and texts would be written
/// there. What stands in for it can be neither read nor written.
void holdStandardDescriptors() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(descriptor, F_GETFD) == -1) {
            static_cast<void>(::open("/", O_PATH));
        }
    }
}

}  // namespace

int main(int count, char** arguments) {
    holdStandardDescriptors();
    QStringList words;
    for (int i = 1; i < count; ++i) {
        words.append(QString::fromLocal8Bit(arguments[i]));
    }
    Interruption::watchSignals();
    ClConsole console;
    return static_cast<int>(runNuboctl(words, console));
}
