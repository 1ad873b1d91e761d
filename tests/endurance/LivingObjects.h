// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QString>

/// Tells which QObjects there are, widgets and timers among them, of all threads.
///
/// One at a time, and from before the first object that counts. Any thread.
class LivingObjects {
public:
    LivingObjects();
    ~LivingObjects();
    LivingObjects(const LivingObjects&) = delete;
    LivingObjects& operator=(const LivingObjects&) = delete;

    /// How many of each class were made after @p mark, and still are. Nobody may be making or
    /// deleting objects meanwhile.
    [[nodiscard]] static QMap<QString, int> since(quint64 mark);
    /// A mark for since(): what is made from now on comes after it.
    [[nodiscard]] static quint64 mark();
};
