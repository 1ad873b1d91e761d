// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/CommandMessage.h"

#include <QList>
#include <QTimer>
#include <QUuid>
#include <QWidget>

class QDialog;

/// The base of every page: sends command messages, receives results, polls while it is visible and
/// shows the standard error box.
///
/// The main window enters a page by showInit(false), connects the two command members while the
/// page is on show, and leaves it by stopPolling(). A page that wants to be refreshed starts the
/// polling itself.
class ClWidgetBase : public QWidget {
    Q_OBJECT

public:
    explicit ClWidgetBase(QWidget* parent = nullptr);

    /// Refreshes the page; @p isPolling is false when the user has it shown or shown again. Does
    /// nothing here.
    virtual void showInit(bool isPolling);

    /// Has showInit(true) called every 5000 ms while the page is visible and no modal box is open.
    /// A timer that already runs keeps its phase.
    virtual void startPolling();
    virtual void stopPolling();

    /// Tells the user, in a modal box, that a command failed with the 16-bit result code @p error.
    /// Returns when the box is closed. A failure that comes while this page has a box open is shown
    /// when that is closed, unless the page has been left: boxes never pile up.
    virtual void showErrorMsgBox(unsigned short error);

    /// Runs @p dialog, which asks the user something about the camera, and returns whether it was
    /// accepted. Leaving the page, as happens when the camera goes, closes the dialog at once, and
    /// whatever it has opened itself: it is not accepted then, for an answer is for the camera that
    /// the question was about, not for one that has been plugged in in its place.
    [[nodiscard]] bool ask(QDialog& dialog);

    /// Sends @p message, whose arguments the caller has filled in, as @p command from this page.
    void sendUsbCommand(QUuid command, VX_CMD message = {});

    /// Hands the mouse events of @p watched to this page, unseen by @p watched. The page has to
    /// install itself on the child whose mouse it wants.
    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The only way of a page to the camera.
    void sigSendCommand(const VX_CMD& clCommand);

public Q_SLOTS:
    /// Receives every result message that is routed to the page on show. Does nothing here.
    virtual void slotReceiveCommand(const VX_CMD& clCommand);
    virtual void slotPollingFired();

protected:
    /// Whether polling refreshes the page now: it is visible and no modal box is open.
    [[nodiscard]] bool isPollable() const;

    /// How often the page has been left. Who waits for the user compares it before and after.
    [[nodiscard]] int visit() const { return m_visit; }
    /// Whether @p message answers a request of another page. Plain results name no page.
    [[nodiscard]] bool isAnswerToAnother(const VX_CMD& message) const;

    void hideEvent(QHideEvent* event) override;
    /// The Enter key presses the button that has the focus, as it does in a dialog.
    void keyPressEvent(QKeyEvent* event) override;

private:
    void closeQuestions();

    QTimer m_pollingTimer;
    int m_visit = 0;
    QList<unsigned short> m_errors;  ///< of the box that is open, and of those to follow
    QList<QDialog*> m_questions;     ///< of ask(), that are open
};
