// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class QWidget;

/// A user before a settings dialog, who knows its controls by their texts and their order from top
/// to bottom, and works them by clicks and keys.
class DialogControls {
public:
    explicit DialogControls(QWidget& dialog) : m_dialog(dialog) {}

    /// What the dialog is set to: the texts of the checked buttons, of the spin boxes, line edits
    /// and combo boxes, and the positions of the sliders.
    [[nodiscard]] QStringList values() const;

    /// Clicks the button with @p text.
    void click(const QString& text) const;
    /// Types @p text over what stands in the line edit or spin box number @p index, from 0 on.
    void fill(int index, const QString& text) const;
    void spin(int index, const QString& text) const;
    /// Presses @p key on the combo box or slider.
    void choose(Qt::Key key) const;
    void slide(Qt::Key key) const;

private:
    QWidget& m_dialog;
};
