// SPDX-License-Identifier: MIT
#pragma once

#include "pages/common/ClReadChain.h"
#include "ui/ClWidgetBase.h"

#include <QSize>

#include <memory>

class ClDialogBase;

/// The stream setting page: two buttons, for what the camera records and for its live view. Each
/// reads picture size and frame rate from the camera, shows them in a dialog and writes back what
/// the user changed.
///
/// A read is a chain of two requests, each sent when the one before has been answered; the dialog
/// opens with the second answer. Only the answer that the chain waits for counts. A click on the
/// other button, and showing the page again, abandon the chain; a click on the same one leaves it
/// alone.
class ClWidgetStreamSetting : public ClWidgetBase {
    Q_OBJECT

public:
    /// What the settings are for, and thereby the dialog that shows them.
    enum class eDialogType : int { Rec = 0, Stream = 1 };

    explicit ClWidgetStreamSetting(QWidget* parent);

    /// Forgets what went on when the page was left.
    void showInit(bool isPolling) override;

    /// Shows the values just read in the dialog of @p type, and sends those that the user changed:
    /// the size first. Returns when the dialog is closed.
    void showDialog(eDialogType type);

public Q_SLOTS:
    void slotSetRec();
    void slotSetStream();
    void slotReceiveCommand(const VX_CMD& clCommand) override;

private:
    [[nodiscard]] std::unique_ptr<ClDialogBase> createDialog(eDialogType type);
    void addButton(const QString& use, int y, void (ClWidgetStreamSetting::*clicked)());
    void addReads(ClReadChain& reads, eDialogType type);
    /// Starts @p wanted, unless it is under way, in place of @p other.
    static void read(ClReadChain& wanted, ClReadChain& other);
    /// Deals with a plain result of one of this page's commands; others are left alone.
    void showResult(const VX_CMD& message);

    QSize m_imageSize;             ///< just read; (-1, -1): none
    unsigned int m_frameRate = 0;  ///< just read; 0: none
    ClReadChain m_recReads{this, {.takesOnlyAwaited = true}};
    ClReadChain m_liveReads{this, {.takesOnlyAwaited = true}};
};
