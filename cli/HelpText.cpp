// SPDX-License-Identifier: MIT
#include "cli/HelpText.h"

namespace {

constexpr int OPTION_WIDTH = 24;
constexpr int VERB_WIDTH = 34;

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
    text += row(QStringLiteral("--version"), OPTION_WIDTH, "shows the version");
    text += QLatin1String(
        "\n\"nuboctl help VERB\" tells more of a verb, \"nuboctl help KEY\" of a setting.\n\n"
        "Exit codes: 0 done, 1 the answer is no, 2 wrong use, 3 no such camera, 4 in use,\n"
        "5 access denied, 6 refused by the camera, 7 the link failed, 8 partly done,\n"
        "9 a file or something else on this computer, 130 interrupted.\n");
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
