// SPDX-License-Identifier: MIT
#include "protocol/CommandIdentifiers.h"
#include "tests/catalogue/CataloguePackets.h"
#include "tests/catalogue/RouteRows.h"

#include <QDateTime>
#include <QSize>

namespace {

const QDateTime SPRING_MORNING(QDate(2014, 3, 9), QTime(7, 5, 1));
const QDateTime LEAP_DAY(QDate(2016, 2, 29), QTime(23, 59, 59));

/// A text, and a number in the parameter behind it.
stRouteRow gpsInfo() {
    return {USB_REQ_NUBO_CMD_GET_GPSINFO,
            {},
            {writes(plainRequest("2050")),
             reads(textAnswer("22000000", "06000000 244750474741", "03000000"))},
            USB_RES_NUBO_CMD_GET_GPSINFO,
            {QStringLiteral("$GPGGA"), 3U}};
}

}  // namespace

// clang-format off
QList<stRouteRow> recordingRows() {
    return {
        gets(USB_REQ_NUBO_CMD_IS_REC, "1050", "02000000", USB_RES_NUBO_CMD_IS_REC, {2U}),
        gets(USB_REQ_NUBO_CMD_GET_INTERVAL_INFO, "1150", "02000000 8d0e0000 3c000000", USB_RES_NUBO_CMD_GET_INTERVAL_INFO, {true, 3725U, 60U}),
        sets(USB_NUBO_CMD_SET_INTERVAL_INFO, {false, 10U, 259200U}, "1158", "01000000 0a000000 80f40300"),
        gets(USB_REQ_NUBO_CMD_GET_REC_IMAGESIZE, "1250", "01000000", USB_RES_NUBO_CMD_GET_REC_IMAGESIZE, {QSize(1920, 1080)}),
        sets(USB_NUBO_CMD_SET_REC_IMAGESIZE, {QSize(1280, 720)}, "1258", "02000000"),
        gets(USB_REQ_NUBO_CMD_GET_REC_FRAMERATE, "1350", "1e000000", USB_RES_NUBO_CMD_GET_REC_FRAMERATE, {30U}),
        sets(USB_NUBO_CMD_SET_REC_FRAMERATE, {15U}, "1358", "0f000000"),
        gets(USB_REQ_NUBO_CMD_GET_LIVE_IMAGESIZE, "1450", "02000000", USB_RES_NUBO_CMD_GET_LIVE_IMAGESIZE, {QSize(320, 240)}),
        sets(USB_NUBO_CMD_SET_LIVE_IMAGESIZE, {QSize(800, 480)}, "1458", "01000000"),
        gets(USB_REQ_NUBO_CMD_GET_LIVE_FRAMERATE, "1550", "06000000", USB_RES_NUBO_CMD_GET_LIVE_FRAMERATE, {6U}),
        sets(USB_NUBO_CMD_SET_LIVE_FRAMERATE, {1U}, "1558", "01000000"),
        gets(USB_REQ_NUBO_CMD_GET_IMAGE_QUARITY, "4950", "04000000", USB_RES_NUBO_CMD_GET_IMAGE_QUARITY, {4U}),
        sets(USB_NUBO_CMD_SET_IMAGE_QUARITY, {0U}, "4958", "00000000"),
        sets(USB_NUBO_CMD_CTRL_REC, {true}, "0568", "02000000"),
        orders(USB_NUBO_CMD_CAPTURE, "0668"),
    };
}

QList<stRouteRow> cameraRows() {
    return {
        gpsInfo(),
        gets(USB_REQ_NUBO_CMD_GET_GPSSETTING, "2150", "02000000 01000000 02000000 01000000", USB_RES_NUBO_CMD_GET_GPSSETTING, {true, false, true, 1U}),
        sets(USB_NUBO_CMD_SET_GPSSETTING, {false, true, true, 2U}, "2158", "01000000 02000000 02000000 02000000"),
        getsText(USB_REQ_NUBO_CMD_GET_CAMERANAME, "3050", "22000000", "06000000 4e75426f3031", USB_RES_NUBO_CMD_GET_CAMERANAME, QStringLiteral("NuBo01")),
        setsText(USB_NUBO_CMD_SET_CAMERANAME, QStringLiteral("cam"), "3058", "1f000000", "03000000 63616d"),
        gets(USB_REQ_NUBO_CMD_GET_TIME, "3150", "15513301 65130100", USB_RES_NUBO_CMD_GET_TIME, {SPRING_MORNING}),
        sets(USB_NUBO_CMD_SET_TIME, {LEAP_DAY}, "3158", "e59e3301 b7990300"),
        gets(USB_REQ_NUBO_CMD_GET_TIMEZONE, "3250", "15000000", USB_RES_NUBO_CMD_GET_TIMEZONE, {21U}),
        sets(USB_NUBO_CMD_SET_TIMEZONE, {9U}, "3258", "09000000"),
        gets(USB_REQ_NUBO_CMD_GET_LED_START, "3350", "01000000", USB_RES_NUBO_CMD_GET_LED_START, {false}),
        sets(USB_NUBO_CMD_SET_LED_START, {true}, "3358", "02000000"),
        gets(USB_REQ_NUBO_CMD_GET_LED, "3450", "02000000", USB_RES_NUBO_CMD_GET_LED, {true}),
        sets(USB_NUBO_CMD_SET_LED, {false}, "3458", "01000000"),
        gets(USB_REQ_NUBO_CMD_GET_OPTIMIZER, "3550", "02000000", USB_RES_NUBO_CMD_GET_OPTIMIZER, {true}),
        sets(USB_NUBO_CMD_SET_OPTIMIZER, {true}, "3558", "02000000"),
        gets(USB_REQ_NUBO_CMD_GET_ESTATE, "3650", "02000000", USB_RES_NUBO_CMD_GET_ESTATE, {true}),
        gets(USB_REQ_NUBO_CMD_GET_BATTERY, "3750", "02000000 4b000000", USB_RES_NUBO_CMD_GET_BATTERY, {2U, 75U}),
        gets(USB_REQ_NUBO_CMD_GET_AUTO_POWEROFF, "3850", "8d0e0000", USB_RES_NUBO_CMD_GET_AUTO_POWEROFF, {3725U}),
        sets(USB_NUBO_CMD_SET_AUTO_POWEROFF, {60U}, "3858", "3c000000"),
        gets(USB_REQ_NUBO_CMD_GET_SDINFO, "3950", "01000000 02000000 03000000 04000000 05000000", USB_RES_NUBO_CMD_GET_SDINFO, {Q_UINT64_C(0x100000002), Q_UINT64_C(0x300000004), 5U}),
        getsText(USB_REQ_NUBO_CMD_GET_FWVERSION, "3a50", "20000000", "04000000 312e3032", USB_RES_NUBO_CMD_GET_FWVERSION, QStringLiteral("1.02")),
        orders(USB_NUBO_CMD_POWEROFF, "0168"),
        orders(USB_NUBO_CMD_RESTART, "0268"),
        orders(USB_NUBO_CMD_FORMAT_SD, "0368"),
        orders(USB_NUBO_CMD_INIT_SETTING, "0468"),
    };
}
// clang-format on
