// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/DialogControls.h"

#include <QSpinBox>
#include <QStyleOptionSpinBox>
#include <QTest>

/// A user before one of a dialog's rows of hours, minutes and seconds.
class TimeRowUser {
public:
    enum Box { Hours, Minutes, Seconds };

    /// @p row counts from the top, from 0 on.
    explicit TimeRowUser(QWidget& dialog, int row = 0) : m_dialog(dialog), m_first(row * 3) {}

    /// "1:2:5"
    [[nodiscard]] QString time() const {
        return box(Hours)->text() + u':' + box(Minutes)->text() + u':' + box(Seconds)->text();
    }

    /// Whether all three boxes can be used; none of them must differ from the others.
    [[nodiscard]] bool isEnabled() const {
        const bool isFirst = box(Hours)->isEnabled();
        QTest::qVerify(box(Minutes)->isEnabled() == isFirst && box(Seconds)->isEnabled() == isFirst,
                       "the boxes are enabled together", "", __FILE__, __LINE__);
        return isFirst;
    }

    /// Clicks the arrow up or down of @p which.
    void stepUp(Box which) const { clickArrow(box(which), QStyle::SC_SpinBoxUp); }
    void stepDown(Box which) const { clickArrow(box(which), QStyle::SC_SpinBoxDown); }

    void press(Box which, Qt::Key key) const { QTest::keyClick(box(which), key); }

    /// Types over what stands in @p which.
    void type(Box which, const QString& text) const {
        DialogControls(m_dialog).spin(m_first + which, text);
    }

private:
    [[nodiscard]] QSpinBox* box(Box which) const {
        return m_dialog.findChildren<QSpinBox*>().at(m_first + which);
    }

    static void clickArrow(QSpinBox* box, QStyle::SubControl arrow) {
        QStyleOptionSpinBox option;
        option.initFrom(box);
        option.subControls = QStyle::SC_All;
        const QRect place = box->style()->subControlRect(QStyle::CC_SpinBox, &option, arrow, box);
        QTest::mouseClick(box, Qt::LeftButton, {}, place.center());
    }

    QWidget& m_dialog;
    int m_first;
};
