// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace nubo::simulator {

/// What the camera knows of its battery; no command changes it.
struct Battery {
    std::uint32_t state = 1;
    std::uint32_t charge = 85;  ///< percent
};

/// The SD card in the camera.
struct SdCard {
    std::uint64_t total = 7744512;  ///< KiB
    std::uint64_t used = 1548902;   ///< KiB
    std::uint32_t fileSystem = 3;   ///< 1 FAT12, 2 FAT16, 3 FAT32
};

/// The link to a wireless network.
struct WifiLink {
    std::uint32_t state = 2;             ///< 1 not linked, 2 linked, 3 ad hoc
    std::string ssid = "Harbour";        ///< as the first text of the answer tells it
    std::string secondSsid = "Harbour";  ///< as the second text tells it
    std::uint32_t channel = 6;
    std::uint32_t encryption = 4;  ///< 0 none, 1 WEP, 2 TKIP, 4 AES
    std::int32_t rssi = 72;        ///< 0 and below: no signal
};

/// One wireless network in reach.
struct AccessPoint {
    std::string ssid;
    std::uint32_t channel = 1;
    std::uint32_t encryption = 4;  ///< as WifiLink::encryption
    std::int32_t rssi = 50;        ///< as WifiLink::rssi
};

/// What the user sets; resetting the settings puts everything here back to its default.
struct CameraSettings {
    WifiLink wifi;
};

/// Everything that the camera knows.
struct CameraState {
    Battery battery;
    SdCard sdCard;
    CameraSettings settings;
    std::vector<AccessPoint> accessPoints = {
        {"Harbour", 6, 4, 72}, {"Workshop", 1, 2, 48}, {"Guest", 11, 0, 23}};
};

}  // namespace nubo::simulator
