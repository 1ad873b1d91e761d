// SPDX-License-Identifier: MIT
#include "pages/basic/BasicSettingRows.h"

#include "pages/basic/ChoiceDialogs.h"
#include "pages/basic/ClDialogAuthorization.h"
#include "pages/basic/ClDialogCameraName.h"
#include "pages/basic/ClDialogTime.h"
#include "pages/basic/PeriodDialogs.h"
#include "pages/common/WifiCodes.h"
#include "settings/SettingTable.h"

#include <QCoreApplication>

namespace {

using Section = BasicSettingSection;

// A camera that opens its own network has no access point to take its country from: there the
// dialog does not offer "Auto".
QVariant isAdhoc(const QVariant& wifiMode) {
    return wifiMode.toUInt() == WIFI_MODE_ADHOC;
}

template <class Dialog>
std::unique_ptr<ClDialogBase> createDialog(QWidget* page) {
    return std::make_unique<Dialog>(page);
}

namespace Exchange = SettingExchange;

// clang-format off
constexpr std::array ROWS{
    stBasicSettingRow{Section::Name,  nullptr,                                                                  createDialog<ClDialogCameraName>,    {{{Exchange::CAMERA_NAME}}}},
    stBasicSettingRow{Section::Time,  QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Setting time zone"),           createDialog<ClDialogTimezone>,      {{{Exchange::TIME_ZONE}}}},
    stBasicSettingRow{Section::Time,  QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Setting time"),                createDialog<ClDialogTime>,          {{{Exchange::TIME}}}},
    stBasicSettingRow{Section::Wifi,  QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Setting auto Wi-Fi off"),      createDialog<ClDialogAutoWifiOff>,   {{{Exchange::AUTO_WIFI_OFF}}}},
    stBasicSettingRow{Section::Wifi,  QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Setting Wi-Fi country"),       createDialog<ClDialogWifiCountry>,   {{{Exchange::WIFI_MODE.toldOnly(), isAdhoc}, {Exchange::WIFI_COUNTRY}}}},
    stBasicSettingRow{Section::Other, QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Setting auto power off"),      createDialog<ClDialogAutoPoweroff>,  {{{Exchange::AUTO_POWER_OFF}}}},
    stBasicSettingRow{Section::Other, QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Setting LED"),                 createDialog<ClDialogLed>,           {{{Exchange::LED_START}}}},
    stBasicSettingRow{Section::Other, QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Setting GPS"),                 createDialog<ClDialogGps>,           {{{Exchange::GPS}}}},
    stBasicSettingRow{Section::Other, QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Setting user authorization"),  createDialog<ClDialogAuthorization>, {{{Exchange::AUTHORIZATION}, {Exchange::PASSWORD}}}},
    stBasicSettingRow{Section::Other, QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Setting interval"),            createDialog<ClDialogInterval>,      {{{Exchange::INTERVAL}}}},
    stBasicSettingRow{Section::Other, QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Image quarity"),               createDialog<ClDialogImageQuarity>,  {{{Exchange::CONTRAST}}}},
};
// clang-format on

}  // namespace

std::span<const stBasicSettingRow> basicSettingRows() {
    return ROWS;
}

const char* sectionCaption(BasicSettingSection section) {
    switch (section) {
        case Section::Name:
            return QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Setting camera name");
        case Section::Time:
            return QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Time setting");
        case Section::Wifi:
            return QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Wi-Fi setting");
        case Section::Other:
            break;
    }
    return nullptr;
}
