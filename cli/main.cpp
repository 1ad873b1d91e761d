// SPDX-License-Identifier: MIT
#include "cli/ClConsole.h"
#include "cli/Interruption.h"
#include "cli/Nuboctl.h"

int main(int count, char** arguments) {
    QStringList words;
    for (int i = 1; i < count; ++i) {
        words.append(QString::fromLocal8Bit(arguments[i]));
    }
    Interruption::watchSignals();
    ClConsole console;
    return static_cast<int>(runNuboctl(words, console));
}
