// SPDX-License-Identifier: MIT
#pragma once

#include "pages/common/ClRadioGroup.h"
#include "pages/stream/ClStreamText.h"

#include <QList>
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

/// A radio group whose buttons stand for values.
template <class Value>
class ClStreamChoices : public ClRadioGroup {
public:
    using Choices = std::span<const stStreamChoice<Value>>;

    /// @p choices outlives this object; @p fallback is the value of one of them.
    ClStreamChoices(const QString& label, Choices choices, const Value& fallback, QWidget* parent)
        : ClRadioGroup(label, parent),
          m_choices(choices),
          m_fallback(fallback) {
        for (const stStreamChoice<Value>& choice : m_choices) {
            m_buttons.append(addButton(ClStreamText::tr(choice.text)));
        }
        check(m_fallback);
    }

    /// Checks the button that stands for @p value, or the fallback's when there is none.
    void check(const Value& value) {
        auto found = std::ranges::find(m_choices, value, &stStreamChoice<Value>::value);
        if (found == m_choices.end()) {
            found = std::ranges::find(m_choices, m_fallback, &stStreamChoice<Value>::value);
        }
        m_buttons[found - m_choices.begin()]->setChecked(true);
    }

    /// The value of the checked button.
    [[nodiscard]] Value value() const {
        const auto checked = std::ranges::find_if(m_buttons, &QRadioButton::isChecked);
        return m_choices[static_cast<std::size_t>(checked - m_buttons.begin())].value;
    }

private:
    QList<QRadioButton*> m_buttons;  ///< in the order of the choices
    Choices m_choices;
    Value m_fallback;
};
