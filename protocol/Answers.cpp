// SPDX-License-Identifier: MIT
#include "protocol/Answers.h"

#include "protocol/MessageValues.h"

stBattery battery(const VX_CMD& answer) {
    stBattery battery;
    getValues(answer, battery.state, battery.charge);
    return battery;
}

stSdInfo sdInfo(const VX_CMD& answer) {
    stSdInfo info;
    getValues(answer, info.size, info.usedSize, info.fileSystem);
    return info;
}

stWifiInfo wifiInfo(const VX_CMD& answer) {
    stWifiInfo info;
    getValues(answer, info.status, info.linkedSsid, info.searchSsid, info.channel, info.encryption,
              info.reserved, info.signal);
    return info;
}

void setWifiInfo(VX_CMD& answer, const stWifiInfo& info) {
    setValues(answer, info.status, info.linkedSsid, info.searchSsid, info.channel, info.encryption,
              info.reserved, info.signal);
}

AccesspointList accesspointList(const VX_CMD& answer) {
    return answer.value(Key::PARAM2).value<AccesspointList>();
}
