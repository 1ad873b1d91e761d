// SPDX-License-Identifier: MIT
#include "tests/endurance/LivingObjects.h"

#include <QObject>

#include <mutex>
#include <unordered_map>

// Qt's places for tools that follow objects: the functions that it calls for each that comes and
// goes. They take the object before its own constructor has run, and after its destructor has.
extern Q_DECL_IMPORT quintptr qtHookData[];

namespace {

enum { HOOK_OF_NEW = 3, HOOK_OF_DELETED = 4 };

std::mutex g_mutex;
std::unordered_map<QObject*, quint64> g_births;
quint64 g_count = 0;

void noteNew(QObject* object) {
    const std::lock_guard lock(g_mutex);
    g_births[object] = ++g_count;
}

void noteDeleted(QObject* object) {
    const std::lock_guard lock(g_mutex);
    g_births.erase(object);
}

}  // namespace

LivingObjects::LivingObjects() {
    qtHookData[HOOK_OF_NEW] = reinterpret_cast<quintptr>(&noteNew);
    qtHookData[HOOK_OF_DELETED] = reinterpret_cast<quintptr>(&noteDeleted);
}

LivingObjects::~LivingObjects() {
    qtHookData[HOOK_OF_NEW] = 0;
    qtHookData[HOOK_OF_DELETED] = 0;
}

quint64 LivingObjects::mark() {
    const std::lock_guard lock(g_mutex);
    return g_count;
}

QMap<QString, int> LivingObjects::since(quint64 mark) {
    QMap<QString, int> classes;
    const std::lock_guard lock(g_mutex);
    for (const auto& [object, birth] : g_births) {
        if (birth > mark) {
            ++classes[QString::fromLatin1(object->metaObject()->className())];
        }
    }
    return classes;
}
