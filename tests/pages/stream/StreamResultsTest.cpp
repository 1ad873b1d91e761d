// SPDX-License-Identifier: MIT
#include "pages/stream/ClWidgetStreamSetting.h"
#include "tests/pages/CameraMessages.h"
#include "tests/pages/Refusals.h"
#include "tests/pages/stream/StreamMessages.h"
#include "tests/support/BoxUser.h"
#include "tests/support/TestSubject.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

struct stCommand {
    const char* name;
    QUuid command;
};

/// What the page asks the camera for or sets in it.
const QList<stCommand> OWN_COMMANDS{
    {"get recording size", REC.getSize}, {"set recording size", REC.setSize},
    {"get recording rate", REC.getRate}, {"set recording rate", REC.setRate},
    {"get live size", LIVE.getSize},     {"set live size", LIVE.setSize},
    {"get live rate", LIVE.getRate},     {"set live rate", LIVE.setRate},
};

}  // namespace

/// What the stream setting page makes of plain results, of its own commands and of others.
class StreamResultsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup() { m_user.reset(); }

    void aResultIsShown_data();
    void aResultIsShown();
    void aFailedReadEndsTheChain_data();
    void aFailedReadEndsTheChain();

private:
    std::unique_ptr<ClWidgetStreamSetting> m_page;
    std::unique_ptr<QSignalSpy> m_sent;
    std::unique_ptr<BoxUser> m_user;
};

void StreamResultsTest::initTestCase() {
    QCoreApplication::setApplicationName(u"Test program"_s);
    m_page = std::make_unique<ClWidgetStreamSetting>(nullptr);
    m_sent = std::make_unique<QSignalSpy>(m_page.get(), &ClWidgetBase::sigSendCommand);
    m_page->resize(600, 505);
    m_page->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_page.get()));
}

void StreamResultsTest::cleanupTestCase() {
    m_sent.reset();
    m_page.reset();
}

void StreamResultsTest::init() {
    m_user = std::make_unique<BoxUser>();
    m_page->showInit(false);
    m_sent->clear();
}

void StreamResultsTest::aResultIsShown_data() {
    QTest::addColumn<QUuid>("kind");
    QTest::addColumn<QUuid>("command");
    QTest::addColumn<unsigned short>("code");
    QTest::addColumn<QStringList>("texts");
    const auto rows = [](const QUuid& kind, unsigned short code, const QStringList& texts) {
        for (const auto& [name, command] : OWN_COMMANDS) {
            const bool isSpecial =
                kind == USB_NUBO_CMD_RESPONSE && code == 0xFFFA && command == REC.setSize;
            QTest::addRow("%s, 0x%04X%s", name, code, kind == USB_CMD_ERROR ? ", link" : "")
                << kind << command << code
                << (isSpecial ? QStringList{u"Set failed for recording"_s} : texts);
        }
        QTest::addRow("another page's, 0x%04X%s", code, kind == USB_CMD_ERROR ? ", link" : "")
            << kind << USB_NUBO_CMD_POWEROFF << code << QStringList();
        QTest::addRow("none, 0x%04X%s", code, kind == USB_CMD_ERROR ? ", link" : "")
            << kind << QUuid() << code << QStringList();
    };
    rows(USB_NUBO_CMD_RESPONSE, 0, {});
    for (const auto& [code, text] : REFUSALS) {
        rows(USB_NUBO_CMD_RESPONSE, code, {text});
    }
    rows(USB_CMD_ERROR, 0xEF00, {});
    for (unsigned short code = 0xEF01; code <= 0xEF05; ++code) {
        rows(USB_CMD_ERROR, code, {UNKNOWN_ERROR});
    }
    rows(USB_CMD_ERROR, 0xFFFA, {TIMEOUT_ERROR});
}

void StreamResultsTest::aResultIsShown() {
    QFETCH(QUuid, kind);
    QFETCH(QUuid, command);
    QFETCH(unsigned short, code);
    m_page->slotReceiveCommand(plainResult(kind, command, code));
    QTEST(m_user->texts(), "texts");
    for (const stModalBox& box : m_user->boxes()) {
        QCOMPARE(box.title, u"Test program"_s);
        QCOMPARE(box.buttons, QStringList{u"OK"_s});
        QCOMPARE(box.parent, m_page.get());
    }
    QVERIFY(m_sent->isEmpty());
}

void StreamResultsTest::aFailedReadEndsTheChain_data() {
    QTest::addColumn<const stStreamUse*>("use");
    QTest::addColumn<bool>("isSecond");
    QTest::addColumn<QUuid>("kind");
    QTest::addColumn<unsigned short>("code");
    QTest::addColumn<QStringList>("texts");
    for (const stStreamUse* use : {&REC, &LIVE}) {
        for (const bool isSecond : {false, true}) {
            addFailedReads([&](const QUuid& kind, unsigned short code, const QStringList& texts) {
                QTest::addRow("%s, %s, 0x%04X", use->name, isSecond ? "rate" : "size", code)
                    << use << isSecond << kind << code << texts;
            });
        }
    }
}

void StreamResultsTest::aFailedReadEndsTheChain() {
    QFETCH(const stStreamUse*, use);
    QFETCH(bool, isSecond);
    QFETCH(QUuid, kind);
    QFETCH(unsigned short, code);
    auto* const button = m_page->findChildren<QPushButton*>().at(use == &REC ? 0 : 1);
    QTest::mouseClick(button, Qt::LeftButton);
    if (isSecond) {
        m_page->slotReceiveCommand(valueAnswer(use->sizeAnswer, QSize(640, 480)));
    }
    const qsizetype asked = m_sent->size();
    m_page->slotReceiveCommand(plainResult(kind, isSecond ? use->getRate : use->getSize, code));
    QTEST(m_user->texts(), "texts");
    // What comes too late opens nothing any more.
    m_page->slotReceiveCommand(isSecond ? valueAnswer(use->rateAnswer, 30U)
                                        : valueAnswer(use->sizeAnswer, QSize()));
    QTEST(m_user->texts(), "texts");
    QCOMPARE(m_sent->size(), asked);
    // The next click starts from the beginning.
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(m_sent->size(), asked + 1);
    QCOMPARE(m_sent->last().first().toMap().value(u"CMD"_s).toUuid(), use->getSize);
}

const TestSubject registered = subjectWithWidgets<StreamResultsTest>();
#include "StreamResultsTest.moc"
