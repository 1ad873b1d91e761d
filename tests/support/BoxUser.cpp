// SPDX-License-Identifier: MIT
#include "tests/support/BoxUser.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>

#include <algorithm>

namespace {

constexpr int LOOK_INTERVAL_MS = 2;

QList<QAbstractButton*> buttonsOf(const QWidget& box) {
    const auto* row = box.findChild<QDialogButtonBox*>();
    return row == nullptr ? QList<QAbstractButton*>() : row->buttons();
}

void clickButton(QWidget& box, const QList<QDialogButtonBox::ButtonRole>& roles) {
    const auto* row = box.findChild<QDialogButtonBox*>();
    for (QAbstractButton* button : buttonsOf(box)) {
        if (roles.contains(row->buttonRole(button))) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    QTest::qFail("The box has no such button.", __FILE__, __LINE__);
    box.close();
}

QString textOf(const QWidget& box) {
    if (const auto* message = qobject_cast<const QMessageBox*>(&box)) {
        return message->text();
    }
    const auto* label = box.findChild<QLabel*>();
    return label == nullptr ? QString() : label->text();
}

stModalBox read(const QWidget& box) {
    QList<QAbstractButton*> buttons = buttonsOf(box);
    std::ranges::sort(buttons, {}, [&box](const QAbstractButton* button) {
        return button->mapTo(&box, QPoint()).x();
    });
    QStringList texts;
    for (const QAbstractButton* button : std::as_const(buttons)) {
        texts.append(button->text().remove(u'&'));
    }
    return {box.windowTitle(), textOf(box), texts, box.parentWidget()};
}

}  // namespace

void acceptBox(QWidget& box) {
    clickButton(box, {QDialogButtonBox::AcceptRole, QDialogButtonBox::YesRole});
}

void rejectBox(QWidget& box) {
    clickButton(box, {QDialogButtonBox::RejectRole, QDialogButtonBox::NoRole});
}

void escapeBox(QWidget& box) {
    QTest::keyClick(&box, Qt::Key_Escape);
}

BoxUser::BoxUser(Action action) : m_action(std::move(action)) {
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
    m_timer.start(LOOK_INTERVAL_MS);
}

void BoxUser::look() {
    QWidget* box = QApplication::activeModalWidget();
    // An action that waits runs the event loop, and with it this timer.
    if (box == nullptr || !box->isVisible() || m_isActing) {
        return;
    }
    m_isActing = true;
    m_boxes.append(read(*box));
    const QPointer<QWidget> opened = box;
    m_action(*box);
    // An action that has failed leaves the box open, and the test waiting.
    if (opened != nullptr) {
        opened->close();
    }
    m_isActing = false;
}

QStringList BoxUser::texts() const {
    QStringList texts;
    for (const stModalBox& box : m_boxes) {
        texts.append(box.text);
    }
    return texts;
}
