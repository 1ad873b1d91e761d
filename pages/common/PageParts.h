// SPDX-License-Identifier: MIT
#pragma once

#include <QLatin1StringView>
#include <QPoint>
#include <QSize>

class QLabel;
class QString;
class QWidget;

// The parts that pages at fixed places are made of. They become children of the page.

/// Stands for a value that the camera has not reported.
inline constexpr QLatin1StringView UNKNOWN_VALUE{"--"};

inline constexpr QSize BUTTON_MINIMUM{133, 30};
inline constexpr QSize WIDE_BUTTON_MINIMUM{309, 30};  ///< of a page that is a column of buttons

/// A text at @p place.
QLabel* addLabel(const QString& text, QPoint place, QWidget* page);

/// A caption that ends at @p right. All captions of a block end there, and their values begin right
/// of it.
QLabel* addCaption(const QString& text, int right, int y, QWidget* page);

/// A place for a value of the camera, in bold and empty.
QLabel* addValue(QPoint place, QWidget* page);

/// Shows @p text in a label of addValue(), which grows with it.
void setValue(QLabel* value, const QString& text);

/// Moves @p widget so that at its preferred size it ends at @p right.
void moveEndTo(QWidget* widget, int right, int y);
