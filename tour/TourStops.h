// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
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
    std::function<bool(const QWidget& shown)> enter;
    /// Whether all that the place shows is there.
    bool (*isReady)(const QWidget& shown);
    std::vector<stStop> inner = {};
    const char* button = nullptr;  ///< what the button is called that leads here, untranslated
};

/// Everything that the tool shows while a camera is connected, in the order of the modes.
[[nodiscard]] std::vector<stStop> tourStops();
