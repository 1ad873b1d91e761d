// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>
#include <mutex>

class QThread;

/// Work for the event loop of another thread; deletes itself when it is done.
///
/// The work crosses over under a mutex of the standard library: the thread sanitizer does not see
/// those inside Qt, and would take what the work captures for shared without any order.
class ThreadTask : public QObject {
    Q_OBJECT

public:
    static void start(QThread& thread, std::function<void()> work);

private Q_SLOTS:
    void slotRun();

private:
    explicit ThreadTask(std::function<void()> work);

    std::mutex m_mutex;
    std::function<void()> m_work;
};
