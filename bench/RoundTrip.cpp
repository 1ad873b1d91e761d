// SPDX-License-Identifier: MIT
//
// A request on its way from a page to the worker thread and back as a reply, the camera answering
// at once, against two bare queued signals between the same threads that carry the same maps.

#include "bench/Output.h"
#include "bench/ScriptedCamera.h"
#include "bench/Statistics.h"
#include "protocol/CommandIdentifiers.h"
#include "ui/ClWidgetBase.h"

#include <QApplication>
#include <QEventLoop>
#include <QThread>

#include <cstdlib>

namespace {

constexpr int BLOCKS = 31;
constexpr int TRIPS = 2000;

/// Makes trips one after the other, each beginning when the one before has ended.
class Trips {
public:
    template <class Start>
    void run(Start start) {
        m_left = TRIPS;
        start();
        m_loop.exec();
    }

    /// A trip has ended. @return whether another one is to begin
    [[nodiscard]] bool goesOn() {
        if (--m_left == 0) {
            m_loop.quit();
        }
        return m_left > 0;
    }

private:
    QEventLoop m_loop;
    int m_left = 0;
};

/// Asks for the battery again as soon as the answer has come.
class Page : public ClWidgetBase {
    Q_OBJECT

public:
    void run() {
        m_trips.run([this] { ask(); });
    }
    [[nodiscard]] const VX_CMD& lastAnswer() const { return m_lastAnswer; }

public Q_SLOTS:
    void slotReceiveCommand(const VX_CMD& clCommand) override {
        m_lastAnswer = clCommand;
        if (m_trips.goesOn()) {
            ask();
        }
    }

private:
    void ask() { sendUsbCommand(USB_REQ_NUBO_CMD_GET_BATTERY); }

    Trips m_trips;
    VX_CMD m_lastAnswer;
};

/// The main window's part: stamps the open camera onto requests, passes on its answers.
class Switchboard : public QObject {
    Q_OBJECT

public:
    explicit Switchboard(void* controller) : m_controller(controller) {}

Q_SIGNALS:
    void sigSendCommand(const VX_CMD& clCommand);
    void sigReceiveCommand(const VX_CMD& clCommand);

public Q_SLOTS:
    void slotSendCommand(VX_CMD clCommand) {
        clCommand.insert(Key::PARAM1, QVariant::fromValue(m_controller));
        Q_EMIT sigSendCommand(clCommand);
    }
    void slotReceiveCommand(const VX_CMD& clCommand) {
        if (clCommand.value(Key::PARAM1).value<void*>() == m_controller) {
            Q_EMIT sigReceiveCommand(clCommand);
        }
    }

private:
    void* const m_controller;
};

/// Sends a map over when one has come; one end on each thread.
class BareEnd : public QObject {
    Q_OBJECT

public:
    void setMap(const VX_CMD& map) { m_map = map; }
    void run() {
        m_trips.run([this] { Q_EMIT sigMap(m_map); });
    }

Q_SIGNALS:
    void sigMap(const VX_CMD& map);

public Q_SLOTS:
    void slotBegin(const VX_CMD& /*map*/) {
        if (m_trips.goesOn()) {
            Q_EMIT sigMap(m_map);
        }
    }
    void slotReturn(const VX_CMD& /*map*/) { Q_EMIT sigMap(m_map); }

private:
    Trips m_trips;
    VX_CMD m_map;
};

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    registerCommandTypes();

    Page page;
    bench::ScriptedCamera camera;
    Switchboard switchboard(camera.camera());
    QObject::connect(&page, &Page::sigSendCommand, &switchboard, &Switchboard::slotSendCommand);
    QObject::connect(&switchboard, &Switchboard::sigSendCommand, &camera,
                     &bench::ScriptedCamera::slotReceiveCommand);
    QObject::connect(&camera, &bench::ScriptedCamera::sigSendCommand, &switchboard,
                     &Switchboard::slotReceiveCommand);
    QObject::connect(&switchboard, &Switchboard::sigReceiveCommand, &page,
                     &Page::slotReceiveCommand);

    BareEnd near;
    BareEnd far;
    QObject::connect(&near, &BareEnd::sigMap, &far, &BareEnd::slotReturn);
    QObject::connect(&far, &BareEnd::sigMap, &near, &BareEnd::slotBegin);

    QThread worker;
    camera.moveToThread(&worker);
    far.moveToThread(&worker);
    worker.start();

    VX_CMD request;
    const auto watch = QObject::connect(&switchboard, &Switchboard::sigSendCommand, &switchboard,
                                        [&request](const VX_CMD& sent) { request = sent; });
    page.run();
    QObject::disconnect(watch);
    near.setMap(request);
    far.setMap(page.lastAnswer());

    const auto perTrip = [](const auto& trips) {
        return [time = bench::timed(1, trips)] { return time() / TRIPS; };
    };
    const bench::stPairs<double> pairs =
        bench::compare(BLOCKS, perTrip([&page] { page.run(); }), perTrip([&near] { near.run(); }));
    worker.quit();
    worker.wait();

    if (getCommand(page.lastAnswer()) != USB_RES_NUBO_CMD_GET_BATTERY) {
        return EXIT_FAILURE;
    }
    bench::print(bench::ratioOf(pairs, QStringLiteral("us")));
    return EXIT_SUCCESS;
}

#include "RoundTrip.moc"
