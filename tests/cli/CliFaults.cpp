// SPDX-License-Identifier: MIT
#include "tests/cli/CliFaults.h"

#include "tests/support/Patience.h"

#include <QTest>

#include <libusb.h>

#include <array>
#include <atomic>

namespace {

constexpr unsigned int SHORTER = 20;

std::atomic<unsigned int> g_timeoutDivisor = 1;

struct stCliFault {
    const char* name;
    nubo::simulator::Fault fault;
};

const std::array CLI_FAULTS = [] {
    using enum nubo::simulator::FaultKind;
    constexpr unsigned FOREVER = nubo::simulator::Fault::FOREVER;
    return std::array{
        stCliFault{"busy once", {.kind = Busy}},
        stCliFault{"busy", {.kind = Busy, .count = 3}},
        stCliFault{"stall once", {.kind = Stall}},
        stCliFault{"stall", {.kind = Stall, .count = 3}},
        stCliFault{"halt", {.kind = Halt}},
        stCliFault{"babble", {.kind = Babble, .count = 3}},
        stCliFault{"empty packet", {.kind = EmptyPacket}},
        stCliFault{"packet without head", {.kind = ShortPacket, .argument = 6}},
        stCliFault{"packet without values", {.kind = ShortPacket, .argument = 12}},
        stCliFault{"packet without its end", {.kind = ShortPacket, .argument = 18}},
        stCliFault{"overlong packet", {.kind = OverlongPacket}},
        stCliFault{"foreign id once", {.kind = ForeignId}},
        stCliFault{"foreign ids", {.kind = ForeignId, .count = FOREVER}},
        stCliFault{"camera error", {.kind = CameraError, .argument = 0xFFF9}},
        stCliFault{"wrong data head", {.kind = WrongDataHead}},
        stCliFault{"delay", {.kind = Delay, .argument = 20}},
        stCliFault{"time-out once", {.kind = Timeout}},
        stCliFault{"time-out", {.kind = Timeout, .count = 3}},
        stCliFault{"gone", {.kind = DeviceGone}},
        stCliFault{"unplugged", {.kind = UnplugBefore}},
    };
}();

}  // namespace

extern "C" {
int __real_libusb_bulk_transfer(libusb_device_handle*, unsigned char, unsigned char*, int, int*,
                                unsigned int);

int __wrap_libusb_bulk_transfer(libusb_device_handle* handle, unsigned char endpoint,
                                unsigned char* data, int length, int* transferred,
                                unsigned int timeout) {
    return __real_libusb_bulk_transfer(handle, endpoint, data, length, transferred,
                                       timeout / g_timeoutDivisor);
}
}

ShortTimeouts::ShortTimeouts() {
    g_timeoutDivisor = SHORTER;
}

ShortTimeouts::~ShortTimeouts() {
    g_timeoutDivisor = 1;
}

void addFaultRows(unsigned transfers) {
    QTest::addColumn<nubo::simulator::Fault>("fault");
    for (unsigned transfer = 1; transfer <= transfers; ++transfer) {
        for (const stCliFault& row : CLI_FAULTS) {
            nubo::simulator::Fault fault = row.fault;
            fault.nth = transfer;
            QTest::addRow("transfer %u: %s", transfer, row.name) << fault;
        }
    }
}

bool makesCameraLeave(const nubo::simulator::Fault& fault) {
    return fault.kind == nubo::simulator::FaultKind::DeviceGone ||
           fault.kind == nubo::simulator::FaultKind::UnplugBefore;
}

bool isLetGo(const nubo::simulator::VirtualUsbBus& bus, nubo::simulator::DeviceId id) {
    return bus.waitForLog(
        id, [](const nubo::simulator::DeviceLog& log) { return log.openHandles == 0; },
        std::chrono::milliseconds(PATIENCE_MS));
}
