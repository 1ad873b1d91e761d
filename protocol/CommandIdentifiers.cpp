// SPDX-License-Identifier: MIT
#include "protocol/CommandIdentifiers.h"

#include "protocol/AllDistinct.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array IDENTIFIERS{
#define NUBO_IDENTIFIER(NAME, ...) stCommandIdentifier{NAME, #NAME},
#define NUBO_SHARED_IDENTIFIER(NAMESPACE, NAME, ...) stCommandIdentifier{NAMESPACE::NAME, #NAME},
#include "protocol/CommandIdentifiers.inc"
#undef NUBO_SHARED_IDENTIFIER
#undef NUBO_IDENTIFIER
};

static_assert(allDistinct(IDENTIFIERS, &stCommandIdentifier::uuid),
              "two command identifiers have the same UUID");

}  // namespace

std::span<const stCommandIdentifier> commandIdentifiers() {
    return IDENTIFIERS;
}

QString getUsbCommand(const QUuid& command) {
    const auto found = std::ranges::find(IDENTIFIERS, command, &stCommandIdentifier::uuid);
    if (found == IDENTIFIERS.end()) {
        return QLatin1String("Unknown:") + command.toString();
    }
    return QString::fromLatin1(found->name);
}
