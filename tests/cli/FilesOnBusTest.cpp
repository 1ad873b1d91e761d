// SPDX-License-Identifier: MIT
#include "cli/ExitCode.h"
#include "tests/cli/CliBench.h"
#include "tests/support/TestSubject.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

/// Files as users name them: pipes, devices, what never ends, and what other programs have written.
class FilesOnBusTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_camera = m_bench.plug(); }
    void cleanup();

    void aPipeIsWrittenInto_data();
    void aPipeIsWrittenInto();
    void whatNeverEndsIsTooLarge_data();
    void whatNeverEndsIsTooLarge();
    void aFileOfNoNameIsNone_data();
    void aFileOfNoNameIsNone();
    void jsonMayBeMarkedAsUtf8();
    void aWrongValueIsToldWithItsFile();
    void filesForEachCameraAreComparedAsTheyStand();
    void aValueThatCannotBeSetIsInNoProfile();

private:
    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }
    [[nodiscard]] QString written(const QString& name, const QByteArray& content) const {
        QFile file(path(name));
        return file.open(QIODevice::WriteOnly) && file.write(content) == content.size()
                   ? file.fileName()
                   : QString();
    }
    [[nodiscard]] QString pipe() const {
        const QString name = path(u"pipe"_s);
        QFile::remove(name);
        return ::mkfifo(QFile::encodeName(name).constData(), S_IRUSR | S_IWUSR) == 0 ? name
                                                                                     : QString();
    }

    QTemporaryDir m_folder;
    CliBench m_bench;
    std::shared_ptr<RecordingCamera> m_camera;
};

void FilesOnBusTest::cleanup() {
    m_bench.bus.unplug(m_bench.ids.back());
    m_bench.bus.settle();
    m_camera.reset();
}

void FilesOnBusTest::aPipeIsWrittenInto_data() {
    QTest::addColumn<QString>("verb");
    QTest::newRow("export") << u"export"_s;
    QTest::newRow("picture") << u"picture"_s;
}

void FilesOnBusTest::aPipeIsWrittenInto() {
    QFETCH(const QString, verb);
    const QString file = path(u"file"_s);
    QCOMPARE(CliBench::run({verb, file}).exit, 0);
    QFile expected(file);
    QVERIFY(expected.open(QIODevice::ReadOnly));

    const QString name = pipe();
    // Open at both ends: neither side waits for the other, and all of it fits in.
    QFile other(name);
    QVERIFY(other.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
    const stRunResult run = CliBench::run({verb, name});
    QVERIFY2(run.exit == 0, qPrintable(run.err));
    struct stat status {};
    QCOMPARE(::stat(QFile::encodeName(name).constData(), &status), 0);
    QVERIFY2(S_ISFIFO(status.st_mode), "a file has taken its place");
    QCOMPARE(other.read(expected.size()), expected.readAll());
}

void FilesOnBusTest::whatNeverEndsIsTooLarge_data() {
    QTest::addColumn<QStringList>("words");
    QTest::newRow("profile") << QStringList{u"apply"_s, u"/dev/zero"_s};
    QTest::newRow("secret") << QStringList{u"set"_s, u"live.password=@/dev/zero"_s};
    QTest::newRow("key") << QStringList{u"wifi"_s, u"join"_s, u"Quay"_s, u"--key-file"_s,
                                        u"/dev/zero"_s};
    QTest::newRow("firmware") << QStringList{u"firmware"_s, u"update"_s, u"/dev/zero"_s,
                                             u"--yes"_s};
}

void FilesOnBusTest::whatNeverEndsIsTooLarge() {
    QFETCH(const QStringList, words);
    const stRunResult run = CliBench::run(words);
    QCOMPARE(run.exit, static_cast<int>(ExitCode::WrongUse));
    QVERIFY2(run.err.contains(u"/dev/zero: too large for a "_s), qPrintable(run.err));
    QVERIFY(m_camera->takeCodes().isEmpty());
}

void FilesOnBusTest::aFileOfNoNameIsNone_data() {
    QTest::addColumn<QStringList>("words");
    QTest::newRow("apply") << QStringList{u"apply"_s, u""_s};
    QTest::newRow("export") << QStringList{u"export"_s, u""_s};
    QTest::newRow("secret") << QStringList{u"set"_s, u"live.password=@"_s};
}

void FilesOnBusTest::aFileOfNoNameIsNone() {
    QFETCH(const QStringList, words);
    const stRunResult run = CliBench::run(words);
    QCOMPARE(run.exit, static_cast<int>(ExitCode::Computer));
    QCOMPARE(run.err, u"nuboctl: \"\": No such file or directory\n"_s);
}

void FilesOnBusTest::jsonMayBeMarkedAsUtf8() {
    const QString file = written(u"marked.json"_s, "\xEF\xBB\xBF{\"camera.name\":\"Tern\"}\r\n");
    const stRunResult run = CliBench::run({u"apply"_s, file});
    QVERIFY2(run.exit == 0, qPrintable(run.err));
    QCOMPARE(m_camera->item("camera-name"), u"Tern"_s);
}

void FilesOnBusTest::aWrongValueIsToldWithItsFile() {
    const QString file = written(u"wrong.nubo"_s, "# a comment\ncamera.name = A Tern\n");
    const stRunResult run = CliBench::run({u"apply"_s, file});
    QCOMPARE(run.exit, static_cast<int>(ExitCode::WrongUse));
    QCOMPARE(
        run.err,
        u"nuboctl: %1: line 2: camera.name: A Tern is not 1 to 8 letters and digits\n"_s.arg(file));
    QVERIFY(m_camera->takeCodes().isEmpty());
}

void FilesOnBusTest::filesForEachCameraAreComparedAsTheyStand() {
    const QString one = written(u"one.nubo"_s,
                                "camera.name = {serial}\nlive.rtsp-port = 855{n}\n"
                                "wifi.auto-off = 5m\n");
    const QString other = written(u"other.nubo"_s,
                                  "camera.name = {serial}\nlive.rtsp-port = 8551\n"
                                  "wifi.auto-off = 300\n");
    QCOMPARE(CliBench::run({u"diff"_s, one, one}).exit, 0);
    const stRunResult run = CliBench::run({u"diff"_s, one, other});
    QCOMPARE(run.exit, static_cast<int>(ExitCode::No));
    QCOMPARE(run.out, u"live.rtsp-port: 855{n} -> 8551\n"_s);
    const stRunResult json = CliBench::run({u"diff"_s, u"--json"_s, one, other});
    QVERIFY2(json.out.contains(uR"({"key":"live.rtsp-port","new":8551,"old":"855{n}"})"_s),
             qPrintable(json.out));
}

void FilesOnBusTest::aValueThatCannotBeSetIsInNoProfile() {
    // As a camera has it whose Wi-Fi was never set up.
    QVERIFY(m_camera->set("infra-ssid", ""));
    const QString file = path(u"fresh.nubo"_s);
    const stRunResult run = CliBench::run({u"export"_s, file});
    QCOMPARE(run.exit, 0);
    QCOMPARE(run.err,
             u"nuboctl: wifi.infrastructure.ssid is left out: the camera's is not 1 to 32 "
             "printable characters of Latin-1\n"_s);
    const stRunResult diff = CliBench::run({u"diff"_s, file});
    QVERIFY2(diff.exit == 0, qPrintable(diff.err));
}

const TestSubject registered = subjectWithoutApplication<FilesOnBusTest>();
#include "FilesOnBusTest.moc"
