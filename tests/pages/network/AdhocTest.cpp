// SPDX-License-Identifier: MIT
#include "pages/network/ClWidgetAdhoc.h"
#include "tests/pages/PageBench.h"
#include "tests/support/TestSubject.h"
#include "ui/ClLabelSepalator.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString USE = u"Connect Adhoc on startup"_s;
const QString GET_SSID = u"USB_REQ_NUBO_CMD_GET_SSID"_s;
const QString GET_ADDRESS = u"USB_REQ_NUBO_CMD_GET_ADHOC_ADDRESS"_s;

}  // namespace

/// What is the ad-hoc tab's own: the box, and the network that is read once. AddressFormTest has
/// its addresses.
class AdhocTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_bench.emplace(); }
    void cleanup() { m_bench.reset(); }

    void theNetworkStandsAtItsPlace();
    void theNetworksValuesAreBoldPlainText();
    void longValuesStayInThePage();
    void theNetworkIsReadOnce();
    void aNetworkWithoutAnSsidIsReadAgain();
    void theBoxTellsWhatTheUserWants();
    void theBoxIsCheckedOnlyWhileWifiIsOn_data();
    void theBoxIsCheckedOnlyWhileWifiIsOn();

private:
    void readNetwork();
    [[nodiscard]] QAbstractButton& button(const QString& text) const {
        return m_bench->user.button(text);
    }

    std::optional<PageBench<ClWidgetAdhoc>> m_bench;
};

void AdhocTest::initTestCase() {
    // The program's own text size.
    QFont font;
    font.setPixelSize(13);
    QApplication::setFont(font);
}

void AdhocTest::readNetwork() {
    m_bench->answer(USB_RES_NUBO_CMD_GET_SSID, u"NuBo-0001"_s);
    m_bench->answer(USB_RES_NUBO_CMD_GET_ADHOCKEY, u"simulated"_s);
    m_bench->takeSent();
}

void AdhocTest::theNetworkStandsAtItsPlace() {
    readNetwork();
    const PageUser& user = m_bench->user;
    QCOMPARE(button(USE).pos(), QPoint(27, 27));
    const QList<std::pair<QString, int>> captions{{u"SSID of adhoc"_s, 65},
                                                  {u"Encryption key of adhoc"_s, 95}};
    for (const auto& [text, y] : captions) {
        const QLabel& label = user.label(text);
        QCOMPARE(label.pos(), QPoint(228 - label.sizeHint().width(), y));
    }
    QCOMPARE(user.label(u"NuBo-0001"_s).pos(), QPoint(276, 65));
    QCOMPARE(user.label(u"simulated"_s).pos(), QPoint(276, 95));
    QCOMPARE(m_bench->page.findChild<ClLabelSepalator*>()->pos(), QPoint(0, 142));
    QCOMPARE(user.label(u"Set the IP Adderss and Subnetmask when connect by adhoc"_s).pos(),
             QPoint(36, 178));
}

void AdhocTest::theNetworksValuesAreBoldPlainText() {
    m_bench->answer(USB_RES_NUBO_CMD_GET_SSID, u"<b>net</b>"_s);
    m_bench->answer(USB_RES_NUBO_CMD_GET_ADHOCKEY, u"a&b<i>"_s);
    for (const QString& text : {u"<b>net</b>"_s, u"a&b<i>"_s}) {
        const QLabel& label = m_bench->user.label(text);
        QCOMPARE(label.textFormat(), Qt::PlainText);
        QCOMPARE(label.font().weight(), QFont::Bold);
        QCOMPARE(label.size(), label.sizeHint());
        QCOMPARE(label.toolTip(), QString());
    }
}

void AdhocTest::longValuesStayInThePage() {
    const QString ssid(32, u'W');
    const QString key(64, u'W');
    m_bench->answer(USB_RES_NUBO_CMD_GET_SSID, ssid);
    m_bench->answer(USB_RES_NUBO_CMD_GET_ADHOCKEY, key);
    for (const QString& text : {ssid, key}) {
        const QLabel& label = m_bench->user.label(text);
        QVERIFY(label.sizeHint().width() > m_bench->page.width() - label.x());
        QVERIFY(m_bench->page.rect().contains(label.geometry()));
        QVERIFY(label.toolTip().contains(text));
    }
    m_bench->answer(USB_RES_NUBO_CMD_GET_ADHOCKEY, u"short"_s);
    QCOMPARE(m_bench->user.label(u"short"_s).toolTip(), QString());
}

void AdhocTest::theNetworkIsReadOnce() {
    readNetwork();
    m_bench->page.showInit(false);
    QCOMPARE(m_bench->takeSent(), QStringList{GET_ADDRESS});
    m_bench->page.showInit(true);
    QCOMPARE(m_bench->takeSent(), QStringList{GET_ADDRESS});
}

void AdhocTest::aNetworkWithoutAnSsidIsReadAgain() {
    m_bench->answer(USB_RES_NUBO_CMD_GET_SSID, QString());
    m_bench->takeSent();
    m_bench->page.showInit(false);
    QCOMPARE(m_bench->takeSent(), QStringList{GET_SSID});
}

void AdhocTest::theBoxTellsWhatTheUserWants() {
    QSignalSpy wanted(&m_bench->page, &ClWidgetAdhoc::sigUseAdhoc);
    QSignalSpy left(&m_bench->page, &ClWidgetAdhoc::sigEndSetting);
    m_bench->user.click(USE);
    QVERIFY(m_bench->user.isChecked(USE));
    m_bench->user.click(USE);
    QVERIFY(!m_bench->user.isChecked(USE));
    QCOMPARE(wanted, (QList<QVariantList>{{true}, {false}}));
    QCOMPARE(m_bench->takeSent(), QStringList());
    QVERIFY(left.isEmpty());
}

void AdhocTest::theBoxIsCheckedOnlyWhileWifiIsOn_data() {
    QTest::addColumn<bool>("isOn");
    QTest::addColumn<bool>("isUsed");
    QTest::addColumn<bool>("isChecked");
    QTest::newRow("on, used") << true << true << true;
    QTest::newRow("on, not used") << true << false << false;
    QTest::newRow("off, used") << false << true << false;
    QTest::newRow("off, not used") << false << false << false;
}

void AdhocTest::theBoxIsCheckedOnlyWhileWifiIsOn() {
    QFETCH(const bool, isOn);
    QFETCH(const bool, isUsed);
    QSignalSpy wanted(&m_bench->page, &ClWidgetAdhoc::sigUseAdhoc);
    for (const bool before : {false, true}) {
        qobject_cast<QAbstractButton*>(&button(USE))->setChecked(before);
        g_bIsWifiON = isOn;
        m_bench->page.setUseAdhoc(isUsed);
        QTEST(m_bench->user.isChecked(USE), "isChecked");
    }
    QVERIFY(wanted.isEmpty());
}

const TestSubject registered = subjectWithWidgets<AdhocTest>();
#include "AdhocTest.moc"
