// SPDX-License-Identifier: MIT
#include "app/ClAppCheck.h"
#include "tests/support/TestSubject.h"

#include <QCoreApplication>
#include <QFile>
#include <QLocale>
#include <QSharedMemory>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

// A resource is unregistered from outside any namespace.
static void dropCatalogues() {
    Q_CLEANUP_RESOURCE(AppCheck);
}

namespace {

/// Notes which keys are asked for, and gives the answer it is told to give.
class RecordingCheck : public ClAppCheck {
public:
    explicit RecordingCheck(emEXIST answer) : ClAppCheck(u"Recorder"_s), m_answer(answer) {}

    emEXIST doIExist(QString key) override {
        keys.append(key);
        return m_answer;
    }

    QStringList keys;

private:
    emEXIST m_answer;
};

/// A check of the family of programs of its own.
class OtherFamilyCheck : public ClAppCheck {
public:
    OtherFamilyCheck() : ClAppCheck(u"Other"_s) {}
    emEXIST doIExistXRK() override { return RunningElsewhere; }
};

}  // namespace

/// The single-instance guard, within one process.
class AppCheckTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void theFirstToAskHoldsTheKeyUntilItGoes();
    void keysDoNotMeet();
    void theSegmentIsOneByteOfTheCheck();
    void aRefusedCheckHoldsNothing();
    void theFamilyKeyGoesThroughTheVirtualCheck_data();
    void theFamilyKeyGoesThroughTheVirtualCheck();
    void theFamilyCheckIsVirtual();
    void messagesSpeakTheDefaultLanguage_data();
    void messagesSpeakTheDefaultLanguage();
    void anUnknownResultHasNoMessage_data();
    void anUnknownResultHasNoMessage();
    void anEmptyNameMeansTheApplications();
    void theNameIsTakenAsItStands();
    void messagesComeBackAfterTheirResourceWasDropped();
    void cleanup();

private:
    QTemporaryDir m_directory;
};

void AppCheckTest::initTestCase() {
    // A key belongs to a file in the temporary directory: one of its own keeps this test apart from
    // whatever else runs on the machine.
    QVERIFY(m_directory.isValid());
    qputenv("TMPDIR", QFile::encodeName(m_directory.path()));
    QCoreApplication::setApplicationName(u"Test program"_s);
}

void AppCheckTest::cleanup() {
    QLocale::setDefault(QLocale::c());
}

void AppCheckTest::theFirstToAskHoldsTheKeyUntilItGoes() {
    const QString key = u"AppCheckTest"_s;
    ClAppCheck second(u"Second"_s);
    {
        ClAppCheck first(u"First"_s);
        QCOMPARE(first.doIExist(key), ClAppCheck::Alone);
        QCOMPARE(second.doIExist(key), ClAppCheck::Running);
        // The refused check has not taken the key from its holder either.
        QCOMPARE(second.doIExist(key), ClAppCheck::Running);
    }
    QCOMPARE(second.doIExist(key), ClAppCheck::Alone);
}

void AppCheckTest::keysDoNotMeet() {
    ClAppCheck one(u"One"_s);
    ClAppCheck other(u"Other"_s);
    QCOMPARE(one.doIExist(u"AppCheckTest one"_s), ClAppCheck::Alone);
    QCOMPARE(other.doIExist(u"AppCheckTest other"_s), ClAppCheck::Alone);
}

void AppCheckTest::theSegmentIsOneByteOfTheCheck() {
    ClAppCheck check(u"One"_s);
    QVERIFY(check.findChildren<QSharedMemory*>().isEmpty());
    QCOMPARE(check.doIExist(u"AppCheckTest"_s), ClAppCheck::Alone);
    const auto segments = check.findChildren<QSharedMemory*>();
    QCOMPARE(segments.size(), 1);
    QCOMPARE(segments.first()->key(), u"AppCheckTest"_s);
    QCOMPARE(segments.first()->size(), 1);
    QVERIFY(segments.first()->isAttached());
}

void AppCheckTest::aRefusedCheckHoldsNothing() {
    ClAppCheck holder(u"Holder"_s);
    QCOMPARE(holder.doIExist(u"AppCheckTest"_s), ClAppCheck::Alone);
    ClAppCheck refused(u"Refused"_s);
    QCOMPARE(refused.doIExist(u"AppCheckTest"_s), ClAppCheck::Running);
    QVERIFY(!refused.findChild<QSharedMemory*>()->isAttached());
}

void AppCheckTest::theFamilyKeyGoesThroughTheVirtualCheck_data() {
    QTest::addColumn<int>("answer");
    QTest::newRow("alone") << 0;
    QTest::newRow("running") << 1;
    QTest::newRow("another user") << 2;
    QTest::newRow("not to be set up") << 3;
}

void AppCheckTest::theFamilyKeyGoesThroughTheVirtualCheck() {
    QFETCH(int, answer);
    RecordingCheck check(static_cast<ClAppCheck::emEXIST>(answer));
    ClAppCheck& base = check;
    QCOMPARE(static_cast<int>(base.doIExistXRK()), answer);
    QCOMPARE(check.keys, QStringList{u"__LUMENDESK_XRK_GLOBAL_MUTEX__"_s});
}

void AppCheckTest::theFamilyCheckIsVirtual() {
    OtherFamilyCheck check;
    ClAppCheck& base = check;
    QCOMPARE(base.doIExistXRK(), ClAppCheck::RunningElsewhere);
}

void AppCheckTest::messagesSpeakTheDefaultLanguage_data() {
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<int>("result");
    QTest::addColumn<QString>("message");
    const auto rows = [](const char* name, const QLocale& locale, const QStringList& messages) {
        for (int result = 0; result < messages.size(); ++result) {
            QTest::addRow("%s, %d", name, result) << locale << result << messages[result];
        }
    };
    const QStringList english{QString(), u"Nu is already running"_s,
                              u"Unable to start because another user is running Nu"_s,
                              u"Unable to initialize Nu"_s};
    rows("English", QLocale(QLocale::English), english);
    rows("Japanese", QLocale(QLocale::Japanese),
         {QString(), u"Nu はすでに起動しています"_s,
          u"ほかのユーザーが Nu を使用しているため、起動できません"_s, u"Nu を初期化できません"_s});
    rows("Chinese", QLocale(QLocale::Chinese),
         {QString(), u"Nu 已在运行"_s, u"其他用户正在运行 Nu，无法启动"_s, u"无法初始化 Nu"_s});
    rows("Chinese of Taiwan", QLocale(QLocale::Chinese, QLocale::Taiwan),
         {QString(), u"Nu 已在运行"_s});
    rows("French", QLocale(QLocale::French),
         {QString(), u"Nu est déjà en cours d’exécution"_s,
          u"Impossible de démarrer : un autre utilisateur exécute Nu"_s,
          u"Impossible d’initialiser Nu"_s});
    rows("German", QLocale(QLocale::German), english);
    rows("none", QLocale::c(), english);
}

void AppCheckTest::messagesSpeakTheDefaultLanguage() {
    QFETCH(QLocale, locale);
    QFETCH(int, result);
    QLocale::setDefault(locale);
    const ClAppCheck check(u"Nu"_s);
    QTEST(check.getErrorStringDef(static_cast<ClAppCheck::emEXIST>(result)), "message");
}

void AppCheckTest::anUnknownResultHasNoMessage_data() {
    QTest::addColumn<int>("result");
    QTest::newRow("one too high") << 4;
    QTest::newRow("far too high") << 0x7FFFFFFF;
    QTest::newRow("negative") << -1;
}

void AppCheckTest::anUnknownResultHasNoMessage() {
    QFETCH(int, result);
    const ClAppCheck check(u"Nu"_s);
    QVERIFY(check.getErrorStringDef(static_cast<ClAppCheck::emEXIST>(result)).isEmpty());
}

void AppCheckTest::anEmptyNameMeansTheApplications() {
    const ClAppCheck check{QString()};
    QCOMPARE(check.getErrorStringDef(ClAppCheck::Running), u"Test program is already running"_s);
}

void AppCheckTest::theNameIsTakenAsItStands() {
    const ClAppCheck check(u"50 %1 & co"_s);
    QCOMPARE(check.getErrorStringDef(ClAppCheck::Unavailable),
             u"Unable to initialize 50 %1 & co"_s);
}

void AppCheckTest::messagesComeBackAfterTheirResourceWasDropped() {
    QVERIFY(QFile::exists(u":/en/lang"_s));
    dropCatalogues();
    QVERIFY(!QFile::exists(u":/en/lang"_s));
    const ClAppCheck check(u"Nu"_s);
    QCOMPARE(check.getErrorStringDef(ClAppCheck::Running), u"Nu is already running"_s);
}

const TestSubject registered = subjectWithoutScreen<AppCheckTest>();
#include "AppCheckTest.moc"
