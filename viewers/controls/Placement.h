#pragma once

class QWidget;

namespace vireo {

/// Moves a window into the middle of its desktop. One that is larger keeps its upper left corner on
/// it.
void CentreOnDesktop(QWidget& window);

} // namespace vireo
