// SPDX-License-Identifier: MIT
#pragma once

#include "cli/ExitCode.h"
#include "settings/Setting.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

class ClConsole;

/// Which camera a report is of.
struct stCameraIdentity {
    QString serial{};  ///< empty while unknown
    QString port{};
    int bus = 0;
    int device = 0;
    QString firmware{};  ///< empty while unknown

    [[nodiscard]] QString name() const { return serial.isEmpty() ? port : serial; }
};

/// Whether a value went into the camera. Nobody knows when the link failed over it.
enum class Written { No, Yes, Unknown };

/// What became of a value that was to be set.
struct stChangeReport {
    const stSetting* setting = nullptr;
    QVariant before{};
    QVariant after{};
    Written written = Written::No;
    bool isVerified = false;  ///< read back, and equal
};

/// What a verb has to tell of one camera, for people and for programs. One thread.
class ClReport {
public:
    ClReport() = default;
    ClReport(const stCameraIdentity& camera, bool showsSecrets)
        : m_camera(camera),
          m_hasCamera(true),
          m_showsSecrets(showsSecrets) {}

    [[nodiscard]] const stCameraIdentity& camera() const { return m_camera; }
    void setIdentity(const QString& serial, const QString& firmware);

    /// "key = value", as a profile has it.
    void addSetting(const stSetting& setting, const QVariant& value);
    /// A value that people see as @p line.
    void addReading(const stSetting& setting, const QVariant& value, const QString& line);
    void addChange(const stChangeReport& change);
    /// A line for people alone.
    void addLine(const QString& line) { m_lines.append(line); }
    /// A member for programs alone, beside the usual ones.
    void addMember(const QString& name, const QJsonValue& value) { m_members.insert(name, value); }

    /// A command failed with @p code: 0xEF00 to 0xEF05, the camera's own, or NOT_BEGUN. @p what is
    /// the key, or what was tried.
    void addError(const QString& what, unsigned short code);
    /// Something else went wrong; the first failure is the one that counts.
    void fail(const stFailure& failure);
    /// Takes over the errors of another report of the camera.
    void take(const ClReport& other);
    /// The exit code when nothing fails: Done unless set.
    void setAnswer(ExitCode answer) { m_answer = answer; }
    /// The verb has written its results by itself: nothing more goes to standard output, but the
    /// object of a failure.
    void setIsTold() { m_isTold = true; }
    [[nodiscard]] bool isTold() const { return m_isTold; }
    /// Whether anything was changed before a failure: then the end is PartlyDone.
    void setHasActed() { m_hasActed = true; }

    [[nodiscard]] bool hasActed() const { return m_hasActed; }
    /// Whether the value was written, or may have been.
    [[nodiscard]] bool mayHaveWritten(const stSetting& setting) const {
        return m_written.contains(&setting);
    }
    [[nodiscard]] bool hasFailed() const { return static_cast<bool>(m_failure); }
    /// Whether to go on with other commands: not after a failed link or a wish to end.
    [[nodiscard]] bool isLinkUp() const { return m_isLinkUp; }
    [[nodiscard]] ExitCode exit() const;

    [[nodiscard]] QString text() const;                                ///< for standard output
    [[nodiscard]] QStringList errors() const { return m_errorLines; }  ///< for standard error
    [[nodiscard]] QJsonObject json() const;

    /// @p value as it is shown: a secret only when it was asked for.
    [[nodiscard]] QString shown(const stSetting& setting, const QVariant& value) const;
    [[nodiscard]] QJsonValue shownJson(const stSetting& setting, const QVariant& value) const;

private:
    stCameraIdentity m_camera;
    bool m_hasCamera = false;
    bool m_showsSecrets = false;
    QStringList m_lines;
    QStringList m_errorLines;
    QJsonObject m_settings;
    QJsonArray m_changes;
    QJsonArray m_errors;
    QJsonObject m_members;
    stFailure m_failure;
    ExitCode m_answer = ExitCode::Done;
    QList<const stSetting*> m_written;
    bool m_hasActed = false;
    bool m_isLinkUp = true;
    bool m_isTold = false;
};

/// The name of JSON's form in every object.
inline constexpr auto JSON_SCHEMA = "nubo/1";

/// JSON's null for an empty text.
[[nodiscard]] QJsonValue textOrNull(const QString& text);

/// @p camera as reports name it.
[[nodiscard]] QJsonObject cameraJson(const stCameraIdentity& camera);

/// A run that ended with @p failure before its verb could do its work.
[[nodiscard]] QJsonObject failureJson(const stFailure& failure);

/// A line of standard output.
void printJson(ClConsole& console, const QJsonObject& object);

/// What a result code means, with its name and number. @p what failed.
[[nodiscard]] QString resultText(const QString& what, unsigned short code);
