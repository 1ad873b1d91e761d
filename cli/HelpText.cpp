// SPDX-License-Identifier: MIT
#include "cli/HelpText.h"

#include "cli/ClReport.h"

#include <QJsonArray>

namespace {

constexpr int OPTION_WIDTH = 24;
constexpr int VERB_WIDTH = 34;
constexpr int EXIT_WIDTH = 7;

QString row(const QString& left, int width, std::string_view right) {
    const QString start = QStringLiteral("  ") + left;
    const bool fits = start.size() < width;
    return (fits ? start.leftJustified(width) : start + u'\n' + QString(width, u' ')) +
           toText(right) + u'\n';
}

QString optionText(const stOption& option) {
    QString text = toText(option.name);
    text.replace(u',', QLatin1String(", "));
    if (!option.value.empty()) {
        const QString value = u'=' + toText(option.value);
        text += option.implied.empty() ? value : u'[' + value + u']';
    }
    return text;
}

QString optionRows(std::span<const stOption> options) {
    QString text;
    for (const stOption& option : options) {
        text += row(optionText(option), OPTION_WIDTH, option.explanation);
    }
    return text;
}

QJsonArray optionsJson(std::span<const stOption> options) {
    QJsonArray array;
    for (const stOption& option : options) {
        const QStringList names = toText(option.name).split(u',');
        array.append(QJsonObject{
            {QStringLiteral("name"), names.last()},
            {QStringLiteral("short"), textOrNull(names.size() > 1 ? names.first() : QString())},
            {QStringLiteral("value"), textOrNull(toText(option.value))},
            {QStringLiteral("implied"), textOrNull(toText(option.implied))},
            {QStringLiteral("explanation"), toText(option.explanation)}});
    }
    return array;
}

}  // namespace

QString overviewHelp() {
    QString text = QStringLiteral(
        "Usage: nuboctl [OPTIONS] VERB ...\n\n"
        "Sets up NuBo cameras over USB: everything that the window does, and more.\n\n"
        "Verbs:\n");
    for (const stVerb& verb : verbs()) {
        text += row(toText(verb.name) + u' ' + toText(verb.usage), VERB_WIDTH, verb.explanation);
    }
    text += QLatin1String("\nOptions:\n") + optionRows(commonOptions());
    text += QLatin1String(
        "\n\"nuboctl help VERB\" tells more of a verb, \"nuboctl help KEY\" of a setting.\n\n"
        "Exit codes:\n");
    for (const stExitMeaning& exit : exitMeanings()) {
        text += row(QString::number(static_cast<int>(exit.exit)), EXIT_WIDTH, exit.meaning);
    }
    return text;
}

QString verbHelp(const stVerb& verb) {
    QString text =
        QStringLiteral("Usage: nuboctl %1 %2").arg(toText(verb.name), toText(verb.usage));
    text = text.trimmed() + QStringLiteral("\n\n%1\n").arg(toText(verb.explanation));
    if (!verb.options.empty()) {
        text += QLatin1String("\nOptions:\n") + optionRows(verb.options);
    }
    return text + QLatin1String("\nOptions of every verb:\n") + optionRows(commonOptions());
}

QJsonObject verbJson(const stVerb& verb) {
    return {{QStringLiteral("verb"), toText(verb.name)},
            {QStringLiteral("usage"), toText(verb.usage)},
            {QStringLiteral("explanation"), toText(verb.explanation)},
            {QStringLiteral("options"), optionsJson(verb.options)}};
}

QJsonObject overviewJson() {
    QJsonArray all;
    for (const stVerb& verb : verbs()) {
        all.append(verbJson(verb));
    }
    QJsonArray exits;
    for (const stExitMeaning& exit : exitMeanings()) {
        exits.append(QJsonObject{{QStringLiteral("exit"), static_cast<int>(exit.exit)},
                                 {QStringLiteral("kind"), exitName(exit.exit)},
                                 {QStringLiteral("explanation"), toText(exit.meaning)}});
    }
    return {{QStringLiteral("verbs"), all},
            {QStringLiteral("options"), optionsJson(commonOptions())},
            {QStringLiteral("exitCodes"), exits}};
}
