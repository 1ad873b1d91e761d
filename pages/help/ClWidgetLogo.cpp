// SPDX-License-Identifier: MIT
#include "pages/help/ClWidgetLogo.h"

#include "pages/help/ClHelpText.h"
#include "ui/Artwork.h"
#include "ui/WidgetLook.h"

#include <QHBoxLayout>
#include <QLabel>

namespace {

constexpr QColor LETTER_COLOUR{93, 97, 102};
constexpr int SPACING = 9;         // pixels
constexpr int TEXT_REDUCTION = 3;  // pixels by which the letters are lower than the logo

}  // namespace

ClWidgetLogo::ClWidgetLogo(QWidget* parent) : QWidget(parent) {
    setColour(this, QPalette::WindowText, LETTER_COLOUR);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(SPACING);

    const QPixmap picture = artwork(QStringLiteral(":/imglang/logo"));
    auto* logo = new QLabel(this);
    logo->setPixmap(picture);
    logo->setAccessibleName(QStringLiteral("NuBo"));
    row->addWidget(logo);

    QFont large = font();
    large.setPixelSize(picture.deviceIndependentSize().toSize().height() - TEXT_REDUCTION);
    setFont(large);
    setBold(this);

    auto* text = new QLabel(ClHelpText::tr("Setting Application"), this);
    text->setAlignment(Qt::AlignLeft | Qt::AlignHCenter | Qt::AlignVCenter);
    row->addWidget(text);
}
