// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// The pair of bulk pipes to a camera, as transactions see it. USB thread only.
class ClBulkPort {
public:
    virtual ~ClBulkPort() = default;

    /// One bulk write of all of @p data with a time-out in milliseconds.
    /// @return the number of bytes written, a transport code from 0xEF00 to 0xEF05, or a negative
    /// value when nothing could be tried.
    virtual int write(const QByteArray& data, int timeoutMs, unsigned char endpoint) = 0;

    /// One bulk read of at most 1024 bytes with a time-out in milliseconds.
    /// @param status is left alone on success, so the caller sets it beforehand; a failure stores a
    /// transport code, or a negative value when nothing could be tried.
    /// @return what arrived; empty on failure
    virtual QByteArray read(int timeoutMs, unsigned char endpoint, int* status) = 0;
};
