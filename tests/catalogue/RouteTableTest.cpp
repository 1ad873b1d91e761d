// SPDX-License-Identifier: MIT
#include "protocol/CommandIdentifiers.h"
#include "protocol/CommandRoutes.h"
#include "tests/support/TestSubject.h"

#include <QMap>
#include <QSet>
#include <QTest>

namespace {

/// What the names of the identifiers say: whether a page can ask with one.
bool isRequest(const stCommandIdentifier& identifier) {
    const QByteArray name(identifier.name);
    return identifier.uuid == WifiOnOffRequest::USB_RES_NUBO_CMD_GET_WIFI_ONOFF ||
           name.startsWith("USB_REQ_") ||
           (name.startsWith("USB_NUBO_CMD_") && name != "USB_NUBO_CMD_RESPONSE");
}

bool isAnswer(const stCommandIdentifier& identifier) {
    const QByteArray name(identifier.name);
    return !isRequest(identifier) &&
           (name.startsWith("USB_RES_") || name.startsWith("USB_CMD_RES_"));
}

QString answerNameOf(const QString& request) {
    if (request.startsWith(QStringLiteral("USB_NUBO_CMD_REQ_"))) {
        return QString(request).replace(QStringLiteral("NUBO_CMD_REQ_"),
                                        QStringLiteral("CMD_RES_"));
    }
    return QString(request).replace(QStringLiteral("USB_REQ_"), QStringLiteral("USB_RES_"));
}

/// The item of a get or set identifier, spelled in one way.
QString itemOf(const QString& name, const QString& prefix) {
    const QString item = name.mid(prefix.size());
    return item == QStringLiteral("WIFI_MODE") ? QStringLiteral("WIFIMODE") : item;
}

/// The codes of the routes whose identifier begins with @p prefix, by item.
QMap<QString, unsigned short> codesOf(const QString& prefix) {
    QMap<QString, unsigned short> codes;
    for (const stRoute& route : commandRoutes()) {
        const QString name = getUsbCommand(route.request);
        if (name.startsWith(prefix)) {
            codes.insert(itemOf(name, prefix), route.code);
        }
    }
    return codes;
}

}  // namespace

/// The table of routes against the names of the identifiers.
class RouteTableTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyRequestHasOneRouteAndNothingElseHas();
    void everyAnswerHasItsRequest();
    void answersAreTheTwinsOfTheirRequests();
    void setsAndOrdersHaveNoAnswer();
    void noCodeIsUsedTwice();
    void setCodesStandBesideTheirGetCodes();
};

void RouteTableTest::everyRequestHasOneRouteAndNothingElseHas() {
    for (const stCommandIdentifier& identifier : commandIdentifiers()) {
        const auto count = std::ranges::count(commandRoutes(), identifier.uuid, &stRoute::request);
        QVERIFY2(count == (isRequest(identifier) ? 1 : 0), identifier.name);
    }
}

void RouteTableTest::everyAnswerHasItsRequest() {
    for (const stCommandIdentifier& identifier : commandIdentifiers()) {
        const auto count = std::ranges::count(commandRoutes(), identifier.uuid, &stRoute::answer);
        QVERIFY2(count == (isAnswer(identifier) ? 1 : 0), identifier.name);
    }
}

void RouteTableTest::answersAreTheTwinsOfTheirRequests() {
    for (const stRoute& route : commandRoutes()) {
        if (!route.answer.isNull()) {
            QVERIFY(route.answer != route.request);
            QCOMPARE(getUsbCommand(route.answer), answerNameOf(getUsbCommand(route.request)));
        }
    }
}

void RouteTableTest::setsAndOrdersHaveNoAnswer() {
    for (const stRoute& route : commandRoutes()) {
        const QString name = getUsbCommand(route.request);
        const bool asks = !name.startsWith(QStringLiteral("USB_NUBO_CMD_")) ||
                          name.startsWith(QStringLiteral("USB_NUBO_CMD_REQ_"));
        QVERIFY2(route.answer.isNull() != asks, qPrintable(name));
    }
}

void RouteTableTest::noCodeIsUsedTwice() {
    QSet<unsigned short> seen;
    for (const stRoute& route : commandRoutes()) {
        QVERIFY2(!seen.contains(route.code), qPrintable(getUsbCommand(route.request)));
        seen.insert(route.code);
    }
    QVERIFY(!seen.contains(0));
}

void RouteTableTest::setCodesStandBesideTheirGetCodes() {
    QMap<QString, unsigned short> gets = codesOf(QStringLiteral("USB_REQ_NUBO_CMD_GET_"));
    gets.insert(codesOf(QStringLiteral("USB_RES_NUBO_CMD_GET_")));
    const QMap<QString, unsigned short> sets = codesOf(QStringLiteral("USB_NUBO_CMD_SET_"));
    QVERIFY(!sets.isEmpty());
    for (auto set = sets.cbegin(); set != sets.cend(); ++set) {
        QVERIFY2(gets.contains(set.key()), qPrintable(set.key()));
        // The adjustment flag stands alone: its set code is the lower one.
        const bool isAdjustFlag = set.key() == QStringLiteral("ADJUSTFLAG");
        const int distance = isAdjustFlag ? -1 : 0x0800;
        QVERIFY2(set.value() - gets[set.key()] == distance, qPrintable(set.key()));
    }
}

const TestSubject registered = subjectWithoutScreen<RouteTableTest>();
#include "RouteTableTest.moc"
