// SPDX-License-Identifier: MIT
#include "protocol/CommandIdentifiers.h"
#include "protocol/CommandRoutes.h"
#include "protocol/ResultCodes.h"
#include "tests/catalogue/RouteRows.h"
#include "tests/support/TestSubject.h"

#include <QFile>
#include <QRegularExpression>
#include <QTest>

namespace {

QString read(const char* path) {
    QFile file(QString::fromUtf8(path));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// The cells of each table row of the page.
QList<QStringList> tableRows() {
    QList<QStringList> rows;
    for (const QString& line : read(PROTOCOL_PAGE).split(u'\n')) {
        if (line.startsWith(QStringLiteral("| "))) {
            QStringList cells = line.split(u'|');
            cells.removeFirst();
            cells.removeLast();
            for (QString& cell : cells) {
                cell = cell.trimmed();
            }
            rows.append(cells);
        }
    }
    return rows;
}

/// The rows of @p columns cells that begin with a code.
QList<QStringList> rowsWithCode(qsizetype columns) {
    QList<QStringList> rows;
    for (const QStringList& row : tableRows()) {
        if (row.size() == columns && row.first().startsWith(QStringLiteral("0x"))) {
            rows.append(row);
        }
    }
    return rows;
}

QList<QStringList> commandRows() {
    return rowsWithCode(5);
}

QString hexadecimal(unsigned short code) {
    return QStringLiteral("0x") + QString::number(code, 16).toUpper().rightJustified(4, u'0');
}

QString quoted(const QString& text) {
    return u'`' + text + u'`';
}

/// The request as the page writes it: with its namespace if it has one.
QString requestName(const QUuid& request) {
    const bool isShared = request == WifiOnOffRequest::USB_RES_NUBO_CMD_GET_WIFI_ONOFF;
    return (isShared ? QStringLiteral("WifiOnOffRequest::") : QString()) + getUsbCommand(request);
}

/// What stands between backquotes in @p cell.
QStringList codeWords(const QString& cell) {
    QStringList words;
    static const QRegularExpression word(QStringLiteral("`([^`]+)`"));
    for (auto match = word.globalMatch(cell); match.hasNext();) {
        words.append(match.next().captured(1));
    }
    return words;
}

QStringList typesOf(const QVariantList& values) {
    QStringList types;
    for (const QVariant& value : values) {
        types.append(QString::fromLatin1(value.typeName()));
    }
    return types;
}

QStringList sorted(QStringList list) {
    list.sort();
    return list;
}

}  // namespace

/// The page that describes the protocol, against the program: it names all there is, and nothing
/// else.
class ProtocolPageTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyCommandStandsOnce();
    void commandsStandWithTheirClasses();
    void argumentsAndAnswersHaveTheirTypes_data();
    void argumentsAndAnswersHaveTheirTypes();
    void everyResultCodeStandsOnce();
    void everyIdentifierWithoutACommandStandsOnce();
    void everyNameOnThePageExists();
};

void ProtocolPageTest::everyCommandStandsOnce() {
    QStringList onPage;
    for (const QStringList& row : commandRows()) {
        onPage.append(row[0] + u' ' + row[1]);
    }
    QStringList inProgram;
    for (const stRoute& route : commandRoutes()) {
        inProgram.append(hexadecimal(route.code) + u' ' + quoted(requestName(route.request)));
    }
    QCOMPARE(sorted(onPage), sorted(inProgram));
}

void ProtocolPageTest::commandsStandWithTheirClasses() {
    QStringList onPage;
    for (const QStringList& row : commandRows()) {
        onPage.append(row[0] + u' ' + row[2]);
    }
    // The one class that is no row of the header.
    QStringList inProgram{QStringLiteral("0x6807 `ClNuboCommandConnectWifi`")};
    static const QRegularExpression row(
        QStringLiteral("^class (Cl\\w+) *: public \\w+<(0x[0-9A-F]{4})"),
        QRegularExpression::MultilineOption);
    for (auto match = row.globalMatch(read(COMMANDS_HEADER)); match.hasNext();) {
        const QRegularExpressionMatch found = match.next();
        inProgram.append(found.captured(2) + u' ' + quoted(found.captured(1)));
    }
    QCOMPARE(sorted(onPage), sorted(inProgram));
}

void ProtocolPageTest::argumentsAndAnswersHaveTheirTypes_data() {
    QTest::addColumn<stRouteRow>("row");
    for (const stRouteRow& row : routeRows()) {
        QTest::newRow(qPrintable(getUsbCommand(row.request))) << row;
    }
}

void ProtocolPageTest::argumentsAndAnswersHaveTheirTypes() {
    QFETCH(stRouteRow, row);
    for (const QStringList& cells : commandRows()) {
        if (cells[1] == quoted(requestName(row.request))) {
            QCOMPARE(codeWords(cells[3]), typesOf(row.arguments));
            QCOMPARE(cells[3] == QStringLiteral("-"), row.arguments.isEmpty());
            QCOMPARE(codeWords(cells[4]), typesOf(row.values));
            QCOMPARE(cells[4] == QStringLiteral("result"), row.answer.isNull());
            return;
        }
    }
    QFAIL("The page has no row for this request.");
}

void ProtocolPageTest::everyResultCodeStandsOnce() {
    QStringList onPage;
    for (const QStringList& row : rowsWithCode(3)) {
        onPage.append(row[0] + u' ' + row[1]);
        QVERIFY2(!row[2].isEmpty(), qPrintable(row[1]));
    }
    // Diagnostics have no name for the code of a missing camera.
    QStringList inProgram{hexadecimal(USB_NO_DEVICE) + QStringLiteral(" `USB_NO_DEVICE`")};
    for (int code = 0; code <= 0xFFFF; ++code) {
        const auto result = static_cast<unsigned short>(code);
        for (const QString& name : {getUsberrorString(result), getNuboCommanderrorString(result)}) {
            if (!name.startsWith(QStringLiteral("Unknown:"))) {
                inProgram.append(hexadecimal(result) + u' ' + quoted(name));
            }
        }
    }
    QCOMPARE(sorted(onPage), sorted(inProgram));
}

void ProtocolPageTest::everyIdentifierWithoutACommandStandsOnce() {
    QStringList onPage;
    for (const QStringList& row : tableRows()) {
        if (row.size() == 3 && row.first().startsWith(QStringLiteral("`USB_"))) {
            onPage.append(row.first());
        }
    }
    QStringList inProgram;
    for (const stCommandIdentifier& identifier : commandIdentifiers()) {
        const bool isRouted = std::ranges::any_of(commandRoutes(), [&](const stRoute& route) {
            return route.request == identifier.uuid || route.answer == identifier.uuid;
        });
        if (!isRouted) {
            inProgram.append(quoted(QString::fromLatin1(identifier.name)));
        }
    }
    QCOMPARE(sorted(onPage), sorted(inProgram));
}

void ProtocolPageTest::everyNameOnThePageExists() {
    QStringList known;
    for (const stCommandIdentifier& identifier : commandIdentifiers()) {
        known.append(QString::fromLatin1(identifier.name));
    }
    for (const QStringList& row : rowsWithCode(3)) {
        known.append(codeWords(row[1]));
    }
    static const QRegularExpression name(QStringLiteral("\\b(?:USB|NUBO)_[A-Z_]+\\b(?!\\.\\.\\.)"));
    for (auto match = name.globalMatch(read(PROTOCOL_PAGE)); match.hasNext();) {
        const QString found = match.next().captured();
        QVERIFY2(known.contains(found), qPrintable(found));
    }
}

const TestSubject registered = subjectWithoutScreen<ProtocolPageTest>();
#include "ProtocolPageTest.moc"
