// SPDX-License-Identifier: MIT
#include "app/Tool.h"
#include "tests/support/TestSubject.h"

#include <QCoreApplication>
#include <QTest>
#include <QTranslator>

using namespace Qt::StringLiterals;

/// The display names of Wi-Fi countries.
class ToolTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aCountryCodeHasADisplayName_data();
    void aCountryCodeHasADisplayName();
};

void ToolTest::aCountryCodeHasADisplayName_data() {
    QTest::addColumn<QString>("catalogue");
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("name");
    const auto rows = [](const QString& catalogue,
                         const QList<std::pair<QString, QString>>& names) {
        for (const auto& [code, name] : names) {
            QTest::addRow("%s, \"%s\"", catalogue.isEmpty() ? "none" : qPrintable(catalogue),
                          qPrintable(code))
                << catalogue << code << name;
        }
    };
    const QList<std::pair<QString, QString>> english{
        {u"US"_s, u"United States"_s},
        {u"us"_s, u"United States"_s},
        {u"Us"_s, u"United States"_s},
        {u"JP"_s, u"Japan"_s},
        {u"jp"_s, u"Japan"_s},
        {u"AU"_s, u"Australia"_s},
        {u"au"_s, u"Australia"_s},
        {u"EU"_s, u"Europe"_s},
        {u"eU"_s, u"Europe"_s},
        {u"de"_s, u"DE"_s},
        {u"DE"_s, u"DE"_s},
        {u" jp"_s, u" JP"_s},
        {u"Japan"_s, u"JAPAN"_s},
        {u""_s, u""_s},
        {u"%1"_s, u"%1"_s},
    };
    rows(QString(), english);
    rows(u":/lang/en"_s, english);
    rows(u":/lang/ja"_s, {
                             {u"US"_s, u"アメリカ"_s},
                             {u"us"_s, u"アメリカ"_s},
                             {u"jp"_s, u"日本"_s},
                             {u"JP"_s, u"日本"_s},
                             {u"au"_s, u"オーストラリア"_s},
                             {u"EU"_s, u"ヨーロッパ"_s},
                             {u"de"_s, u"DE"_s},
                             {u""_s, u""_s},
                         });
}

void ToolTest::aCountryCodeHasADisplayName() {
    QFETCH(QString, catalogue);
    QFETCH(QString, code);
    QTranslator translator;
    if (!catalogue.isEmpty()) {
        QVERIFY(translator.load(catalogue));
        QVERIFY(QCoreApplication::installTranslator(&translator));
    }
    QTEST(TOOL::codeToName(code), "name");
}

const TestSubject registered = subjectWithoutScreen<ToolTest>();
#include "ToolTest.moc"
