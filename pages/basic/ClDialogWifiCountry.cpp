// SPDX-License-Identifier: MIT
#include "pages/basic/ClDialogWifiCountry.h"

#include "pages/basic/ClBasicSettingText.h"
#include "pages/common/ClControlGroup.h"
#include "ui/ClDialogColumn.h"

#include <QComboBox>

namespace {

constexpr unsigned int AUTO = 4;  // the country value, and the last one
constexpr int AUTO_INDEX = AUTO - 1;

}  // namespace

ClDialogWifiCountry::ClDialogWifiCountry(QWidget* parent)
    : ClDialogBase(parent),
      m_country(new QComboBox(this)) {
    m_country->addItems({ClBasicSettingText::tr("Japan"),
                         ClBasicSettingText::tr("United States,Canada,Taiwan"),
                         ClBasicSettingText::tr("EU"), ClBasicSettingText::tr("Auto")});
    auto* group =
        new ClControlGroup(ClBasicSettingText::tr("Setting Wi-Fi country"), m_country, this);
    (new ClDialogColumn(this))->addWidget(group);
    addButtons();
    connect(m_country, &QComboBox::currentIndexChanged, this,
            [this](int index) { setAcceptable(index >= 0); });
}

void ClDialogWifiCountry::setParam(const QVariantList& params) {
    if (params.size() < 2) {
        return;
    }
    const bool isCountryNeeded = params[0].toBool();
    const unsigned int country = params[1].toUInt();
    if (isCountryNeeded) {
        m_country->removeItem(AUTO_INDEX);
    } else if (m_country->count() <= AUTO_INDEX) {
        m_country->addItem(ClBasicSettingText::tr("Auto"));
    }
    if (isCountryNeeded && country == AUTO) {
        return;
    }
    m_country->setCurrentIndex(country > AUTO ? -1 : static_cast<int>(country) - 1);
}

QVariantList ClDialogWifiCountry::getParam() {
    return {static_cast<unsigned int>(m_country->currentIndex() + 1)};
}
