#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace vireo {

class StarTestData;
struct MarkedPicture;

/// Whether the test station keeps the raw pictures of live measurements: "F24_SavePicFiles=TRUE" in
/// its settings, exactly so.
bool StationSavesStarTestPictures();

/// The raw picture of the selected sweep, beside the file or in the folder "StarTest" beside it.
/// Nothing when there is none.
std::optional<std::filesystem::path> FindRawPicture(const StarTestData& data);
/// Why there is no picture to show: one clear sentence, UTF-8 as file names are.
std::string DescribeMissingPicture(const StarTestData& data);

/// A picture of the selected sweep with two marks at each line of the X range (its end excluded):
/// where the near-horizontal line was met, and where the near-vertical one was. The view begins at
/// the latter's place at line `cursorLine`.
MarkedPicture MarkPicture(
    const StarTestData& data, const std::filesystem::path& picture, std::int64_t cursorLine);

} // namespace vireo
