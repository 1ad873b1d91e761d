// SPDX-License-Identifier: MIT
#pragma once

#include "pages/common/ClReadChain.h"
#include "ui/ClWidgetBase.h"

#include <QVariant>

#include <functional>
#include <vector>

class QDialogButtonBox;
class QLabel;
class QLineEdit;

/// A value of the camera on a form.
struct stFormItem {
    stSettingExchange exchange;  ///< without a write: the user cannot change it
    std::function<void(const QVariant& value)> show;
    std::function<QVariant()> shown;
    QVariant read = {};  ///< what stood here when the camera's value had been shown
};

/// An address of the camera on a form.
struct stAddressRow {
    QLabel* caption;
    QLineEdit* edit;
};

/// The base of the network pages that show addresses of the camera and write those back that the
/// user has changed, with the buttons "Decision" and "Back" at the bottom.
///
/// The values are read in a chain, in the order of the items: each answer is shown and sends the
/// next request. "Decision" writes what differs from what was read, unless the addresses are no
/// addresses; the form is left when all writes have succeeded, or at once when there were none. A
/// failed write leaves the form open with the user's values, and the next "Decision" writes them
/// all again, for only reading changes what counts as the camera's value.
class ClWidgetAddressForm : public ClWidgetBase {
    Q_OBJECT

public:
    using ClWidgetBase::ClWidgetBase;

public Q_SLOTS:
    void slotReceiveCommand(const VX_CMD& clCommand) override;
    /// Of a button of addButtons().
    virtual void slotClicked();

protected:
    /// A caption with a line edit for an IPv4 address.
    stAddressRow addAddressRow(const QString& caption, int y);
    /// The last part of the page: the buttons.
    void addButtons(int y);

    /// The values that are read, in the order of the items.
    [[nodiscard]] ClReadChain& reads() { return m_reads; }
    /// The next value of the chain.
    void addItem(stFormItem item);
    /// The next value of the chain, in a line edit of addAddressRow().
    void addAddress(const stSettingExchange& exchange, QLineEdit* edit);

    /// Whether the addresses may be written.
    [[nodiscard]] virtual bool isValid() const = 0;
    /// Leaves the form.
    virtual void leave() = 0;

private:
    void writeChanges();
    [[nodiscard]] bool isOwnWrite(const QUuid& command) const;

    std::vector<stFormItem> m_items;
    ClReadChain m_reads{this};
    QDialogButtonBox* m_buttonBox = nullptr;
    qsizetype m_sent = 0;      ///< writes of the last "Decision"
    QList<QUuid> m_succeeded;  ///< those of them that have succeeded
};
