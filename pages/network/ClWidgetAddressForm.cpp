// SPDX-License-Identifier: MIT
#include "pages/network/ClWidgetAddressForm.h"

#include "pages/common/CommandResult.h"
#include "pages/common/PageParts.h"
#include "pages/network/ClNetworkText.h"
#include "pages/network/NetworkParts.h"
#include "ui/ClIpv4Validator.h"
#include "ui/ClMessageBox.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>

#include <algorithm>
#include <utility>

namespace {

constexpr int CAPTION_RIGHT = 227;
constexpr int EDIT_X = 264;
constexpr int EDIT_WIDTH = 199;

}  // namespace

stAddressRow ClWidgetAddressForm::addAddressRow(const QString& caption, int y) {
    auto* label = addCaption(caption, CAPTION_RIGHT, y, this);
    auto* edit = new QLineEdit(this);
    edit->setFixedWidth(EDIT_WIDTH);
    edit->setValidator(new ClIpv4Validator(edit));
    edit->adjustSize();
    edit->move(EDIT_X, y);
    // As high as its edit, so that both texts stand on one line.
    label->resize(label->sizeHint().width(), edit->height());
    label->setBuddy(edit);
    return {label, edit};
}

void ClWidgetAddressForm::addButtons(int y) {
    m_buttonBox = addDecisionBox(y, this);
    for (const QAbstractButton* button : m_buttonBox->buttons()) {
        connect(button, &QAbstractButton::clicked, this, &ClWidgetAddressForm::slotClicked);
    }
}

void ClWidgetAddressForm::addItem(stFormItem item) {
    item.read = item.shown();
    m_reads.add({item.exchange, [this, index = m_items.size()](const VX_CMD& answer) {
                     stFormItem& answered = m_items[index];
                     answered.show(answer.value(Key::PARAM2));
                     answered.read = answered.shown();
                 }});
    m_items.push_back(std::move(item));
}

void ClWidgetAddressForm::addAddress(const stSettingExchange& exchange, QLineEdit* edit) {
    addItem({exchange, [edit](const QVariant& value) { edit->setText(value.toString()); },
             [edit] { return edit->text(); }});
}

void ClWidgetAddressForm::slotClicked() {
    const auto role = m_buttonBox->buttonRole(qobject_cast<QAbstractButton*>(sender()));
    if (role == QDialogButtonBox::RejectRole) {
        leave();
    } else if (role == QDialogButtonBox::AcceptRole) {
        if (isValid()) {
            writeChanges();
        } else {
            ClMessageBox::tell(this, ClNetworkText::tr("Not valid settings of network"));
        }
    }
}

void ClWidgetAddressForm::writeChanges() {
    m_succeeded.clear();
    m_sent = 0;
    for (const stFormItem& item : m_items) {
        const QVariant value = item.shown();
        if (!item.exchange.write.isNull() && value != item.read) {
            ++m_sent;
            sendUsbCommand(item.exchange.write, {{Key::PARAM2, value}});
        }
    }
    if (m_sent == 0) {
        leave();
    }
}

void ClWidgetAddressForm::slotReceiveCommand(const VX_CMD& clCommand) {
    if (m_reads.take(clCommand)) {
        return;
    }
    const stCommandResult result(clCommand);
    if (result.isFailure && (m_reads.asks(result.command) || isOwnWrite(result.command))) {
        showErrorMsgBox(result.code);
    } else if (result.isSuccess && isOwnWrite(result.command)) {
        m_succeeded.append(result.command);
        if (m_succeeded.size() == m_sent) {
            leave();
        }
    }
}

bool ClWidgetAddressForm::isOwnWrite(const QUuid& command) const {
    return !command.isNull() && std::ranges::any_of(m_items, [&command](const stFormItem& item) {
        return item.exchange.write == command;
    });
}
