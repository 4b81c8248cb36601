#pragma once

#include "viewers/controls/ViewerLimits.h"

#include <QIcon>

#include <string>

class QWidget;

namespace vireo {

/// How a verdict is shown: in words, and by a sign that does without colour.
struct VerdictView {
    enum class Look { Passed, Failed, Open };

    std::string text;
    Look look = Look::Open;
};

/// A file of which not all could be read has not passed.
VerdictView ViewOf(const LimitsAnswer& answer);

/// The sign of a verdict, at the device pixel ratio of a window: a tick in green, a cross in red,
/// or a ring in gray.
QIcon VerdictIcon(VerdictView::Look look, const QWidget& window);

} // namespace vireo
