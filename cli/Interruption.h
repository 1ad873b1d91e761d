// SPDX-License-Identifier: MIT
#pragma once

/// The user's wish to end, by Ctrl-C or a signal that asks for it. Any thread.
namespace Interruption {

/// From now on SIGINT, SIGTERM and SIGHUP ask the program to end after the transaction under way,
/// and a closed pipe shows in what cannot be written, instead of ending the program.
void watchSignals();

void request();
/// As at the start of the program.
void reset();
[[nodiscard]] bool isRequested();

/// While it lives, the first wish to end is refused: what is under way must not stay half done.
/// The second one is heard. Several at a time, of several cameras, refuse one wish together.
class Refusal {
public:
    Refusal();
    ~Refusal();
    Refusal(const Refusal&) = delete;
    Refusal& operator=(const Refusal&) = delete;

    /// Whether a wish was refused since the last call.
    [[nodiscard]] static bool takeRefused();
};

/// Waits until @p descriptor has something to read, its end or an error among it, or until the user
/// wishes to end. @return whether there is something.
[[nodiscard]] bool waitForInput(int descriptor);

/// Waits @p milliseconds, or until the user wishes to end. @return whether the time has passed.
bool sleep(int milliseconds);

}  // namespace Interruption
