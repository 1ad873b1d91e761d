// SPDX-License-Identifier: MIT
#pragma once

#include "tests/app/RecordingCamera.h"
#include "tests/support/DialogControls.h"
#include "tests/support/WireText.h"

#include <QStringList>

#include <functional>

/// What a user does with one row of the basic settings page, and what it does on the wire.
struct stBasicSettingUse {
    const char* name;
    int row;            ///< of the page, from 0 on
    QStringList shown;  ///< see DialogControls::values(); without what follows the running clock
    std::function<void(const DialogControls&)> change;
    QStringList shownAgain;  ///< when the row is clicked once more
    QList<stReceivedCommand> reads;
    QList<stReceivedCommand> writes;
};

/// The command @p code with these arguments, in hexadecimal; what is not written out is 0.
inline stReceivedCommand wireCommand(int code, const QByteArray& arguments = {}) {
    constexpr qsizetype ARGUMENTS_SIZE = 20;
    return {code, wireBytes(arguments).leftJustified(ARGUMENTS_SIZE, '\0')};
}

/// One use of each row; of some rows more. The camera has the simulator's values at first.
inline QList<stBasicSettingUse> basicSettingUses() {
    using namespace Qt::StringLiterals;
    const QString nothing = u""_s;
    return {
        {"camera name",
         0,
         {u"Gull"_s},
         [](const DialogControls& dialog) { dialog.fill(0, u"Tern42"_s); },
         {u"Tern42"_s},
         {wireCommand(0x5030)},
         {wireCommand(0x5830, "06000000 5465726e3432 00000000 00000000 00000000")}},
        {"time zone",
         1,
         {u"Tokyo/Seoul/Yakutsk\nGMT+9:00"_s},
         [](const DialogControls& dialog) { dialog.choose(Qt::Key_Home); },
         {u"Eniwetok/Kwajalein\nGMT-12:00"_s},
         {wireCommand(0x5032)},
         {wireCommand(0x5832, "18000000")}},
        {"time",
         2,
         {},
         [](const DialogControls& dialog) {
             const QStringList fields{u"2031"_s, u"7"_s, u"8"_s, u"19"_s, u"10"_s, u"11"_s};
             for (int i = 0; i < fields.size(); ++i) {
                 dialog.fill(i, fields[i]);
             }
         },
         {u"2031"_s, u"7"_s, u"8"_s, u"19"_s, u"10"_s},
         {wireCommand(0x5031)},
         {wireCommand(0x5831, "b4ea3501 23ea0200")}},
        {"auto Wi-Fi off",
         3,
         {u"Time of auto Wi-Fi off"_s, u"5"_s},
         [](const DialogControls& dialog) { dialog.spin(0, u"7"_s); },
         {u"Time of auto Wi-Fi off"_s, u"7"_s},
         {wireCommand(0x5048)},
         {wireCommand(0x5848, "a4010000")}},
        {"no auto Wi-Fi off",
         3,
         {u"Time of auto Wi-Fi off"_s, u"5"_s},
         [](const DialogControls& dialog) { dialog.click(u"Not auto Wi-Fi off"_s); },
         {u"Not auto Wi-Fi off"_s, u"1"_s},
         {wireCommand(0x5048)},
         {wireCommand(0x5848)}},
        {"Wi-Fi country",
         4,
         {u"Japan"_s},
         [](const DialogControls& dialog) { dialog.choose(Qt::Key_End); },
         {u"Auto"_s},
         {wireCommand(0x5003), wireCommand(0x5041)},
         {wireCommand(0x5841, "04000000")}},
        {"auto power off",
         5,
         {u"Time of auto power off"_s, u"0"_s, u"10"_s, u"0"_s},
         [](const DialogControls& dialog) {
             dialog.spin(0, u"1"_s);
             dialog.spin(2, u"5"_s);
         },
         {u"Time of auto power off"_s, u"1"_s, u"10"_s, u"5"_s},
         {wireCommand(0x5038)},
         {wireCommand(0x5838, "6d100000")}},
        {"no auto power off",
         5,
         {u"Time of auto power off"_s, u"0"_s, u"10"_s, u"0"_s},
         [](const DialogControls& dialog) { dialog.click(u"Not auto power off"_s); },
         {u"Not auto power off"_s, u"0"_s, u"1"_s, u"0"_s},
         {wireCommand(0x5038)},
         {wireCommand(0x5838)}},
        {"LED",
         6,
         {u"Light"_s},
         [](const DialogControls& dialog) { dialog.click(u"Not light"_s); },
         {u"Not light"_s},
         {wireCommand(0x5033)},
         {wireCommand(0x5833, "01000000")}},
        {"GPS",
         7,
         {u"Use GPS"_s, u"Not save logs"_s, u"GGA+RMC"_s, u"Adjust time"_s},
         [](const DialogControls& dialog) {
             dialog.click(u"Save logs"_s);
             dialog.click(u"GGA+GLL+GSA+GSV+RMC+VTG+ZDA"_s);
             dialog.click(u"Not adjust time"_s);
         },
         {u"Use GPS"_s, u"Save logs"_s, u"GGA+GLL+GSA+GSV+RMC+VTG+ZDA"_s, u"Not adjust time"_s},
         {wireCommand(0x5021)},
         {wireCommand(0x5821, "02000000 02000000 01000000 02000000")}},
        {"authorization",
         8,
         {u"Not use authorization"_s, nothing, nothing, nothing},
         [](const DialogControls& dialog) {
             dialog.click(u"Use authorization"_s);
             dialog.fill(0, u"lantern"_s);
             dialog.fill(1, u"beacon!"_s);
             dialog.fill(2, u"beacon!"_s);
         },
         {u"Use authorization"_s, nothing, nothing, nothing},
         {wireCommand(0x5004), wireCommand(0x5005)},
         {wireCommand(0x5804, "02000000"),
          wireCommand(0x5805, "07000000 626561636f6e21 00000000 00000000 00000000")}},
        {"no authorization",
         8,
         {u"Not use authorization"_s, nothing, nothing, nothing},
         [](const DialogControls&) {},
         {u"Not use authorization"_s, nothing, nothing, nothing},
         {wireCommand(0x5004), wireCommand(0x5005)},
         {wireCommand(0x5804, "01000000"), wireCommand(0x5805)}},
        {"interval",
         9,
         {u"Not use interval timer"_s, u"0"_s, u"1"_s, u"0"_s, u"0"_s, u"0"_s, u"10"_s},
         [](const DialogControls& dialog) {
             dialog.click(u"Use interval timer"_s);
             dialog.spin(0, u"2"_s);
             dialog.spin(4, u"30"_s);
         },
         {u"Use interval timer"_s, u"2"_s, u"1"_s, u"0"_s, u"0"_s, u"30"_s, u"10"_s},
         {wireCommand(0x5011)},
         {wireCommand(0x5811, "02000000 12070000 5c1c0000")}},
        {"image quality",
         10,
         {u"2"_s},
         [](const DialogControls& dialog) { dialog.slide(Qt::Key_Right); },
         {u"3"_s},
         {wireCommand(0x5049)},
         {wireCommand(0x5849, "03000000")}},
    };
}
