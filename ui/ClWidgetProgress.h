// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QLabel;
class QProgressBar;

/// A bar of 133 pixels with the percentage below it, green from 50 up, red below 10.
class ClWidgetProgress : public QWidget {
    Q_OBJECT

public:
    explicit ClWidgetProgress(QWidget* parent = nullptr);

    /// What the bar measures, for assistive technology.
    void setMeaning(const QString& meaning);

    /// @p value is in percent.
    void setValue(int value);

private:
    QProgressBar* m_bar;
    QLabel* m_label;
};
