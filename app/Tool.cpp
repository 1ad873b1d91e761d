// SPDX-License-Identifier: MIT
#include "app/Tool.h"

#include <QObject>

#include <algorithm>
#include <array>

namespace {

struct stCountry {
    const char* code;
    const char* name;
};

constexpr std::array COUNTRIES{
    stCountry{"US", QT_TRANSLATE_NOOP("QObject", "United States")},
    stCountry{"JP", QT_TRANSLATE_NOOP("QObject", "Japan")},
    stCountry{"AU", QT_TRANSLATE_NOOP("QObject", "Australia")},
    stCountry{"EU", QT_TRANSLATE_NOOP("QObject", "Europe")},
};

}  // namespace

QString TOOL::codeToName(const QString& code) {
    const QString upper = code.toUpper();
    const auto found = std::ranges::find_if(COUNTRIES, [&upper](const stCountry& country) {
        return upper == QLatin1String(country.code);
    });
    return found == COUNTRIES.end() ? upper : QObject::tr(found->name);
}
