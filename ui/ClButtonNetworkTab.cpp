// SPDX-License-Identifier: MIT
#include "ui/ClButtonNetworkTab.h"

#include "ui/ArtworkIcon.h"
#include "ui/Colours.h"

#include <QLabel>

namespace {

constexpr QSize SIZE{172, 36};

}  // namespace

ClButtonNetworkTab::ClButtonNetworkTab(const QString& text, QWidget* parent)
    : ClRollOverToolBtn(parent) {
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(text);
    setImgShow(artworkIcon({{QIcon::Active, QStringLiteral(":/img/tab1")},
                            {QIcon::Selected, QStringLiteral(":/img/tab2")}}));

    auto* label = new QLabel(text, this);
    label->resize(SIZE);
    label->setAlignment(Qt::AlignCenter);
}

QSize ClButtonNetworkTab::sizeHint() const {
    return SIZE;
}

void ClButtonNetworkTab::paintEvent(QPaintEvent* event) {
    const bool selected = isDown() || isChecked();
    // The desktop's own colour may not show on the pictures.
    QPalette colours;
    colours.setBrush(QPalette::ButtonText, selected ? QColor(Qt::white) : TEXT_COLOUR);
    setPalette(colours);

    if (selected || underMouse()) {
        ClRollOverToolBtn::paintEvent(event);
    }
}
