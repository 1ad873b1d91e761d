// SPDX-License-Identifier: MIT
#pragma once

/// Lives while the application object is made. Where no window can be opened, for want of a display
/// or of the plugin for it, the toolkit logs many lines and aborts; the guard ends the program
/// instead, with one line on standard error and exit code 1. Warnings of the toolkit about a
/// display that opens after all are logged when the guard is destroyed.
///
/// One at a time.
class ClDisplayGuard {
public:
    ClDisplayGuard();
    ~ClDisplayGuard();
    ClDisplayGuard(const ClDisplayGuard&) = delete;
    ClDisplayGuard& operator=(const ClDisplayGuard&) = delete;
};
