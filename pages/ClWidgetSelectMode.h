// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ClWidgetBase.h"

#include <QList>

class ClButtonMode;
class QButtonGroup;

/// A mode is the number of a page in the main window's stack; 0 is the page without a camera, and
/// the rest follow the buttons from left to right.
inline constexpr qint32 MODE_NOT_CONNECTED = 0;
inline constexpr qint32 MODE_LAST = 5;

/// The bar of five buttons that choose the page.
class ClWidgetSelectMode : public ClWidgetBase {
    Q_OBJECT

public:
    explicit ClWidgetSelectMode(QWidget* parent);

    /// Checks the button of @p mode (1 to 5) and enables all, or disables all (0), and emits
    /// sigChangeMode() even when nothing changed. Any other mode is ignored.
    void setActiveMode(int mode);

Q_SIGNALS:
    void sigChangeMode(qint32 lMode);

public Q_SLOTS:
    /// Announces the mode of the button that was clicked.
    virtual void slotSelect(bool bIsPolling);
    void slotSelect();

private:
    QList<ClButtonMode*> m_buttons;
    QButtonGroup* m_group;
};
