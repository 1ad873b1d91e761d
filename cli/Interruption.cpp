// SPDX-License-Identifier: MIT
#include "cli/Interruption.h"

#include <QDeadlineTimer>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <csignal>

#include <poll.h>

namespace {

constexpr int STEP_MS = 20;

std::atomic<bool> g_isRequested = false;
std::atomic<int> g_refusals = 0;            // that live
std::atomic<bool> g_hasRefused = false;     // since the first of them
std::atomic<bool> g_isRefusalNews = false;  // not yet taken
static_assert(std::atomic<bool>::is_always_lock_free && std::atomic<int>::is_always_lock_free,
              "used by a signal handler");

void takeSignal(int /*number*/) {
    Interruption::request();
}

}  // namespace

void Interruption::watchSignals() {
    struct sigaction action {};
    action.sa_handler = takeSignal;
    sigemptyset(&action.sa_mask);
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        sigaction(number, &action, nullptr);
    }
    action.sa_handler = SIG_IGN;
    sigaction(SIGPIPE, &action, nullptr);
}

// In the handler of a signal too.
void Interruption::request() {
    if (g_refusals > 0 && !g_hasRefused.exchange(true)) {
        g_isRefusalNews = true;
    } else {
        g_isRequested = true;
    }
}

void Interruption::reset() {
    g_isRequested = false;
}

bool Interruption::isRequested() {
    return g_isRequested;
}

Interruption::Refusal::Refusal() {
    if (g_refusals == 0) {
        g_hasRefused = false;
        g_isRefusalNews = false;
    }
    ++g_refusals;
}

Interruption::Refusal::~Refusal() {
    --g_refusals;
}

bool Interruption::Refusal::takeRefused() {
    return g_isRefusalNews.exchange(false);
}

bool Interruption::waitForInput(int descriptor) {
    // A signal that comes just before the wait does not end it.
    constexpr int LOOK_MS = 100;
    pollfd input{descriptor, POLLIN, 0};
    while (!g_isRequested) {
        if (::poll(&input, 1, LOOK_MS) > 0) {
            return true;
        }
    }
    return false;
}

bool Interruption::sleep(int milliseconds) {
    const QDeadlineTimer end(milliseconds);
    while (!g_isRequested && !end.hasExpired()) {
        QThread::msleep(
            static_cast<unsigned long>(std::clamp<qint64>(end.remainingTime(), 1, STEP_MS)));
    }
    return !g_isRequested;
}
