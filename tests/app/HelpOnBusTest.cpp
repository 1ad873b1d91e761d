// SPDX-License-Identifier: MIT
#include "tests/app/SettledBench.h"
#include "tests/support/CommonErrors.h"

#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;
using namespace nubo::simulator;

/// The help page in the program's window, with the USB side, libusb and a simulated camera behind
/// it.
class HelpOnBusTest : public QObject {
    Q_OBJECT

public:
    explicit HelpOnBusTest(VirtualUsbBus& bus) : m_bus(bus) {}

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_bench.reset(); }
    void init();

    void whatTheCameraTellsIsShown();
    void requestsHaveNoArguments();
    void theIdentityIsShown_data();
    void theIdentityIsShown();
    void aClickOnTheModeReadsAgain();
    void aFailureEndsTheChain_data();
    void aFailureEndsTheChain();
    void aRequestWithoutAnswerIsReported();
    void theNextCameraFindsNothingOfTheLast();

private:
    [[nodiscard]] QStringList values() const { return m_bench->help().values(); }

    VirtualUsbBus& m_bus;
    std::optional<SettledBench> m_bench;
};

void HelpOnBusTest::initTestCase() {
    m_bench.emplace(m_bus);
    QVERIFY(m_bench->start());
}

void HelpOnBusTest::init() {
    CameraState state = m_bench->camera->state();
    state.identity = CameraIdentity();
    m_bench->camera->setState(state);
    QVERIFY(m_bench->startRow(STREAM_MODE));
}

void HelpOnBusTest::whatTheCameraTellsIsShown() {
    QVERIFY(m_bench->visitHelp());
    QCOMPARE(values(), (QStringList{u"1.00"_s, u"SIM0001"_s, u"02:00:5E:10:00:01"_s,
                                    u"2014/03/09"_s, u"Japan"_s}));
    QCOMPARE(m_bench->help().labelAt({236, 100})->text(), u"01.00.020"_s);
    QVERIFY(m_bench->texts().isEmpty());
}

void HelpOnBusTest::requestsHaveNoArguments() {
    QVERIFY(m_bench->visitHelp());
    QCOMPARE(m_bench->camera->commands(), plainCommands(HELP_CHAIN));
}

void HelpOnBusTest::theIdentityIsShown_data() {
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("told");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* name, const QString& item, const QString& told, int number,
                        const QString& shown) {
        QTest::newRow(name) << item << told << number << shown;
    };
    row("5 March 2014", u"create-day"_s, u"2014/03/05 00:00:00"_s, 3, u"2014/03/05"_s);
    row("no day", u"create-day"_s, u""_s, 3, u"--"_s);
    row("impossible day", u"create-day"_s, u"2014/02/30 00:00:00"_s, 3, u"--"_s);
    row("day in another form", u"create-day"_s, u"5 March"_s, 3, u"--"_s);
    row("Europe", u"country"_s, u"EU"_s, 4, u"Europe"_s);
    row("small letters", u"country"_s, u"us"_s, 4, u"United States"_s);
    row("unknown country", u"country"_s, u"de"_s, 4, u"DE"_s);
    row("no country", u"country"_s, u""_s, 4, u"--"_s);
    row("markup", u"serial-number"_s, u"<b>7</b>"_s, 1, u"<b>7</b>"_s);
    row("no serial number", u"serial-number"_s, u""_s, 1, u"--"_s);
    row("version of four parts", u"firmware-version"_s, u"v1.2.3-4"_s, 0, u"v1.2.3-4"_s);
}

void HelpOnBusTest::theIdentityIsShown() {
    QFETCH(const QString, item);
    QFETCH(const QString, told);
    QFETCH(const int, row);
    QFETCH(const QString, shown);
    QVERIFY(m_bench->camera->set(item.toStdString(), told.toStdString()));
    m_bench->clickMode(HELP_MODE);
    QStringList expected{u"1.00"_s, u"SIM0001"_s, u"02:00:5E:10:00:01"_s, u"2014/03/09"_s,
                         u"Japan"_s};
    expected[row] = shown;
    TRY_COMPARE(values(), expected);
    TRY_COMPARE(m_bench->camera->codes(), HELP_CHAIN);
    QVERIFY(m_bench->texts().isEmpty());
}

void HelpOnBusTest::aClickOnTheModeReadsAgain() {
    QVERIFY(m_bench->visitHelp());
    QVERIFY(m_bench->camera->set("serial-number", "SIM0002"));
    m_bench->clickMode(HELP_MODE);
    QCOMPARE(values(), QStringList(5, u"--"_s));
    TRY_COMPARE(values().at(1), u"SIM0002"_s);
    TRY_COMPARE(m_bench->camera->codes(), HELP_CHAIN + HELP_CHAIN);
    TRY_COMPARE(values().last(), u"Japan"_s);
}

void HelpOnBusTest::aFailureEndsTheChain_data() {
    QTest::addColumn<int>("step");
    QTest::addColumn<Fault>("fault");
    QTest::addColumn<QString>("text");
    for (int step = 0; step < HELP_CHAIN.size(); ++step) {
        for (const stCommonError& error : COMMON_ERRORS) {
            QTest::addRow("%04X, %s", HELP_CHAIN[step], error.name)
                << step << atStep(error, step) << error.text;
        }
    }
}

void HelpOnBusTest::aFailureEndsTheChain() {
    QFETCH(const int, step);
    QFETCH(const Fault, fault);
    QFETCH(const QString, text);
    m_bus.addFault(m_bench->id, fault);
    m_bench->clickMode(HELP_MODE);
    TRY_COMPARE(m_bench->texts(), QStringList{text});
    const QStringList whole{u"1.00"_s, u"SIM0001"_s, u"02:00:5E:10:00:01"_s, u"2014/03/09"_s,
                            u"Japan"_s};
    QCOMPARE(values(), whole.first(step) + QStringList(5 - step, u"--"_s));
    QCOMPARE(m_bench->camera->codes(), HELP_CHAIN.first(step + 1));
    QCOMPARE(m_bench->modeOnShow(), HELP_MODE);

    QVERIFY(m_bench->visitHelp());
    QCOMPARE(values(), whole);
    QCOMPARE(m_bench->camera->codes(), HELP_CHAIN.first(step + 1) + HELP_CHAIN);
    QCOMPARE(m_bench->texts(), QStringList{text});
}

void HelpOnBusTest::aRequestWithoutAnswerIsReported() {
    m_bus.addFault(m_bench->id, {.kind = FaultKind::Timeout, .unit = FaultUnit::Command, .nth = 2});
    m_bench->clickMode(HELP_MODE);
    TRY_COMPARE(m_bench->texts(), QStringList{u"Exec failed, unknown error"_s});
    QCOMPARE(values(), (QStringList{u"1.00"_s, u"--"_s, u"--"_s, u"--"_s, u"--"_s}));
    QVERIFY(m_bench->visitHelp());
    QCOMPARE(m_bench->texts().size(), 1);
}

void HelpOnBusTest::theNextCameraFindsNothingOfTheLast() {
    m_bus.addFault(m_bench->id,
                   {.kind = FaultKind::UnplugBefore, .unit = FaultUnit::Command, .nth = 3});
    m_bench->clickMode(HELP_MODE);
    QVERIFY(m_bench->waitForMode(0));
    QVERIFY(m_bench->texts().isEmpty());

    CameraState state = m_bench->camera->state();
    state.identity.serialNumber = "SIM0003";
    m_bench->camera->setState(state);
    m_bus.addFault(m_bench->id,
                   {.kind = FaultKind::Delay, .argument = 900, .unit = FaultUnit::Command});
    QVERIFY(m_bench->replug());
    QVERIFY(m_bench->waitForMode(HELP_MODE));
    QCOMPARE(values(), QStringList(5, u"--"_s));
    TRY_COMPARE(values(), (QStringList{u"1.00"_s, u"SIM0003"_s, u"02:00:5E:10:00:01"_s,
                                       u"2014/03/09"_s, u"Japan"_s}));
}

const TestSubject registered = subjectOnBus<HelpOnBusTest>();

#include "HelpOnBusTest.moc"
