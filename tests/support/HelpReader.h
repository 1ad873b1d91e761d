// SPDX-License-Identifier: MIT
#pragma once

#include "pages/help/ClWidgetHelp.h"

#include <QLabel>
#include <QStringList>

/// A user before the help page: reads what it shows.
class HelpReader {
public:
    explicit HelpReader(const ClWidgetHelp& page) : m_page(page) {}

    /// The label at @p place; null when there is none.
    [[nodiscard]] QLabel* labelAt(QPoint place) const {
        for (QLabel* const label : m_page.findChildren<QLabel*>()) {
            if (label->mapTo(&m_page, QPoint()) == place) {
                return label;
            }
        }
        return nullptr;
    }

    /// What the camera reported, from top to bottom: firmware version, serial number, MAC address,
    /// day and country.
    [[nodiscard]] QStringList values() const {
        QStringList values;
        for (const int y : {195, 322, 352, 382, 412}) {
            values.append(labelAt({236, y})->text());
        }
        return values;
    }

private:
    const ClWidgetHelp& m_page;
};
