// SPDX-License-Identifier: MIT
#include "tests/app/CameraNotices.h"
#include "tests/app/WindowBench.h"
#include "tests/support/TestSubject.h"

#include <optional>

using namespace Qt::StringLiterals;

/// The main window as the switchboard between the page on show and the open camera.
class MainWidgetRoutingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_bench.emplace(); }
    void cleanup() { m_bench.reset(); }

    void aSecondCameraIsIgnored();
    void theNextCameraMayBeAnother();
    void aRequestIsStampedWithTheOpenCamera_data();
    void aRequestIsStampedWithTheOpenCamera();
    void aRequestWithoutACameraIsDropped();
    void onlyThePageOnShowIsConnected();
    void anAnswerGoesUnchangedToThePageOnShow();
    void answersAboutAnotherCameraAreDropped_data();
    void answersAboutAnotherCameraAreDropped();
    void aCloseNoticeWithoutAPointerLeavesTheCameraOpen();

private:
    std::optional<WindowBench> m_bench;
};

void MainWidgetRoutingTest::aSecondCameraIsIgnored() {
    m_bench->window.slotReceiveCommand(opened(FIRST));
    m_bench->click(2);
    m_bench->window.slotReceiveCommand(opened(SECOND));
    QCOMPARE(m_bench->modeOnShow(), 2);
    QCOMPARE(m_bench->page(2).inits, QList<bool>{false});
    m_bench->page(2).sendUsbCommand(USB_NUBO_CMD_RESTART);
    QCOMPARE(m_bench->sent.last().first().toMap().value(u"PARAM1"_s).value<void*>(), FIRST);

    m_bench->window.slotReceiveCommand(closed(SECOND));
    QCOMPARE(m_bench->modeOnShow(), 2);
    m_bench->window.slotReceiveCommand(answer(FIRST, 1));
    QCOMPARE(m_bench->page(2).received.size(), 1);
}

void MainWidgetRoutingTest::theNextCameraMayBeAnother() {
    m_bench->window.slotReceiveCommand(opened(FIRST));
    m_bench->window.slotReceiveCommand(closed(FIRST));
    m_bench->window.slotReceiveCommand(opened(SECOND));
    QCOMPARE(m_bench->modeOnShow(), 1);
    m_bench->page(1).sendUsbCommand(USB_NUBO_CMD_RESTART);
    QCOMPARE(m_bench->sent.last().first().toMap().value(u"PARAM1"_s).value<void*>(), SECOND);
}

void MainWidgetRoutingTest::aRequestIsStampedWithTheOpenCamera_data() {
    QTest::addColumn<QVariantMap>("values");
    QTest::newRow("no first parameter") << QVariantMap{};
    QTest::newRow("another camera") << QVariantMap{{u"PARAM1"_s, QVariant::fromValue(SECOND)}};
    QTest::newRow("no camera at all") << QVariantMap{{u"PARAM1"_s, u"camera"_s}};
    QTest::newRow("with arguments") << QVariantMap{{u"PARAM2"_s, 7}, {u"PARAM8"_s, u"text"_s}};
}

void MainWidgetRoutingTest::aRequestIsStampedWithTheOpenCamera() {
    QFETCH(QVariantMap, values);
    m_bench->window.slotReceiveCommand(opened(FIRST));
    m_bench->page(1).sendUsbCommand(USB_NUBO_CMD_RESTART, values);
    QCOMPARE(m_bench->sent.size(), 1);

    QVariantMap expected = values;
    expected.insert(u"CMD"_s, USB_NUBO_CMD_RESTART);
    expected.insert(u"Sender"_s, QVariant::fromValue<QObject*>(&m_bench->page(1)));
    expected.insert(u"PARAM1"_s, QVariant::fromValue(FIRST));
    QCOMPARE(m_bench->sent.first().first().toMap(), expected);
}

void MainWidgetRoutingTest::aRequestWithoutACameraIsDropped() {
    m_bench->window.slotSendCommand(message(USB_NUBO_CMD_RESTART, FIRST));
    m_bench->window.slotReceiveCommand(opened(FIRST));
    m_bench->window.slotReceiveCommand(closed(FIRST));
    m_bench->window.slotSendCommand(message(USB_NUBO_CMD_RESTART, FIRST));
    QVERIFY(m_bench->sent.isEmpty());
}

void MainWidgetRoutingTest::onlyThePageOnShowIsConnected() {
    m_bench->window.slotReceiveCommand(opened(FIRST));
    m_bench->click(3);
    for (int mode = 1; mode <= 5; ++mode) {
        m_bench->page(mode).sendUsbCommand(USB_NUBO_CMD_RESTART);
    }
    m_bench->notConnected().sendUsbCommand(USB_NUBO_CMD_RESTART);
    QCOMPARE(m_bench->sent.size(), 1);
    QCOMPARE(m_bench->sent.first().first().toMap().value(u"Sender"_s).value<QObject*>(),
             &m_bench->page(3));

    m_bench->window.slotReceiveCommand(closed(FIRST));
    m_bench->page(3).sendUsbCommand(USB_NUBO_CMD_RESTART);
    QCOMPARE(m_bench->sent.size(), 1);
}

void MainWidgetRoutingTest::anAnswerGoesUnchangedToThePageOnShow() {
    m_bench->window.slotReceiveCommand(opened(FIRST));
    m_bench->page(1).sendUsbCommand(USB_REQ_NUBO_CMD_GET_BATTERY);
    m_bench->click(2);
    const VX_CMD late = answer(FIRST, 42);
    m_bench->window.slotReceiveCommand(late);
    QVERIFY(m_bench->page(1).received.isEmpty());
    QCOMPARE(m_bench->page(2).received, QList<VX_CMD>{late});
    m_bench->click(1);
    m_bench->window.slotReceiveCommand(answer(FIRST, 43));
    QCOMPARE(m_bench->page(1).received.size(), 1);
    QCOMPARE(m_bench->page(2).received.size(), 1);
}

void MainWidgetRoutingTest::answersAboutAnotherCameraAreDropped_data() {
    QTest::addColumn<QVariantMap>("message");
    QTest::newRow("another camera") << answer(SECOND, 1);
    QTest::newRow("null") << answer(nullptr, 1);
    QTest::newRow("missing") << QVariantMap{{u"CMD"_s, USB_RES_NUBO_CMD_GET_BATTERY}};
    QTest::newRow("no pointer") << QVariantMap{{u"CMD"_s, USB_RES_NUBO_CMD_GET_BATTERY},
                                               {u"PARAM1"_s, u"camera"_s}};
}

void MainWidgetRoutingTest::answersAboutAnotherCameraAreDropped() {
    QFETCH(QVariantMap, message);
    QSignalSpy passedOn(&m_bench->window, &ClMainWidget::sigReceiveCommand);
    m_bench->window.slotReceiveCommand(opened(FIRST));
    m_bench->window.slotReceiveCommand(message);
    QVERIFY(passedOn.isEmpty());

    // The answer of a camera that has gone, after the next one has come.
    m_bench->window.slotReceiveCommand(closed(FIRST));
    m_bench->window.slotReceiveCommand(answer(FIRST, 1));
    QVERIFY(m_bench->page(1).received.isEmpty());
    m_bench->window.slotReceiveCommand(opened(SECOND));
    m_bench->window.slotReceiveCommand(answer(FIRST, 1));
    QVERIFY(m_bench->page(1).received.isEmpty());
}

void MainWidgetRoutingTest::aCloseNoticeWithoutAPointerLeavesTheCameraOpen() {
    m_bench->window.slotReceiveCommand(opened(FIRST));
    m_bench->window.slotReceiveCommand({{u"CMD"_s, USB_CMD_DEVICE_CLOSE}});
    QCOMPARE(m_bench->modeOnShow(), 1);
    m_bench->page(1).sendUsbCommand(USB_NUBO_CMD_RESTART);
    QCOMPARE(m_bench->sent.size(), 1);
}

const TestSubject registered = subjectWithWidgets<MainWidgetRoutingTest>();
#include "MainWidgetRoutingTest.moc"
