// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>

/// Whether no two of @p rows have the same @p member.
template <class Rows, class Member>
constexpr bool allDistinct(const Rows& rows, Member member) {
    for (auto row = rows.begin(); row != rows.end(); ++row) {
        if (std::any_of(rows.begin(), row, [row, member](const auto& earlier) {
                return earlier.*member == (*row).*member;
            })) {
            return false;
        }
    }
    return true;
}
