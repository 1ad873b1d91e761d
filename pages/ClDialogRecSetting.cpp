// SPDX-License-Identifier: MIT
#include "pages/ClDialogRecSetting.h"

#include <QVBoxLayout>

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
      m_sizes(this,
              ClWidgetStreamSetting::tr("Set the image quality at the time of %1")
                  .arg(ClWidgetStreamSetting::tr("Rec")),
              SIZES, FULL_HD) {
    auto* column = new QVBoxLayout(this);
    column->setSizeConstraint(QLayout::SetFixedSize);
    m_sizes.addTo(*column);
    column->addSpacerItem(new QSpacerItem(1, 1, QSizePolicy::Minimum, QSizePolicy::Expanding));
    addButtons();
}

void ClDialogRecSetting::setParam(const QVariantList& params) {
    m_sizes.check(params.value(0).toSize());
    m_sizes.takeFocus();
}

QVariantList ClDialogRecSetting::getParam() {
    return {m_sizes.value()};
}
