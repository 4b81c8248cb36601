#pragma once

#include "viewers/controls/LinePyramid.h"
#include "viewers/controls/ProfileView.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vireo {

/// A curve of a plot of many, one value a point. Empty slots have no name.
struct CurveSlot {
    std::string name;         ///< ASCII.
    std::uint32_t colour = 0; ///< 0x00BBGGRR.
    std::vector<double> values;
    RangePyramid<double> pyramid; ///< Of the values, once they are summarised.
    bool isVisible = false;
    bool isDashed = false;

    bool IsUsed() const { return !name.empty(); }
    bool IsShown() const { return isVisible && !values.empty(); }
};

/// The curves of a plot: 15 slots, each with a name by which it is switched on and off.
class CurveSlots {
public:
    static constexpr std::size_t kSlots = 15;
    using Visibility = std::array<bool, kSlots>;

    /// Fills a slot; the curve is solid and visible at first. The values are copied.
    void SetCurve(
        std::size_t index, std::string name, std::uint32_t colour, std::vector<double> values);
    void Clear() { m_slots = {}; }

    const CurveSlot& At(std::size_t index) const { return m_slots.at(index); }
    CurveSlot& At(std::size_t index) { return m_slots.at(index); }
    std::span<const CurveSlot, kSlots> All() const { return m_slots; }

    /// Builds the summaries that drawing needs; once after the slots have been filled.
    void Summarise();

    /// Points of the longest curve.
    std::int64_t Points() const;
    /// Lowest and highest value of the shown curves in a stretch; empty when there are none.
    ValueRange<double> RangeIn(const ProfileView& view) const;
    /// The value of a curve at a point, if it has one there that is a number.
    std::optional<double> ValueAt(std::size_t index, std::int64_t point) const;

    Visibility Visible() const;
    void SetVisible(const Visibility& visible);

private:
    std::array<CurveSlot, kSlots> m_slots;
};

} // namespace vireo
