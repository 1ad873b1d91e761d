// SPDX-License-Identifier: MIT
#include "ui/ApBadges.h"

#include "ui/Artwork.h"
#include "ui/WidgetLook.h"

#include <QPainter>

#include <algorithm>
#include <array>

ClLinkCheck::ClLinkCheck(QWidget* parent) : QLabel(parent) {}

void ClLinkCheck::setCheck(bool checked) {
    setPixmap(checked ? artwork(QStringLiteral(":/img/ap_check")) : QPixmap());
    setAccessibleName(checked ? tr("Linked") : QString());
    adjustSize();
}

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
    // The parts of a button take the button's text colour.
    for (const QPalette::ColorRole text : {QPalette::WindowText, QPalette::ButtonText}) {
        setColour(m_label, text, Qt::white);
    }
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

namespace {

struct stLevel {
    int from;  ///< the lowest strength that reaches it
    const char* picture;
};

// The strongest first.
constexpr std::array LEVELS{
    stLevel{80, ":img/ap_rssi3"},
    stLevel{30, ":/img/ap_rssi2"},
    stLevel{1, ":/img/ap_rssi1"},
};

QPixmap pictureOf(int rssi) {
    const auto* level =
        std::ranges::find_if(LEVELS, [rssi](const stLevel& each) { return rssi >= each.from; });
    return level == LEVELS.end() ? QPixmap() : artwork(QString::fromLatin1(level->picture));
}

}  // namespace

ClWidgetRssi::ClWidgetRssi(int rssi, QWidget* parent) : QLabel(parent) {
    setValue(rssi);
}

void ClWidgetRssi::setValue(int rssi) {
    const QPixmap picture = pictureOf(rssi);
    setPixmap(picture);
    setAccessibleName(picture.isNull() ? QString() : tr("Signal strength %1").arg(rssi));
    resize(picture.deviceIndependentSize().toSize());
}
