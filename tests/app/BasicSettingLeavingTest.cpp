// SPDX-License-Identifier: MIT
#include "app/ClMainWidget.h"
#include "pages/basic/ClWidgetBasicSetting.h"
#include "tests/app/CameraNotices.h"
#include "tests/pages/basic/BasicSettingMessages.h"
#include "tests/support/BoxUser.h"
#include "tests/support/DialogControls.h"
#include "tests/support/TestSubject.h"
#include "ui/ClButtonMode.h"
#include "ui/ClDialogBase.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QStackedLayout>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int MODE = 3;

enum class Comes { Nobody, SameCamera, OtherCamera };

}  // namespace

/// A camera that leaves while one of the dialogs of the basic settings page is open. The window has
/// nobody on the USB side: the test says what comes from there.
class BasicSettingLeavingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_window.reset(); }

    void aDialogClosesWithItsCameraAndSendsNothing_data();
    void aDialogClosesWithItsCameraAndSendsNothing();
    void theCalendarGoesWithItsDialog();
    void aCameraThatHasLeftBeforeItsAnswerOpensNoDialog_data();
    void aCameraThatHasLeftBeforeItsAnswerOpensNoDialog();

private:
    [[nodiscard]] int modeOnShow() const {
        return m_window->findChild<QStackedLayout*>()->currentIndex();
    }
    void click(const QString& button) const;
    /// Hands @p message to the window, as about the first camera.
    void receive(VX_CMD message) const;

    std::unique_ptr<ClMainWidget> m_window;
};

void BasicSettingLeavingTest::init() {
    m_window = std::make_unique<ClMainWidget>();
    QVERIFY(disconnect(m_window.get(), &ClMainWidget::sigSendCommand, nullptr, nullptr));
    m_window->show();
    m_window->slotReceiveCommand(opened(FIRST));
    QTest::mouseClick(m_window->findChildren<ClButtonMode*>().at(MODE - 1), Qt::LeftButton);
    QCOMPARE(modeOnShow(), MODE);
    receive(valuesMessage(USB_RES_NUBO_CMD_GET_CAMERANAME, {u"Gull"_s}));
}

void BasicSettingLeavingTest::click(const QString& text) const {
    const auto buttons = m_window->findChild<ClWidgetBasicSetting*>()->findChildren<QPushButton*>();
    for (QPushButton* const button : buttons) {
        if (button->text() == (text.isEmpty() ? u"Gull"_s : text)) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    QFAIL("The page has no such button.");
}

void BasicSettingLeavingTest::receive(VX_CMD message) const {
    message.insert(u"PARAM1"_s, QVariant::fromValue(FIRST));
    m_window->slotReceiveCommand(message);
}

void BasicSettingLeavingTest::aDialogClosesWithItsCameraAndSendsNothing_data() {
    QTest::addColumn<int>("index");
    QTest::addColumn<Comes>("comes");
    const QList<stBasicSettingCase> rows = basicSettingCases();
    for (int i = 0; i < rows.size(); ++i) {
        QTest::addRow("%s, nobody comes", rows[i].name) << i << Comes::Nobody;
        QTest::addRow("%s, it comes back", rows[i].name) << i << Comes::SameCamera;
        QTest::addRow("%s, another one comes", rows[i].name) << i << Comes::OtherCamera;
    }
}

void BasicSettingLeavingTest::aDialogClosesWithItsCameraAndSendsNothing() {
    QFETCH(int, index);
    QFETCH(Comes, comes);
    const stBasicSettingCase row = basicSettingCases().at(index);
    const QSignalSpy sent(m_window.get(), &ClMainWidget::sigSendCommand);
    BoxUser user([&](QWidget& dialog) {
        QVERIFY(qobject_cast<ClDialogBase*>(&dialog) != nullptr);
        m_window->slotReceiveCommand(closed(FIRST));
        QCOMPARE(modeOnShow(), 0);
        QVERIFY(!dialog.isVisible());
        if (comes != Comes::Nobody) {
            m_window->slotReceiveCommand(opened(comes == Comes::SameCamera ? FIRST : SECOND));
            QCOMPARE(modeOnShow(), MODE);
        }
    });
    click(row.button);
    for (const VX_CMD& answer : row.answers) {
        receive(answer);
    }
    QCOMPARE(user.boxes().size(), 1);
    // The page that is shown again asks for the name; nothing is written.
    const qsizetype names = comes == Comes::Nobody ? 0 : 1;
    QCOMPARE(sent.size(), row.reads.size() + names);
    if (names > 0) {
        QCOMPARE(sent.last().first().toMap().value(u"CMD"_s).toUuid(),
                 USB_REQ_NUBO_CMD_GET_CAMERANAME);
    }
    QCOMPARE(modeOnShow(), comes == Comes::Nobody ? 0 : MODE);
}

void BasicSettingLeavingTest::theCalendarGoesWithItsDialog() {
    const QSignalSpy sent(m_window.get(), &ClMainWidget::sigSendCommand);
    qsizetype calendars = 0;
    const BoxUser user([&](QWidget& dialog) {
        const BoxUser calendarUser([&](QWidget& calendar) {
            m_window->slotReceiveCommand(closed(FIRST));
            QVERIFY(!calendar.isVisible());
            QVERIFY(!dialog.isVisible());
            m_window->slotReceiveCommand(opened(SECOND));
        });
        DialogControls(dialog).click(u"Calendar"_s);
        calendars = calendarUser.boxes().size();
    });
    click(u"Setting time"_s);
    receive(
        valuesMessage(USB_RES_NUBO_CMD_GET_TIME, {QDateTime(QDate(2014, 3, 9), QTime(7, 5, 1))}));
    QCOMPARE(calendars, 1);
    QCOMPARE(user.boxes().size(), 1);
    // The time is read from one camera, the name from the other; nothing is written.
    QCOMPARE(sent.size(), 2);
    QCOMPARE(sent.last().first().toMap().value(u"CMD"_s).toUuid(), USB_REQ_NUBO_CMD_GET_CAMERANAME);
}

void BasicSettingLeavingTest::aCameraThatHasLeftBeforeItsAnswerOpensNoDialog_data() {
    QTest::addColumn<int>("index");
    const QList<stBasicSettingCase> rows = basicSettingCases();
    for (int i = 0; i < rows.size(); ++i) {
        QTest::newRow(rows[i].name) << i;
    }
}

void BasicSettingLeavingTest::aCameraThatHasLeftBeforeItsAnswerOpensNoDialog() {
    QFETCH(int, index);
    const stBasicSettingCase row = basicSettingCases().at(index);
    const BoxUser user;
    click(row.button);
    m_window->slotReceiveCommand(closed(FIRST));
    for (const VX_CMD& answer : row.answers) {
        receive(answer);
    }
    m_window->slotReceiveCommand(opened(FIRST));
    receive(valuesMessage(USB_RES_NUBO_CMD_GET_CAMERANAME, {u"Gull"_s}));
    QCOMPARE(user.boxes().size(), 0);
    QCOMPARE(modeOnShow(), MODE);
}

const TestSubject registered = subjectWithWidgets<BasicSettingLeavingTest>();
#include "BasicSettingLeavingTest.moc"
