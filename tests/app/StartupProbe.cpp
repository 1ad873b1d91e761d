// SPDX-License-Identifier: MIT
//
// The program with somebody before it who writes down what there is to see, one "what: text" a
// line, and closes what has opened. The exit code is the program's.
//
//   --without-catalogue  the application's pictures and catalogues are missing
//   --exit-code N        ends the event loop with N instead of closing the window
//   --stay               leaves the window open until standard input ends
//   --without-messages   the catalogues of the single-instance guard are missing
#include "app/ClMainWidget.h"
#include "app/Startup.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QSocketNotifier>
#include <QTimer>

#include <unistd.h>

#include <array>
#include <cstdio>

// A resource is unregistered from outside any namespace.
static void dropCatalogue() {
    Q_CLEANUP_RESOURCE(main);
}

static void dropMessages() {
    Q_CLEANUP_RESOURCE(AppCheck);
}

static bool g_hasMessages = true;

// Stand around qInitResources_AppCheck(), by which the guard registers its catalogues again
// (--wrap).
extern "C" int __real__Z23qInitResources_AppCheckv();
extern "C" int __wrap__Z23qInitResources_AppCheckv();
extern "C" int __wrap__Z23qInitResources_AppCheckv() {
    return g_hasMessages ? __real__Z23qInitResources_AppCheckv() : 0;
}

namespace {

constexpr int LOOK_INTERVAL_MS = 5;

QStringList g_arguments;  // the probe's own

void say(const char* what, const QString& text) {
    std::printf("%s: %s\n", what, qUtf8Printable(text));
    std::fflush(stdout);
}

/// A widget takes the font of its class when it is polished, before it is first shown.
int fontPixels(QWidget&& widget) {
    widget.ensurePolished();
    return widget.font().pixelSize();
}

void sayCommon() {
    say("locale", QLocale::languageToString(QLocale().language()));
    say("country", QCoreApplication::translate("QObject", "Japan"));
    say("menu entry", QCoreApplication::translate("QWidgetTextControl", "Select All"));
    say("label pixels", QString::number(fontPixels(QLabel())));
    say("line edit pixels", QString::number(fontPixels(QLineEdit())));
}

/// The main window, visible or not.
ClMainWidget* mainWindow() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* window = qobject_cast<ClMainWidget*>(widget)) {
            return window;
        }
    }
    return nullptr;
}

void answerBox(QMessageBox& box) {
    say("box title", box.windowTitle());
    say("box text", box.text());
    say("box icon", QString::number(box.icon()));
    say("window beside the box",
        mainWindow() == nullptr ? QStringLiteral("no") : QStringLiteral("yes"));
    sayCommon();
    box.button(QMessageBox::Ok)->click();
}

void answerWindow(ClMainWidget& window) {
    sayCommon();
    if (g_arguments.contains(QLatin1String("--stay"))) {
        auto* inputEnd = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, &window);
        QObject::connect(inputEnd, &QSocketNotifier::activated, &window, &QWidget::close);
    } else if (const auto option = g_arguments.indexOf(QLatin1String("--exit-code")); option >= 0) {
        QCoreApplication::exit(g_arguments.value(option + 1).toInt());
    } else {
        window.close();
    }
    // Last, since whoever reads this line knows that everything has been said.
    say("window title", window.windowTitle());
}

void look(QTimer& timer) {
    if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
        answerBox(*box);
    } else if (ClMainWidget* window = mainWindow(); window != nullptr && window->isVisible()) {
        timer.stop();
        answerWindow(*window);
    }
}

void startLooking() {
    auto* timer = new QTimer(QCoreApplication::instance());
    QObject::connect(timer, &QTimer::timeout, timer, [timer] { look(*timer); });
    timer->start(LOOK_INTERVAL_MS);
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(startLooking)

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        g_arguments.append(QString::fromLocal8Bit(argv[i]));
    }
    if (g_arguments.contains(QLatin1String("--without-catalogue"))) {
        dropCatalogue();
    }
    if (g_arguments.contains(QLatin1String("--without-messages"))) {
        g_hasMessages = false;
        dropMessages();
    }
    std::array<char*, 2> programAlone{argv[0], nullptr};
    return runSettingTool(1, programAlone.data());
}
