#pragma once

#include "app/FileKind.h"
#include "cli/FileSource.h"
#include "cli/PictureSize.h"
#include "imagefile/TifConversion.h"
#include "viewers/controls/PositionUnit.h"
#include "viewers/controls/ProfileLine.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace vireo {

class DrawingTarget;
class LimitsFile;

/// The format of a rendered picture, told by its file's extension.
enum class PictureFormat { Png, Svg, Pdf };

enum class PaperSize { A4, A3, Letter };

/// Everything that the command line can say; each command fills what it has options for.
struct Settings {
    std::vector<std::string> files; ///< As given, in UTF-8; folders too.
    FolderRule folders = FolderRule::Refused;
    std::optional<FileKind> kind; ///< What every file is taken as, instead of recognising it.
    std::size_t jobs = 1;         ///< Files worked on at the same time.
    std::int64_t line = 0;        ///< 0-based.
    std::filesystem::path output;
    std::filesystem::path limits;           ///< Empty: none.
    const LimitsFile* limitsFile = nullptr; ///< What has been read of it; see RunWithLimits.
    DrawingTarget* target = nullptr;        ///< What takes drawings; null: they go into the output.

    PictureFormat format = PictureFormat::Png;
    /// Of the plot in pixels; of a page's main plot, which is scaled to the paper, in the units of
    /// its layout.
    std::optional<PictureSize> givenSize;
    PictureSize PlotSize() const
    {
        constexpr PictureSize kPicture{1600, 500};
        constexpr PictureSize kOnPage{960, 300}; // About the dialog's; its text is legible on A4.
        return givenSize.value_or(format == PictureFormat::Pdf ? kOnPage : kPicture);
    }

    int scale = 1; ///< Pixels of a PNG for each of the size, along each side.
    /// In pixels of the file.
    PictureSize ScaledSize() const
    {
        const PictureSize size = PlotSize();
        const int pixels = format == PictureFormat::Png ? scale : 1;
        return {size.width * pixels, size.height * pixels};
    }

    PaperSize paper = PaperSize::A4;
    std::optional<int> camera;         ///< 0 for A; else the whole line is shown.
    std::optional<ShownColour> colour; ///< Else the one that the viewer begins with.
    std::optional<PositionUnit> unit;  ///< Of positions on a noise line; else the viewer's.
    int zoom = 1;
    std::optional<std::int64_t> sweep; ///< 0-based; else the one that the viewer begins with.
    std::optional<int> listPage;       ///< 1-based; of the lines of text instead of the plot.
    std::optional<int> view;           ///< In kinds that have several; else the first.
    bool arrays = false;               ///< Tell whole curves, not only their figures.

    TifConversion conversion; ///< Without the files.
    bool isWhole = false;     ///< All of a picture is shown, at the zoom that this takes.

    std::uint32_t errorCode = 0;
    bool plateScanner = false; ///< Errors are worded for scanners with a moving table.
};

} // namespace vireo
