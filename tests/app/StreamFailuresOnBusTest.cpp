// SPDX-License-Identifier: MIT
#include "pages/stream/ClWidgetStreamSetting.h"
#include "tests/app/SettledBench.h"
#include "tests/support/CommonErrors.h"
#include "tests/support/DialogControls.h"

#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;
using namespace nubo::simulator;

namespace {

/// What a click leads to when both values are changed in the dialog.
struct stConversation {
    const char* name;
    int button;
    QString dialog;
    QStringList choices;
    QList<int> codes;
};

const QList<stConversation> CONVERSATIONS{
    {"recording",
     0,
     u"Set the image quality at the time of Rec"_s,
     {u"Economy(640x480)"_s},
     {0x5012, 0x5013, 0x5812}},
    {"live view",
     1,
     u"Set the image quality at the time of LiveView"_s,
     {u"Standard(320x240)"_s, u"1 sheets(1fps)"_s},
     {0x5014, 0x5015, 0x5814, 0x5815}},
};
constexpr int READS = 2;  // then come the writes, sent at once
constexpr int SET_RECORDING_SIZE = 0x5812;

}  // namespace

/// What the user sees of the stream setting page when the camera or the link fails, at every step
/// of both conversations.
class StreamFailuresOnBusTest : public QObject {
    Q_OBJECT

public:
    explicit StreamFailuresOnBusTest(VirtualUsbBus& bus) : m_bus(bus) {}

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_bench.reset(); }

    void aFailureIsShownOnceAndTheToolGoesOn_data();
    void aFailureIsShownOnceAndTheToolGoesOn();
    void aRequestWithoutAnswerIsReported();

private:
    void click(int button) const {
        const auto* page = m_bench->window.findChild<ClWidgetStreamSetting*>();
        QTest::mouseClick(page->findChildren<QPushButton*>().at(button), Qt::LeftButton);
    }
    [[nodiscard]] QList<int> codes() const;

    VirtualUsbBus& m_bus;
    std::optional<SettledBench> m_bench;
};

void StreamFailuresOnBusTest::initTestCase() {
    m_bench.emplace(m_bus);
    QVERIFY(m_bench->start());
}

QList<int> StreamFailuresOnBusTest::codes() const {
    QList<int> codes;
    for (const stReceivedCommand& command : m_bench->finishRow()) {
        codes.append(command.code);
    }
    return codes;
}

void StreamFailuresOnBusTest::aFailureIsShownOnceAndTheToolGoesOn_data() {
    QTest::addColumn<int>("conversation");
    QTest::addColumn<int>("step");
    QTest::addColumn<Fault>("fault");
    QTest::addColumn<QString>("text");
    for (int index = 0; index < CONVERSATIONS.size(); ++index) {
        const stConversation& conversation = CONVERSATIONS[index];
        for (int step = 0; step < conversation.codes.size(); ++step) {
            for (const stCommonError& error : COMMON_ERRORS) {
                const bool isSpecial = error.fault.argument == 0xFFFA &&
                                       conversation.codes[step] == SET_RECORDING_SIZE;
                QTest::addRow("%s, %04X, %s", conversation.name, conversation.codes[step],
                              error.name)
                    << index << step << atStep(error, step)
                    << (isSpecial ? u"Set failed for recording"_s : error.text);
            }
        }
    }
}

void StreamFailuresOnBusTest::aFailureIsShownOnceAndTheToolGoesOn() {
    QFETCH(const int, conversation);
    QFETCH(const int, step);
    QFETCH(const Fault, fault);
    QFETCH(const QString, text);
    const stConversation& expected = CONVERSATIONS[conversation];
    QVERIFY(m_bench->startRow(STREAM_MODE));
    CameraState state = m_bench->camera->state();
    state.settings = CameraSettings();
    m_bench->camera->setState(state);
    m_bench->user.setAction([&expected](QWidget& box) {
        if (box.findChild<QRadioButton*>() != nullptr) {
            for (const QString& choice : expected.choices) {
                DialogControls(box).click(choice);
            }
        }
        acceptBox(box);
    });
    m_bus.addFault(m_bench->id, fault);
    click(expected.button);

    const bool isRead = step < READS;
    const QStringList texts = isRead ? QStringList{text} : QStringList{expected.dialog, text};
    TRY_COMPARE(m_bench->texts(), texts);
    QCOMPARE(codes(), isRead ? expected.codes.first(step + 1) : expected.codes);
    QCOMPARE(m_bench->texts(), texts);
}

void StreamFailuresOnBusTest::aRequestWithoutAnswerIsReported() {
    QVERIFY(m_bench->startRow(STREAM_MODE));
    m_bus.addFault(m_bench->id, {.kind = FaultKind::Timeout, .unit = FaultUnit::Command, .nth = 2});
    click(0);
    const QStringList texts{u"Exec failed, unknown error"_s};
    TRY_COMPARE(m_bench->texts(), texts);
    QCOMPARE(codes(), QList<int>{0x5012});
    QCOMPARE(m_bench->texts(), texts);
}

const TestSubject registered = subjectOnBus<StreamFailuresOnBusTest>();

#include "StreamFailuresOnBusTest.moc"
