// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QToolButton>

/// A tool button drawn from pictures, one per icon mode: QIcon::Disabled, Selected (pressed or
/// checked), Active (under the mouse or focused) or Normal. It takes the shape of the picture on
/// show. Without a picture it looks like any tool button.
class ClRollOverToolBtn : public QToolButton {
    Q_OBJECT
    Q_PROPERTY(QIcon imgShow READ imgShow WRITE setImgShow)
    Q_PROPERTY(qreal opacity READ opacity WRITE setOpacity)

public:
    explicit ClRollOverToolBtn(QWidget* parent = nullptr);

    [[nodiscard]] QIcon imgShow() const { return m_imgShow; }
    virtual void setImgShow(const QIcon& imgShow);

    /// The icon state by which the picture is chosen; QIcon::On at first.
    [[nodiscard]] virtual QIcon::State state() const { return m_state; }
    void setState(QIcon::State state);

    /// How opaque the picture is painted, from 0.0 to 1.0.
    [[nodiscard]] qreal opacity() const { return m_opacity; }
    void setOpacity(qreal opacity);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QIcon::Mode iconMode() const;
    [[nodiscard]] QPixmap picture(qreal devicePixelRatio) const;

    QIcon m_imgShow;
    QIcon::State m_state = QIcon::On;
    qreal m_opacity = 1.0;
};
