// SPDX-License-Identifier: MIT
#include "tests/catalogue/RouteRows.h"

#include "tests/catalogue/CataloguePackets.h"

#include <algorithm>

QList<stRouteRow> routeRows() {
    return networkRows() + recordingRows() + cameraRows() + serviceRows();
}

Script openingOf(const Script& script) {
    const auto firstRead = std::ranges::find(script, stScriptRow::Kind::Read, &stScriptRow::kind);
    return {script.cbegin(), firstRead};
}

stRouteRow gets(const QUuid& request, const char* code, const char* parameters, const QUuid& answer,
                const QVariantList& values) {
    return {
        request, {}, {writes(plainRequest(code)), reads(plainAnswer(parameters))}, answer, values};
}

stRouteRow getsText(const QUuid& request, const char* code, const char* length, const char* text,
                    const QUuid& answer, const QVariant& value) {
    return {request,
            {},
            {writes(plainRequest(code)), reads(textAnswer(length, text))},
            answer,
            {value}};
}

stRouteRow sets(const QUuid& request, const QVariantList& arguments, const char* code,
                const char* parameters) {
    return {
        request, arguments, {writes(plainRequest(code, parameters)), reads(plainAnswer())}, {}, {}};
}

stRouteRow setsText(const QUuid& request, const QVariant& argument, const char* code,
                    const char* length, const char* text) {
    return {request,
            {argument},
            {writes(textRequest(length, code, text)), reads(plainAnswer())},
            {},
            {}};
}

stRouteRow orders(const QUuid& request, const char* code) {
    return sets(request, {}, code, "");
}
