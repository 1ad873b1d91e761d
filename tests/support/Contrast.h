// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QList>
#include <QRect>
#include <QString>

class QWidget;

// Contrast as the accessibility guidelines (WCAG 2) define it, from 1 (none) to 21 (black on
// white).

inline constexpr qreal READABLE = 4.5;  ///< what they ask of text of the tool's size
inline constexpr qreal VISIBLE = 3;     ///< and of a picture that means something

[[nodiscard]] qreal contrast(const QColor& one, const QColor& other);

/// The colour that most pixels of @p picture have.
[[nodiscard]] QColor groundOf(const QImage& picture);

/// The contrast to @p ground of the pixel that differs most from it: of the core of a stroke.
[[nodiscard]] qreal strongestContrast(const QImage& picture, const QColor& ground);

/// The part of @p picture at @p place, in the pixels of the widget that it shows.
[[nodiscard]] QImage partOf(const QImage& picture, const QRect& place);

/// A text that can be seen, without the marks and borders around it.
struct stShownText {
    QString text;
    QRect place;  ///< in the window
};

/// The texts that @p window shows, disabled ones included.
[[nodiscard]] QList<stShownText> shownTexts(const QWidget& window);
