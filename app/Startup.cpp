// SPDX-License-Identifier: MIT
#include "app/Startup.h"

#include "app/Arguments.h"
#include "app/ClAppCheck.h"
#include "app/ClDisplayGuard.h"
#include "app/ClMainWidget.h"
#include "ui/Accessibility.h"
#include "ui/Artwork.h"

#include <QApplication>
#include <QFont>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QMessageBox>
#include <QPixmapCache>
#include <QTranslator>

#include <memory>
#include <optional>
#include <span>

namespace {

constexpr int TEXT_PIXELS = 13;
constexpr int LINE_EDIT_PIXELS = 14;
constexpr int START_REFUSED = -1;

// A catalogue that is not there is left out.
void installCatalogue(QApplication& application, const QString& name, const QString& directory) {
    auto translator = std::make_unique<QTranslator>();
    if (translator->load(name, directory)) {
        translator->setParent(&application);
        QCoreApplication::installTranslator(translator.release());
    }
}

// The key is held only until the main window opens: it guards the start, not the whole run.
bool mayStart() {
    ClAppCheck check(QCoreApplication::applicationName());
    const ClAppCheck::emEXIST found = check.doIExist(QStringLiteral("NuBo_USB_Communication"));
    if (found == ClAppCheck::Alone) {
        return true;
    }
    QMessageBox::critical(nullptr, QCoreApplication::applicationName(),
                          check.getErrorStringDef(found), QMessageBox::Ok, QMessageBox::NoButton);
    return false;
}

}  // namespace

void installFonts() {
    QFont font;
    font.setPixelSize(TEXT_PIXELS);
    QApplication::setFont(font);
    font.setPixelSize(LINE_EDIT_PIXELS);
    QApplication::setFont(font, "QLineEdit");
}

void installLanguage(QApplication& application) {
    const bool isJapanese = QLocale::system().language() == QLocale::Japanese;
    if (isJapanese) {
        // The toolkit's own texts, such as those of a line edit's menu.
        installCatalogue(application, QStringLiteral("qtbase_ja"),
                         QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    }
    installCatalogue(application, isJapanese ? QStringLiteral("ja") : QStringLiteral("en"),
                     QStringLiteral(":/lang"));
    QLocale::setDefault(
        QLocale(isJapanese ? QLocale::Japanese : QLocale::English, QLocale::AnyTerritory));
}

int runSettingTool(int argc, char** argv) {
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    if (const auto answered = answerArguments(arguments.subspan(argc > 0 ? 1 : 0))) {
        return *answered;
    }
    std::optional<ClDisplayGuard> guard(std::in_place);
    QApplication application(argc, argv);
    guard.reset();
    installFonts();
    installLanguage(application);
    QCoreApplication::setApplicationName(QObject::tr("NuBo Setting Tool"));
    if (!mayStart()) {
        return START_REFUSED;
    }
    installAccessibility();
    // The style would keep the picture of each control by its palette. A dialog has palettes of its
    // own, so that what is kept of one is never found again.
    QPixmapCache::setCacheLimit(0);
    // The task bar's entry: Wayland finds the icon by the desktop file, X11 is given the picture.
    QGuiApplication::setDesktopFileName(QStringLiteral("nubo-setting-tool"));
    QApplication::setWindowIcon(artwork(QStringLiteral(":/img/app_icon"), 2));
    ClMainWidget window;
    window.setVisible(true);
    return QApplication::exec();
}
