#include "imagefile/TifConversion.h"

#include "imagefile/CFileIccProfileReader.h"
#include "imagefile/CLittleEndianFilter.h"
#include "imagefile/CTIFWriter.h"
#include "platform/FileIdentity.h"
#include "platform/Path.h"
#include "platform/RemoveOnStop.h"
#include "platform/Text.h"
#include "platform/WorkProgress.h"

#include <random>
#include <system_error>
#include <utility>

namespace vireo {

namespace {

/// The name of a file that is not there yet, and that is removed in the end.
class PassingFile {
public:
    PassingFile()
    {
        std::error_code error;
        const auto folder = std::filesystem::temp_directory_path(error);
        std::random_device random;
        m_path = folder / Format(".vireo-%08x%08x.icc", random(), random());
        RemoveOnStop(m_path);
    }
    PassingFile(const PassingFile&) = delete;
    PassingFile& operator=(const PassingFile&) = delete;
    ~PassingFile()
    {
        std::error_code ignored;
        std::filesystem::remove(m_path, ignored);
        KeepOnStop(m_path);
    }
    const std::filesystem::path& Path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

/// Passes rows on to the writer, which it tells first what the page says.
class Passage : public CLittleEndianFilter {
public:
    Passage(const TifConversion& conversion, const CTIFReader& reader, CTIFWriter& writer,
        std::filesystem::path ownProfile)
        : CLittleEndianFilter(reader, writer),
          m_conversion(conversion),
          m_settings(writer.Settings()),
          m_ownProfile(std::move(ownProfile))
    {
    }

    ImageResult BeginImage(ColorDepth depth, std::uint32_t width, std::uint32_t height,
        std::uint32_t resolution, std::uint32_t reserved1, std::uint32_t reserved2) override
    {
        ChooseForm(depth);
        ChooseProfile();
        ChooseSense(depth);
        m_settings.description = Reader().Description();
        if (Reader().ColorMapEntries() != 0) {
            m_settings.colorMap = Reader().Entries().colorMap;
            m_settings.colorMapValues = Reader().Entries().colorMapValues;
        }
        return CLittleEndianFilter::BeginImage(
            depth, width, height, resolution, reserved1, reserved2);
    }

private:
    void ChooseForm(ColorDepth depth)
    {
        const bool keepsForm = !m_conversion.compression;
        m_settings.compression = m_conversion.compression.value_or(Reader().Compression());
        // What a page may be and a writer does not make is written the plain way.
        const bool isWide = depth == ColorDepth::Gray16 || depth == ColorDepth::Rgb16;
        if (keepsForm && isWide && m_settings.compression == TifCompression::kPackBits)
            m_settings.compression = TifCompression::kNone;
        const bool keepsPredictor = keepsForm && m_settings.compression == TifCompression::kLzw
            && depth != ColorDepth::Palette8;
        m_settings.predictor =
            m_conversion.predictor.value_or(keepsPredictor ? Reader().Predictor() : 1);
    }

    /// Gray samples keep their meaning. So do runs, of which the reader makes white pixels whatever
    /// the page says, when they become runs again.
    void ChooseSense(ColorDepth depth)
    {
        const bool isBilevel = depth == ColorDepth::Bilevel;
        const std::uint16_t photometric = Reader().Photometric();
        if (!isBilevel
            || (TifCompression::IsCcitt(Reader().Compression())
                && photometric != TifPage::kNoPhotometric))
            m_settings.whiteIsZero = photometric == TifPage::kWhiteIsZero;
    }

    void ChooseProfile()
    {
        std::error_code ignored;
        if (!m_conversion.profile.empty())
            m_profile.emplace(m_conversion.profile);
        else if (std::filesystem::exists(m_ownProfile, ignored))
            m_profile.emplace(m_ownProfile);
        m_settings.profile = m_profile ? &*m_profile : nullptr;
        m_settings.requiresProfile = !m_conversion.profile.empty();
    }

    const TifConversion& m_conversion;
    TifSettings& m_settings;
    const std::filesystem::path m_ownProfile;
    std::optional<CFileIccProfileReader> m_profile;
};

std::string DescribeWriter(const TifConversion& conversion, const CTIFWriter& writer)
{
    const std::string text = writer.DescribeFailure();
    switch (writer.Result()) {
    case ImageResult::CantOpenTif:
    case ImageResult::CantWriteTif:
        return Utf8FromPath(conversion.output) + ": " + text;
    case ImageResult::CantOpenIcc:
        return Utf8FromPath(conversion.profile) + ": " + text;
    default:
        return text;
    }
}

} // namespace

std::string ConvertTif(const TifConversion& conversion, WorkProgress* progress)
{
    if (IsSameFile(conversion.input, conversion.output))
        return "The output would replace the file itself";
    if (!conversion.profile.empty()
        && IsSameFile(CFileIccProfileReader(conversion.profile).FileName(), conversion.output))
        return "The output would replace the profile " + Utf8FromPath(conversion.profile);
    const PassingFile profile;
    CTIFReader reader;
    CTIFWriter writer(conversion.output, {});
    Passage passage(conversion, reader, writer, profile.Path());
    reader.SetFile(conversion.input);
    reader.SetPage(conversion.page);
    reader.SetReceiver(passage);
    std::uint32_t rows = 0;
    const bool keepsProfile = conversion.profile.empty();
    ImageResult result = reader.Open(rows, keepsProfile ? profile.Path() : std::filesystem::path());
    WorkProgress unfollowed;
    WorkProgress& work = progress ? *progress : unfollowed;
    work.SetTotal(rows);
    std::uint32_t row = 0;
    for (; row < rows && result == ImageResult::Ok; ++row) {
        if (work.IsCancelled())
            return {};
        work.SetDone(row);
        result = reader.ReadLine();
    }
    if (result != ImageResult::Ok && writer.Result() == ImageResult::Ok)
        return std::string(Describe(result)) + (row > 0 ? Format(" in row %u", row - 1) : "");
    if (result == ImageResult::Ok)
        result = reader.Close(0);
    return result == ImageResult::Ok ? "" : DescribeWriter(conversion, writer);
}

} // namespace vireo
