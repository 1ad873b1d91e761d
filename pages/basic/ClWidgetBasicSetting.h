// SPDX-License-Identifier: MIT
#pragma once

#include "pages/basic/BasicSettingRows.h"
#include "pages/common/ClReadChain.h"
#include "ui/ClWidgetBase.h"

#include <QHash>
#include <QList>

#include <span>
#include <vector>

class QPushButton;
class QVBoxLayout;

/// The basic settings page: a column of buttons, one for each setting of basicSettingRows().
///
/// A click reads the setting from the camera. Its answer opens the row's dialog on the value, and a
/// dialog that is accepted sends the value back. The page itself shows no value but the camera's
/// name, on the first button; it changes when the camera confirms the new one.
///
/// A dialog runs inside slotReceiveCommand(). What arrives meanwhile waits until it is closed, so
/// that dialogs and boxes come one after the other.
class ClWidgetBasicSetting : public ClWidgetBase {
    Q_OBJECT

public:
    /// @p rows outlive the page. A column of more than fit into its height scrolls.
    explicit ClWidgetBasicSetting(QWidget* parent,
                                  std::span<const stBasicSettingRow> rows = basicSettingRows());

    /// Asks for the camera's name, for the button.
    void showInit(bool isPolling) override;

public Q_SLOTS:
    void slotReceiveCommand(const VX_CMD& clCommand) override;
    void slotClicked();

protected:
    void hideEvent(QHideEvent* event) override;

private:
    void addCaption(const char* text, QVBoxLayout* column);
    void addButton(const stBasicSettingRow& row, QVBoxLayout* column);
    void addReads(const stBasicSettingRow& row);
    /// Puts a column that is higher than the page into an area that scrolls.
    void makeRoom();
    void showName(const QString& name);

    [[nodiscard]] bool isRequestOrCommand(const QUuid& command) const;
    void handle(const VX_CMD& message);
    void handleResult(const QUuid& command, unsigned short result, bool isFailure);
    /// Deals with the last answer of the row: runs its dialog, unless only the name is wanted.
    void finish(const stBasicSettingRow& row, const VX_CMD& answer);
    void showDialog(const stBasicSettingRow& row);
    [[nodiscard]] QVariantList readValues(const stBasicSettingRow& row) const;
    void write(const stBasicSettingRow& row, const QVariantList& values);

    std::span<const stBasicSettingRow> m_rows;
    QList<QPushButton*> m_buttons;     ///< in the order of the rows
    std::vector<ClReadChain> m_reads;  ///< in the order of the rows
    QPushButton* m_nameButton = nullptr;
    bool m_isNameDialogPending = false;  ///< the next camera name opens the dialog
    QString m_sentName;                  ///< on its way to the camera
    QHash<QUuid, VX_CMD> m_answers;      ///< the latest answer of each setting
    bool m_isHandling = false;
    QList<VX_CMD> m_waiting;  ///< arrived while another message is being handled
};
