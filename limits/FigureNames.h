#pragma once

#include "limits/FigurePath.h"

#include <optional>
#include <span>
#include <string_view>

namespace vireo {

/// What a figure is, and so how it can be limited.
enum class FigureType {
    Number,
    Text,
    Flag,      ///< True or false.
    List,      ///< Its elements can be counted.
    HeaderKey, ///< Any of these: as the key of a file's header has it.
};

/// Figures of one kind of file by their names. A name is written as in FigurePath, where a member
/// may be one of several: "planes.red|green|blue.min"; "[*]" stands for any element, "[3]" for one
/// of three. A first member "keys" followed by '*' stands for every common key of a header.
struct FigureRow {
    std::string_view pattern;
    FigureType type;
};

/// Whether a name is one of those that a pattern stands for.
bool MatchesFigure(std::string_view pattern, const FigurePath& path);

/// The kinds of files that have figures, and all their names.
struct KindFigures {
    std::string_view kind; ///< As the command line writes it: "light-profile".
    std::span<const FigureRow> rows;
};
std::span<const KindFigures> AllFigures();
/// Null for a kind that there is not, or that has no figures.
const KindFigures* FindKindFigures(std::string_view kind);

/// What the figure of a name is; nothing when no file of the kind has it.
std::optional<FigureType> FindFigure(const KindFigures& kind, const FigurePath& path);

} // namespace vireo
