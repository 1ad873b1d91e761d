// SPDX-License-Identifier: MIT
#include "fuzz/FuzzedRequest.h"

#include "protocol/CommandIdentifiers.h"
#include "protocol/CommandRoutes.h"

#include <QDateTime>
#include <QSize>

#include <algorithm>

namespace {

enum Controller { LIVE, NONE, NULL_POINTER, GONE, TEXT, CONTROLLERS };

QUuid identifier(quint16 number) {
    const auto routes = commandRoutes();
    const auto route = std::ranges::find(routes, number, &stRoute::code);
    if (route != routes.end()) {
        return route->request;
    }
    // One place more than there are identifiers, for one that nobody knows.
    const auto identifiers = commandIdentifiers();
    const std::size_t place = number % (identifiers.size() + 1);
    return place < identifiers.size() ? identifiers[place].uuid : QUuid();
}

QVariant controller(int kind, void* liveController) {
    static char gone;
    switch (kind) {
        case LIVE:
            return QVariant::fromValue(liveController);
        case NULL_POINTER:
            return QVariant::fromValue<void*>(nullptr);
        case GONE:
            return QVariant::fromValue<void*>(&gone);
        case TEXT:
            return QStringLiteral("camera");
        default:
            return {};
    }
}

QVariant argument(int kind, const QByteArray& bytes) {
    FuzzInput parts(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                    static_cast<std::size_t>(bytes.size()));
    switch (kind) {
        case 1:
            return parts.number<quint32>();
        case 2:
            return (parts.number<quint8>() & 1) != 0;
        case 3:
            return QString::fromUtf8(bytes);
        case 4: {
            const auto width = parts.number<quint16>();
            return QSize(width, parts.number<quint16>());
        }
        case 5:
            return QDateTime::fromMSecsSinceEpoch(parts.number<qint64>(), Qt::UTC);
        case 6:
            return bytes;
        default:
            return {};
    }
}

}  // namespace

VX_CMD fuzzedRequest(FuzzInput& input, void* liveController) {
    VX_CMD request{{Key::CMD, identifier(input.number<quint16>())},
                   {Key::SENDER, QVariant::fromValue<QObject*>(nullptr)}};
    const int controllerKind = input.number<quint8>() % CONTROLLERS;
    if (controllerKind != NONE) {
        request.insert(Key::PARAM1, controller(controllerKind, liveController));
    }
    const int argumentKind = input.number<quint8>() % 7;
    const QVariant value = argument(argumentKind, input.bytes(input.number<quint8>()));
    if (value.isValid()) {
        for (const QString& key : Key::VALUES) {
            request.insert(key, value);
        }
    }
    return request;
}
