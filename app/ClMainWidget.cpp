// SPDX-License-Identifier: MIT
#include "app/ClMainWidget.h"

#include "pages/ClWidgetNotConnect.h"
#include "pages/ClWidgetSelectMode.h"
#include "pages/basic/ClWidgetBasicSetting.h"
#include "pages/help/ClWidgetHelp.h"
#include "pages/network/ClWidgetNetworkSetting.h"
#include "pages/state/ClWidgetCameraState.h"
#include "pages/stream/ClWidgetStreamSetting.h"
#include "protocol/CommandIdentifiers.h"
#include "ui/Artwork.h"
#include "ui/ClCaptionBar.h"
#include "ui/Colours.h"
#include "usb/ClUsbManager.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QStackedLayout>
#include <QWindow>

namespace {

constexpr QSize WINDOW_SIZE{600, 620};
constexpr QPoint MODE_BAR_POSITION{0, 30};
constexpr QRect PAGE_AREA{0, 115, 600, 505};
constexpr QColor DISABLED_TEXT_COLOUR{0x67, 0x6C, 0x72};
constexpr QColor PAGE_COLOUR{0xEE, 0xF1, 0xF4};
constexpr QColor CONTROL_COLOUR{0xEF, 0xEF, 0xEF};

const QString WINDOW_PICTURE = QStringLiteral(":/img/window");

// The window's picture is light on every desktop. So its texts are dark and its controls light,
// dark desktops included.
QPalette surfacePalette() {
    QPalette palette(CONTROL_COLOUR);
    palette.setColor(QPalette::Window, PAGE_COLOUR);
    palette.setColor(QPalette::WindowText, TEXT_COLOUR);
    for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text}) {
        palette.setColor(QPalette::Disabled, role, DISABLED_TEXT_COLOUR);
    }
    return palette;
}

}  // namespace

ClMainWidget::ClMainWidget(const stUsbTimes& times) {
    setFixedSize(WINDOW_SIZE);
    // A compositor blends the rounded corners; where there is none, the mask cuts them.
    setAttribute(Qt::WA_TranslucentBackground);
    setMask(artworkShape(WINDOW_PICTURE));
    setPalette(surfacePalette());
    setWindowTitle(QCoreApplication::applicationName());

    auto* captionBar = new ClCaptionBar(QCoreApplication::applicationName(), this);
    connect(captionBar, &ClCaptionBar::sigClose, this, &ClMainWidget::close);

    m_selectMode = new ClWidgetSelectMode(this);
    m_selectMode->move(MODE_BAR_POSITION);
    connect(m_selectMode, &ClWidgetSelectMode::sigChangeMode, this, &ClMainWidget::slotChangeMode);

    buildPages();
    setWindowFlags(Qt::FramelessWindowHint);
    startUsb(times);
}

ClMainWidget::~ClMainWidget() = default;

void ClMainWidget::buildPages() {
    auto* pageArea = new QWidget(this);
    pageArea->setGeometry(PAGE_AREA);
    m_pageLayout = new QStackedLayout(pageArea);

    m_helpPage = new ClWidgetHelp(nullptr);
    connect(m_helpPage, &ClWidgetHelp::sigUpdate, this, &ClMainWidget::slotUpdate);

    // A page's place in the stack is its mode.
    m_pageLayout->addWidget(new ClWidgetNotConnect(nullptr));
    m_pageLayout->addWidget(new ClWidgetCameraState(nullptr));
    m_pageLayout->addWidget(new ClWidgetNetworkSetting(nullptr));
    m_pageLayout->addWidget(new ClWidgetBasicSetting(nullptr));
    m_pageLayout->addWidget(new ClWidgetStreamSetting(nullptr));
    m_pageLayout->addWidget(m_helpPage);
}

void ClMainWidget::startUsb(const stUsbTimes& times) {
    registerCommandTypes();
    m_usbManager = std::make_unique<ClUsbManager>(nullptr, times);
    connect(this, &ClMainWidget::sigSendCommand, m_usbManager.get(),
            &ClUsbManager::slotReceiveCommand);
    connect(m_usbManager.get(), &ClUsbManager::sigSendCommand, this,
            &ClMainWidget::slotReceiveCommand);
    // Without USB the not-connected page stays; the manager has logged the reason.
    static_cast<void>(m_usbManager->initialize({{NUBO_USB_VENDOR_ID, NUBO_USB_PRODUCT_ID}}));
}

void ClMainWidget::slotChangeMode(qint32 lMode) {
    if (m_controller == nullptr) {
        leavePage();
        m_pageLayout->setCurrentIndex(MODE_NOT_CONNECTED);
        return;
    }
    if (lMode > MODE_NOT_CONNECTED && lMode <= MODE_LAST) {
        leavePage();
        enterPage(lMode);
    }
}

ClWidgetBase* ClMainWidget::pageOnShow() const {
    return qobject_cast<ClWidgetBase*>(m_pageLayout->currentWidget());
}

void ClMainWidget::enterPage(qint32 mode) {
    m_mode = mode;
    m_pageLayout->setCurrentIndex(mode);
    ClWidgetBase* page = pageOnShow();
    connect(page, &ClWidgetBase::sigSendCommand, this, &ClMainWidget::slotSendCommand);
    connect(this, &ClMainWidget::sigReceiveCommand, page, &ClWidgetBase::slotReceiveCommand);
    page->showInit(false);
}

void ClMainWidget::leavePage() {
    ClWidgetBase* page = pageOnShow();
    disconnect(page, &ClWidgetBase::sigSendCommand, this, &ClMainWidget::slotSendCommand);
    disconnect(this, &ClMainWidget::sigReceiveCommand, page, &ClWidgetBase::slotReceiveCommand);
    page->stopPolling();
}

void ClMainWidget::slotSendCommand(VX_CMD clCommand) {
    if (m_controller == nullptr) {
        return;
    }
    clCommand.insert(Key::PARAM1, QVariant::fromValue(m_controller));
    Q_EMIT sigSendCommand(clCommand);
}

void ClMainWidget::slotReceiveCommand(const VX_CMD& clCommand) {
    void* controller = clCommand.value(Key::PARAM1).value<void*>();
    const QUuid command = getCommand(clCommand);
    if (command == USB_CMD_DEVICE_OPEN) {
        // A second camera is never used, nor is an announcement of none.
        if (m_controller == nullptr && controller != nullptr) {
            m_controller = controller;
            m_selectMode->setActiveMode(m_mode);
        }
        return;
    }
    if (controller != m_controller) {
        return;
    }
    if (command == USB_CMD_DEVICE_CLOSE) {
        m_controller = nullptr;
        m_selectMode->setActiveMode(MODE_NOT_CONNECTED);
        return;
    }
    Q_EMIT sigReceiveCommand(clCommand);
}

int ClMainWidget::update(int /*kind*/, bool /*isForced*/) {
    return 0;
}

void ClMainWidget::slotUpdate(int /*iKind*/) {}

void ClMainWidget::slotUpdateError(QString /*strError*/) {}

void ClMainWidget::slotEndUpdate() {}

void ClMainWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        return;
    }
    // On Wayland no window can place itself: the compositor drags it.
    if (QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) {
        windowHandle()->startSystemMove();
        return;
    }
    m_dragPos = event->position().toPoint();
}

void ClMainWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        m_dragPos = {};
    }
}

void ClMainWidget::mouseMoveEvent(QMouseEvent* event) {
    if (!m_dragPos.isNull()) {
        setGeometry(geometry().translated(event->position().toPoint() - m_dragPos));
    }
}

void ClMainWidget::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    drawArtwork(painter, event->rect(), artwork(WINDOW_PICTURE, devicePixelRatioF()));
}
