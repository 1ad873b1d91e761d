// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

/// A value that a camera reports, in bold, on one line, to be selected and copied by mouse and
/// keyboard.
///
/// The camera may report anything: the text is never read as markup, control characters show as
/// spaces, no text as "--", and one that is too long for the page ends in an ellipsis, with the
/// whole of it in the tool tip.
class ClLabelValue : public QLabel {
    Q_OBJECT

public:
    /// Shows "--"; takes at most @p widest pixels.
    ClLabelValue(int widest, QWidget* parent);

    void setValue(const QString& text);

protected:
    void showEvent(QShowEvent* event) override;
    /// The keyboard selects the value that it reaches, which shows where it is.
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    /// Shows the line in the room that it needs. Only on a label on show: loading the bold font
    /// takes longer than all else that the page does when it is made.
    void showLine();

    int m_widest;
    QString m_line;
};
