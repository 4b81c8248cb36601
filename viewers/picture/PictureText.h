#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vireo {

class PictureData;
struct TifPage;

/// The texts of the picture viewer that are worked out from its data. All are Windows-1252.

/// "8-bit gray".
std::string_view DepthText(const TifPage& page);
/// "LZW, horizontal differencing".
std::string CompressionText(const TifPage& page);
/// "300 dpi", or "not given".
std::string ResolutionText(const TifPage& page);
/// "21600 x 14000 pixels".
std::string SizeText(const TifPage& page);
/// "1828.80 x 1185.33 mm"; empty without a resolution.
std::string LengthText(const TifPage& page);
/// "12.3 MB", with the unit that suits.
std::string BytesText(std::uint64_t bytes);

/// What is under the pointer, 0-based. `position` is in pixels and, where the resolution is known,
/// in millimetres from the upper left corner; `value` the samples as the file has them; `camera`
/// empty where it is not known.
struct PixelReading {
    std::string position;
    std::string value;
    std::string camera;
};
PixelReading ReadPixel(const PictureData& data, std::int64_t column, std::int64_t row);

/// All that the page says, a line each, and behind an empty line its description.
std::string PageReport(const PictureData& data);

/// Why the picture is not shown as it is: it is kept reduced; empty when it is not.
std::string HoldingNote(const PictureData& data);

/// What somebody who looks at the picture should know: that it is kept reduced, that loading was
/// cancelled, or which rows the file has not got. Empty when the picture is complete, and while it
/// is loading.
std::string LoadingNote(const PictureData& data, bool isLoading);

/// The lines printed above the picture.
std::vector<std::string> PictureHeaderLines(const PictureData& data);

} // namespace vireo
