// SPDX-License-Identifier: MIT
#include "tests/pages/Dialogs.h"

#include "pages/basic/ChoiceDialogs.h"
#include "pages/basic/ClDialogAuthorization.h"
#include "pages/basic/ClDialogCalendar.h"
#include "pages/basic/ClDialogCameraName.h"
#include "pages/basic/ClDialogTime.h"
#include "pages/basic/PeriodDialogs.h"
#include "pages/network/ClDialogInputKey.h"
#include "pages/stream/StreamDialogs.h"
#include "ui/ClMessageBox.h"

#include <QAccessible>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QStringList OK_AND_CANCEL{u"OK"_s, u"Cancel"_s};

/// A settings dialog, which is handed @p params.
template <class Dialog, class... Arguments>
stDialog setting(const char* name, const QVariantList& params, const char* focus,
                 const char* context, Arguments... arguments) {
    return {name,
            [params, arguments...] {
                auto dialog = std::make_unique<Dialog>(nullptr, arguments...);
                dialog->setParam(params);
                return dialog;
            },
            focus, OK_AND_CANCEL, context};
}

/// A message box.
stDialog box(const char* name, QDialogButtonBox::StandardButtons asked, const char* focus,
             const QStringList& buttons) {
    return {name,
            [asked] {
                return std::make_unique<ClMessageBox>(nullptr, u"Reset NuBo and restart"_s,
                                                      QCoreApplication::applicationName(), asked);
            },
            focus, buttons, nullptr};
}

constexpr const char* BASIC = "ClWidgetBasicSetting";
constexpr const char* STREAM = "ClWidgetStreamSetting";
const QDateTime TIME(QDate(2026, 11, 21), QTime(13, 4, 5));

QList<stDialog> createRows() {
    return {
        setting<ClDialogCameraName>("camera name", {u"NuBo"_s}, "Set the favarite camera name",
                                    BASIC),
        setting<ClDialogAuthorization>("authorization", {false}, "Not use authorization", BASIC),
        setting<ClDialogInterval>("interval", {true, 5U, 7U}, "Use interval timer", BASIC),
        setting<ClDialogAutoPoweroff>("auto power off", {60U}, "Time of auto power off",
                                      "ClDialogAutoPoweroff"),
        setting<ClDialogAutoWifiOff>("auto Wi-Fi off", {60U}, "Time of auto Wi-Fi off",
                                     "ClDialogAutoWifiOff"),
        setting<ClDialogLed>("LED", {false}, "Not light", "ClDialogLed"),
        setting<ClDialogGps>("GPS", {true, true, true, 2U}, "Use GPS", "ClDialogGps"),
        setting<ClDialogTimezone>("time zone", {9U}, "Setting time zone", "ClDialogTimezone"),
        setting<ClDialogImageQuarity>("image quality", {2U}, "Setting contrast",
                                      "ClDialogImageQuarity"),
        setting<ClDialogWifiCountry>("Wi-Fi country", {false, 2U}, "Setting Wi-Fi country", BASIC),
        setting<ClDialogTime>("time", {TIME}, "Year", BASIC),
        setting<ClDialogCalendar>("calendar", {TIME.date()}, "Calendar", BASIC),
        setting<ClDialogRecSetting>("recording", {QSize(640, 480)}, "Economy(640x480)", STREAM),
        setting<ClDialogStreamSetting>("live view", {QSize(800, 480), 6U}, "Fine(800x480)", STREAM),
        setting<ClDialogInputKey>("key", {u"Harbour1"_s}, "Input the encryption key of AP",
                                  "ClWidgetNetworkSetting", true),
        box("message", QDialogButtonBox::Ok, "OK", {u"OK"_s}),
        box("question", QDialogButtonBox::Ok | QDialogButtonBox::Cancel, "OK", OK_AND_CANCEL),
        box("yes or no", QDialogButtonBox::Yes | QDialogButtonBox::No, "Yes", {u"Yes"_s, u"No"_s}),
    };
}

void addRows(bool withBoxes) {
    QTest::addColumn<int>("index");
    for (int i = 0; i < dialogs().size(); ++i) {
        if (withBoxes || dialogs()[i].context != nullptr) {
            QTest::newRow(dialogs()[i].name) << i;
        }
    }
}

}  // namespace

const QList<stDialog>& dialogs() {
    static const QList<stDialog> ROWS = createRows();
    return ROWS;
}

void addDialogs() {
    addRows(true);
}

void addSettingDialogs() {
    addRows(false);
}

std::unique_ptr<QDialog> openDialog(const stDialog& row) {
    std::unique_ptr<QDialog> dialog = row.create();
    dialog->show();
    QTest::qVerify(QTest::qWaitForWindowActive(dialog.get()), "the dialog is active", row.name,
                   __FILE__, __LINE__);
    return dialog;
}

// The accessible name of a combo box is its value; what it is for, the group around it says.
QString nameOf(QWidget* control) {
    const QAccessibleInterface* told = QAccessible::queryAccessibleInterface(control);
    if (told->role() == QAccessible::ComboBox) {
        told = told->parent();
    }
    return told->text(QAccessible::Name);
}

QList<QWidget*> tabStops(QWidget& dialog) {
    QList<QWidget*> stops;
    QWidget* const first = dialog.focusWidget();
    QWidget* stop = first;
    do {
        stops.append(stop);
        QTest::keyClick(stop, Qt::Key_Tab);
        stop = dialog.focusWidget();
    } while (stop != first && stops.size() < 30);
    return stops;
}
