// SPDX-License-Identifier: MIT
#include "pages/state/ClWidgetCameraState.h"
#include "tests/pages/PageBench.h"
#include "tests/support/CameraStateReader.h"
#include "tests/support/TestSubject.h"

#include <QLabel>
#include <QProgressBar>

#include <limits>
#include <memory>

using namespace Qt::StringLiterals;

/// The values on the camera state page, and the chain of requests that brings them. The page stands
/// alone; the camera's answers are fed in by hand.
class CameraStatePageTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_bench = std::make_unique<PageBench<ClWidgetCameraState>>(QSize(600, 505)); }
    void cleanup() { m_bench.reset(); }

    void anAnswerSendsTheNextRequest();
    void requestsHaveNoArguments();
    void anAnswerOutOfTurnIsShown();
    void otherMessagesAreIgnored_data();
    void otherMessagesAreIgnored();
    void theChargeIsShown_data();
    void theChargeIsShown();
    void theLinkIsShown_data();
    void theLinkIsShown();
    void aLostLinkHidesTheDetails();
    void theCardIsShown_data();
    void theCardIsShown();
    void valuesThatAreMissingCountAsNothing();
    void showingThePageClearsWhatTheLastCameraLeft();
    void aPollingRefreshLeavesWhatIsShown();

private:
    [[nodiscard]] QList<QUuid> sent() const { return m_bench->sentCommands(); }
    [[nodiscard]] CameraStateReader shown() const { return CameraStateReader(m_bench->page); }

    std::unique_ptr<PageBench<ClWidgetCameraState>> m_bench;
};

void CameraStatePageTest::anAnswerSendsTheNextRequest() {
    QVERIFY(sent().isEmpty());
    m_bench->page.showInit(false);
    QList<QUuid> expected{USB_REQ_NUBO_CMD_GET_BATTERY};
    QCOMPARE(sent(), expected);
    m_bench->page.slotReceiveCommand(batteryAnswer(50));
    expected.append(USB_REQ_NUBO_CMD_GET_WIFI_INFO);
    QCOMPARE(sent(), expected);
    m_bench->page.slotReceiveCommand(wifiAnswer(1, 0, 0));
    expected.append(USB_REQ_NUBO_CMD_GET_SDINFO);
    QCOMPARE(sent(), expected);
    m_bench->page.slotReceiveCommand(sdAnswer(2, 1, 1));
    QCOMPARE(sent(), expected);
}

void CameraStatePageTest::requestsHaveNoArguments() {
    m_bench->page.showInit(true);
    m_bench->page.slotReceiveCommand(batteryAnswer(50));
    m_bench->page.slotReceiveCommand(wifiAnswer(1, 0, 0));
    QCOMPARE(m_bench->sent.size(), 3);
    for (const QVariantList& arguments : std::as_const(m_bench->sent)) {
        const QVariantMap message = arguments.first().toMap();
        QCOMPARE(message.keys(), (QStringList{u"CMD"_s, u"Sender"_s}));
        QCOMPARE(message.value(u"Sender"_s).value<QObject*>(), &m_bench->page);
    }
}

void CameraStatePageTest::anAnswerOutOfTurnIsShown() {
    m_bench->page.slotReceiveCommand(wifiAnswer(2, 1, 1));
    QCOMPARE(sent(), QList<QUuid>{USB_REQ_NUBO_CMD_GET_SDINFO});
    QCOMPARE(shown().linkDetails(), (QStringList{u"1dBm"_s, u"1ch"_s}));
}

void CameraStatePageTest::otherMessagesAreIgnored_data() {
    QTest::addColumn<QVariantMap>("message");
    QTest::newRow("empty") << QVariantMap{};
    QTest::newRow("answer for another page")
        << QVariantMap{{u"CMD"_s, USB_RES_NUBO_CMD_GET_FWVERSION}, {u"PARAM2"_s, u"1.0"_s}};
    QTest::newRow("a request") << QVariantMap{{u"CMD"_s, USB_REQ_NUBO_CMD_GET_BATTERY}};
    QTest::newRow("no identifier") << QVariantMap{{u"CMD"_s, 7}, {u"PARAM3"_s, 50}};
}

void CameraStatePageTest::otherMessagesAreIgnored() {
    QFETCH(QVariantMap, message);
    m_bench->page.showInit(false);
    m_bench->page.slotReceiveCommand(message);
    QCOMPARE(sent(), QList<QUuid>{USB_REQ_NUBO_CMD_GET_BATTERY});
    QCOMPARE(shown().card(), (QStringList{u"-- Byte"_s, u"-- Byte"_s, u"--"_s}));
    QVERIFY(m_bench->boxes.boxes().isEmpty());
}

void CameraStatePageTest::theChargeIsShown_data() {
    QTest::addColumn<unsigned int>("charge");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("colour");
    const QColor good(26, 97, 9);
    const QColor middling(120, 110, 25);
    const QColor low(180, 25, 8);
    QTest::newRow("full") << 100U << u"100%"_s << good;
    QTest::newRow("half") << 50U << u"50%"_s << good;
    QTest::newRow("below half") << 49U << u"49%"_s << middling;
    QTest::newRow("ten") << 10U << u"10%"_s << middling;
    QTest::newRow("nine") << 9U << u"9%"_s << low;
    QTest::newRow("empty") << 0U << u"0%"_s << low;
}

void CameraStatePageTest::theChargeIsShown() {
    QFETCH(unsigned int, charge);
    m_bench->page.slotReceiveCommand(batteryAnswer(charge));
    const auto* battery = m_bench->page.findChild<ClWidgetProgress*>();
    QCOMPARE(battery->findChild<QProgressBar*>()->value(), static_cast<int>(charge));
    const auto* text = battery->findChild<QLabel*>();
    QTEST(text->text(), "text");
    QTEST(text->palette().color(QPalette::WindowText), "colour");
}

void CameraStatePageTest::theLinkIsShown_data() {
    QTest::addColumn<unsigned int>("state");
    QTest::addColumn<int>("sensitivity");
    QTest::addColumn<unsigned int>("channel");
    QTest::addColumn<QString>("badge");
    QTest::addColumn<QStringList>("details");  // empty: hidden
    const auto row = [](const char* name, unsigned int state, int sensitivity, unsigned int channel,
                        const QString& badge, const QStringList& details) {
        QTest::newRow(name) << state << sensitivity << channel << badge << details;
    };
    row("linked", 2, 72, 6, u"Link"_s, {u"72dBm"_s, u"6ch"_s});
    row("linked, weakest", 2, 1, 13, u"Link"_s, {u"1dBm"_s, u"13ch"_s});
    row("linked, no signal", 2, 0, 6, u"Link"_s, {});
    row("linked, negative signal", 2, -70, 6, u"Link"_s, {});
    row("not linked", 1, 0, 0, u"Not link"_s, {});
    row("not linked, with signal", 1, 72, 6, u"Not link"_s, {});
    row("ad hoc", 3, 40, 11, u"Adhoc Link"_s, {u"40dBm"_s, u"11ch"_s});
    row("unknown state", 0, 40, 11, u"Not link"_s, {u"40dBm"_s, u"11ch"_s});
    row("hostile", 0xFFFFFFFF, std::numeric_limits<int>::max(), 0xFFFFFFFF, u"Not link"_s,
        {u"2147483647dBm"_s, u"4294967295ch"_s});
    row("lowest signal", 2, std::numeric_limits<int>::min(), 0, u"Link"_s, {});
}

void CameraStatePageTest::theLinkIsShown() {
    QFETCH(unsigned int, state);
    QFETCH(int, sensitivity);
    QFETCH(unsigned int, channel);
    m_bench->page.slotReceiveCommand(wifiAnswer(state, sensitivity, channel));
    QTEST(shown().link(), "badge");
    QTEST(shown().linkDetails(), "details");
}

void CameraStatePageTest::aLostLinkHidesTheDetails() {
    m_bench->page.slotReceiveCommand(wifiAnswer(2, 72, 6));
    QCOMPARE(shown().linkDetails(), (QStringList{u"72dBm"_s, u"6ch"_s}));
    m_bench->page.slotReceiveCommand(wifiAnswer(1, 72, 6));
    QCOMPARE(shown().linkDetails(), QStringList());
    m_bench->page.slotReceiveCommand(wifiAnswer(2, 33, 7));
    QCOMPARE(shown().linkDetails(), (QStringList{u"33dBm"_s, u"7ch"_s}));
}

void CameraStatePageTest::theCardIsShown_data() {
    QTest::addColumn<quint64>("total");
    QTest::addColumn<quint64>("used");
    QTest::addColumn<unsigned int>("fileSystem");
    QTest::addColumn<QStringList>("texts");
    const auto row = [](const char* name, quint64 total, quint64 used, unsigned int fileSystem,
                        const QString& totalText, const QString& freeText, const QString& system) {
        QTest::newRow(name) << total << used << fileSystem
                            << QStringList{totalText, freeText, system};
    };
    row("truncated, not rounded", 7744512, 1548902, 3, u"7930380288 Byte"_s,
        u"6344304640 Byte (19% used)"_s, u"FAT32"_s);
    row("FAT12", 1440, 0, 1, u"1474560 Byte"_s, u"1474560 Byte (0% used)"_s, u"FAT12"_s);
    row("FAT16", 4, 1, 2, u"4096 Byte"_s, u"3072 Byte (25% used)"_s, u"FAT16"_s);
    // 29 / 100 * 100 is a little less than 29 in double precision.
    row("29 of 100", 100, 29, 3, u"102400 Byte"_s, u"72704 Byte (28% used)"_s, u"FAT32"_s);
    row("full", 1000, 1000, 3, u"1024000 Byte"_s, u"0 Byte (100% used)"_s, u"FAT32"_s);
    row("no file system", 2, 1, 0, u"2048 Byte"_s, u"1024 Byte (50% used)"_s, QString());
    row("unknown file system", 2, 1, 4, u"2048 Byte"_s, u"1024 Byte (50% used)"_s, QString());
    row("hostile file system", 2, 1, 0xFFFFFFFF, u"2048 Byte"_s, u"1024 Byte (50% used)"_s,
        QString());
    row("no card", 0, 0, 0, u"0 Byte"_s, u"0 Byte (0% used)"_s, QString());
    row("no size, but used", 0, 7, 3, u"0 Byte"_s, u"0 Byte (0% used)"_s, u"FAT32"_s);
    row("more used than there is", 100, 250, 3, u"102400 Byte"_s, u"0 Byte (250% used)"_s,
        u"FAT32"_s);
    row("2 TiB", quint64{1} << 31, quint64{1} << 30, 3, u"2199023255552 Byte"_s,
        u"1099511627776 Byte (50% used)"_s, u"FAT32"_s);
    row("the most bytes that fit", (quint64{1} << 54) - 1, 0, 3, u"18446744073709550592 Byte"_s,
        u"18446744073709550592 Byte (0% used)"_s, u"FAT32"_s);
}

void CameraStatePageTest::theCardIsShown() {
    QFETCH(quint64, total);
    QFETCH(quint64, used);
    QFETCH(unsigned int, fileSystem);
    m_bench->page.slotReceiveCommand(sdAnswer(total, used, fileSystem));
    QTEST(shown().card(), "texts");
    QVERIFY(m_bench->sent.isEmpty());
}

void CameraStatePageTest::valuesThatAreMissingCountAsNothing() {
    m_bench->page.slotReceiveCommand({{u"CMD"_s, USB_RES_NUBO_CMD_GET_BATTERY}});
    m_bench->page.slotReceiveCommand({{u"CMD"_s, USB_RES_NUBO_CMD_GET_WIFI_INFO}});
    m_bench->page.slotReceiveCommand({{u"CMD"_s, USB_RES_NUBO_CMD_GET_SDINFO}});
    QCOMPARE(shown().battery(), u"0%"_s);
    QCOMPARE(shown().linkDetails(), QStringList());
    QCOMPARE(shown().card(), (QStringList{u"0 Byte"_s, u"0 Byte (0% used)"_s, QString()}));
    QCOMPARE(sent(), (QList<QUuid>{USB_REQ_NUBO_CMD_GET_WIFI_INFO, USB_REQ_NUBO_CMD_GET_SDINFO}));
}

void CameraStatePageTest::showingThePageClearsWhatTheLastCameraLeft() {
    m_bench->page.slotReceiveCommand(batteryAnswer(85));
    m_bench->page.slotReceiveCommand(wifiAnswer(2, 72, 6));
    m_bench->page.slotReceiveCommand(sdAnswer(7744512, 1548902, 3));
    m_bench->page.showInit(false);
    QCOMPARE(shown().card(), (QStringList{u"-- Byte"_s, u"-- Byte"_s, u"--"_s}));
    QCOMPARE(shown().linkDetails(), QStringList());
    QCOMPARE(shown().link(), u"Link"_s);
    QCOMPARE(shown().battery(), u"85%"_s);
}

void CameraStatePageTest::aPollingRefreshLeavesWhatIsShown() {
    m_bench->page.slotReceiveCommand(wifiAnswer(2, 72, 6));
    m_bench->page.slotReceiveCommand(sdAnswer(4, 1, 2));
    m_bench->sent.clear();
    m_bench->page.showInit(true);
    QCOMPARE(shown().card(), (QStringList{u"4096 Byte"_s, u"3072 Byte (25% used)"_s, u"FAT16"_s}));
    QCOMPARE(shown().linkDetails(), (QStringList{u"72dBm"_s, u"6ch"_s}));
    QCOMPARE(sent(), QList<QUuid>{USB_REQ_NUBO_CMD_GET_BATTERY});
}

const TestSubject registered = subjectWithWidgets<CameraStatePageTest>();
#include "CameraStatePageTest.moc"
