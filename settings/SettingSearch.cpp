// SPDX-License-Identifier: MIT
#include "settings/SettingSearch.h"

#include "settings/SettingTable.h"
#include "settings/TableText.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <numeric>
#include <vector>

namespace {

/// How many letters must be put in, left out or replaced to make one word of the other.
int distance(const QString& from, const QString& to) {
    std::vector<int> row(static_cast<std::size_t>(to.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    for (const QChar letter : from) {
        int diagonal = row[0]++;
        for (std::size_t i = 1; i < row.size(); ++i) {
            const int replaced = diagonal + (letter == to[static_cast<qsizetype>(i) - 1] ? 0 : 1);
            diagonal = row[i];
            row[i] = std::min({row[i] + 1, row[i - 1] + 1, replaced});
        }
    }
    return row.back();
}

/// A glob as a regular expression: '*' for any characters, '?' for one. All others are themselves.
QString globPattern(const QString& glob) {
    QString pattern = QRegularExpression::escape(glob);
    pattern.replace(QLatin1String("\\*"), QLatin1String(".*"));
    pattern.replace(QLatin1String("\\?"), QLatin1String("."));
    return QRegularExpression::anchoredPattern(pattern);
}

}  // namespace

QList<const stSetting*> matchingSettings(const QString& pattern) {
    const bool isGlob = pattern.contains(u'*') || pattern.contains(u'?');
    const QRegularExpression glob(isGlob ? globPattern(pattern) : QString());
    QList<const stSetting*> found;
    for (const stSetting& setting : settings()) {
        const QString key = toText(setting.key);
        if (isGlob ? glob.match(key).hasMatch()
                   : key == pattern || key.startsWith(pattern + u'.')) {
            found.append(&setting);
        }
    }
    return found;
}

QString closestWord(const QString& word, const QStringList& known) {
    constexpr int LEAST_TOLERANCE = 2;
    const int tolerance = std::max<int>(LEAST_TOLERANCE, static_cast<int>(word.size()) / 4);
    QString closest;
    int least = tolerance + 1;
    for (const QString& candidate : known) {
        // The last part alone is what people remember of a key.
        const QString lastPart = candidate.section(u'.', -1);
        const int away = std::min(distance(word, candidate), distance(word, lastPart) + 1);
        if (away < least) {
            least = away;
            closest = candidate;
        }
    }
    return closest;
}

QString noSuchSetting(const QString& key) {
    QStringList known;
    for (const stSetting& setting : settings()) {
        known.append(toText(setting.key));
    }
    const QString closest = closestWord(key, known);
    const QString text = QStringLiteral("no setting \"%1\"").arg(key);
    return closest.isEmpty() ? text + QStringLiteral("; \"nuboctl describe\" lists them")
                             : text + QStringLiteral("; did you mean %1?").arg(closest);
}
