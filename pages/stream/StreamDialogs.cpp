// SPDX-License-Identifier: MIT
#include "pages/stream/StreamDialogs.h"

#include "pages/common/ControlGroups.h"
#include "pages/stream/ClStreamText.h"
#include "ui/ClDialogColumn.h"

#include <QList>
#include <QRadioButton>
#include <QSize>

#include <algorithm>
#include <array>
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

namespace {

constexpr QSize FULL_HD{1920, 1080};

constexpr std::array REC_SIZES{
    stStreamChoice<QSize>{QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "Full HD(1920x1080)"),
                          FULL_HD},
    stStreamChoice<QSize>{QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "HD(1280x720)"),
                          QSize(1280, 720)},
    stStreamChoice<QSize>{QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "Economy(640x480)"),
                          QSize(640, 480)},
};

}  // namespace

ClDialogRecSetting::ClDialogRecSetting(QWidget* parent)
    : ClDialogBase(parent),
      m_sizes(new ClStreamChoices<QSize>(
          ClStreamText::tr("Set the image quality at the time of %1").arg(ClStreamText::tr("Rec")),
          REC_SIZES, FULL_HD, this)) {
    (new ClDialogColumn(this))->addWidget(m_sizes);
    addButtons();
}

void ClDialogRecSetting::setParam(const QVariantList& params) {
    m_sizes->check(params.value(0).toSize());
}

QVariantList ClDialogRecSetting::getParam() {
    return {m_sizes->value()};
}

namespace {

constexpr QSize STANDARD{320, 240};
constexpr unsigned int SMOOTHEST = 30;

constexpr std::array LIVE_SIZES{
    stStreamChoice<QSize>{QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "Fine(800x480)"),
                          QSize(800, 480)},
    stStreamChoice<QSize>{QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "Standard(320x240)"),
                          STANDARD},
};

constexpr std::array RATES{
    stStreamChoice<unsigned int>{QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "30 sheets(30fps)"),
                                 SMOOTHEST},
    stStreamChoice<unsigned int>{QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "15 sheets(15fps)"),
                                 15},
    stStreamChoice<unsigned int>{QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "10 sheets(10fps)"),
                                 10},
    stStreamChoice<unsigned int>{QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "6 sheets(6fps)"), 6},
    stStreamChoice<unsigned int>{QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "1 sheets(1fps)"), 1},
};

}  // namespace

ClDialogStreamSetting::ClDialogStreamSetting(QWidget* parent)
    : ClDialogBase(parent),
      m_sizes(new ClStreamChoices<QSize>(ClStreamText::tr("Set the image quality at the time of %1")
                                             .arg(ClStreamText::tr("LiveView")),
                                         LIVE_SIZES, STANDARD, this)),
      m_rates(new ClStreamChoices<unsigned int>(
          ClStreamText::tr("Set the fps at the time of %1").arg(ClStreamText::tr("LiveView")),
          RATES, SMOOTHEST, this)) {
    auto* column = new ClDialogColumn(this);
    column->addWidget(m_sizes);
    column->addWidget(m_rates);
    addButtons();
}

void ClDialogStreamSetting::setParam(const QVariantList& params) {
    m_sizes->check(params.value(0).toSize());
    m_rates->check(params.value(1).toUInt());
}

QVariantList ClDialogStreamSetting::getParam() {
    return {m_sizes->value(), m_rates->value()};
}
