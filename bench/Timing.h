#pragma once

#include <functional>
#include <vector>

namespace vireo {

/// Wall-clock time of one call, in seconds, by a clock that is never set back.
double TimeOf(const std::function<void()>& work);

/// The times of `repeat` calls after one that warms caches up and is not counted.
std::vector<double> TimesOf(int repeat, const std::function<void()>& work);

/// The middle value; of an even number of values the mean of the middle two. There must be one.
double Median(std::vector<double> values);
double Smallest(const std::vector<double>& values);
double Largest(const std::vector<double>& values);

} // namespace vireo
