#pragma once

#include <functional>

/// Seconds that each of two sides takes, medians over @p rounds rounds. The sides run in turn, so
/// that what else the machine does falls on both.
struct TwoSides
{
    double baseline;
    double ours;
    double ratio() const { return ours / baseline; }
};

TwoSides measureInTurn(int rounds, const std::function<void()> &baseline,
                       const std::function<void()> &ours);
