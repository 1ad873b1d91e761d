// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <algorithm>

/// A user before a page, who finds what is visible by its text, clicks and types.
class PageUser {
public:
    explicit PageUser(const QWidget& page) : m_page(page) {}

    [[nodiscard]] QAbstractButton& button(const QString& text) const {
        return *found<QAbstractButton>(text);
    }
    [[nodiscard]] QLabel& label(const QString& text) const { return *found<QLabel>(text); }
    /// The line edit behind the caption @p text.
    [[nodiscard]] QLineEdit& edit(const QString& text) const {
        auto* edit = qobject_cast<QLineEdit*>(label(text).buddy());
        if (edit == nullptr) {
            qFatal("There is no line edit behind \"%s\".", qPrintable(text));
        }
        return *edit;
    }

    [[nodiscard]] bool shows(const QString& text) const {
        return find<QLabel>(text) != nullptr || find<QAbstractButton>(text) != nullptr;
    }
    [[nodiscard]] bool isChecked(const QString& text) const { return button(text).isChecked(); }

    /// At the left, where the mark of a check box is.
    void click(const QString& text) const {
        QAbstractButton& target = button(text);
        QTest::mouseClick(&target, Qt::LeftButton, {}, QPoint(10, target.height() / 2));
    }

    /// Replaces what stands in the line edit behind @p caption, key by key.
    void type(const QString& caption, const QString& text) const {
        QLineEdit& target = edit(caption);
        QTest::keyClick(&target, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&target, Qt::Key_Delete);
        QTest::keyClicks(&target, text);
    }

private:
    template <class Widget>
    [[nodiscard]] Widget* find(const QString& text) const {
        const QList<Widget*> widgets = m_page.findChildren<Widget*>();
        const auto match = std::ranges::find_if(widgets, [&text](const Widget* widget) {
            return widget->isVisible() && widget->text() == text;
        });
        return match == widgets.end() ? nullptr : *match;
    }

    template <class Widget>
    [[nodiscard]] Widget* found(const QString& text) const {
        Widget* widget = find<Widget>(text);
        if (widget == nullptr) {
            qFatal("Nothing visible says \"%s\".", qPrintable(text));
        }
        return widget;
    }

    const QWidget& m_page;
};
