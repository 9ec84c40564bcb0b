#include "support/inTurn.h"

#include <algorithm>
#include <chrono>
#include <vector>

namespace {

double secondsOf(const std::function<void()> &action)
{
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> seconds)
{
    const auto middle = seconds.begin() + static_cast<std::ptrdiff_t>(seconds.size() / 2);
    std::nth_element(seconds.begin(), middle, seconds.end());
    return *middle;
}

} // namespace

TwoSides measureInTurn(int rounds, const std::function<void()> &baseline,
                       const std::function<void()> &ours)
{
    std::vector<double> baselineSeconds;
    std::vector<double> ourSeconds;
    for (int round = 0; round < rounds; ++round) {
        baselineSeconds.push_back(secondsOf(baseline));
        ourSeconds.push_back(secondsOf(ours));
    }
    return {median(std::move(baselineSeconds)), median(std::move(ourSeconds))};
}
