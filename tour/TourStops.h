// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

class QWidget;

enum class eStop {
    Page,     ///< of the window
    SubPage,  ///< of a page; its last button leads back
    Dialog,   ///< or box; Escape leads back
};

/// A place that the tour comes by, and the places behind it.
struct stStop {
    eStop kind;
    const char* name;
    /// Does in the window or dialog on show what a user does to get there. Returns whether that was
    /// possible, perhaps only after a dialog has been closed.
    bool (*enter)(const QWidget& shown);
    /// Whether all that the place shows is there.
    bool (*isReady)(const QWidget& shown);
    std::vector<stStop> inner;
};

/// Everything that the tool shows while a camera is connected, in the order of the modes.
[[nodiscard]] std::vector<stStop> tourStops();
