// SPDX-License-Identifier: MIT
#include "ui/ClWidgetBase.h"

#include "protocol/ResultCodes.h"
#include "ui/ClMessageBox.h"

#include <QApplication>
#include <QDialog>
#include <QHideEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPushButton>

#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

using namespace std::chrono_literals;

namespace {

constexpr auto POLLING_INTERVAL = 5000ms;

struct stErrorText {
    unsigned short code;
    const char* text;
};

// A camera that fails to execute a command recovers as one that is too slow: by a reset.
constexpr std::array ERROR_TEXTS{
    stErrorText{NUBO_CMD_ERROR_EXEC,
                QT_TRANSLATE_NOOP("ClWidgetBase", "Timeout error, please reset")},
    stErrorText{NUBO_CMD_ERROR_PARAM,
                QT_TRANSLATE_NOOP("ClWidgetBase", "Parameter setting failed")},
    stErrorText{NUBO_CMD_ERROR_COMMAND,
                QT_TRANSLATE_NOOP("ClWidgetBase", "Command error, version up")},
    stErrorText{NUBO_CMD_ERROR_TIMEOUT,
                QT_TRANSLATE_NOOP("ClWidgetBase", "Timeout error, please reset")},
};
constexpr const char* OTHER_ERROR_TEXT =
    QT_TRANSLATE_NOOP("ClWidgetBase", "Exec failed, unknown error");

const char* errorText(unsigned short error) {
    const auto* found = std::ranges::find(ERROR_TEXTS, error, &stErrorText::code);
    return found == ERROR_TEXTS.end() ? OTHER_ERROR_TEXT : found->text;
}

}  // namespace

ClWidgetBase::ClWidgetBase(QWidget* parent) : QWidget(parent) {
    m_pollingTimer.setSingleShot(false);
    connect(&m_pollingTimer, &QTimer::timeout, this, &ClWidgetBase::slotPollingFired);
}

void ClWidgetBase::showInit(bool /*isPolling*/) {}

void ClWidgetBase::startPolling() {
    if (!m_pollingTimer.isActive()) {
        m_pollingTimer.start(POLLING_INTERVAL);
    }
}

void ClWidgetBase::stopPolling() {
    m_pollingTimer.stop();
}

void ClWidgetBase::showErrorMsgBox(unsigned short error) {
    m_errors.append(error);
    if (m_errors.size() > 1) {
        return;
    }
    do {
        ClMessageBox::tell(this, tr(errorText(m_errors.first())));
        m_errors.removeFirst();
    } while (!m_errors.isEmpty() && isVisible());
    m_errors.clear();
}

bool ClWidgetBase::ask(QDialog& dialog) {
    const int before = m_visit;
    m_questions.append(&dialog);
    const bool isAccepted = dialog.exec() == QDialog::Accepted;
    m_questions.removeOne(&dialog);
    return isAccepted && before == m_visit;
}

void ClWidgetBase::sendUsbCommand(QUuid command, VX_CMD message) {
    message.insert(Key::CMD, QVariant::fromValue(command));
    message.insert(Key::SENDER, QVariant::fromValue<QObject*>(this));
    Q_EMIT sigSendCommand(message);
}

bool ClWidgetBase::eventFilter(QObject* /*watched*/, QEvent* event) {
    if (dynamic_cast<QMouseEvent*>(event) == nullptr) {
        return false;
    }
    this->event(event);
    return true;
}

void ClWidgetBase::slotReceiveCommand(const VX_CMD& /*clCommand*/) {}

void ClWidgetBase::slotPollingFired() {
    if (isPollable()) {
        showInit(true);
    }
}

bool ClWidgetBase::isAnswerToAnother(const VX_CMD& message) const {
    const auto* asker = message.value(Key::SENDER).value<QObject*>();
    return asker != nullptr && asker != this;
}

// Each dialog runs an event loop of its own inside that of the one before, and this runs inside the
// innermost: the loops end when it has returned, the innermost first.
void ClWidgetBase::closeQuestions() {
    for (QDialog* question : std::as_const(m_questions)) {
        // What the dialog has opened itself: a calendar, a complaint, a menu.
        for (QWidget* inner : question->findChildren<QWidget*>()) {
            if (inner->isWindow() && inner->isVisible()) {
                inner->close();
            }
        }
        question->reject();
    }
}

void ClWidgetBase::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    // Minimising the window is not leaving the page.
    if (!event->spontaneous()) {
        ++m_visit;
        // The errors that wait behind the open box belong to a camera that may have left.
        m_errors.resize(std::min<qsizetype>(m_errors.size(), 1));
        closeQuestions();
    }
}

void ClWidgetBase::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto* button = qobject_cast<QPushButton*>(focusWidget());
    if (isEnter && !event->isAutoRepeat() && button != nullptr) {
        button->click();
    } else {
        QWidget::keyPressEvent(event);
    }
}

bool ClWidgetBase::isPollable() const {
    // Behind a modal box nothing is refreshed: every failure would pile another box on top of it.
    return isVisible() && QApplication::activeModalWidget() == nullptr;
}
