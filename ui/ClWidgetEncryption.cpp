// SPDX-License-Identifier: MIT
#include "ui/ClWidgetEncryption.h"

#include "ui/Artwork.h"

#include <QLabel>
#include <QPainter>

#include <algorithm>
#include <array>

namespace {

struct stEncryption {
    int type;
    const char* text;
};

constexpr std::array ENCRYPTIONS{
    stEncryption{-1, ""},    stEncryption{0, ""},    stEncryption{1, "WEP"},
    stEncryption{2, "TKIP"}, stEncryption{4, "AES"},
};

constexpr QSize BADGE_SIZE{112, 24};
constexpr QRect LABEL_PLACE{25, 0, 75, 24};

}  // namespace

ClWidgetEncryption::ClWidgetEncryption(int type, QWidget* parent)
    : QWidget(parent),
      m_label(new QLabel(this)) {
    m_label->move(LABEL_PLACE.topLeft());
    m_label->setFixedSize(LABEL_PLACE.size());
    m_label->setAlignment(Qt::AlignCenter);
    QPalette white = m_label->palette();
    white.setColor(QPalette::WindowText, Qt::white);
    white.setColor(QPalette::ButtonText, Qt::white);
    m_label->setPalette(white);
    setValue(type);
}

void ClWidgetEncryption::setValue(int type) {
    const auto* known = std::ranges::find(ENCRYPTIONS, type, &stEncryption::type);
    if (known != ENCRYPTIONS.end()) {
        m_label->setText(QString::fromLatin1(known->text));
    }
    setFixedSize(getIsEncryption() ? BADGE_SIZE : QSize(0, 0));
}

QString ClWidgetEncryption::text() const {
    return m_label->text();
}

bool ClWidgetEncryption::getIsEncryption() const {
    return !text().isEmpty();
}

void ClWidgetEncryption::paintEvent(QPaintEvent* /*event*/) {
    if (getIsEncryption()) {
        QPainter painter(this);
        painter.drawPixmap(rect(),
                           artwork(QStringLiteral(":/img/ap_encryption"), devicePixelRatioF()));
    }
}
