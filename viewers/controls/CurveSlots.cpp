#include "viewers/controls/CurveSlots.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vireo {

void CurveSlots::SetCurve(
    std::size_t index, std::string name, std::uint32_t colour, std::vector<double> values)
{
    m_slots.at(index) = {std::move(name), colour, std::move(values), {}, true, false};
}

void CurveSlots::Summarise()
{
    for (CurveSlot& slot : m_slots)
        slot.pyramid.Build(slot.values);
}

std::int64_t CurveSlots::Points() const
{
    std::int64_t points = 0;
    for (const CurveSlot& slot : m_slots)
        points = std::max<std::int64_t>(points, std::ssize(slot.values));
    return points;
}

ValueRange<double> CurveSlots::RangeIn(const ProfileView& view) const
{
    ValueRange<double> range;
    for (const CurveSlot& slot : m_slots)
        if (slot.IsShown())
            range.Include(
                slot.pyramid.Range(slot.values, static_cast<std::int64_t>(std::ceil(view.first)),
                    static_cast<std::int64_t>(std::floor(view.End())) + 1));
    return range;
}

std::optional<double> CurveSlots::ValueAt(std::size_t index, std::int64_t point) const
{
    const std::vector<double>& values = m_slots.at(index).values;
    if (point < 0 || point >= std::ssize(values))
        return std::nullopt;
    const double value = values[static_cast<std::size_t>(point)];
    return std::isnan(value) ? std::nullopt : std::optional(value);
}

CurveSlots::Visibility CurveSlots::Visible() const
{
    Visibility visible{};
    std::ranges::transform(m_slots, visible.begin(), &CurveSlot::isVisible);
    return visible;
}

void CurveSlots::SetVisible(const Visibility& visible)
{
    for (std::size_t i = 0; i < kSlots; ++i)
        m_slots[i].isVisible = visible[i];
}

} // namespace vireo
