// SPDX-License-Identifier: MIT
#pragma once

#include "pages/common/WifiCodes.h"
#include "pages/network/ClWidgetNetworkSetting.h"
#include "pages/network/NetworkState.h"
#include "tests/app/BusBench.h"
#include "tests/support/NetworkUser.h"
#include "ui/ApBadges.h"
#include "ui/ClButtonApInfo.h"
#include "ui/ClLabelSsid.h"
#include "ui/ClWidgetApInfo.h"

#include <QScrollArea>

/// The commands of one refresh of the network page with its top sub-page, and those that show it
/// for the first time: SSID, Wi-Fi on/off, link, and the Wi-Fi mode.
inline const QList<int> NETWORK_REFRESH{0x503B, 0x5047, 0x5001};
inline const QList<int> NETWORK_FIRST = NETWORK_REFRESH + QList<int>{0x5003};

/// The program's window with the network page on show, on the bus, and a user before it.
class NetworkOnBusBench : public BusBench {
public:
    explicit NetworkOnBusBench(nubo::simulator::VirtualUsbBus& virtualBus)
        : BusBench(virtualBus),
          page(*window.findChild<ClWidgetNetworkSetting*>()),
          network(page) {}

    /// Has camera and program as at their first meeting, so that what shows has just been read, and
    /// shows the network page.
    [[nodiscard]] bool enter() {
        if (!settle()) {
            return false;
        }
        camera->setState({});
        g_bIsWifiON = false;
        g_ulWifiMode = WIFI_MODE_UNKNOWN;
        for (QLineEdit* edit : page.findChildren<QLineEdit*>()) {
            edit->clear();
        }
        for (QLabel* label : page.findChildren<ClLabelSsid*>()) {
            label->clear();
        }
        page.slotChangeTab(1);
        page.slotChangeTab(0);
        show();
        return QTest::qWaitFor([] { return g_ulWifiMode == WIFI_MODE_INFRASTRUCTURE; },
                               PATIENCE_MS) &&
               waitForLink("Harbour") && forget();
    }

    /// Shows the network page as a user does. It asks for nothing by itself until its top sub-page
    /// is shown again.
    void show() const {
        clickMode(2);
        page.slotStopPolling();
    }

    /// Whether the top sub-page soon shows the access point @p ssid.
    [[nodiscard]] bool waitForAccesspoint(const QString& ssid) const {
        return QTest::qWaitFor([&] { return selected().findChild<ClLabelSsid*>()->text() == ssid; },
                               PATIENCE_MS);
    }
    /// The same, with the mark that the camera is linked to it.
    [[nodiscard]] bool waitForLink(const char* ssid) const {
        return waitForAccesspoint(QString::fromLatin1(ssid)) && isLinked();
    }
    [[nodiscard]] bool isLinked() const {
        return !selected().findChild<ClLinkCheck*>()->pixmap().isNull();
    }
    [[nodiscard]] ClButtonApInfo& selected() const { return *page.findChild<ClButtonApInfo*>(); }
    /// Opens the search sub-page, and waits for its scan.
    [[nodiscard]] bool openSearch() const {
        const QWidget* former = area().widget();
        network.click(QStringLiteral("AP search and setting"));
        return QTest::qWaitFor([&] { return area().widget() != former; }, PATIENCE_MS) &&
               camera->commands() == plainCommands({0x5001, 0x5002});
    }
    /// The access points of the list, and what they say.
    [[nodiscard]] QList<ClWidgetApInfo*> rows() const {
        return area().widget()->findChildren<ClWidgetApInfo*>();
    }
    [[nodiscard]] QStringList listed() const {
        QStringList ssids;
        for (const ClWidgetApInfo* row : rows()) {
            ssids.append(row->findChild<ClLabelSsid*>()->text());
        }
        return ssids;
    }
    void select(const QString& ssid) const {
        QTest::mouseDClick(rows().value(listed().indexOf(ssid)), Qt::LeftButton);
    }
    [[nodiscard]] QScrollArea& area() const { return *page.findChild<QScrollArea*>(); }

    void openDhcp() const { QTest::mouseClick(&selected(), Qt::LeftButton); }

    /// The commands since forget() that change something in the camera, whole.
    [[nodiscard]] QList<QByteArray> written() const {
        QList<QByteArray> packets = camera->packets();
        packets.removeIf([](const QByteArray& packet) {
            constexpr int FIRST_WRITE = 0x5800;
            return static_cast<unsigned char>(packet.at(9)) < FIRST_WRITE / 0x100;
        });
        return packets;
    }
    bool forget() {
        camera->forgetCodes();
        return true;
    }

    ClWidgetNetworkSetting& page;
    NetworkUser network;
};
