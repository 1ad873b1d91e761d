// SPDX-License-Identifier: MIT
#include "pages/help/ClWidgetHelp.h"
#include "pages/help/ClWidgetLogo.h"
#include "tests/pages/PageBench.h"
#include "tests/pages/Refusals.h"
#include "tests/support/HelpReader.h"
#include "tests/support/SummerTime.h"
#include "tests/support/TestSubject.h"
#include "tests/ui/TaggingTranslator.h"
#include "ui/Artwork.h"
#include "ui/ClLabelSepalator.h"

#include <QClipboard>
#include <QDateTime>
#include <QHBoxLayout>
#include <QLabel>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

struct stRow {
    const char* name;
    int y;
    QString caption;
    QUuid request;
    QUuid answer;
    QVariant value;
    QString text;
};

/// What the camera is asked for, in that order, with a value for each.
const QList<stRow> CHAIN{
    {"firmware", 195, u"NuBo firmware version"_s, USB_REQ_NUBO_CMD_GET_FWVERSION,
     USB_RES_NUBO_CMD_GET_FWVERSION, u"1.00"_s, u"1.00"_s},
    {"serial number", 322, u"Serial number"_s, USB_REQ_NUBO_CMD_GET_SERIALNO,
     USB_RES_NUBO_CMD_GET_SERIALNO, u"SIM0001"_s, u"SIM0001"_s},
    {"MAC address", 352, u"MAC address"_s, USB_REQ_NUBO_CMD_GET_MACADDRESS,
     USB_RES_NUBO_CMD_GET_MACADDRESS, u"02:00:5e:10:00:01"_s, u"02:00:5e:10:00:01"_s},
    {"day", 382, u"Create day"_s, USB_REQ_NUBO_CMD_GET_CREATEDAY, USB_RES_NUBO_CMD_GET_CREATEDAY,
     QDateTime({2014, 3, 5}, {23, 59, 59}), u"2014/03/05"_s},
    {"country", 412, u"Country"_s, USB_REQ_NUBO_CMD_GET_COUNTRY, USB_RES_NUBO_CMD_GET_COUNTRY,
     u"EU"_s, u"Europe"_s},
};

}  // namespace

/// The help page alone: where everything stands, and what it makes of what a camera reports. The
/// answers are fed in by hand.
class HelpPageTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_bench = std::make_unique<PageBench<ClWidgetHelp>>(QSize(600, 505)); }
    void cleanup() { m_bench.reset(); }

    void theRowsStandAtTheirPlaces_data();
    void theRowsStandAtTheirPlaces();
    void theBannerStandsInTheMiddle();
    void theTextsAreThePages();
    void showingThePageAsksTheCamera();
    void showingThePageClearsWhatTheLastCameraLeft();
    void aValueIsShown_data();
    void aValueIsShown();
    void aDayWhoseHourSummerTimeSkipsHereIsShown();
    void aStrangeValueStaysInItsRow_data();
    void aStrangeValueStaysInItsRow();
    void aFailureEndsTheChain_data();
    void aFailureEndsTheChain();
    void otherResultsAreIgnored();
    void aValueCanBeCopied();
    void theKeyboardReachesTheValues();

private:
    [[nodiscard]] QList<QUuid> sent() const { return m_bench->sentCommands(); }
    void answer(qsizetype number) const {
        m_bench->page.slotReceiveCommand(valueAnswer(CHAIN[number].answer, CHAIN[number].value));
    }
    [[nodiscard]] HelpReader shown() const { return HelpReader(m_bench->page); }

    std::unique_ptr<PageBench<ClWidgetHelp>> m_bench;
};

void HelpPageTest::initTestCase() {
    QCoreApplication::setApplicationName(u"Test program"_s);
    // The program's own text size.
    QFont font;
    font.setPixelSize(13);
    QApplication::setFont(font);
}

void HelpPageTest::theRowsStandAtTheirPlaces_data() {
    QTest::addColumn<int>("y");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("value");
    QTest::newRow("tool") << 100 << u"NuBoSettingTool version"_s << u"01.00.020"_s;
    for (const stRow& row : CHAIN) {
        QTest::newRow(row.name) << row.y << row.caption << row.text;
    }
}

void HelpPageTest::theRowsStandAtTheirPlaces() {
    QFETCH(int, y);
    for (qsizetype number = 0; number < CHAIN.size(); ++number) {
        answer(number);
    }
    const QLabel* caption = shown().labelAt({32, y});
    const QLabel* value = shown().labelAt({236, y});
    QVERIFY(caption != nullptr && value != nullptr);
    QTEST(caption->text(), "caption");
    QTEST(value->text(), "value");
    QCOMPARE(value->font().weight(), QFont::Bold);
    QCOMPARE(value->font().pixelSize(), 13);
    QCOMPARE(value->size(), value->sizeHint());
    QVERIFY(caption->geometry().right() < value->x());
    QCOMPARE(m_bench->page.findChild<ClLabelSepalator*>()->pos(), QPoint(0, 291));
}

void HelpPageTest::theBannerStandsInTheMiddle() {
    const auto* banner = m_bench->page.findChild<ClWidgetLogo*>();
    QCOMPARE(banner->size(), banner->sizeHint());
    QCOMPARE(banner->pos(), QPoint((600 - banner->width()) / 2, 37));
    const auto* row = qobject_cast<QHBoxLayout*>(banner->layout());
    QVERIFY(row != nullptr);
    QCOMPARE(row->contentsMargins(), QMargins());
    QCOMPARE(row->spacing(), 9);
    const auto* logo = qobject_cast<QLabel*>(row->itemAt(0)->widget());
    const auto* text = qobject_cast<QLabel*>(row->itemAt(1)->widget());
    QVERIFY(logo != nullptr && text != nullptr);
    QCOMPARE(logo->pixmap().toImage(), artwork(u":/imglang/logo"_s, 1.0).toImage());
    QCOMPARE(text->text(), u"Setting Application"_s);
    QCOMPARE(text->alignment().toInt(), 0x85);
    QCOMPARE(text->font().weight(), QFont::Bold);
    QCOMPARE(text->font().pixelSize(), logo->pixmap().height() - 3);
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        QCOMPARE(text->palette().color(group, QPalette::WindowText), QColor(93, 97, 102));
    }
}

void HelpPageTest::theTextsAreThePages() {
    const TaggingTranslator translator;
    ClWidgetHelp page(nullptr);
    page.show();
    page.slotReceiveCommand(valueAnswer(CHAIN[3].answer, CHAIN[3].value));
    for (const QLabel* label : page.findChildren<QLabel*>()) {
        const bool isValue = label->x() == 236 || label->text().isEmpty();
        QVERIFY2(isValue || label->text().startsWith(u"ClWidgetHelp|"_s),
                 qPrintable(label->text()));
    }
    // The format is translated, too; of the letters of the context, M, l, d and h are fields.
    QVERIFY(HelpReader(page).labelAt({236, 382})->text().endsWith(u"|2014/03/05"_s));
}

void HelpPageTest::showingThePageAsksTheCamera() {
    m_bench->page.showInit(false);
    QCOMPARE(shown().values(), QStringList(5, u"--"_s));
    QCOMPARE(shown().labelAt({236, 100})->text(), u"01.00.020"_s);
    QList<QUuid> expected;
    QStringList values(5, u"--"_s);
    for (qsizetype number = 0; number < CHAIN.size(); ++number) {
        expected.append(CHAIN[number].request);
        QCOMPARE(sent(), expected);
        answer(number);
        values[number] = CHAIN[number].text;
        QCOMPARE(shown().values(), values);
    }
    QCOMPARE(sent(), expected);
    for (const QVariantList& arguments : std::as_const(m_bench->sent)) {
        const QVariantMap message = arguments.first().toMap();
        QCOMPARE(message.keys(), (QStringList{u"CMD"_s, u"Sender"_s}));
        QCOMPARE(message.value(u"Sender"_s).value<QObject*>(), &m_bench->page);
    }
    QVERIFY(m_bench->boxes.boxes().isEmpty());
}

void HelpPageTest::showingThePageClearsWhatTheLastCameraLeft() {
    for (qsizetype number = 0; number < CHAIN.size(); ++number) {
        answer(number);
    }
    QVERIFY(!shown().values().contains(u"--"_s));
    m_bench->page.showInit(false);
    QCOMPARE(shown().values(), QStringList(5, u"--"_s));
    QCOMPARE(shown().labelAt({236, 100})->text(), u"01.00.020"_s);
}

void HelpPageTest::aValueIsShown_data() {
    QTest::addColumn<int>("number");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, int number, const QVariant& value, const QString& text) {
        QTest::newRow(name) << number << value << text;
    };
    row("version as it stands", 0, u" v1.2-RC%1 "_s, u" v1.2-RC%1 "_s);
    row("markup", 1, u"<b>1</b>&amp;"_s, u"<b>1</b>&amp;"_s);
    row("MAC address in capitals", 2, u"AA-BB"_s, u"AA-BB"_s);
    row("first day", 3, QDateTime({2000, 1, 1}, {0, 0}), u"2000/01/01"_s);
    row("invalid day", 3, QDateTime(), u"--"_s);
    row("day that is none", 3, u"yesterday"_s, u"--"_s);
    row("Japan", 4, u"jp"_s, u"Japan"_s);
    row("unknown country", 4, u"de"_s, u"DE"_s);
    row("no country", 4, QString(), u"--"_s);
    row("empty number", 1, QString(), u"--"_s);
    row("missing number", 1, QVariant(), u"--"_s);
}

void HelpPageTest::aValueIsShown() {
    QFETCH(int, number);
    QFETCH(QVariant, value);
    QFETCH(QString, text);
    m_bench->page.slotReceiveCommand(valueAnswer(CHAIN[number].answer, value));
    QStringList expected(5, u"--"_s);
    expected[number] = text;
    QCOMPARE(shown().values(), expected);
}

void HelpPageTest::aDayWhoseHourSummerTimeSkipsHereIsShown() {
    const SummerTime here;
    m_bench->page.slotReceiveCommand(
        valueAnswer(USB_RES_NUBO_CMD_GET_CREATEDAY, SummerTime::skipped()));
    QVERIFY(m_bench->user.shows(u"2026/03/29"_s));
}

void HelpPageTest::aStrangeValueStaysInItsRow_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("toolTip");
    QTest::newRow("long") << QString(5000, u'W') << QString(5000, u'W');
    QTest::newRow("long markup") << u"<h1>"_s + QString(500, u'W')
                                 << u"&lt;h1&gt;"_s + QString(500, u'W');
    QTest::newRow("many lines") << u"1\n2\r\n3\v4\u2028"_s << QString();
    QTest::newRow("zero bytes") << QString(4, QChar(0)) << QString();
    QTest::newRow("turned direction") << u"\u202E12345"_s << QString();
}

void HelpPageTest::aStrangeValueStaysInItsRow() {
    QFETCH(QString, text);
    QFETCH(QString, toolTip);
    const QLabel* const value = shown().labelAt({236, 322});
    const int height = value->height();
    m_bench->page.slotReceiveCommand(valueAnswer(CHAIN[1].answer, text));
    QCOMPARE(value->height(), height);
    QVERIFY(value->geometry().right() <= 600 - 32);
    QCOMPARE(value->textFormat(), Qt::PlainText);
    QVERIFY(!value->text().contains(u'\u202E') && !value->text().contains(QChar(0)));
    QVERIFY(value->toolTip().contains(toolTip));
    QCOMPARE(value->toolTip().isEmpty(), toolTip.isEmpty());
    QCOMPARE(value->text().endsWith(u'…'), !toolTip.isEmpty());
    // The next camera's short value has nothing left of it.
    answer(1);
    QCOMPARE(value->text(), u"SIM0001"_s);
    QVERIFY(value->toolTip().isEmpty());
}

void HelpPageTest::aFailureEndsTheChain_data() {
    QTest::addColumn<int>("step");
    QTest::addColumn<QUuid>("kind");
    QTest::addColumn<unsigned short>("code");
    QTest::addColumn<QStringList>("texts");
    for (int step = 0; step < CHAIN.size(); ++step) {
        addFailedReads([step](const QUuid& kind, unsigned short code, const QStringList& texts) {
            QTest::addRow("%s, 0x%04X", CHAIN[step].name, code) << step << kind << code << texts;
        });
    }
}

void HelpPageTest::aFailureEndsTheChain() {
    QFETCH(int, step);
    QFETCH(QUuid, kind);
    QFETCH(unsigned short, code);
    m_bench->page.showInit(false);
    QStringList expected(5, u"--"_s);
    for (int number = 0; number < step; ++number) {
        answer(number);
        expected[number] = CHAIN[number].text;
    }
    m_bench->page.slotReceiveCommand(plainResult(kind, CHAIN[step].request, code));
    QTEST(m_bench->boxes.texts(), "texts");
    QCOMPARE(shown().values(), expected);
    QCOMPARE(m_bench->sent.size(), step + 1);
    for (const stModalBox& box : m_bench->boxes.boxes()) {
        QCOMPARE(box.title, u"Test program"_s);
        QCOMPARE(box.buttons, QStringList{u"OK"_s});
        QCOMPARE(box.parent, &m_bench->page);
    }
}

void HelpPageTest::otherResultsAreIgnored() {
    const unsigned short busy = 0xFFF9;
    m_bench->page.slotReceiveCommand(
        plainResult(USB_NUBO_CMD_RESPONSE, USB_NUBO_CMD_POWEROFF, busy));
    m_bench->page.slotReceiveCommand(
        plainResult(USB_CMD_ERROR, USB_REQ_NUBO_CMD_GET_BATTERY, 0xEF03));
    m_bench->page.slotReceiveCommand(plainResult(USB_NUBO_CMD_RESPONSE, QUuid(), busy));
    m_bench->page.slotReceiveCommand(valueAnswer(USB_RES_NUBO_CMD_GET_CAMERANAME, u"Gull"_s));
    m_bench->page.slotReceiveCommand({});
    QVERIFY(m_bench->boxes.boxes().isEmpty());
    QVERIFY(m_bench->sent.isEmpty());
    QCOMPARE(shown().values(), QStringList(5, u"--"_s));
}

void HelpPageTest::aValueCanBeCopied() {
    answer(1);
    QLabel* const value = shown().labelAt({236, 322});
    QTest::mouseDClick(value, Qt::LeftButton);
    QCOMPARE(value->selectedText(), u"SIM0001"_s);
    QTest::keyClick(value, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), u"SIM0001"_s);
}

void HelpPageTest::theKeyboardReachesTheValues() {
    m_bench->page.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&m_bench->page));
    m_bench->page.showInit(false);
    QCOMPARE(QApplication::focusWidget(), nullptr);
    for (qsizetype number = 0; number < CHAIN.size(); ++number) {
        answer(number);
    }
    QTest::keyClick(&m_bench->page, Qt::Key_Tab);
    for (const int y : {100, 195, 322, 352, 382, 412}) {
        QLabel* const value = shown().labelAt({236, y});
        QCOMPARE(QApplication::focusWidget(), value);
        QCOMPARE(value->selectedText(), value->text());
        QTest::keyClick(value, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QApplication::clipboard()->text(), value->text());
        QTest::keyClick(value, Qt::Key_Tab);
        QVERIFY(!value->hasSelectedText());
    }
}

const TestSubject registered = subjectWithWidgets<HelpPageTest>();
#include "HelpPageTest.moc"
