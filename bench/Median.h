#pragma once

#include <algorithm>

// The median of timed runs (the upper one of an even count); the runs come
// by value and are sorted in that copy.
template <typename Runs>
double Median(Runs runs)
{
    std::sort(runs.begin(), runs.end());
    return runs[runs.size() / 2];
}
