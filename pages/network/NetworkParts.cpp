// SPDX-License-Identifier: MIT
#include "pages/network/NetworkParts.h"

#include "pages/common/PageParts.h"
#include "pages/network/ClNetworkText.h"
#include "ui/ButtonKeys.h"
#include "ui/ClTextButton.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

namespace {

constexpr int BOX_RIGHT = 585;

/// Its accepting button does not look like the default one. In a dialog that look moves to
/// whichever button has the focus; on a page it would stay.
class PageButtonBox : public QDialogButtonBox {
protected:
    bool event(QEvent* event) override {
        const bool isHandled = QDialogButtonBox::event(event);
        if (event->type() == QEvent::Show) {
            for (QPushButton* button : findChildren<QPushButton*>()) {
                button->setDefault(false);
            }
        }
        return isHandled;
    }
};

}  // namespace

std::unique_ptr<QDialogButtonBox> createPageButtonBox(const QString& accept,
                                                      const QString& reject) {
    std::unique_ptr<QDialogButtonBox> box = std::make_unique<PageButtonBox>();
    box->addButton(new ClTextButton(accept), QDialogButtonBox::AcceptRole);
    box->addButton(new ClTextButton(reject), QDialogButtonBox::RejectRole);
    return box;
}

QDialogButtonBox* addDecisionBox(int y, QWidget* page) {
    QDialogButtonBox* box =
        createPageButtonBox(ClNetworkText::tr("Decision"), ClNetworkText::tr("Back")).release();
    box->setParent(page);
    for (QPushButton* button : box->findChildren<QPushButton*>()) {
        button->setMinimumSize(BUTTON_MINIMUM);
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

namespace {

constexpr int BAR_WIDTH = 600;
constexpr int RIGHT_MARGIN = 15;
constexpr int SPACING = 10;

}  // namespace

QList<QPushButton*> addButtonBar(const QStringList& texts, int y, QWidget* page) {
    auto* bar = new QWidget(page);
    bar->setFixedWidth(BAR_WIDTH);
    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, RIGHT_MARGIN, 0);
    layout->setSpacing(SPACING);
    layout->addItem(new QSpacerItem(1, 1, QSizePolicy::Expanding, QSizePolicy::Minimum));
    QList<QPushButton*> buttons;
    for (const QString& text : texts) {
        auto* button = new ClTextButton(text, bar);
        button->setMinimumSize(BUTTON_MINIMUM);
        layout->addWidget(button);
        buttons.append(button);
    }
    bar->move(0, y);
    return buttons;
}
