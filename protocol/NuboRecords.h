// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

/// What the camera tells of its wireless link, in the order of the wire.
struct stWifiInfo {
    quint32 status = 0;  ///< 1 not linked, 2 linked, 3 ad-hoc
    QString linkedSsid;
    QString searchSsid;      ///< the SSID that counts as the linked one in a search
    quint32 channel = 0;     ///< Wi-Fi channel number
    quint32 encryption = 0;  ///< 0 none, 1 WEP, 2 TKIP, 4 AES
    qint32 reserved = 0;     ///< shown nowhere
    qint32 signal = 0;       ///< 0 or less when there is none

    bool operator==(const stWifiInfo&) const = default;
};

struct stBattery {
    quint32 state = 0;  ///< shown nowhere
    qint32 charge = 0;  ///< in percent
};

/// What the camera tells of its SD card.
struct stSdInfo {
    quint64 size = 0;  ///< in KiB, as the next one
    quint64 usedSize = 0;
    qint32 fileSystem = 0;  ///< 1 FAT12, 2 FAT16, 3 FAT32
};

/// One access point of a scan, in the order of the wire.
struct stAccesspointInfo {
    QString ssid;
    QString secondText;      ///< shown nowhere
    quint32 reserved1 = 0;   ///< shown nowhere
    quint32 encryption = 0;  ///< 0 none, 1 WEP, 2 TKIP, 4 AES
    quint32 reserved2 = 0;   ///< shown nowhere
    quint32 signal = 0;      ///< signed on the wire; 0 or less when there is no signal

    bool operator==(const stAccesspointInfo&) const = default;
};

using AccesspointList = QList<stAccesspointInfo>;
