#include "viewers/controls/ProfileView.h"

#include <algorithm>

namespace vireo {

ProfileView ProfileView::Whole(std::int64_t lineLength)
{
    return {0.0, std::max(static_cast<double>(lineLength), 1.0)};
}

ProfileView ProfileView::Within(std::int64_t lineLength) const
{
    const double line = Whole(lineLength).length;
    ProfileView view;
    view.length = std::clamp(length, std::min(kShortest, line), line);
    view.first = std::clamp(first, 0.0, line - view.length);
    return view;
}

ProfileView ProfileView::ZoomedAt(double pixel, double factor, std::int64_t lineLength) const
{
    ProfileView view{first, length / factor};
    // The limits of the length come first: at a limit the anchor would otherwise drift.
    view.length = view.Within(lineLength).length;
    view.first = pixel - (pixel - first) * view.length / length;
    return view.Within(lineLength);
}

ProfileView ProfileView::CentredOn(double pixel, double factor, std::int64_t lineLength) const
{
    ProfileView view{first, length / factor};
    view.length = view.Within(lineLength).length;
    view.first = pixel - view.length / 2.0;
    return view.Within(lineLength);
}

ProfileView ProfileView::MovedBy(double pixels, std::int64_t lineLength) const
{
    return ProfileView{first + pixels, length}.Within(lineLength);
}

} // namespace vireo
