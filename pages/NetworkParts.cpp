// SPDX-License-Identifier: MIT
#include "pages/NetworkParts.h"

#include "pages/ClWidgetNetworkSetting.h"
#include "pages/PageParts.h"
#include "ui/ButtonKeys.h"
#include "ui/ButtonRoom.h"

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>

namespace {

constexpr int BOX_RIGHT = 585;

}  // namespace

QDialogButtonBox* addDecisionBox(int y, QWidget* page) {
    QDialogButtonBox* box =
        ClWidgetNetworkSetting::createButtonBox(ClWidgetNetworkSetting::tr("Decision"),
                                                ClWidgetNetworkSetting::tr("Back"))
            .release();
    box->setParent(page);
    for (QPushButton* button : box->findChildren<QPushButton*>()) {
        giveTextRoom(button, BUTTON_MINIMUM);
        if (box->buttonRole(button) == QDialogButtonBox::AcceptRole) {
            for (const QLineEdit* edit : page->findChildren<QLineEdit*>()) {
                QObject::connect(edit, &QLineEdit::returnPressed, button, &QAbstractButton::click);
            }
        } else {
            addKeys(button, {Qt::Key_Escape});
        }
    }
    moveEndTo(box, BOX_RIGHT, y);
    return box;
}
