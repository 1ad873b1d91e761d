// SPDX-License-Identifier: MIT
#include "tests/usb/ThreadTask.h"

#include <QThread>

#include <utility>

void ThreadTask::start(QThread& thread, std::function<void()> work) {
    auto* const task = new ThreadTask(std::move(work));
    task->moveToThread(&thread);
    QMetaObject::invokeMethod(task, "slotRun", Qt::QueuedConnection);
}

ThreadTask::ThreadTask(std::function<void()> work) {
    const std::lock_guard lock(m_mutex);
    m_work = std::move(work);
}

void ThreadTask::slotRun() {
    {
        const std::lock_guard lock(m_mutex);
        m_work();
    }
    deleteLater();
}
