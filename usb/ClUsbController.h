// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/ClBulkPort.h"
#include "usb/LibusbOwners.h"

#include <QList>
#include <QObject>

/// One attached camera: claims the first interface that can be claimed and does single bulk reads
/// and writes on its endpoints.
///
/// Created, owned and deleted by the USB manager, used on its worker thread only. It is opened
/// once; when it closes (on request, because the device has gone, or on destruction) it emits
/// sigClose() once, and the manager then deletes it, even in the middle of a read or write.
class ClUsbController : public QObject, public ClBulkPort {
    Q_OBJECT

public:
    /// @p device is only borrowed; the manager holds a reference to it as long as it is on the bus.
    explicit ClUsbController(libusb_device* device);
    ~ClUsbController() override;

    /// Opens the device and claims an interface. @return 0 or a negative libusb error; the device
    /// is closed again after an error.
    [[nodiscard]] int open();
    /// Releases the interface, closes the device and emits sigClose(). Does nothing when not open.
    void close();
    [[nodiscard]] bool isOpened() const { return m_isOpened; }
    [[nodiscard]] libusb_device* device() const { return m_device; }

    /// Claims the first interface that can be claimed and collects the endpoint addresses of all
    /// its alternate settings; part of open(). @return 0, or a negative libusb error:
    /// LIBUSB_ERROR_NOT_FOUND when no interface with an endpoint could be claimed.
    [[nodiscard]] int findEndpoints();
    /// Why no interface could be claimed: libusb's error of the latest refusal, or
    /// LIBUSB_ERROR_NOT_FOUND when there was nothing to refuse. Tells a user more than open().
    [[nodiscard]] int claimError() const { return m_claimError; }
    /// The endpoint to use for @p endpoint: itself if the camera has it, else the camera's first
    /// one of the same direction (bit 7, set for IN), else 0.
    [[nodiscard]] unsigned char getEndPoint(unsigned char endpoint) const;

    /// One bulk read of at most 1024 bytes from the first endpoint of the direction of @p endpoint.
    /// A failure returns nothing, even if bytes had arrived, and stores 0xEF00 (device gone),
    /// 0xEF02 (busy), 0xEF03 (time-out), 0xEF05 (else) or -4 (not open, no endpoint) in @p error,
    /// which may be null.
    [[nodiscard]] QByteArray read(int timeoutMs, unsigned char endpoint, int* error) override;
    /// One bulk write of all of @p data to the first OUT endpoint, whatever @p endpoint says.
    /// @return the number of bytes that went out, also after a failure: a failed write shows in a
    /// count that differs from the size. -4 when not open or without an OUT endpoint.
    [[nodiscard]] int write(const QByteArray& data, int timeoutMs, unsigned char endpoint) override;
    /// Why the latest write failed, as a code of read(); 0 when it did not, or was not tried.
    [[nodiscard]] unsigned short writeError() const { return m_writeError; }

Q_SIGNALS:
    void sigClose(ClUsbController* controller);

private:
    /// Claims the first interface of @p config that can be claimed. @return whether there is one.
    bool claimInterface(const libusb_config_descriptor& config);
    /// Claims @p interface once for each of its settings, until it is refused. @return whether the
    /// first claim succeeded.
    bool claimSettings(int number, const libusb_interface& interface);

    libusb_device* m_device;
    LibusbHandle m_handle;
    QList<unsigned char> m_endpointList;  ///< addresses in the order of the descriptors
    QList<int> m_claimedInterfaces;       ///< one entry for each successful claim
    int m_claimError = LIBUSB_ERROR_NOT_FOUND;
    unsigned short m_writeError = 0;
    bool m_isOpened = false;
};
