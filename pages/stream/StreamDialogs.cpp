// SPDX-License-Identifier: MIT
#include "pages/stream/StreamDialogs.h"

#include "pages/common/ControlGroups.h"
#include "pages/stream/ClStreamText.h"
#include "settings/SettingTable.h"
#include "ui/ClDialogColumn.h"

#include <QList>
#include <QRadioButton>
#include <QSize>

#include <algorithm>
#include <array>
#include <span>

/// A radio group whose buttons stand for the values of a setting.
class ClStreamChoices : public ClRadioGroup {
public:
    using Choices = std::span<const stSettingChoice>;
    using Value = decltype(stSettingChoice::value);

    /// @p texts are those of the buttons, in the page's context. Until another is chosen, and for a
    /// value that is no choice, @p fallback is checked.
    ClStreamChoices(const QString& label, Choices choices, std::span<const char* const> texts,
                    const stSettingChoice& fallback, QWidget* parent)
        : ClRadioGroup(label, parent),
          m_choices(choices),
          m_fallback(fallback.value) {
        for (const char* const text : texts) {
            m_buttons.append(addButton(ClStreamText::tr(text)));
        }
        check(m_fallback);
    }

    /// Checks the button that stands for @p value, or the fallback's when there is none.
    void check(const Value& value) {
        auto found = std::ranges::find(m_choices, value, &stSettingChoice::value);
        if (found == m_choices.end()) {
            found = std::ranges::find(m_choices, m_fallback, &stSettingChoice::value);
        }
        m_buttons[found - m_choices.begin()]->setChecked(true);
    }

    /// The value of the checked button.
    template <class Type>
    [[nodiscard]] Type value() const {
        const auto checked = std::ranges::find_if(m_buttons, &QRadioButton::isChecked);
        return std::get<Type>(
            m_choices[static_cast<std::size_t>(checked - m_buttons.begin())].value);
    }

private:
    QList<QRadioButton*> m_buttons;  ///< in the order of the choices
    Choices m_choices;
    Value m_fallback;
};

namespace {

// In the order of the choices.
constexpr std::array REC_SIZES{
    QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "Full HD(1920x1080)"),
    QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "HD(1280x720)"),
    QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "Economy(640x480)"),
};
static_assert(REC_SIZES.size() == SettingChoices::RECORDING_SIZES.size());

}  // namespace

ClDialogRecSetting::ClDialogRecSetting(QWidget* parent)
    : ClDialogBase(parent),
      m_sizes(new ClStreamChoices(
          ClStreamText::tr("Set the image quality at the time of %1").arg(ClStreamText::tr("Rec")),
          SettingChoices::RECORDING_SIZES, REC_SIZES, SettingChoices::RECORDING_SIZES.front(),
          this)) {
    (new ClDialogColumn(this))->addWidget(m_sizes);
    addButtons();
}

void ClDialogRecSetting::setParam(const QVariantList& params) {
    m_sizes->check(params.value(0).toSize());
}

QVariantList ClDialogRecSetting::getParam() {
    return {m_sizes->value<QSize>()};
}

namespace {

// In the order of the choices.
constexpr std::array LIVE_SIZES{
    QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "Fine(800x480)"),
    QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "Standard(320x240)"),
};
constexpr std::array LIVE_RATES{
    QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "30 sheets(30fps)"),
    QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "15 sheets(15fps)"),
    QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "10 sheets(10fps)"),
    QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "6 sheets(6fps)"),
    QT_TRANSLATE_NOOP("ClWidgetStreamSetting", "1 sheets(1fps)"),
};
static_assert(LIVE_SIZES.size() == SettingChoices::LIVE_SIZES.size());
static_assert(LIVE_RATES.size() == SettingChoices::LIVE_RATES.size());

}  // namespace

ClDialogStreamSetting::ClDialogStreamSetting(QWidget* parent)
    : ClDialogBase(parent),
      m_sizes(new ClStreamChoices(ClStreamText::tr("Set the image quality at the time of %1")
                                      .arg(ClStreamText::tr("LiveView")),
                                  SettingChoices::LIVE_SIZES, LIVE_SIZES,
                                  SettingChoices::LIVE_SIZES.back(), this)),
      m_rates(new ClStreamChoices(
          ClStreamText::tr("Set the fps at the time of %1").arg(ClStreamText::tr("LiveView")),
          SettingChoices::LIVE_RATES, LIVE_RATES, SettingChoices::LIVE_RATES.front(), this)) {
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
    return {m_sizes->value<QSize>(), m_rates->value<unsigned int>()};
}
