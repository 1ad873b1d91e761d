// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/CommandIdentifiers.h"
#include "protocol/CommandMessage.h"

#include <QDateTime>
#include <QStringList>

/// The message @p command with @p values from PARAM2 on.
inline VX_CMD valuesMessage(const QUuid& command, const QVariantList& values) {
    VX_CMD message{{QStringLiteral("CMD"), command}};
    for (qsizetype i = 0; i < values.size(); ++i) {
        message.insert(QStringLiteral("PARAM%1").arg(i + 2), values[i]);
    }
    return message;
}

/// What happens on the basic settings page from the click on a button until the dialog has been
/// accepted as it opened.
struct stBasicSettingCase {
    const char* name;
    QString button;         ///< its text; empty for the one with the camera's name
    QList<VX_CMD> reads;    ///< in order
    QList<VX_CMD> answers;  ///< to each of them, with the types in which the USB side sends them
    const char* dialog;     ///< its class
    QStringList shown;      ///< see DialogControls::values()
    QList<VX_CMD> writes;   ///< in order
};

inline QList<stBasicSettingCase> basicSettingCases() {
    using namespace Qt::StringLiterals;
    const auto read = [](const QUuid& request) { return valuesMessage(request, {}); };
    const QDateTime time({2014, 3, 9}, {7, 5, 1});
    return {
        {"camera name",
         {},
         {read(USB_REQ_NUBO_CMD_GET_CAMERANAME)},
         {valuesMessage(USB_RES_NUBO_CMD_GET_CAMERANAME, {u"Gull"_s})},
         "ClDialogCameraName",
         {u"Gull"_s},
         {valuesMessage(USB_NUBO_CMD_SET_CAMERANAME, {u"Gull"_s})}},
        {"time zone",
         u"Setting time zone"_s,
         {read(USB_REQ_NUBO_CMD_GET_TIMEZONE)},
         {valuesMessage(USB_RES_NUBO_CMD_GET_TIMEZONE, {17U})},
         "ClDialogTimezone",
         {u"Eastern STD Time\nGMT-5:00"_s},
         {valuesMessage(USB_NUBO_CMD_SET_TIMEZONE, {17U})}},
        {"time",
         u"Setting time"_s,
         {read(USB_REQ_NUBO_CMD_GET_TIME)},
         {valuesMessage(USB_RES_NUBO_CMD_GET_TIME, {time})},
         "ClDialogTime",
         {u"2014"_s, u"3"_s, u"9"_s, u"7"_s, u"5"_s, u"1"_s},
         {valuesMessage(USB_NUBO_CMD_SET_TIME, {time})}},
        {"auto Wi-Fi off",
         u"Setting auto Wi-Fi off"_s,
         {read(USB_REQ_NUBO_CMD_GET_AUTO_WIFIOFF)},
         {valuesMessage(USB_RES_NUBO_CMD_GET_AUTO_WIFIOFF, {300U})},
         "ClDialogAutoWifiOff",
         {u"Time of auto Wi-Fi off"_s, u"5"_s},
         {valuesMessage(USB_NUBO_CMD_SET_AUTO_WIFIOFF, {300U})}},
        {"Wi-Fi country of a camera in infrastructure mode",
         u"Setting Wi-Fi country"_s,
         {read(USB_REQ_NUBO_CMD_GET_WIFIMODE), read(USB_REQ_NUBO_CMD_GET_WIFI_COUNTRY)},
         {valuesMessage(USB_RES_NUBO_CMD_GET_WIFIMODE, {1U}),
          valuesMessage(USB_RES_NUBO_CMD_GET_WIFI_COUNTRY, {4})},
         "ClDialogWifiCountry",
         {u"Auto"_s},
         {valuesMessage(USB_NUBO_CMD_SET_WIFI_COUNTRY, {4U})}},
        {"Wi-Fi country of an ad-hoc camera",
         u"Setting Wi-Fi country"_s,
         {read(USB_REQ_NUBO_CMD_GET_WIFIMODE), read(USB_REQ_NUBO_CMD_GET_WIFI_COUNTRY)},
         {valuesMessage(USB_RES_NUBO_CMD_GET_WIFIMODE, {2U}),
          valuesMessage(USB_RES_NUBO_CMD_GET_WIFI_COUNTRY, {4})},
         "ClDialogWifiCountry",
         // Where "Auto" is not offered, the first country is.
         {u"Japan"_s},
         {valuesMessage(USB_NUBO_CMD_SET_WIFI_COUNTRY, {1U})}},
        {"auto power off",
         u"Setting auto power off"_s,
         {read(USB_REQ_NUBO_CMD_GET_AUTO_POWEROFF)},
         {valuesMessage(USB_RES_NUBO_CMD_GET_AUTO_POWEROFF, {3725U})},
         "ClDialogAutoPoweroff",
         {u"Time of auto power off"_s, u"1"_s, u"2"_s, u"5"_s},
         {valuesMessage(USB_NUBO_CMD_SET_AUTO_POWEROFF, {3725U})}},
        {"LED",
         u"Setting LED"_s,
         {read(USB_REQ_NUBO_CMD_GET_LED_START)},
         {valuesMessage(USB_RES_NUBO_CMD_GET_LED_START, {false})},
         "ClDialogLed",
         {u"Not light"_s},
         {valuesMessage(USB_NUBO_CMD_SET_LED_START, {false})}},
        {"GPS",
         u"Setting GPS"_s,
         {read(USB_REQ_NUBO_CMD_GET_GPSSETTING)},
         {valuesMessage(USB_RES_NUBO_CMD_GET_GPSSETTING, {true, false, true, 2U})},
         "ClDialogGps",
         {u"Use GPS"_s, u"Not save logs"_s, u"GGA+GLL+GSA+GSV+RMC+VTG+ZDA"_s, u"Adjust time"_s},
         {valuesMessage(USB_NUBO_CMD_SET_GPSSETTING, {true, false, true, 2U})}},
        {"authorization",
         u"Setting user authorization"_s,
         {read(USB_REQ_NUBO_CMD_GET_STREAM_AUTHORIZATION_USE),
          read(USB_REQ_NUBO_CMD_GET_STREAM_AUTHORIZATION_PASSWORD)},
         {valuesMessage(USB_RES_NUBO_CMD_GET_STREAM_AUTHORIZATION_USE, {false}),
          valuesMessage(USB_RES_NUBO_CMD_GET_STREAM_AUTHORIZATION_PASSWORD, {u"lantern"_s})},
         "ClDialogAuthorization",
         {u"Not use authorization"_s, u""_s, u""_s, u""_s},
         {valuesMessage(USB_NUBO_CMD_SET_STREAM_AUTHORIZATION_USE, {false}),
          valuesMessage(USB_NUBO_CMD_SET_STREAM_AUTHORIZATION_PASSWORD, {u""_s})}},
        {"interval",
         u"Setting interval"_s,
         {read(USB_REQ_NUBO_CMD_GET_INTERVAL_INFO)},
         {valuesMessage(USB_RES_NUBO_CMD_GET_INTERVAL_INFO, {true, 3725U, 60U})},
         "ClDialogInterval",
         {u"Use interval timer"_s, u"0"_s, u"1"_s, u"0"_s, u"1"_s, u"2"_s, u"5"_s},
         {valuesMessage(USB_NUBO_CMD_SET_INTERVAL_INFO, {true, 3725U, 60U})}},
        {"image quality",
         u"Image quarity"_s,
         {read(USB_REQ_NUBO_CMD_GET_IMAGE_QUARITY)},
         {valuesMessage(USB_RES_NUBO_CMD_GET_IMAGE_QUARITY, {3U})},
         "ClDialogImageQuarity",
         {u"3"_s},
         {valuesMessage(USB_NUBO_CMD_SET_IMAGE_QUARITY, {3U})}},
    };
}
