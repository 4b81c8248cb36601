#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace vireo {

/// A stretch of a line that leaves the band around its average: a dip below or a peak above.
enum class NoiseMarkKind { Dip, Peak };

/// The band around a plane's average, +-5 % unless told, and where a line leaves it. Values are 0
/// to 255.
struct NoiseBand {
    /// Shorter lines have no band and no marks.
    static constexpr std::int64_t kFewestPixels = 101;
    /// The average that stands for missing data.
    static constexpr int kDefaultAverage = 200;
    static constexpr int kPercent = 5;

    int average = kDefaultAverage;
    int percent = kPercent;

    double Upper() const { return (100 + percent) / 100.0 * average; }
    double Lower() const { return (100 - percent) / 100.0 * average; }
    /// The whole part of the band's limit: a dip is a run of lower values, a peak of higher ones.
    int Limit(NoiseMarkKind kind) const
    {
        // Hundredths are exact, and so are their whole parts.
        return (kind == NoiseMarkKind::Dip ? 100 - percent : 100 + percent) * average / 100;
    }
    bool IsOutside(NoiseMarkKind kind, int value) const
    {
        return kind == NoiseMarkKind::Dip ? value < Limit(kind) : value > Limit(kind);
    }
};

/// Finds the runs of one kind over a whole line, in one pass. Gives for each run, in order, its
/// mark: the index of its first lowest (dip) or first highest (peak) sample. Lines below
/// NoiseBand::kFewestPixels have none. The line has at most 2^31 - 1 samples.
std::vector<std::int32_t> FindNoiseMarks(
    std::span<const std::uint8_t> samples, const NoiseBand& band, NoiseMarkKind kind);

/// The marks of one kind in a stretch of a line, in order. A run that the stretch cuts is marked at
/// the first extreme of the part inside; the marks of all others are those of the whole line, which
/// are looked at only when they are asked for: making this costs next to nothing however many.
class NoiseMarksInView {
public:
    NoiseMarksInView() = default;
    /// `marks` are those of the whole line, which must outlive this; the stretch is
    /// first <= i < end.
    NoiseMarksInView(std::span<const std::uint8_t> samples, std::span<const std::int32_t> marks,
        const NoiseBand& band, NoiseMarkKind kind, std::int64_t first, std::int64_t end);

    std::size_t Count() const
    {
        return m_whole.size() + (m_cutFirst ? 1U : 0U) + (m_cutLast ? 1U : 0U);
    }
    /// Index of the pixel of mark number `number`.
    std::int32_t At(std::size_t number) const;
    /// Number of the first mark at or behind a pixel; Count() when there is none.
    std::size_t FirstFrom(std::int64_t pixel) const;

private:
    std::optional<std::int32_t> m_cutFirst;
    std::span<const std::int32_t> m_whole;
    std::optional<std::int32_t> m_cutLast;
};

} // namespace vireo
