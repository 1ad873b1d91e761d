// SPDX-License-Identifier: MIT
//
// Walks through the program's window. What it prints is for walks.py, which runs it.

#include "app/ClMainWidget.h"
#include "pages/state/ClWidgetCameraState.h"
#include "simulator/RootHub.h"
#include "simulator/VirtualUsbBus.h"
#include "tests/endurance/LivingObjects.h"
#include "tests/endurance/OpenFiles.h"
#include "tests/endurance/WalkingUser.h"
#include "tests/endurance/WitnessCamera.h"
#include "tests/support/CameraStateReader.h"
#include "tests/support/Patience.h"
#include "tests/support/ShortUsbTimes.h"
#include "tests/support/TestSubject.h"
#include "ui/ClButtonMode.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QStackedLayout>

#include <cstdio>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;
using namespace nubo::simulator;

namespace {

/// What a walk that only looks may change: it clicks on buttons that write.
const QStringList CLICKED{u"time"_s, u"wifi"_s, u"wifi-mode"_s, u"sd-free"_s, u"sd-used"_s};

/// What Qt makes when it is first needed, and keeps until the program ends.
const QStringList LASTING{u"QAbstractItemModel"_s, u"QClipboard"_s,  u"QFactoryLoader"_s,
                          u"QGifPlugin"_s,         u"QICOPlugin"_s,  u"QInputDevice"_s,
                          u"QInputMethod"_s,       u"QJpegPlugin"_s, u"QKeyMapper"_s,
                          u"QPanGesture"_s};

/// Longer than one transfer waits.
constexpr int ENTERING_MS = 4000;

QString differences(const QMap<QString, QString>& before, const QMap<QString, QString>& after) {
    QStringList texts;
    for (const auto& [name, value] : after.asKeyValueRange()) {
        if (before.value(name) != value && !CLICKED.contains(name)) {
            texts.append(name + u": "_s + before.value(name) + u" -> "_s + value);
        }
    }
    return texts.join(u"; "_s);
}

QMap<QString, int> leftOver(quint64 mark) {
    QMap<QString, int> left = LivingObjects::since(mark);
    for (const QString& name : LASTING) {
        left.remove(name);
    }
    return left;
}

class Walker {
public:
    explicit Walker(VirtualUsbBus& bus) : m_bus(bus), m_id(bus.plug(m_camera)) {}
    ~Walker() { m_bus.settle(); }
    Walker(const Walker&) = delete;
    Walker& operator=(const Walker&) = delete;

    /// Opens and closes a window.
    [[nodiscard]] QString takeFirst() { return walkThrough({}); }

    /// Takes a walk in a new window. @return what is wrong afterwards, or nothing
    [[nodiscard]] QString take(const Walk& walk) {
        m_camera->setState({});
        static_cast<void>(m_camera->takeRefused());
        m_bus.clearFaults(m_id);
        m_bus.replug(m_id);
        const QMap<QString, QString> before = m_camera->items();
        const QStringList filesBefore = openFiles();
        const quint64 mark = LivingObjects::mark();

        QString complaint = walkThrough(walk);
        if (complaint.isEmpty()) {
            complaint = complainAboutCamera(walk, before);
        }
        if (complaint.isEmpty()) {
            complaint = complainAboutLeftovers(mark, filesBefore);
        }
        return complaint;
    }

private:
    [[nodiscard]] QString walkThrough(const Walk& walk) {
        ClMainWidget window(SHORT_USB_TIMES);
        const auto* const pages = window.findChild<QStackedLayout*>();
        const CameraStateReader state(*window.findChild<ClWidgetCameraState*>());
        window.show();
        {
            WalkingUser user(window, m_bus, m_id);
            if (!user.closeAllUntil([&] { return pages->currentIndex() == 1; })) {
                return u"the camera was not found"_s;
            }
            user.take(walk);
            m_bus.clearFaults(m_id);
            m_bus.settle();
            const bool isPlugged = m_bus.deviceNumber(m_id).has_value();
            const auto fits = [&] { return (pages->currentIndex() != 0) == isPlugged; };
            if (!user.closeAllUntil(fits)) {
                return u"page %1 does not fit a camera that is plugged %2"_s
                    .arg(pages->currentIndex())
                    .arg(isPlugged ? u"in"_s : u"out"_s);
            }
            m_bus.replug(m_id);
            // What still fails of the walk's requests keeps the page from reading on until it is
            // entered again.
            QDeadlineTimer nextEntering;
            const bool isAnswered = user.closeAllUntil([&] {
                if (pages->currentIndex() != 0 && nextEntering.hasExpired()) {
                    window.findChildren<ClButtonMode*>().first()->click();
                    nextEntering.setRemainingTime(ENTERING_MS);
                }
                return pages->currentIndex() == 1 && !state.freeSpace().startsWith(u"--");
            });
            if (!isAnswered) {
                return u"the camera's state does not come"_s;
            }
        }
        return {};
    }

    [[nodiscard]] QString complainAboutCamera(const Walk& walk,
                                              const QMap<QString, QString>& before) {
        if (const QStringList refused = m_camera->takeRefused(); !refused.isEmpty()) {
            return u"the camera refused "_s + refused.join(u", "_s);
        }
        const QMap<QString, QString> after = m_camera->items();
        if (const QString changed = differences(before, after);
            onlyLooks(walk) && !changed.isEmpty()) {
            return u"nobody has changed "_s + changed;
        }
        for (const auto& [name, value] : after.asKeyValueRange()) {
            const CameraItem* item = cameraItem(name.toStdString());
            if (!item->allowed.empty() &&
                !m_camera->set(name.toStdString(), value.toLatin1().toStdString())) {
                return u"no camera has "_s + name + u": "_s + value;
            }
        }
        return {};
    }

    [[nodiscard]] QString complainAboutLeftovers(quint64 mark, const QStringList& filesBefore) {
        // What deletes itself does so in the event loop.
        const auto isClean = [&] {
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            return openFiles() == filesBefore && leftOver(mark).isEmpty();
        };
        static_cast<void>(QTest::qWaitFor(isClean, PATIENCE_MS));
        // The libraries, the emulated bus among them, open something for good when they first need
        // it: what the program leaves open is there a second time.
        if (openFiles() != filesBefore && std::exchange(m_hasOpenedForGood, true)) {
            return u"open before: %1, and now: %2"_s.arg(filesBefore.join(u", "_s),
                                                         openFiles().join(u", "_s));
        }
        // So does Qt with objects of its own.
        const QMap<QString, int> left = leftOver(mark);
        QStringList texts;
        for (const auto& [name, count] : left.asKeyValueRange()) {
            if (!name.startsWith(u'Q') || m_keptClasses.contains(name)) {
                texts.append(u"%1 %2"_s.arg(count).arg(name));
            }
            m_keptClasses.append(name);
        }
        return texts.isEmpty() ? QString() : u"left over: "_s + texts.join(u", "_s);
    }

    VirtualUsbBus& m_bus;
    std::shared_ptr<WitnessCamera> m_camera = std::make_shared<WitnessCamera>();
    DeviceId m_id;
    bool m_hasOpenedForGood = false;
    QStringList m_keptClasses;
};

void tell(const char* what, const QString& text) {
    std::printf("%s %s\n", what, qPrintable(text));
    std::fflush(stdout);
}

/// `WindowWalk FIRST LAST` takes the walks of these seeds, and `WindowWalk STEPS TIMES` a written
/// one so many times.
int runWalks(int argc, char** argv) {
    VirtualUsbBus bus;
    plugRootHub(bus);
    const LivingObjects objects;
    const QApplication application(argc, argv);
    installAccessibility();
    QCoreApplication::setApplicationName(QStringLiteral("Test program"));
    QApplication::setQuitOnLastWindowClosed(false);
    Walker walker(bus);
    // What is made once for all windows is there from now on.
    if (const QString complaint = walker.takeFirst(); !complaint.isEmpty()) {
        tell("failed", complaint);
        return 1;
    }
    if (argc != 3) {
        tell("failed", u"there is no walk to take"_s);
        return 2;
    }
    const Walk written = walkFromText(QString::fromLatin1(argv[1]));
    const unsigned first = written.isEmpty() ? QString::fromLatin1(argv[1]).toUInt() : 1;
    const unsigned last = QString::fromLatin1(argv[2]).toUInt();
    for (unsigned seed = first; seed <= last; ++seed) {
        const Walk walk = written.isEmpty() ? randomWalk(seed) : written;
        tell("walk", walkText(walk));
        if (const QString complaint = walker.take(walk); !complaint.isEmpty()) {
            tell("failed", complaint);
            return 1;
        }
        tell("passed", {});
    }
    return 0;
}

const TestSubject registered("WindowWalk", runWalks);

}  // namespace
