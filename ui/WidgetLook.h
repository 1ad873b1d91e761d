// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>

class QWidget;

// What single widgets have of their own in the look of the window.

void setBold(QWidget* widget);

/// Gives @p widget the colour @p colour, enabled or not, for what @p role says.
void setColour(QWidget* widget, QPalette::ColorRole role, const QColor& colour);
