// SPDX-License-Identifier: MIT
#include "cli/Interruption.h"

#include <QDeadlineTimer>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <csignal>

namespace {

constexpr int STEP_MS = 20;

std::atomic<bool> g_isRequested = false;
std::atomic<bool> g_refusesNext = false;
std::atomic<bool> g_isRefused = false;
static_assert(std::atomic<bool>::is_always_lock_free, "set by a signal handler");

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
    if (g_refusesNext.exchange(false)) {
        g_isRefused = true;
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
    g_isRefused = false;
    g_refusesNext = true;
}

Interruption::Refusal::~Refusal() {
    g_refusesNext = false;
}

bool Interruption::Refusal::takeRefused() {
    return g_isRefused.exchange(false);
}

bool Interruption::sleep(int milliseconds) {
    const QDeadlineTimer end(milliseconds);
    while (!g_isRequested && !end.hasExpired()) {
        QThread::msleep(
            static_cast<unsigned long>(std::clamp<qint64>(end.remainingTime(), 1, STEP_MS)));
    }
    return !g_isRequested;
}
