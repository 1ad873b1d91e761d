// SPDX-License-Identifier: MIT
//
// Takes all measurements, prints them as a table and writes them to a file.

#include "bench/Children.h"
#include "bench/Machine.h"
#include "bench/Rows.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSaveFile>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int WRONG_USE = 2;

double number(const QJsonObject& object, const char* key) {
    return object.value(QLatin1String(key)).toDouble();
}

void printHead() {
    std::printf("%-34s %-26s %-28s %-10s %-7s %s\n", "What", "Against", "Measured (quartiles)",
                "Goal", "Met", "Medians");
}

/// By the upper quartile too, or by the median alone.
const char* metText(const bench::stRow& row, const QJsonObject& result) {
    if (!row.goal) {
        return "-";
    }
    if (number(result, "high") <= *row.goal) {
        return "yes";
    }
    return number(result, "value") <= *row.goal ? "median" : "no";
}

void printRow(const bench::stRow& row, const QJsonObject& result) {
    const QByteArray measured =
        QString::asprintf("%.3f%s (%.3f to %.3f)", number(result, "value"), row.unit,
                          number(result, "low"), number(result, "high"))
            .toUtf8();
    const QByteArray goal =
        row.goal ? QString::asprintf("<= %.1f%s", *row.goal, row.unit).toUtf8() : QByteArray("-");
    const QByteArray unit = result.value(QLatin1String("unit")).toString().toUtf8();
    std::printf("%-34s %-26s %-28s %-10s %-7s %.4g : %.4g %s\n", row.what, row.against,
                measured.constData(), goal.constData(), metText(row, result),
                number(result, "subject"), number(result, "yardstick"), unit.constData());
    std::fflush(stdout);
}

/// The row with its result, as it goes into the file.
QJsonObject record(const bench::stRow& row, QJsonObject result) {
    result.insert(QStringLiteral("name"), QString::fromLatin1(row.name));
    result.insert(QStringLiteral("what"), QString::fromLatin1(row.what));
    result.insert(QStringLiteral("against"), QString::fromLatin1(row.against));
    if (row.goal) {
        result.insert(QStringLiteral("goal"), *row.goal);
        result.insert(QStringLiteral("met"), number(result, "value") <= *row.goal);
        result.insert(QStringLiteral("metByUpperQuartile"), number(result, "high") <= *row.goal);
    }
    return result;
}

bool write(const QString& path, const QJsonObject& results) {
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(QJsonDocument(results).toJson()) > 0 &&
           file.commit();
}

/// Measures the rows named in @p names, or all. False when one could not be run.
bool measure(const QStringList& names, QJsonArray& records) {
    bool isComplete = true;
    printHead();
    for (const bench::stRow& row : bench::rows()) {
        if (!names.isEmpty() && !names.contains(QLatin1String(row.name))) {
            continue;
        }
        try {
            const QJsonObject result = row.measure();
            printRow(row, result);
            records.append(record(row, result));
        } catch (const bench::CannotRun& failure) {
            std::printf("%-34s could not be run: %s\n", row.what, failure.what());
            isComplete = false;
        }
    }
    return isComplete;
}

bool areKnown(const QStringList& names) {
    return std::ranges::all_of(names, [](const QString& name) {
        return std::ranges::any_of(bench::rows(), [&name](const bench::stRow& row) {
            return name == QLatin1String(row.name);
        });
    });
}

QString nameHelp() {
    QStringList names;
    for (const bench::stRow& row : bench::rows()) {
        names.append(QString::fromLatin1(row.name));
    }
    return QStringLiteral("which to take (all): ") + names.join(QStringLiteral(", "));
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Measures the setting tool's speed and memory side by side with yardsticks."));
    parser.addHelpOption();
    const QCommandLineOption resultsOption(QStringLiteral("results"),
                                           QStringLiteral("where the results go, as JSON"),
                                           QStringLiteral("file"));
    parser.addOption(resultsOption);
    parser.addPositionalArgument(QStringLiteral("row"), nameHelp(), QStringLiteral("[row...]"));
    parser.process(application);
    if (!areKnown(parser.positionalArguments())) {
        parser.showHelp(WRONG_USE);
    }

    const QJsonObject before = bench::watchMachine();
    QJsonArray records;
    bool isComplete = measure(parser.positionalArguments(), records);
    const QJsonObject after = bench::watchMachine();
    const bool isDisturbed = bench::isBusy(before) || bench::isBusy(after);
    if (isDisturbed) {
        std::puts("The computer was busy with something else: measure again when it is quiet.");
    }
    if (parser.isSet(resultsOption)) {
        const QJsonObject results{
            {QStringLiteral("taken"), QDateTime::currentDateTimeUtc().toString(Qt::ISODate)},
            {QStringLiteral("before"), before},
            {QStringLiteral("after"), after},
            {QStringLiteral("disturbed"), isDisturbed},
            {QStringLiteral("rows"), records},
        };
        if (!write(parser.value(resultsOption), results)) {
            std::fprintf(stderr, "nubo-bench: cannot write the results\n");
            isComplete = false;
        }
    }
    return isComplete ? EXIT_SUCCESS : EXIT_FAILURE;
}
