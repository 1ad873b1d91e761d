// SPDX-License-Identifier: MIT
#include "pages/basic/ClDialogImageQuarity.h"

#include "ui/ClDialogColumn.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSlider>

#include <algorithm>

namespace {

constexpr int DARKEST = 4;
constexpr int SLIDER_WIDTH = 160;  // pixels

}  // namespace

ClDialogImageQuarity::ClDialogImageQuarity(QWidget* parent)
    : ClDialogBase(parent),
      m_contrast(new QSlider(Qt::Horizontal, this)) {
    auto* label = new QLabel(tr("Setting contrast"), this);
    label->setBuddy(m_contrast);
    m_contrast->setRange(0, DARKEST);
    m_contrast->setPageStep(1);
    m_contrast->setMinimumWidth(SLIDER_WIDTH);
    m_contrast->setTickPosition(QSlider::TicksBelow);

    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel(tr("Light"), this));
    row->addWidget(m_contrast);
    row->addWidget(new QLabel(tr("Dark"), this));
    auto* column = new ClDialogColumn(this);
    column->addWidget(label);
    column->addLayout(row);
    addButtons();
}

void ClDialogImageQuarity::setParam(const QVariantList& params) {
    if (!params.isEmpty()) {
        m_contrast->setValue(static_cast<int>(std::min<unsigned int>(params[0].toUInt(), DARKEST)));
    }
}

QVariantList ClDialogImageQuarity::getParam() {
    return {m_contrast->value()};
}
