// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

class QSharedMemory;

/// Single-instance guard: holds a shared-memory segment under a key for as long as it lives.
class ClAppCheck : public QObject {
    Q_OBJECT

public:
    /// The result of a check.
    enum emEXIST : int {
        Alone = 0,             ///< no other instance; the start may go on
        Running = 1,           ///< the key is held
        RunningElsewhere = 2,  ///< held by another user
        Unavailable = 3,       ///< the guard could not be set up
    };

    /// @p appName stands in the messages; an empty one means the application's name.
    explicit ClAppCheck(const QString& appName, QObject* parent = nullptr);

    /// Tries to become the holder of @p key. @return Alone, or Running when that failed for any
    /// reason. A segment that a crashed holder left behind does not count as held.
    [[nodiscard]] virtual emEXIST doIExist(QString key);
    /// The same with a key that a family of related programs shares.
    [[nodiscard]] virtual emEXIST doIExistXRK();

    /// The message for @p e in the language of the default locale (Japanese, Chinese, French, or
    /// else English). Empty when there is nothing to say.
    [[nodiscard]] QString getErrorStringDef(emEXIST e) const;

private:
    QString m_appName;
    QSharedMemory* m_sharedMemory = nullptr;  ///< child of this object, made by the check
};
