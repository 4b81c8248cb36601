#include "scanner/ScanLineAverage.h"

#include <algorithm>
#include <utility>

namespace vireo {

void ScanLineAverage::SetLines(int lines)
{
    m_lines = std::clamp(lines, 1, kMostLines);
    Restart();
}

void ScanLineAverage::Restart()
{
    m_kept.clear();
    for (auto& sums : m_sums)
        sums.clear();
}

bool ScanLineAverage::Fits(const ScanLine& line) const
{
    for (std::size_t plane = 0; plane < line.planes.size(); ++plane)
        if (line.planes[plane].size() != m_sums[plane].size())
            return false;
    return true;
}

void ScanLineAverage::Add(const ScanLine& line, ScanLine& average)
{
    if (!Fits(line)) {
        Restart();
        for (std::size_t plane = 0; plane < line.planes.size(); ++plane)
            m_sums[plane].resize(line.planes[plane].size());
    }
    ScanLine oldest;
    if (m_kept.size() == static_cast<std::size_t>(m_lines)) {
        oldest = std::move(m_kept.front());
        m_kept.pop_front();
    }
    m_kept.push_back(line);
    const auto count = static_cast<std::uint32_t>(m_kept.size());
    for (std::size_t plane = 0; plane < line.planes.size(); ++plane) {
        auto& sums = m_sums[plane];
        const auto& added = line.planes[plane];
        const auto& removed = oldest.planes[plane];
        auto& samples = average.planes[plane];
        samples.resize(sums.size());
        for (std::size_t pixel = 0; pixel < removed.size(); ++pixel)
            sums[pixel] -= removed[pixel];
        for (std::size_t pixel = 0; pixel < sums.size(); ++pixel) {
            sums[pixel] += added[pixel];
            samples[pixel] = static_cast<std::uint8_t>((sums[pixel] + count / 2) / count);
        }
    }
}

void ScanLineHold::Add(const ScanLine& line)
{
    for (std::size_t plane = 0; plane < line.planes.size(); ++plane) {
        const auto& samples = line.planes[plane];
        auto& low = lowest.planes[plane];
        auto& high = highest.planes[plane];
        if (low.size() != samples.size()) {
            low = samples;
            high = samples;
            continue;
        }
        for (std::size_t pixel = 0; pixel < samples.size(); ++pixel) {
            low[pixel] = std::min(low[pixel], samples[pixel]);
            high[pixel] = std::max(high[pixel], samples[pixel]);
        }
    }
}

} // namespace vireo
