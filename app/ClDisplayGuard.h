// SPDX-License-Identifier: MIT
#pragma once

/// Stands around the making of the application object: where no window can be opened, for want of a
/// display or of the plugin for it, the toolkit explains itself in many lines and aborts. The guard
/// ends the program instead, with one line on standard error and exit code 1. What the toolkit had
/// to say about a display that could be reached in the end, it says when the guard goes.
///
/// One at a time.
class ClDisplayGuard {
public:
    ClDisplayGuard();
    ~ClDisplayGuard();
    ClDisplayGuard(const ClDisplayGuard&) = delete;
    ClDisplayGuard& operator=(const ClDisplayGuard&) = delete;
};
