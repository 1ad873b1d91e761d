// SPDX-License-Identifier: MIT
//
// The words of a command line. A zero byte ends a word.
#include "cli/Arguments.h"
#include "fuzz/Check.h"
#include "fuzz/FuzzTarget.h"

namespace {

QStringList wordsOf(const QByteArray& bytes) {
    QStringList words;
    for (const QByteArray& word : bytes.split('\0')) {
        words.append(QString::fromUtf8(word));
    }
    return words;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QStringList words = wordsOf(bytes);
    stArguments arguments;
    if (const stFailure failure = parseArguments(words, arguments)) {
        FUZZ_CHECK(failure.exit == ExitCode::WrongUse && !failure.message.isEmpty());
        return 0;
    }
    // Every value is a word, or the end of one.
    for (const QString& value : arguments.values) {
        FUZZ_CHECK(words.contains(value));
    }
    if (arguments.verb != nullptr && !arguments.has("help")) {
        const stVerb& verb = *arguments.verb;
        FUZZ_CHECK(words.contains(toText(verb.name)));
        FUZZ_CHECK(arguments.values.size() >= verb.leastValues);
        FUZZ_CHECK(verb.mostValues < 0 || arguments.values.size() <= verb.mostValues);
        FUZZ_CHECK(!arguments.has("all") || !arguments.has("camera"));
    }
    return 0;
}
