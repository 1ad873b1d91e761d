// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/ScriptedPort.h"

#include <QUuid>
#include <QVariantList>

/// A request that succeeds: what the page puts in, what goes over the wire and what comes out.
struct stRouteRow {
    QUuid request;
    QVariantList arguments;  ///< from PARAM2 on
    Script script;
    QUuid answer;         ///< null when a plain result answers
    QVariantList values;  ///< from PARAM2 on, each of just the type that the page gets
};

[[nodiscard]] QList<stRouteRow> networkRows();
[[nodiscard]] QList<stRouteRow> recordingRows();
[[nodiscard]] QList<stRouteRow> cameraRows();
[[nodiscard]] QList<stRouteRow> serviceRows();

/// All of them: one row for each request that the program knows.
[[nodiscard]] QList<stRouteRow> routeRows();

/// The beginning of @p script: what the tool writes before it reads for the first time.
[[nodiscard]] Script openingOf(const Script& script);

/// Asks for values that come in the parameters of the answer.
[[nodiscard]] stRouteRow gets(const QUuid& request, const char* code, const char* parameters,
                              const QUuid& answer, const QVariantList& values);
/// Asks for a text of which the answer's @p length, byte count and bytes are given.
[[nodiscard]] stRouteRow getsText(const QUuid& request, const char* code, const char* length,
                                  const char* text, const QUuid& answer, const QVariant& value);
/// Sends parameters.
[[nodiscard]] stRouteRow sets(const QUuid& request, const QVariantList& arguments, const char* code,
                              const char* parameters);
/// Sends a text of which the packet's @p length, byte count and bytes are given.
[[nodiscard]] stRouteRow setsText(const QUuid& request, const QVariant& argument, const char* code,
                                  const char* length, const char* text);
/// Orders something that has no argument.
[[nodiscard]] stRouteRow orders(const QUuid& request, const char* code);
