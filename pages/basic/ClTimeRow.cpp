// SPDX-License-Identifier: MIT
#include "pages/basic/ClTimeRow.h"

#include "settings/Setting.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>

#include <algorithm>

namespace {

struct stUnit {
    const char* name;
    unsigned int seconds;
};

constexpr std::array<stUnit, 3> UNIT_ROWS{{
    {QT_TRANSLATE_NOOP("ClTimeRow", "Hours"), 3600},
    {QT_TRANSLATE_NOOP("ClTimeRow", "Minutes"), 60},
    {QT_TRANSLATE_NOOP("ClTimeRow", "Seconds"), 1},
}};
constexpr int MAXIMUM_REST = 59;  // of minutes, and of seconds

std::array<int, 3> split(unsigned int seconds) {
    std::array<int, 3> parts{};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        parts[i] = static_cast<int>(seconds / UNIT_ROWS[i].seconds);
        seconds %= UNIT_ROWS[i].seconds;
    }
    return parts;
}

QString written(unsigned int seconds) {
    const auto [hours, minutes, rest] = split(seconds);
    return QStringLiteral("%1:%2:%3").arg(hours).arg(minutes).arg(rest);
}

// A value that is corrected while it is being typed is selected, so that the next digit replaces
// it: whoever types "05", and sees the "0" corrected to 1, gets 5 in the end and not 15.
void correct(QSpinBox* box, int value) {
    if (box->value() == value) {
        return;
    }
    box->setValue(value);
    if (box->hasFocus()) {
        box->selectAll();
    }
}

}  // namespace

ClTimeRow::ClTimeRow(const stSettingRange& range, QWidget* parent)
    : ClControlGroup(parent),
      m_least(static_cast<unsigned int>(range.least)),
      m_greatest(static_cast<unsigned int>(range.most)) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    for (std::size_t i = 0; i < m_boxes.size(); ++i) {
        if (i > 0) {
            row->addWidget(new QLabel(QStringLiteral(":"), this));
        }
        auto* box = new QSpinBox(this);
        box->setMaximum(i == Hours ? split(m_greatest)[Hours] : MAXIMUM_REST);
        box->setAccessibleName(tr(UNIT_ROWS[i].name));
        connect(box, &QSpinBox::valueChanged, this, &ClTimeRow::sigValueChanged);
        row->addWidget(box);
        m_boxes[i] = box;
    }
    row->addWidget(
        new QLabel(QStringLiteral("(%1 - %2)").arg(written(m_least), written(m_greatest)), this));
    row->addStretch();
    setFocusProxy(m_boxes[Hours]);
    setSeconds(m_least);
}

void ClTimeRow::setSeconds(unsigned int seconds) {
    const auto parts = split(std::clamp(seconds, m_least, m_greatest));
    for (std::size_t i = 0; i < m_boxes.size(); ++i) {
        // Between the first box and the last, the three together may well be out of range.
        const QSignalBlocker quiet(m_boxes[i]);
        m_boxes[i]->setValue(parts[i]);
    }
}

unsigned int ClTimeRow::seconds() const {
    unsigned int sum = 0;
    for (std::size_t i = 0; i < m_boxes.size(); ++i) {
        sum += static_cast<unsigned int>(m_boxes[i]->value()) * UNIT_ROWS[i].seconds;
    }
    return sum;
}

void ClTimeRow::keepInRange() {
    if (m_boxes[Hours]->value() == m_boxes[Hours]->maximum()) {
        correct(m_boxes[Minutes], 0);
        correct(m_boxes[Seconds], 0);
    } else if (seconds() < m_least) {
        const auto least = split(m_least);
        correct(m_boxes[Minutes], std::max(m_boxes[Minutes]->value(), least[Minutes]));
        correct(m_boxes[Seconds], std::max(m_boxes[Seconds]->value(), least[Seconds]));
    }
}
