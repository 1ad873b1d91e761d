// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/CommandMessage.h"
#include "usb/UsbTimes.h"

#include <QPoint>
#include <QWidget>

#include <memory>

class ClUsbManager;
class ClWidgetBase;
class ClWidgetHelp;
class ClWidgetSelectMode;
class QStackedLayout;

/// The program's window, and the switchboard between the pages and the camera.
///
/// It remembers which camera is open and which page is on show, stamps the camera onto each request
/// of that page before it goes to the USB side, and passes answers about that camera back to that
/// page and to no other. While no camera is open the not-connected page is on show, and no page is
/// connected.
///
/// Owns the USB manager; the pages belong to the widget tree.
class ClMainWidget : public QWidget {
    Q_OBJECT

public:
    explicit ClMainWidget(const stUsbTimes& times = {});
    /// Returns when the USB side has ended: at the latest one transfer's time-out later.
    ~ClMainWidget() override;

    using QWidget::update;
    /// Firmware is not updated by this tool: does nothing. @return 0
    int update(int kind, bool isForced);

Q_SIGNALS:
    void sigSendCommand(const VX_CMD& clCommand);     ///< to the USB manager
    void sigReceiveCommand(const VX_CMD& clCommand);  ///< to the page on show

public Q_SLOTS:
    void slotChangeMode(qint32 lMode);
    void slotSendCommand(VX_CMD clCommand);
    void slotReceiveCommand(const VX_CMD& clCommand);
    /// The help page's notices of updates end in these three, which have nothing to do.
    void slotUpdate(int iKind);
    void slotUpdateError(QString strError);
    void slotEndUpdate();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void buildPages();
    void startUsb(const stUsbTimes& times);
    [[nodiscard]] ClWidgetBase* pageOnShow() const;
    void enterPage(qint32 mode);  ///< shows the page, connects it and has it refresh itself
    void leavePage();             ///< disconnects the page on show and stops its polling

    std::unique_ptr<ClUsbManager> m_usbManager;
    void* m_controller = nullptr;  ///< names the open camera; never dereferenced on this thread
    QPoint m_dragPos;              ///< of the press, in the window; (0, 0) while nothing is dragged
    qint32 m_mode = 1;             ///< the last mode chosen while a camera was open
    QStackedLayout* m_pageLayout = nullptr;
    ClWidgetSelectMode* m_selectMode = nullptr;
    ClWidgetHelp* m_helpPage = nullptr;
};
