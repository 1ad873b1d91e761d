// SPDX-License-Identifier: MIT
#include "ui/ClButtonMode.h"

#include "ui/Artwork.h"
#include "ui/ArtworkIcon.h"

#include <QLabel>
#include <QPainter>

namespace {

constexpr QSize SIZE{112, 84};
constexpr QPoint IMAGE_POSITION{26, 7};
constexpr int ONE_LINE_BELOW = 20;  // a caption less high than this is one line
constexpr int ONE_LINE_TOP = 65;
constexpr int CAPTION_BOTTOM = 83;

}  // namespace

ClButtonMode::ClButtonMode(const QString& image, const QString& caption, QWidget* parent)
    : ClRollOverToolBtn(parent),
      m_image(image) {
    setCheckable(true);
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(caption);
    setImgShow(artworkIcon({{QIcon::Active, QStringLiteral(":/img/button1")},
                            {QIcon::Selected, QStringLiteral(":/img/button2")}}));

    auto* label = new QLabel(caption, this);
    label->setMinimumWidth(SIZE.width());
    label->setAlignment(Qt::AlignHCenter);
    if (label->sizeHint().width() > SIZE.width()) {
        label->setWordWrap(true);
        label->setFixedSize(SIZE.width(), label->heightForWidth(SIZE.width()));
    }
    const int height = label->wordWrap() ? label->height() : label->sizeHint().height();
    label->move(0, height < ONE_LINE_BELOW ? ONE_LINE_TOP : CAPTION_BOTTOM - height);
}

QSize ClButtonMode::sizeHint() const {
    return SIZE;
}

void ClButtonMode::paintEvent(QPaintEvent* event) {
    const bool selected = isEnabled() && (isDown() || isChecked());
    // The caption takes the colour from here: a child's text has its parent's foreground role.
    QPalette colours;
    colours.setBrush(QPalette::ButtonText, selected ? Qt::white : Qt::black);
    setPalette(colours);

    if (selected || (isEnabled() && underMouse())) {
        ClRollOverToolBtn::paintEvent(event);
    }
    QPainter(this).drawPixmap(IMAGE_POSITION, artwork(m_image, devicePixelRatioF()));
}
