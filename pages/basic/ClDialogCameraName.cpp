// SPDX-License-Identifier: MIT
#include "pages/basic/ClDialogCameraName.h"

#include "pages/basic/ClBasicSettingText.h"
#include "settings/SettingTable.h"
#include "settings/SettingValue.h"
#include "ui/ClDialogColumn.h"
#include "ui/ClMessageBox.h"

#include <QLabel>
#include <QLineEdit>
#include <QRegularExpressionValidator>

ClDialogCameraName::ClDialogCameraName(QWidget* parent)
    : ClDialogBase(parent),
      m_name(new QLineEdit(this)) {
    auto* label = new QLabel(ClBasicSettingText::tr("Set the favarite camera name"), this);
    label->setBuddy(m_name);
    m_name->setValidator(new QRegularExpressionValidator(
        QRegularExpression(textPattern(setting("camera.name").range)), m_name));

    auto* column = new ClDialogColumn(this);
    column->addWidget(label);
    column->addWidget(m_name);
    addButtons();
}

void ClDialogCameraName::setParam(const QVariantList& params) {
    m_name->setText(params.value(0).toString());
}

QVariantList ClDialogCameraName::getParam() {
    return {m_name->text()};
}

void ClDialogCameraName::accept() {
    if (m_name->text().isEmpty()) {
        ClMessageBox::tell(this, ClBasicSettingText::tr("No camera name"));
        return;
    }
    ClDialogBase::accept();
}
