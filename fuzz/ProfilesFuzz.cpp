// SPDX-License-Identifier: MIT
//
// Profiles, as text and as JSON. The whole input is the file.
#include "cli/Profile.h"
#include "cli/ProfileText.h"
#include "fuzz/Check.h"
#include "fuzz/FuzzTarget.h"

#include <algorithm>

namespace {

QByteArray written(const QList<stProfileEntry>& entries) {
    QString text;
    for (const stProfileEntry& entry : entries) {
        text +=
            toText(entry.setting->key) + QStringLiteral(" = ") + profileQuoted(entry.text) + u'\n';
    }
    return text.toUtf8();
}

bool isReadAlike(const stProfileEntry& one, const stProfileEntry& other) {
    return one.setting == other.setting && one.text == other.text;
}

/// UTF-8 has no place for half a surrogate pair, which JSON's and a profile's escapes can spell.
bool isWhole(const stProfileEntry& entry) {
    return QString::fromUtf8(entry.text.toUtf8()) == entry.text;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QList<stProfileEntry> entries;
    const stFailure failure = parseProfile(bytes, entries);
    FUZZ_CHECK(!failure || (failure.exit == ExitCode::WrongUse && !failure.message.isEmpty()));
    for (qsizetype i = 0; i < entries.size(); ++i) {
        FUZZ_CHECK(entries[i].setting->isKept());
        FUZZ_CHECK(std::ranges::find(entries.cbegin(), entries.cbegin() + i, entries[i].setting,
                                     &stProfileEntry::setting) == entries.cbegin() + i);
    }
    if (!failure && std::ranges::all_of(entries, isWhole)) {
        QList<stProfileEntry> again;
        FUZZ_CHECK(!parseProfile(written(entries), again));
        FUZZ_CHECK(std::ranges::equal(entries, again, isReadAlike));
    }
    return 0;
}
