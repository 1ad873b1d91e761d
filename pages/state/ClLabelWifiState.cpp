// SPDX-License-Identifier: MIT
#include "pages/state/ClLabelWifiState.h"

#include "pages/common/WifiCodes.h"
#include "ui/Artwork.h"
#include "ui/WidgetLook.h"

#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <array>

namespace {

struct stAppearance {
    unsigned int state;
    const char* picture;
    const char* text;  ///< null leaves the text that stands
};

constexpr std::array APPEARANCES{
    stAppearance{WIFI_NOT_LINKED, ":/img/wifi_notlink",
                 QT_TRANSLATE_NOOP("ClLabelWifiState", "Not link")},
    stAppearance{WIFI_LINKED, ":/img/wifi_link", QT_TRANSLATE_NOOP("ClLabelWifiState", "Link")},
    stAppearance{WIFI_ADHOC_LINKED, ":/img/wifi_link",
                 QT_TRANSLATE_NOOP("ClLabelWifiState", "Adhoc Link")},
};
constexpr stAppearance UNKNOWN{0, ":/img/wifi_link", nullptr};

constexpr QSize BADGE_SIZE{112, 24};

}  // namespace

ClLabelWifiState::ClLabelWifiState(QWidget* parent)
    : QLabel(tr(APPEARANCES.front().text), parent),
      m_picture(QString::fromLatin1(APPEARANCES.front().picture)) {
    setFixedSize(BADGE_SIZE);
    setAlignment(Qt::AlignCenter);
    setBold(this);
    setColour(this, QPalette::WindowText, Qt::white);
}

void ClLabelWifiState::setState(unsigned int state) {
    if (state == m_state) {
        return;
    }
    m_state = state;
    const auto found = std::ranges::find(APPEARANCES, state, &stAppearance::state);
    const stAppearance& appearance = found == APPEARANCES.end() ? UNKNOWN : *found;
    m_picture = QString::fromLatin1(appearance.picture);
    if (appearance.text != nullptr) {
        setText(tr(appearance.text));
    }
    update();
}

void ClLabelWifiState::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        drawArtwork(painter, event->rect(), artwork(m_picture, devicePixelRatioF()));
    }
    QLabel::paintEvent(event);
}
