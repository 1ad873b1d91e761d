// SPDX-License-Identifier: MIT
#include "ui/ClWidgetProgress.h"

#include "ui/Colours.h"
#include "ui/WidgetLook.h"

#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

namespace {

constexpr int WIDTH = 133;  // pixels
constexpr int SPACING = 9;  // pixels
constexpr int MAXIMUM = 100;
constexpr int GOOD_FROM = 50;
constexpr int LOW_BELOW = 10;
constexpr QColor MIDDLING{120, 110, 25};
constexpr QColor LOW{180, 25, 8};

QColor colourOf(int value) {
    if (value >= GOOD_FROM) {
        return GOOD_COLOUR;
    }
    return value < LOW_BELOW ? LOW : MIDDLING;
}

}  // namespace

ClWidgetProgress::ClWidgetProgress(QWidget* parent)
    : QWidget(parent),
      m_bar(new QProgressBar(this)),
      m_label(new QLabel(this)) {
    m_bar->setTextVisible(false);
    m_bar->setMaximum(MAXIMUM);
    m_bar->setFixedWidth(WIDTH);

    m_label->setAlignment(Qt::AlignCenter);
    setBold(m_label);

    setFixedWidth(WIDTH);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(SPACING);
    column->addWidget(m_bar);
    column->addWidget(m_label);
}

void ClWidgetProgress::setMeaning(const QString& meaning) {
    m_bar->setAccessibleName(meaning);
}

void ClWidgetProgress::setValue(int value) {
    m_bar->setValue(value);
    m_label->setText(QString::number(value) + u'%');
    setColour(m_label, QPalette::WindowText, colourOf(value));
}
