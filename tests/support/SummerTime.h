// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDateTime>

#include <ctime>

/// A computer whose clocks, while this object lives, are set forward from 2 to 3 o'clock on 29
/// March 2026. The rule is spelled out: it does not depend on the zones that are installed.
class SummerTime {
public:
    SummerTime() { set("CET-1CEST,M3.5.0,M10.5.0/3"); }
    ~SummerTime() { set(m_former); }
    Q_DISABLE_COPY_MOVE(SummerTime)

    /// A time that does not exist here, but may well exist where the camera is.
    [[nodiscard]] static QDateTime skipped() { return {QDate(2026, 3, 29), QTime(2, 30, 5)}; }

private:
    static void set(const QByteArray& zone) {
        if (zone.isNull()) {
            qunsetenv("TZ");
        } else {
            qputenv("TZ", zone);
        }
        tzset();
    }

    QByteArray m_former = qgetenv("TZ");
};
