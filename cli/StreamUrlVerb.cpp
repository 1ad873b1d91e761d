// SPDX-License-Identifier: MIT
#include "cli/ClReport.h"
#include "cli/ClSession.h"
#include "cli/Verbs.h"
#include "settings/SettingTable.h"
#include "settings/SettingValue.h"

#include <QUrl>

namespace {

/// Reads @p row; false when the report knows why it cannot be read.
bool read(stRun& run, const stSetting& row, QVariant& value) {
    const unsigned short result = run.camera->settings().read(row, value);
    if (result != 0) {
        run.report.addError(toText(row.key), result);
    }
    return result == 0;
}

/// Where the camera is in its network; empty when only the network's DHCP server knows.
bool readHost(stRun& run, QString& host) {
    QVariant mode;
    if (!read(run, setting("wifi.mode"), mode)) {
        return false;
    }
    const bool isAdhoc = valueText(setting("wifi.mode"), mode) == QLatin1String("adhoc");
    QVariant usesDhcp = false;
    if (!isAdhoc && !read(run, setting("wifi.infrastructure.dhcp"), usesDhcp)) {
        return false;
    }
    if (usesDhcp.toBool()) {
        return true;
    }
    QVariant address;
    const bool isRead =
        read(run, isAdhoc ? setting("wifi.adhoc.address") : setting("wifi.infrastructure.address"),
             address);
    host = address.toString();
    return isRead;
}

}  // namespace

void runStreamUrl(stRun& run) {
    QString host = run.arguments.option("host");
    if (host.isEmpty() && !readHost(run, host)) {
        return;
    }
    if (host.isEmpty()) {
        run.report.fail({ExitCode::No,
                         QStringLiteral("the camera has its address by DHCP and does not tell it: "
                                        "name it with --host"),
                         {}});
        return;
    }
    QVariant port;
    QVariant isProtected;
    if (!read(run, setting("live.rtsp-port"), port) ||
        !read(run, setting("live.authorization"), isProtected)) {
        return;
    }
    QUrl url;
    url.setScheme(QStringLiteral("rtsp"));
    url.setHost(host);
    url.setPort(port.toInt());
    url.setPath(QStringLiteral("/"));
    if (isProtected.toBool() && run.arguments.has("show-secrets")) {
        QVariant password;
        if (!read(run, setting("live.password"), password)) {
            return;
        }
        url.setPassword(password.toString());
    }
    const QString text = url.toString(QUrl::FullyEncoded);
    run.report.addLine(text);
    run.report.addMember(QStringLiteral("url"), text);
    run.report.addMember(QStringLiteral("needsPassword"), isProtected.toBool());
}
