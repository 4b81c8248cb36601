#pragma once

#include "platform/PositionalFile.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

namespace vireo {

/// What came of loading a header from a file.
enum class [[nodiscard]] HeaderResult{
    Ok,
    NothingRead,           ///< The file is empty or cannot be read, or begins with byte 0xCD.
    NoDataPointer,         ///< There is no '=' in the first 100 bytes.
    BadDataPointer,        ///< The offset is zero, negative or not a number.
    DataPointerBeyondFile, ///< The offset lies behind the end of the file.
    TooLong,               ///< The offset is above kMaxHeaderBytes.
};

std::string_view Describe(HeaderResult result);

/// A header value: whether its key is there and could be read, and the value, which is 0 (false,
/// empty) when not.
template <typename Value>
struct HeaderValue {
    bool found = false;
    Value value{};
};

/// The text header of a test-result file: the section tag, the "DataPointer=" line with the offset
/// of the data block, and key=value lines. Reads and writes every key that the tests share.
///
/// A key is searched anywhere in the text, not only at line starts, and the first occurrence wins;
/// its value runs to the next CR or LF. Text is 8-bit Windows-1252.
class TestFileHeader {
public:
    /// A longer header is refused: no writer comes near it.
    static constexpr std::size_t kMaxHeaderBytes = 1024 * 1024;
    /// How much of a file is read to recognise it.
    static constexpr std::size_t kProbeBytes = 100;
    /// The data offset takes this many characters behind the first '='.
    static constexpr std::size_t kDataOffsetCharacters = 10;
    /// Codes of CameraUsed and Color that stand for several.
    static constexpr int kAllCameras = 255;
    static constexpr int kColorAll = 3;
    static constexpr int kColorGray = 4;
    static constexpr int kColorInterleaved = 254;

    TestFileHeader() = default;

    /// Takes the text up to its first zero byte.
    void SetText(std::string_view text);
    const std::string& Text() const { return m_text; }

    /// Reads the header of a file: the data offset from its first 100 bytes, then as many bytes as
    /// the offset says. The text is empty unless the result is Ok.
    HeaderResult Load(const PositionalFile& file);

    /// Takes the first 100 bytes of a file, by which it is recognised.
    void LoadProbe(const PositionalFile& file);

    /// Takes the keys of a file that tells no data offset: up to the first `end` in it, or, with an
    /// empty `end`, all of it; never more than kMaxHeaderBytes.
    void LoadKeys(const PositionalFile& file, std::string_view end);

    /// The integer of the 10 characters behind the first '='; 0 when there is none. Not checked
    /// against any file.
    std::int32_t DataOffset() const;

    /// Whether the text holds a key, which includes its '=', anywhere.
    bool HasKey(std::string_view key) const { return m_text.find(key) != std::string::npos; }

    /// Whether the text holds a section tag, such as "[MTF]", anywhere.
    bool HasTag(std::string_view tag) const { return m_text.find(tag) != std::string::npos; }
    bool IsLightProfile() const;
    bool IsG3LightProfile() const;
    bool IsLiveOscilloscope() const;
    bool IsOscilloscope() const;
    bool IsMtf() const;
    bool IsNoiseTest() const;
    bool IsStitchTest() const;
    bool IsKitbag() const;
    bool IsKestrel6Settings() const;
    bool IsIsKestrel6Settings() const;
    /// "[Adjust Center CCD]" or "[Scan-Line Positioning]".
    bool IsAdjustCenterCCD() const;
    /// "[Vertical Camera Verification]" or "[Mirror Carriage Adjustment]".
    bool IsVerticalCameraVerification() const;
    bool IsStarTest() const;
    bool IsTonalResolution() const;

    HeaderValue<std::string> ScannerName() const;
    HeaderValue<std::string> ScannerID() const;
    HeaderValue<int> FirmwareRevision() const;
    HeaderValue<int> FirmwareBuild() const;
    HeaderValue<int> Generation() const;
    HeaderValue<int> ScannerFamily() const;
    HeaderValue<int> Resolution() const; ///< Dots per inch.
    HeaderValue<bool> ColorScanner() const;
    HeaderValue<bool> Corrected() const;
    /// Fails for every value that does not begin with 'T' or 't', so for "FALSE" too.
    HeaderValue<bool> IsSigned32Profile() const;
    HeaderValue<int> ScannerWidth() const; ///< In 1/1200 inch.
    /// Fails unless all three integers convert.
    HeaderValue<std::array<int, 3>> CenterLines() const;
    /// The integers that convert; those after the first that does not are 0.
    HeaderValue<std::array<int, 3>> Magnification() const;
    HeaderValue<int> CameraCount() const;
    HeaderValue<int> CameraPixels(int camera) const; ///< Camera 0 (A) to 7 (H).
    /// 0 to 3, or kAllCameras. The letters "E" to "H" read back as 0: files say so, and the tools
    /// that read them have always taken it that way.
    HeaderValue<int> CameraUsed() const;
    HeaderValue<int> SelectedCamera() const;
    /// 0 red, 1 green, 2 blue, kColorGray, kColorInterleaved. "NONE" reads back as green.
    HeaderValue<int> Color() const;
    HeaderValue<int> Height() const; ///< Lines.
    HeaderValue<int> Length() const;
    HeaderValue<int> Width() const; ///< Pixels.
    HeaderValue<std::string> Date() const;
    HeaderValue<std::string> Time() const;
    HeaderValue<int> NoiseLimit() const; ///< Percent.
    HeaderValue<std::string> ProgramName() const;
    HeaderValue<std::string> ProgramVersion() const;
    HeaderValue<std::string> ProgramBuild() const;
    HeaderValue<std::string> Kestrel6Revision() const;
    HeaderValue<std::string> Kestrel6Build() const;
    HeaderValue<bool> UsesDefaultDirectory() const; ///< "KvMT_ContScanUseDefaultDirectory=".

    // Generic readers; the key includes its '='. A truth value is true when it begins with 't' or
    // 'T'; an integer is read like ParseInteger does.
    HeaderValue<bool> ReadBool(std::string_view key) const;
    HeaderValue<std::string> ReadText(std::string_view key) const;
    HeaderValue<int> ReadInteger(std::string_view key) const;

    /// Appends a tag line and, for the tags that carry one, the placeholder line of the data
    /// offset.
    void WriteLightProfileTag();
    void WriteG3LightProfileTag();
    void WriteLiveOscilloscopeTag();
    void WriteOscilloscopeTag();
    void WriteMtfTag();
    void WriteNoiseTestTag();
    void WriteStitchTestTag();
    void WriteKestrel6SettingsTag();

    void WriteScannerName(std::string_view name);
    void WriteScannerID(std::string_view id);
    void WriteFirmwareRevision(int revision);
    void WriteFirmwareBuild(int build);
    void WriteGeneration(int generation);
    void WriteScannerFamily(int family);
    void WriteResolution(int dpi);
    void WriteColorScanner(bool color);
    void WriteCorrected(bool corrected);
    void WriteIsSigned32Profile(bool isSigned32);
    void WriteScannerWidth(int width);
    void WriteCenterLines(const std::array<int, 3>& lines);
    void WriteMagnification(const std::array<int, 3>& magnification);
    void WriteCameraCount(int count);
    void WriteCameraPixels(int camera, int pixels);
    void WriteCameraUsed(int camera);
    void WriteSelectedCamera(int camera);
    void WriteColor(int color);
    void WriteHeight(int lines);
    void WriteLength(int length);
    void WriteWidth(int pixels);
    void WriteDate(std::string_view date);
    void WriteTime(std::string_view time);
    void WriteNoiseLimit(int percent);
    void WriteProgramName(std::string_view name);
    void WriteProgramVersion(std::string_view version);
    void WriteProgramBuild(std::string_view build);
    void WriteUnknownKestrel6Revision();
    /// Appends a text as it stands.
    void WriteText(std::string_view text);
    /// Appends `revision` and a line end.
    void WriteProgramRevision(std::string_view revision);
    /// Appends the content of the text file beside the test program (or, where that is not loaded,
    /// beside this program) and a line end.
    void WriteProgramRevision();
    /// The same for a given module: its text file has the module's name with "txt" for the last
    /// three characters. Nothing is appended when there is no such file, when it has 100 bytes or
    /// more, or when the name is shorter than three characters.
    void WriteProgramRevisionOf(const std::filesystem::path& module);

    /// Writes the length of the text, as "%10d", over the 10 characters behind the first '=': the
    /// data block then begins right behind the last header line. Nothing happens where there are
    /// not as many characters.
    void FixUpDataOffset();

    /// Appends "[Kitbag]\nDataPointer=%10d\n", or writes it over the first characters of the text.
    void AppendKitbagTag(int dataOffset);
    void OverwriteKitbagTag(int dataOffset);

private:
    /// The text behind the first occurrence of a key up to the next CR or LF.
    HeaderValue<std::string_view> ValueOf(std::string_view key) const;
    HeaderValue<bool> ReadCapitalTruth(std::string_view key) const;

    void WriteTag(std::string_view tag);
    void WriteTagAndPlaceholder(std::string_view tag);
    void WriteLine(std::string_view key, std::string_view value);
    void WriteLine(std::string_view key, int value);
    void WriteLine(std::string_view key, const std::array<int, 3>& values);
    void WriteTruth(std::string_view key, bool value);

    std::string m_text;
};

/// The 48-byte header of files written before there was a text header. Little-endian; the data
/// begin at offset 48 and run to the end of the file.
struct OldFileHeader {
    static constexpr std::size_t kBytes = 48;
    static constexpr int kTypeLightProfile = 16;
    static constexpr int kTypeStitch = 18;
    static constexpr int kTypeNoise = 19;
    static constexpr std::int32_t kLightProfileMark = 13900;

    std::uint8_t type = 0;       ///< Byte 11.
    std::uint8_t colorFlag = 0;  ///< Byte 17: 1 in a colour noise file.
    std::int32_t formatMark = 0; ///< At 20.
    std::int32_t resolution = 0; ///< Dots per inch: the integer at 24 divided by 100.
    std::int32_t width = 0;      ///< At 28: pixels (line length of a noise file).
    std::int32_t height = 0;     ///< At 32: lines.

    /// Takes the fields from the first 48 of `bytes`; false, and all zeros, when there are not as
    /// many.
    bool Parse(std::span<const std::uint8_t> bytes);
    /// The same for the first 48 bytes of a file.
    bool Load(const PositionalFile& file);
};

} // namespace vireo
