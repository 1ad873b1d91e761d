// SPDX-License-Identifier: MIT
#include "settings/ClSettingAccess.h"

#include "protocol/CommandRoutes.h"
#include "protocol/ResultCodes.h"
#include "settings/CameraClock.h"
#include "settings/SettingTable.h"

#include <limits>

namespace {

/// KiB of the wire in bytes, as far as they can be told.
qint64 bytes(quint64 kibibytes) {
    constexpr quint64 MOST = std::numeric_limits<qint64>::max();
    constexpr quint64 BYTES_PER_KIBIBYTE = 1024;
    return static_cast<qint64>(
        kibibytes > MOST / BYTES_PER_KIBIBYTE ? MOST : kibibytes * BYTES_PER_KIBIBYTE);
}

QVariant valueAt(const VX_CMD& answer, int place) {
    return answer.value(Key::VALUES[place]);
}

QVariant capacity(const VX_CMD& answer, int place) {
    if (place != PLACE_OF_REST) {
        return bytes(valueAt(answer, place).toULongLong());
    }
    const quint64 total = valueAt(answer, 0).toULongLong();
    const quint64 used = valueAt(answer, 1).toULongLong();
    return bytes(total > used ? total - used : 0);
}

/// What the message carries, in the type of the setting's kind.
QVariant valueOf(const stSetting& setting, const VX_CMD& answer) {
    if (setting.kind == SettingKind::Capacity) {
        return capacity(answer, setting.place);
    }
    const QVariant value = valueAt(answer, setting.place);
    switch (setting.kind) {
        case SettingKind::Number:
        case SettingKind::Duration:
        case SettingKind::TimeZone:
            return value.toLongLong();
        case SettingKind::Choice:
            return value.typeId() == QMetaType::QSize ? value : QVariant(value.toLongLong());
        case SettingKind::Clock:
            return cameraClock(value.toDateTime());
        default:
            return value;
    }
}

unsigned short codeOf(const QUuid& request) {
    const stRoute* const route = commandRoute(request);
    return route == nullptr ? 0 : route->code;
}

}  // namespace

unsigned short ClSettingAccess::readExchange(const stSettingExchange& exchange, VX_CMD& answer) {
    if (const auto known = m_answers.constFind(exchange.request); known != m_answers.cend()) {
        answer = *known;
        return USB_ERROR_SUCCESS;
    }
    stRequest request{{}, nullptr, m_camera};
    const unsigned short result = commandRoute(exchange.request)->run(request);
    if (result == USB_ERROR_SUCCESS) {
        answer = m_answers[exchange.request] = request.message;
    }
    return result;
}

unsigned short ClSettingAccess::read(const stSetting& setting, QVariant& value) {
    VX_CMD answer;
    const unsigned short result = readExchange(setting.exchange, answer);
    if (result == USB_ERROR_SUCCESS) {
        value = valueOf(setting, answer);
    }
    return result;
}

unsigned short ClSettingAccess::write(std::span<const stSettingChange> changes) {
    const stSettingExchange& exchange = changes.front().setting->exchange;
    stRequest request{{}, nullptr, m_camera};
    const bool isShared = std::ranges::any_of(settings(), [&](const stSetting& other) {
        return other.exchange.request == exchange.request && other.place != 0;
    });
    if (isShared) {
        if (const unsigned short result = readExchange(exchange, request.message);
            result != USB_ERROR_SUCCESS) {
            return result;
        }
    }
    for (const stSettingChange& change : changes) {
        request.message[Key::VALUES[change.setting->place]] = change.value;
    }
    m_answers.remove(exchange.request);
    return commandRoute(exchange.write)->run(request);
}

unsigned short getCode(const stSetting& setting) {
    return codeOf(setting.exchange.request);
}

unsigned short setCode(const stSetting& setting) {
    return codeOf(setting.exchange.write);
}
