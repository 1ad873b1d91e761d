// SPDX-License-Identifier: MIT
#include "pages/basic/ChoiceDialogs.h"

#include "pages/basic/ClBasicSettingText.h"
#include "pages/common/ControlGroups.h"
#include "settings/SettingTable.h"
#include "ui/ClDialogColumn.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QSlider>
#include <QVBoxLayout>

#include <algorithm>

namespace {

// From west to east.
constexpr std::array ZONES{
    QT_TRANSLATE_NOOP("ClDialogTimezone", "Eniwetok/Kwajalein\nGMT-12:00"),
    QT_TRANSLATE_NOOP("ClDialogTimezone", "Midway Island/Samoa\nGMT-11:00"),
    QT_TRANSLATE_NOOP("ClDialogTimezone", "Hawaii\nGMT-10:00"),
    QT_TRANSLATE_NOOP("ClDialogTimezone", "Alaska\nGMT-9:00"),
    QT_TRANSLATE_NOOP("ClDialogTimezone", "Pacific STD Time\nGMT-8:00"),
    QT_TRANSLATE_NOOP("ClDialogTimezone", "Mountain STD Time\nGMT-7:00"),
    QT_TRANSLATE_NOOP("ClDialogTimezone", "Central STD Time\nGMT-6:00"),
    QT_TRANSLATE_NOOP("ClDialogTimezone", "Eastern STD Time\nGMT-5:00"),
    QT_TRANSLATE_NOOP("ClDialogTimezone", "Atlantic STD Time\nGMT-4:00"),
    QT_TRANSLATE_NOOP("ClDialogTimezone", "Brasilia/Buenos Aires\nGMT-3:00"),
    QT_TRANSLATE_NOOP("ClDialogTimezone", "Central Atlantic\nGMT-2:00"),
    QT_TRANSLATE_NOOP("ClDialogTimezone", "Azores Islands\nGMT-1:00"),
    QT_TRANSLATE_NOOP("ClDialogTimezone", "London/Lisbon\nGMT+0:00"),
    QT_TRANSLATE_NOOP("ClDialogTimezone", "Paris/Berlin/Rome\nGMT+1:00"),
    QT_TRANSLATE_NOOP("ClDialogTimezone", "Athens/Cairo/Helsink\nGMT+2:00"),
    QT_TRANSLATE_NOOP("ClDialogTimezone", "Moscow/Baghdad\nGMT+3:00"),
    QT_TRANSLATE_NOOP("ClDialogTimezone", "Abu Dhabi\nGMT+4:00"),
    QT_TRANSLATE_NOOP("ClDialogTimezone", "Islamabad/Karachi\nGMT+5:00"),
    QT_TRANSLATE_NOOP("ClDialogTimezone", "Dhaka/Novosibirsk\nGMT+6:00"),
    QT_TRANSLATE_NOOP("ClDialogTimezone", "Bangkok/Hanoi\nGMT+7:00"),
    QT_TRANSLATE_NOOP("ClDialogTimezone", "Beijing/Singapore\nGMT+8:00"),
    QT_TRANSLATE_NOOP("ClDialogTimezone", "Tokyo/Seoul/Yakutsk\nGMT+9:00"),
    QT_TRANSLATE_NOOP("ClDialogTimezone", "Melbourne/Vladivostok\nGMT+10:00"),
    QT_TRANSLATE_NOOP("ClDialogTimezone", "New Caledonia\nGMT+11:00"),
    QT_TRANSLATE_NOOP("ClDialogTimezone", "Auckland/Fiji\nGMT+12:00"),
};
constexpr unsigned int GREENWICH = 12;  // index
constexpr unsigned int WESTMOST = setting("camera.time-zone").range.most;
static_assert(ZONES.size() == WESTMOST + 1);

// The zones west of Greenwich and those from it on are counted from opposite ends.
unsigned int zoneAt(unsigned int index) {
    return index < GREENWICH ? WESTMOST - index : index - GREENWICH;
}

unsigned int indexOf(unsigned int zone) {
    return zone > WESTMOST - GREENWICH ? WESTMOST - zone : zone + GREENWICH;
}

}  // namespace

ClDialogTimezone::ClDialogTimezone(QWidget* parent)
    : ClDialogBase(parent),
      m_zone(new QComboBox(this)) {
    for (const char* const zone : ZONES) {
        m_zone->addItem(tr(zone));
    }
    // The box expects a single line.
    m_zone->setMinimumHeight(m_zone->sizeHint().height() + m_zone->fontMetrics().lineSpacing());
    auto* group = new ClControlGroup(ClBasicSettingText::tr("Setting time zone"), m_zone, this);
    (new ClDialogColumn(this))->addWidget(group);
    addButtons();
    connect(m_zone, &QComboBox::currentIndexChanged, this,
            [this](int index) { setAcceptable(index >= 0); });
}

void ClDialogTimezone::setParam(const QVariantList& params) {
    if (!params.isEmpty()) {
        const unsigned int zone = params[0].toUInt();
        m_zone->setCurrentIndex(zone > WESTMOST ? -1 : static_cast<int>(indexOf(zone)));
    }
}

QVariantList ClDialogTimezone::getParam() {
    return {zoneAt(static_cast<unsigned int>(m_zone->currentIndex()))};
}

namespace {

// In the order of the choices, which count from 1.
constexpr std::array COUNTRY_NAMES{
    QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Japan"),
    QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "United States,Canada,Taiwan"),
    QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "EU"),
    QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Auto"),
};
constexpr unsigned int AUTO = SettingChoices::number(SettingChoices::COUNTRIES, "auto");
constexpr int AUTO_INDEX = AUTO - 1;
static_assert(COUNTRY_NAMES.size() == SettingChoices::COUNTRIES.size() &&
              AUTO == COUNTRY_NAMES.size());

}  // namespace

ClDialogWifiCountry::ClDialogWifiCountry(QWidget* parent)
    : ClDialogBase(parent),
      m_country(new QComboBox(this)) {
    for (const char* const name : COUNTRY_NAMES) {
        m_country->addItem(ClBasicSettingText::tr(name));
    }
    auto* group =
        new ClControlGroup(ClBasicSettingText::tr("Setting Wi-Fi country"), m_country, this);
    (new ClDialogColumn(this))->addWidget(group);
    addButtons();
    connect(m_country, &QComboBox::currentIndexChanged, this,
            [this](int index) { setAcceptable(index >= 0); });
}

void ClDialogWifiCountry::setParam(const QVariantList& params) {
    if (params.size() < 2) {
        return;
    }
    const bool isCountryNeeded = params[0].toBool();
    const unsigned int country = params[1].toUInt();
    if (isCountryNeeded) {
        m_country->removeItem(AUTO_INDEX);
    } else if (m_country->count() <= AUTO_INDEX) {
        m_country->addItem(ClBasicSettingText::tr(COUNTRY_NAMES[AUTO_INDEX]));
    }
    if (isCountryNeeded && country == AUTO) {
        return;
    }
    m_country->setCurrentIndex(country > AUTO ? -1 : static_cast<int>(country) - 1);
}

QVariantList ClDialogWifiCountry::getParam() {
    return {static_cast<unsigned int>(m_country->currentIndex() + 1)};
}

ClDialogLed::ClDialogLed(QWidget* parent) : ClDialogBase(parent) {
    auto* choice = new ClRadioGroup(tr("Can set to light led on power on"), this);
    m_light = choice->addButton(tr("Light"));
    m_notLight = choice->addButton(tr("Not light"));

    (new ClDialogColumn(this))->addWidget(choice);
    addButtons();
}

void ClDialogLed::setParam(const QVariantList& params) {
    if (!params.isEmpty()) {
        (params[0].toBool() ? m_light : m_notLight)->setChecked(true);
    }
}

QVariantList ClDialogLed::getParam() {
    return {m_light->isChecked()};
}

namespace {

struct stText {
    const char* label;
    const char* first;
    const char* second;
};

constexpr std::array<stText, 4> TEXTS{{
    {QT_TRANSLATE_NOOP("ClDialogGps", "Set the GPS settings of NuBo"),
     QT_TRANSLATE_NOOP("ClDialogGps", "Use GPS"), QT_TRANSLATE_NOOP("ClDialogGps", "Not use GPS")},
    {QT_TRANSLATE_NOOP("ClDialogGps", "Set to save GPS log"),
     QT_TRANSLATE_NOOP("ClDialogGps", "Save logs"),
     QT_TRANSLATE_NOOP("ClDialogGps", "Not save logs")},
    {QT_TRANSLATE_NOOP("ClDialogGps", "Set the format of GPS log"),
     QT_TRANSLATE_NOOP("ClDialogGps", "GGA+RMC"),
     QT_TRANSLATE_NOOP("ClDialogGps", "GGA+GLL+GSA+GSV+RMC+VTG+ZDA")},
    {QT_TRANSLATE_NOOP("ClDialogGps", "Set to auto adjust time from GPS info"),
     QT_TRANSLATE_NOOP("ClDialogGps", "Adjust time"),
     QT_TRANSLATE_NOOP("ClDialogGps", "Not adjust time")},
}};

constexpr int SHORT_FORMAT = SettingChoices::number(SettingChoices::LOG_FORMATS, "short");
constexpr int FULL_FORMAT = SettingChoices::number(SettingChoices::LOG_FORMATS, "full");

}  // namespace

ClDialogGps::ClDialogGps(QWidget* parent) : ClDialogBase(parent) {
    auto* column = new ClDialogColumn(this);
    addChoice(Use, this);
    auto* options = new QWidget(this);
    auto* rows = new QVBoxLayout(options);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(column->spacing());
    for (const Choice choice : {Log, Format, Adjust}) {
        addChoice(choice, options);
    }
    column->addWidget(options);
    connect(m_pairs[Use].first, &QRadioButton::toggled, options, &QWidget::setEnabled);
    addButtons();
}

void ClDialogGps::addChoice(Choice choice, QWidget* parent) {
    const stText& text = TEXTS[choice];
    auto* group = new ClRadioGroup(tr(text.label), parent);
    m_pairs[choice].first = group->addButton(tr(text.first));
    m_pairs[choice].second = group->addButton(tr(text.second));
    parent->layout()->addWidget(group);
}

void ClDialogGps::setParam(const QVariantList& params) {
    constexpr std::array ORDER{Use, Log, Adjust, Format};
    const auto given = std::min<qsizetype>(params.size(), ORDER.size());
    for (qsizetype i = 0; i < given; ++i) {
        const Choice choice = ORDER[static_cast<std::size_t>(i)];
        const bool isFirst =
            choice == Format ? params[i].toUInt() == SHORT_FORMAT : params[i].toBool();
        (isFirst ? m_pairs[choice].first : m_pairs[choice].second)->setChecked(true);
    }
}

QVariantList ClDialogGps::getParam() {
    const auto isFirst = [this](Choice choice) { return m_pairs[choice].first->isChecked(); };
    return {isFirst(Use), isFirst(Log), isFirst(Adjust),
            isFirst(Format) ? SHORT_FORMAT : FULL_FORMAT};
}

namespace {

constexpr int DARKEST = setting("image.contrast").range.most;
constexpr int SLIDER_WIDTH = 160;  // pixels

}  // namespace

ClDialogImageQuarity::ClDialogImageQuarity(QWidget* parent)
    : ClDialogBase(parent),
      m_contrast(new QSlider(Qt::Horizontal, this)) {
    auto* label = new QLabel(tr("Setting contrast"), this);
    label->setBuddy(m_contrast);
    m_contrast->setRange(0, DARKEST);
    m_contrast->setPageStep(1);
    m_contrast->setMinimumWidth(SLIDER_WIDTH);
    // With ticks on one side only some styles cut the edge of the handle on the other.
    m_contrast->setTickPosition(QSlider::TicksBothSides);

    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel(tr("Light"), this));
    row->addWidget(m_contrast);
    row->addWidget(new QLabel(tr("Dark"), this));
    auto* column = new ClDialogColumn(this);
    column->addWidget(label);
    column->addLayout(row);
    addButtons();
}

void ClDialogImageQuarity::setParam(const QVariantList& params) {
    if (!params.isEmpty()) {
        m_contrast->setValue(static_cast<int>(std::min<unsigned int>(params[0].toUInt(), DARKEST)));
    }
}

QVariantList ClDialogImageQuarity::getParam() {
    return {m_contrast->value()};
}
