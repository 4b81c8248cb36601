#include "viewers/startest/StarTestAverage.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace vireo {

MeanAndDeviation MeanAndDeviationOf(std::span<const double> values)
{
    if (values.empty())
        return {};
    const auto count = static_cast<double>(values.size());
    MeanAndDeviation result;
    result.mean = std::accumulate(values.begin(), values.end(), 0.0) / count;
    if (values.size() < 2)
        return result;
    double squares = 0.0;
    for (const double value : values)
        squares += (value - result.mean) * (value - result.mean);
    result.deviation = std::sqrt(squares / (count - 1.0));
    return result;
}

namespace {

using Rounds = std::vector<const StarTestSweep*>;

void AverageCurves(const Rounds& rounds, StarTestSweep& average)
{
    std::vector<double> values;
    for (std::size_t line = 0; line < average.m_XVibrationAverage.size(); ++line) {
        values.clear();
        for (const StarTestSweep* const round : rounds)
            if (line < round->m_XVibrationAverage.size())
                values.push_back(round->m_XVibrationAverage[line]);
        const MeanAndDeviation figures = MeanAndDeviationOf(values);
        average.m_XVibrationAverage[line] = static_cast<float>(figures.mean);
        average.m_ScanSpeedCurve[line] = static_cast<float>(figures.deviation);
    }
}

void AveragePoints(const Rounds& rounds, StarTestSweep& average)
{
    constexpr std::size_t kDeviationsBehind = 10;
    const auto count = static_cast<std::size_t>(rounds.front()->m_iPointCount);
    average.m_iPointCount = rounds.front()->m_iPointCount;
    average.m_Points.resize(count == 0 ? 0 : (kDeviationsBehind + 1) * count);
    std::vector<double> values;
    for (std::size_t i = 0; i < count; ++i) {
        values.clear();
        StarTestPoint& point = average.m_Points[i];
        for (const StarTestSweep* const round : rounds) {
            if (i >= static_cast<std::size_t>(round->m_iPointCount))
                continue;
            point.m_iValue += round->m_Points[i].m_iValue;
            values.push_back(round->m_Points[i].m_dDeviation);
        }
        const MeanAndDeviation figures = MeanAndDeviationOf(values);
        point.m_dDeviation = figures.mean;
        average.m_Points[i + kDeviationsBehind * count].m_dDeviation = figures.deviation;
    }
}

StarTestSweep AverageOf(const Rounds& rounds)
{
    const StarTestSweep& first = *rounds.front();
    StarTestSweep average;
    average.SetRows({}, first.m_iLineCount);
    average.m_bAvgResult = true;
    average.m_iScanSpeed = first.m_iScanSpeed;
    average.m_dScanWidth = first.m_dScanWidth;
    average.m_iResolution = first.m_iResolution;
    average.m_iXVib_Start = first.m_iXVib_Start;
    average.m_iXVib_End = first.m_iXVib_End;
    average.m_iYVib_Start = first.m_iYVib_Start;
    average.m_iYVib_End = first.m_iYVib_End;
    average.m_iWideLine_Start = first.m_iWideLine_Start;
    average.m_iWideLine_End = first.m_iWideLine_End;
    average.m_SpeedTable = first.m_SpeedTable;
    average.m_XRestart = first.m_XRestart;
    AverageCurves(rounds, average);
    AveragePoints(rounds, average);
    average.JudgePoints();
    return average;
}

} // namespace

void AppendAverages(std::vector<StarTestSweep>& sweeps, std::int32_t repeat)
{
    if (repeat < 1)
        return;
    const auto roundCount = static_cast<std::size_t>(repeat);
    const std::size_t groupCount = sweeps.size() / roundCount;
    // What is appended must not move the sweeps that it is made of.
    sweeps.reserve(sweeps.size() + groupCount);
    for (std::size_t group = 0; group < groupCount; ++group) {
        Rounds rounds(roundCount);
        for (std::size_t round = 0; round < roundCount; ++round)
            rounds[round] = &sweeps[round * groupCount + group];
        sweeps.push_back(AverageOf(rounds));
    }
}

} // namespace vireo
