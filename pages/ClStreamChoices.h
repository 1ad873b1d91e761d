// SPDX-License-Identifier: MIT
#pragma once

#include "pages/ClWidgetStreamSetting.h"

#include <QBoxLayout>
#include <QButtonGroup>
#include <QLabel>
#include <QRadioButton>

#include <algorithm>
#include <span>

/// One radio button of the stream setting page's dialogs and the value that it stands for. The text
/// is translated in the page's context.
template <class Value>
struct stStreamChoice {
    const char* text;
    Value value;
};

/// An exclusive group of radio buttons below a line of text. The widgets belong to the dialog.
template <class Value>
class ClStreamChoices {
public:
    using Choices = std::span<const stStreamChoice<Value>>;

    /// Makes the widgets. @p choices outlives this object; @p fallback is the value of one of them.
    ClStreamChoices(QWidget* dialog, const QString& caption, Choices choices, const Value& fallback)
        : m_caption(new QLabel(caption, dialog)),
          m_group(new QButtonGroup(dialog)),
          m_choices(choices),
          m_fallback(fallback) {
        for (const stStreamChoice<Value>& choice : m_choices) {
            auto* button = new QRadioButton(ClWidgetStreamSetting::tr(choice.text), dialog);
            button->setAccessibleDescription(caption);
            m_group->addButton(button, static_cast<int>(m_group->buttons().size()));
        }
        check(m_fallback);
    }

    /// Appends caption and buttons to @p column.
    void addTo(QBoxLayout& column) const {
        column.addWidget(m_caption);
        for (QAbstractButton* button : m_group->buttons()) {
            column.addWidget(button);
        }
    }

    /// Checks the button that stands for @p value, or the fallback's when there is none.
    void check(const Value& value) {
        auto found = std::ranges::find(m_choices, value, &stStreamChoice<Value>::value);
        if (found == m_choices.end()) {
            found = std::ranges::find(m_choices, m_fallback, &stStreamChoice<Value>::value);
        }
        m_group->button(static_cast<int>(found - m_choices.begin()))->setChecked(true);
        // As the buttons do by themselves, but only once one of them has had the focus.
        for (QAbstractButton* button : m_group->buttons()) {
            button->setFocusPolicy(button->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
        }
    }

    /// Lets the keyboard start here, at the checked button.
    void takeFocus() { m_group->checkedButton()->setFocus(); }

    /// The value of the checked button.
    [[nodiscard]] Value value() const {
        return m_choices[static_cast<std::size_t>(m_group->checkedId())].value;
    }

private:
    QLabel* m_caption;
    QButtonGroup* m_group;
    Choices m_choices;
    Value m_fallback;
};
