// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

/// The banner of the help page: the logo and, in letters as high as it, what the program is.
class ClWidgetLogo : public QWidget {
    Q_OBJECT

public:
    explicit ClWidgetLogo(QWidget* parent);
};
