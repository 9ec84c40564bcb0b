#include "support/inTurn.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <vector>

namespace {

double processorSeconds()
{
    timespec time = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

double median(const std::vector<Spent> &rounds, double Spent::*figure)
{
    std::vector<double> seconds;
    for (const Spent &round : rounds)
        seconds.push_back(round.*figure);
    const auto middle = seconds.begin() + static_cast<std::ptrdiff_t>(seconds.size() / 2);
    std::nth_element(seconds.begin(), middle, seconds.end());
    return *middle;
}

Spent medians(const std::vector<Spent> &rounds)
{
    return {median(rounds, &Spent::clock), median(rounds, &Spent::processor)};
}

TwoSides takeTurns(int rounds, const std::function<Spent()> &baseline,
                   const std::function<Spent()> &ours)
{
    std::vector<Spent> baselineRounds;
    std::vector<Spent> ourRounds;
    for (int round = 0; round < rounds; ++round) {
        baselineRounds.push_back(baseline());
        ourRounds.push_back(ours());
    }
    return {medians(baselineRounds), medians(ourRounds)};
}

} // namespace

Spent spentOn(const std::function<void()> &action)
{
    const double processor = processorSeconds();
    const auto start = std::chrono::steady_clock::now();
    action();
    const std::chrono::duration<double> clock = std::chrono::steady_clock::now() - start;
    return {clock.count(), processorSeconds() - processor};
}

TwoSides measureInTurn(int rounds, const std::function<void()> &baseline,
                       const std::function<void()> &ours)
{
    return takeTurns(
        rounds, [&] { return spentOn(baseline); }, [&] { return spentOn(ours); });
}

TwoSides compareInTurn(int rounds, const std::function<double()> &baseline,
                       const std::function<double()> &ours)
{
    const auto figureOf = [](const std::function<double()> &side) {
        const double figure = side();
        return Spent{figure, figure};
    };
    return takeTurns(
        rounds, [&] { return figureOf(baseline); }, [&] { return figureOf(ours); });
}
