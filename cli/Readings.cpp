// SPDX-License-Identifier: MIT
#include "cli/Readings.h"

#include "cli/ClReport.h"
#include "cli/ClSession.h"
#include "cli/Verb.h"
#include "settings/SettingValue.h"

#include <QLocale>

namespace {

QString readable(const stSetting& row, const QVariant& value) {
    if (row.kind == SettingKind::Capacity) {
        return QLocale::c().formattedDataSize(value.toLongLong());
    }
    const QString text = valueText(row, value);
    return row.unit.empty() ? text : text + u' ' + toText(row.unit);
}

}  // namespace

void tellReadings(ClSession& camera, ClReport& report, std::span<const stSetting* const> rows) {
    constexpr int WIDTH = 18;
    for (const stSetting* const row : rows) {
        QVariant value;
        const unsigned short result = camera.settings().read(*row, value);
        if (result == 0) {
            report.addReading(*row, value,
                              toText(row->key).leftJustified(WIDTH) + readable(*row, value));
        } else {
            report.addError(toText(row->key), result);
        }
        if (!report.isLinkUp()) {
            return;
        }
    }
}
