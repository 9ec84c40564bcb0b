#pragma once

#include <functional>

/// What one side of a comparison takes, in seconds.
struct Spent
{
    double clock;     ///< as a user waits
    double processor; ///< of this process, all its threads
};

Spent spentOn(const std::function<void()> &action);

/// Medians over the rounds, each of the four figures for itself. The sides run in turn, so that
/// what else the machine does falls on both. On a busy machine both ratios waver all the same:
/// the clock's with the waiting, the processor's with the caches that others share.
struct TwoSides
{
    Spent baseline;
    Spent ours;
    double ratio() const { return ours.clock / baseline.clock; }
    double processorRatio() const { return ours.processor / baseline.processor; }
};

/// Rounds for what takes seconds, and for what takes milliseconds.
inline constexpr int fewRounds = 5;
inline constexpr int manyRounds = 51;

TwoSides measureInTurn(int rounds, const std::function<void()> &baseline,
                       const std::function<void()> &ours);

/// The same where a side takes its own time.
/// @param baseline, ours  each returns seconds, or whatever else is to be compared
TwoSides compareInTurn(int rounds, const std::function<double()> &baseline,
                       const std::function<double()> &ours);
