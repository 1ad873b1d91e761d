// SPDX-License-Identifier: MIT
#include "ui/ClCaptionBar.h"

#include "ui/ArtworkIcon.h"
#include "ui/ButtonKeys.h"
#include "ui/ClRollOverToolBtn.h"
#include "ui/Colours.h"
#include "ui/WidgetLook.h"

#include <QLabel>

namespace {

constexpr QSize SIZE{600, 30};
constexpr QRect CLOSE_BUTTON{0, 0, 30, 20};
constexpr int TITLE_TOP = 10;

}  // namespace

ClCaptionBar::ClCaptionBar(const QString& title, QWidget* parent) : QWidget(parent) {
    auto* closeButton = new ClRollOverToolBtn(this);
    closeButton->setImgShow(artworkIcon({{QIcon::Normal, QStringLiteral(":/img/close_mac1")},
                                         {QIcon::Active, QStringLiteral(":/img/close_mac2")},
                                         {QIcon::Selected, QStringLiteral(":/img/close_mac3")}}));
    closeButton->setFocusPolicy(Qt::NoFocus);
    closeButton->setGeometry(CLOSE_BUTTON);
    closeButton->setAccessibleName(tr("Close"));
    addKeys(closeButton, {Qt::CTRL | Qt::Key_Q, Qt::CTRL | Qt::Key_W});
    connect(closeButton, &QAbstractButton::clicked, this, &ClCaptionBar::sigClose);

    auto* titleLabel = new QLabel(title, this);
    setColour(titleLabel, QPalette::WindowText, TEXT_COLOUR);
    titleLabel->move((SIZE.width() - titleLabel->sizeHint().width()) / 2, TITLE_TOP);
}

QSize ClCaptionBar::sizeHint() const {
    return SIZE;
}
