// SPDX-License-Identifier: MIT
#include "tests/support/Patience.h"
#include "tests/support/TestSubject.h"

#include <QDir>
#include <QLibraryInfo>
#include <QMap>
#include <QProcess>
#include <QProcessEnvironment>
#include <QSettings>
#include <QSharedMemory>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int REFUSED = 255;  // -1, as the operating system passes it on

constexpr int CRITICAL_ICON = 3;  // QMessageBox::Critical

const QString KEY = u"NuBo_USB_Communication"_s;

/// What the probe has to say, by the word before the colon.
using Said = QMap<QString, QString>;

Said parse(const QByteArray& output) {
    Said said;
    for (const QString& line : QString::fromUtf8(output).split(u'\n', Qt::SkipEmptyParts)) {
        said.insert(line.section(u": "_s, 0, 0), line.section(u": "_s, 1));
    }
    return said;
}

/// A program that ends when this object does.
class Program : public QProcess {
public:
    Program(const QString& path, const QStringList& arguments,
            const QString& language = u"en_US"_s) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const QString& name : {u"LANG"_s, u"LANGUAGE"_s, u"LC_MESSAGES"_s}) {
            environment.remove(name);
        }
        environment.insert(u"LC_ALL"_s, language + u".UTF-8"_s);
        setProcessEnvironment(environment);
        setProcessChannelMode(QProcess::ForwardedErrorChannel);
        start(path, arguments);
    }

    ~Program() override {
        closeWriteChannel();
        if (!waitForFinished(PATIENCE_MS)) {
            kill();
            waitForFinished();
        }
    }

    /// Reads on until a line begins with @p word; false when none comes.
    bool waitForLine(const QByteArray& word) {
        while (!m_output.startsWith(word) && !m_output.contains('\n' + word)) {
            if (!waitForReadyRead(PATIENCE_MS)) {
                return false;
            }
            m_output += readAllStandardOutput();
        }
        return true;
    }

    bool finish() {
        if (state() != NotRunning && !waitForFinished(PATIENCE_MS)) {
            return false;
        }
        m_output += readAllStandardOutput();
        return exitStatus() == NormalExit;
    }

    [[nodiscard]] Said said() const { return parse(m_output); }

private:
    QByteArray m_output;
};

class Probe : public Program {
public:
    explicit Probe(const QStringList& arguments = {}, const QString& language = u"en_US"_s)
        : Program(QStringLiteral(STARTUP_PROBE), arguments, language) {}
};

/// Another program that holds the key.
class KeyHolder : public Program {
public:
    KeyHolder() : Program(QStringLiteral(KEY_HOLDER), {KEY}) {}
};

/// Whether there is a segment under the key, held or left behind. Changes nothing about it.
bool segmentExists() {
    QSharedMemory segment(KEY);
    return !segment.create(1) && segment.error() == QSharedMemory::AlreadyExists;
}

}  // namespace

/// The start of the program as the user sees it, from outside its process.
class StartupTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void theSystemLanguageChoosesCatalogueAndLocale_data();
    void theSystemLanguageChoosesCatalogueAndLocale();
    void theToolkitSpeaksTheUsersLanguageToo_data();
    void theToolkitSpeaksTheUsersLanguageToo();
    void theStartIsRefusedWhileAnotherProgramHoldsTheKey_data();
    void theStartIsRefusedWhileAnotherProgramHoldsTheKey();
    void aHolderKeepsTheKeyThroughARefusedStart();
    void theKeyOfACrashedHolderDoesNotLockTheUserOut();
    void theKeyIsFreeOnceTheWindowStands();
    void aMissingCatalogueLeavesTheSourceTexts();
    void aMissingCatalogueLeavesTheRefusalInTheUsersLanguage();
    void missingMessagesLeaveTheRefusalEmpty_data();
    void missingMessagesLeaveTheRefusalEmpty();
    void theExitCodeIsTheEventLoops_data();
    void theExitCodeIsTheEventLoops();
    void lineEditsHaveLargerTextThanTheRest();

private:
    QTemporaryDir m_directory;
};

void StartupTest::initTestCase() {
    // A key belongs to a file in the temporary directory: with a directory of its own, this test
    // meets no other copy of the program, and disturbs none.
    QVERIFY(m_directory.isValid());
    qputenv("TMPDIR", QFile::encodeName(m_directory.path()));
    QCOMPARE(QDir::tempPath(), m_directory.path());
}

void StartupTest::cleanup() {
    // Whoever detaches last removes the segment.
    QSharedMemory leftBehind(KEY);
    leftBehind.attach();
}

void StartupTest::theSystemLanguageChoosesCatalogueAndLocale_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("country");
    QTest::newRow("Japanese") << u"ja_JP"_s << u"Japanese"_s << u"NuBo 設定ツール"_s << u"日本"_s;
    for (const char* other : {"en_US", "fr_FR", "zh_CN", "de_AT"}) {
        QTest::newRow(other) << QString::fromLatin1(other) << u"English"_s << u"NuBo Setting Tool"_s
                             << u"Japan"_s;
    }
}

void StartupTest::theSystemLanguageChoosesCatalogueAndLocale() {
    QFETCH(QString, language);
    Probe probe({}, language);
    QVERIFY(probe.finish());
    QTEST(probe.said().value(u"locale"_s), "locale");
    QTEST(probe.said().value(u"window title"_s), "title");
    QTEST(probe.said().value(u"country"_s), "country");
}

void StartupTest::theToolkitSpeaksTheUsersLanguageToo_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("catalogues");
    QTest::addColumn<QString>("menuEntry");
    const QString installed = QStringLiteral(TOOLKIT_CATALOGUES);
    QTest::newRow("Japanese") << u"ja_JP"_s << installed << u"すべて選択"_s;
    QTest::newRow("Japanese, not installed") << u"ja_JP"_s << QString() << u"Select All"_s;
    QTest::newRow("English") << u"en_US"_s << installed << u"Select All"_s;
}

void StartupTest::theToolkitSpeaksTheUsersLanguageToo() {
    QFETCH(QString, language);
    QFETCH(QString, catalogues);
    // A program finds the toolkit's files by the qt.conf beside it.
    const QTemporaryDir directory;
    const QString program = directory.filePath(u"tool"_s);
    QVERIFY(QFile::copy(QStringLiteral(STARTUP_PROBE), program));
    {
        QSettings paths(directory.filePath(u"qt.conf"_s), QSettings::IniFormat);
        paths.setValue(u"Paths/Plugins"_s, QLibraryInfo::path(QLibraryInfo::PluginsPath));
        paths.setValue(u"Paths/Translations"_s,
                       catalogues.isEmpty() ? directory.path() : catalogues);
    }
    Program probe(program, {}, language);
    QVERIFY(probe.finish());
    QTEST(probe.said().value(u"menu entry"_s), "menuEntry");
}

void StartupTest::theStartIsRefusedWhileAnotherProgramHoldsTheKey_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");
    QTest::newRow("Japanese") << u"ja_JP"_s << u"NuBo 設定ツール"_s
                              << u"NuBo 設定ツール はすでに起動しています"_s;
    // The program speaks English to all others, though the guard knows French and Chinese.
    for (const char* other : {"en_US", "fr_FR", "zh_CN"}) {
        QTest::newRow(other) << QString::fromLatin1(other) << u"NuBo Setting Tool"_s
                             << u"NuBo Setting Tool is already running"_s;
    }
}

void StartupTest::theStartIsRefusedWhileAnotherProgramHoldsTheKey() {
    QFETCH(QString, language);
    KeyHolder holder;
    QVERIFY(holder.waitForLine("held"));

    Probe probe({}, language);
    QVERIFY(probe.finish());
    QTEST(probe.said().value(u"box title"_s), "title");
    QTEST(probe.said().value(u"box text"_s), "text");
    QCOMPARE(probe.said().value(u"box icon"_s).toInt(), CRITICAL_ICON);
    QCOMPARE(probe.said().value(u"window beside the box"_s), u"no"_s);
    QVERIFY(!probe.said().contains(u"window title"_s));
    QCOMPARE(probe.exitCode(), REFUSED);
}

void StartupTest::aHolderKeepsTheKeyThroughARefusedStart() {
    KeyHolder holder;
    QVERIFY(holder.waitForLine("held"));
    for (int start = 0; start < 2; ++start) {
        Probe probe;
        QVERIFY(probe.finish());
        QCOMPARE(probe.exitCode(), REFUSED);
        QVERIFY(segmentExists());
    }
    holder.closeWriteChannel();
    QVERIFY(holder.finish());
    QVERIFY(!segmentExists());
}

void StartupTest::theKeyOfACrashedHolderDoesNotLockTheUserOut() {
    KeyHolder holder;
    QVERIFY(holder.waitForLine("held"));
    holder.kill();
    QVERIFY(!holder.finish());
    QVERIFY(segmentExists());

    Probe probe;
    QVERIFY(probe.finish());
    QVERIFY(!probe.said().contains(u"box text"_s));
    QCOMPARE(probe.said().value(u"window title"_s), u"NuBo Setting Tool"_s);
    QCOMPARE(probe.exitCode(), 0);
    QVERIFY(!segmentExists());
}

void StartupTest::theKeyIsFreeOnceTheWindowStands() {
    Probe first({u"--stay"_s});
    QVERIFY(first.waitForLine("window title"));
    QVERIFY(!segmentExists());

    Probe second;
    QVERIFY(second.finish());
    QVERIFY(second.said().contains(u"window title"_s));
    QCOMPARE(second.exitCode(), 0);
    QCOMPARE(first.state(), QProcess::Running);

    first.closeWriteChannel();
    QVERIFY(first.finish());
    QCOMPARE(first.exitCode(), 0);
}

void StartupTest::aMissingCatalogueLeavesTheSourceTexts() {
    Probe probe({u"--without-catalogue"_s}, u"ja_JP"_s);
    QVERIFY(probe.finish());
    QCOMPARE(probe.said().value(u"window title"_s), u"NuBo Setting Tool"_s);
    QCOMPARE(probe.said().value(u"country"_s), u"Japan"_s);
    QCOMPARE(probe.said().value(u"locale"_s), u"Japanese"_s);
    QCOMPARE(probe.exitCode(), 0);
}

void StartupTest::aMissingCatalogueLeavesTheRefusalInTheUsersLanguage() {
    KeyHolder holder;
    QVERIFY(holder.waitForLine("held"));
    Probe probe({u"--without-catalogue"_s}, u"ja_JP"_s);
    QVERIFY(probe.finish());
    QCOMPARE(probe.said().value(u"box title"_s), u"NuBo Setting Tool"_s);
    QCOMPARE(probe.said().value(u"box text"_s), u"NuBo Setting Tool はすでに起動しています"_s);
    QCOMPARE(probe.exitCode(), REFUSED);
}

void StartupTest::missingMessagesLeaveTheRefusalEmpty_data() {
    QTest::addColumn<QString>("language");
    QTest::newRow("English") << u"en_US"_s;
    QTest::newRow("Japanese") << u"ja_JP"_s;
}

void StartupTest::missingMessagesLeaveTheRefusalEmpty() {
    QFETCH(QString, language);
    KeyHolder holder;
    QVERIFY(holder.waitForLine("held"));
    Probe probe({u"--without-messages"_s}, language);
    QVERIFY(probe.finish());
    QVERIFY(probe.said().contains(u"box text"_s));
    QCOMPARE(probe.said().value(u"box text"_s), QString());
    QCOMPARE(probe.said().value(u"box icon"_s).toInt(), CRITICAL_ICON);
    QCOMPARE(probe.exitCode(), REFUSED);
}

void StartupTest::theExitCodeIsTheEventLoops_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("exitCode");
    QTest::newRow("window closed") << QStringList() << 0;
    QTest::newRow("ended with 0") << QStringList{u"--exit-code"_s, u"0"_s} << 0;
    QTest::newRow("ended with 7") << QStringList{u"--exit-code"_s, u"7"_s} << 7;
}

void StartupTest::theExitCodeIsTheEventLoops() {
    QFETCH(QStringList, arguments);
    Probe probe(arguments);
    QVERIFY(probe.finish());
    QVERIFY(probe.said().contains(u"window title"_s));
    QTEST(probe.exitCode(), "exitCode");
}

void StartupTest::lineEditsHaveLargerTextThanTheRest() {
    Probe probe;
    QVERIFY(probe.finish());
    QCOMPARE(probe.said().value(u"label pixels"_s), u"13"_s);
    QCOMPARE(probe.said().value(u"line edit pixels"_s), u"14"_s);
}

const TestSubject registered = subjectWithoutScreen<StartupTest>();
#include "StartupTest.moc"
