// SPDX-License-Identifier: MIT
#include "protocol/CommandIdentifiers.h"
#include "tests/catalogue/CataloguePackets.h"
#include "tests/catalogue/RouteRows.h"

#include <QDateTime>
#include <QImage>

namespace {

const QDateTime SPRING_MORNING(QDate(2014, 3, 9), QTime(7, 5, 1));

/// Four bytes in two packets, the first with a head.
Script fourBytes(const char* code) {
    return {writes(plainRequest(code)), reads(plainAnswer("04000000")),
            reads("0200 <id> 04000000 03000000 524946"), reads("46")};
}

stRouteRow picture() {
    return {USB_NUBO_CMD_REQ_JPEG,
            {},
            fourBytes("0130"),
            USB_CMD_RES_JPEG,
            {QImage()}};  // these four bytes are no picture
}

stRouteRow audio() {
    return {USB_NUBO_CMD_REQ_AUDIO, {}, fourBytes("0230"), USB_CMD_RES_AUDIO, {QByteArray("RIFF")}};
}

stRouteRow firmware() {
    return {USB_NUBO_CMD_EXEC_FWUPDATEDATA,
            {QByteArray("firm\0\xff", 6)},
            {writes(plainRequest("0120", "06000000")), writes("0200 <id> 06000000 6669726d 00ff"),
             reads(plainAnswer())},
            {},
            {}};
}

}  // namespace

// clang-format off
QList<stRouteRow> serviceRows() {
    return {
        sets(USB_NUBO_CMD_RF_TESTMODE, {1U, 2U, 3U, 4U, 0xFFFFFFFFU}, "0a68", "01000000 02000000 03000000 04000000 ffffffff"),
        orders(USB_NUBO_CMD_RF_START, "0b68"),
        orders(USB_NUBO_CMD_RF_END, "0c68"),
        getsText(USB_REQ_NUBO_CMD_GET_SERIALNO, "0140", "21000000", "05000000 4130303031", USB_RES_NUBO_CMD_GET_SERIALNO, QStringLiteral("A0001")),
        setsText(USB_NUBO_CMD_SET_SERIALNO, QStringLiteral("B7"), "0148", "1e000000", "02000000 4237"),
        getsText(USB_REQ_NUBO_CMD_GET_MACADDRESS, "0240", "2d000000", "11000000 30323a30303a35653a31303a30303a3031", USB_RES_NUBO_CMD_GET_MACADDRESS, QStringLiteral("02:00:5e:10:00:01")),
        getsText(USB_REQ_NUBO_CMD_GET_MACHINENAME, "0340", "20000000", "04000000 4e75426f", USB_RES_NUBO_CMD_GET_MACHINENAME, QStringLiteral("NuBo")),
        setsText(USB_NUBO_CMD_SET_MACHINENAME, QStringLiteral("NuBo2"), "0348", "21000000", "05000000 4e75426f32"),
        getsText(USB_REQ_NUBO_CMD_GET_SSID, "0440", "21000000", "05000000 6164686f63", USB_RES_NUBO_CMD_GET_SSID, QStringLiteral("adhoc")),
        setsText(USB_NUBO_CMD_SET_SSID, QStringLiteral("adhoc9"), "0448", "22000000", "06000000 6164686f6339"),
        getsText(USB_REQ_NUBO_CMD_GET_ADHOCKEY, "0540", "1e000000", "02000000 6b31", USB_RES_NUBO_CMD_GET_ADHOCKEY, QStringLiteral("k1")),
        setsText(USB_NUBO_CMD_SET_ADHOCKEY, QStringLiteral("k22"), "0548", "1f000000", "03000000 6b3232"),
        getsText(USB_REQ_NUBO_CMD_GET_LENSINFO, "0840", "21000000", "05000000 662f322e38", USB_RES_NUBO_CMD_GET_LENSINFO, QStringLiteral("f/2.8")),
        setsText(USB_NUBO_CMD_SET_LENSINFO, QStringLiteral("f/4"), "0848", "1f000000", "03000000 662f34"),
        getsText(USB_REQ_NUBO_CMD_GET_CREATEDAY, "0640", "2f000000", "13000000 323031342f30332f30392030373a30353a3031", USB_RES_NUBO_CMD_GET_CREATEDAY, SPRING_MORNING),
        setsText(USB_NUBO_CMD_SET_CREATEDAY, SPRING_MORNING, "0648", "2f000000", "13000000 323031342f30332f30392030373a30353a3031"),
        gets(USB_REQ_NUBO_CMD_GET_COUNTRY, "0740", "4a000000 50000000", USB_RES_NUBO_CMD_GET_COUNTRY, {QStringLiteral("JP")}),
        sets(USB_NUBO_CMD_SET_COUNTRY, {QStringLiteral("US")}, "0748", "55000000 53000000"),
        sets(USB_NUBO_CMD_EXEC_ALIGNMENT, {1U}, "2100", "01000000"),
        sets(USB_NUBO_CMD_EXEC_RESOLUTION, {2U}, "2200", "02000000"),
        sets(USB_NUBO_CMD_EXEC_VIGNETTING, {3U}, "2300", "03000000"),
        sets(USB_NUBO_CMD_EXEC_AWB, {4U}, "2400", "04000000"),
        sets(USB_NUBO_CMD_EXEC_DUST, {5U}, "2500", "05000000"),
        sets(USB_NUBO_CMD_EXEC_DOTERROR, {6U}, "2600", "06000000"),
        orders(USB_NUBO_CMD_EXEC_RAM, "2700"),
        orders(USB_NUBO_CMD_SAVE_RAWDATA, "3100"),
        orders(USB_NUBO_CMD_SAVE_YCDATA, "3200"),
        orders(USB_NUBO_CMD_SAVE_ADJUSTDATA, "3300"),
        sets(USB_NUBO_CMD_SET_ADJUSTFLAG, {0x12345678U}, "4100", "78563412"),
        gets(USB_REQ_NUBO_CMD_GET_ADJUSTFLAG, "4200", "78563412", USB_RES_NUBO_CMD_GET_ADJUSTFLAG, {0x12345678U}),
        picture(),
        audio(),
        firmware(),
        sets(USB_NUBO_CMD_EXEC_FWUPDATE, {true}, "0220", "02000000"),
    };
}
// clang-format on
