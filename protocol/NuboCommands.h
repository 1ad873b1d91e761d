// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/NuboCommandKinds.h"

// Every command of the camera. A row gives its code and its kind; what is irregular about a command
// stands in its body. Getters decode a parsed answer; without one, the value is param1.

// clang-format off

// Network and Wi-Fi
class ClNuboCommandGetWifiInfo               : public ClNuboGet<0x5001> {};  // two more packets follow
class ClNuboCommandGetAccesspointList        : public ClNuboGet<0x5002> {};  // two packets a point follow
class ClNuboCommandGetWifiMode               : public ClNuboGet<0x5003> {};
class ClNuboCommandSetWifiMode               : public ClNuboSetNumber<0x5803> { using ClNuboSetNumber::ClNuboSetNumber; };
class ClNuboCommandGetStreamAuthorizationUse : public ClNuboGet<0x5004> {};
class ClNuboCommandSetStreamAuthorizationUse : public ClNuboSetSwitch<0x5804> { using ClNuboSetSwitch::ClNuboSetSwitch; };
class ClNuboCommandGetStreamAuthorizationPassword : public ClNuboGetString<0x5005> {
public:
    [[nodiscard]] QString getPassword() const { return string(); }
};
class ClNuboCommandSetStreamAuthorizationPassword : public ClNuboSetString<0x5805> { using ClNuboSetText::ClNuboSetText; };
class ClNuboCommandGetAdhocAddress           : public ClNuboGetIpv4<0x5006> {};
class ClNuboCommandSetAdhocAddress           : public ClNuboSetIpv4<0x5806> { using ClNuboSetText::ClNuboSetText; };
class ClNuboCommandGetAdhocSubnetmask        : public ClNuboGetIpv4<0x5007> {};
class ClNuboCommandSetAdhocSubnetmask        : public ClNuboSetIpv4<0x5807> { using ClNuboSetText::ClNuboSetText; };
class ClNuboCommandGetInfraUseDhcp           : public ClNuboGet<0x5008> {};
class ClNuboCommandSetInfraUseDhcp           : public ClNuboSetSwitch<0x5808> { using ClNuboSetSwitch::ClNuboSetSwitch; };
class ClNuboCommandGetInfraAddress           : public ClNuboGetIpv4<0x5009> {};
class ClNuboCommandSetInfraAddress           : public ClNuboSetIpv4<0x5809> { using ClNuboSetText::ClNuboSetText; };
class ClNuboCommandGetInfraSubnetmask        : public ClNuboGetIpv4<0x500A> {};
class ClNuboCommandSetInfraSubnetmask        : public ClNuboSetIpv4<0x580A> { using ClNuboSetText::ClNuboSetText; };
class ClNuboCommandGetInfraGateway           : public ClNuboGetIpv4<0x500B> {};
class ClNuboCommandSetInfraGateway           : public ClNuboSetIpv4<0x580B> { using ClNuboSetText::ClNuboSetText; };
class ClNuboCommandGetInfraSsid              : public ClNuboGetString<0x503B> {};
class ClNuboCommandSetInfraSsid              : public ClNuboSetString<0x583B> { using ClNuboSetText::ClNuboSetText; };
class ClNuboCommandGetInfraKey               : public ClNuboGetString<0x503C> {};
class ClNuboCommandSetInfraKey               : public ClNuboSetString<0x583C> { using ClNuboSetText::ClNuboSetText; };
class ClNuboCommandGetWifiCountry            : public ClNuboGet<0x5041> {};
class ClNuboCommandSetWifiCountry            : public ClNuboSetNumber<0x5841> { using ClNuboSetNumber::ClNuboSetNumber; };
class ClNuboCommandGetAdhocSecure            : public ClNuboGet<0x5042> {};
class ClNuboCommandSetAdhocSecure            : public ClNuboSetNumber<0x5842> { using ClNuboSetNumber::ClNuboSetNumber; };
class ClNuboCommandGetRtstPort               : public ClNuboGet<0x5043> {};
class ClNuboCommandSetRtspPort               : public ClNuboSetNumber<0x5843> { using ClNuboSetNumber::ClNuboSetNumber; };
class ClNuboCommandGetStunServer             : public ClNuboGetString<0x5044> {};
class ClNuboCommandSetStunServer             : public ClNuboSetString<0x5844> { using ClNuboSetText::ClNuboSetText; };
class ClNuboCommandGetPrimaryDns             : public ClNuboGetIpv4<0x5045> {};
class ClNuboCommandSetPrimaryDns             : public ClNuboSetIpv4<0x5845> { using ClNuboSetText::ClNuboSetText; };
class ClNuboCommandGetSecondaryDns           : public ClNuboGetIpv4<0x5046> {};
class ClNuboCommandSetSecondary              : public ClNuboSetIpv4<0x5846> { using ClNuboSetText::ClNuboSetText; };
class ClNuboCommandGetWiFiOnOff              : public ClNuboGet<0x5047> {};
class ClNuboCommandSetWiFiOnOff              : public ClNuboSetSwitch<0x5847> { using ClNuboSetSwitch::ClNuboSetSwitch; };
class ClNuboCommandGetAutoWiFiOffSetting     : public ClNuboGet<0x5048> {};
class ClNuboCommandSetAutoWiFiOffSetting     : public ClNuboSetNumber<0x5848> { using ClNuboSetNumber::ClNuboSetNumber; };
class ClNuboCommandWifiChange                : public ClNuboSetNumber<0x6808> { using ClNuboSetNumber::ClNuboSetNumber; };
class ClNuboCommandWifiSwitch                : public ClNuboSetSwitch<0x6809> { using ClNuboSetSwitch::ClNuboSetSwitch; };

// Recording and streaming
class ClNuboCommandGetRecState               : public ClNuboGet<0x5010> {};
class ClNuboCommandGetIntervalTimer          : public ClNuboGet<0x5011> {};
class ClNuboCommandSetIntervalTimer          : public ClNuboPacket<0x5811> {
public:
    /// Times in seconds.
    ClNuboCommandSetIntervalTimer(bool isUsed, unsigned int startDelay, unsigned int interval)
        : ClNuboPacket({0, startDelay, interval}) { setParam(1, boolToValue(isUsed)); }
};
class ClNuboCommandGetRecImagesize           : public ClNuboGetSize<0x5012, REC_SIZES> {};
class ClNuboCommandSetRecImagesize           : public ClNuboSetSize<0x5812, REC_SIZES> { using ClNuboSetSize::ClNuboSetSize; };
class ClNuboCommandGetRecFramerate           : public ClNuboGet<0x5013> {};
class ClNuboCommandSetRecFramerate           : public ClNuboSetNumber<0x5813> { using ClNuboSetNumber::ClNuboSetNumber; };
class ClNuboCommandGetLiveImagesize          : public ClNuboGetSize<0x5014, LIVE_SIZES> {};
class ClNuboCommandSetLiveImagesize          : public ClNuboSetSize<0x5814, LIVE_SIZES> { using ClNuboSetSize::ClNuboSetSize; };
class ClNuboCommandGetLiveFramerate          : public ClNuboGet<0x5015> {};
class ClNuboCommandSetLiveFramerate          : public ClNuboSetNumber<0x5815> { using ClNuboSetNumber::ClNuboSetNumber; };
class ClNuboCommandGetImageQuarity           : public ClNuboGet<0x5049> {};
class ClNuboCommandSetImageQuarity           : public ClNuboSetNumber<0x5849> { using ClNuboSetNumber::ClNuboSetNumber; };
class ClNuboCommandCtrlRec                   : public ClNuboSetSwitch<0x6805> { using ClNuboSetSwitch::ClNuboSetSwitch; };
class ClNuboCommandCapture                   : public ClNuboAction<0x6806> {};

// Camera basics
class ClNuboCommandGetGpsInfo                : public ClNuboGetString<0x5020> {};  // and a number in param3
class ClNuboCommandGetGpsSetting             : public ClNuboGet<0x5021> {};
class ClNuboCommandSetGpsSetting             : public ClNuboPacket<0x5821> {
public:
    /// A log format of 1 is the short set of NMEA 0183 sentences.
    ClNuboCommandSetGpsSetting(bool isUsed, bool savesLog, bool setsClock, unsigned int logFormat)
        : ClNuboPacket({0, 0, 0, logFormat}) {
        setParam(1, boolToValue(isUsed));
        setParam(2, boolToValue(savesLog));
        setParam(3, boolToValue(setsClock));
    }
};
class ClNuboCommandGetCameraName             : public ClNuboGetString<0x5030> {};
class ClNuboCommandSetCameraName             : public ClNuboSetString<0x5830> { using ClNuboSetText::ClNuboSetText; };
class ClNuboCommandGetTime                   : public ClNuboGet<0x5031> {
public:
    [[nodiscard]] QDateTime getTime() const { return unpackDateTime(param(1), param(2)); }
};
class ClNuboCommandSetTime                   : public ClNuboPacket<0x5831> {
public:
    /// An invalid @p time stands for now.
    explicit ClNuboCommandSetTime(const QDateTime& time)
        : ClNuboPacket(packDateTime(validOrNow(time))) {}
};
class ClNuboCommandGetTimezone               : public ClNuboGet<0x5032> {};
class ClNuboCommandSetTimezone               : public ClNuboSetNumber<0x5832> { using ClNuboSetNumber::ClNuboSetNumber; };
class ClNuboCommandGetLedStart               : public ClNuboGet<0x5033> {};
class ClNuboCommandSetLedStart               : public ClNuboSetSwitch<0x5833> { using ClNuboSetSwitch::ClNuboSetSwitch; };
class ClNuboCommandGetLedState               : public ClNuboGet<0x5034> {};
class ClNuboCommandSetLedState               : public ClNuboSetSwitch<0x5834> { using ClNuboSetSwitch::ClNuboSetSwitch; };
class ClNuboCommandGetOptimizerUse           : public ClNuboGet<0x5035> {};
class ClNuboCommandSetOptimizerUse           : public ClNuboSetSwitch<0x5835> { using ClNuboSetSwitch::ClNuboSetSwitch; };
class ClNuboCommandGetEState                 : public ClNuboGet<0x5036> {};
class ClNuboCommandGetBatteryState           : public ClNuboGet<0x5037> {};  // charge in percent in param2
class ClNuboCommandGetAutoPoweroffSetting    : public ClNuboGet<0x5038> {};
class ClNuboCommandSetAutoPoweroffSetting    : public ClNuboSetNumber<0x5838> { using ClNuboSetNumber::ClNuboSetNumber; };
class ClNuboCommandGetSdInfo                 : public ClNuboGet<0x5039> {  // param5: 1 FAT12, 2 FAT16, 3 FAT32
public:
    /// Sizes in KiB.
    [[nodiscard]] quint64 getSdSize() const { return quint64{param(1)} << 32 | param(2); }
    [[nodiscard]] quint64 getSdUsedSize() const { return quint64{param(3)} << 32 | param(4); }
};
class ClNuboCommandGetFwVersion              : public ClNuboGetString<0x503A> {};
class ClNuboCommandPowerOff                  : public ClNuboAction<0x6801> {};
class ClNuboCommandRestart                   : public ClNuboAction<0x6802> {};
class ClNuboCommandFormatSd                  : public ClNuboAction<0x6803> {};
class ClNuboCommandInitSetting               : public ClNuboAction<0x6804> {};

// Factory and service
class ClNuboCommandRFTestMode                : public ClNuboPacket<0x680A> {
public:
    ClNuboCommandRFTestMode(unsigned int first, unsigned int second, unsigned int third,
                            unsigned int fourth, unsigned int fifth)
        : ClNuboPacket({first, second, third, fourth, fifth}) {}
};
class ClNuboCommandRFStart                   : public ClNuboAction<0x680B> {};
class ClNuboCommandRFEnd                     : public ClNuboAction<0x680C> {};
class ClNuboCommandGetSerialNo               : public ClNuboGetString<0x4001> {};
class ClNuboCommandSetSerialNo               : public ClNuboSetString<0x4801> { using ClNuboSetText::ClNuboSetText; };
class ClNuboCommandGetMacAddress             : public ClNuboGetString<0x4002> {};
class ClNuboCommandGetMachineName            : public ClNuboGetString<0x4003> {};
class ClNuboCommandSetMachineName            : public ClNuboSetString<0x4803> { using ClNuboSetText::ClNuboSetText; };
class ClNuboCommandGetSsid                   : public ClNuboGetString<0x4004> {};
class ClNuboCommandSetSsid                   : public ClNuboSetString<0x4804> { using ClNuboSetText::ClNuboSetText; };
class ClNuboCommandGetAdhocKey               : public ClNuboGetString<0x4005> {};
class ClNuboCommandSetAdhocKey               : public ClNuboSetString<0x4805> { using ClNuboSetText::ClNuboSetText; };
class ClNuboCommandGetCreateDay              : public ClNuboGetString<0x4006> {
public:
    [[nodiscard]] QDateTime getCreateDay() const { return textToDateTime(string()); }
};
class ClNuboCommandSetCreateDay              : public ClNuboSetString<0x4806> {
public:
    /// An invalid @p day stands for now.
    explicit ClNuboCommandSetCreateDay(const QDateTime& day)
        : ClNuboSetText(dateTimeToText(validOrNow(day))) {}
};
class ClNuboCommandGetCountry                : public ClNuboGet<0x4007> {
public:
    /// Two letters, or as many as come before a zero byte.
    [[nodiscard]] QString getCountry() const { return unpackCountry(param(1), param(2)); }
};
class ClNuboCommandSetCountry                : public ClNuboPacket<0x4807> {
public:
    explicit ClNuboCommandSetCountry(const QString& country)
        : ClNuboPacket({packLetter(country, 0), packLetter(country, 1)}) {}
};
class ClNuboCommandGetLens                   : public ClNuboGetString<0x4008> {};
class ClNuboCommandSetLens                   : public ClNuboSetString<0x4808> { using ClNuboSetText::ClNuboSetText; };
class ClNuboCommandExecAlignmentCheck        : public ClNuboSetNumber<0x0021> { using ClNuboSetNumber::ClNuboSetNumber; };
class ClNuboCommandExecResolutionCheck       : public ClNuboSetNumber<0x0022> { using ClNuboSetNumber::ClNuboSetNumber; };
class ClNuboCommandExecVignettingCheck       : public ClNuboSetNumber<0x0023> { using ClNuboSetNumber::ClNuboSetNumber; };
class ClNuboCommandExecAwbCheck              : public ClNuboSetNumber<0x0024> { using ClNuboSetNumber::ClNuboSetNumber; };
class ClNuboCommandExecDustCheck             : public ClNuboSetNumber<0x0025> { using ClNuboSetNumber::ClNuboSetNumber; };
class ClNuboCommandExecDotErrorCheck         : public ClNuboSetNumber<0x0026> { using ClNuboSetNumber::ClNuboSetNumber; };
class ClNuboCommandExecRamCheck              : public ClNuboAction<0x0027> {};
class ClNuboCommandSaveRawData               : public ClNuboAction<0x0031> {};
class ClNuboCommandSaveYcData                : public ClNuboAction<0x0032> {};
class ClNuboCommandSaveAdjustData            : public ClNuboAction<0x0033> {};
class ClNUboCommandSetAdjustFlag             : public ClNuboSetNumber<0x0041> { using ClNuboSetNumber::ClNuboSetNumber; };
class ClNUboCommandGetAdjustFlag             : public ClNuboGet<0x0042> {};
class ClNuboCommandReqJpeg                   : public ClNuboGet<0x3001> {};  // a data phase follows
class ClNuboCommandReqAudio                  : public ClNuboGet<0x3002> {};  // a data phase follows

// Firmware
class ClNuboCommandExecFwUpdateData          : public ClNuboPacket<0x2001> {  // the image follows
public:
    /// @p size of the image in bytes.
    explicit ClNuboCommandExecFwUpdateData(unsigned int size) : ClNuboPacket({size}) {}
};
class ClNuboCommandExecFwUpdat               : public ClNuboSetSwitch<0x2002> { using ClNuboSetSwitch::ClNuboSetSwitch; };

// clang-format on
