// SPDX-License-Identifier: MIT
#include "cli/Arguments.h"

#include "settings/SettingSearch.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include <deque>
#include <string>
#include <vector>

namespace {

// The parser takes brackets around a word for a list; behind this character it leaves them alone.
constexpr char16_t SHIELD = u'\x1';

QString longName(const stOption& option) {
    const QString name = toText(option.name);
    return name.mid(name.lastIndexOf(QLatin1String("--")) + 2);
}

QString unshielded(const std::string& word) {
    const QString text = QString::fromStdString(word);
    return text.startsWith(SHIELD) ? text.mid(1) : text;
}

/// @p word with its brackets shielded, and its shield: those of a value behind "--option=" too.
QString shielded(const QString& word) {
    const qsizetype start = word.startsWith(QLatin1String("--")) ? word.indexOf(u'=') + 1 : 0;
    const QStringView value = QStringView(word).sliced(start);
    const bool isUnsafe = value.startsWith(u'[') || value.startsWith(SHIELD);
    return isUnsafe ? QString(word).insert(start, SHIELD) : word;
}

/// The words for the parser, last first, as it takes them. Options whose value was left out get it
/// here: the parser would take the next word for it.
std::vector<std::string> parserWords(const QStringList& words) {
    QMap<QString, QString> implied;
    const auto learn = [&implied](std::span<const stOption> options) {
        for (const stOption& option : options) {
            if (!option.implied.empty()) {
                implied.insert(QLatin1String("--") + longName(option), toText(option.implied));
            }
        }
    };
    learn(commonOptions());
    for (const stVerb& verb : verbs()) {
        learn(verb.options);
    }
    std::vector<std::string> parsed;
    const auto behind = std::ranges::find(words, QLatin1String("--"));
    for (auto word = words.begin(); word != behind; ++word) {
        const QString text =
            implied.contains(*word) ? *word + u'=' + implied.value(*word) : shielded(*word);
        parsed.push_back(text.toStdString());
    }
    // Behind "--" nothing is an option, whatever it begins with.
    for (auto word = behind; word != words.end() && ++word != words.end();) {
        parsed.push_back((word->startsWith(u'-') ? SHIELD + *word : shielded(*word)).toStdString());
    }
    std::ranges::reverse(parsed);
    return parsed;
}

/// The parser, and where it leaves what it found.
class Parser {
public:
    Parser() {
        m_app.set_help_flag();
        m_app.require_subcommand(0, 1);
        addOptions(m_app, commonOptions());
        for (const stVerb& verb : verbs()) {
            CLI::App* const sub = m_app.add_subcommand(std::string(verb.name), "");
            sub->set_help_flag();
            sub->fallthrough();
            addOptions(*sub, verb.options);
            sub->add_option("values", m_values[std::string(verb.name)]);
        }
    }

    /// Throws what the parser throws.
    void parse(const QStringList& words) { m_app.parse(parserWords(words)); }

    [[nodiscard]] QStringList unexpected() const {
        QStringList words;
        for (const std::string& word : m_app.remaining(true)) {
            words.append(unshielded(word));
        }
        return words;
    }

    void fill(stArguments& arguments) const {
        fillOptions(m_app, arguments);
        for (const CLI::App* const sub : m_app.get_subcommands()) {
            arguments.verb = findVerb(QString::fromStdString(sub->get_name()));
            fillOptions(*sub, arguments);
            for (const std::string& value : m_values.at(sub->get_name())) {
                arguments.values.append(unshielded(value));
            }
        }
    }

private:
    static void addOptions(CLI::App& app, std::span<const stOption> options) {
        for (const stOption& option : options) {
            const std::string name(option.name);
            CLI::Option* const added =
                option.value.empty() ? app.add_flag(name) : app.add_option(name, "");
            if (!option.value.empty()) {
                added->type_size(1);
                added->expected(1);
            }
            if (option.repeats) {
                added->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
            }
        }
    }

    static void fillOptions(const CLI::App& app, stArguments& arguments) {
        for (const CLI::Option* const option : app.get_options()) {
            if (option->count() == 0 || option->get_lnames().empty()) {
                continue;
            }
            QStringList values;
            for (const std::string& value : option->results()) {
                values.append(unshielded(value));
            }
            arguments.options[QString::fromStdString(option->get_lnames().front())] = values;
        }
    }

    CLI::App m_app{"", "nuboctl"};
    std::map<std::string, std::vector<std::string>> m_values;  ///< by verb
};

stFailure wrongUse(const QString& message) {
    return {ExitCode::WrongUse, message + QStringLiteral("; try \"nuboctl help\""), {}};
}

stFailure unexpectedWord(const QString& word, const stVerb* verb) {
    QStringList known;
    for (const stVerb& other : verbs()) {
        known.append(toText(other.name));
    }
    if (word.startsWith(u'-')) {
        return wrongUse(QStringLiteral("no option %1").arg(word));
    }
    if (verb != nullptr) {
        return wrongUse(QStringLiteral("%1 takes no \"%2\"").arg(toText(verb->name), word));
    }
    const QString closest = closestWord(word, known);
    const QString message = QStringLiteral("no verb \"%1\"").arg(word);
    return closest.isEmpty()
               ? wrongUse(message)
               : stFailure{ExitCode::WrongUse,
                           message + QStringLiteral("; did you mean %1?").arg(closest),
                           {}};
}

stFailure checkCounts(const stArguments& arguments) {
    if (arguments.verb == nullptr || arguments.has("help")) {
        return {};
    }
    const stVerb& verb = *arguments.verb;
    const qsizetype count = arguments.values.size();
    if (count < verb.leastValues) {
        return wrongUse(QStringLiteral("%1 needs %2").arg(toText(verb.name), toText(verb.usage)));
    }
    if (verb.mostValues >= 0 && count > verb.mostValues) {
        return unexpectedWord(arguments.values[verb.mostValues], &verb);
    }
    if (arguments.has("all") && arguments.has("camera")) {
        return wrongUse(QStringLiteral("--camera and --all exclude each other"));
    }
    if (arguments.has("all") && verb.camera == VerbCamera::OneOnly) {
        return wrongUse(QStringLiteral("%1 is for one camera").arg(toText(verb.name)));
    }
    if (arguments.has("camera") && arguments.option("camera").isEmpty()) {
        return wrongUse(QStringLiteral("--camera names no camera"));
    }
    constexpr double LONGEST_WAIT_S = 1e9;
    bool isNumber = true;
    if (arguments.has("wait")) {
        const double seconds = arguments.option("wait").toDouble(&isNumber);
        isNumber = isNumber && seconds >= -1 && seconds <= LONGEST_WAIT_S;
    }
    return isNumber ? stFailure{}
                    : wrongUse(QStringLiteral("--wait: %1 is not a number of seconds")
                                   .arg(arguments.option("wait")));
}

}  // namespace

stFailure parseArguments(const QStringList& words, stArguments& arguments) {
    Parser parser;
    try {
        parser.parse(words);
    } catch (const CLI::ExtrasError&) {
        parser.fill(arguments);
        return unexpectedWord(parser.unexpected().value(0), arguments.verb);
    } catch (const CLI::ParseError& error) {
        parser.fill(arguments);
        return wrongUse(QString::fromUtf8(error.what()));
    }
    parser.fill(arguments);
    return checkCounts(arguments);
}
