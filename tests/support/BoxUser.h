// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <functional>

class QWidget;

/// What a modal box shows.
struct stModalBox {
    QString title;
    QString text;
    QStringList buttons;  ///< from left to right
    QWidget* parent;

    bool operator==(const stModalBox&) const = default;
};

/// What a user may do with a modal box; each closes it.
void acceptBox(QWidget& box);  ///< clicks OK or Yes
void rejectBox(QWidget& box);  ///< clicks Cancel or No
void escapeBox(QWidget& box);  ///< presses Escape

/// Somebody who reads and answers every modal box that opens while this object lives, so that no
/// box, expected or not, keeps a test waiting. Needs the event loop, which the box runs itself.
class BoxUser {
public:
    using Action = std::function<void(QWidget& box)>;

    explicit BoxUser(Action action = acceptBox);

    /// From now on boxes are answered by @p action.
    void setAction(Action action) { m_action = std::move(action); }
    /// All boxes so far, in the order of their opening.
    [[nodiscard]] const QList<stModalBox>& boxes() const { return m_boxes; }
    void forgetBoxes() { m_boxes.clear(); }
    /// The texts of boxes().
    [[nodiscard]] QStringList texts() const;

private:
    void look();

    Action m_action;
    QList<stModalBox> m_boxes;
    bool m_isActing = false;
    QTimer m_timer;
};
