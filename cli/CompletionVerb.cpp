// SPDX-License-Identifier: MIT
#include "cli/Actions.h"
#include "cli/ClConsole.h"
#include "cli/ClReport.h"
#include "cli/Verbs.h"
#include "settings/SettingTable.h"

#include <array>

namespace {

constexpr std::array<std::string_view, 3> SHELLS{"bash", "zsh", "fish"};

/// The words that may stand behind a verb: settings for some, actions for others.
QStringList wordsOf(const stVerb& verb) {
    const QString usage = toText(verb.usage);
    QStringList words;
    if (verb.name == "help") {
        for (const stVerb& other : verbs()) {
            words.append(toText(other.name));
        }
    }
    if (usage.contains(QLatin1String("KEY"))) {
        const QString end = verb.name == "set" ? QStringLiteral("=") : QString();
        for (const stSetting& row : settings()) {
            if (verb.name != "set" || !row.isReadOnly()) {
                words.append(toText(row.key) + end);
            }
        }
        return words;
    }
    // Actions stand in lower case, what stands for something else in upper case.
    QString actions = usage;
    actions.remove(u'[').remove(u']');
    for (const QString& word : actions.split(u'|', Qt::SkipEmptyParts)) {
        const QString action = word.section(u' ', 0, 0);
        if (!action.isEmpty() && action.front().isLower()) {
            words.append(action);
        }
    }
    return words;
}

QString longName(const stOption& option) {
    const QString name = toText(option.name);
    return name.mid(name.indexOf(QLatin1String("--")));
}

QStringList commonNames() {
    QStringList names;
    for (const stOption& option : commonOptions()) {
        names.append(longName(option));
    }
    return names;
}

QStringList optionsOf(const stVerb& verb) {
    QStringList names;
    for (const stOption& option : verb.options) {
        names.append(longName(option));
    }
    return names + commonNames();
}

QStringList verbNames() {
    QStringList names;
    for (const stVerb& verb : verbs()) {
        names.append(toText(verb.name));
    }
    return names;
}

/// The body of a "case" that leaves the words of the verb in @p variable.
QString verbCases(const QString& variable) {
    QString text;
    for (const stVerb& verb : verbs()) {
        text += QStringLiteral("    %1) %2=\"%3\" ;;\n")
                    .arg(toText(verb.name), variable, (wordsOf(verb) + optionsOf(verb)).join(u' '));
    }
    return text;
}

QString bashScript() {
    return QStringLiteral(
               "# bash completion of nuboctl\n"
               "_nuboctl() {\n"
               "    local current=${COMP_WORDS[COMP_CWORD]} verb='' words='' i\n"
               "    for ((i = 1; i < COMP_CWORD; ++i)); do\n"
               "        # The shell has split words at '=' and ':'.\n"
               "        case ${COMP_WORDS[i]} in\n"
               "        -c | --camera) ((++i)); [[ ${COMP_WORDS[i]} != = ]] || ((++i)) ;;\n"
               "        %1) verb=${COMP_WORDS[i]}; break ;;\n"
               "        esac\n"
               "    done\n"
               "    case $verb in\n"
               "    '') words=\"%2 %3\" ;;\n")
               .arg(verbNames().join(u'|'), verbNames().join(u' '), commonNames().join(u' ')) +
           verbCases(QStringLiteral("words")) +
           QStringLiteral(
               "    esac\n"
               "    COMPREPLY=($(compgen -W \"$words\" -- \"$current\"))\n"
               "    if [[ ${#COMPREPLY[@]} == 1 && ${COMPREPLY[0]} == *= ]]; then\n"
               "        compopt -o nospace\n"
               "    fi\n"
               "}\n"
               "complete -o default -F _nuboctl nuboctl\n");
}

QString zshScript() {
    return QStringLiteral(
               "#compdef nuboctl\n"
               "_nuboctl() {\n"
               "    local verb='' candidates='' i\n"
               "    for ((i = 2; i < CURRENT; ++i)); do\n"
               "        case ${words[i]} in\n"
               "        -c | --camera) ((++i)) ;;\n"
               "        -*) ;;\n"
               "        *) verb=${words[i]}; break ;;\n"
               "        esac\n"
               "    done\n"
               "    case $verb in\n"
               "    '') candidates=\"%1 %2\" ;;\n")
               .arg(verbNames().join(u' '), commonNames().join(u' ')) +
           verbCases(QStringLiteral("candidates")) +
           QStringLiteral(
               "    esac\n"
               "    local -a plain open\n"
               "    plain=(${${=candidates}:#*=})\n"
               "    open=(${(M)${=candidates}:#*=})\n"
               "    compadd -a plain\n"
               "    compadd -S '' -a open\n"
               "    _files\n"
               "}\n"
               // As a file of its own it is the function's first call; sourced, it is not.
               "if [[ ${funcstack[1]} == _nuboctl ]]; then\n"
               "    _nuboctl \"$@\"\n"
               "else\n"
               "    compdef _nuboctl nuboctl\n"
               "fi\n");
}

/// The names of an option as fish takes them, and whether a value must follow.
QString fishNames(const stOption& option) {
    const QString name = toText(option.name);
    QString names = QLatin1String("-l ") + longName(option).mid(2);
    if (name.size() > longName(option).size()) {
        names += QLatin1String(" -s ") + name[1];
    }
    const bool needsValue = !option.value.empty() && option.implied.empty();
    return needsValue ? names + QLatin1String(" -r") : names;
}

QString fishScript() {
    const QString all = verbNames().join(u' ');
    QString text = QStringLiteral("# fish completion of nuboctl\n");
    const auto quoted = [](std::string_view explanation) {
        QString quotable = toText(explanation);
        quotable.replace(u'\'', QLatin1String("\\'"));
        return quotable;
    };
    for (const stOption& option : commonOptions()) {
        text += QStringLiteral("complete -c nuboctl %1 -d '%2'\n")
                    .arg(fishNames(option), quoted(option.explanation));
    }
    for (const stVerb& verb : verbs()) {
        const QString name = toText(verb.name);
        text +=
            QStringLiteral(
                "complete -c nuboctl -n 'not __fish_seen_subcommand_from %1' -f -a %2 -d '%3'\n")
                .arg(all, name, quoted(verb.explanation));
        const QString seen = QStringLiteral("__fish_seen_subcommand_from %1").arg(name);
        if (const QStringList words = wordsOf(verb); !words.isEmpty()) {
            text += QStringLiteral("complete -c nuboctl -n '%1' -f -a '%2'\n")
                        .arg(seen, words.join(u' '));
        }
        for (const stOption& option : verb.options) {
            text += QStringLiteral("complete -c nuboctl -n '%1' %2 -d '%3'\n")
                        .arg(seen, fishNames(option), quoted(option.explanation));
        }
    }
    return text;
}

}  // namespace

stFailure prepareCompletion(const stArguments& arguments, ClConsole& /*console*/,
                            std::unique_ptr<stVerbPlan>& /*plan*/) {
    return checkAction(arguments, SHELLS);
}

void runCompletion(stRun& run) {
    const QString& shell = run.arguments.values.first();
    const QString script = shell == QLatin1String("bash")  ? bashScript()
                           : shell == QLatin1String("zsh") ? zshScript()
                                                           : fishScript();
    run.report.addMember(QStringLiteral("script"), script);
    run.report.addLine(script.trimmed());
}
