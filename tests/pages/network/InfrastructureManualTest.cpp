// SPDX-License-Identifier: MIT
#include "pages/network/ClWidgetInfrastructureManual.h"
#include "tests/pages/PageBench.h"
#include "tests/support/TestSubject.h"

#include <QAccessible>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString LONGEST_SSID = u"!\"#$%&'()*+,-./0123456789:;<=>?@"_s;

}  // namespace

/// The sub-page on which an SSID is typed.
class InfrastructureManualTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setApplicationName(u"Test program"_s); }
    void init();
    void cleanup() { m_bench.reset(); }

    void everythingStandsAtItsPlace();
    void screenReadersNameEveryControl();
    void theTabKeyFollowsTheEye();
    void showingThePageAsksForNothing();
    void onlySsidsCanBeTyped_data();
    void onlySsidsCanBeTyped();
    void everyPrintableCharacterCanBeTyped();
    void returnIsDecision();
    void anEmptySsidDoesNothing();
    void theKeyIsAskedFor();
    void aDeclinedKeyWritesNothing();
    void anEmptyKeyIsNotWritten();
    void aKeyIsWrittenAfterTheSsid();
    void theLastWriteOfAllDecides();
    void backLeaves();
    void aFailureIsShownEachTime_data();
    void aFailureIsShownEachTime();
    void aFailedWriteKeepsThePage();
    void othersMessagesAreIgnored();

private:
    /// Has the key dialog accepted with @p key.
    void willTypeKey(const QString& key);
    [[nodiscard]] QLineEdit& ssid() const { return m_bench->user.edit(u"SSID"_s); }

    std::optional<PageBench<ClWidgetInfrastructureManual>> m_bench;
    QList<int> m_left;
};

void InfrastructureManualTest::init() {
    m_bench.emplace();
    m_left.clear();
    connect(&m_bench->page, &ClWidgetInfrastructureManual::sigChangePage, this,
            [this](int page) { m_left.append(page); });
}

void InfrastructureManualTest::willTypeKey(const QString& key) {
    m_bench->boxes.setAction([key](QWidget& box) {
        QTest::keyClicks(box.findChild<QLineEdit*>(), key);
        acceptBox(box);
    });
}

void InfrastructureManualTest::everythingStandsAtItsPlace() {
    const PageUser& user = m_bench->user;
    QCOMPARE(user.label(u"Input SSID to connect AP"_s).pos(), QPoint(36, 41));
    const QWidget* row = ssid().parentWidget();
    QCOMPARE(row->pos(), QPoint(463 - row->sizeHint().width(), 77));
    QCOMPARE(row->width(), row->sizeHint().width());
    QCOMPARE(ssid().width(), 200);
    QCOMPARE(ssid().geometry().right() + 1, row->width());
    QCOMPARE(ssid().x() - user.label(u"SSID"_s).geometry().right() - 1, 37);

    const QWidget* box = user.button(u"Back"_s).parentWidget();
    QCOMPARE(box->pos(), QPoint(585 - box->sizeHint().width(), 423));
    QCOMPARE(user.button(u"Back"_s).minimumSize(), QSize(133, 30));
    QCOMPARE(user.button(u"Decision"_s).minimumSize(), QSize(133, 30));
}

void InfrastructureManualTest::screenReadersNameEveryControl() {
    QCOMPARE(QAccessible::queryAccessibleInterface(&ssid())->text(QAccessible::Name), u"SSID"_s);
}

void InfrastructureManualTest::theTabKeyFollowsTheEye() {
    m_bench->page.activateWindow();
    ssid().setFocus();
    for (QWidget* widget : QList<QWidget*>{&ssid(), &m_bench->user.button(u"Decision"_s),
                                           &m_bench->user.button(u"Back"_s)}) {
        QCOMPARE(m_bench->page.focusWidget(), widget);
        QTest::keyClick(m_bench->page.focusWidget(), Qt::Key_Tab);
    }
}

void InfrastructureManualTest::showingThePageAsksForNothing() {
    m_bench->page.showInit(false);
    m_bench->page.showInit(true);
    QCOMPARE(m_bench->takeSent(), QStringList());
}

void InfrastructureManualTest::onlySsidsCanBeTyped_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::newRow("one character") << u"a"_s << u"a"_s;
    QTest::newRow("32 characters") << LONGEST_SSID << LONGEST_SSID;
    QTest::newRow("a 33rd character") << LONGEST_SSID + u'x' << LONGEST_SSID;
    QTest::newRow("a space") << u"my net"_s << u"mynet"_s;
    QTest::newRow("the first and the last") << u"!~"_s << u"!~"_s;
}

void InfrastructureManualTest::onlySsidsCanBeTyped() {
    QFETCH(const QString, typed);
    m_bench->user.type(u"SSID"_s, typed);
    QTEST(ssid().text(), "shown");
    QVERIFY(ssid().hasAcceptableInput());
    // A letter beyond ASCII.
    QTest::sendKeyEvent(QTest::Click, &ssid(), Qt::Key_Eacute, u"é"_s, Qt::NoModifier);
    QTEST(ssid().text(), "shown");
}

void InfrastructureManualTest::everyPrintableCharacterCanBeTyped() {
    QString printable;
    for (char16_t character = u'!'; character <= u'~'; ++character) {
        printable.append(character);
    }
    QCOMPARE(printable.size(), 94);
    for (qsizetype from = 0; from < printable.size(); from += 32) {
        const QString typed = printable.mid(from, 32);
        m_bench->user.type(u"SSID"_s, typed);
        m_bench->user.click(u"Decision"_s);
        QCOMPARE(m_bench->takeSent(),
                 QStringList{u"USB_NUBO_CMD_SET_INFRA_SSID QString "_s + typed});
    }
}

void InfrastructureManualTest::returnIsDecision() {
    m_bench->user.type(u"SSID"_s, u"Harbour"_s);
    QTest::keyClick(&ssid(), Qt::Key_Return);
    QCOMPARE(m_bench->takeSent(), QStringList{u"USB_NUBO_CMD_SET_INFRA_SSID QString Harbour"_s});
}

void InfrastructureManualTest::anEmptySsidDoesNothing() {
    m_bench->user.click(u"Decision"_s);
    QVERIFY(m_bench->boxes.boxes().isEmpty());
    QCOMPARE(m_bench->takeSent(), QStringList());
    QVERIFY(m_left.isEmpty());
}

void InfrastructureManualTest::theKeyIsAskedFor() {
    bool isNothingSent = false;
    m_bench->boxes.setAction([&](QWidget& box) {
        isNothingSent = m_bench->sent.isEmpty();
        rejectBox(box);
    });
    m_bench->user.type(u"SSID"_s, u"Harbour"_s);
    m_bench->user.click(u"Decision"_s);
    QCOMPARE(m_bench->boxes.texts(), QStringList{u"Input the encryption key of AP"_s});
    QCOMPARE(m_bench->boxes.boxes().first().parent, &m_bench->page);
    QVERIFY(isNothingSent);
}

void InfrastructureManualTest::aDeclinedKeyWritesNothing() {
    m_bench->user.type(u"SSID"_s, u"Harbour"_s);
    const auto close = [](QWidget& box) { box.close(); };
    for (const BoxUser::Action& decline :
         {BoxUser::Action(rejectBox), BoxUser::Action(escapeBox), BoxUser::Action(close)}) {
        m_bench->boxes.setAction(decline);
        m_bench->user.click(u"Decision"_s);
    }
    QCOMPARE(m_bench->boxes.boxes().size(), 3);
    QCOMPARE(m_bench->takeSent(), QStringList());
    QCOMPARE(ssid().text(), u"Harbour"_s);
}

void InfrastructureManualTest::anEmptyKeyIsNotWritten() {
    m_bench->user.type(u"SSID"_s, LONGEST_SSID);
    m_bench->user.click(u"Decision"_s);
    QCOMPARE(m_bench->takeSent(),
             QStringList{u"USB_NUBO_CMD_SET_INFRA_SSID QString "_s + LONGEST_SSID});
    m_bench->succeed(USB_NUBO_CMD_SET_INFRA_KEY);
    QVERIFY(m_left.isEmpty());
    m_bench->succeed(USB_NUBO_CMD_SET_INFRA_SSID);
    QCOMPARE(m_left, QList<int>{0});
    QCOMPARE(m_bench->boxes.boxes().size(), 1);
}

void InfrastructureManualTest::aKeyIsWrittenAfterTheSsid() {
    const QString key(63, u'k');
    willTypeKey(key);
    m_bench->user.type(u"SSID"_s, u"Harbour"_s);
    m_bench->user.click(u"Decision"_s);
    QCOMPARE(m_bench->takeSent(), (QStringList{u"USB_NUBO_CMD_SET_INFRA_SSID QString Harbour"_s,
                                               u"USB_NUBO_CMD_SET_INFRA_KEY QString "_s + key}));
    m_bench->succeed(USB_NUBO_CMD_SET_INFRA_SSID);
    QVERIFY(m_left.isEmpty());
    m_bench->succeed(USB_NUBO_CMD_SET_INFRA_KEY);
    QCOMPARE(m_left, QList<int>{0});
}

void InfrastructureManualTest::theLastWriteOfAllDecides() {
    m_bench->user.type(u"SSID"_s, u"Harbour"_s);
    willTypeKey(u"k"_s);
    m_bench->user.click(u"Decision"_s);
    willTypeKey({});
    m_bench->user.click(u"Decision"_s);
    m_bench->succeed(USB_NUBO_CMD_SET_INFRA_KEY);
    QVERIFY(m_left.isEmpty());
    m_bench->succeed(USB_NUBO_CMD_SET_INFRA_SSID);
    QCOMPARE(m_left, QList<int>{0});
}

void InfrastructureManualTest::backLeaves() {
    m_bench->user.type(u"SSID"_s, u"Harbour"_s);
    m_bench->user.click(u"Back"_s);
    QCOMPARE(m_left, QList<int>{0});
    QCOMPARE(m_bench->takeSent(), QStringList());
    QVERIFY(m_bench->boxes.boxes().isEmpty());
}

void InfrastructureManualTest::aFailureIsShownEachTime_data() {
    QTest::addColumn<QUuid>("command");
    QTest::newRow("SSID") << USB_NUBO_CMD_SET_INFRA_SSID;
    QTest::newRow("key") << USB_NUBO_CMD_SET_INFRA_KEY;
}

void InfrastructureManualTest::aFailureIsShownEachTime() {
    QFETCH(const QUuid, command);
    m_bench->failInManyWays(command);
    QCOMPARE(m_bench->boxes.texts(), FAILURE_TEXTS);
    QVERIFY(!g_bIsShowError);
    QVERIFY(m_left.isEmpty());
}

void InfrastructureManualTest::aFailedWriteKeepsThePage() {
    m_bench->user.type(u"SSID"_s, u"Harbour"_s);
    m_bench->user.click(u"Decision"_s);
    m_bench->takeSent();
    m_bench->respond(USB_NUBO_CMD_SET_INFRA_SSID, 0xFFFF);
    QVERIFY(m_left.isEmpty());
    QCOMPARE(ssid().text(), u"Harbour"_s);
    QCOMPARE(m_bench->takeSent(), QStringList());
}

void InfrastructureManualTest::othersMessagesAreIgnored() {
    for (const QUuid& command :
         {USB_REQ_NUBO_CMD_GET_INFRA_SSID, USB_NUBO_CMD_SET_INFRA_ADDRESS, QUuid()}) {
        m_bench->endInEveryWay(command);
    }
    m_bench->page.slotReceiveCommand({});
    QVERIFY(m_bench->boxes.boxes().isEmpty());
    QVERIFY(m_left.isEmpty());
    QCOMPARE(m_bench->takeSent(), QStringList());
}

const TestSubject registered = subjectWithWidgets<InfrastructureManualTest>();
#include "InfrastructureManualTest.moc"
