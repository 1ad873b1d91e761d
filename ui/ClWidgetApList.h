// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QWidget>

class QVBoxLayout;

/// A column of rows, each followed by a thin line. For the keyboard it is one control: the Tab key
/// enters and leaves it, the arrow keys, Home and End go from row to row.
class ClWidgetApList : public QWidget {
    Q_OBJECT

public:
    ClWidgetApList();

    /// Appends @p w, and takes ownership of it.
    void addWidget(QWidget* w);

Q_SIGNALS:
    void sigFocusMoved(QWidget* row);  ///< a key has led to @p row, which may be out of sight

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void moveFocus(qsizetype from, qsizetype to);

    QVBoxLayout* m_column;
    QList<QWidget*> m_rows;
};
