// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <functional>
#include <iterator>
#include <type_traits>
#include <vector>

namespace bench {

/// The value below which @p share (0 to 1) of @p samples lie; there is at least one sample.
[[nodiscard]] inline double quantile(std::vector<double> samples, double share) {
    const auto place = samples.begin() + static_cast<std::ptrdiff_t>(
                                             share * static_cast<double>(samples.size() - 1) + 0.5);
    std::ranges::nth_element(samples, place);
    return *place;
}

[[nodiscard]] inline double median(const std::vector<double>& samples) {
    return quantile(samples, 0.5);
}

/// Samples of the two sides, taken in turns: the n-th of one belongs to the n-th of the other.
template <class Sample>
struct stPairs {
    std::vector<Sample> subject;
    std::vector<Sample> yardstick;

    /// The same with @p function applied to each sample.
    template <class Function>
    [[nodiscard]] auto map(Function function) const {
        stPairs<std::invoke_result_t<Function, Sample>> mapped;
        std::ranges::transform(subject, std::back_inserter(mapped.subject), function);
        std::ranges::transform(yardstick, std::back_inserter(mapped.yardstick), function);
        return mapped;
    }
};

/// The median of what @p relation makes of each pair, since both sides of a pair meet the same
/// machine, with the quartiles for a spread and each side's own median in @p unit.
template <class Relation>
[[nodiscard]] QJsonObject relate(const stPairs<double>& pairs, Relation relation,
                                 const QString& unit) {
    std::vector<double> related;
    std::ranges::transform(pairs.subject, pairs.yardstick, std::back_inserter(related), relation);
    return {
        {QStringLiteral("value"), median(related)},
        {QStringLiteral("low"), quantile(related, 0.25)},
        {QStringLiteral("high"), quantile(related, 0.75)},
        {QStringLiteral("subject"), median(pairs.subject)},
        {QStringLiteral("yardstick"), median(pairs.yardstick)},
        {QStringLiteral("unit"), unit},
        {QStringLiteral("samples"), static_cast<int>(related.size())},
    };
}

[[nodiscard]] inline QJsonObject ratioOf(const stPairs<double>& pairs, const QString& unit) {
    return relate(pairs, std::divides<>(), unit);
}

[[nodiscard]] inline QJsonObject differenceOf(const stPairs<double>& pairs, const QString& unit) {
    return relate(pairs, std::minus<>(), unit);
}

/// A measurement in microseconds: the time that one of @p repetitions runs of @p work takes.
template <class Work>
[[nodiscard]] auto timed(int repetitions, Work work) {
    return [repetitions, work] {
        using Clock = std::chrono::steady_clock;
        const Clock::time_point begin = Clock::now();
        for (int i = 0; i < repetitions; ++i) {
            work();
        }
        const std::chrono::duration<double, std::micro> taken = Clock::now() - begin;
        return taken.count() / repetitions;
    };
}

/// Takes a measurement of each side in turns, @p count times after one each to warm up. Every other
/// pair starts with the other side, so that neither always comes second.
template <class Subject, class Yardstick>
[[nodiscard]] auto compare(int count, Subject subject, Yardstick yardstick) {
    stPairs<std::invoke_result_t<Subject>> pairs;
    static_cast<void>(subject());
    static_cast<void>(yardstick());
    for (int i = 0; i < count; ++i) {
        if (i % 2 == 0) {
            pairs.subject.push_back(subject());
            pairs.yardstick.push_back(yardstick());
        } else {
            pairs.yardstick.push_back(yardstick());
            pairs.subject.push_back(subject());
        }
    }
    return pairs;
}

}  // namespace bench
