// SPDX-License-Identifier: MIT
#include "tests/support/TextFit.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QList>
#include <QStyle>
#include <QTextDocumentFragment>
#include <QTextLayout>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

struct stText {
    const QWidget* widget;
    QString text;
    QSize needed;  ///< pixels
    QRect place;   ///< of the text, in the widget
};

int widthNeeded(const QLabel& label) {
    return label.wordWrap() ? 0 : label.sizeHint().width();
}

/// Typed texts may be longer than the edit, but not those that it is shown with.
QSize sizeNeeded(const QLineEdit& edit) {
    constexpr int TEXT_MARGIN = 2;  // pixels, on either side, by Qt
    const int margin = edit.style()->pixelMetric(QStyle::PM_DefaultFrameWidth) + TEXT_MARGIN;
    return {edit.fontMetrics().horizontalAdvance(edit.displayText()) + 2 * margin,
            edit.sizeHint().height()};
}

/// From the highest to the lowest ink of the text on one line whose top is at 0. The line itself
/// may be higher, by far in some fonts.
QRect inkOf(const QString& text, const QFont& font) {
    QTextLayout layout(text, font);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return QFontMetrics(font).tightBoundingRect(text).translated(0, qRound(line.ascent()));
}

/// Where the letters are: a label may be much larger than its text, and also lower.
QRect lettersOf(const QLabel& label) {
    const int flags =
        static_cast<int>(label.alignment()) | (label.wordWrap() ? Qt::TextWordWrap : 0);
    const QRect place = label.contentsRect();
    QRect letters = label.fontMetrics().boundingRect(place, flags, label.text());
    if (!label.wordWrap() && !label.text().contains(u'\n')) {
        const QRect ink = inkOf(label.text(), label.font());
        letters = {letters.left(), letters.top() + ink.top(), letters.width(), ink.height()};
    }
    letters.setRight(std::min(letters.right(), place.right()));
    return letters;
}

std::optional<stText> textOf(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        return stText{label, label->text(), {widthNeeded(*label), 0}, lettersOf(*label)};
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        return stText{button, button->text(), button->sizeHint(), button->rect()};
    }
    if (const auto* choice = qobject_cast<const QComboBox*>(&widget)) {
        return stText{choice, choice->currentText(), choice->sizeHint(), choice->rect()};
    }
    if (const auto* number = qobject_cast<const QAbstractSpinBox*>(&widget)) {
        return stText{number, number->text(), number->sizeHint(), number->rect()};
    }
    // The edit within another control is that one's matter.
    const auto* edit = qobject_cast<const QLineEdit*>(&widget);
    if (edit != nullptr && qobject_cast<const QAbstractSpinBox*>(edit->parent()) == nullptr) {
        return stText{edit, edit->displayText(), sizeNeeded(*edit), edit->rect()};
    }
    return {};
}

QList<stText> textsOf(const QWidget& window) {
    QList<stText> texts;
    for (const QWidget* const widget : window.findChildren<QWidget*>()) {
        const std::optional<stText> text = textOf(*widget);
        if (text && !text->text.isEmpty() && widget->isVisible()) {
            texts.append(*text);
        }
    }
    return texts;
}

bool isViewport(const QWidget& widget) {
    const auto* area = qobject_cast<const QAbstractScrollArea*>(widget.parentWidget());
    return area != nullptr && area->viewport() == &widget;
}

/// Whether the text's widget and those around it leave all of it visible; what can be scrolled into
/// view is.
bool isWithinItsWidgets(const QWidget& window, const stText& text) {
    const QWidget* widget = text.widget;
    QRect place = text.place;
    while (!isViewport(*widget)) {
        if (!widget->rect().contains(place)) {
            return false;
        }
        if (widget == &window) {
            break;
        }
        place.translate(widget->pos());
        widget = widget->parentWidget();
    }
    return true;
}

/// Where the text can be seen in the window.
QRect visiblePlace(const QWidget& window, const stText& text) {
    const QWidget* widget = text.widget;
    QRect place = text.place;
    while (widget != &window) {
        place.translate(widget->pos());
        widget = widget->parentWidget();
        place &= widget->rect();
    }
    return place;
}

bool saysAllInToolTip(const stText& text) {
    return QTextDocumentFragment::fromHtml(text.widget->toolTip()).toPlainText() == text.text;
}

bool isCutOff(const QWidget& window, const stText& text) {
    const QSize size = text.widget->size();
    const bool isTooSmall =
        size.width() < text.needed.width() || size.height() < text.needed.height();
    return (isTooSmall && !saysAllInToolTip(text)) || !isWithinItsWidgets(window, text);
}

bool liesOn(const QWidget& window, const stText& one, const stText& other) {
    return !one.widget->isAncestorOf(other.widget) && !other.widget->isAncestorOf(one.widget) &&
           visiblePlace(window, one).intersects(visiblePlace(window, other));
}

}  // namespace

QStringList misplacedTexts(const QWidget& window) {
    const QList<stText> texts = textsOf(window);
    QStringList complaints;
    for (qsizetype i = 0; i < texts.size(); ++i) {
        if (isCutOff(window, texts[i])) {
            complaints << u"'%1' is cut off"_s.arg(texts[i].text);
        }
        for (qsizetype j = i + 1; j < texts.size(); ++j) {
            if (liesOn(window, texts[i], texts[j])) {
                complaints << u"'%1' lies on '%2'"_s.arg(texts[i].text, texts[j].text);
            }
        }
    }
    return complaints;
}
