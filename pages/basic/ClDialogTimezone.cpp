// SPDX-License-Identifier: MIT
#include "pages/basic/ClDialogTimezone.h"

#include "pages/basic/ClBasicSettingText.h"
#include "pages/common/ClControlGroup.h"
#include "ui/ClDialogColumn.h"

#include <QComboBox>

#include <array>

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
constexpr unsigned int WESTMOST = 24;   // zone
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
