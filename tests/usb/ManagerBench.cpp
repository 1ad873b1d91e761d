// SPDX-License-Identifier: MIT
#include "tests/usb/ManagerBench.h"

#include "protocol/CommandIdentifiers.h"
#include "simulator/RootHub.h"

#include <QDateTime>
#include <QTest>

#include <filesystem>

using namespace nubo::simulator;

ManagerBench::ManagerBench(Hub hub, const stUsbTimes& times)
    : manager(std::make_unique<ClUsbManager>(nullptr, times)),
      ui(*manager) {
    if (hub == Hub::PluggedIn) {
        plugRootHub(bus);
    }
}

DeviceId ManagerBench::plugCamera(const DeviceOptions& options, std::uint32_t charge) {
    auto camera = std::make_shared<SteadyCamera>();
    CameraState state = camera->state();
    state.battery.charge = charge;
    camera->setState(state);
    return bus.plug(camera, options);
}

int ManagerBench::start() const {
    return manager->initialize({CAMERA});
}

int ManagerBench::search() const {
    return runOnWorker([this] { return manager->openDevice(); });
}

bool ManagerBench::waitForHandles(DeviceId id, int handles) const {
    return QTest::qWaitFor([&] { return bus.log(id).openHandles == handles; }, PATIENCE_MS);
}

std::map<unsigned int, ClUsbController*> ManagerBench::controllersByCharge() {
    std::map<unsigned int, ClUsbController*> controllers;
    for (ClUsbController* const controller : ui.opened()) {
        const VX_CMD answer = ui.ask(USB_REQ_NUBO_CMD_GET_BATTERY, controller);
        controllers[answer.value(Key::PARAM3).toUInt()] = controller;
    }
    return controllers;
}

DeviceOptions deviceOfIdentity(stVendorProduct identity) {
    DeviceOptions options;
    options.description.vendorId = identity.usVendorId;
    options.description.productId = identity.usProductId;
    return options;
}

void waitForAnotherId() {
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    while (QDateTime::currentMSecsSinceEpoch() == now) {
        QThread::usleep(100);
    }
}

qsizetype openFileCount() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}
