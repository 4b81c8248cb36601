#include "bench/Timing.h"

#include <algorithm>
#include <chrono>

namespace vireo {

double TimeOf(const std::function<void()>& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

std::vector<double> TimesOf(int repeat, const std::function<void()>& work)
{
    work();
    std::vector<double> times;
    for (int i = 0; i < repeat; ++i)
        times.push_back(TimeOf(work));
    return times;
}

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2.0;
}

double Smallest(const std::vector<double>& values)
{
    return *std::min_element(values.begin(), values.end());
}

double Largest(const std::vector<double>& values)
{
    return *std::max_element(values.begin(), values.end());
}

} // namespace vireo
