// SPDX-License-Identifier: MIT
#include "tests/support/DialogControls.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QSlider>
#include <QSpinBox>
#include <QTest>

namespace {

/// The line edits that are no part of another control.
QList<QLineEdit*> lineEdits(const QWidget& dialog) {
    QList<QLineEdit*> edits = dialog.findChildren<QLineEdit*>();
    edits.removeIf([](const QLineEdit* edit) {
        return qobject_cast<const QAbstractSpinBox*>(edit->parent()) != nullptr ||
               qobject_cast<const QComboBox*>(edit->parent()) != nullptr;
    });
    return edits;
}

void typeOver(QWidget& control, const QString& text) {
    QTest::mouseClick(&control, Qt::LeftButton, {}, QPoint(5, control.height() / 2));
    QTest::keyClick(&control, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&control, Qt::Key_Delete);
    QTest::keyClicks(&control, text);
}

}  // namespace

QStringList DialogControls::values() const {
    QStringList values;
    for (const QAbstractButton* button : m_dialog.findChildren<QAbstractButton*>()) {
        if (button->isChecked()) {
            values.append(button->text());
        }
    }
    for (const QSpinBox* box : m_dialog.findChildren<QSpinBox*>()) {
        values.append(box->text());
    }
    for (const QLineEdit* edit : lineEdits(m_dialog)) {
        values.append(edit->text());
    }
    for (const QComboBox* box : m_dialog.findChildren<QComboBox*>()) {
        values.append(box->currentText());
    }
    for (const QSlider* slider : m_dialog.findChildren<QSlider*>()) {
        values.append(QString::number(slider->value()));
    }
    return values;
}

void DialogControls::click(const QString& text) const {
    for (QAbstractButton* const button : m_dialog.findChildren<QAbstractButton*>()) {
        if (button->text().remove(u'&') == text) {
            // Where the mark of a radio button is: beside its text a click has no effect.
            QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
            return;
        }
    }
    QTest::qFail("The dialog has no such button.", __FILE__, __LINE__);
}

void DialogControls::fill(int index, const QString& text) const {
    typeOver(*lineEdits(m_dialog).at(index), text);
}

void DialogControls::spin(int index, const QString& text) const {
    QSpinBox* box = m_dialog.findChildren<QSpinBox*>().at(index);
    typeOver(*box, text);
}

void DialogControls::choose(Qt::Key key) const {
    QTest::keyClick(m_dialog.findChild<QComboBox*>(), key);
}

void DialogControls::slide(Qt::Key key) const {
    QTest::keyClick(m_dialog.findChild<QSlider*>(), key);
}
