// SPDX-License-Identifier: MIT
#include "ui/ClDialogBase.h"

#include "ui/ClTextButton.h"
#include "ui/TextContrast.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QLayout>
#include <QPushButton>

ClDialogBase::ClDialogBase(QWidget* parent) : QDialog(parent) {
    setWindowTitle(QCoreApplication::applicationName());
    setWindowFlags(WINDOW_FLAGS);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setMinimumWidth(MINIMUM_WIDTH);
    setPalette(withReadableDisabledText(palette()));
}

void ClDialogBase::setParam(const QVariantList& /*params*/) {}

QVariantList ClDialogBase::getParam() {
    return {};
}

void ClDialogBase::addButtons() {
    if (layout() == nullptr || m_buttonBox != nullptr) {
        return;
    }
    m_buttonBox = new QDialogButtonBox(this);
    layout()->addWidget(m_buttonBox);
    layout()->setAlignment(m_buttonBox, Qt::AlignHCenter);
    m_ok = new ClTextButton(tr("OK"));
    m_buttonBox->addButton(m_ok, QDialogButtonBox::AcceptRole);
    m_buttonBox->addButton(new ClTextButton(tr("Cancel")), QDialogButtonBox::RejectRole);
    connect(m_buttonBox, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void ClDialogBase::setAcceptable(bool isAcceptable) {
    m_ok->setEnabled(isAcceptable);
}
