// SPDX-License-Identifier: MIT
#pragma once

#include "pages/common/ControlGroups.h"

#include <array>
#include <cstdint>

struct stSettingRange;
class QSpinBox;

/// A time in hours, minutes and seconds, with the range that it may have written beside it.
///
/// The three boxes limit only themselves. The owner listens to sigValueChanged() and calls
/// keepInRange().
class ClTimeRow : public ClControlGroup {
    Q_OBJECT

public:
    /// @p range in seconds: from less than an hour to whole hours.
    ClTimeRow(const stSettingRange& range, QWidget* parent);

    /// Shows @p seconds, or the end of the range next to it.
    void setSeconds(unsigned int seconds);
    [[nodiscard]] unsigned int seconds() const;

    /// Makes minutes and seconds 0 at the greatest hour, and raises a time that is below the least.
    void keepInRange();

Q_SIGNALS:
    /// One of the boxes was changed, by the user or by keepInRange().
    void sigValueChanged(int value);

private:
    enum Unit : std::uint8_t { Hours, Minutes, Seconds, UNITS };

    unsigned int m_least;
    unsigned int m_greatest;
    std::array<QSpinBox*, UNITS> m_boxes{};
};
