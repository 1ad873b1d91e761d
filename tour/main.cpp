// SPDX-License-Identifier: MIT
#include "app/ClMainWidget.h"
#include "app/Startup.h"
#include "tour/ClTour.h"
#include "tour/Pictures.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QStyleFactory>

#include <cstdlib>

namespace {

// A desktop with light text on dark ground.
QPalette darkPalette() {
    QPalette palette(QColor(0x31, 0x36, 0x3B), QColor(0x2A, 0x2E, 0x32));
    palette.setColor(QPalette::Base, QColor(0x1B, 0x1E, 0x20));
    return palette;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Walks through the setting tool and leaves a picture of each page and\n"
                       "dialog. LC_ALL chooses the language, QT_SCALE_FACTOR the scale."));
    parser.addHelpOption();
    const QCommandLineOption dark(QStringLiteral("dark"),
                                  QStringLiteral("as on a desktop with a dark palette"));
    parser.addOption(dark);
    parser.addPositionalArgument(QStringLiteral("directory"),
                                 QStringLiteral("where the pictures go"));
    parser.process(application);
    if (parser.positionalArguments().size() != 1) {
        parser.showHelp(2);
    }

    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    if (parser.isSet(dark)) {
        QApplication::setPalette(darkPalette());
    }
    installFonts();
    installLanguage(application);
    QCoreApplication::setApplicationName(QObject::tr("NuBo Setting Tool"));

    const QDir directory(parser.positionalArguments().constFirst());
    if (!directory.mkpath(QStringLiteral("."))) {
        return EXIT_FAILURE;
    }
    ClMainWidget window;
    window.show();
    ClTour tour(window, [&directory](QWidget& shown, const QString& name) {
        return savePicture(shown, name, directory);
    });
    return tour.run() ? EXIT_SUCCESS : EXIT_FAILURE;
}
