// SPDX-License-Identifier: MIT
#include "pages/basic/BasicSettingRows.h"

#include "pages/basic/ChoiceDialogs.h"
#include "pages/basic/ClDialogAuthorization.h"
#include "pages/basic/ClDialogCameraName.h"
#include "pages/basic/ClDialogTime.h"
#include "pages/basic/PeriodDialogs.h"
#include "pages/common/WifiCodes.h"
#include "protocol/CommandIdentifiers.h"

#include <QCoreApplication>
#include <QDateTime>

namespace {

using Section = BasicSettingSection;

template <class Type>
QVariant as(const QVariant& value) {
    return QVariant::fromValue(value.value<Type>());
}

// A camera that opens its own network has no access point to take its country from: there the
// dialog does not offer "Auto".
QVariant isAdhoc(const QVariant& wifiMode) {
    return wifiMode.toUInt() == WIFI_MODE_ADHOC;
}

template <class Dialog>
std::unique_ptr<ClDialogBase> createDialog(QWidget* page) {
    return std::make_unique<Dialog>(page);
}

constexpr stCameraSetting CAMERA_NAME{USB_REQ_NUBO_CMD_GET_CAMERANAME,
                                      USB_RES_NUBO_CMD_GET_CAMERANAME,
                                      USB_NUBO_CMD_SET_CAMERANAME,
                                      {as<QString>}};
constexpr stCameraSetting TIME_ZONE{USB_REQ_NUBO_CMD_GET_TIMEZONE,
                                    USB_RES_NUBO_CMD_GET_TIMEZONE,
                                    USB_NUBO_CMD_SET_TIMEZONE,
                                    {as<unsigned int>}};
constexpr stCameraSetting CLOCK{
    USB_REQ_NUBO_CMD_GET_TIME, USB_RES_NUBO_CMD_GET_TIME, USB_NUBO_CMD_SET_TIME, {as<QDateTime>}};
constexpr stCameraSetting AUTO_WIFI_OFF{USB_REQ_NUBO_CMD_GET_AUTO_WIFIOFF,
                                        USB_RES_NUBO_CMD_GET_AUTO_WIFIOFF,
                                        USB_NUBO_CMD_SET_AUTO_WIFIOFF,
                                        {as<unsigned int>}};
constexpr stCameraSetting WIFI_MODE{
    USB_REQ_NUBO_CMD_GET_WIFIMODE, USB_RES_NUBO_CMD_GET_WIFIMODE, {}, {isAdhoc}};
constexpr stCameraSetting WIFI_COUNTRY{USB_REQ_NUBO_CMD_GET_WIFI_COUNTRY,
                                       USB_RES_NUBO_CMD_GET_WIFI_COUNTRY,
                                       USB_NUBO_CMD_SET_WIFI_COUNTRY,
                                       {as<unsigned int>}};
constexpr stCameraSetting AUTO_POWER_OFF{USB_REQ_NUBO_CMD_GET_AUTO_POWEROFF,
                                         USB_RES_NUBO_CMD_GET_AUTO_POWEROFF,
                                         USB_NUBO_CMD_SET_AUTO_POWEROFF,
                                         {as<unsigned int>}};
constexpr stCameraSetting LED{USB_REQ_NUBO_CMD_GET_LED_START,
                              USB_RES_NUBO_CMD_GET_LED_START,
                              USB_NUBO_CMD_SET_LED_START,
                              {as<bool>}};
constexpr stCameraSetting GPS{USB_REQ_NUBO_CMD_GET_GPSSETTING,
                              USB_RES_NUBO_CMD_GET_GPSSETTING,
                              USB_NUBO_CMD_SET_GPSSETTING,
                              {as<bool>, as<bool>, as<bool>, as<unsigned int>}};
constexpr stCameraSetting AUTHORIZATION{USB_REQ_NUBO_CMD_GET_STREAM_AUTHORIZATION_USE,
                                        USB_RES_NUBO_CMD_GET_STREAM_AUTHORIZATION_USE,
                                        USB_NUBO_CMD_SET_STREAM_AUTHORIZATION_USE,
                                        {as<bool>}};
constexpr stCameraSetting PASSWORD{USB_REQ_NUBO_CMD_GET_STREAM_AUTHORIZATION_PASSWORD,
                                   USB_RES_NUBO_CMD_GET_STREAM_AUTHORIZATION_PASSWORD,
                                   USB_NUBO_CMD_SET_STREAM_AUTHORIZATION_PASSWORD,
                                   {as<QString>}};
constexpr stCameraSetting INTERVAL{USB_REQ_NUBO_CMD_GET_INTERVAL_INFO,
                                   USB_RES_NUBO_CMD_GET_INTERVAL_INFO,
                                   USB_NUBO_CMD_SET_INTERVAL_INFO,
                                   {as<bool>, as<unsigned int>, as<unsigned int>}};
constexpr stCameraSetting IMAGE_QUALITY{USB_REQ_NUBO_CMD_GET_IMAGE_QUARITY,
                                        USB_RES_NUBO_CMD_GET_IMAGE_QUARITY,
                                        USB_NUBO_CMD_SET_IMAGE_QUARITY,
                                        {as<unsigned int>}};

// clang-format off
constexpr std::array ROWS{
    stBasicSettingRow{Section::Name,  nullptr,                                                                  createDialog<ClDialogCameraName>,    {{CAMERA_NAME}}},
    stBasicSettingRow{Section::Time,  QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Setting time zone"),           createDialog<ClDialogTimezone>,      {{TIME_ZONE}}},
    stBasicSettingRow{Section::Time,  QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Setting time"),                createDialog<ClDialogTime>,          {{CLOCK}}},
    stBasicSettingRow{Section::Wifi,  QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Setting auto Wi-Fi off"),      createDialog<ClDialogAutoWifiOff>,   {{AUTO_WIFI_OFF}}},
    stBasicSettingRow{Section::Wifi,  QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Setting Wi-Fi country"),       createDialog<ClDialogWifiCountry>,   {{WIFI_MODE, WIFI_COUNTRY}}},
    stBasicSettingRow{Section::Other, QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Setting auto power off"),      createDialog<ClDialogAutoPoweroff>,  {{AUTO_POWER_OFF}}},
    stBasicSettingRow{Section::Other, QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Setting LED"),                 createDialog<ClDialogLed>,           {{LED}}},
    stBasicSettingRow{Section::Other, QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Setting GPS"),                 createDialog<ClDialogGps>,           {{GPS}}},
    stBasicSettingRow{Section::Other, QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Setting user authorization"),  createDialog<ClDialogAuthorization>, {{AUTHORIZATION, PASSWORD}}},
    stBasicSettingRow{Section::Other, QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Setting interval"),            createDialog<ClDialogInterval>,      {{INTERVAL}}},
    stBasicSettingRow{Section::Other, QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Image quarity"),               createDialog<ClDialogImageQuarity>,  {{IMAGE_QUALITY}}},
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
