// SPDX-License-Identifier: MIT
#include "pages/network/ClDialogInputKey.h"

#include "pages/network/ClNetworkText.h"
#include "ui/ClDialogColumn.h"
#include "ui/ClMessageBox.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpressionValidator>

ClDialogInputKey::ClDialogInputKey(QWidget* parent, bool mustInput)
    : ClDialogBase(parent),
      m_key(new QLineEdit),
      m_mustInput(mustInput) {
    m_key->setEchoMode(QLineEdit::Password);
    // How long a key is, is up to the access point.
    m_key->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9a-zA-Z]*")), m_key));
    auto* prompt = new QLabel(ClNetworkText::tr("Input the encryption key of AP"));
    prompt->setBuddy(m_key);
    auto* show = new QCheckBox(ClNetworkText::tr("Show input"));
    connect(show, &QCheckBox::toggled, this, &ClDialogInputKey::slotChangeShow);

    auto* column = new ClDialogColumn(this);
    column->addWidget(prompt);
    column->addWidget(m_key);
    column->addWidget(show);
    addButtons();
}

void ClDialogInputKey::setParam(const QVariantList& params) {
    if (!params.isEmpty()) {
        m_key->setText(params.first().toString());
    }
}

QVariantList ClDialogInputKey::getParam() {
    return {m_key->text()};
}

void ClDialogInputKey::accept() {
    if (m_mustInput && m_key->text().isEmpty()) {
        ClMessageBox::tell(this, ClNetworkText::tr("Not input key"));
    } else {
        ClDialogBase::accept();
    }
}

void ClDialogInputKey::slotChangeShow(bool isShown) {
    m_key->setEchoMode(isShown ? QLineEdit::Normal : QLineEdit::Password);
}
