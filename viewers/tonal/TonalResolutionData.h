#pragma once

#include "platform/PositionalFile.h"
#include "viewers/tonal/TonalFormulas.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

namespace vireo {

/// What came of reading a tonal resolution file.
enum class [[nodiscard]] TonalResult{
    Ok,
    CantRead,      ///< The file cannot be opened or read, or is too large.
    WrongKind,     ///< There is no section "[Tonal Resolution]".
    NoMeasurement, ///< The scanner's name is "Default": nothing was measured.
};

/// The channels of a scan, as indices.
enum TonalChannel : std::size_t { TonalRed = 0, TonalGreen = 1, TonalBlue = 2 };
inline constexpr std::size_t kTonalChannels = 3;

/// Red, green and blue.
template <typename Value>
using TonalTriple = std::array<Value, kTonalChannels>;

/// One gray patch of the target: what the reference file says of it, what the scanner saw, and what
/// is worked out from both.
struct TonalPatch {
    double lightness = 0.0; ///< L* from the reference file.
    std::int32_t count = 0; ///< Samples of each channel.
    TonalTriple<std::int32_t> sum{};
    TonalTriple<std::int32_t> sumOfSquares{};

    double density = 0.0;       ///< Of the lightness; 0 where it has none.
    TonalTriple<double> scan{}; ///< ScanValue of the channel's mean: 0 to 255.

    /// Mean of a channel's samples; 0 without samples.
    double Mean(std::size_t channel) const { return Quotient(sum[channel], count); }
};

/// The record of a tonal resolution test: the 24 gray patches GS00 (lightest) to GS23 (darkest) of
/// an IT8 target as a scanner saw them, and the figures worked out from them: how linear the
/// scanner is, how far into the dark it can tell patches apart, and how noisy it is.
///
/// The figures that a file holds are not believed: reading works them out anew from the sums of the
/// patches. Floating-point values of a file have single precision; the arithmetic is in double.
class TonalResolutionData {
public:
    static constexpr std::size_t kPatches = 24;
    /// A patch of a higher density is dark, any other is light.
    static constexpr double kDarkDensity = 1.65;
    /// Longer files are no tonal resolution files: one has some three thousand bytes.
    static constexpr std::size_t kLargestFile = std::size_t{1} << 20;

    /// Reads a file and works out all figures; forgets what was read before. The fault of version-1
    /// files is corrected in memory, see IsCorrected(). No file is changed. After any result but Ok
    /// the record is empty.
    TonalResult Read(const std::filesystem::path& path);
    /// One clear sentence for a result other than Ok.
    std::string DescribeFailure(TonalResult result) const;

    /// Writes the record, complete or not at all; the file name becomes `path` in any case.
    FileStatus Write(const std::filesystem::path& path);

    /// Works out every figure from the patches. A record of version -1 becomes one of version 3.
    void Recompute();

    /// A file was read.
    bool IsLoaded() const { return m_bLoaded; }
    /// The file was of version 1 with the fault of the green channel, which has been corrected.
    bool IsCorrected() const { return m_bCorrected; }
    /// The bytes of the file as read.
    const std::string& FileText() const { return m_fileText; }

    // The record.
    std::int32_t m_iVersion = -1;
    std::filesystem::path m_FileName = "Default"; ///< Last read or written.
    std::string m_ScannerName;
    std::string m_Date;
    std::string m_Time;
    std::string m_SerialNo;
    std::string m_ChassisNo;
    std::string m_FirmwareBuild;
    std::string m_IT8RefFile;
    std::int32_t m_iGammaSlopeLimit = 0;
    std::array<TonalPatch, kPatches> m_patches{};

    // The figures; -1 until they are worked out.
    double m_dIT8DynamicRange = -1.0;     ///< Densities from the lightest patch to the darkest.
    double m_dScannerDynamicRange = -1.0; ///< The same between the two patches below.
    /// Where the scanner's range ends in the dark: from this patch on it tells none apart from the
    /// darkest.
    std::int32_t m_iIndexMaxDynamicRange = 0;
    /// Where it begins in the light: up to this patch it tells none apart from the lightest.
    std::int32_t m_iIndexMinDynamicRange = 0;
    TonalTriple<LineFit> m_fit{LineFit{-1.0, -1.0, -1.0}, {-1.0, -1.0, -1.0}, {-1.0, -1.0, -1.0}};
    double m_dMaxLightDeviation = 0.0; ///< Of the scan values from the fitted lines.
    double m_dMaxDarkDeviation = 0.0;
    TonalTriple<double> m_dBitDepthLight{};
    TonalTriple<double> m_dBitDepthDark{};
    std::int32_t m_iBitDepthLightIndex = 0; ///< The patch of the light colour's bit depths.
    std::int32_t m_iBitDepthDarkIndex = 0;
    double m_dBitDepthLightTarget = 0.0; ///< The density that this patch should be nearest to.
    double m_dBitDepthDarkTarget = 0.0;

    /// How far a patch's scan value lies from the fitted line.
    double DeviationOf(const TonalPatch& patch, std::size_t channel) const
    {
        return patch.scan[channel] - m_fit[channel].At(patch.lightness);
    }

private:
    TonalResult ReadText();
    bool HasGreenFault() const;
    void CorrectGreenFault();
    bool IsTellingApart(std::size_t patch, std::size_t end) const;
    void ComputePatches();
    void ComputeDynamicRange();
    void ComputeLinearity();
    void ComputeDeviations();
    void ComputeBitDepths();

    bool m_bLoaded = false;
    bool m_bCorrected = false;
    std::string m_fileText;
    FileStatus m_readStatus = FileStatus::Ok;
};

} // namespace vireo
