#pragma once

#include <QFont>

namespace vireo {

/// The faces that the viewers ask for. Where a system has not got them, faces of the same widths
/// stand in; which ones is decided in Fonts.cpp and nowhere else.
inline constexpr const char* kSansFace = "MS Sans Serif";
inline constexpr const char* kMonospacedFace = "Courier New";

inline constexpr int kNormalWeight = 400;
inline constexpr int kBoldWeight = 700;

/// A font whose characters are `heightPixels` high (the em square), in the units of the painter.
/// Its widths grow evenly with the height, so that a drawing scaled onto paper keeps its layout.
QFont FontOfHeight(const char* face, double heightPixels, int weight = kNormalWeight);

/// A font of which a line, from the top of the tallest to the bottom of the lowest character, is
/// `heightPixels` high. This is the height that device contexts give their fonts; lines written
/// that far apart do not touch.
QFont FontOfLineHeight(const char* face, double heightPixels, int weight = kNormalWeight);

} // namespace vireo
