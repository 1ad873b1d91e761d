// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/ClNuboCommand.h"

#include <QtGlobal>

/// A plain command of a fixed code: every command class of this page states only what is its own.
template <unsigned short Code>
class ClNuboPlainCommand : public ClNuboCommand {
public:
    static constexpr unsigned short CODE = Code;

    explicit ClNuboPlainCommand(unsigned int param1 = 0)
        : ClNuboCommand(Code, param1, 0, 0, 0, 0, 0, 0, PLAIN_LENGTH)
    {
    }
};

// Network and Wi-Fi
class ClNuboCommandGetWifiInfo        : public ClNuboPlainCommand<0x5001> {};
class ClNuboCommandGetAccesspointList : public ClNuboPlainCommand<0x5002> {};

// State: the battery answers its state in param1 and its charge in percent in param2
class ClNuboCommandGetBatteryState : public ClNuboPlainCommand<0x5037> {};

/// The SD card: sizes in KiB, the file system (1 FAT12, 2 FAT16, 3 FAT32) in param5.
class ClNuboCommandGetSdInfo : public ClNuboPlainCommand<0x5039> {
public:
    [[nodiscard]] quint64 getSdSize() const { return wide(1, 2); }
    [[nodiscard]] quint64 getSdUsedSize() const { return wide(3, 4); }

private:
    [[nodiscard]] quint64 wide(int high, int low) const
    {
        return quint64{param(high)} << 32 | param(low);
    }
};

// Actions
class ClNuboCommandRestart     : public ClNuboPlainCommand<0x6802> {};
class ClNuboCommandFormatSd    : public ClNuboPlainCommand<0x6803> {};
class ClNuboCommandInitSetting : public ClNuboPlainCommand<0x6804> {};
