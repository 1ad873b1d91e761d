// SPDX-License-Identifier: MIT
#include "tests/endurance/WalkSteps.h"

#include "simulator/Fault.h"

#include <QStringList>

#include <algorithm>
#include <random>

namespace {

constexpr int SHORTEST = 10;
constexpr int LONGEST = 40;

/// How often a step is taken, and what its numbers are below.
struct stHabit {
    stStep below;
    int weight;
    bool isLooking;
};

// clang-format off
constexpr std::array HABITS{
    stHabit{{eStep::Mode,   {5}},        10, true},
    stHabit{{eStep::Button, {12}},       14, true},
    stHabit{{eStep::Accept, {1}},         6, true},
    stHabit{{eStep::Escape, {1}},         4, true},
    stHabit{{eStep::Wait,   {60}},       12, true},
    stHabit{{eStep::Unplug, {1}},         3, true},
    stHabit{{eStep::Plug,   {1}},         6, true},
    stHabit{{eStep::Fault,  {13, 2, 6, 3}}, 5, true},
    stHabit{{eStep::Choice, {8}},         6, false},
    stHabit{{eStep::Type,   {4, 8}},      4, false},
    stHabit{{eStep::Key,    {8, 6}},      5, false},
    stHabit{{eStep::Row,    {6}},         3, false},
};
// clang-format on

// std::uniform_int_distribution gives other numbers with another library.
int below(std::minstd_rand& generator, int limit) {
    return limit > 0 ? static_cast<int>(generator() % static_cast<unsigned>(limit)) : 0;
}

}  // namespace

QString stStep::text() const {
    QStringList words;
    for (const int number : numbers) {
        words.append(QString::number(number));
    }
    while (words.size() > 1 && words.last() == QStringLiteral("0")) {
        words.removeLast();
    }
    return QLatin1Char(static_cast<char>(kind)) + words.join(u',');
}

Walk randomWalk(unsigned seed) {
    std::minstd_rand generator(seed);
    generator.discard(10);
    const bool isLooking = seed % 2 == 0;
    Walk walk;
    // The first steps find the camera connected.
    const int length = SHORTEST + below(generator, LONGEST - SHORTEST);
    while (walk.size() < length) {
        const stHabit& habit = HABITS[static_cast<std::size_t>(below(generator, HABITS.size()))];
        constexpr int MOST_WEIGHT = 14;
        if (below(generator, MOST_WEIGHT) >= habit.weight || (isLooking && !habit.isLooking)) {
            continue;
        }
        stStep step{habit.below.kind};
        for (std::size_t i = 0; i < step.numbers.size(); ++i) {
            step.numbers[i] = below(generator, habit.below.numbers[i]);
        }
        walk.append(step);
    }
    return walk;
}

bool onlyLooks(const Walk& walk) {
    return std::ranges::all_of(walk, [](const stStep& step) {
        return std::ranges::any_of(HABITS, [&step](const stHabit& habit) {
            return habit.isLooking && habit.below.kind == step.kind;
        });
    });
}

QString walkText(const Walk& walk) {
    QStringList texts;
    for (const stStep& step : walk) {
        texts.append(step.text());
    }
    return texts.join(u' ');
}

Walk walkFromText(const QString& text) {
    Walk walk;
    for (const QString& word : text.split(u' ', Qt::SkipEmptyParts)) {
        const auto habit = std::ranges::find_if(HABITS, [&word](const stHabit& known) {
            return QLatin1Char(static_cast<char>(known.below.kind)) == word.front();
        });
        const QStringList numbers = word.mid(1).split(u',');
        stStep step{habit == HABITS.end() ? eStep{} : habit->below.kind};
        bool isStep = habit != HABITS.end() && numbers.size() <= std::ssize(step.numbers);
        for (qsizetype i = 0; isStep && i < numbers.size(); ++i) {
            step.numbers[static_cast<std::size_t>(i)] = numbers[i].toInt(&isStep);
        }
        if (!isStep) {
            return {};
        }
        walk.append(step);
    }
    return walk;
}
