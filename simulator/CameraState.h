// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/CameraClock.h"
#include "simulator/DefaultPicture.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
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
    std::string ssid = "Harbour";        ///< the first text of the answer
    std::string secondSsid = "Harbour";  ///< the second text
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

constexpr std::uint32_t OFF = 1;
constexpr std::uint32_t ON = 2;
/// What a switch is called in text.
constexpr std::string_view SWITCH_TEXT = "on or off";

inline std::string switchToText(std::uint32_t value) {
    return value == ON ? "on" : "off";
}

/// Nothing, when the text is neither.
inline std::optional<std::uint32_t> switchFromText(std::string_view text) {
    if (text == "on") {
        return ON;
    }
    return text == "off" ? std::optional(OFF) : std::nullopt;
}

/// What the user sets; resetting the settings puts everything here back to its default. On/off
/// values are OFF and ON, addresses have their first octet on top.
struct CameraSettings {
    WifiLink wifi;
    std::uint32_t wifiOn = ON;
    std::uint32_t wifiMode = 1;  ///< 1 infrastructure, 2 ad hoc
    std::uint32_t wifiCountry = 1;
    std::uint32_t autoWifiOff = 300;  ///< seconds, 0 never
    std::uint32_t streamAuthorization = OFF;
    std::string streamPassword = "lantern";
    std::uint32_t adhocAddress = 0xC0A80A01;
    std::uint32_t adhocSubnetMask = 0xFFFFFF00;
    std::uint32_t adhocSecure = 1;
    std::uint32_t infraUseDhcp = ON;
    std::uint32_t infraAddress = 0xC0A80014;
    std::uint32_t infraSubnetMask = 0xFFFFFF00;
    std::uint32_t infraGateway = 0xC0A80001;
    std::uint32_t primaryDns = 0xC0A80001;
    std::uint32_t secondaryDns = 0;
    std::string infraSsid = "Harbour";
    std::string infraKey = "breakwater";
    std::uint32_t rtspPort = 554;
    std::string stunServer = "stun.example.net";
    std::uint32_t recording = OFF;
    std::uint32_t recordingSize = 2;  ///< 1 1920x1080, 2 1280x720, 3 640x480
    std::uint32_t recordingRate = 30;
    std::uint32_t liveSize = 1;  ///< 1 800x480, 2 320x240
    std::uint32_t liveRate = 15;
    std::uint32_t imageQuality = 2;
    std::uint32_t intervalUse = OFF;
    std::uint32_t intervalDelay = 10;   ///< seconds until the first picture
    std::uint32_t intervalPeriod = 60;  ///< seconds between two pictures
    std::uint32_t gpsUse = ON;
    std::uint32_t gpsSaveLogs = OFF;
    std::uint32_t gpsAdjustTime = ON;
    std::uint32_t gpsLogFormat = 1;  ///< 1 the short set of sentences, 2 the full one
    std::string cameraName = "Gull";
    std::uint32_t timeZone = 9;  ///< hours east of Greenwich; above 12: 12 and the hours west
    std::uint32_t ledStart = ON;
    std::uint32_t led = ON;
    std::uint32_t optimizer = OFF;
    std::uint32_t autoPowerOff = 600;  ///< seconds, 0 never
};

/// What the factory wrote; no reset changes it.
struct CameraIdentity {
    std::string serialNumber = "SIM0001";
    std::string macAddress = "02:00:5E:10:00:01";
    std::string machineName = "NuBo";
    std::string ssid = "NuBo-0001";
    std::string adhocKey = "simulated";
    std::string createDay = "2014/03/09 07:05:01";
    std::string country = "JP";
    std::string lens = "F2.8";
    std::string firmwareVersion = "1.00";
    std::uint32_t adjustFlag = 0;
};

/// What the camera measures of itself and of where it is; no command changes it.
struct CameraReadings {
    std::uint32_t eState = OFF;
    std::string gpsInfo = "$GPGGA,070501,3541.2,N,13942.1,E,1,07";
    std::uint32_t gpsNumber = 7;
};

/// How the camera behaves; no command reads or changes it.
struct CameraBehaviour {
    /// The version with which the camera comes back once the firmware has been applied. While it is
    /// empty, the camera stays on the bus and keeps its version.
    std::string nextFirmware = {};
    bool isUpdating = false;  ///< the firmware has been applied, and the camera is to come back
    std::uint32_t restartAfterReset = OFF;
    std::uint32_t answerDelay = 0;  ///< milliseconds from each command to its answer
};

using ByteVector = std::vector<std::uint8_t>;
using SharedBytes = std::shared_ptr<const ByteVector>;

/// Bytes that go over in a data phase. Never null.
struct CameraData {
    SharedBytes picture =
        std::make_shared<const ByteVector>(defaultPicture().begin(), defaultPicture().end());
    SharedBytes audio = std::make_shared<const ByteVector>();
    SharedBytes firmware = std::make_shared<const ByteVector>();  ///< the image that came last
};

/// Everything that the camera knows.
struct CameraState {
    Battery battery;
    SdCard sdCard;
    CameraSettings settings;
    CameraIdentity identity;
    CameraReadings readings;
    CameraBehaviour behaviour;
    CameraClock clock;
    CameraData data;
    std::vector<AccessPoint> accessPoints = {
        {"Harbour", 6, 4, 72},
        {"Workshop", 1, 2, 48},
        {"Guest", 11, 0, 23},
        {"Old radio", 3, 1, 35},
        {"", 9, 4, 41},
        {"Lighthouse-Keeper-Upper-Deck-2G4", 13, 4, 64},
        {"Caf\xE9 am Gro\xDFmarkt", 4, 4, 30},
    };
};

}  // namespace nubo::simulator
