// SPDX-License-Identifier: MIT
#include "protocol/CommandRoutes.h"

#include "protocol/AllDistinct.h"
#include "protocol/CommandIdentifiers.h"
#include "protocol/RouteRunners.h"

#include <algorithm>
#include <array>

using namespace RouteRunner;

namespace {

template <class Command>
constexpr stRoute route(const QUuid& request, const QUuid& answer,
                        unsigned short (*run)(stRequest&)) {
    return {request, answer, Command::CODE, run};
}

template <class Command, auto... Values>
constexpr stRoute getRoute(const QUuid& request, const QUuid& answer) {
    return route<Command>(request, answer, get<Command, Values...>);
}

template <class Command, class... Arguments>
constexpr stRoute setRoute(const QUuid& request) {
    return route<Command>(request, {}, set<Command, Arguments...>);
}

// clang-format off
constexpr std::array ROUTES{
    // Network and Wi-Fi
    route<ClNuboCommandGetWifiInfo>(USB_REQ_NUBO_CMD_GET_WIFI_INFO, USB_RES_NUBO_CMD_GET_WIFI_INFO, getWifiInfo),
    route<ClNuboCommandGetAccesspointList>(USB_REQ_NUBO_CMD_GET_ACCESSPOINT_LIST, USB_RES_NUBO_CMD_GET_ACCESSPOINT_LIST, getAccesspointList),
    getRoute<ClNuboCommandGetWifiMode, number<1>>(USB_REQ_NUBO_CMD_GET_WIFIMODE, USB_RES_NUBO_CMD_GET_WIFIMODE),
    setRoute<ClNuboCommandSetWifiMode, unsigned int>(USB_NUBO_CMD_SET_WIFI_MODE),
    getRoute<ClNuboCommandGetStreamAuthorizationUse, isOn<1>>(USB_REQ_NUBO_CMD_GET_STREAM_AUTHORIZATION_USE, USB_RES_NUBO_CMD_GET_STREAM_AUTHORIZATION_USE),
    setRoute<ClNuboCommandSetStreamAuthorizationUse, bool>(USB_NUBO_CMD_SET_STREAM_AUTHORIZATION_USE),
    getRoute<ClNuboCommandGetStreamAuthorizationPassword, &ClNuboCommandGetStreamAuthorizationPassword::getPassword>(USB_REQ_NUBO_CMD_GET_STREAM_AUTHORIZATION_PASSWORD, USB_RES_NUBO_CMD_GET_STREAM_AUTHORIZATION_PASSWORD),
    setRoute<ClNuboCommandSetStreamAuthorizationPassword, QString>(USB_NUBO_CMD_SET_STREAM_AUTHORIZATION_PASSWORD),
    getRoute<ClNuboCommandGetAdhocAddress, address>(USB_REQ_NUBO_CMD_GET_ADHOC_ADDRESS, USB_RES_NUBO_CMD_GET_ADHOC_ADDRESS),
    setRoute<ClNuboCommandSetAdhocAddress, QString>(USB_NUBO_CMD_SET_ADHOC_ADDRESS),
    getRoute<ClNuboCommandGetAdhocSubnetmask, address>(USB_REQ_NUBO_CMD_GET_ADHOC_SUBNETMASK, USB_RES_NUBO_CMD_GET_ADHOC_SUBNETMASK),
    setRoute<ClNuboCommandSetAdhocSubnetmask, QString>(USB_NUBO_CMD_SET_ADHOC_SUBNETMASK),
    getRoute<ClNuboCommandGetInfraUseDhcp, isOn<1>>(USB_REQ_NUBO_CMD_GET_INFRA_USE_DHCP, USB_RES_NUBO_CMD_GET_INFRA_USE_DHCP),
    setRoute<ClNuboCommandSetInfraUseDhcp, bool>(USB_NUBO_CMD_SET_INFRA_USE_DHCP),
    getRoute<ClNuboCommandGetInfraAddress, address>(USB_REQ_NUBO_CMD_GET_INFRA_ADDRESS, USB_RES_NUBO_CMD_GET_INFRA_ADDRESS),
    setRoute<ClNuboCommandSetInfraAddress, QString>(USB_NUBO_CMD_SET_INFRA_ADDRESS),
    getRoute<ClNuboCommandGetInfraSubnetmask, address>(USB_REQ_NUBO_CMD_GET_INFRA_SUBNETMASK, USB_RES_NUBO_CMD_GET_INFRA_SUBNETMASK),
    setRoute<ClNuboCommandSetInfraSubnetmask, QString>(USB_NUBO_CMD_SET_INFRA_SUBNETMASK),
    getRoute<ClNuboCommandGetInfraGateway, address>(USB_REQ_NUBO_CMD_GET_INFRA_GATEWAY, USB_RES_NUBO_CMD_GET_INFRA_GATEWAY),
    setRoute<ClNuboCommandSetInfraGateway, QString>(USB_NUBO_CMD_SET_INFRA_GATEWAY),
    getRoute<ClNuboCommandGetInfraSsid, text>(USB_REQ_NUBO_CMD_GET_INFRA_SSID, USB_RES_NUBO_CMD_GET_INFRA_SSID),
    setRoute<ClNuboCommandSetInfraSsid, QString>(USB_NUBO_CMD_SET_INFRA_SSID),
    getRoute<ClNuboCommandGetInfraKey, text>(USB_REQ_NUBO_CMD_GET_INFRA_KEY, USB_RES_NUBO_CMD_GET_INFRA_KEY),
    setRoute<ClNuboCommandSetInfraKey, QString>(USB_NUBO_CMD_SET_INFRA_KEY),
    getRoute<ClNuboCommandGetWifiCountry, signedNumber<1>>(USB_REQ_NUBO_CMD_GET_WIFI_COUNTRY, USB_RES_NUBO_CMD_GET_WIFI_COUNTRY),
    setRoute<ClNuboCommandSetWifiCountry, unsigned int>(USB_NUBO_CMD_SET_WIFI_COUNTRY),
    getRoute<ClNuboCommandGetAdhocSecure, signedNumber<1>>(USB_REQ_NUBO_CMD_GET_ADHOC_SECURE, USB_RES_NUBO_CMD_GET_ADHOC_SECURE),
    setRoute<ClNuboCommandSetAdhocSecure, unsigned int>(USB_NUBO_CMD_SET_ADHOC_SECURE),
    getRoute<ClNuboCommandGetRtstPort, signedNumber<1>>(USB_REQ_NUBO_CMD_GET_RTSP_PORT, USB_RES_NUBO_CMD_GET_RTSP_PORT),
    setRoute<ClNuboCommandSetRtspPort, unsigned int>(USB_NUBO_CMD_SET_RTSP_PORT),
    getRoute<ClNuboCommandGetStunServer, text>(USB_REQ_NUBO_CMD_GET_STUN_SERVER, USB_RES_NUBO_CMD_GET_STUN_SERVER),
    setRoute<ClNuboCommandSetStunServer, QString>(USB_NUBO_CMD_SET_STUN_SERVER),
    getRoute<ClNuboCommandGetPrimaryDns, address>(USB_REQ_NUBO_CMD_GET_PRIMARY_DNS, USB_RES_NUBO_CMD_GET_PRIMARY_DNS),
    setRoute<ClNuboCommandSetPrimaryDns, QString>(USB_NUBO_CMD_SET_PRIMARY_DNS),
    getRoute<ClNuboCommandGetSecondaryDns, address>(USB_REQ_NUBO_CMD_GET_SECONDARY_DNS, USB_RES_NUBO_CMD_GET_SECONDARY_DNS),
    setRoute<ClNuboCommandSetSecondary, QString>(USB_NUBO_CMD_SET_SECONDARY_DNS),
    getRoute<ClNuboCommandGetWiFiOnOff, isOn<1>>(WifiOnOffRequest::USB_RES_NUBO_CMD_GET_WIFI_ONOFF, USB_RES_NUBO_CMD_GET_WIFI_ONOFF),
    setRoute<ClNuboCommandSetWiFiOnOff, bool>(USB_NUBO_CMD_SET_WIFI_ONOFF),
    getRoute<ClNuboCommandGetAutoWiFiOffSetting, number<1>>(USB_REQ_NUBO_CMD_GET_AUTO_WIFIOFF, USB_RES_NUBO_CMD_GET_AUTO_WIFIOFF),
    setRoute<ClNuboCommandSetAutoWiFiOffSetting, unsigned int>(USB_NUBO_CMD_SET_AUTO_WIFIOFF),
    setRoute<ClNuboCommandConnectWifi, QString, QString>(USB_NUBO_CMD_CONNECT_WIFI),
    setRoute<ClNuboCommandWifiChange, unsigned int>(USB_NUBO_CMD_WIFI_CHANGE),
    setRoute<ClNuboCommandWifiSwitch, bool>(USB_NUBO_CMD_WIFI_SWITCH),
    // Recording and streaming
    getRoute<ClNuboCommandGetRecState, number<1>>(USB_REQ_NUBO_CMD_IS_REC, USB_RES_NUBO_CMD_IS_REC),
    getRoute<ClNuboCommandGetIntervalTimer, isOn<1>, number<2>, number<3>>(USB_REQ_NUBO_CMD_GET_INTERVAL_INFO, USB_RES_NUBO_CMD_GET_INTERVAL_INFO),
    setRoute<ClNuboCommandSetIntervalTimer, bool, unsigned int, unsigned int>(USB_NUBO_CMD_SET_INTERVAL_INFO),
    getRoute<ClNuboCommandGetRecImagesize, &ClNuboCommandGetRecImagesize::getSize>(USB_REQ_NUBO_CMD_GET_REC_IMAGESIZE, USB_RES_NUBO_CMD_GET_REC_IMAGESIZE),
    setRoute<ClNuboCommandSetRecImagesize, QSize>(USB_NUBO_CMD_SET_REC_IMAGESIZE),
    getRoute<ClNuboCommandGetRecFramerate, number<1>>(USB_REQ_NUBO_CMD_GET_REC_FRAMERATE, USB_RES_NUBO_CMD_GET_REC_FRAMERATE),
    setRoute<ClNuboCommandSetRecFramerate, unsigned int>(USB_NUBO_CMD_SET_REC_FRAMERATE),
    getRoute<ClNuboCommandGetLiveImagesize, &ClNuboCommandGetLiveImagesize::getSize>(USB_REQ_NUBO_CMD_GET_LIVE_IMAGESIZE, USB_RES_NUBO_CMD_GET_LIVE_IMAGESIZE),
    setRoute<ClNuboCommandSetLiveImagesize, QSize>(USB_NUBO_CMD_SET_LIVE_IMAGESIZE),
    getRoute<ClNuboCommandGetLiveFramerate, number<1>>(USB_REQ_NUBO_CMD_GET_LIVE_FRAMERATE, USB_RES_NUBO_CMD_GET_LIVE_FRAMERATE),
    setRoute<ClNuboCommandSetLiveFramerate, unsigned int>(USB_NUBO_CMD_SET_LIVE_FRAMERATE),
    getRoute<ClNuboCommandGetImageQuarity, number<1>>(USB_REQ_NUBO_CMD_GET_IMAGE_QUARITY, USB_RES_NUBO_CMD_GET_IMAGE_QUARITY),
    setRoute<ClNuboCommandSetImageQuarity, unsigned int>(USB_NUBO_CMD_SET_IMAGE_QUARITY),
    setRoute<ClNuboCommandCtrlRec, bool>(USB_NUBO_CMD_CTRL_REC),
    setRoute<ClNuboCommandCapture>(USB_NUBO_CMD_CAPTURE),
    // Camera basics
    getRoute<ClNuboCommandGetGpsInfo, text, number<3>>(USB_REQ_NUBO_CMD_GET_GPSINFO, USB_RES_NUBO_CMD_GET_GPSINFO),
    getRoute<ClNuboCommandGetGpsSetting, isOn<1>, isOn<2>, isOn<3>, number<4>>(USB_REQ_NUBO_CMD_GET_GPSSETTING, USB_RES_NUBO_CMD_GET_GPSSETTING),
    setRoute<ClNuboCommandSetGpsSetting, bool, bool, bool, unsigned int>(USB_NUBO_CMD_SET_GPSSETTING),
    getRoute<ClNuboCommandGetCameraName, text>(USB_REQ_NUBO_CMD_GET_CAMERANAME, USB_RES_NUBO_CMD_GET_CAMERANAME),
    setRoute<ClNuboCommandSetCameraName, QString>(USB_NUBO_CMD_SET_CAMERANAME),
    getRoute<ClNuboCommandGetTime, &ClNuboCommandGetTime::getTime>(USB_REQ_NUBO_CMD_GET_TIME, USB_RES_NUBO_CMD_GET_TIME),
    setRoute<ClNuboCommandSetTime, QDateTime>(USB_NUBO_CMD_SET_TIME),
    getRoute<ClNuboCommandGetTimezone, number<1>>(USB_REQ_NUBO_CMD_GET_TIMEZONE, USB_RES_NUBO_CMD_GET_TIMEZONE),
    setRoute<ClNuboCommandSetTimezone, unsigned int>(USB_NUBO_CMD_SET_TIMEZONE),
    getRoute<ClNuboCommandGetLedStart, isOn<1>>(USB_REQ_NUBO_CMD_GET_LED_START, USB_RES_NUBO_CMD_GET_LED_START),
    setRoute<ClNuboCommandSetLedStart, bool>(USB_NUBO_CMD_SET_LED_START),
    getRoute<ClNuboCommandGetLedState, isOn<1>>(USB_REQ_NUBO_CMD_GET_LED, USB_RES_NUBO_CMD_GET_LED),
    setRoute<ClNuboCommandSetLedState, bool>(USB_NUBO_CMD_SET_LED),
    getRoute<ClNuboCommandGetOptimizerUse, isOn<1>>(USB_REQ_NUBO_CMD_GET_OPTIMIZER, USB_RES_NUBO_CMD_GET_OPTIMIZER),
    setRoute<ClNuboCommandSetOptimizerUse, bool>(USB_NUBO_CMD_SET_OPTIMIZER),
    getRoute<ClNuboCommandGetEState, isOn<1>>(USB_REQ_NUBO_CMD_GET_ESTATE, USB_RES_NUBO_CMD_GET_ESTATE),
    getRoute<ClNuboCommandGetBatteryState, number<1>, number<2>>(USB_REQ_NUBO_CMD_GET_BATTERY, USB_RES_NUBO_CMD_GET_BATTERY),
    getRoute<ClNuboCommandGetAutoPoweroffSetting, number<1>>(USB_REQ_NUBO_CMD_GET_AUTO_POWEROFF, USB_RES_NUBO_CMD_GET_AUTO_POWEROFF),
    setRoute<ClNuboCommandSetAutoPoweroffSetting, unsigned int>(USB_NUBO_CMD_SET_AUTO_POWEROFF),
    getRoute<ClNuboCommandGetSdInfo, &ClNuboCommandGetSdInfo::getSdSize, &ClNuboCommandGetSdInfo::getSdUsedSize, number<5>>(USB_REQ_NUBO_CMD_GET_SDINFO, USB_RES_NUBO_CMD_GET_SDINFO),
    getRoute<ClNuboCommandGetFwVersion, text>(USB_REQ_NUBO_CMD_GET_FWVERSION, USB_RES_NUBO_CMD_GET_FWVERSION),
    setRoute<ClNuboCommandPowerOff>(USB_NUBO_CMD_POWEROFF),
    setRoute<ClNuboCommandRestart>(USB_NUBO_CMD_RESTART),
    setRoute<ClNuboCommandFormatSd>(USB_NUBO_CMD_FORMAT_SD),
    setRoute<ClNuboCommandInitSetting>(USB_NUBO_CMD_INIT_SETTING),
    // Factory and service
    setRoute<ClNuboCommandRFTestMode, unsigned int, unsigned int, unsigned int, unsigned int, unsigned int>(USB_NUBO_CMD_RF_TESTMODE),
    setRoute<ClNuboCommandRFStart>(USB_NUBO_CMD_RF_START),
    setRoute<ClNuboCommandRFEnd>(USB_NUBO_CMD_RF_END),
    getRoute<ClNuboCommandGetSerialNo, text>(USB_REQ_NUBO_CMD_GET_SERIALNO, USB_RES_NUBO_CMD_GET_SERIALNO),
    setRoute<ClNuboCommandSetSerialNo, QString>(USB_NUBO_CMD_SET_SERIALNO),
    getRoute<ClNuboCommandGetMacAddress, text>(USB_REQ_NUBO_CMD_GET_MACADDRESS, USB_RES_NUBO_CMD_GET_MACADDRESS),
    getRoute<ClNuboCommandGetMachineName, text>(USB_REQ_NUBO_CMD_GET_MACHINENAME, USB_RES_NUBO_CMD_GET_MACHINENAME),
    setRoute<ClNuboCommandSetMachineName, QString>(USB_NUBO_CMD_SET_MACHINENAME),
    getRoute<ClNuboCommandGetSsid, text>(USB_REQ_NUBO_CMD_GET_SSID, USB_RES_NUBO_CMD_GET_SSID),
    setRoute<ClNuboCommandSetSsid, QString>(USB_NUBO_CMD_SET_SSID),
    getRoute<ClNuboCommandGetAdhocKey, text>(USB_REQ_NUBO_CMD_GET_ADHOCKEY, USB_RES_NUBO_CMD_GET_ADHOCKEY),
    setRoute<ClNuboCommandSetAdhocKey, QString>(USB_NUBO_CMD_SET_ADHOCKEY),
    getRoute<ClNuboCommandGetCreateDay, &ClNuboCommandGetCreateDay::getCreateDay>(USB_REQ_NUBO_CMD_GET_CREATEDAY, USB_RES_NUBO_CMD_GET_CREATEDAY),
    setRoute<ClNuboCommandSetCreateDay, QDateTime>(USB_NUBO_CMD_SET_CREATEDAY),
    getRoute<ClNuboCommandGetCountry, &ClNuboCommandGetCountry::getCountry>(USB_REQ_NUBO_CMD_GET_COUNTRY, USB_RES_NUBO_CMD_GET_COUNTRY),
    setRoute<ClNuboCommandSetCountry, QString>(USB_NUBO_CMD_SET_COUNTRY),
    getRoute<ClNuboCommandGetLens, text>(USB_REQ_NUBO_CMD_GET_LENSINFO, USB_RES_NUBO_CMD_GET_LENSINFO),
    setRoute<ClNuboCommandSetLens, QString>(USB_NUBO_CMD_SET_LENSINFO),
    setRoute<ClNuboCommandExecAlignmentCheck, unsigned int>(USB_NUBO_CMD_EXEC_ALIGNMENT),
    setRoute<ClNuboCommandExecResolutionCheck, unsigned int>(USB_NUBO_CMD_EXEC_RESOLUTION),
    setRoute<ClNuboCommandExecVignettingCheck, unsigned int>(USB_NUBO_CMD_EXEC_VIGNETTING),
    setRoute<ClNuboCommandExecAwbCheck, unsigned int>(USB_NUBO_CMD_EXEC_AWB),
    setRoute<ClNuboCommandExecDustCheck, unsigned int>(USB_NUBO_CMD_EXEC_DUST),
    setRoute<ClNuboCommandExecDotErrorCheck, unsigned int>(USB_NUBO_CMD_EXEC_DOTERROR),
    setRoute<ClNuboCommandExecRamCheck>(USB_NUBO_CMD_EXEC_RAM),
    setRoute<ClNuboCommandSaveRawData>(USB_NUBO_CMD_SAVE_RAWDATA),
    setRoute<ClNuboCommandSaveYcData>(USB_NUBO_CMD_SAVE_YCDATA),
    setRoute<ClNuboCommandSaveAdjustData>(USB_NUBO_CMD_SAVE_ADJUSTDATA),
    setRoute<ClNUboCommandSetAdjustFlag, unsigned int>(USB_NUBO_CMD_SET_ADJUSTFLAG),
    getRoute<ClNUboCommandGetAdjustFlag, number<1>>(USB_REQ_NUBO_CMD_GET_ADJUSTFLAG, USB_RES_NUBO_CMD_GET_ADJUSTFLAG),
    route<ClNuboCommandReqJpeg>(USB_NUBO_CMD_REQ_JPEG, USB_CMD_RES_JPEG, readData<ClNuboCommandReqJpeg>),
    route<ClNuboCommandReqAudio>(USB_NUBO_CMD_REQ_AUDIO, USB_CMD_RES_AUDIO, readData<ClNuboCommandReqAudio>),
    // Firmware
    route<ClNuboCommandExecFwUpdateData>(USB_NUBO_CMD_EXEC_FWUPDATEDATA, {}, sendFirmware),
    setRoute<ClNuboCommandExecFwUpdat, bool>(USB_NUBO_CMD_EXEC_FWUPDATE),
};
// clang-format on

static_assert(allDistinct(ROUTES, &stRoute::code), "two routes have the same command code");
static_assert(allDistinct(ROUTES, &stRoute::request), "two routes have the same request");

}  // namespace

std::span<const stRoute> commandRoutes() {
    return ROUTES;
}

const stRoute* commandRoute(const QUuid& request) {
    const auto found = std::ranges::find(ROUTES, request, &stRoute::request);
    return found == ROUTES.end() ? nullptr : &*found;
}
