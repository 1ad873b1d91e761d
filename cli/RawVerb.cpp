// SPDX-License-Identifier: MIT
#include "cli/ClReport.h"
#include "cli/ClSession.h"
#include "cli/Verbs.h"
#include "protocol/ResultCodes.h"
#include "protocol/TextPackets.h"

#include <algorithm>
#include <array>

namespace {

constexpr int RAW_TIMEOUT_MS = 3000;

/// Commands of more than one packet each way: sent alone, they would leave packets behind that the
/// next command takes for its answer. Each has a verb of its own.
constexpr std::array<unsigned short, 5> LONG_COMMANDS{0x2001, 0x3001, 0x3002, 0x5001, 0x5002};
constexpr unsigned short JOIN_COMMAND = 0x6807;  // of two texts

struct stRawPlan : stVerbPlan {
    unsigned short code = 0;
    std::array<unsigned int, ClNuboCommand::PARAM_COUNT> parameters{};
    std::optional<QString> text;
};

stFailure wrongUse(const QString& message) {
    return {ExitCode::WrongUse, message, {}};
}

/// Decimal, or hexadecimal behind "0x".
std::optional<unsigned int> numberFrom(const QString& text) {
    const bool isHexadecimal = text.startsWith(QLatin1String("0x"), Qt::CaseInsensitive);
    constexpr int HEXADECIMAL = 16;
    constexpr int DECIMAL = 10;
    bool isNumber = false;
    const unsigned int number = isHexadecimal ? text.mid(2).toUInt(&isNumber, HEXADECIMAL)
                                              : text.toUInt(&isNumber, DECIMAL);
    return isNumber ? std::optional(number) : std::nullopt;
}

/// A code is in hexadecimal with or without "0x".
std::optional<unsigned short> codeFrom(const QString& text) {
    constexpr unsigned int LAST = 0xFFFF;
    const bool isMarked = text.startsWith(QLatin1String("0x"), Qt::CaseInsensitive);
    const auto number = numberFrom(isMarked ? text : QLatin1String("0x") + text);
    return number && *number <= LAST ? std::optional(static_cast<unsigned short>(*number))
                                     : std::nullopt;
}

stFailure readParameters(const QStringList& values, stRawPlan& plan) {
    for (qsizetype i = 1; i < values.size(); ++i) {
        const std::optional<unsigned int> number = numberFrom(values[i]);
        if (!number) {
            return wrongUse(QStringLiteral("%1 is not a number of 32 bits").arg(values[i]));
        }
        plan.parameters[static_cast<std::size_t>(i - 1)] = *number;
    }
    return {};
}

stFailure checkText(const QString& text) {
    constexpr qsizetype LONGEST = 255;
    const bool isOneByte =
        std::ranges::all_of(text, [](QChar character) { return character.unicode() <= 0xFF; });
    if (!isOneByte || text.size() > LONGEST) {
        return wrongUse(QStringLiteral("--text: not a text of at most 255 one-byte characters"));
    }
    return {};
}

}  // namespace

stFailure prepareRaw(const stArguments& arguments, ClConsole& /*console*/,
                     std::unique_ptr<stVerbPlan>& plan) {
    if (!arguments.has("expert")) {
        return wrongUse(
            QStringLiteral("raw checks nothing, and can spoil what the factory wrote: "
                           "it needs --expert"));
    }
    auto raw = std::make_unique<stRawPlan>();
    const QString& word = arguments.values.first();
    const std::optional<unsigned short> code = codeFrom(word);
    if (!code) {
        return wrongUse(QStringLiteral("%1 is not a code of 16 bits in hexadecimal").arg(word));
    }
    if (std::ranges::find(LONG_COMMANDS, *code) != LONG_COMMANDS.end() || *code == JOIN_COMMAND) {
        return wrongUse(
            QStringLiteral("%1 is more than one plain packet; it has a verb of its own").arg(word));
    }
    raw->code = *code;
    if (arguments.has("text")) {
        if (arguments.values.size() > 1) {
            return wrongUse(QStringLiteral("--text stands in place of parameters"));
        }
        raw->text = arguments.option("text");
        if (const stFailure failure = checkText(*raw->text)) {
            return failure;
        }
    }
    const stFailure failure = readParameters(arguments.values, *raw);
    plan = std::move(raw);
    return failure;
}

void runRaw(stRun& run) {
    const auto& plan = static_cast<const stRawPlan&>(*run.plan);
    const auto& parameters = plan.parameters;
    ClNuboCommandString text(plan.text.value_or(QString()), plan.code);
    ClNuboCommand numbers(plan.code, parameters[0], parameters[1], parameters[2], parameters[3],
                          parameters[4], 0, 0, ClNuboCommand::PLAIN_LENGTH);
    ClNuboCommand& command = plan.text ? text : numbers;
    const unsigned short result = run.camera->execNuboCommand(command, nullptr, RAW_TIMEOUT_MS);
    const QString what = QStringLiteral("command 0x%1").arg(plan.code, 4, 16, QLatin1Char('0'));
    if (result != 0) {
        run.report.addError(what, result);
        return;
    }
    run.report.setHasActed();
    QStringList words;
    QJsonArray values;
    for (int i = 1; i <= ClNuboCommand::PARAM_COUNT; ++i) {
        words.append(QStringLiteral("0x%1").arg(command.param(i), 8, 16, QLatin1Char('0')));
        values.append(static_cast<qint64>(command.param(i)));
    }
    run.report.addLine(words.join(u' '));
    run.report.addMember(QStringLiteral("parameters"), values);
}
