// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/CommandIdentifiers.h"
#include "settings/Setting.h"

#include <algorithm>
#include <array>

/// The exchanges of the settings.
namespace SettingExchange {

// clang-format off
inline constexpr stSettingExchange CAMERA_NAME{USB_REQ_NUBO_CMD_GET_CAMERANAME, USB_RES_NUBO_CMD_GET_CAMERANAME, USB_NUBO_CMD_SET_CAMERANAME};
inline constexpr stSettingExchange TIME{USB_REQ_NUBO_CMD_GET_TIME, USB_RES_NUBO_CMD_GET_TIME, USB_NUBO_CMD_SET_TIME};
inline constexpr stSettingExchange TIME_ZONE{USB_REQ_NUBO_CMD_GET_TIMEZONE, USB_RES_NUBO_CMD_GET_TIMEZONE, USB_NUBO_CMD_SET_TIMEZONE};
inline constexpr stSettingExchange LED_START{USB_REQ_NUBO_CMD_GET_LED_START, USB_RES_NUBO_CMD_GET_LED_START, USB_NUBO_CMD_SET_LED_START};
inline constexpr stSettingExchange LED{USB_REQ_NUBO_CMD_GET_LED, USB_RES_NUBO_CMD_GET_LED, USB_NUBO_CMD_SET_LED};
inline constexpr stSettingExchange OPTIMIZER{USB_REQ_NUBO_CMD_GET_OPTIMIZER, USB_RES_NUBO_CMD_GET_OPTIMIZER, USB_NUBO_CMD_SET_OPTIMIZER};
inline constexpr stSettingExchange AUTO_POWER_OFF{USB_REQ_NUBO_CMD_GET_AUTO_POWEROFF, USB_RES_NUBO_CMD_GET_AUTO_POWEROFF, USB_NUBO_CMD_SET_AUTO_POWEROFF};
inline constexpr stSettingExchange CONTRAST{USB_REQ_NUBO_CMD_GET_IMAGE_QUARITY, USB_RES_NUBO_CMD_GET_IMAGE_QUARITY, USB_NUBO_CMD_SET_IMAGE_QUARITY};
inline constexpr stSettingExchange RECORDING_SIZE{USB_REQ_NUBO_CMD_GET_REC_IMAGESIZE, USB_RES_NUBO_CMD_GET_REC_IMAGESIZE, USB_NUBO_CMD_SET_REC_IMAGESIZE};
inline constexpr stSettingExchange RECORDING_RATE{USB_REQ_NUBO_CMD_GET_REC_FRAMERATE, USB_RES_NUBO_CMD_GET_REC_FRAMERATE, USB_NUBO_CMD_SET_REC_FRAMERATE};
inline constexpr stSettingExchange INTERVAL{USB_REQ_NUBO_CMD_GET_INTERVAL_INFO, USB_RES_NUBO_CMD_GET_INTERVAL_INFO, USB_NUBO_CMD_SET_INTERVAL_INFO};
inline constexpr stSettingExchange GPS{USB_REQ_NUBO_CMD_GET_GPSSETTING, USB_RES_NUBO_CMD_GET_GPSSETTING, USB_NUBO_CMD_SET_GPSSETTING};
inline constexpr stSettingExchange LIVE_SIZE{USB_REQ_NUBO_CMD_GET_LIVE_IMAGESIZE, USB_RES_NUBO_CMD_GET_LIVE_IMAGESIZE, USB_NUBO_CMD_SET_LIVE_IMAGESIZE};
inline constexpr stSettingExchange LIVE_RATE{USB_REQ_NUBO_CMD_GET_LIVE_FRAMERATE, USB_RES_NUBO_CMD_GET_LIVE_FRAMERATE, USB_NUBO_CMD_SET_LIVE_FRAMERATE};
inline constexpr stSettingExchange AUTHORIZATION{USB_REQ_NUBO_CMD_GET_STREAM_AUTHORIZATION_USE, USB_RES_NUBO_CMD_GET_STREAM_AUTHORIZATION_USE, USB_NUBO_CMD_SET_STREAM_AUTHORIZATION_USE};
inline constexpr stSettingExchange PASSWORD{USB_REQ_NUBO_CMD_GET_STREAM_AUTHORIZATION_PASSWORD, USB_RES_NUBO_CMD_GET_STREAM_AUTHORIZATION_PASSWORD, USB_NUBO_CMD_SET_STREAM_AUTHORIZATION_PASSWORD};
inline constexpr stSettingExchange RTSP_PORT{USB_REQ_NUBO_CMD_GET_RTSP_PORT, USB_RES_NUBO_CMD_GET_RTSP_PORT, USB_NUBO_CMD_SET_RTSP_PORT};
inline constexpr stSettingExchange STUN_SERVER{USB_REQ_NUBO_CMD_GET_STUN_SERVER, USB_RES_NUBO_CMD_GET_STUN_SERVER, USB_NUBO_CMD_SET_STUN_SERVER};
inline constexpr stSettingExchange WIFI_COUNTRY{USB_REQ_NUBO_CMD_GET_WIFI_COUNTRY, USB_RES_NUBO_CMD_GET_WIFI_COUNTRY, USB_NUBO_CMD_SET_WIFI_COUNTRY};
inline constexpr stSettingExchange AUTO_WIFI_OFF{USB_REQ_NUBO_CMD_GET_AUTO_WIFIOFF, USB_RES_NUBO_CMD_GET_AUTO_WIFIOFF, USB_NUBO_CMD_SET_AUTO_WIFIOFF};
inline constexpr stSettingExchange ADHOC_ADDRESS{USB_REQ_NUBO_CMD_GET_ADHOC_ADDRESS, USB_RES_NUBO_CMD_GET_ADHOC_ADDRESS, USB_NUBO_CMD_SET_ADHOC_ADDRESS};
inline constexpr stSettingExchange ADHOC_NETMASK{USB_REQ_NUBO_CMD_GET_ADHOC_SUBNETMASK, USB_RES_NUBO_CMD_GET_ADHOC_SUBNETMASK, USB_NUBO_CMD_SET_ADHOC_SUBNETMASK};
inline constexpr stSettingExchange ADHOC_SECURITY{USB_REQ_NUBO_CMD_GET_ADHOC_SECURE, USB_RES_NUBO_CMD_GET_ADHOC_SECURE, USB_NUBO_CMD_SET_ADHOC_SECURE};
inline constexpr stSettingExchange ADHOC_SSID{USB_REQ_NUBO_CMD_GET_SSID, USB_RES_NUBO_CMD_GET_SSID, USB_NUBO_CMD_SET_SSID};
inline constexpr stSettingExchange ADHOC_KEY{USB_REQ_NUBO_CMD_GET_ADHOCKEY, USB_RES_NUBO_CMD_GET_ADHOCKEY, USB_NUBO_CMD_SET_ADHOCKEY};
inline constexpr stSettingExchange DHCP{USB_REQ_NUBO_CMD_GET_INFRA_USE_DHCP, USB_RES_NUBO_CMD_GET_INFRA_USE_DHCP, USB_NUBO_CMD_SET_INFRA_USE_DHCP};
inline constexpr stSettingExchange ADDRESS{USB_REQ_NUBO_CMD_GET_INFRA_ADDRESS, USB_RES_NUBO_CMD_GET_INFRA_ADDRESS, USB_NUBO_CMD_SET_INFRA_ADDRESS};
inline constexpr stSettingExchange NETMASK{USB_REQ_NUBO_CMD_GET_INFRA_SUBNETMASK, USB_RES_NUBO_CMD_GET_INFRA_SUBNETMASK, USB_NUBO_CMD_SET_INFRA_SUBNETMASK};
inline constexpr stSettingExchange GATEWAY{USB_REQ_NUBO_CMD_GET_INFRA_GATEWAY, USB_RES_NUBO_CMD_GET_INFRA_GATEWAY, USB_NUBO_CMD_SET_INFRA_GATEWAY};
inline constexpr stSettingExchange PRIMARY_DNS{USB_REQ_NUBO_CMD_GET_PRIMARY_DNS, USB_RES_NUBO_CMD_GET_PRIMARY_DNS, USB_NUBO_CMD_SET_PRIMARY_DNS};
inline constexpr stSettingExchange SECONDARY_DNS{USB_REQ_NUBO_CMD_GET_SECONDARY_DNS, USB_RES_NUBO_CMD_GET_SECONDARY_DNS, USB_NUBO_CMD_SET_SECONDARY_DNS};
inline constexpr stSettingExchange SSID{USB_REQ_NUBO_CMD_GET_INFRA_SSID, USB_RES_NUBO_CMD_GET_INFRA_SSID, USB_NUBO_CMD_SET_INFRA_SSID};
inline constexpr stSettingExchange KEY{USB_REQ_NUBO_CMD_GET_INFRA_KEY, USB_RES_NUBO_CMD_GET_INFRA_KEY, USB_NUBO_CMD_SET_INFRA_KEY};
inline constexpr stSettingExchange WIFI_MODE{USB_REQ_NUBO_CMD_GET_WIFIMODE, USB_RES_NUBO_CMD_GET_WIFIMODE, USB_NUBO_CMD_SET_WIFI_MODE};
inline constexpr stSettingExchange WIFI_ENABLED{WifiOnOffRequest::USB_RES_NUBO_CMD_GET_WIFI_ONOFF, USB_RES_NUBO_CMD_GET_WIFI_ONOFF, USB_NUBO_CMD_SET_WIFI_ONOFF};
inline constexpr stSettingExchange BATTERY{USB_REQ_NUBO_CMD_GET_BATTERY, USB_RES_NUBO_CMD_GET_BATTERY, {}};
inline constexpr stSettingExchange RECORDING{USB_REQ_NUBO_CMD_IS_REC, USB_RES_NUBO_CMD_IS_REC, {}};
inline constexpr stSettingExchange WIFI_INFO{USB_REQ_NUBO_CMD_GET_WIFI_INFO, USB_RES_NUBO_CMD_GET_WIFI_INFO, {}};
inline constexpr stSettingExchange SD_CARD{USB_REQ_NUBO_CMD_GET_SDINFO, USB_RES_NUBO_CMD_GET_SDINFO, {}};
inline constexpr stSettingExchange GPS_INFO{USB_REQ_NUBO_CMD_GET_GPSINFO, USB_RES_NUBO_CMD_GET_GPSINFO, {}};
inline constexpr stSettingExchange MODEL{USB_REQ_NUBO_CMD_GET_MACHINENAME, USB_RES_NUBO_CMD_GET_MACHINENAME, USB_NUBO_CMD_SET_MACHINENAME};
inline constexpr stSettingExchange SERIAL{USB_REQ_NUBO_CMD_GET_SERIALNO, USB_RES_NUBO_CMD_GET_SERIALNO, USB_NUBO_CMD_SET_SERIALNO};
inline constexpr stSettingExchange MAC{USB_REQ_NUBO_CMD_GET_MACADDRESS, USB_RES_NUBO_CMD_GET_MACADDRESS, {}};
inline constexpr stSettingExchange FIRMWARE{USB_REQ_NUBO_CMD_GET_FWVERSION, USB_RES_NUBO_CMD_GET_FWVERSION, {}};
inline constexpr stSettingExchange CREATED{USB_REQ_NUBO_CMD_GET_CREATEDAY, USB_RES_NUBO_CMD_GET_CREATEDAY, USB_NUBO_CMD_SET_CREATEDAY};
inline constexpr stSettingExchange COUNTRY{USB_REQ_NUBO_CMD_GET_COUNTRY, USB_RES_NUBO_CMD_GET_COUNTRY, USB_NUBO_CMD_SET_COUNTRY};
inline constexpr stSettingExchange LENS{USB_REQ_NUBO_CMD_GET_LENSINFO, USB_RES_NUBO_CMD_GET_LENSINFO, USB_NUBO_CMD_SET_LENSINFO};
// clang-format on

}  // namespace SettingExchange

/// The values of the choices.
namespace SettingChoices {

inline constexpr std::array RECORDING_SIZES{
    stSettingChoice{"1920x1080", QSize(1920, 1080), "full-hd"},
    stSettingChoice{"1280x720", QSize(1280, 720), "hd"},
    stSettingChoice{"640x480", QSize(640, 480), "economy"},
};
inline constexpr std::array LIVE_SIZES{
    stSettingChoice{"800x480", QSize(800, 480), "fine"},
    stSettingChoice{"320x240", QSize(320, 240), "standard"},
};
inline constexpr std::array LIVE_RATES{
    stSettingChoice{"30", 30U}, stSettingChoice{"15", 15U}, stSettingChoice{"10", 10U},
    stSettingChoice{"6", 6U},   stSettingChoice{"1", 1U},
};
inline constexpr std::array LOG_FORMATS{
    stSettingChoice{"short", 1U, "gga+rmc"},
    stSettingChoice{"full", 2U, "gga+gll+gsa+gsv+rmc+vtg+zda"},
};
inline constexpr std::array COUNTRIES{
    stSettingChoice{"japan", 1U, "jp"},
    stSettingChoice{"america", 2U, "us"},  // United States, Canada, Taiwan
    stSettingChoice{"europe", 3U, "eu"},
    stSettingChoice{"auto", 4U},
};
inline constexpr std::array WIFI_MODES{
    stSettingChoice{"infrastructure", 1U, "infra"},
    stSettingChoice{"adhoc", 2U, "ad-hoc"},
};
inline constexpr std::array LINKS{
    stSettingChoice{"not-linked", 1U},
    stSettingChoice{"linked", 2U},
    stSettingChoice{"adhoc", 3U},
};
inline constexpr std::array ENCRYPTIONS{
    stSettingChoice{"none", 0U},
    stSettingChoice{"wep", 1U},
    stSettingChoice{"tkip", 2U},
    stSettingChoice{"aes", 4U},
};
inline constexpr std::array RECORDINGS{
    stSettingChoice{"stopped", 1U},
    stSettingChoice{"running", 2U},
};
inline constexpr std::array FILE_SYSTEMS{
    stSettingChoice{"fat12", 1U},
    stSettingChoice{"fat16", 2U},
    stSettingChoice{"fat32", 3U},
};

/// The number of the choice @p name; another name does not compile.
[[nodiscard]] consteval unsigned int number(std::span<const stSettingChoice> choices,
                                            std::string_view name) {
    return std::get<unsigned int>(std::ranges::find(choices, name, &stSettingChoice::name)->value);
}

}  // namespace SettingChoices

/// The place of a Capacity that no message carries: what the first two leave.
inline constexpr int PLACE_OF_REST = -1;

/// The table, and what its rows are made of.
namespace SettingRows {

using enum SettingKind;
using enum SettingCharacters;
namespace Exchange = SettingExchange;
namespace Choices = SettingChoices;

inline constexpr std::int64_t MINUTE = 60;
inline constexpr std::int64_t THREE_DAYS = 72 * (60 * MINUTE);
inline constexpr std::int64_t LONGEST_SSID = 32;
inline constexpr std::int64_t LONGEST_KEY = 64;
inline constexpr std::int64_t LONGEST_TEXT = 255;
inline constexpr std::int64_t PORTS = 65535;

inline constexpr stSettingRange NONE{};
inline constexpr stSettingRange HOST_OR_NONE{.hasNone = true};
inline constexpr stSettingRange TIME_ZONES{.most = 24};
inline constexpr stSettingRange YEARS{.least = 2000, .most = 2100};

constexpr stSettingRange numbers(std::int64_t least, std::int64_t most) {
    return {.least = least, .most = most};
}

constexpr stSettingRange offOr(std::int64_t least, std::int64_t most, std::int64_t step) {
    return {.least = least, .most = most, .step = step, .hasNone = true};
}

constexpr stSettingRange text(SettingCharacters characters, std::int64_t least, std::int64_t most) {
    return {.least = least, .most = most, .characters = characters};
}

constexpr stSettingRange oneOf(std::span<const stSettingChoice> choices) {
    return {.choices = choices};
}

// clang-format off
inline constexpr std::array ROWS{
    stSetting{"camera.name",                    Text,     Exchange::CAMERA_NAME,    0, text(Alphanumeric, 1, 8),       0,        "",                 "name of the camera"},
    stSetting{"camera.time-zone",               TimeZone, Exchange::TIME_ZONE,      0, TIME_ZONES,                     0,        "",                 "time zone of the camera's clock"},
    stSetting{"camera.clock",                   Clock,    Exchange::TIME,           0, YEARS,                          VOLATILE, "",                 "date and time of the camera"},
    stSetting{"camera.led-at-start",            Switch,   Exchange::LED_START,      0, NONE,                           0,        "",                 "whether the LED lights up at power on"},
    stSetting{"camera.led",                     Switch,   Exchange::LED,            0, NONE,                           VOLATILE, "",                 "the LED now"},
    stSetting{"camera.optimizer",               Switch,   Exchange::OPTIMIZER,      0, NONE,                           0,        "",                 "the optimizer"},
    stSetting{"camera.auto-power-off",          Duration, Exchange::AUTO_POWER_OFF, 0, offOr(MINUTE, THREE_DAYS, 1),   0,        "seconds",          "idle time after which the camera switches itself off"},
    stSetting{"image.contrast",                 Number,   Exchange::CONTRAST,       0, numbers(0, 4),                  0,        "",                 "contrast, from light to dark"},
    stSetting{"recording.size",                 Choice,   Exchange::RECORDING_SIZE, 0, oneOf(Choices::RECORDING_SIZES), 0,       "pixels",           "picture size of recordings"},
    stSetting{"recording.frame-rate",           Number,   Exchange::RECORDING_RATE, 0, numbers(1, 60),                 0,        "pictures a second", "frame rate of recordings"},
    stSetting{"interval.enabled",               Switch,   Exchange::INTERVAL,       0, NONE,                           0,        "",                 "the interval timer"},
    stSetting{"interval.delay",                 Duration, Exchange::INTERVAL,       1, numbers(0, THREE_DAYS),         0,        "seconds",          "time until the first picture"},
    stSetting{"interval.period",                Duration, Exchange::INTERVAL,       2, numbers(1, THREE_DAYS),         0,        "seconds",          "time between two pictures"},
    stSetting{"gps.enabled",                    Switch,   Exchange::GPS,            0, NONE,                           0,        "",                 "GPS"},
    stSetting{"gps.save-log",                   Switch,   Exchange::GPS,            1, NONE,                           0,        "",                 "GPS logs on the card"},
    stSetting{"gps.set-clock",                  Switch,   Exchange::GPS,            2, NONE,                           0,        "",                 "clock set from GPS"},
    stSetting{"gps.log-format",                 Choice,   Exchange::GPS,            3, oneOf(Choices::LOG_FORMATS),    0,        "",                 "sentences in the GPS log"},
    stSetting{"live.size",                      Choice,   Exchange::LIVE_SIZE,      0, oneOf(Choices::LIVE_SIZES),     0,        "pixels",           "picture size of the live stream"},
    stSetting{"live.frame-rate",                Choice,   Exchange::LIVE_RATE,      0, oneOf(Choices::LIVE_RATES),     0,        "pictures a second", "frame rate of the live stream"},
    stSetting{"live.authorization",             Switch,   Exchange::AUTHORIZATION,  0, NONE,                           0,        "",                 "whether the live stream asks for its password"},
    stSetting{"live.password",                  Text,     Exchange::PASSWORD,       0, text(Visible, 1, 16),           SECRET,   "",                 "password of the live stream"},
    stSetting{"live.rtsp-port",                 Number,   Exchange::RTSP_PORT,      0, numbers(1, PORTS),              0,        "",                 "TCP port of the live stream"},
    stSetting{"live.stun-server",               Text,     Exchange::STUN_SERVER,    0, text(Visible, 0, LONGEST_TEXT), 0,        "",                 "server that finds a way through NAT"},
    stSetting{"wifi.country",                   Choice,   Exchange::WIFI_COUNTRY,   0, oneOf(Choices::COUNTRIES),      0,        "",                 "where the radio is used"},
    stSetting{"wifi.auto-off",                  Duration, Exchange::AUTO_WIFI_OFF,  0, offOr(MINUTE, 10 * MINUTE, MINUTE), 0,    "seconds",          "idle time after which Wi-Fi is switched off"},
    stSetting{"wifi.adhoc.address",             Address,  Exchange::ADHOC_ADDRESS,  0, NONE,                           0,        "",                 "address in the camera's own network"},
    stSetting{"wifi.adhoc.netmask",             Netmask,  Exchange::ADHOC_NETMASK,  0, NONE,                           0,        "",                 "netmask of the camera's own network"},
    stSetting{"wifi.adhoc.security",            Number,   Exchange::ADHOC_SECURITY, 0, numbers(0, 4),                  0,        "",                 "encryption of the camera's own network"},
    stSetting{"wifi.infrastructure.dhcp",       Switch,   Exchange::DHCP,           0, NONE,                           0,        "",                 "addresses by DHCP"},
    stSetting{"wifi.infrastructure.address",    Address,  Exchange::ADDRESS,        0, NONE,                           0,        "",                 "address without DHCP"},
    stSetting{"wifi.infrastructure.netmask",    Netmask,  Exchange::NETMASK,        0, NONE,                           0,        "",                 "netmask without DHCP"},
    stSetting{"wifi.infrastructure.gateway",    Address,  Exchange::GATEWAY,        0, NONE,                           0,        "",                 "default gateway without DHCP"},
    stSetting{"wifi.infrastructure.dns1",       Address,  Exchange::PRIMARY_DNS,    0, HOST_OR_NONE,                   0,        "",                 "first name server"},
    stSetting{"wifi.infrastructure.dns2",       Address,  Exchange::SECONDARY_DNS,  0, HOST_OR_NONE,                   0,        "",                 "second name server"},
    stSetting{"wifi.infrastructure.ssid",       Text,     Exchange::SSID,           0, text(OneByte, 1, LONGEST_SSID), 0,        "",                 "network to join"},
    stSetting{"wifi.infrastructure.key",        Text,     Exchange::KEY,            0, text(Alphanumeric, 0, LONGEST_KEY), SECRET, "",               "key of the network to join"},
    stSetting{"wifi.mode",                      Choice,   Exchange::WIFI_MODE,      0, oneOf(Choices::WIFI_MODES),     0,        "",                 "network to join, or a network of its own"},
    stSetting{"wifi.enabled",                   Switch,   Exchange::WIFI_ENABLED,   0, NONE,                           0,        "",                 "Wi-Fi"},
    stSetting{"wifi.adhoc.ssid",                Text,     Exchange::ADHOC_SSID,     0, text(OneByte, 1, LONGEST_SSID), FACTORY,  "",                 "name of the camera's own network"},
    stSetting{"wifi.adhoc.key",                 Text,     Exchange::ADHOC_KEY,      0, text(OneByte, 0, LONGEST_KEY),  FACTORY | SECRET, "",         "key of the camera's own network"},
    stSetting{"wifi.link",                      Choice,   Exchange::WIFI_INFO,      0, oneOf(Choices::LINKS),          VOLATILE, "",                 "state of the link"},
    stSetting{"wifi.linked-ssid",               Text,     Exchange::WIFI_INFO,      1, text(OneByte, 0, LONGEST_SSID), VOLATILE, "",                 "network that the camera is linked to"},
    stSetting{"wifi.channel",                   Number,   Exchange::WIFI_INFO,      3, NONE,                           VOLATILE, "",                 "channel of the link"},
    stSetting{"wifi.encryption",                Choice,   Exchange::WIFI_INFO,      4, oneOf(Choices::ENCRYPTIONS),    VOLATILE, "",                 "encryption of the link"},
    stSetting{"wifi.signal",                    Number,   Exchange::WIFI_INFO,      6, NONE,                           VOLATILE, "",                 "signal of the link; 0 and below: none"},
    stSetting{"recording.state",                Choice,   Exchange::RECORDING,      0, oneOf(Choices::RECORDINGS),     VOLATILE, "",                 "whether a recording runs"},
    stSetting{"battery.charge",                 Number,   Exchange::BATTERY,        1, NONE,                           VOLATILE, "percent",          "charge of the battery"},
    stSetting{"battery.state",                  Number,   Exchange::BATTERY,        0, NONE,                           VOLATILE, "",                 "the camera's number for the state of its battery"},
    stSetting{"sd.total",                       Capacity, Exchange::SD_CARD,        0, NONE,                           VOLATILE, "bytes",            "size of the SD card"},
    stSetting{"sd.used",                        Capacity, Exchange::SD_CARD,        1, NONE,                           VOLATILE, "bytes",            "used space of the SD card"},
    stSetting{"sd.free",                        Capacity, Exchange::SD_CARD, PLACE_OF_REST, NONE,                    VOLATILE, "bytes",            "free space of the SD card"},
    stSetting{"sd.file-system",                 Choice,   Exchange::SD_CARD,        2, oneOf(Choices::FILE_SYSTEMS),   VOLATILE, "",                 "file system of the SD card"},
    stSetting{"gps.position",                   Text,     Exchange::GPS_INFO,       0, text(OneByte, 0, LONGEST_TEXT), VOLATILE, "",                 "latest sentence of the GPS receiver"},
    stSetting{"gps.number",                     Number,   Exchange::GPS_INFO,       1, NONE,                           VOLATILE, "",                 "number that comes with the position"},
    stSetting{"identity.model",                 Text,     Exchange::MODEL,          0, text(OneByte, 0, LONGEST_TEXT), FACTORY,  "",                 "model"},
    stSetting{"identity.serial",                Text,     Exchange::SERIAL,         0, text(OneByte, 0, LONGEST_TEXT), FACTORY,  "",                 "serial number"},
    stSetting{"identity.mac",                   Text,     Exchange::MAC,            0, text(OneByte, 0, LONGEST_TEXT), FACTORY,  "",                 "MAC address"},
    stSetting{"identity.firmware",              Text,     Exchange::FIRMWARE,       0, text(OneByte, 0, LONGEST_TEXT), FACTORY,  "",                 "version of the firmware"},
    stSetting{"identity.created",               Clock,    Exchange::CREATED,        0, YEARS,                          FACTORY,  "",                 "when the camera was made"},
    stSetting{"identity.country",               Text,     Exchange::COUNTRY,        0, text(Alphanumeric, 2, 2),       FACTORY,  "",                 "country that the camera was made for"},
    stSetting{"identity.lens",                  Text,     Exchange::LENS,           0, text(OneByte, 0, LONGEST_TEXT), FACTORY,  "",                 "lens"},
};
// clang-format on

}  // namespace SettingRows

/// Everything that a camera tells or can be set to, each in one row: a setting is added here, and
/// nowhere else. The order is that in which settings are told, and also that in which they are
/// written: what can cut the camera off its network comes last. Thread-safe.
[[nodiscard]] constexpr std::span<const stSetting> settings() {
    return SettingRows::ROWS;
}

/// The setting of @p key, or null. Thread-safe.
[[nodiscard]] constexpr const stSetting* findSetting(std::string_view key) {
    const auto found = std::ranges::find(SettingRows::ROWS, key, &stSetting::key);
    return found == SettingRows::ROWS.end() ? nullptr : &*found;
}

/// The setting of @p key for code that knows it; another key does not compile.
[[nodiscard]] consteval const stSetting& setting(std::string_view key) {
    return *findSetting(key);
}
