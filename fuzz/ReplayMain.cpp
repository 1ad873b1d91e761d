// SPDX-License-Identifier: MIT
//
// Runs a fuzz target on its corpus, without libFuzzer: every file of the folder that the command
// line names. A file holds an input in hexadecimal digits; blanks, and what follows a #, are for
// the reader.
#include "fuzz/FuzzTarget.h"

#include <QDir>
#include <QFile>

#include <cstdio>
#include <optional>

namespace {

std::optional<QByteArray> inputOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    QByteArray digits;
    while (!file.atEnd()) {
        const QByteArray line = file.readLine().split('#').constFirst();
        digits += line.simplified().replace(' ', QByteArray());
    }
    const QByteArray input = QByteArray::fromHex(digits);
    // fromHex() passes over what is no digit.
    return input.size() * 2 == digits.size() ? std::optional(input) : std::nullopt;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "Usage: %s CORPUS\n", argv[0]);
        return 2;
    }
    const QDir corpus(QFile::decodeName(argv[1]));
    const QStringList names = corpus.entryList({QStringLiteral("*.hex")}, QDir::Files, QDir::Name);
    if (names.isEmpty()) {
        std::fprintf(stderr, "%s: no inputs\n", argv[1]);
        return 1;
    }
    for (const QString& name : names) {
        // Before it runs: the last line names the input that ended the program.
        std::printf("%s\n", qPrintable(name));
        std::fflush(stdout);
        const auto input = inputOf(corpus.filePath(name));
        if (!input) {
            std::fprintf(stderr, "%s: not readable as hexadecimal digits\n", qPrintable(name));
            return 1;
        }
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input->constData()),
                               static_cast<std::size_t>(input->size()));
    }
    return 0;
}
