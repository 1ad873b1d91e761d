// SPDX-License-Identifier: MIT
#include "pages/network/ClWidgetInfrastructureTop.h"
#include "tests/pages/PageBench.h"
#include "tests/pages/network/AccesspointMessages.h"
#include "tests/support/TestSubject.h"
#include "ui/ApBadges.h"
#include "ui/ClButtonApInfo.h"
#include "ui/ClLabelSsid.h"

#include <QCheckBox>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString GET_SSID = u"USB_REQ_NUBO_CMD_GET_INFRA_SSID"_s;
const QString GET_LINK = u"USB_REQ_NUBO_CMD_GET_WIFI_INFO"_s;
const QString UNKNOWN_ERROR = u"Exec failed, unknown error"_s;

/// What the page's access-point button shows.
struct stShown {
    QString ssid;
    bool isLinked;
    QString encryption;
    bool hasSignal;

    bool operator==(const stShown&) const = default;
};

}  // namespace

/// The first infrastructure sub-page, alone.
class InfrastructureTopTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_bench.reset(); }

    void theBoxTellsWhatTheUserWants();
    void theBoxFollowsTheCamera();
    void aButtonLeadsToItsPage_data();
    void aButtonLeadsToItsPage();

    void comingOnShowStartsThePollingFirst();
    void aHiddenPageStartsNoPolling();
    void pollingStartsNoPolling();
    void readsTheSsidThenTheLink();
    void aSlowCameraIsNotAskedTwice();

    void showsNoAccessPointAtFirst();
    void showsTheAccessPoint_data();
    void showsTheAccessPoint();
    void forgetsTheSsidAfterEachRefresh();
    void overlappingRefreshesKeepTheAccessPoint();

    void aFailedReadStopsThePollingAndIsShown_data();
    void aFailedReadStopsThePollingAndIsShown();
    void onlyTheFirstFailureIsShown();
    void otherResultsAreLeftAlone_data();
    void otherResultsAreLeftAlone();
    void aFailedReadEndsTheRefreshAndLeavesTheValues();

private:
    [[nodiscard]] ClWidgetInfrastructureTop& page() { return m_bench->page; }
    [[nodiscard]] stShown shown();

    std::optional<PageBench<ClWidgetInfrastructureTop>> m_bench;
    QStringList m_notes;  ///< of the signals to the network page, and of what is sent
};

void InfrastructureTopTest::init() {
    m_bench.emplace();
    g_bIsWifiON = true;
    m_notes.clear();
    connect(&page(), &ClWidgetInfrastructureTop::sigStartPolling, this,
            [this] { m_notes.append(u"start"_s); });
    connect(&page(), &ClWidgetInfrastructureTop::sigStopPolling, this,
            [this] { m_notes.append(u"stop"_s); });
    connect(&page(), &ClWidgetBase::sigSendCommand, this, [this] { m_notes.append(u"send"_s); });
}

stShown InfrastructureTopTest::shown() {
    const auto* selected = page().findChild<ClButtonApInfo*>();
    return {selected->findChild<ClLabelSsid*>()->text(),
            !selected->findChild<ClLinkCheck*>()->pixmap().isNull(),
            selected->findChild<ClWidgetEncryption*>()->text(),
            !selected->findChild<ClWidgetRssi*>()->pixmap().isNull()};
}

void InfrastructureTopTest::theBoxTellsWhatTheUserWants() {
    const QSignalSpy used(&page(), &ClWidgetInfrastructureTop::sigUseInfra);
    auto* const box = page().findChild<QCheckBox*>();
    QTest::mouseClick(box, Qt::LeftButton, {}, {8, box->height() / 2});
    QCOMPARE(used, (QList<QVariantList>{{true}}));
    QTest::keyClick(box, Qt::Key_Space);
    QCOMPARE(used, (QList<QVariantList>{{true}, {false}}));
    QVERIFY(m_notes.isEmpty());
}

void InfrastructureTopTest::theBoxFollowsTheCamera() {
    const QSignalSpy used(&page(), &ClWidgetInfrastructureTop::sigUseInfra);
    const auto* box = page().findChild<QCheckBox*>();
    page().setUseInfra(true);
    QVERIFY(box->isChecked());
    page().setUseInfra(false);
    QVERIFY(!box->isChecked());
    page().setUseInfra(true);
    g_bIsWifiON = false;
    page().setUseInfra(true);
    QVERIFY(!box->isChecked());
    QVERIFY(used.isEmpty());
}

void InfrastructureTopTest::aButtonLeadsToItsPage_data() {
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("index");
    QTest::newRow("search") << u"AP search and setting"_s << 1;
    QTest::newRow("manual") << u"AP manual setting"_s << 2;
    QTest::newRow("access point") << QString() << 3;
}

void InfrastructureTopTest::aButtonLeadsToItsPage() {
    QFETCH(QString, button);
    const QSignalSpy changed(&page(), &ClWidgetInfrastructureTop::sigChangePage);
    m_bench->user.click(button);
    QCOMPARE(changed.size(), 1);
    QTEST(changed.first().first().toInt(), "index");
    QVERIFY(m_notes.isEmpty());
}

void InfrastructureTopTest::comingOnShowStartsThePollingFirst() {
    page().showInit(false);
    QCOMPARE(m_notes, (QStringList{u"start"_s, u"send"_s}));
    QCOMPARE(m_bench->takeSent(), QStringList{GET_SSID});
}

void InfrastructureTopTest::aHiddenPageStartsNoPolling() {
    page().hide();
    page().showInit(false);
    QCOMPARE(m_notes, QStringList{u"send"_s});
}

void InfrastructureTopTest::pollingStartsNoPolling() {
    page().showInit(true);
    QCOMPARE(m_notes, QStringList{u"send"_s});
    QCOMPARE(m_bench->takeSent(), QStringList{GET_SSID});
}

void InfrastructureTopTest::readsTheSsidThenTheLink() {
    page().showInit(true);
    m_bench->takeSent();
    page().slotReceiveCommand(ssidAnswer(u"Harbour"_s));
    QCOMPARE(m_bench->takeSent(), QStringList{GET_LINK});
    page().slotReceiveCommand(linkAnswer(2, u"Harbour"_s, {}));
    QVERIFY(m_bench->takeSent().isEmpty());
}

void InfrastructureTopTest::aSlowCameraIsNotAskedTwice() {
    page().showInit(true);
    page().showInit(true);
    QCOMPARE(m_bench->takeSent(), QStringList{GET_SSID});
    page().slotReceiveCommand(ssidAnswer(u"Harbour"_s));
    page().showInit(true);
    QCOMPARE(m_bench->takeSent(), QStringList{GET_LINK});
    page().slotReceiveCommand(linkAnswer(2, u"Harbour"_s, {}));
    page().showInit(true);
    QCOMPARE(m_bench->takeSent(), QStringList{GET_SSID});
    // Coming back to the page asks again, whatever became of the answer.
    page().showInit(false);
    QCOMPARE(m_bench->takeSent(), QStringList{GET_SSID});
}

void InfrastructureTopTest::showsNoAccessPointAtFirst() {
    QCOMPARE(shown(), (stShown{{}, false, {}, false}));
}

void InfrastructureTopTest::showsTheAccessPoint_data() {
    QTest::addColumn<unsigned int>("state");
    QTest::addColumn<QString>("linked");
    QTest::addColumn<unsigned int>("type");
    QTest::addColumn<unsigned int>("signal");
    QTest::addColumn<stShown>("expected");
    const QString ssid = u"Harbour"_s;
    QTest::newRow("linked") << 2U << ssid << 4U << 72U << stShown{ssid, true, u"AES"_s, true};
    QTest::newRow("linked, open") << 2U << ssid << 0U << 72U << stShown{ssid, true, {}, true};
    QTest::newRow("linked, no signal")
        << 2U << ssid << 1U << 0U << stShown{ssid, true, u"WEP"_s, false};
    QTest::newRow("linked, negative signal") << 2U << ssid << 2U << static_cast<unsigned int>(-60)
                                             << stShown{ssid, true, u"TKIP"_s, false};
    QTest::newRow("ad-hoc") << 3U << ssid << 4U << 72U << stShown{ssid, true, u"AES"_s, true};
    QTest::newRow("state 0") << 0U << ssid << 4U << 72U << stShown{ssid, true, u"AES"_s, true};
    QTest::newRow("not linked, same SSID")
        << 1U << ssid << 4U << 72U << stShown{ssid, false, {}, false};
    QTest::newRow("linked to another one")
        << 2U << u"Quay"_s << 4U << 72U << stShown{ssid, false, {}, false};
    QTest::newRow("differs in case")
        << 2U << u"harbour"_s << 4U << 72U << stShown{ssid, false, {}, false};
}

void InfrastructureTopTest::showsTheAccessPoint() {
    QFETCH(unsigned int, state);
    QFETCH(QString, linked);
    QFETCH(unsigned int, type);
    QFETCH(unsigned int, signal);
    QFETCH(stShown, expected);
    // After an access point with everything.
    page().slotReceiveCommand(ssidAnswer(u"Before"_s));
    page().slotReceiveCommand(linkAnswer(2, u"Before"_s, {}));
    QCOMPARE(shown(), (stShown{u"Before"_s, true, u"AES"_s, true}));

    page().slotReceiveCommand(ssidAnswer(u"Harbour"_s));
    // The second text is not the one that counts here.
    page().slotReceiveCommand(linkAnswer(state, linked, u"Harbour"_s, type, signal));
    QVERIFY(shown() == expected);
}

void InfrastructureTopTest::forgetsTheSsidAfterEachRefresh() {
    for (const unsigned int state : {1U, 2U}) {
        page().slotReceiveCommand(ssidAnswer(u"Harbour"_s));
        page().slotReceiveCommand(linkAnswer(state, u"Harbour"_s, {}));
        page().slotReceiveCommand(linkAnswer(2, u"Harbour"_s, {}));
        QCOMPARE(shown(), (stShown{{}, false, {}, false}));
    }
}

void InfrastructureTopTest::overlappingRefreshesKeepTheAccessPoint() {
    // The tab and the mode are clicked close together. The camera answers all that it is asked.
    page().showInit(false);
    page().showInit(false);
    for (QStringList asked = m_bench->takeSent(); !asked.isEmpty(); asked = m_bench->takeSent()) {
        for (const QString& request : std::as_const(asked)) {
            page().slotReceiveCommand(request == GET_SSID ? ssidAnswer(u"Harbour"_s)
                                                          : linkAnswer(2, u"Harbour"_s, {}));
        }
    }
    QCOMPARE(shown(), (stShown{u"Harbour"_s, true, u"AES"_s, true}));
}

void InfrastructureTopTest::aFailedReadStopsThePollingAndIsShown_data() {
    QTest::addColumn<QUuid>("kind");
    QTest::addColumn<QUuid>("command");
    QTest::addColumn<unsigned short>("code");
    QTest::addColumn<QString>("text");
    const QList<std::pair<const char*, QUuid>> commands{
        {"SSID", USB_REQ_NUBO_CMD_GET_INFRA_SSID},
        {"link", USB_REQ_NUBO_CMD_GET_WIFI_INFO},
        {"key", USB_REQ_NUBO_CMD_GET_INFRA_KEY},
    };
    for (const auto& [name, command] : commands) {
        QTest::addRow("%s, refused", name)
            << USB_NUBO_CMD_RESPONSE << command << static_cast<unsigned short>(0xFFFB)
            << u"Parameter setting failed"_s;
        QTest::addRow("%s, lost", name)
            << USB_CMD_ERROR << command << static_cast<unsigned short>(0xEF03) << UNKNOWN_ERROR;
    }
}

void InfrastructureTopTest::aFailedReadStopsThePollingAndIsShown() {
    QFETCH(QUuid, kind);
    QFETCH(QUuid, command);
    QFETCH(unsigned short, code);
    QStringList notes;
    m_bench->boxes.setAction([&](QWidget& box) {
        notes = m_notes;
        acceptBox(box);
    });
    page().slotReceiveCommand(plainResult(kind, command, code));
    QTEST(m_bench->boxes.texts().join(u'|'), "text");
    QCOMPARE(notes, QStringList{u"stop"_s});
    QCOMPARE(m_notes, notes);
    QVERIFY(g_bIsShowError);
}

void InfrastructureTopTest::onlyTheFirstFailureIsShown() {
    const VX_CMD failure =
        plainResult(USB_NUBO_CMD_RESPONSE, USB_REQ_NUBO_CMD_GET_WIFI_INFO, 0xFFFF);
    page().slotReceiveCommand(failure);
    page().slotReceiveCommand(failure);
    page().slotReceiveCommand(plainResult(USB_CMD_ERROR, USB_REQ_NUBO_CMD_GET_INFRA_SSID, 0xEF05));
    QCOMPARE(m_bench->boxes.boxes().size(), 1);
    QCOMPARE(m_notes, (QStringList{u"stop"_s, u"stop"_s, u"stop"_s}));
    // As the network page does when polling starts.
    g_bIsShowError = false;
    page().slotReceiveCommand(failure);
    QCOMPARE(m_bench->boxes.boxes().size(), 2);
}

void InfrastructureTopTest::otherResultsAreLeftAlone_data() {
    QTest::addColumn<VX_CMD>("message");
    QTest::newRow("success") << plainResult(USB_NUBO_CMD_RESPONSE, USB_REQ_NUBO_CMD_GET_WIFI_INFO,
                                            0);
    QTest::newRow("camera gone") << plainResult(USB_CMD_ERROR, USB_REQ_NUBO_CMD_GET_WIFI_INFO,
                                                0xEF00);
    QTest::newRow("a write refused")
        << plainResult(USB_NUBO_CMD_RESPONSE, USB_NUBO_CMD_SET_INFRA_SSID, 0xFFFF);
    QTest::newRow("a write lost") << plainResult(USB_CMD_ERROR, USB_NUBO_CMD_SET_INFRA_KEY, 0xEF03);
    QTest::newRow("another read refused")
        << plainResult(USB_NUBO_CMD_RESPONSE, USB_REQ_NUBO_CMD_GET_BATTERY, 0xFFFF);
    QTest::newRow("another answer") << batteryAnswer(50);
    QTest::newRow("a scan") << scanAnswer({});
    QTest::newRow("nothing") << VX_CMD();
}

void InfrastructureTopTest::otherResultsAreLeftAlone() {
    QFETCH(VX_CMD, message);
    page().slotReceiveCommand(message);
    QVERIFY(m_bench->boxes.boxes().isEmpty());
    QVERIFY(m_notes.isEmpty());
    QVERIFY(!g_bIsShowError);
}

void InfrastructureTopTest::aFailedReadEndsTheRefreshAndLeavesTheValues() {
    page().slotReceiveCommand(ssidAnswer(u"Harbour"_s));
    page().slotReceiveCommand(linkAnswer(2, u"Harbour"_s, {}));
    page().showInit(true);
    m_bench->takeSent();
    page().slotReceiveCommand(
        plainResult(USB_NUBO_CMD_RESPONSE, USB_REQ_NUBO_CMD_GET_INFRA_SSID, 0xFFFF));
    QVERIFY(m_bench->takeSent().isEmpty());
    QCOMPARE(shown(), (stShown{u"Harbour"_s, true, u"AES"_s, true}));
    page().showInit(true);
    QCOMPARE(m_bench->takeSent(), QStringList{GET_SSID});
}

const TestSubject registered = subjectWithWidgets<InfrastructureTopTest>();
#include "InfrastructureTopTest.moc"
