// SPDX-License-Identifier: MIT
#include "tests/support/Patience.h"
#include "tests/support/TestSubject.h"

#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

struct stEnd {
    QProcess::ExitStatus status;
    int code;
    QString output;
    QString errors;
};

/// Runs the tool until it ends by itself, without a display unless @p platform says otherwise.
stEnd runTool(const QStringList& arguments, const QString& platform = {},
              const QString& display = {}) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString& name : {u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s, u"QT_QPA_PLATFORM"_s}) {
        environment.remove(name);
    }
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    if (!platform.isEmpty()) {
        environment.insert(u"QT_QPA_PLATFORM"_s, platform);
    }
    if (!display.isEmpty()) {
        environment.insert(u"DISPLAY"_s, display);
    }
    QProcess tool;
    tool.setProcessEnvironment(environment);
    tool.start(QStringLiteral(SETTING_TOOL), arguments);
    if (!tool.waitForFinished(PATIENCE_MS)) {
        tool.kill();
        tool.waitForFinished();
    }
    return {tool.exitStatus(), tool.exitCode(), QString::fromUtf8(tool.readAllStandardOutput()),
            QString::fromUtf8(tool.readAllStandardError())};
}

}  // namespace

/// The tool as a shell sees it: what it answers without a window, and how it goes without a
/// display.
class ArgumentsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void helpAndVersionNeedNoDisplay_data();
    void helpAndVersionNeedNoDisplay();
    void aWrongArgumentIsRefusedInOneLine_data();
    void aWrongArgumentIsRefusedInOneLine();
    void noDisplayIsOneLine_data();
    void noDisplayIsOneLine();
    void theToolkitsPlatformOptionCounts();
};

void ArgumentsTest::helpAndVersionNeedNoDisplay_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QRegularExpression>("answer");
    const QRegularExpression help(u"^Usage: nubo-setting-tool .*--help.*--version.*-platform"_s,
                                  QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpression version(u"^nubo-setting-tool " TOOL_VERSION "\n$"_s);
    QTest::newRow("help") << QStringList{u"--help"_s} << help;
    QTest::newRow("short help") << QStringList{u"-h"_s} << help;
    QTest::newRow("version") << QStringList{u"--version"_s} << version;
    QTest::newRow("after one of the toolkit's")
        << QStringList{u"-platform"_s, u"xcb"_s, u"--version"_s} << version;
}

void ArgumentsTest::helpAndVersionNeedNoDisplay() {
    QFETCH(QStringList, arguments);
    QFETCH(QRegularExpression, answer);
    const stEnd end = runTool(arguments);
    QCOMPARE(end.status, QProcess::NormalExit);
    QCOMPARE(end.code, 0);
    QVERIFY2(answer.match(end.output).hasMatch(), qPrintable(end.output));
    QCOMPARE(end.errors, QString());
}

void ArgumentsTest::aWrongArgumentIsRefusedInOneLine_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("line");
    const auto unknown = [](const QString& argument) {
        return u"nubo-setting-tool: unknown argument '%1'; see --help\n"_s.arg(argument);
    };
    QTest::newRow("option") << QStringList{u"--frobnicate"_s} << unknown(u"--frobnicate"_s);
    QTest::newRow("word") << QStringList{u"camera"_s} << unknown(u"camera"_s);
    QTest::newRow("empty") << QStringList{QString()} << unknown(QString());
    QTest::newRow("an option of the toolkit's that is not passed on")
        << QStringList{u"-stylesheet"_s, u"x"_s} << unknown(u"-stylesheet"_s);
    QTest::newRow("after a known one")
        << QStringList{u"-style"_s, u"Fusion"_s, u"-x"_s} << unknown(u"-x"_s);
    QTest::newRow("no value") << QStringList{u"-platform"_s}
                              << u"nubo-setting-tool: no value after '-platform'; see --help\n"_s;
}

void ArgumentsTest::aWrongArgumentIsRefusedInOneLine() {
    QFETCH(QStringList, arguments);
    const stEnd end = runTool(arguments);
    QCOMPARE(end.status, QProcess::NormalExit);
    QCOMPARE(end.code, 2);
    QCOMPARE(end.output, QString());
    QTEST(end.errors, "line");
}

void ArgumentsTest::noDisplayIsOneLine_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("platform");
    QTest::addColumn<QString>("display");
    QTest::addColumn<QString>("reason");
    const QString none;
    QTest::newRow("none") << QStringList() << none << none << u"display"_s;
    QTest::newRow("none of this number") << QStringList() << none << u":4711"_s << u":4711"_s;
    QTest::newRow("none of this number, by option")
        << QStringList{u"-display"_s, u":4711"_s} << u"xcb"_s << none << u":4711"_s;
    QTest::newRow("no such plugin") << QStringList() << u"nonsense"_s << none << u"nonsense"_s;
    QTest::newRow("no such plugin, by option")
        << QStringList{u"-platform"_s, u"nonsense"_s} << u"offscreen"_s << none << u"nonsense"_s;
}

void ArgumentsTest::noDisplayIsOneLine() {
    QFETCH(QStringList, arguments);
    QFETCH(QString, platform);
    QFETCH(QString, display);
    QFETCH(QString, reason);
    const stEnd end = runTool(arguments, platform, display);
    QCOMPARE(end.status, QProcess::NormalExit);
    QCOMPARE(end.code, 1);
    QCOMPARE(end.output, QString());
    QVERIFY2(end.errors.startsWith(u"nubo-setting-tool: no window can be opened: "_s) &&
                 end.errors.contains(reason) && end.errors.count(u'\n') == 1,
             qPrintable(end.errors));
}

void ArgumentsTest::theToolkitsPlatformOptionCounts() {
    const QTemporaryDir directory;  // the key of the single-instance guard belongs to it
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QT_QPA_PLATFORM"_s, u"nonsense"_s);
    environment.insert(u"TMPDIR"_s, directory.path());
    QProcess tool;
    tool.setProcessEnvironment(environment);
    tool.start(QStringLiteral(SETTING_TOOL), {u"--platform"_s, u"offscreen"_s});
    QVERIFY(tool.waitForStarted(PATIENCE_MS));
    const auto hasPlugin = [&tool] {
        QFile libraries(u"/proc/%1/maps"_s.arg(tool.processId()));
        return libraries.open(QIODevice::ReadOnly) && libraries.readAll().contains("libqoffscreen");
    };
    TRY_VERIFY(hasPlugin());
    tool.kill();
    QVERIFY(tool.waitForFinished(PATIENCE_MS));
}

const TestSubject registered = subjectWithoutScreen<ArgumentsTest>();

#include "ArgumentsTest.moc"
