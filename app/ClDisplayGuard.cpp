// SPDX-License-Identifier: MIT
#include "app/ClDisplayGuard.h"

#include <QDebug>
#include <QList>
#include <QMessageLogger>
#include <QMutex>
#include <QString>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace {

struct stReason {
    const char* category;  ///< a literal of the toolkit's
    QString text;
};

// The toolkit may log from a thread of its own while it opens a display.
QMutex g_mutex;
QList<stReason> g_reasons;
QtMessageHandler g_previous = nullptr;

[[noreturn]] void endWithoutDisplay() {
    const QString reason = g_reasons.isEmpty() ? QStringLiteral("no display")
                                               : g_reasons.constFirst().text.simplified();
    std::fprintf(stderr, "nubo-setting-tool: no window can be opened: %s\n", qPrintable(reason));
    // The application object is half made: no destructor may run.
    std::_Exit(EXIT_FAILURE);
}

void noteReason(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    const QMutexLocker lock(&g_mutex);
    if (type == QtFatalMsg) {
        endWithoutDisplay();
    }
    if (type == QtWarningMsg || type == QtInfoMsg || type == QtCriticalMsg) {
        g_reasons.append({context.category, text});
    } else {
        g_previous(type, context, text);
    }
}

}  // namespace

ClDisplayGuard::ClDisplayGuard() {
    g_previous = qInstallMessageHandler(noteReason);
}

ClDisplayGuard::~ClDisplayGuard() {
    qInstallMessageHandler(g_previous);
    const QMutexLocker lock(&g_mutex);
    for (const stReason& reason : std::exchange(g_reasons, {})) {
        QMessageLogger(nullptr, 0, nullptr, reason.category).warning().noquote() << reason.text;
    }
}
