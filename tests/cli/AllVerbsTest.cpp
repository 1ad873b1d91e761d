// SPDX-License-Identifier: MIT
#include "cli/Verb.h"
#include "tests/cli/CliBench.h"
#include "tests/support/TestSubject.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <string_view>

using namespace nubo::simulator;
using namespace Qt::StringLiterals;

namespace {

/// A verb with --all, and what has become of every camera then. "@" stands for the folder of
/// files, "{k}" for the number of the camera from 1.
struct stRow {
    const char* words;
    int exit = 0;
    const char* item = nullptr;
    const char* value = nullptr;
    const char* file = nullptr;  ///< that every camera leaves
};

// In an order in which each finds what it changes.
constexpr std::array ROWS{
    stRow{"list"},
    stRow{"info"},
    stRow{"status"},
    stRow{"get"},
    stRow{"descriptors"},
    stRow{"set camera.name=Tern live.rtsp-port=8554", 0, "camera-name", "Tern"},
    stRow{"diff @fleet.nubo", 1},
    stRow{"apply @fleet.nubo --dry-run", 0, "camera-name", "Tern"},
    stRow{"apply @fleet.nubo", 0, "camera-name", "Deck{k}"},
    stRow{"diff @fleet.nubo"},
    stRow{"export @{serial}.nubo", 0, nullptr, nullptr, "S{k}.nubo"},
    stRow{"wifi scan"},
    stRow{"wifi join Pier", 0, "infra-ssid", "Pier"},
    stRow{"wifi off", 0, "wifi", "off"},
    stRow{"wifi on", 0, "wifi", "on"},
    stRow{"record start", 0, "recording", "on"},
    stRow{"record stop", 0, "recording", "off"},
    stRow{"picture @{serial}.jpg", 0, nullptr, nullptr, "S{k}.jpg"},
    stRow{"picture @{n}.jpg --every 0.01 --count 2", 0, nullptr, nullptr, "{k}-0002.jpg"},
    stRow{"audio @{n}.audio", 0, nullptr, nullptr, "{k}.audio"},
    stRow{"stream-url --host cam.local"},
    stRow{"stream-url", 1},
    stRow{"sd"},
    stRow{"sd format --yes", 0, "sd-used", "0"},
    stRow{"clock"},
    stRow{"clock sync"},
    stRow{"raw 5849 1 --expert", 0, "image-quality", "1"},
    stRow{"firmware"},
    stRow{"firmware update @image --dry-run", 0, "firmware-version", "1.00"},
    stRow{"firmware update @image --yes --wait-back=60", 0, "firmware-version", "2.00"},
    stRow{"restart --wait-back"},
    stRow{"reset --yes", 0, "camera-name", "Gull"},
    stRow{"set camera.name", 2},
    stRow{"export @one.nubo", 2},
    stRow{"picture @one.jpg", 2},
    stRow{"poweroff"},
    stRow{"get", 3},
};

}  // namespace

/// Every verb with --all, for two cameras and for sixteen.
class AllVerbsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyVerbForCamerasHasARow();
    void anOptionTakesItsValueAlikeInEveryVerb();
    void everyCameraIsServed_data();
    void everyCameraIsServed();
    void peopleSeeWhichCameraALineIsOf();

private:
    static QString numbered(const char* text, int number) {
        return QString::fromLatin1(text).replace(u"{k}"_s, QString::number(number));
    }
    [[nodiscard]] QStringList wordsOf(const stRow& row) const {
        QStringList words = QString::fromLatin1(row.words).split(u' ');
        words.replaceInStrings(u"@"_s, m_folder->path() + u'/');
        return QStringList{u"--all"_s, u"--json"_s} + words;
    }
    void write(const char* name, const QByteArray& content) const {
        QFile file(m_folder->filePath(QLatin1String(name)));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    }
    void verifyTold(const stRow& row, const stRunResult& run, qsizetype cameras) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void AllVerbsTest::everyVerbForCamerasHasARow() {
    for (const stVerb& verb : verbs()) {
        const bool takesAll =
            verb.camera == VerbCamera::One || verb.name == "list" || verb.name == "descriptors";
        const bool hasRow = std::ranges::any_of(ROWS, [&verb](const stRow& row) {
            return QString::fromLatin1(row.words).section(u' ', 0, 0) == toText(verb.name);
        });
        QVERIFY2(!takesAll || hasRow, verb.name.data());
    }
}

void AllVerbsTest::anOptionTakesItsValueAlikeInEveryVerb() {
    QMap<QString, bool> mayStandAlone;
    const auto verify = [&](std::span<const stOption> options) {
        for (const stOption& option : options) {
            const QString name = toText(option.name);
            const bool isOptional = option.value.empty() || !option.implied.empty();
            QVERIFY2(mayStandAlone.value(name, isOptional) == isOptional, option.name.data());
            mayStandAlone.insert(name, isOptional);
        }
    };
    verify(commonOptions());
    for (const stVerb& verb : verbs()) {
        verify(verb.options);
    }
    QVERIFY(mayStandAlone.value(u"--wait-back"_s) && !mayStandAlone.value(u"--every"_s, true));
}

void AllVerbsTest::everyCameraIsServed_data() {
    QTest::addColumn<int>("count");
    QTest::newRow("two") << 2;
    QTest::newRow("sixteen") << 16;
}

void AllVerbsTest::verifyTold(const stRow& row, const stRunResult& run, qsizetype cameras) const {
    const QByteArray what = row.words + QByteArray(": ") + run.err.toUtf8() + run.out.toUtf8();
    QVERIFY2(run.exit == row.exit, what);
    const QStringList lines = run.out.split(u'\n', Qt::SkipEmptyParts);
    const bool isOfCameras = row.exit < 2;
    QVERIFY2(lines.size() == (isOfCameras ? cameras : 1), what);
    QSet<QString> ports;
    for (const QString& line : lines) {
        const QJsonObject object = QJsonDocument::fromJson(line.toUtf8()).object();
        QVERIFY2(object["schema"_L1] == u"nubo/1"_s, what);
        ports.insert(object["camera"_L1]["port"_L1].toString());
    }
    QVERIFY2(ports.size() == lines.size(), what);
}

void AllVerbsTest::everyCameraIsServed() {
    QFETCH(const int, count);
    m_folder = std::make_unique<QTemporaryDir>();
    write("fleet.nubo", "camera.name = Deck{n}\n");
    write("image", "an image");
    CliBench bench;
    std::vector<std::shared_ptr<RecordingCamera>> cameras;
    for (int k = 1; k <= count; ++k) {
        DeviceOptions options;
        options.restartDelay = std::chrono::milliseconds(50);
        cameras.push_back(bench.plug(options));
        QVERIFY(cameras.back()->set("serial-number", numbered("S{k}", k).toStdString()));
        QVERIFY(cameras.back()->set("audio-size", "9"));
        QVERIFY(cameras.back()->set("firmware-next", "2.00"));
    }
    for (const stRow& row : ROWS) {
        const stRunResult run = CliBench::run(wordsOf(row));
        verifyTold(row, run, count);
        for (int k = 1; k <= count && row.item != nullptr; ++k) {
            QCOMPARE(cameras[static_cast<std::size_t>(k) - 1]->item(row.item),
                     numbered(row.value, k));
        }
        for (int k = 1; k <= count && row.file != nullptr; ++k) {
            QVERIFY2(QFile::exists(m_folder->filePath(numbered(row.file, k))), row.words);
        }
        if (QTest::currentTestFailed()) {
            return;
        }
        if (row.words == std::string_view("poweroff")) {
            for (const DeviceId id : bench.ids) {
                QVERIFY(bench.bus.waitForPlugged(id, false, std::chrono::seconds(30)));
            }
        }
    }
}

void AllVerbsTest::peopleSeeWhichCameraALineIsOf() {
    CliBench bench;
    QVERIFY(bench.plug()->set("serial-number", "S1"));
    QVERIFY(bench.plug()->set("serial-number", "S2"));
    bench.bus.addFault(
        bench.ids[1],
        {.kind = FaultKind::CameraError, .argument = 0xFFF9, .unit = FaultUnit::Command, .nth = 3});
    const stRunResult run = CliBench::run({u"--all"_s, u"get"_s, u"camera.name"_s});
    QCOMPARE(run.exit, 8);
    QCOMPARE(run.out, u"# camera S1 at 1-2\ncamera.name = Gull\n\n"_s);
    QVERIFY2(run.err.contains(u"nuboctl: S2: camera.name: the camera refuses"_s),
             qPrintable(run.err));
}

const TestSubject registered = subjectWithoutApplication<AllVerbsTest>();
#include "AllVerbsTest.moc"
