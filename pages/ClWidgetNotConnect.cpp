// SPDX-License-Identifier: MIT
#include "pages/ClWidgetNotConnect.h"

#include "ui/Artwork.h"

#include <QLabel>
#include <QVBoxLayout>

ClWidgetNotConnect::ClWidgetNotConnect(QWidget* parent) : ClWidgetBase(parent) {
    auto* picture = new QLabel(this);
    picture->setPixmap(artwork(QStringLiteral(":/img/camera_notconnect")));
    picture->setAlignment(Qt::AlignCenter);

    auto* text = new QLabel(tr("Connect camera by USB cable"), this);
    picture->setAccessibleName(text->text());
    text->setAlignment(Qt::AlignCenter);

    auto* layout = new QVBoxLayout(this);
    layout->addSpacerItem(new QSpacerItem(1, 1, QSizePolicy::Minimum, QSizePolicy::Expanding));
    layout->addWidget(picture);
    layout->addWidget(text);
    layout->addSpacerItem(new QSpacerItem(1, 1, QSizePolicy::Minimum, QSizePolicy::Expanding));
}
