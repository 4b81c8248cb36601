#include "bench/BenchCommand.h"
#include "bench/Figures.h"
#include "bench/TiffPicture.h"
#include "bench/Timing.h"
#include "cli/TifFormOptions.h"
#include "imagefile/CTIFWriter.h"
#include "platform/Path.h"
#include "platform/Text.h"

#include <cstring>
#include <random>
#include <system_error>

namespace vireo {

namespace {

void AddOptions(CommandOptions& command, BenchSettings& settings)
{
    AddBenchOptions(command, settings, Presence::Required);
    AddTifFormOptions(command, Presence::Required, settings.compression, settings.predictor);
    command.AddName("-o,--output OUT", "The file to write (default: a temporary one, removed)",
        settings.output);
}

/// A file that is removed in the end unless it was asked for.
class OutputFile {
public:
    explicit OutputFile(const std::filesystem::path& given)
        : m_path(given),
          m_isKept(!given.empty())
    {
        std::random_device random;
        if (!m_isKept)
            m_path = std::filesystem::temp_directory_path()
                / Format("vireo-bench-%08x%08x.tif", random(), random());
    }
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    ~OutputFile()
    {
        if (!m_isKept)
            Remove();
    }
    void Remove() const
    {
        std::error_code ignored;
        std::filesystem::remove(m_path, ignored);
    }
    const std::filesystem::path& Path() const { return m_path; }

private:
    std::filesystem::path m_path;
    bool m_isKept;
};

/// Writes the picture's rows; why it could not, or nothing.
std::string Encode(
    const TiffPicture& picture, const TifSettings& settings, const std::filesystem::path& file)
{
    CTIFWriter writer(file, settings);
    ImageResult result = writer.BeginImage(
        picture.Depth(), picture.Width(), picture.Height(), picture.Resolution(), 0, 0);
    for (std::uint32_t row = 0; row < picture.Height() && result == ImageResult::Ok; ++row) {
        std::memcpy(writer.GetLineBuffer(), picture.Row(row), picture.RowBytes());
        result = writer.LineDone();
    }
    if (result == ImageResult::Ok)
        result = writer.EndImage(0);
    return result == ImageResult::Ok ? "" : writer.DescribeFailure();
}

FileResult Run(const BenchSettings& settings)
{
    const std::filesystem::path file = PathFromUtf8(settings.file);
    std::error_code error;
    if (std::filesystem::equivalent(file, settings.output, error) && !error)
        return {{}, "The output would replace the file itself"};
    TiffPicture picture;
    const ImageResult result = picture.Decode(file, 1, TiffPicture::Samples::LittleEndian);
    if (result != ImageResult::Ok)
        return {{}, std::string(Describe(result))};
    TifSettings form;
    form.compression = settings.compression.value_or(TifCompression::kNone);
    form.predictor = settings.predictor.value_or(1);
    form.colorMap = picture.ColorMap();

    const OutputFile output(settings.output);
    std::string failure = Encode(picture, form, output.Path()); // Warms up.
    std::vector<double> seconds;
    for (int i = 0; i < settings.repeat && failure.empty(); ++i) {
        // Each run makes a new file. To replace one, the writer would wait for the disk.
        output.Remove();
        seconds.push_back(TimeOf([&] { failure = Encode(picture, form, output.Path()); }));
    }
    if (!failure.empty())
        return {{}, failure};
    return {ToLine(PixelFigures(seconds, picture.Bytes(), FileBytes(output.Path()), 1)), {}};
}

} // namespace

BenchCommand TiffEncodeBench()
{
    return {
        "tiff-encode", "The rows of a TIFF file, in memory, written to another", AddOptions, Run};
}

} // namespace vireo
