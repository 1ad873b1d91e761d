// SPDX-License-Identifier: MIT
#include "pages/stream/ClDialogRecSetting.h"

#include "pages/stream/ClStreamChoices.h"
#include "ui/ClDialogColumn.h"

#include <QSize>

#include <array>

namespace {

constexpr QSize FULL_HD{1920, 1080};

constexpr std::array SIZES{
    stStreamChoice<QSize>{QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "Full HD(1920x1080)"),
                          FULL_HD},
    stStreamChoice<QSize>{QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "HD(1280x720)"),
                          QSize(1280, 720)},
    stStreamChoice<QSize>{QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "Economy(640x480)"),
                          QSize(640, 480)},
};

}  // namespace

ClDialogRecSetting::ClDialogRecSetting(QWidget* parent)
    : ClDialogBase(parent),
      m_sizes(new ClStreamChoices<QSize>(
          ClStreamText::tr("Set the image quality at the time of %1").arg(ClStreamText::tr("Rec")),
          SIZES, FULL_HD, this)) {
    (new ClDialogColumn(this))->addWidget(m_sizes);
    addButtons();
}

void ClDialogRecSetting::setParam(const QVariantList& params) {
    m_sizes->check(params.value(0).toSize());
}

QVariantList ClDialogRecSetting::getParam() {
    return {m_sizes->value()};
}
