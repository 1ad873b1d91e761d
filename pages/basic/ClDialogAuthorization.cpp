// SPDX-License-Identifier: MIT
#include "pages/basic/ClDialogAuthorization.h"

#include "pages/basic/ClBasicSettingText.h"
#include "pages/common/ControlGroups.h"
#include "settings/SettingTable.h"
#include "settings/SettingValue.h"
#include "ui/ClDialogColumn.h"
#include "ui/ClMessageBox.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QRegularExpressionValidator>

#include <algorithm>

namespace {

constexpr std::array FIELD_NAMES{
    QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Now password"),
    QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "New password"),
    QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Check password"),
};

}  // namespace

ClDialogAuthorization::ClDialogAuthorization(QWidget* parent)
    : ClDialogBase(parent),
      m_passwords(new QWidget(this)) {
    auto* choice = new ClRadioGroup(
        ClBasicSettingText::tr("Set the authorization that enhances security"), this);
    m_notUse = choice->addButton(ClBasicSettingText::tr("Not use authorization"));
    m_use = choice->addButton(ClBasicSettingText::tr("Use authorization"));
    m_use->setChecked(true);
    connect(m_use, &QRadioButton::toggled, this, &ClDialogAuthorization::slotChangeSetting);

    auto* grid = new QGridLayout(m_passwords);
    grid->setContentsMargins(ClDialogColumn::DEPENDENT_INDENT, 0, 0, 0);
    const QRegularExpression password(textPattern(setting("live.password").range));
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        auto* field = new QLineEdit(m_passwords);
        field->setEchoMode(QLineEdit::Password);
        field->setValidator(new QRegularExpressionValidator(password, field));
        auto* name = new QLabel(ClBasicSettingText::tr(FIELD_NAMES[i]), m_passwords);
        name->setBuddy(field);
        grid->addWidget(name, static_cast<int>(i), 0);
        grid->addWidget(field, static_cast<int>(i), 1);
        m_fields[i] = field;
    }

    auto* column = new ClDialogColumn(this);
    column->addWidget(choice);
    column->addWidget(m_passwords);
    addButtons();
}

void ClDialogAuthorization::setParam(const QVariantList& params) {
    if (!params.isEmpty()) {
        (params[0].toBool() ? m_use : m_notUse)->setChecked(true);
    }
    if (params.size() > 1) {
        m_current = params[1].toString();
    }
}

QVariantList ClDialogAuthorization::getParam() {
    return {m_use->isChecked(), m_fields[New]->text()};
}

void ClDialogAuthorization::accept() {
    const QString text = m_notUse->isChecked() ? QString() : complaint();
    if (!text.isEmpty()) {
        ClMessageBox::tell(this, text);
        return;
    }
    ClDialogBase::accept();
}

void ClDialogAuthorization::slotChangeSetting(bool use) {
    m_passwords->setEnabled(use);
}

QString ClDialogAuthorization::complaint() const {
    const auto isEmpty = [](const QLineEdit* field) { return field->text().isEmpty(); };
    if (std::ranges::any_of(m_fields, isEmpty)) {
        return ClBasicSettingText::tr("There are not input value");
    }
    if (m_fields[Now]->text() != m_current) {
        return ClBasicSettingText::tr("Different now password");
    }
    if (m_fields[New]->text() != m_fields[Check]->text()) {
        return ClBasicSettingText::tr("Not same password new and check");
    }
    if (m_fields[New]->text() == m_fields[Now]->text()) {
        return ClBasicSettingText::tr("Not change password");
    }
    return {};
}
