// SPDX-License-Identifier: MIT
#include "tests/simulator/SimulatorRun.h"
#include "tests/support/TestSubject.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

/// The program on a terminal, which script(1) makes: it asks, and shows how far it is.
class NuboctlTerminalTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void asksBeforeItDestroys_data();
    void asksBeforeItDestroys();
    void asksForOneCameraAfterTheOther();
    void endsAfterCtrlCWhileItAsks_data();
    void endsAfterCtrlCWhileItAsks();
    void showsHowFarAnImageIs();
    void showsNoProgressWhereItIsToBeQuiet();

private:
    /// Words that send an image of several pieces; the camera does not restart for it.
    QString update(const QString& options) {
        QFile image(m_folder.filePath(u"image"_s));
        if (image.open(QIODevice::WriteOnly)) {
            image.write(QByteArray(200'000, 'i'));
        }
        return options + u"firmware update %1 --yes --wait-back=1"_s.arg(image.fileName());
    }

    /// Runs nuboctl with @p words on a terminal on which the shell command @p typing types, and
    /// then "nuboctl @p after". "shows TEXT" waits until the terminal shows it.
    static Run type(const QString& typing, const QString& words, const QString& after,
                    const QStringList& options = {}) {
        return runSimulator(
            options +
            shell(u"N=" NUBOCTL_PROGRAM "; T=$(mktemp); "
                  "shows() { until grep -q \"$1\" $T; do sleep 0.01; done; }; "
                  "{ %1; } | script --quiet --return --command \"$N %2\" /dev/null > $T; "
                  "E=$?; cat $T; rm $T; echo \"exit $E\"; $N %3"_s.arg(typing, words, after)));
    }

    QTemporaryDir m_folder;
};

void NuboctlTerminalTest::asksBeforeItDestroys_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QByteArray>("exit");
    QTest::addColumn<QByteArray>("used");
    QTest::newRow("yes") << u"printf 'y\\n'"_s << QByteArray("exit 0\n")
                         << QByteArray("sd.used = 0\n");
    QTest::newRow("in full") << u"printf 'Yes\\n'"_s << QByteArray("exit 0\n")
                             << QByteArray("sd.used = 0\n");
    QTest::newRow("no") << u"printf 'n\\n'"_s << QByteArray("exit 2\n")
                        << QByteArray("sd.used = 1586075648\n");
    QTest::newRow("nothing") << u"echo"_s << QByteArray("exit 2\n")
                             << QByteArray("sd.used = 1586075648\n");
}

void NuboctlTerminalTest::asksBeforeItDestroys() {
    QFETCH(const QString, typed);
    QFETCH(const QByteArray, exit);
    QFETCH(const QByteArray, used);
    const Run run = type(typed, u"sd format"_s, u"get sd.used"_s);
    QVERIFY2(run.output.contains("[y/N]"), run.output);
    QVERIFY2(run.output.endsWith(exit + used), run.output);
}

void NuboctlTerminalTest::asksForOneCameraAfterTheOther() {
    const Run run = type(u"shows y/N; printf 'y\\ny\\n'"_s, u"--all sd format"_s,
                         u"--all get sd.used"_s, {u"--cameras"_s, u"2"_s});
    // Nothing comes between a question and what is typed for it.
    QVERIFY2(run.output.sliced(run.output.indexOf("[y/N]")).startsWith("[y/N] y\r\n"), run.output);
    QVERIFY2(run.output.contains("exit 0\n"), run.output);
    QCOMPARE(run.output.count("sd.used = 0\n"), 2);
}

void NuboctlTerminalTest::endsAfterCtrlCWhileItAsks_data() {
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("question");
    QTest::newRow("whether to destroy") << u"sd format"_s << u"y/N"_s;
    QTest::newRow("for a secret") << u"set live.password"_s << u"live.password: "_s;
}

void NuboctlTerminalTest::endsAfterCtrlCWhileItAsks() {
    QFETCH(const QString, words);
    QFETCH(const QString, question);
    const Run run = type(u"shows '%1'; printf '\\003'"_s.arg(question), words, u"get sd.used"_s);
    QVERIFY2(run.output.endsWith("exit 130\nsd.used = 1586075648\n"), run.output);
    QVERIFY2(run.output.contains("nuboctl: interrupted"), run.output);
}

void NuboctlTerminalTest::showsHowFarAnImageIs() {
    const Run run = type(u":"_s, update(u""_s), u"--version"_s);
    QVERIFY2(run.output.contains("] 100 %"), run.output);
    QVERIFY2(run.output.contains("\r\x1b[K"), run.output);
}

void NuboctlTerminalTest::showsNoProgressWhereItIsToBeQuiet() {
    const Run run = type(u":"_s, update(u"-q "_s), u"--version"_s);
    QVERIFY2(run.output.contains("SHA-256") && !run.output.contains("100 %"), run.output);
}

const TestSubject registered = subjectWithoutScreen<NuboctlTerminalTest>();
#include "NuboctlTerminalTest.moc"
