// SPDX-License-Identifier: MIT
#include "tests/app/BusBench.h"

#include "ui/ClButtonMode.h"

#include <QStackedLayout>
#include <QTest>

using namespace nubo::simulator;

BusBench::BusBench(VirtualUsbBus& virtualBus)
    : bus(virtualBus),
      id(bus.plug(camera)),
      window(SHORT_USB_TIMES) {}

BusBench::~BusBench() {
    bus.settle();
    bus.unplug(id);
}

bool BusBench::start() {
    window.show();
    return modeOnShow() == 0 && waitForMode(1) &&
           QTest::qWaitFor([this] { return shown().freeSpace() == CARD_AT_START; }, PATIENCE_MS);
}

bool BusBench::replug() const {
    return bus.waitForPlugged(id, false, std::chrono::milliseconds(PATIENCE_MS)) && bus.replug(id);
}

int BusBench::modeOnShow() const {
    return window.findChild<QStackedLayout*>()->currentIndex();
}

bool BusBench::waitForMode(int mode) const {
    return QTest::qWaitFor([&] { return modeOnShow() == mode; }, PATIENCE_MS);
}

bool BusBench::settle() const {
    bus.clearFaults(id);
    clickMode(1);
    // Entering the page has emptied it; the card comes last.
    return QTest::qWaitFor([this] { return !shown().freeSpace().startsWith(u"--"); }, PATIENCE_MS);
}

void BusBench::clickMode(int mode) const {
    QTest::mouseClick(window.findChildren<ClButtonMode*>().at(mode - 1), Qt::LeftButton);
}
