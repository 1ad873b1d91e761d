// SPDX-License-Identifier: MIT
//
// Filling the list of the search page: from the camera's answer until the list is on screen. Long
// lists are set against one of 64 access points.

#include "bench/ApListResults.h"
#include "bench/Output.h"
#include "bench/Statistics.h"
#include "pages/network/ClWidgetInfrastructureSearch.h"
#include "protocol/CommandIdentifiers.h"

#include <QApplication>

#include <cstdlib>

namespace {

constexpr int REPETITIONS = 15;
constexpr int SHORT = 64;
constexpr int MIDDLING = 256;
constexpr int LONG = 500;
constexpr double MICROSECONDS_PER_MILLISECOND = 1000;

VX_CMD answer(int count) {
    AccesspointList accesspoints;
    for (int number = 0; number < count; ++number) {
        accesspoints.append({QStringLiteral("Access point %1").arg(number),
                             {},
                             0,
                             number % 3 == 0 ? 0U : 4U,
                             0,
                             static_cast<quint32>(number % 100)});
    }
    return {{Key::CMD, USB_RES_NUBO_CMD_GET_ACCESSPOINT_LIST},
            {Key::PARAM2, QVariant::fromValue(accesspoints)}};
}

/// Has all that is due done, painting included.
void settle() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

/// A measurement in microseconds: how long it takes to fill the list with @p count access points.
auto filling(ClWidgetInfrastructureSearch& page, int count) {
    return [&page, list = answer(count), none = answer(0)] {
        page.slotReceiveCommand(none);
        settle();
        return bench::timed(1, [&] {
            page.slotReceiveCommand(list);
            settle();
        })();
    };
}

bench::stPairs<double> compareToShort(ClWidgetInfrastructureSearch& page, int count) {
    return bench::compare(REPETITIONS, filling(page, count), filling(page, SHORT));
}

/// How long a row takes, @p count of them against the short list.
QJsonObject perRow(const bench::stPairs<double>& fillings, int count) {
    bench::stPairs<double> rows = fillings;
    for (double& microseconds : rows.subject) {
        microseconds /= count;
    }
    for (double& microseconds : rows.yardstick) {
        microseconds /= SHORT;
    }
    return bench::ratioOf(rows, QStringLiteral("us"));
}

/// How long the whole list takes, whatever the short one does.
QJsonObject whole(const bench::stPairs<double>& fillings) {
    const auto milliseconds = fillings.map(
        [](double microseconds) { return microseconds / MICROSECONDS_PER_MILLISECOND; });
    return bench::relate(
        milliseconds, [](double subject, double) { return subject; }, QStringLiteral("ms"));
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    ClWidgetInfrastructureSearch page;
    page.resize(600, 466);
    page.show();
    settle();

    const bench::stPairs<double> middling = compareToShort(page, MIDDLING);
    const bench::stPairs<double> longest = compareToShort(page, LONG);
    bench::print({
        {bench::MIDDLING_ROWS, perRow(middling, MIDDLING)},
        {bench::LONG_ROWS, perRow(longest, LONG)},
        {bench::LONG_LIST, whole(longest)},
    });
    return EXIT_SUCCESS;
}
