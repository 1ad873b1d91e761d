// SPDX-License-Identifier: MIT
#include "tests/pages/network/NetworkBench.h"
#include "tests/support/TestSubject.h"

#include <optional>

using namespace Qt::StringLiterals;

/// Which of the two boxes "Connect … on startup" is checked, and what is written to the camera when
/// the user checks or unchecks one.
class NetworkModeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_bench.emplace(); }
    void cleanup() { m_bench.reset(); }

    void aClickSwitchesTheCamera_data();
    void aClickSwitchesTheCamera();
    void theNextPollShowsACameraThatRefused_data() { aClickSwitchesTheCamera_data(); }
    void theNextPollShowsACameraThatRefused();
    void theWritesNameTheirSender();
    void theNextPollPutsAFailedChangeRight();
    void aModeThatWasNotWrittenIsAskedForAgain_data();
    void aModeThatWasNotWrittenIsAskedForAgain();
    void oneOfTwoWritesFails_data();
    void oneOfTwoWritesFails();
    void aSwitchIsReadBackAtOnce();
    void aWrittenModeIsNotReadBack();
    void uncheckingAndCheckingAgainSwitchesOnAgain();
    void checkingAgainBeforeItIsReadSwitchesOnAgain();
    void aModeWhoseResultWasMissedIsAskedForAgain();

    void theBoxesFollowTheCamera_data();
    void theBoxesFollowTheCamera();
    void aModeThatIsReadIsShown_data();
    void aModeThatIsReadIsShown();
    void theModeIsAskedForOnlyOnce();
    void theModeIsAskedForOnTheOwnQueryOnly();
    void readingNeverWrites();

private:
    /// The boxes as the camera has them.
    void start(bool isOn, quint32 mode);
    /// Of a row of aClickSwitchesTheCamera_data().
    void clickBoxOfRow();
    [[nodiscard]] QList<bool> boxes() const {
        return {m_bench->network.box(INFRASTRUCTURE).isChecked(),
                m_bench->network.box(ADHOC).isChecked()};
    }

    std::optional<NetworkBench> m_bench;
};

void NetworkModeTest::start(bool isOn, quint32 mode) {
    g_bIsWifiON = isOn;
    g_ulWifiMode = mode;
    m_bench->network.box(INFRASTRUCTURE).setChecked(isOn && mode == 1);
    m_bench->network.box(ADHOC).setChecked(isOn && mode == 2);
}

void NetworkModeTest::clickBoxOfRow() {
    QFETCH(const bool, isOn);
    QFETCH(const quint32, mode);
    QFETCH(const quint32, clicked);
    QFETCH(const bool, isChecked);
    const QString tab = clicked == 1 ? INFRASTRUCTURE : ADHOC;
    m_bench->network.clickTab(tab);
    start(isOn, mode);
    m_bench->network.box(tab).setChecked(!isChecked);
    m_bench->takeSent();
    m_bench->network.clickBox(tab);
}

void NetworkModeTest::aClickSwitchesTheCamera_data() {
    QTest::addColumn<bool>("isOn");
    QTest::addColumn<quint32>("mode");
    QTest::addColumn<quint32>("clicked");  // the mode of the box
    QTest::addColumn<bool>("isChecked");
    QTest::addColumn<QStringList>("sent");
    QTest::addColumn<QList<bool>>("after");
    QTest::addColumn<quint32>("modeAfter");
    for (const bool isOn : {false, true}) {
        for (quint32 mode = 0; mode <= 2; ++mode) {
            for (quint32 clicked = 1; clicked <= 2; ++clicked) {
                for (const bool isChecked : {false, true}) {
                    QStringList sent;
                    if (!isChecked && (isOn || mode != 0)) {
                        sent = {SET_OFF};
                    } else if (isChecked && !isOn) {
                        sent = {SET_ON, SET_MODE.arg(clicked)};
                    } else if (isChecked && mode != clicked) {
                        sent = {SET_MODE.arg(clicked)};
                    }
                    // Checking one box unchecks the other; unchecking leaves it alone.
                    const bool isOtherChecked = !isChecked && isOn && mode == 3 - clicked;
                    QTest::addRow("Wi-Fi %s, mode %u, box %u %s", isOn ? "on" : "off", mode,
                                  clicked, isChecked ? "checked" : "unchecked")
                        << isOn << mode << clicked << isChecked << sent
                        << (clicked == 1 ? QList<bool>{isChecked, isOtherChecked}
                                         : QList<bool>{isOtherChecked, isChecked})
                        << (isChecked ? clicked : 0U);
                }
            }
        }
    }
}

void NetworkModeTest::aClickSwitchesTheCamera() {
    QFETCH(const bool, isOn);
    QFETCH(const quint32, clicked);
    QFETCH(const bool, isChecked);
    QFETCH(const quint32, modeAfter);
    clickBoxOfRow();
    QTEST(m_bench->takeSent(), "sent");
    QTEST(boxes(), "after");
    QCOMPARE(g_ulWifiMode, modeAfter);
    QCOMPARE(g_bIsWifiON, isOn);  // only reading changes it

    // The camera has done what it was asked to.
    m_bench->answerOnOff(isChecked);
    QCOMPARE(m_bench->takeSent(), QStringList());
    QCOMPARE(boxes(), (QList<bool>{isChecked && clicked == 1, isChecked && clicked == 2}));
    QCOMPARE(g_bIsWifiON, isChecked);
}

void NetworkModeTest::theNextPollShowsACameraThatRefused() {
    QFETCH(const bool, isOn);
    QFETCH(const quint32, mode);
    QFETCH(const quint32, clicked);
    QFETCH(const QList<bool>, after);
    clickBoxOfRow();
    const QStringList sent = m_bench->takeSent();
    for (const QUuid& command : {USB_NUBO_CMD_SET_WIFI_ONOFF, USB_NUBO_CMD_SET_WIFI_MODE}) {
        if (!sent.filter(getUsbCommand(command)).isEmpty()) {
            m_bench->respond(command, 0xFFFF);
        }
    }
    QCOMPARE(boxes(), after);
    QCOMPARE(m_bench->takeSent(), QStringList());

    m_bench->answerOnOff(isOn);
    if (!isOn) {
        QCOMPARE(boxes(), (QList<bool>{false, false}));
        QCOMPARE(m_bench->takeSent(), QStringList());
    } else if (sent.isEmpty()) {
        QCOMPARE(boxes(), (QList<bool>{clicked == 1, clicked == 2}));
        QCOMPARE(m_bench->takeSent(), QStringList());
    } else {
        QCOMPARE(boxes(), after);
        QCOMPARE(m_bench->takeSent(), QStringList{GET_MODE});
        m_bench->answerMode(mode);
        QCOMPARE(boxes(), mode == 0 ? after : (QList<bool>{mode == 1, mode == 2}));
    }
}

void NetworkModeTest::theWritesNameTheirSender() {
    m_bench->sent.clear();
    m_bench->network.clickBox(INFRASTRUCTURE);
    QCOMPARE(m_bench->sent.size(), 2);
    for (const QVariantList& arguments : m_bench->sent) {
        QCOMPARE(arguments.first().toMap().value(u"Sender"_s).value<QObject*>(), &m_bench->page);
    }
}

void NetworkModeTest::theNextPollPutsAFailedChangeRight() {
    start(true, 1);
    m_bench->network.clickBox(INFRASTRUCTURE);
    m_bench->respond(USB_NUBO_CMD_SET_WIFI_ONOFF, 0xFFFF);
    QCOMPARE(boxes(), (QList<bool>{false, false}));
    m_bench->takeSent();

    // Wi-Fi has stayed on; its mode is no longer known.
    m_bench->answerOnOff(true);
    QCOMPARE(boxes(), (QList<bool>{false, false}));
    QCOMPARE(m_bench->takeSent(), QStringList{GET_MODE});
    m_bench->answerMode(1);
    QCOMPARE(boxes(), (QList<bool>{true, false}));
}

void NetworkModeTest::aModeThatWasNotWrittenIsAskedForAgain_data() {
    QTest::addColumn<QUuid>("kind");
    QTest::addColumn<unsigned short>("code");
    QTest::addColumn<int>("errors");
    const auto row = [](const char* name, const QUuid& kind, int code, int errors) {
        QTest::newRow(name) << kind << static_cast<unsigned short>(code) << errors;
    };
    row("refused", USB_NUBO_CMD_RESPONSE, 0xFFFB, 1);
    row("lost", USB_CMD_ERROR, 0xEF03, 1);
    row("the camera has gone", USB_CMD_ERROR, 0xEF00, 0);
}

void NetworkModeTest::aModeThatWasNotWrittenIsAskedForAgain() {
    QFETCH(const QUuid, kind);
    QFETCH(const unsigned short, code);
    QFETCH(const int, errors);
    m_bench->network.clickTab(ADHOC);
    start(true, 1);
    m_bench->takeSent();
    m_bench->network.clickBox(ADHOC);
    QCOMPARE(m_bench->takeSent(), QStringList{SET_MODE.arg(2)});
    m_bench->page.slotReceiveCommand(plainResult(kind, USB_NUBO_CMD_SET_WIFI_MODE, code));
    QCOMPARE(m_bench->boxes.boxes().size(), errors);
    QCOMPARE(boxes(), (QList<bool>{false, true}));
    QCOMPARE(m_bench->takeSent(), QStringList());

    m_bench->answerOnOff(true);
    QCOMPARE(boxes(), (QList<bool>{false, true}));
    QCOMPARE(m_bench->takeSent(), QStringList{GET_MODE});
    m_bench->answerMode(1);
    QCOMPARE(boxes(), (QList<bool>{true, false}));
    // From here on it is known again.
    m_bench->answerOnOff(true);
    QCOMPARE(m_bench->takeSent(), QStringList());
    m_bench->network.clickBox(ADHOC);
    QCOMPARE(m_bench->takeSent(), QStringList{SET_MODE.arg(2)});
}

void NetworkModeTest::oneOfTwoWritesFails_data() {
    QTest::addColumn<bool>("isSwitched");
    QTest::addColumn<bool>("isModeSet");
    QTest::newRow("only the switch") << false << true;
    QTest::newRow("only the mode") << true << false;
    QTest::newRow("both") << false << false;
}

void NetworkModeTest::oneOfTwoWritesFails() {
    QFETCH(const bool, isSwitched);
    QFETCH(const bool, isModeSet);
    m_bench->network.clickTab(ADHOC);
    start(false, 1);
    m_bench->takeSent();
    m_bench->network.clickBox(ADHOC);
    QCOMPARE(m_bench->takeSent(), (QStringList{SET_ON, SET_MODE.arg(2)}));
    m_bench->respond(USB_NUBO_CMD_SET_WIFI_ONOFF, isSwitched ? 0 : 0xFFFB);
    QCOMPARE(m_bench->takeSent(), isSwitched ? QStringList{GET_ONOFF} : QStringList());
    m_bench->respond(USB_NUBO_CMD_SET_WIFI_MODE, isModeSet ? 0 : 0xFFFB);
    QCOMPARE(m_bench->takeSent(), QStringList());
    QCOMPARE(m_bench->boxes.boxes().size(), 1);
    QCOMPARE(boxes(), (QList<bool>{false, true}));

    m_bench->answerOnOff(isSwitched);
    if (isSwitched) {
        QCOMPARE(m_bench->takeSent(), QStringList{GET_MODE});
        m_bench->answerMode(isModeSet ? 2 : 1);
        QCOMPARE(boxes(), (QList<bool>{!isModeSet, isModeSet}));
        return;
    }
    QCOMPARE(m_bench->takeSent(), QStringList());
    QCOMPARE(boxes(), (QList<bool>{false, false}));
    // Somebody switches it on at the camera.
    m_bench->answerOnOff(true);
    QCOMPARE(m_bench->takeSent(), QStringList{GET_MODE});
    m_bench->answerMode(isModeSet ? 2 : 1);
    QCOMPARE(boxes(), (QList<bool>{!isModeSet, isModeSet}));
}

void NetworkModeTest::aSwitchIsReadBackAtOnce() {
    m_bench->network.clickTab(ADHOC);
    start(false, 0);
    m_bench->takeSent();
    m_bench->network.clickBox(ADHOC);
    QCOMPARE(m_bench->takeSent(), (QStringList{SET_ON, SET_MODE.arg(2)}));
    m_bench->succeed(USB_NUBO_CMD_SET_WIFI_ONOFF);
    QCOMPARE(m_bench->takeSent(), QStringList{GET_ONOFF});
    m_bench->succeed(USB_NUBO_CMD_SET_WIFI_MODE);
    m_bench->answerOnOff(true);
    QCOMPARE(m_bench->takeSent(), QStringList());
    QVERIFY(g_bIsWifiON);
    QCOMPARE(boxes(), (QList<bool>{false, true}));
}

void NetworkModeTest::aWrittenModeIsNotReadBack() {
    m_bench->network.clickTab(ADHOC);
    start(true, 1);
    m_bench->takeSent();
    m_bench->network.clickBox(ADHOC);
    m_bench->succeed(USB_NUBO_CMD_SET_WIFI_MODE);
    m_bench->page.showInit(true);
    m_bench->answerOnOff(true);
    QCOMPARE(m_bench->takeSent(), (QStringList{SET_MODE.arg(2), GET_ONOFF}));
    QCOMPARE(boxes(), (QList<bool>{false, true}));
}

void NetworkModeTest::uncheckingAndCheckingAgainSwitchesOnAgain() {
    start(true, 1);
    m_bench->takeSent();
    m_bench->network.clickBox(INFRASTRUCTURE);
    QCOMPARE(m_bench->takeSent(), QStringList{SET_OFF});
    m_bench->succeed(USB_NUBO_CMD_SET_WIFI_ONOFF);
    QCOMPARE(m_bench->takeSent(), QStringList{GET_ONOFF});
    m_bench->answerOnOff(false);
    m_bench->network.clickBox(INFRASTRUCTURE);
    QCOMPARE(m_bench->takeSent(), (QStringList{SET_ON, SET_MODE.arg(1)}));
}

void NetworkModeTest::checkingAgainBeforeItIsReadSwitchesOnAgain() {
    start(true, 1);
    m_bench->takeSent();
    m_bench->network.clickBox(INFRASTRUCTURE);
    m_bench->network.clickBox(INFRASTRUCTURE);
    QCOMPARE(m_bench->takeSent(), (QStringList{SET_OFF, SET_ON, SET_MODE.arg(1)}));
    m_bench->network.clickBox(INFRASTRUCTURE);
    m_bench->succeed(USB_NUBO_CMD_SET_WIFI_ONOFF);
    m_bench->network.clickBox(INFRASTRUCTURE);
    QCOMPARE(m_bench->takeSent(), (QStringList{SET_OFF, GET_ONOFF, SET_ON, SET_MODE.arg(1)}));
    // Read and found on, it need not be switched on once more.
    m_bench->network.clickBox(INFRASTRUCTURE);
    m_bench->answerOnOff(true);
    m_bench->answerMode(2);
    m_bench->takeSent();
    m_bench->network.clickBox(INFRASTRUCTURE);
    QCOMPARE(m_bench->takeSent(), QStringList{SET_MODE.arg(1)});
}

void NetworkModeTest::aModeWhoseResultWasMissedIsAskedForAgain() {
    start(true, 1);
    m_bench->network.clickTab(ADHOC);
    m_bench->network.clickBox(ADHOC);
    // The page is left, and shown again.
    m_bench->page.showInit(false);
    m_bench->takeSent();
    m_bench->answerOnOff(true);
    QCOMPARE(m_bench->takeSent(), QStringList{GET_MODE});
    m_bench->answerMode(1);
    QCOMPARE(boxes(), (QList<bool>{true, false}));
}

void NetworkModeTest::theBoxesFollowTheCamera_data() {
    QTest::addColumn<bool>("isOn");
    QTest::addColumn<quint32>("mode");
    QTest::addColumn<QList<bool>>("after");
    QTest::addColumn<QStringList>("sent");
    const QList<bool> asBefore{true, true};
    for (quint32 mode = 0; mode <= 3; ++mode) {
        QTest::addRow("off, mode %u", mode)
            << false << mode << QList<bool>{false, false} << QStringList();
    }
    QTest::newRow("on, mode 0") << true << 0U << asBefore << QStringList{GET_MODE};
    QTest::newRow("on, mode 1") << true << 1U << QList<bool>{true, false} << QStringList();
    QTest::newRow("on, mode 2") << true << 2U << QList<bool>{false, true} << QStringList();
    QTest::newRow("on, mode 3") << true << 3U << asBefore << QStringList();
}

void NetworkModeTest::theBoxesFollowTheCamera() {
    QFETCH(const bool, isOn);
    QFETCH(const quint32, mode);
    g_ulWifiMode = mode;
    m_bench->network.box(INFRASTRUCTURE).setChecked(true);
    m_bench->network.box(ADHOC).setChecked(true);
    m_bench->answerOnOff(isOn);
    QTEST(boxes(), "after");
    QTEST(m_bench->takeSent(), "sent");
    QCOMPARE(g_bIsWifiON, isOn);
    QCOMPARE(g_ulWifiMode, mode);
}

void NetworkModeTest::aModeThatIsReadIsShown_data() {
    QTest::addColumn<bool>("isOn");
    QTest::addColumn<quint32>("mode");
    QTest::addColumn<QList<bool>>("after");
    const QList<bool> asBefore{true, true};
    for (quint32 mode = 0; mode <= 3; ++mode) {
        QTest::addRow("off, mode %u", mode) << false << mode << asBefore;
    }
    QTest::newRow("on, mode 0") << true << 0U << asBefore;
    QTest::newRow("on, mode 1") << true << 1U << QList<bool>{true, false};
    QTest::newRow("on, mode 2") << true << 2U << QList<bool>{false, true};
    QTest::newRow("on, mode 3") << true << 3U << asBefore;
}

void NetworkModeTest::aModeThatIsReadIsShown() {
    QFETCH(const bool, isOn);
    QFETCH(const quint32, mode);
    g_bIsWifiON = isOn;
    for (const bool isOwn : {true, false}) {
        g_ulWifiMode = 7;
        m_bench->network.box(INFRASTRUCTURE).setChecked(true);
        m_bench->network.box(ADHOC).setChecked(true);
        if (isOwn) {
            m_bench->answerMode(mode);
        } else {
            m_bench->answer(USB_RES_NUBO_CMD_GET_WIFIMODE, mode);
        }
        QTEST(boxes(), "after");
        QCOMPARE(g_ulWifiMode, mode);
    }
    QCOMPARE(m_bench->takeSent(), QStringList());
}

void NetworkModeTest::theModeIsAskedForOnlyOnce() {
    m_bench->answerOnOff(true);
    QCOMPARE(m_bench->takeSent(), QStringList{GET_MODE});
    m_bench->answerMode(2);
    m_bench->answerOnOff(false);
    m_bench->answerOnOff(true);
    QCOMPARE(m_bench->takeSent(), QStringList());
    QCOMPARE(boxes(), (QList<bool>{false, true}));
}

void NetworkModeTest::theModeIsAskedForOnTheOwnQueryOnly() {
    m_bench->answer(USB_RES_NUBO_CMD_GET_WIFI_ONOFF, true);
    QCOMPARE(m_bench->takeSent(), QStringList());
    QVERIFY(g_bIsWifiON);
}

void NetworkModeTest::readingNeverWrites() {
    QStringList sent;
    for (const QString& tab : {INFRASTRUCTURE, ADHOC}) {
        m_bench->network.clickTab(tab);
        for (const quint32 mode : {1U, 2U, 1U}) {
            m_bench->answerMode(mode);
            m_bench->answerOnOff(true);
            m_bench->answerOnOff(false);
            m_bench->answerOnOff(true);
        }
        sent += m_bench->takeSent();
    }
    for (const QString& command : std::as_const(sent)) {
        QVERIFY2(!command.contains(u"_SET_"_s), qPrintable(command));
    }
}

const TestSubject registered = subjectWithWidgets<NetworkModeTest>();
#include "NetworkModeTest.moc"
