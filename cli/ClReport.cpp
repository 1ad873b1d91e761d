// SPDX-License-Identifier: MIT
#include "cli/ClReport.h"

#include "cli/ClConsole.h"
#include "cli/ClSession.h"
#include "cli/ProfileText.h"
#include "protocol/ResultCodes.h"
#include "settings/SettingValue.h"
#include "settings/TableText.h"

#include <QJsonDocument>

namespace {

QString outcomeText(const stChangeReport& change) {
    switch (change.written) {
        case Written::Yes:
            return change.isVerified ? QString() : QStringLiteral(" (written, and not read back)");
        case Written::No:
            return QStringLiteral(" (not written)");
        case Written::Unknown:
            break;
    }
    return QStringLiteral(" (not known whether written)");
}

QString codeName(unsigned short code) {
    if (code == NOT_BEGUN) {
        return QStringLiteral("INTERRUPTED");
    }
    if (code == USB_NO_DEVICE) {
        return QStringLiteral("USB_NO_DEVICE");
    }
    return isTransportError(code) ? getUsberrorString(code) : getNuboCommanderrorString(code);
}

ExitCode exitOf(unsigned short code) {
    if (code == NOT_BEGUN) {
        return ExitCode::Interrupted;
    }
    return isTransportError(code) ? ExitCode::LinkFailed : ExitCode::Refused;
}

QString meaning(unsigned short code) {
    switch (code) {
        case NOT_BEGUN:
            return QStringLiteral("interrupted before this");
        case USB_NO_DEVICE:
            return QStringLiteral("the camera has gone");
        case USB_ERROR_TIMEOUT:
            return QStringLiteral("the camera does not answer");
        default:
            return isTransportError(code) ? QStringLiteral("the link failed")
                                          : QStringLiteral("the camera refuses");
    }
}

}  // namespace

QString resultText(const QString& what, unsigned short code) {
    const QString text = QStringLiteral("%1: %2").arg(what, meaning(code));
    return code == NOT_BEGUN ? text
                             : QStringLiteral("%1 (%2, 0x%3)")
                                   .arg(text, codeName(code), QString::number(code, 16).toUpper());
}

void ClReport::setIdentity(const QString& serial, const QString& firmware) {
    m_camera.serial = serial;
    m_camera.firmware = firmware;
}

QString ClReport::shown(const stSetting& setting, const QVariant& value) const {
    return setting.is(SECRET) && !m_showsSecrets ? QString::fromLatin1(HIDDEN_SECRET)
                                                 : profileValue(setting, value);
}

QJsonValue ClReport::shownJson(const stSetting& setting, const QVariant& value) const {
    return setting.is(SECRET) && !m_showsSecrets ? QJsonValue(QString::fromLatin1(HIDDEN_SECRET))
                                                 : valueJson(setting, value);
}

void ClReport::addSetting(const stSetting& setting, const QVariant& value) {
    addReading(setting, value,
               QStringLiteral("%1 = %2").arg(toText(setting.key), shown(setting, value)));
}

void ClReport::addReading(const stSetting& setting, const QVariant& value, const QString& line) {
    m_lines.append(line);
    m_settings.insert(toText(setting.key), shownJson(setting, value));
}

void ClReport::addChange(const stChangeReport& change) {
    const stSetting& setting = *change.setting;
    const QString what =
        QStringLiteral("%1: %2 -> %3")
            .arg(toText(setting.key), shown(setting, change.before), shown(setting, change.after));
    m_lines.append(what + outcomeText(change));
    if (change.written != Written::No) {
        m_hasActed = true;
        m_written.append(&setting);
    }
    m_changes.append(QJsonObject{
        {QStringLiteral("key"), toText(setting.key)},
        {QStringLiteral("old"), shownJson(setting, change.before)},
        {QStringLiteral("new"), shownJson(setting, change.after)},
        {QStringLiteral("written"),
         change.written == Written::Unknown ? QJsonValue() : change.written == Written::Yes},
        {QStringLiteral("verified"), change.isVerified}});
}

void ClReport::addError(const QString& what, unsigned short code) {
    const QString text = resultText(what, code);
    m_errors.append(QJsonObject{{QStringLiteral("key"), what},
                                {QStringLiteral("code"), code},
                                {QStringLiteral("name"), codeName(code)},
                                {QStringLiteral("message"), text}});
    m_errorLines.append(text);
    m_isLinkUp = m_isLinkUp && exitOf(code) == ExitCode::Refused;
    // What ends the run says more than what it went on after.
    if (!m_failure || !m_isLinkUp) {
        m_failure = {exitOf(code), text, {}};
    }
}

void ClReport::fail(const stFailure& failure) {
    m_errorLines.append(failure.message);
    if (!m_failure) {
        m_failure = failure;
    }
}

void ClReport::take(const ClReport& other) {
    m_errorLines += other.m_errorLines;
    for (const QJsonValue& error : other.m_errors) {
        m_errors.append(error);
    }
    m_isLinkUp = m_isLinkUp && other.m_isLinkUp;
    if (!m_failure) {
        m_failure = other.m_failure;
    }
}

ExitCode ClReport::exit() const {
    if (!m_failure) {
        return m_answer;
    }
    const bool isPart =
        m_hasActed && m_failure.exit != ExitCode::Interrupted && m_failure.exit != ExitCode::No;
    return isPart ? ExitCode::PartlyDone : m_failure.exit;
}

QString ClReport::text() const {
    return m_lines.isEmpty() ? QString() : m_lines.join(u'\n') + u'\n';
}

QJsonObject ClReport::json() const {
    QJsonObject object = m_members;
    object.insert(QStringLiteral("schema"), QString::fromLatin1(JSON_SCHEMA));
    if (m_hasCamera) {
        object.insert(QStringLiteral("camera"), cameraJson(m_camera));
    }
    if (!m_settings.isEmpty()) {
        object.insert(QStringLiteral("settings"), m_settings);
    }
    if (!m_changes.isEmpty()) {
        object.insert(QStringLiteral("changes"), m_changes);
    }
    if (!m_errors.isEmpty()) {
        object.insert(QStringLiteral("errors"), m_errors);
    }
    if (m_failure) {
        const stFailure failure{exit(), m_failure.message, m_failure.holder};
        object.insert(QStringLiteral("error"), failureJson(failure).value(QStringLiteral("error")));
    }
    return object;
}

QJsonValue textOrNull(const QString& text) {
    return text.isEmpty() ? QJsonValue() : QJsonValue(text);
}

QJsonObject cameraJson(const stCameraIdentity& camera) {
    return {{QStringLiteral("serial"), textOrNull(camera.serial)},
            {QStringLiteral("port"), camera.port},
            {QStringLiteral("bus"), camera.bus},
            {QStringLiteral("device"), camera.device},
            {QStringLiteral("firmware"), textOrNull(camera.firmware)}};
}

QJsonObject failureJson(const stFailure& failure) {
    return {{QStringLiteral("schema"), QString::fromLatin1(JSON_SCHEMA)},
            {QStringLiteral("error"),
             QJsonObject{{QStringLiteral("kind"), exitName(failure.exit)},
                         {QStringLiteral("exit"), static_cast<int>(failure.exit)},
                         {QStringLiteral("message"), failure.message},
                         {QStringLiteral("holder"), textOrNull(failure.holder)}}}};
}

void printJson(ClConsole& console, const QJsonObject& object) {
    console.printBytes(QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n');
}
