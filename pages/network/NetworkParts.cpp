// SPDX-License-Identifier: MIT
#include "pages/network/NetworkParts.h"

#include "pages/common/PageParts.h"
#include "pages/network/ClWidgetNetworkSetting.h"

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
    for (QAbstractButton* button : box->buttons()) {
        button->setMinimumSize(BUTTON_MINIMUM);
        if (box->buttonRole(button) == QDialogButtonBox::AcceptRole) {
            for (const QLineEdit* edit : page->findChildren<QLineEdit*>()) {
                QObject::connect(edit, &QLineEdit::returnPressed, button, &QAbstractButton::click);
            }
        }
    }
    moveEndTo(box, BOX_RIGHT, y);
    return box;
}
