// SPDX-License-Identifier: MIT
#include "pages/ClWidgetSelectMode.h"

#include "ui/ButtonKeys.h"
#include "ui/ClButtonMode.h"

#include <QButtonGroup>
#include <QHBoxLayout>

#include <array>
#include <utility>

namespace {

struct stMode {
    const char* image;
    const char* caption;
};

constexpr std::array MODES{
    stMode{":/img/button_camera", QT_TRANSLATE_NOOP("ClWidgetSelectMode", "Camera state")},
    stMode{":/img/button_network", QT_TRANSLATE_NOOP("ClWidgetSelectMode", "Network setting")},
    stMode{":/img/button_setting", QT_TRANSLATE_NOOP("ClWidgetSelectMode", "Basic setting")},
    stMode{":/img/button_stream", QT_TRANSLATE_NOOP("ClWidgetSelectMode", "Stream setting")},
    stMode{":/img/button_help", QT_TRANSLATE_NOOP("ClWidgetSelectMode", "Help")},
};
static_assert(MODES.size() == MODE_LAST);

constexpr int SIDE_MARGIN = 20;

}  // namespace

ClWidgetSelectMode::ClWidgetSelectMode(QWidget* parent)
    : ClWidgetBase(parent),
      m_group(new QButtonGroup(this)) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(SIDE_MARGIN, 0, SIDE_MARGIN, 0);
    layout->setSpacing(0);
    for (const stMode& mode : MODES) {
        auto* button = new ClButtonMode(QString::fromLatin1(mode.image), tr(mode.caption), this);
        layout->addWidget(button);
        connect(button, &ClButtonMode::clicked, this, qOverload<>(&ClWidgetSelectMode::slotSelect));
        m_group->addButton(button);
        m_buttons.append(button);
        addKeys(button, {Qt::CTRL | static_cast<Qt::Key>(Qt::Key_0 + m_buttons.size())});
        // A press on the mode on show refreshes its page.
        addKeys(button, {Qt::Key_F5}, eKeysWhile::Checked);
    }
    addKeys(m_buttons.last(), {Qt::Key_F1});
    setActiveMode(MODE_NOT_CONNECTED);
}

void ClWidgetSelectMode::slotSelect() {
    slotSelect(false);
}

void ClWidgetSelectMode::slotSelect(bool /*bIsPolling*/) {
    // A sender that is none of the buttons has index -1, which makes mode 0.
    const auto index = m_buttons.indexOf(qobject_cast<ClButtonMode*>(sender()));
    Q_EMIT sigChangeMode(static_cast<qint32>(index + 1));
}

void ClWidgetSelectMode::setActiveMode(int mode) {
    if (mode < MODE_NOT_CONNECTED || mode > MODE_LAST) {
        return;
    }
    const bool isConnected = mode != MODE_NOT_CONNECTED;
    if (isConnected) {
        m_buttons[mode - 1]->setChecked(true);
    } else if (QAbstractButton* checked = m_group->checkedButton()) {
        checked->setChecked(false);
    }
    // The buttons change state together: the first one that need not change ends the walk.
    for (ClButtonMode* button : std::as_const(m_buttons)) {
        if (button->isEnabled() == isConnected) {
            break;
        }
        button->setEnabled(isConnected);
    }
    Q_EMIT sigChangeMode(mode);
}
