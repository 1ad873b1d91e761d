// SPDX-License-Identifier: MIT
#include "pages/stream/ClDialogStreamSetting.h"

#include "pages/stream/ClStreamChoices.h"
#include "ui/ClDialogColumn.h"

#include <QSize>

#include <array>

namespace {

constexpr QSize STANDARD{320, 240};
constexpr unsigned int SMOOTHEST = 30;

constexpr std::array SIZES{
    stStreamChoice<QSize>{QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "Fine(800x480)"),
                          QSize(800, 480)},
    stStreamChoice<QSize>{QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "Standard(320x240)"),
                          STANDARD},
};

constexpr std::array RATES{
    stStreamChoice<unsigned int>{QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "30 sheets(30fps)"),
                                 SMOOTHEST},
    stStreamChoice<unsigned int>{QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "15 sheets(15fps)"),
                                 15},
    stStreamChoice<unsigned int>{QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "10 sheets(10fps)"),
                                 10},
    stStreamChoice<unsigned int>{QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "6 sheets(6fps)"), 6},
    stStreamChoice<unsigned int>{QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "1 sheets(1fps)"), 1},
};

}  // namespace

ClDialogStreamSetting::ClDialogStreamSetting(QWidget* parent)
    : ClDialogBase(parent),
      m_sizes(new ClStreamChoices<QSize>(ClStreamText::tr("Set the image quality at the time of %1")
                                             .arg(ClStreamText::tr("LiveView")),
                                         SIZES, STANDARD, this)),
      m_rates(new ClStreamChoices<unsigned int>(
          ClStreamText::tr("Set the fps at the time of %1").arg(ClStreamText::tr("LiveView")),
          RATES, SMOOTHEST, this)) {
    auto* column = new ClDialogColumn(this);
    column->addWidget(m_sizes);
    column->addWidget(m_rates);
    addButtons();
}

void ClDialogStreamSetting::setParam(const QVariantList& params) {
    m_sizes->check(params.value(0).toSize());
    m_rates->check(params.value(1).toUInt());
}

QVariantList ClDialogStreamSetting::getParam() {
    return {m_sizes->value(), m_rates->value()};
}
