// SPDX-License-Identifier: MIT
#include "pages/basic/ClDialogGps.h"

#include "pages/common/ClRadioGroup.h"
#include "ui/ClDialogColumn.h"

#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

struct stText {
    const char* label;
    const char* first;
    const char* second;
};

constexpr std::array<stText, 4> TEXTS{{
    {QT_TRANSLATE_NOOP("ClDialogGps", "Set the GPS settings of NuBo"),
     QT_TRANSLATE_NOOP("ClDialogGps", "Use GPS"), QT_TRANSLATE_NOOP("ClDialogGps", "Not use GPS")},
    {QT_TRANSLATE_NOOP("ClDialogGps", "Set to save GPS log"),
     QT_TRANSLATE_NOOP("ClDialogGps", "Save logs"),
     QT_TRANSLATE_NOOP("ClDialogGps", "Not save logs")},
    {QT_TRANSLATE_NOOP("ClDialogGps", "Set the format of GPS log"),
     QT_TRANSLATE_NOOP("ClDialogGps", "GGA+RMC"),
     QT_TRANSLATE_NOOP("ClDialogGps", "GGA+GLL+GSA+GSV+RMC+VTG+ZDA")},
    {QT_TRANSLATE_NOOP("ClDialogGps", "Set to auto adjust time from GPS info"),
     QT_TRANSLATE_NOOP("ClDialogGps", "Adjust time"),
     QT_TRANSLATE_NOOP("ClDialogGps", "Not adjust time")},
}};

constexpr int SHORT_FORMAT = 1;
constexpr int FULL_FORMAT = 2;

}  // namespace

ClDialogGps::ClDialogGps(QWidget* parent) : ClDialogBase(parent) {
    auto* column = new ClDialogColumn(this);
    addChoice(Use, this);
    auto* options = new QWidget(this);
    auto* rows = new QVBoxLayout(options);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(column->spacing());
    for (const Choice choice : {Log, Format, Adjust}) {
        addChoice(choice, options);
    }
    column->addWidget(options);
    connect(m_pairs[Use].first, &QRadioButton::toggled, options, &QWidget::setEnabled);
    addButtons();
}

void ClDialogGps::addChoice(Choice choice, QWidget* parent) {
    const stText& text = TEXTS[choice];
    auto* group = new ClRadioGroup(tr(text.label), parent);
    m_pairs[choice].first = group->addButton(tr(text.first));
    m_pairs[choice].second = group->addButton(tr(text.second));
    parent->layout()->addWidget(group);
}

void ClDialogGps::setParam(const QVariantList& params) {
    constexpr std::array ORDER{Use, Log, Adjust, Format};
    const auto given = std::min<qsizetype>(params.size(), ORDER.size());
    for (qsizetype i = 0; i < given; ++i) {
        const Choice choice = ORDER[static_cast<std::size_t>(i)];
        const bool isFirst =
            choice == Format ? params[i].toUInt() == SHORT_FORMAT : params[i].toBool();
        (isFirst ? m_pairs[choice].first : m_pairs[choice].second)->setChecked(true);
    }
}

QVariantList ClDialogGps::getParam() {
    const auto isFirst = [this](Choice choice) { return m_pairs[choice].first->isChecked(); };
    return {isFirst(Use), isFirst(Log), isFirst(Adjust),
            isFirst(Format) ? SHORT_FORMAT : FULL_FORMAT};
}
