// SPDX-License-Identifier: MIT
#include "protocol/CommandIdentifiers.h"
#include "protocol/NuboRecords.h"
#include "tests/catalogue/CataloguePackets.h"
#include "tests/catalogue/RouteRows.h"

namespace {

stRouteRow wifiInfo() {
    return {USB_REQ_NUBO_CMD_GET_WIFI_INFO,
            {},
            {writes(plainRequest("0150")), reads(plainAnswer("02000000")),
             reads("0000 <id> 1d000000 0000 0000 00000000 03000000 6e6574 02000000 6170"),
             reads(plainAnswer("00000000 06000000 04000000 fdffffff c4ffffff"))},
            USB_RES_NUBO_CMD_GET_WIFI_INFO,
            {2U, QStringLiteral("net"), QStringLiteral("ap"), 6U, 4U, -3, -60}};
}

stRouteRow accesspoints() {
    const AccesspointList list{{QStringLiteral("net"), QStringLiteral("x"), 11, 4, 7, 0xFFFFFFECU},
                               {QStringLiteral("caf\u00e9"), {}, 0, 1, 0, 0}};
    return {USB_REQ_NUBO_CMD_GET_ACCESSPOINT_LIST,
            {},
            {writes(plainRequest("0250")), reads(plainAnswer("02000000")),
             reads("0000 <id> 1c000000 0000 0000 01000000 03000000 6e6574 01000000 78"),
             reads(plainAnswer("01000000 0b000000 04000000 07000000 ecffffff")),
             reads("0000 <id> 1c000000 0000 0000 02000000 04000000 636166e9 00000000"),
             reads(plainAnswer("02000000 00000000 01000000 00000000 00000000"))},
            USB_RES_NUBO_CMD_GET_ACCESSPOINT_LIST,
            {QVariant::fromValue(list)}};
}

stRouteRow joins() {
    return {USB_NUBO_CMD_CONNECT_WIFI,
            {QStringLiteral("net"), QStringLiteral("secret")},
            {writes("0000 <id> 21000000 0768 0000 03000000 6e6574 06000000 736563726574 00000000"),
             reads(plainAnswer())},
            {},
            {}};
}

}  // namespace

// clang-format off
QList<stRouteRow> networkRows() {
    return {
        wifiInfo(),
        accesspoints(),
        gets(USB_REQ_NUBO_CMD_GET_WIFIMODE, "0350", "02000000", USB_RES_NUBO_CMD_GET_WIFIMODE, {2U}),
        sets(USB_NUBO_CMD_SET_WIFI_MODE, {1U}, "0358", "01000000"),
        gets(USB_REQ_NUBO_CMD_GET_STREAM_AUTHORIZATION_USE, "0450", "02000000", USB_RES_NUBO_CMD_GET_STREAM_AUTHORIZATION_USE, {true}),
        sets(USB_NUBO_CMD_SET_STREAM_AUTHORIZATION_USE, {false}, "0458", "01000000"),
        getsText(USB_REQ_NUBO_CMD_GET_STREAM_AUTHORIZATION_PASSWORD, "0550", "20000000", "04000000 70617373", USB_RES_NUBO_CMD_GET_STREAM_AUTHORIZATION_PASSWORD, QStringLiteral("pass")),
        setsText(USB_NUBO_CMD_SET_STREAM_AUTHORIZATION_PASSWORD, QStringLiteral("word"), "0558", "20000000", "04000000 776f7264"),
        gets(USB_REQ_NUBO_CMD_GET_ADHOC_ADDRESS, "0650", "0100a8c0", USB_RES_NUBO_CMD_GET_ADHOC_ADDRESS, {QStringLiteral("192.168.0.1")}),
        sets(USB_NUBO_CMD_SET_ADHOC_ADDRESS, {QStringLiteral("10.0.0.1")}, "0658", "0100000a"),
        gets(USB_REQ_NUBO_CMD_GET_ADHOC_SUBNETMASK, "0750", "00ffffff", USB_RES_NUBO_CMD_GET_ADHOC_SUBNETMASK, {QStringLiteral("255.255.255.0")}),
        sets(USB_NUBO_CMD_SET_ADHOC_SUBNETMASK, {QStringLiteral("255.255.0.0")}, "0758", "0000ffff"),
        gets(USB_REQ_NUBO_CMD_GET_INFRA_USE_DHCP, "0850", "01000000", USB_RES_NUBO_CMD_GET_INFRA_USE_DHCP, {false}),
        sets(USB_NUBO_CMD_SET_INFRA_USE_DHCP, {true}, "0858", "02000000"),
        gets(USB_REQ_NUBO_CMD_GET_INFRA_ADDRESS, "0950", "1401a8c0", USB_RES_NUBO_CMD_GET_INFRA_ADDRESS, {QStringLiteral("192.168.1.20")}),
        sets(USB_NUBO_CMD_SET_INFRA_ADDRESS, {QStringLiteral("172.16.254.3")}, "0958", "03fe10ac"),
        gets(USB_REQ_NUBO_CMD_GET_INFRA_SUBNETMASK, "0a50", "80ffffff", USB_RES_NUBO_CMD_GET_INFRA_SUBNETMASK, {QStringLiteral("255.255.255.128")}),
        sets(USB_NUBO_CMD_SET_INFRA_SUBNETMASK, {QStringLiteral("255.240.0.0")}, "0a58", "0000f0ff"),
        gets(USB_REQ_NUBO_CMD_GET_INFRA_GATEWAY, "0b50", "fe01a8c0", USB_RES_NUBO_CMD_GET_INFRA_GATEWAY, {QStringLiteral("192.168.1.254")}),
        sets(USB_NUBO_CMD_SET_INFRA_GATEWAY, {QStringLiteral("1.2.3.4")}, "0b58", "04030201"),
        getsText(USB_REQ_NUBO_CMD_GET_INFRA_SSID, "3b50", "20000000", "04000000 686f6d65", USB_RES_NUBO_CMD_GET_INFRA_SSID, QStringLiteral("home")),
        setsText(USB_NUBO_CMD_SET_INFRA_SSID, QStringLiteral("office"), "3b58", "22000000", "06000000 6f6666696365"),
        getsText(USB_REQ_NUBO_CMD_GET_INFRA_KEY, "3c50", "1f000000", "03000000 6b6579", USB_RES_NUBO_CMD_GET_INFRA_KEY, QStringLiteral("key")),
        setsText(USB_NUBO_CMD_SET_INFRA_KEY, QStringLiteral("12345678"), "3c58", "24000000", "08000000 3132333435363738"),
        gets(USB_REQ_NUBO_CMD_GET_WIFI_COUNTRY, "4150", "04000000", USB_RES_NUBO_CMD_GET_WIFI_COUNTRY, {4}),
        sets(USB_NUBO_CMD_SET_WIFI_COUNTRY, {3U}, "4158", "03000000"),
        gets(USB_REQ_NUBO_CMD_GET_ADHOC_SECURE, "4250", "ffffffff", USB_RES_NUBO_CMD_GET_ADHOC_SECURE, {-1}),
        sets(USB_NUBO_CMD_SET_ADHOC_SECURE, {2U}, "4258", "02000000"),
        gets(USB_REQ_NUBO_CMD_GET_RTSP_PORT, "4350", "2a020000", USB_RES_NUBO_CMD_GET_RTSP_PORT, {554}),
        sets(USB_NUBO_CMD_SET_RTSP_PORT, {8554U}, "4358", "6a210000"),
        getsText(USB_REQ_NUBO_CMD_GET_STUN_SERVER, "4450", "2c000000", "10000000 7374756e2e6578616d706c652e6f7267", USB_RES_NUBO_CMD_GET_STUN_SERVER, QStringLiteral("stun.example.org")),
        setsText(USB_NUBO_CMD_SET_STUN_SERVER, QStringLiteral("stun:3478"), "4458", "25000000", "09000000 7374756e3a33343738"),
        gets(USB_REQ_NUBO_CMD_GET_PRIMARY_DNS, "4550", "08080808", USB_RES_NUBO_CMD_GET_PRIMARY_DNS, {QStringLiteral("8.8.8.8")}),
        sets(USB_NUBO_CMD_SET_PRIMARY_DNS, {QStringLiteral("9.9.9.10")}, "4558", "0a090909"),
        gets(USB_REQ_NUBO_CMD_GET_SECONDARY_DNS, "4650", "04040808", USB_RES_NUBO_CMD_GET_SECONDARY_DNS, {QStringLiteral("8.8.4.4")}),
        sets(USB_NUBO_CMD_SET_SECONDARY_DNS, {QStringLiteral("149.112.112.9")}, "4658", "09707095"),
        gets(WifiOnOffRequest::USB_RES_NUBO_CMD_GET_WIFI_ONOFF, "4750", "02000000", USB_RES_NUBO_CMD_GET_WIFI_ONOFF, {true}),
        sets(USB_NUBO_CMD_SET_WIFI_ONOFF, {true}, "4758", "02000000"),
        gets(USB_REQ_NUBO_CMD_GET_AUTO_WIFIOFF, "4850", "2c010000", USB_RES_NUBO_CMD_GET_AUTO_WIFIOFF, {300U}),
        sets(USB_NUBO_CMD_SET_AUTO_WIFIOFF, {600U}, "4858", "58020000"),
        joins(),
        sets(USB_NUBO_CMD_WIFI_CHANGE, {2U}, "0868", "02000000"),
        sets(USB_NUBO_CMD_WIFI_SWITCH, {true}, "0968", "02000000"),
    };
}
// clang-format on
