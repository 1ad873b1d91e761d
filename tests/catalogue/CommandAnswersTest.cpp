// SPDX-License-Identifier: MIT
#include "protocol/NuboCommands.h"
#include "tests/catalogue/CataloguePackets.h"
#include "tests/support/SummerTime.h"
#include "tests/support/TestSubject.h"
#include "tests/support/WireText.h"

#include <QTest>

namespace {

/// A @p Command that has taken in @p packet.
template <class Command>
Command answered(const QByteArray& packet) {
    Command command;
    command.setData(wireBytes(packet, command.id()));
    return command;
}

/// The answer with the text @p text, whose length is counted here.
QByteArray answerOf(const QByteArray& text) {
    const QByteArray size = QByteArray::number(text.size(), 16).rightJustified(2, '0');
    return textAnswer("20000000", size + "000000" + text.toHex());
}

}  // namespace

/// The getters of the command classes, on answers of every kind and on nonsense.
class CommandAnswersTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void pictureSizesAreNumbered_data();
    void pictureSizesAreNumbered();
    void otherSizesAreSentAsZero_data();
    void otherSizesAreSentAsZero();
    void clocksAreReadFromTwoNumbers_data();
    void clocksAreReadFromTwoNumbers();
    void clocksAreSentAsTwoNumbers_data();
    void clocksAreSentAsTwoNumbers();
    void creationDaysAreReadFromText_data();
    void creationDaysAreReadFromText();
    void anInvalidTimeStandsForNow();
    void aTimeThatSummerTimeSkipsHereIsReadAndSentAsItIs();
    void countriesAreTwoLetters_data();
    void countriesAreTwoLetters();
    void countriesAreSentLetterByLetter_data();
    void countriesAreSentLetterByLetter();
    void cardSizesAreOf64Bits_data();
    void cardSizesAreOf64Bits();
    void passwordsAreTexts_data();
    void passwordsAreTexts();
    void gpsInformationIsATextAndANumber();
    void shortAnswersReadAsZero();
};

void CommandAnswersTest::pictureSizesAreNumbered_data() {
    QTest::addColumn<QByteArray>("number");
    QTest::addColumn<QSize>("recording");
    QTest::addColumn<QSize>("live");
    const auto row = [](const char* name, const char* number, const QSize& recording,
                        const QSize& live) {
        QTest::newRow(name) << QByteArray(number) << recording << live;
    };
    row("0", "00000000", QSize(-1, -1), QSize(-1, -1));
    row("1", "01000000", QSize(1920, 1080), QSize(800, 480));
    row("2", "02000000", QSize(1280, 720), QSize(320, 240));
    row("3", "03000000", QSize(640, 480), QSize(-1, -1));
    row("4", "04000000", QSize(-1, -1), QSize(-1, -1));
    row("highest", "ffffffff", QSize(-1, -1), QSize(-1, -1));
    row("1 in the high half", "01000100", QSize(-1, -1), QSize(-1, -1));
}

void CommandAnswersTest::pictureSizesAreNumbered() {
    QFETCH(QByteArray, number);
    QFETCH(QSize, recording);
    QFETCH(QSize, live);
    QCOMPARE(answered<ClNuboCommandGetRecImagesize>(plainAnswer(number)).getSize(), recording);
    QCOMPARE(answered<ClNuboCommandGetLiveImagesize>(plainAnswer(number)).getSize(), live);
}

void CommandAnswersTest::otherSizesAreSentAsZero_data() {
    QTest::addColumn<QSize>("size");
    QTest::addColumn<unsigned int>("recording");
    QTest::addColumn<unsigned int>("live");
    QTest::newRow("Full HD") << QSize(1920, 1080) << 1U << 0U;
    QTest::newRow("HD") << QSize(1280, 720) << 2U << 0U;
    QTest::newRow("VGA") << QSize(640, 480) << 3U << 0U;
    QTest::newRow("fine") << QSize(800, 480) << 0U << 1U;
    QTest::newRow("standard") << QSize(320, 240) << 0U << 2U;
    QTest::newRow("mixed") << QSize(1280, 1080) << 0U << 0U;
    QTest::newRow("upright") << QSize(720, 1280) << 0U << 0U;
    QTest::newRow("empty") << QSize(0, 0) << 0U << 0U;
    QTest::newRow("invalid") << QSize() << 0U << 0U;
}

void CommandAnswersTest::otherSizesAreSentAsZero() {
    QFETCH(QSize, size);
    QFETCH(unsigned int, recording);
    QFETCH(unsigned int, live);
    QCOMPARE(ClNuboCommandSetRecImagesize(size).param(1), recording);
    QCOMPARE(ClNuboCommandSetLiveImagesize(size).param(1), live);
}

void CommandAnswersTest::clocksAreReadFromTwoNumbers_data() {
    QTest::addColumn<QByteArray>("numbers");
    QTest::addColumn<QDateTime>("time");
    const auto row = [](const char* name, const char* numbers, const QDateTime& time) {
        QTest::newRow(name) << QByteArray(numbers) << time;
    };
    // The numbers in decimal: 20140309 is 0x01335115, and so on.
    row("20140309 070501", "15513301 65130100", QDateTime(QDate(2014, 3, 9), QTime(7, 5, 1)));
    row("20000101 000000", "652d3101 00000000", QDateTime(QDate(2000, 1, 1), QTime(0, 0)));
    row("20160229 235959", "e59e3301 b7990300", QDateTime(QDate(2016, 2, 29), QTime(23, 59, 59)));
    row("99991231 235959", "bfbef505 b7990300", QDateTime(QDate(9999, 12, 31), QTime(23, 59, 59)));
    const QDateTime invalid;
    row("29 February of a common year", "d5773301 00000000", invalid);
    row("31 February", "e79e3301 00000000", invalid);
    row("31 April", "af9f3301 00000000", invalid);
    row("day 0", "649e3301 00000000", invalid);
    row("month 0", "0f9e3301 00000000", invalid);
    row("month 13", "15a33301 00000000", invalid);
    row("date 0", "00000000 00000000", invalid);
    row("highest date", "ffffffff 00000000", invalid);
    row("hour 24", "15513301 80a90300", invalid);
    row("minute 60", "15513301 70170000", invalid);
    row("second 60", "15513301 3c000000", invalid);
    row("highest time", "15513301 ffffffff", invalid);
}

void CommandAnswersTest::clocksAreReadFromTwoNumbers() {
    QFETCH(QByteArray, numbers);
    QFETCH(QDateTime, time);
    const QDateTime read = answered<ClNuboCommandGetTime>(plainAnswer(numbers)).getTime();
    QCOMPARE(read.isValid(), time.isValid());
    QCOMPARE(read, time);
}

void CommandAnswersTest::clocksAreSentAsTwoNumbers_data() {
    QTest::addColumn<QDateTime>("time");
    QTest::addColumn<unsigned int>("date");
    QTest::addColumn<unsigned int>("clock");
    QTest::newRow("spring") << QDateTime(QDate(2014, 3, 9), QTime(7, 5, 1)) << 20140309U << 70501U;
    QTest::newRow("midnight") << QDateTime(QDate(2000, 1, 1), QTime(0, 0)) << 20000101U << 0U;
    QTest::newRow("leap day") << QDateTime(QDate(2016, 2, 29), QTime(23, 59, 59)) << 20160229U
                              << 235959U;
    QTest::newRow("milliseconds are cut off")
        << QDateTime(QDate(2014, 12, 31), QTime(23, 59, 59, 999)) << 20141231U << 235959U;
    QTest::newRow("as its own clock shows it")
        << QDateTime(QDate(2014, 3, 9), QTime(7, 5, 1), Qt::OffsetFromUTC, 5 * 3600) << 20140309U
        << 70501U;
}

void CommandAnswersTest::clocksAreSentAsTwoNumbers() {
    QFETCH(QDateTime, time);
    QFETCH(unsigned int, date);
    QFETCH(unsigned int, clock);
    const ClNuboCommandSetTime command(time);
    QCOMPARE(command.param(1), date);
    QCOMPARE(command.param(2), clock);
    QCOMPARE(command.param(3), 0U);
}

void CommandAnswersTest::creationDaysAreReadFromText_data() {
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QDateTime>("day");
    const auto row = [](const char* text, const QDateTime& day) {
        QTest::newRow(text) << QByteArray(text) << day;
    };
    row("2014/03/09 07:05:01", QDateTime(QDate(2014, 3, 9), QTime(7, 5, 1)));
    row("2016/02/29 23:59:59", QDateTime(QDate(2016, 2, 29), QTime(23, 59, 59)));
    const QDateTime invalid;
    row("", invalid);
    row("2014/03/09", invalid);
    row("2014-03-09 07:05:01", invalid);
    row("2014/02/31 07:05:01", invalid);
    row("2014/13/01 07:05:01", invalid);
    row("2014/03/09 24:00:00", invalid);
    row("2014/03/09 07:05:01 PM", invalid);
    row("yesterday", invalid);
}

void CommandAnswersTest::creationDaysAreReadFromText() {
    QFETCH(QByteArray, text);
    QFETCH(QDateTime, day);
    const QDateTime read = answered<ClNuboCommandGetCreateDay>(answerOf(text)).getCreateDay();
    QCOMPARE(read.isValid(), day.isValid());
    QCOMPARE(read, day);
}

void CommandAnswersTest::anInvalidTimeStandsForNow() {
    const QDateTime before = QDateTime::currentDateTime().addSecs(-1);
    const ClNuboCommandSetTime clock{QDateTime()};
    const ClNuboCommandSetCreateDay day{QDateTime()};
    const QDateTime after = QDateTime::currentDateTime();

    // Both are read back by hand: year, month, day, hour, minute, second.
    const unsigned int date = clock.param(1);
    const unsigned int time = clock.param(2);
    const QDateTime sent(QDate(static_cast<int>(date / 10000), static_cast<int>(date / 100 % 100),
                               static_cast<int>(date % 100)),
                         QTime(static_cast<int>(time / 10000), static_cast<int>(time / 100 % 100),
                               static_cast<int>(time % 100)));
    QVERIFY(before < sent && sent <= after);
    const QString format = QStringLiteral("yyyy/MM/dd hh:mm:ss");
    QVERIFY(day.string() >= before.toString(format));
    QVERIFY(day.string() <= after.toString(format));
}

void CommandAnswersTest::aTimeThatSummerTimeSkipsHereIsReadAndSentAsItIs() {
    const SummerTime here;
    const QDateTime skipped = SummerTime::skipped();
    QVERIFY(!skipped.isValid());
    // 20260329 is 0x013525E9, 23005 is 0x59DD.
    const QDateTime read =
        answered<ClNuboCommandGetTime>(plainAnswer("e9253501 dd590000")).getTime();
    QCOMPARE(read.date(), skipped.date());
    QCOMPARE(read.time(), skipped.time());
    const ClNuboCommandSetTime clock(skipped);
    QCOMPARE(clock.param(1), 20260329U);
    QCOMPARE(clock.param(2), 23005U);

    const QDateTime day =
        answered<ClNuboCommandGetCreateDay>(answerOf("2026/03/29 02:30:05")).getCreateDay();
    QCOMPARE(day.date(), skipped.date());
    QCOMPARE(day.time(), skipped.time());
    QCOMPARE(ClNuboCommandSetCreateDay(skipped).string(), QStringLiteral("2026/03/29 02:30:05"));
}

void CommandAnswersTest::countriesAreTwoLetters_data() {
    QTest::addColumn<QByteArray>("letters");
    QTest::addColumn<QString>("country");
    const auto row = [](const char* name, const char* letters, const QString& country) {
        QTest::newRow(name) << QByteArray(letters) << country;
    };
    row("JP", "4a000000 50000000", QStringLiteral("JP"));
    row("small letters", "75000000 73000000", QStringLiteral("us"));
    row("only low bytes count", "4affffff 50010203", QStringLiteral("JP"));
    row("one letter", "4a000000 00000000", QStringLiteral("J"));
    row("no first letter", "00000000 50000000", QString());
    row("low byte 0", "00010000 50000000", QString());
    row("Latin-1", "e9000000 ff000000", QStringLiteral("\u00e9\u00ff"));
}

void CommandAnswersTest::countriesAreTwoLetters() {
    QFETCH(QByteArray, letters);
    QFETCH(QString, country);
    QCOMPARE(answered<ClNuboCommandGetCountry>(plainAnswer(letters)).getCountry(), country);
}

void CommandAnswersTest::countriesAreSentLetterByLetter_data() {
    QTest::addColumn<QString>("country");
    QTest::addColumn<unsigned int>("first");
    QTest::addColumn<unsigned int>("second");
    QTest::newRow("US") << QStringLiteral("US") << 0x55U << 0x53U;
    QTest::newRow("one letter") << QStringLiteral("U") << 0x55U << 0U;
    QTest::newRow("empty") << QString() << 0U << 0U;
    QTest::newRow("three letters") << QStringLiteral("USA") << 0x55U << 0x53U;
    QTest::newRow("Latin-1") << QStringLiteral("\u00e9\u00ff") << 0xE9U << 0xFFU;
    QTest::newRow("beyond Latin-1") << QStringLiteral("\u65e5\u672c") << 0x3FU << 0x3FU;
}

void CommandAnswersTest::countriesAreSentLetterByLetter() {
    QFETCH(QString, country);
    QFETCH(unsigned int, first);
    QFETCH(unsigned int, second);
    const ClNuboCommandSetCountry command(country);
    QCOMPARE(command.param(1), first);
    QCOMPARE(command.param(2), second);
}

void CommandAnswersTest::cardSizesAreOf64Bits_data() {
    QTest::addColumn<QByteArray>("numbers");
    QTest::addColumn<quint64>("size");
    QTest::addColumn<quint64>("used");
    QTest::newRow("none") << QByteArray("00000000 00000000 00000000 00000000") << quint64{0}
                          << quint64{0};
    QTest::newRow("low words") << QByteArray("00000000 ffffffff 00000000 01000080")
                               << Q_UINT64_C(0xFFFFFFFF) << Q_UINT64_C(0x80000001);
    QTest::newRow("high words") << QByteArray("01000000 02000000 03000000 04000000")
                                << Q_UINT64_C(0x100000002) << Q_UINT64_C(0x300000004);
    QTest::newRow("highest") << QByteArray("ffffffff ffffffff ffffffff fffffffe")
                             << Q_UINT64_C(0xFFFFFFFFFFFFFFFF) << Q_UINT64_C(0xFFFFFFFFFEFFFFFF);
}

void CommandAnswersTest::cardSizesAreOf64Bits() {
    QFETCH(QByteArray, numbers);
    QFETCH(quint64, size);
    QFETCH(quint64, used);
    const auto card = answered<ClNuboCommandGetSdInfo>(plainAnswer(numbers + "03000000"));
    QCOMPARE(card.getSdSize(), size);
    QCOMPARE(card.getSdUsedSize(), used);
    QCOMPARE(card.param(5), 3U);
}

void CommandAnswersTest::passwordsAreTexts_data() {
    QTest::addColumn<QByteArray>("packet");
    QTest::addColumn<QString>("password");
    QTest::newRow("text") << textAnswer("20000000", "04000000 70613173") << QStringLiteral("pa1s");
    QTest::newRow("none") << plainAnswer("00000000") << QString();
    QTest::newRow("Latin-1") << textAnswer("1d000000", "01000000 e9") << QStringLiteral("\u00e9");
}

void CommandAnswersTest::passwordsAreTexts() {
    QFETCH(QByteArray, packet);
    QFETCH(QString, password);
    const auto answer = answered<ClNuboCommandGetStreamAuthorizationPassword>(packet);
    QCOMPARE(answer.getPassword(), password);
}

void CommandAnswersTest::gpsInformationIsATextAndANumber() {
    const auto text =
        answered<ClNuboCommandGetGpsInfo>(textAnswer("1f000000", "03000000 475041", "05000000"));
    QCOMPARE(text.string(), QStringLiteral("GPA"));
    QCOMPARE(text.param(3), 5U);
    const auto empty = answered<ClNuboCommandGetGpsInfo>(plainAnswer("00000000 00000000 06000000"));
    QCOMPARE(empty.string(), QString());
    QCOMPARE(empty.param(3), 6U);
}

void CommandAnswersTest::shortAnswersReadAsZero() {
    const QByteArray head = "0000 <id> 20000000 0000 0000";
    QVERIFY(!answered<ClNuboCommandGetTime>(head).getTime().isValid());
    QVERIFY(!answered<ClNuboCommandGetRecImagesize>(head).getSize().isValid());
    QVERIFY(!answered<ClNuboCommandGetCreateDay>(head).getCreateDay().isValid());
    QCOMPARE(answered<ClNuboCommandGetCountry>(head).getCountry(), QString());
    QCOMPARE(answered<ClNuboCommandGetAdhocAddress>(head).getAddress(), QStringLiteral("0.0.0.0"));
    QCOMPARE(answered<ClNuboCommandGetSdInfo>(head).getSdSize(), quint64{0});
    QCOMPARE(answered<ClNuboCommandGetStreamAuthorizationPassword>(head).getPassword(), QString());
}

const TestSubject registered = subjectWithoutScreen<CommandAnswersTest>();
#include "CommandAnswersTest.moc"
