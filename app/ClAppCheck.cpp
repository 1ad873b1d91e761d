// SPDX-License-Identifier: MIT
#include "app/ClAppCheck.h"

#include <QCoreApplication>
#include <QLocale>
#include <QSharedMemory>
#include <QTranslator>

#include <algorithm>
#include <array>

// A resource is registered from outside any namespace.
static void registerCatalogues() {
    Q_INIT_RESOURCE(AppCheck);
}

namespace {

struct stCatalogue {
    QLocale::Language language;
    const char* path;
};

constexpr std::array CATALOGUES{
    stCatalogue{QLocale::Japanese, ":/ja/lang"},
    stCatalogue{QLocale::Chinese, ":/zh/lang"},
    stCatalogue{QLocale::French, ":/fr/lang"},
};
constexpr const char* OTHER_CATALOGUE = ":/en/lang";

constexpr std::array<const char*, 4> MESSAGES{
    nullptr,
    QT_TRANSLATE_NOOP("ClAppCheck", "%1 is already running"),
    QT_TRANSLATE_NOOP("ClAppCheck", "Unable to start because another user is running %1"),
    QT_TRANSLATE_NOOP("ClAppCheck", "Unable to initialize %1"),
};

const char* catalogueFor(QLocale::Language language) {
    const auto found = std::ranges::find(CATALOGUES, language, &stCatalogue::language);
    return found == CATALOGUES.end() ? OTHER_CATALOGUE : found->path;
}

}  // namespace

ClAppCheck::ClAppCheck(const QString& appName, QObject* parent)
    : QObject(parent),
      m_appName(appName.isEmpty() ? QCoreApplication::applicationName() : appName) {}

ClAppCheck::emEXIST ClAppCheck::doIExist(QString key) {
    m_sharedMemory = new QSharedMemory(key, this);
    // The segment of a crashed holder stays behind on Unix. Whoever detaches last removes it; if
    // somebody still holds it, attaching and detaching changes nothing.
    if (m_sharedMemory->attach()) {
        m_sharedMemory->detach();
    }
    return m_sharedMemory->create(1, QSharedMemory::ReadWrite) ? Alone : Running;
}

ClAppCheck::emEXIST ClAppCheck::doIExistXRK() {
    return doIExist(QStringLiteral("__LUMENDESK_XRK_GLOBAL_MUTEX__"));
}

QString ClAppCheck::getErrorStringDef(emEXIST e) const {
    registerCatalogues();
    QTranslator translator;
    const auto index = static_cast<std::size_t>(e);
    if (!translator.load(QString::fromLatin1(catalogueFor(QLocale().language()))) ||
        index >= MESSAGES.size() || MESSAGES[index] == nullptr) {
        return {};
    }
    return translator.translate("ClAppCheck", MESSAGES[index]).arg(m_appName);
}
