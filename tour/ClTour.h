// SPDX-License-Identifier: MIT
#pragma once

#include "tour/TourStops.h"

#include <QString>

#include <functional>
#include <utility>

class ClMainWidget;
class QWidget;

/// Walks through the tool as a user does, on whatever camera is on the bus, and calls on somebody
/// at everything it comes by. Main thread.
class ClTour {
public:
    /// Is handed the window or the dialog that is on show, and the name of the place. Returns
    /// whether the tour goes on.
    using Visitor = std::function<bool(QWidget& shown, const QString& name)>;

    /// @p window is shown, and no camera has been found yet.
    ClTour(ClMainWidget& window, Visitor visitor)
        : m_window(window),
          m_visitor(std::move(visitor)) {}

    /// @return whether every place was reached. Warns of what was missing.
    [[nodiscard]] bool run();

private:
    /// The stops behind @p shown, one after the other.
    [[nodiscard]] bool visitAll(const std::vector<stStop>& stops, QWidget& shown);
    [[nodiscard]] bool visitPage(const stStop& stop);
    [[nodiscard]] bool visitDialog(const stStop& stop, const QWidget& from);
    /// Waits until all is there in @p shown, calls on the visitor, and goes on to the inner stops.
    [[nodiscard]] bool visit(const stStop& stop, QWidget& shown);

    ClMainWidget& m_window;
    Visitor m_visitor;
};
