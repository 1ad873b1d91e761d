// SPDX-License-Identifier: MIT
#include "app/ClMainWidget.h"
#include "pages/ClWidgetSelectMode.h"
#include "pages/help/ClWidgetHelp.h"
#include "protocol/CommandIdentifiers.h"
#include "protocol/NuboRecords.h"
#include "tests/support/TestSubject.h"
#include "ui/Artwork.h"
#include "ui/ClCaptionBar.h"
#include "ui/ClRollOverToolBtn.h"

#include <QApplication>
#include <QDialog>
#include <QImage>
#include <QLabel>
#include <QMetaType>
#include <QMouseEvent>
#include <QPainter>
#include <QStackedLayout>
#include <QTest>
#include <QWindow>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QImage& windowPicture() {
    static const QImage picture = artwork(u":/img/window"_s, 1).toImage();
    return picture;
}

/// What the window itself paints, without its children.
QImage painted(QWidget& window, const QRegion& region) {
    QImage canvas(window.size(), QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    window.render(&painter, region.boundingRect().topLeft(), region, QWidget::RenderFlags());
    return canvas;
}

}  // namespace

/// The main window's build, its look, and how it is dragged and closed.
class MainWidgetTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void theWindowIsBuiltAsAgreed();
    void thePagesStandInTheOrderOfTheModes();
    void theCaptionBarShowsTheName();
    void theWindowHasTheShapeOfItsPicture();
    void theWindowPaintsItsPicture();
    void theRoundedCornersAreClear();
    void onlyTheRegionAskedForIsPainted();
    void itsControlsAreLightOnADarkDesktop();
    void theCloseButtonClosesTheWindow();
    void theHelpPagesNoticesOfUpdatesArrive();
    void firmwareIsNotUpdated();
    void theTypesOfMessagesAreKnown();
    void theWindowFollowsADrag_data();
    void theWindowFollowsADrag();
    void theWindowStaysWhereItIs_data();
    void theWindowStaysWhereItIs();
    void aDragEndsWithTheRelease();
    void aPressOnTheOriginDragsNothing();

private:
    std::unique_ptr<ClMainWidget> m_window;
};

void MainWidgetTest::initTestCase() {
    QCoreApplication::setApplicationName(u"Test program"_s);
    QCOMPARE(windowPicture().size(), QSize(600, 620));
}

void MainWidgetTest::init() {
    m_window = std::make_unique<ClMainWidget>();
    m_window->move(100, 50);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

void MainWidgetTest::cleanup() {
    m_window.reset();
}

void MainWidgetTest::theWindowIsBuiltAsAgreed() {
    QVERIFY(m_window->isWindow());
    QCOMPARE(m_window->size(), QSize(600, 620));
    QCOMPARE(m_window->windowTitle(), u"Test program"_s);
    QCOMPARE(m_window->windowFlags(), Qt::FramelessWindowHint | Qt::Window);

    const auto* caption = m_window->findChild<ClCaptionBar*>();
    QCOMPARE(caption->parentWidget(), m_window.get());
    QCOMPARE(caption->pos(), QPoint(0, 0));
    const auto* modes = m_window->findChild<ClWidgetSelectMode*>();
    QCOMPARE(modes->parentWidget(), m_window.get());
    QCOMPARE(modes->geometry(), QRect(0, 30, 600, 84));
    const QWidget* area = m_window->findChild<QStackedLayout*>()->parentWidget();
    QCOMPARE(area->parentWidget(), m_window.get());
    QCOMPARE(area->geometry(), QRect(0, 115, 600, 505));
}

void MainWidgetTest::thePagesStandInTheOrderOfTheModes() {
    auto* stack = m_window->findChild<QStackedLayout*>();
    QStringList classes;
    for (int index = 0; index < stack->count(); ++index) {
        classes.append(QString::fromLatin1(stack->widget(index)->metaObject()->className()));
    }
    QCOMPARE(classes, (QStringList{u"ClWidgetNotConnect"_s, u"ClWidgetCameraState"_s,
                                   u"ClWidgetNetworkSetting"_s, u"ClWidgetBasicSetting"_s,
                                   u"ClWidgetStreamSetting"_s, u"ClWidgetHelp"_s}));
    QCOMPARE(stack->currentIndex(), 0);
    QVERIFY(stack->widget(0)->isVisible());
    QCOMPARE(stack->widget(0)->size(), QSize(600, 505));
}

void MainWidgetTest::theCaptionBarShowsTheName() {
    QCOMPARE(m_window->findChild<ClCaptionBar*>()->findChild<QLabel*>()->text(), u"Test program"_s);
}

void MainWidgetTest::theWindowHasTheShapeOfItsPicture() {
    const QRegion shape = m_window->mask();
    QVERIFY(!shape.isEmpty());
    for (const QPoint corner : {QPoint(0, 0), QPoint(599, 0), QPoint(0, 619), QPoint(599, 619)}) {
        QVERIFY(!shape.contains(corner));
    }
    for (const QPoint inside : {QPoint(300, 0), QPoint(0, 300), QPoint(599, 300), QPoint(300, 619),
                                QPoint(10, 10), QPoint(300, 310)}) {
        QVERIFY(shape.contains(inside));
    }
    for (int y = 0; y < windowPicture().height(); ++y) {
        for (int x = 0; x < windowPicture().width(); ++x) {
            if (shape.contains(QPoint(x, y)) != (windowPicture().pixelColor(x, y).alpha() > 0)) {
                QFAIL(qPrintable(u"The mask and the picture differ at (%1, %2)."_s.arg(x).arg(y)));
            }
        }
    }
}

void MainWidgetTest::theWindowPaintsItsPicture() {
    QCOMPARE(painted(*m_window, QRect(0, 0, 600, 620)), windowPicture());
}

void MainWidgetTest::theRoundedCornersAreClear() {
    m_window->show();
    const QImage picture = m_window->grab().toImage();
    for (const QPoint corner : {QPoint(0, 0), QPoint(599, 0), QPoint(0, 619), QPoint(599, 619)}) {
        QCOMPARE(picture.pixelColor(corner).alpha(), 0);
    }
    QCOMPARE(picture.pixelColor(300, 619).alpha(), 255);
}

void MainWidgetTest::onlyTheRegionAskedForIsPainted() {
    const QRect region(5, 20, 200, 120);
    QImage expected(windowPicture().size(), QImage::Format_ARGB32_Premultiplied);
    expected.fill(Qt::transparent);
    QPainter(&expected).drawImage(region, windowPicture(), region);
    QCOMPARE(painted(*m_window, region), expected);
}

void MainWidgetTest::itsControlsAreLightOnADarkDesktop() {
    const QPalette light = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(0x31, 0x36, 0x3B), QColor(0x23, 0x26, 0x29)));
    const ClMainWidget window;
    const QPalette shown = window.findChild<ClWidgetHelp*>()->palette();
    const QPalette onDialogs = QDialog(window.findChild<ClWidgetHelp*>()).palette();
    QApplication::setPalette(light);

    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button}) {
        QVERIFY(shown.color(role).lightness() > 220);
        QVERIFY(onDialogs.color(role).lightness() < 100);
    }
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        QVERIFY(shown.color(role).lightness() < 60);
        QCOMPARE(shown.color(QPalette::Disabled, role), QColor(0x67, 0x6C, 0x72));
        QVERIFY(onDialogs.color(role).lightness() > 200);
    }
}

void MainWidgetTest::theCloseButtonClosesTheWindow() {
    auto* button = m_window->findChild<ClCaptionBar*>()->findChild<ClRollOverToolBtn*>();
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(!m_window->isVisible());
}

void MainWidgetTest::theHelpPagesNoticesOfUpdatesArrive() {
    auto* help = m_window->findChild<ClWidgetHelp*>();
    Q_EMIT help->sigUpdate(1);
    // Nothing follows from a notice; that the connection stands shows only in its end.
    QVERIFY(QObject::disconnect(help, &ClWidgetHelp::sigUpdate, m_window.get(),
                                &ClMainWidget::slotUpdate));
}

void MainWidgetTest::firmwareIsNotUpdated() {
    QCOMPARE(m_window->update(1, true), 0);
    m_window->slotUpdate(1);
    m_window->slotUpdateError(u"text"_s);
    m_window->slotEndUpdate();
    QVERIFY(m_window->isVisible());
}

void MainWidgetTest::theTypesOfMessagesAreKnown() {
    QCOMPARE(QMetaType::fromName("VX_CMD"), QMetaType::fromType<QVariantMap>());
    QCOMPARE(QMetaType::fromName("AccesspointList"),
             QMetaType::fromType<QList<stAccesspointInfo>>());
}

void MainWidgetTest::theWindowFollowsADrag_data() {
    QTest::addColumn<QPoint>("press");
    QTest::newRow("page area") << QPoint(300, 600);
    QTest::newRow("text of the page") << QPoint(300, 480);
    QTest::newRow("caption bar") << QPoint(100, 15);
    QTest::newRow("title") << QPoint(300, 18);
    QTest::newRow("beside the modes") << QPoint(10, 70);
    QTest::newRow("left edge") << QPoint(0, 300);
}

void MainWidgetTest::theWindowFollowsADrag() {
    QFETCH(QPoint, press);
    QTest::mousePress(m_window->windowHandle(), Qt::LeftButton, {}, press);
    QTest::mouseMove(m_window->windowHandle(), press + QPoint(7, 3));
    QCOMPARE(m_window->geometry(), QRect(107, 53, 600, 620));
    QTest::mouseMove(m_window->windowHandle(), press + QPoint(-20, 10));
    QCOMPARE(m_window->geometry(), QRect(87, 63, 600, 620));
    // The cursor is again where it was pressed.
    QTest::mouseMove(m_window->windowHandle(), press);
    QCOMPARE(m_window->pos(), QPoint(87, 63));
    QTest::mouseRelease(m_window->windowHandle(), Qt::LeftButton, {}, press);
}

void MainWidgetTest::theWindowStaysWhereItIs_data() {
    QTest::addColumn<int>("button");
    QTest::addColumn<QPoint>("press");
    QTest::newRow("mode button") << int(Qt::LeftButton) << QPoint(80, 70);
    QTest::newRow("close button") << int(Qt::LeftButton) << QPoint(15, 10);
    QTest::newRow("right mouse button") << int(Qt::RightButton) << QPoint(300, 570);
    QTest::newRow("middle mouse button") << int(Qt::MiddleButton) << QPoint(300, 570);
}

void MainWidgetTest::theWindowStaysWhereItIs() {
    QFETCH(QPoint, press);
    QFETCH(int, button);
    // With a camera the mode buttons are there to be pressed.
    int camera = 0;
    m_window->slotReceiveCommand(
        {{u"CMD"_s, USB_CMD_DEVICE_OPEN}, {u"PARAM1"_s, QVariant::fromValue<void*>(&camera)}});
    QTest::mousePress(m_window->windowHandle(), Qt::MouseButton(button), {}, press);
    QTest::mouseMove(m_window->windowHandle(), press + QPoint(50, 30));
    QCOMPARE(m_window->pos(), QPoint(100, 50));
    QTest::mouseRelease(m_window->windowHandle(), Qt::MouseButton(button), {},
                        press + QPoint(50, 30));
}

void MainWidgetTest::aDragEndsWithTheRelease() {
    QWindow* handle = m_window->windowHandle();
    QTest::mousePress(handle, Qt::LeftButton, {}, QPoint(300, 600));
    // Another button's release does not end it.
    QTest::mousePress(handle, Qt::RightButton, {}, QPoint(300, 600));
    QTest::mouseRelease(handle, Qt::RightButton, {}, QPoint(300, 600));
    QTest::mouseMove(handle, QPoint(310, 600));
    QCOMPARE(m_window->pos(), QPoint(110, 50));
    QTest::mouseRelease(handle, Qt::LeftButton, {}, QPoint(300, 600));
    QTest::mouseMove(handle, QPoint(350, 550));
    QCOMPARE(m_window->pos(), QPoint(110, 50));
}

void MainWidgetTest::aPressOnTheOriginDragsNothing() {
    // Straight to the window: the mask and the close button keep a real cursor from this pixel.
    const auto mouse = [this](QEvent::Type type, QPointF position) {
        QMouseEvent event(type, position, m_window->mapToGlobal(position), Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_window.get(), &event);
    };
    mouse(QEvent::MouseButtonPress, {0, 0});
    mouse(QEvent::MouseMove, {40, 40});
    QCOMPARE(m_window->pos(), QPoint(100, 50));
    mouse(QEvent::MouseButtonPress, {1, 0});
    mouse(QEvent::MouseMove, {41, 40});
    QCOMPARE(m_window->pos(), QPoint(140, 90));
}

const TestSubject registered = subjectWithWidgets<MainWidgetTest>();
#include "MainWidgetTest.moc"
