// SPDX-License-Identifier: MIT
#include "pages/common/ClReadChain.h"
#include "tests/pages/PageBench.h"
#include "tests/support/TestSubject.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString GET_SSID = u"USB_REQ_NUBO_CMD_GET_INFRA_SSID"_s;
const QString GET_LINK = u"USB_REQ_NUBO_CMD_GET_WIFI_INFO"_s;
const QString GET_TIME = u"USB_REQ_NUBO_CMD_GET_TIME"_s;

}  // namespace

/// What a chain of reads asks for and shows, whatever page it belongs to.
class ReadChainTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void eachAnswerIsShownAndSendsTheNextRequest();
    void itMayStartInTheMiddle();
    void itIsUnderWayUntilTheLastAnswer();
    void aResultOfTheRequestUnderWayEndsIt_data();
    void aResultOfTheRequestUnderWayEndsIt();
    void aResultOfAnotherRequestDoesNotEndIt();
    void anAnswerThatNobodyWaitsForCounts();
    void anAnswerThatNobodyWaitsForIsLeftAloneByRule();
    void startedAgainItAsksForEverythingAgain();
    void startedAgainItAsksOnceByRule();
    void theLastAnswerMayStartItAgain();

private:
    /// A chain of three reads.
    ClReadChain& createChain(stReadRules rules = {});
    bool take(const QUuid& answer) {
        return m_chain->take(valueAnswer(answer, QVariant(u"value"_s)));
    }

    std::optional<PageBench<ClWidgetBase>> m_bench;
    std::optional<ClReadChain> m_chain;
    QList<QUuid> m_shown;
    bool m_startsAgain = false;
};

void ReadChainTest::cleanup() {
    m_chain.reset();
    m_bench.reset();
    m_shown.clear();
    m_startsAgain = false;
}

ClReadChain& ReadChainTest::createChain(stReadRules rules) {
    m_bench.emplace();
    m_chain.emplace(&m_bench->page, rules);
    const auto show = [this](const VX_CMD& answer) {
        m_shown.append(getCommand(answer));
        if (m_startsAgain && m_shown.size() == 3) {
            m_chain->start();
        }
    };
    m_chain->add({{USB_REQ_NUBO_CMD_GET_INFRA_SSID, USB_RES_NUBO_CMD_GET_INFRA_SSID, {}}, show});
    m_chain->add({{USB_REQ_NUBO_CMD_GET_WIFI_INFO, USB_RES_NUBO_CMD_GET_WIFI_INFO, {}}, show});
    m_chain->add({{USB_REQ_NUBO_CMD_GET_TIME, USB_RES_NUBO_CMD_GET_TIME, {}}, show});
    return *m_chain;
}

void ReadChainTest::eachAnswerIsShownAndSendsTheNextRequest() {
    createChain().start();
    QCOMPARE(m_bench->takeSent(), QStringList{GET_SSID});
    QVERIFY(take(USB_RES_NUBO_CMD_GET_INFRA_SSID));
    QCOMPARE(m_bench->takeSent(), QStringList{GET_LINK});
    QVERIFY(take(USB_RES_NUBO_CMD_GET_WIFI_INFO));
    QCOMPARE(m_bench->takeSent(), QStringList{GET_TIME});
    QVERIFY(take(USB_RES_NUBO_CMD_GET_TIME));
    QCOMPARE(m_bench->takeSent(), QStringList());
    QCOMPARE(m_shown, (QList<QUuid>{USB_RES_NUBO_CMD_GET_INFRA_SSID, USB_RES_NUBO_CMD_GET_WIFI_INFO,
                                    USB_RES_NUBO_CMD_GET_TIME}));
}

void ReadChainTest::itMayStartInTheMiddle() {
    createChain().startAt(USB_REQ_NUBO_CMD_GET_WIFI_INFO);
    QVERIFY(take(USB_RES_NUBO_CMD_GET_WIFI_INFO));
    QCOMPARE(m_bench->takeSent(), (QStringList{GET_LINK, GET_TIME}));
}

void ReadChainTest::itIsUnderWayUntilTheLastAnswer() {
    ClReadChain& chain = createChain();
    QVERIFY(!chain.isUnderWay());
    chain.start();
    QVERIFY(chain.isUnderWay());
    take(USB_RES_NUBO_CMD_GET_INFRA_SSID);
    take(USB_RES_NUBO_CMD_GET_WIFI_INFO);
    QVERIFY(chain.isUnderWay());
    take(USB_RES_NUBO_CMD_GET_TIME);
    QVERIFY(!chain.isUnderWay());
}

void ReadChainTest::aResultOfTheRequestUnderWayEndsIt_data() {
    QTest::addColumn<QUuid>("kind");
    QTest::addColumn<unsigned short>("code");
    const auto row = [](const char* name, const QUuid& kind, unsigned short code) {
        QTest::newRow(name) << kind << code;
    };
    row("refused", USB_NUBO_CMD_RESPONSE, 0xFFF5);
    row("done, with no value", USB_NUBO_CMD_RESPONSE, 0);
    row("lost", USB_CMD_ERROR, 0xEF01);
    row("the camera has gone", USB_CMD_ERROR, 0xEF00);
}

void ReadChainTest::aResultOfTheRequestUnderWayEndsIt() {
    QFETCH(QUuid, kind);
    QFETCH(unsigned short, code);
    createChain().start();
    QVERIFY(!m_chain->take(plainResult(kind, USB_REQ_NUBO_CMD_GET_INFRA_SSID, code)));
    QVERIFY(!m_chain->isUnderWay());
    QCOMPARE(m_bench->takeSent(), QStringList{GET_SSID});
}

void ReadChainTest::aResultOfAnotherRequestDoesNotEndIt() {
    createChain().start();
    m_chain->take(plainResult(USB_CMD_ERROR, USB_REQ_NUBO_CMD_GET_WIFI_INFO, 0xEF01));
    QVERIFY(m_chain->isUnderWay());
}

void ReadChainTest::anAnswerThatNobodyWaitsForCounts() {
    createChain();
    QVERIFY(take(USB_RES_NUBO_CMD_GET_WIFI_INFO));
    QCOMPARE(m_shown, QList<QUuid>{USB_RES_NUBO_CMD_GET_WIFI_INFO});
    QCOMPARE(m_bench->takeSent(), QStringList{GET_TIME});
    QVERIFY(!take(USB_RES_NUBO_CMD_GET_BATTERY));
}

void ReadChainTest::anAnswerThatNobodyWaitsForIsLeftAloneByRule() {
    createChain({.takesOnlyAwaited = true}).start();
    QVERIFY(!take(USB_RES_NUBO_CMD_GET_WIFI_INFO));
    QVERIFY(take(USB_RES_NUBO_CMD_GET_INFRA_SSID));
    m_chain->abandon();
    QVERIFY(!take(USB_RES_NUBO_CMD_GET_WIFI_INFO));
    QCOMPARE(m_shown, QList<QUuid>{USB_RES_NUBO_CMD_GET_INFRA_SSID});
}

void ReadChainTest::startedAgainItAsksForEverythingAgain() {
    createChain().start();
    m_chain->start();
    take(USB_RES_NUBO_CMD_GET_INFRA_SSID);
    take(USB_RES_NUBO_CMD_GET_INFRA_SSID);
    QCOMPARE(m_bench->takeSent(), (QStringList{GET_SSID, GET_SSID, GET_LINK, GET_LINK}));
}

void ReadChainTest::startedAgainItAsksOnceByRule() {
    createChain({.asksOnce = true}).start();
    m_chain->start();
    take(USB_RES_NUBO_CMD_GET_INFRA_SSID);
    take(USB_RES_NUBO_CMD_GET_INFRA_SSID);
    QCOMPARE(m_bench->takeSent(), (QStringList{GET_SSID, GET_SSID, GET_LINK}));
    QCOMPARE(m_shown.size(), 2);
    QVERIFY(m_chain->isUnderWay());
}

void ReadChainTest::theLastAnswerMayStartItAgain() {
    m_startsAgain = true;
    createChain().startAt(USB_REQ_NUBO_CMD_GET_INFRA_SSID);
    take(USB_RES_NUBO_CMD_GET_INFRA_SSID);
    take(USB_RES_NUBO_CMD_GET_WIFI_INFO);
    m_bench->takeSent();
    take(USB_RES_NUBO_CMD_GET_TIME);
    QCOMPARE(m_bench->takeSent(), QStringList{GET_SSID});
    QVERIFY(m_chain->isUnderWay());
}

const TestSubject registered = subjectWithWidgets<ReadChainTest>();
#include "ReadChainTest.moc"
