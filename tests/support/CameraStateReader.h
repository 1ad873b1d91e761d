// SPDX-License-Identifier: MIT
#pragma once

#include "pages/state/ClLabelWifiState.h"
#include "pages/state/ClWidgetCameraState.h"
#include "ui/ClWidgetProgress.h"

#include <QLabel>
#include <QPushButton>
#include <QStringList>
#include <QTest>

/// A user before the camera state page: reads what it shows, and clicks its buttons.
class CameraStateReader {
public:
    explicit CameraStateReader(ClWidgetCameraState& page) : m_page(page) {}

    /// The charge, as a text.
    [[nodiscard]] QString battery() const {
        return m_page.findChild<ClWidgetProgress*>()->findChild<QLabel*>()->text();
    }

    /// The link badge.
    [[nodiscard]] QString link() const { return m_page.findChild<ClLabelWifiState*>()->text(); }

    /// Sensitivity and channel; empty while they are hidden.
    [[nodiscard]] QStringList linkDetails() const {
        return valueAt({273, 131}).isEmpty() && valueAt({273, 161}).isEmpty()
                   ? QStringList()
                   : QStringList{valueAt({273, 131}), valueAt({273, 161})};
    }

    /// Total space, free space and file system.
    [[nodiscard]] QStringList card() const {
        return {valueAt({275, 243}), freeSpace(), valueAt({275, 303})};
    }

    [[nodiscard]] QString freeSpace() const { return valueAt({275, 274}); }

    void click(const QString& text) const {
        for (QPushButton* const button : m_page.findChildren<QPushButton*>()) {
            if (button->text() == text) {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        }
        QFAIL("The page has no such button.");
    }

private:
    /// What the visible label at @p place says.
    [[nodiscard]] QString valueAt(QPoint place) const {
        for (const QLabel* const label : m_page.findChildren<QLabel*>()) {
            if (label->isVisible() && label->mapTo(&m_page, QPoint()) == place) {
                return label->text();
            }
        }
        return {};
    }

    ClWidgetCameraState& m_page;
};
