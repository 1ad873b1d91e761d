// SPDX-License-Identifier: MIT
#include "pages/ClWidgetNotConnect.h"
#include "protocol/CommandIdentifiers.h"
#include "tests/support/TestSubject.h"
#include "ui/Artwork.h"

#include <QImage>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>

#include <cstdlib>
#include <memory>

using namespace Qt::StringLiterals;

/// What is on show while no camera is open.
class NotConnectTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aPictureStandsAboveALineOfText();
    void bothSitInTheMiddleOfThePage();
    void thePageLeavesTheCameraAlone();

private:
    std::unique_ptr<ClWidgetNotConnect> m_page;
    QList<QLabel*> m_labels;
};

void NotConnectTest::init() {
    m_page = std::make_unique<ClWidgetNotConnect>(nullptr);
    m_page->resize(600, 505);
    m_page->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_page.get()));
    m_labels = m_page->findChildren<QLabel*>();
    QCOMPARE(m_labels.size(), 2);
}

void NotConnectTest::cleanup() {
    m_page.reset();
}

void NotConnectTest::aPictureStandsAboveALineOfText() {
    QCOMPARE(m_labels[0]->pixmap().toImage(), artwork(u":/img/camera_notconnect"_s, 1).toImage());
    QCOMPARE(m_labels[1]->text(), u"Connect camera by USB cable"_s);
    QVERIFY(m_labels[0]->geometry().bottom() < m_labels[1]->geometry().top());
    for (const QLabel* label : std::as_const(m_labels)) {
        QCOMPARE(label->alignment(), Qt::AlignCenter);
    }
}

void NotConnectTest::bothSitInTheMiddleOfThePage() {
    const int above = m_labels[0]->geometry().top();
    const int below = 504 - m_labels[1]->geometry().bottom();
    QVERIFY2(std::abs(above - below) <= 1, qPrintable(u"%1, %2"_s.arg(above).arg(below)));
    QVERIFY(above > 50);
    for (const QLabel* label : std::as_const(m_labels)) {
        QVERIFY(std::abs(label->geometry().center().x() - 300) <= 1);
    }
}

void NotConnectTest::thePageLeavesTheCameraAlone() {
    QSignalSpy sent(m_page.get(), &ClWidgetBase::sigSendCommand);
    m_page->showInit(false);
    m_page->showInit(true);
    m_page->slotReceiveCommand({{u"CMD"_s, USB_CMD_ERROR}, {u"PARAM3"_s, 0xEF03}});
    m_page->stopPolling();
    QVERIFY(sent.isEmpty());
}

const TestSubject registered = subjectWithWidgets<NotConnectTest>();
#include "NotConnectTest.moc"
