// SPDX-License-Identifier: MIT
#include "pages/help/ClWidgetHelp.h"
#include "pages/help/ClWidgetLogo.h"
#include "protocol/CommandIdentifiers.h"
#include "tests/support/HelpReader.h"
#include "tests/support/TestSubject.h"

#include <QApplication>
#include <QDateTime>
#include <QImage>
#include <QLocale>
#include <QTest>
#include <QTranslator>

using namespace Qt::StringLiterals;

/// The help page as a Japanese desktop at 200 % shows it.
class JapaneseHelpTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_page.show(); }
    void theLogoIsTheJapaneseOneAndSharp();
    void theBannerStandsInTheMiddle();
    void captionsEndBeforeTheValues();
    void theDayIsWrittenAsInJapan();

private:
    ClWidgetHelp m_page{nullptr};
};

void JapaneseHelpTest::theLogoIsTheJapaneseOneAndSharp() {
    const auto* logo = m_page.findChild<ClWidgetLogo*>()->findChild<QLabel*>();
    const QPixmap picture = logo->pixmap();
    QCOMPARE(picture.devicePixelRatio(), 2.0);
    QCOMPARE(picture.deviceIndependentSize(), QSizeF(150, 28));
    QImage expected(QStringLiteral(RENDERED_LOGO));
    expected.setDevicePixelRatio(2.0);
    QCOMPARE(picture.toImage(), expected.convertToFormat(QImage::Format_ARGB32_Premultiplied));
}

void JapaneseHelpTest::theBannerStandsInTheMiddle() {
    const auto* banner = m_page.findChild<ClWidgetLogo*>();
    QCOMPARE(banner->pos(), QPoint((600 - banner->width()) / 2, 37));
    QVERIFY(banner->width() < 600);
    // As high as for the picture of a screen at 100 %.
    QCOMPARE(banner->findChildren<QLabel*>().last()->font().pixelSize(), 25);
}

void JapaneseHelpTest::captionsEndBeforeTheValues() {
    for (const int y : {100, 195, 322, 352, 382, 412}) {
        const QLabel* caption = HelpReader(m_page).labelAt({32, y});
        QVERIFY(caption != nullptr);
        QVERIFY2(32 + caption->sizeHint().width() < 236, qPrintable(caption->text()));
    }
}

void JapaneseHelpTest::theDayIsWrittenAsInJapan() {
    m_page.slotReceiveCommand({{u"CMD"_s, USB_RES_NUBO_CMD_GET_CREATEDAY},
                               {u"PARAM2"_s, QDateTime({2014, 3, 5}, {0, 0})}});
    QCOMPARE(HelpReader(m_page).values().at(3), u"2014年3月5日"_s);
}

const TestSubject registered("JapaneseHelpTest", [](int argc, char** argv) {
    qputenv("QT_SCALE_FACTOR", "2");
    const QApplication application(argc, argv);
    QFont font;
    font.setPixelSize(13);
    QApplication::setFont(font);
    QLocale::setDefault(QLocale(QLocale::Japanese));
    QTranslator translator;
    if (!translator.load(u":/lang/ja"_s)) {
        qFatal("There is no Japanese catalogue.");
    }
    QCoreApplication::installTranslator(&translator);
    JapaneseHelpTest test;
    return QTest::qExec(&test, argc, argv);
});

#include "JapaneseHelpTest.moc"
