// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QDialog>
#include <QTimer>

#include <functional>

/// Answers the modal dialog that whatever is called next runs: @p answer looks at it and closes it
/// as a user would. If it leaves the dialog open, the dialog is closed, so that a test fails
/// instead of hanging.
class ModalAnswer : public QObject {
public:
    explicit ModalAnswer(std::function<void(QDialog&)> answer) {
        QTimer::singleShot(0, this, [this, answer = std::move(answer)] {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr) {
                return;
            }
            answer(*dialog);
            m_closed = dialog->isHidden();
            if (!m_closed) {
                dialog->reject();
            }
        });
    }

    /// Whether a dialog was shown and the answer closed it.
    [[nodiscard]] bool closed() const { return m_closed; }

private:
    bool m_closed = false;
};
