#include "figures/TiffJson.h"

#include "figures/Analysers.h"
#include "figures/Json.h"
#include "figures/Subject.h"
#include "imagefile/CTIFReader.h"
#include "platform/Sha256.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace vireo {

namespace {

/// Takes one row at a time, so that a picture of any height needs no more memory than a row.
class RowBuffer : public CImageReceiver {
public:
    ImageResult BeginImage(ColorDepth depth, std::uint32_t width, std::uint32_t, std::uint32_t,
        std::uint32_t, std::uint32_t) override
    {
        m_row.resize(static_cast<std::size_t>(BytesPerRow(depth, width)));
        return ImageResult::Ok;
    }
    std::uint8_t* GetLineBuffer() override
    {
        std::fill(m_row.begin(), m_row.end(), std::uint8_t{0});
        return m_row.data();
    }
    ImageResult LineDone() override { return ImageResult::Ok; }
    ImageResult EndImage(std::uint32_t) override { return ImageResult::Ok; }

    std::span<const std::uint8_t> Row() const { return m_row; }

private:
    std::vector<std::uint8_t> m_row;
};

std::string HexCode(ImageResult result)
{
    char text[16];
    std::snprintf(text, sizeof(text), "0x%08x", static_cast<unsigned>(result));
    return text;
}

/// The digest of all rows, those that fail with what they hold. `result` takes the first failure.
std::string DigestOfRows(CTIFReader& reader, const RowBuffer& buffer, std::uint32_t rows,
    const std::stop_token& stop, ImageResult& result)
{
    Sha256 digest;
    for (std::uint32_t row = 0; row < rows && !stop.stop_requested(); ++row) {
        const ImageResult rowResult = reader.ReadLine();
        if (result == ImageResult::Ok)
            result = rowResult;
        digest.Add(buffer.Row());
    }
    return digest.HexDigest();
}

} // namespace

FiguresResult AnalyseTiff(const Subject& subject, const AnalyseSettings& settings)
{
    RowBuffer buffer;
    CTIFReader reader;
    reader.SetFile(subject.path);
    reader.SetReceiver(buffer);
    std::uint32_t rows = 0;
    ImageResult result = reader.Open(rows);
    Json digest;
    if (result == ImageResult::Ok && settings.contents)
        digest = DigestOfRows(reader, buffer, rows, settings.stop, result);
    if (settings.stop.stop_requested())
        return {{}, kCancelled};

    Json object = BeginObject(subject);
    object["pages"] = reader.Pages();
    object["page"] = reader.Page();
    object["width"] = reader.Width();
    object["height"] = reader.Height();
    object["color_depth_code"] = static_cast<unsigned>(reader.Depth());
    object["resolution"] = reader.Resolution();
    object["compression"] = reader.Compression();
    object["photometric"] = reader.Photometric() == TifPage::kNoPhotometric
        ? Json(nullptr)
        : Json(reader.Photometric());
    object["predictor"] = reader.Predictor();
    const std::string& description = reader.Description();
    object["description"] = FileText(description.substr(0, description.find('\0')));
    object["row_bytes"] = reader.RowBytes();
    object["result"] = HexCode(result);
    object["pixels_sha256"] = std::move(digest);
    return {std::move(object), std::string(Describe(result))};
}

} // namespace vireo
